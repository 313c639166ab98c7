#include "app/list/file_finder.h"

#include <utility>

namespace mdlPLM {

std::vector<Text> PathsOf(FoundFiles found) {
    if (found.Kind != ListFileKind::SortingList) return std::move(found.Names);
    FileList listed;
    AppendListed(listed, found.Kind, found.Names);
    std::vector<Text> paths;
    for (FileList::Index row = 0; row < listed.Count(); ++row) paths.push_back(listed.Path(row));
    return paths;
}

FileFinder::FileFinder(Text extension, Prompts& prompts, Language words)
    : extension_(std::move(extension)), prompts_(prompts), words_(std::move(words)) {}

void FileFinder::Begin(TextView path, AddAs as) {
    path_ = path;
    single_.reset();
    walk_.reset();
    reading_.reset();
    tooDeep_.clear();
    emptyFolder_ = false;
    listRead_ = {};
    if (as == AddAs::ListFile) return Read(path);
    switch (as == AddAs::File ? DroppedKind::SingleFile : KindOfDropped(path)) {
        case DroppedKind::Folder:
            walk_.emplace(path, extension_);
            emptyFolder_ = true;
            return;
        case DroppedKind::ListFile:
            return Read(path);
        case DroppedKind::SingleFile:
            single_ = path;
            return;
        case DroppedKind::Nothing:
            return;
    }
}

void FileFinder::Read(TextView path) {
    reading_.emplace(path, prompts_, words_);
    listRead_ = reading_->Result();
}

bool FileFinder::Step(FoundFiles& found) {
    found = {};
    if (walk_) {
        WalkOn(found);
    } else if (reading_) {
        ReadOn(found);
    } else if (single_) {
        found.Names.push_back(*std::exchange(single_, std::nullopt));
    } else {
        return false;
    }
    return true;
}

void FileFinder::WalkOn(FoundFiles& found) {
    found.From = FoundFiles::Origin::Folder;
    walk_->Step(found.Names);
    emptyFolder_ = emptyFolder_ && found.Names.empty();
    tooDeep_ = walk_->TooDeep();
    if (walk_->Finished()) walk_.reset();
}

void FileFinder::ReadOn(FoundFiles& found) {
    found.From = FoundFiles::Origin::ListFile;
    found.Kind = reading_->Kind();
    const bool more = reading_->Step(found.Names);
    listRead_ = reading_->Result();
    if (!more) reading_.reset();
}

Status FileFinder::Result() const {
    if (!emptyFolder_ || !tooDeep_.empty()) return listRead_;
    // A walk passes over what it cannot list, but the folder that was named is not to be.
    std::vector<FolderItem> items;
    return ListFolder(path_, items);
}

}  // namespace mdlPLM
