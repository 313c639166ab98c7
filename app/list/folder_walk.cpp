#include "app/list/folder_walk.h"

#include <algorithm>
#include <utility>

#include "app/list/file_failures.h"
#include "app/list/list_formats.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {
/// Some hundredths of a second, even where a listing is slow.
constexpr std::size_t ItemsPerStep = 4000;

/// A folder's name may end in the other system's separator, which separates nothing then.
Text WithSeparator(TextView folder) {
    Text path(folder);
    if (path.empty() || path.back() != Separator) path.push_back(Separator);
    return path;
}

/// Such a path would fill the screen.
Text Shortened(TextView path) {
    constexpr Pos End = 100;
    if (static_cast<Pos>(path.size()) <= 2 * End) return Text(path);
    return Left(path, End) + u"..." + Right(path, End);
}
}  // namespace

FolderWalk::FolderWalk(TextView folder, TextView extension)
    : folders_{WithSeparator(folder)}, ending_(u"." + LCase(extension)) {}

bool FolderWalk::Finished() const {
    return next_ >= folders_.size() && !reader_.IsOpen() && items_.empty();
}

void FolderWalk::Step(std::vector<Text>& paths) {
    if (items_.empty() && !reader_.IsOpen()) OpenNext();
    if (reader_.IsOpen()) ReadSome();
    if (!reader_.IsOpen()) HandOutSome(paths);
}

void FolderWalk::OpenNext() {
    if (Finished()) return;
    folder_ = std::move(folders_[next_++]);
    FileIdentity identity;
    const bool known = IdentityOf(folder_, identity);
    if (known && !visited_.emplace(identity.Device, identity.Node).second) return;
    // One that cannot be opened is passed over. The system gave the name itself: where it does not
    // take it, the path is too long.
    const Status opened = reader_.Open(folder_);
    if (opened.Number() == ErrorNumber::BadFileName) tooDeep_.push_back(folder_);
}

void FolderWalk::ReadSome() {
    std::vector<FolderItem> read;
    // What was read before a failure is there and counts.
    static_cast<void>(reader_.Read(ItemsPerStep, read));
    for (FolderItem& item : read) {
        if (IsWanted(item)) items_.push_back(std::move(item));
    }
    if (!reader_.IsOpen()) SortByName(items_);
}

bool FolderWalk::IsWanted(const FolderItem& item) const {
    const auto length = static_cast<Pos>(ending_.size());
    return item.IsFolder || LCase(Right(item.Name, length)) == ending_;
}

void FolderWalk::HandOutSome(std::vector<Text>& paths) {
    const std::size_t end = std::min(handedOut_ + ItemsPerStep, items_.size());
    for (; handedOut_ < end; ++handedOut_) {
        const FolderItem& item = items_[handedOut_];
        Text path = folder_ + item.Name;
        if (item.IsFolder) {
            folders_.push_back(WithSeparator(path));
        } else {
            paths.push_back(std::move(path));
        }
    }
    if (handedOut_ < items_.size()) return;
    items_.clear();
    handedOut_ = 0;
}

Message TooDeepMessage(const std::vector<Text>& folders, const Language& words) {
    std::vector<FileFailure> failures;
    for (const Text& folder : folders)
        failures.push_back({Shortened(folder), words(TooDeepReason)});
    return {u"PLM",
            FailureBox(words(PLM_TRANSLATE("Texts", "These were not searched:")), failures, words),
            {}};
}

DroppedKind KindOfDropped(TextView path) {
    // An item without a path must not end up as the root folder.
    if (Trim(path).empty()) return DroppedKind::Nothing;
    if (IsFolder(Text(path) + Separator)) return DroppedKind::Folder;
    if (KindOfListFile(path) != ListFileKind::Other) return DroppedKind::ListFile;
    return DroppedKind::SingleFile;
}

}  // namespace mdlPLM
