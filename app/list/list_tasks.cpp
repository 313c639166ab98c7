#include "app/list/list_tasks.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/names/fix_file_name.h"

namespace mdlPLM {

NameMaker::NameMaker(const NamingContext& naming, Text outPattern)
    : naming_(naming), outPattern_(std::move(outPattern)) {}

Text NameMaker::NewName(TextView path) const {
    return FixFileName(path, outPattern_, naming_.Context());
}

AddTask::AddTask(FileList& list, AddRequest request, Prompts& prompts)
    : list_(list),
      request_(std::move(request)),
      prompts_(prompts),
      finder_(request_.Extension, prompts_, request_.Words) {}

bool AddTask::Step() {
    FoundFiles found;
    if (!found_.empty()) {
        MakeReady();
    } else if (finder_.Step(found)) {
        Take(std::move(found));
    } else if (next_ < request_.Paths.size()) {
        BeginNext();
    } else {
        return false;
    }
    return true;
}

void AddTask::BeginNext() {
    EndThing();
    finder_.Begin(request_.Paths[next_++], request_.As);
}

// A list file that cannot be read is not reported; what was added before stays.
void AddTask::EndThing() {
    if (!listed_.Names.empty()) Publish();
    tooDeep_.insert(tooDeep_.end(), finder_.TooDeep().begin(), finder_.TooDeep().end());
}

void AddTask::Take(FoundFiles found) {
    if (found.From == FoundFiles::Origin::ListFile) {
        if (!readyPaths_.empty()) Publish();  // what was found before stands before it in the list
        listed_.Kind = found.Kind;
        std::move(found.Names.begin(), found.Names.end(), std::back_inserter(listed_.Names));
        return;
    }
    const bool chosen = found.From == FoundFiles::Origin::Folder || request_.As == AddAs::File;
    for (Text& path : found.Names)
        found_.push_back({std::move(path), chosen && request_.Preview.has_value()});
}

void AddTask::Finish(bool /*stopped*/) {
    Publish();
    EndThing();
    if (!tooDeep_.empty()) prompts_.Critical(TooDeepMessage(tooDeep_, request_.Words));
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
    added_ += listed_.Names.size();
    if (!listed_.Names.empty()) AppendListed(list_, listed_.Kind, listed_.Names);
    listed_.Names.clear();
}

RunProgress AddTask::Progress() const {
    const auto found = added_ + readyPaths_.size() + found_.size() + listed_.Names.size();
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
