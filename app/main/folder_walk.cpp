#include "app/main/folder_walk.h"

#include <array>

#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

FolderWalk::FolderWalk(TextView folder, TextView extension)
    : folders_{Text(folder)}, ending_(u"." + LCase(extension)) {}

void FolderWalk::Step(std::vector<Text>& paths) {
    if (Finished()) return;
    const Text folder = std::move(folders_[next_++]);
    FileIdentity identity;
    if (!IdentityOf(folder, identity)) return;
    if (!visited_.emplace(identity.Device, identity.Node).second) return;

    std::vector<FolderItem> items;
    if (!ListFolder(folder, items).Ok()) return;
    for (const FolderItem& item : items) {
        const Text path = JoinPath(folder, item.Name);
        if (item.IsFolder) {
            folders_.push_back(path + Separator);
        } else if (EndsWith(LCase(Right(item.Name, static_cast<Pos>(ending_.size()))), ending_)) {
            paths.push_back(path);
        }
    }
}

DroppedKind KindOfDropped(TextView path) {
    constexpr std::array<TextView, 3> ListFileEndings = {u".srt", u".m3u", u".pls"};
    // An item without a path must not end up as the root folder.
    if (Trim(path).empty()) return DroppedKind::Nothing;
    if (IsFolder(Text(path) + Separator)) return DroppedKind::Folder;
    const Text ending = LCase(Right(path, 4));
    for (const TextView listFile : ListFileEndings) {
        if (ending == listFile) return DroppedKind::ListFile;
    }
    return DroppedKind::SingleFile;
}

}  // namespace mdlPLM
