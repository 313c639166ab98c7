#include "app/list/list_tasks.h"

#include <algorithm>
#include <utility>

#include "core/names/fix_file_name.h"

namespace mdlPLM {

NameMaker::NameMaker(const NamingContext& naming, Text outPattern)
    : naming_(naming), outPattern_(std::move(outPattern)) {}

Text NameMaker::NewName(TextView path) const {
    return FixFileName(path, outPattern_, naming_.Context());
}

AddTask::AddTask(FileList& list, AddRequest request, Prompts& prompts)
    : list_(list), request_(std::move(request)), prompts_(prompts) {}

bool AddTask::Step() {
    if (!found_.empty()) {
        MakeReady();
    } else if (walk_ && !walk_->Finished()) {
        std::vector<Text> paths;
        walk_->Step(paths);
        for (Text& path : paths) found_.push_back({std::move(path), request_.Preview.has_value()});
    } else if (reading_) {
        ReadOn();
    } else if (next_ < request_.Paths.size()) {
        TakeNext();
    } else {
        return false;
    }
    return true;
}

void AddTask::TakeNext() {
    const Text& path = request_.Paths[next_++];
    EndWalk();
    switch (request_.As) {
        case AddAs::Dropped:
            return TakeDropped(path);
        case AddAs::File:
            return found_.push_back({path, request_.Preview.has_value()});
        case AddAs::ListFile:
            return Load(path);
    }
}

void AddTask::TakeDropped(const Text& path) {
    switch (KindOfDropped(path)) {
        case DroppedKind::Folder:
            return AddFolder(path);
        case DroppedKind::ListFile:
            return Load(path);
        case DroppedKind::SingleFile:
            return found_.push_back({path, false});
        case DroppedKind::Nothing:
            return;
    }
}

void AddTask::AddFolder(const Text& folder) { walk_.emplace(folder, request_.Extension); }

void AddTask::EndWalk() {
    if (walk_) tooDeep_.insert(tooDeep_.end(), walk_->TooDeep().begin(), walk_->TooDeep().end());
    walk_.reset();
}

void AddTask::Finish(bool /*stopped*/) {
    Publish();
    EndWalk();
    if (!tooDeep_.empty()) prompts_.Critical(TooDeepMessage(tooDeep_, request_.Words));
}

void AddTask::Load(const Text& path) {
    Publish();  // what was found before stands before it in the list
    reading_.emplace(path, prompts_, request_.Words);
}

// A list file that cannot be read is not reported; what was added before stays.
void AddTask::ReadOn() {
    if (reading_->Step(listed_)) return;
    Publish();
    reading_.reset();
}

void AddTask::MakeReady() {
    Found file = std::move(found_.front());
    found_.pop_front();
    readyNames_.push_back(file.WantsName ? request_.Preview->NewName(file.Path) : Text());
    readyPaths_.push_back(std::move(file.Path));
}

void AddTask::Publish() {
    added_ += readyPaths_.size();
    if (!readyPaths_.empty()) list_.Append(readyPaths_, readyNames_);
    readyPaths_.clear();
    readyNames_.clear();
    added_ += listed_.size();
    if (!listed_.empty()) AppendListed(list_, reading_->Kind(), listed_);
    listed_.clear();
}

RunProgress AddTask::Progress() const {
    const auto found = added_ + readyPaths_.size() + found_.size() + listed_.size();
    return {request_.Words(PLM_TRANSLATE("Texts", "Adding files: %1 found"),
                           {NumberText(static_cast<long long>(found))}),
            0, 0};
}

NamesTask::NamesTask(FileList& list, NameMaker maker, std::vector<FileList::Index> rows,
                     Language words)
    : list_(list), maker_(std::move(maker)), rows_(std::move(rows)), words_(std::move(words)) {}

bool NamesTask::Step() {
    if (next_ >= rows_.size()) return false;
    names_.push_back(maker_.NewName(list_.Path(rows_[next_++])));
    return true;
}

void NamesTask::Publish() {
    std::size_t taken = 0;
    while (published_ < next_) {
        const FileList::Index first = rows_[published_];
        std::vector<Text> run;
        while (published_ < next_ && rows_[published_] == first + run.size()) {
            run.push_back(std::move(names_[taken++]));
            ++published_;
        }
        list_.SetNewNames(first, std::move(run));
    }
    names_.clear();
}

RunProgress NamesTask::Progress() const {
    return {words_(PLM_TRANSLATE("Texts", "Computing new names")), next_, rows_.size()};
}

ScanTask::ScanTask(Text what, const FileList& list, ListScan scan, Apply apply)
    : what_(std::move(what)), list_(list), scan_(std::move(scan)), apply_(std::move(apply)) {}

RunProgress ScanTask::Progress() const { return {what_, scan_.Done(), list_.Count()}; }

}  // namespace mdlPLM
