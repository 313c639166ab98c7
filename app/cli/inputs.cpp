#include "app/cli/inputs.h"

#include <filesystem>
#include <utility>

#include "app/cli/terminal_prompts.h"
#include "app/list/folder_walk.h"
#include "app/list/list_file_reader.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

constexpr BytesView StandardInput = "-";

class Gathering {
public:
    /// What list files name goes into `list`, with its lines as they stand; without one everything
    /// goes into the paths.
    Gathering(Session& session, PathSpelling& spelling, FileList* list)
        : session_(session), spelling_(spelling), list_(list) {}

    /// False, and told, when nothing was given.
    bool TakeAll();
    /// The paths that are in no list.
    std::vector<Text> TakePaths() { return std::exchange(files_, {}); }

private:
    void TakeArgument(const Bytes& argument);
    void TakeStandardInput(char end);
    void TakePath(BytesView native);
    void Walk(TextView folder);
    void CheckFolder(TextView folder);
    void ReadList(TextView path);

    Session& session_;
    PathSpelling& spelling_;
    FileList* list_;
    std::vector<Text> files_;
};

bool Gathering::TakeAll() {
    const CommonOptions& common = session_.Asked.Common;
    if (common.Paths.empty() && !common.NulSeparated) {
        session_.Results.Misuse(u"no files were given");
        return false;
    }
    for (const Bytes& argument : common.Paths) TakeArgument(argument);
    if (common.NulSeparated) TakeStandardInput('\0');
    session_.Results.EndProgress();
    return true;
}

void Gathering::TakeArgument(const Bytes& argument) {
    if (argument != StandardInput) return TakePath(argument);
    // --null says how standard input is read; it is read once.
    if (!session_.Asked.Common.NulSeparated) TakeStandardInput('\n');
}

void Gathering::TakeStandardInput(char end) {
    const Bytes all = session_.Streams.ReadAll();
    for (BytesView rest = all; !rest.empty();) {
        const std::size_t length = std::min(rest.find(end), rest.size());
        if (length > 0) TakePath(rest.substr(0, length));
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
}

void Gathering::TakePath(BytesView native) {
    const Text path = spelling_.Absolute(PathFromNative(native));
    switch (KindOfDropped(path)) {
        case DroppedKind::Folder:
            return Walk(path);
        case DroppedKind::ListFile:
            return ReadList(path);
        case DroppedKind::SingleFile:
            files_.push_back(path);
            return;
        case DroppedKind::Nothing:
            return;
    }
}

void Gathering::Walk(TextView folder) {
    const bool ended = IsSeparator(folder.back());
    FolderWalk walk(ended ? Text(folder) : Text(folder) + Separator, session_.Values.Extension);
    const std::size_t before = files_.size();
    while (!walk.Finished() && !session_.Results.ShouldStop()) {
        walk.Step(files_);
        session_.Results.Progress(NumberText(static_cast<long long>(files_.size())) + u" files");
    }
    for (const Text& tooDeep : walk.TooDeep())
        session_.Results.Fail(spelling_.Shown(tooDeep), FromUtf8(TooDeepReason));
    if (files_.size() == before && walk.TooDeep().empty()) CheckFolder(folder);
}

// A walk passes over what it cannot list, but the folder that was named is not to be.
void Gathering::CheckFolder(TextView folder) {
    std::vector<FolderItem> items;
    const Status listed = ListFolder(folder, items);
    if (!listed.Ok()) session_.Results.Fail(spelling_.Shown(folder), Describe(listed.Number()));
}

void Gathering::ReadList(TextView path) {
    FileList named;
    FileList& list = list_ == nullptr ? named : *list_;
    if (list_ != nullptr) list_->Append(TakePaths());
    TerminalPrompts prompts(session_.Streams, session_.Results, false);
    ListFileReader reader(path, prompts);
    std::vector<Text> names;
    while (!session_.Results.ShouldStop() && reader.Step(names)) {
    }
    AppendListed(list, reader.Kind(), names);
    const Status read = reader.Result();
    if (!read.Ok()) session_.Results.Fail(spelling_.Shown(path), Describe(read.Number()));
    for (FileList::Index row = 0; row < named.Count(); ++row) files_.push_back(named.Path(row));
}

}  // namespace

Text PathSpelling::Absolute(TextView given) {
    const bool absolute = std::filesystem::path(NativePath(given)).is_absolute();
    if (absolute || given.empty()) return Text(given);
    relative_ = true;
    return base_ + Text(given);
}

TextView PathSpelling::Shown(TextView path) const {
    const bool below = relative_ && path.size() > base_.size() && StartsWith(path, base_);
    return below ? path.substr(base_.size()) : path;
}

bool GatherFiles(Session& session, PathSpelling& spelling, FileList& list) {
    Gathering gathering(session, spelling, &list);
    if (!gathering.TakeAll()) return false;
    list.Append(gathering.TakePaths());
    list.SelectAll();
    return true;
}

bool GatherPaths(Session& session, PathSpelling& spelling, std::vector<Text>& paths) {
    Gathering gathering(session, spelling, nullptr);
    if (!gathering.TakeAll()) return false;
    paths = gathering.TakePaths();
    return true;
}

}  // namespace mdlPLM::cli
