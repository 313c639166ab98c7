#include "app/cli/commands.h"
#include "app/cli/inputs.h"
#include "app/cli/terminal_prompts.h"
#include "app/list/list_operations.h"
#include "core/names/existing_target.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

void PutPaths(Session& session, const PathSpelling& spelling, const FileList& list) {
    Report& report = session.Results;
    for (FileList::Index row = 0; report.MayBegin(row, list.Count()); ++row) {
        const TextView path = spelling.Shown(list.Path(row));
        if (!report.Json()) {
            report.Line(report.Shown(path));
            continue;
        }
        JsonObject object;
        object.Put("path", path).Put("exists", FileExists(list.Path(row)));
        report.Object(object);
    }
}

/// The format of the list file: the one that was asked for, else by the name of the file.
std::optional<ListFileKind> KindToWrite(Session& session, const ListOptions& options) {
    if (options.As) return options.As;
    const ListFileKind kind = KindOfListFile(PathFromNative(*options.Output));
    const std::vector<ListFormat> written = WrittenFormats();
    for (const ListFormat& format : written)
        if (format.Kind == kind) return kind;
    session.Results.Misuse(u"--output: a name in " + EndingsInWords(written, u"or") +
                           u", or --as, tells what to write");
    return std::nullopt;
}

void PutQuestion(Report& report, TextView path, TextView question) {
    if (!report.Json()) return report.Line(ToUtf8(Harmless(question)));
    JsonObject object;
    object.Put("path", path).Put("outcome", "asks").Put("question", question);
    report.Object(object.Put("dry_run", true));
}

/// True when nothing is at the path, or it may be replaced.
bool MayWrite(Session& session, TextView path, IfExists choice) {
    if (!FileExists(path)) return true;
    TerminalPrompts terminal(session.Streams, session.Results, false);
    PlanningPrompts planner(session.Results);
    const bool plan = session.Results.DryRun();
    Prompts& prompts = plan ? static_cast<Prompts&>(planner) : terminal;
    const TargetDecision decision = DecideExistingTarget(choice, path, prompts);
    if (decision == TargetDecision::Replace) return true;
    const Text question = planner.TakeQuestion();
    if (question.empty()) {
        session.Results.Fail(path, Describe(ErrorNumber::FileAlreadyExists));
    } else {
        PutQuestion(session.Results, path, question);
    }
    return false;
}

/// What the written list does not hold.
void TellLeftOut(Session& session, const PathSpelling& spelling, const FileList& list) {
    for (const Text& name : NamesWithLineBreak(list))
        session.Results.Fail(spelling.Shown(name), FromUtf8(LineBreakReason));
}

void PutWritten(Report& report, TextView path, std::size_t count) {
    const auto files = static_cast<long long>(count);
    if (!report.Json()) {
        report.Line((report.DryRun() ? "would write " : "written ") + report.Shown(path) + ": " +
                    std::to_string(files) + " files");
        return;
    }
    JsonObject object;
    object.Put("path", path).Put("files", files).Put("outcome", "written");
    if (report.DryRun()) object.Put("dry_run", true);
    report.Object(object);
}

void WriteList(Session& session, const FileList& list, ListFileKind kind, IfExists choice) {
    // What was not looked through any more would be missing from the list.
    if (session.Streams.Interrupted()) return session.Results.Fail(u"stopped: no list was written");
    const Text path = PathFromNative(*session.Asked.List.Output);
    if (!MayWrite(session, path, choice)) return;
    if (!session.Results.DryRun()) {
        session.LeftBehind.LookBeside(path);
        const Status written = SaveListFile(list, path, kind);
        if (!written.Ok()) return session.Results.Fail(path, Describe(written.Number()));
    }
    PutWritten(session.Results, path, list.Count() - NamesWithLineBreak(list).size());
}

}  // namespace

void RunList(Session& session) {
    const ListOptions& options = session.Asked.List;
    const std::optional<IfExists> choice = ExistsChoice(session, options.Exists);
    std::optional<ListFileKind> kind;
    if (options.As || options.Output) kind = KindToWrite(session, options);
    if (!choice || (options.Output && !kind)) return;

    PathSpelling spelling(session.Folder);
    FileList list;
    if (!GatherFiles(session, spelling, list)) return;
    if (options.Existing) RemoveNonExistent(list);
    if (options.Output) {
        WriteList(session, list, *kind, *choice);
        TellLeftOut(session, spelling, list);
    } else if (kind && !session.Results.Json()) {
        session.Streams.Out(RenderListFile(list, *kind));
        TellLeftOut(session, spelling, list);
    } else {
        PutPaths(session, spelling, list);
    }
}

}  // namespace mdlPLM::cli
