#include "app/cli/commands.h"
#include "app/cli/sample_collection.h"
#include "core/platform/disk.h"
#include "core/platform/path.h"

namespace mdlPLM::cli {

namespace {

constexpr const char* Collection = "collection";
constexpr const char* Sorted = "sorted";
constexpr const char* OutPattern = "%artist - %track - %title.mp3";
constexpr int FoldersTried = 1000;

/// A new folder among the temporary ones, with a separator at its end; empty, and told, when none
/// can be made.
Text NewFolder(Report& report) {
    const Text start = JoinPath(TemporaryFolder(), u"pellmore-demo-");
    SystemDisk disk;
    Status made = ErrorNumber::FileAlreadyExists;
    for (int i = 1; i <= FoldersTried; ++i) {
        const Text folder = start + NumberText(static_cast<long long>(i));
        made = disk.CreateFolder(folder);
        if (made.Ok()) return folder + Separator;
        if (made.Number() != ErrorNumber::FileAlreadyExists) break;
    }
    report.Fail(start, Describe(made.Number()));
    return {};
}

void PutTree(Report& report, const Text& folder, const Bytes& indent) {
    std::vector<FolderItem> items;
    const Status listed = ListFolder(folder, items);
    if (!listed.Ok()) report.Fail(folder, Describe(listed.Number()));
    for (const FolderItem& item : items) {
        report.Line(indent + report.Shown(item.Name) + (item.IsFolder ? "/" : ""));
        if (item.IsFolder) PutTree(report, JoinPath(folder, item.Name), indent + "    ");
    }
}

void PutTitle(Report& report, BytesView title) {
    report.Line("");
    report.Line(title);
    report.Line("");
}

Bytes QuotedForShell(const Bytes& word) {
    return word.find(' ') == Bytes::npos ? word : "'" + word + "'";
}

/// A command as it can be typed in the folder of the demonstration.
void RunThere(Session& session, const Text& folder, const std::vector<Bytes>& arguments) {
    Bytes line = "$ " + Bytes(ProgramName);
    for (const Bytes& argument : arguments) line += " " + QuotedForShell(argument);
    session.Results.Line(line);
    const ParsedArguments parsed = ParseOptions(arguments);
    Session inner(parsed.Asked, session.Streams, folder);
    RunCommand(inner);
    if (inner.Results.Status() != AllDone) session.Results.Fail(u"the demonstration failed");
}

}  // namespace

void RunDemo(Session& session) {
    Report& report = session.Results;
    const Text folder = NewFolder(report);
    if (folder.empty()) return;
    const Text collection = folder + PathFromNative(Collection);
    const Status made = MakeSampleCollection(collection);
    if (!made.Ok()) return report.Fail(collection, Describe(made.Number()));

    report.Line("A small collection with all kinds of bad names and tags, in");
    report.Line(report.Shown(collection));
    PutTitle(report, "Old names and new names:");
    RunThere(session, folder,
             {"names", "--no-user-settings", "--out-pattern", OutPattern, Collection});
    PutTitle(report, "Sorted by genre, letter and artist:");
    RunThere(session, folder,
             {"sort", "--no-user-settings", "--out-pattern", OutPattern, "--yes", "--method",
              "copy", "--to", Sorted, "--genre", "--letter", "--artist", "2", Collection});
    PutTitle(report, "The sorted collection:");
    PutTree(report, folder + PathFromNative(Sorted), "");
    report.Line("");
    report.Line("It stays there to be looked at: " + report.Shown(folder));
}

}  // namespace mdlPLM::cli
