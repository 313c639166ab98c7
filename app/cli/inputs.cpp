#include "app/cli/inputs.h"

#include <filesystem>
#include <utility>

#include "app/cli/terminal_prompts.h"
#include "app/list/file_finder.h"
#include "app/list/list_operations.h"
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
        : session_(session),
          spelling_(spelling),
          list_(list),
          prompts_(session.Streams, session.Results, false),
          finder_(session.Values.Extension, prompts_) {}

    /// False, and told, when nothing was given.
    bool TakeAll();
    /// The paths that are in no list.
    std::vector<Text> TakePaths() { return std::exchange(files_, {}); }

private:
    void TakeArgument(const Bytes& argument);
    void TakeStandardInput(char end);
    void TakePath(BytesView native);
    void Put(FoundFiles found);
    void TellFaults(TextView path);

    Session& session_;
    PathSpelling& spelling_;
    FileList* list_;
    TerminalPrompts prompts_;
    FileFinder finder_;
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
    finder_.Begin(path);
    FoundFiles found;
    // A single file that was named is among the files also when the user stops right then: the run
    // that does not come to it says so.
    while ((finder_.IsAtHand() || !session_.Results.ShouldStop()) && finder_.Step(found))
        Put(std::move(found));
    TellFaults(path);
}

void Gathering::Put(FoundFiles found) {
    if (found.From == FoundFiles::Origin::ListFile && list_ != nullptr) {
        list_->Append(TakePaths());
        return AppendListed(*list_, found.Kind, found.Names);
    }
    const bool walked = found.From == FoundFiles::Origin::Folder;
    const std::vector<Text> paths = PathsOf(std::move(found));
    files_.insert(files_.end(), paths.begin(), paths.end());
    if (walked) session_.Results.Progress(FilesText(files_.size()));
}

void Gathering::TellFaults(TextView path) {
    for (const Text& tooDeep : finder_.TooDeep())
        session_.Results.Fail(spelling_.Shown(tooDeep), FromUtf8(TooDeepReason));
    const Status read = finder_.Result();
    if (!read.Ok()) session_.Results.Fail(spelling_.Shown(path), Describe(read.Number()));
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
