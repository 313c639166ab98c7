#include <utility>

#include "app/cli/commands.h"
#include "app/cli/records.h"
#include "core/names/new_name.h"
#include "core/platform/path.h"

namespace mdlPLM::cli {

namespace {

FileRecord NameFile(const Session& session, const Text& path) {
    const NamingContext naming = session.Naming();
    SilentErrors silent;
    const FileTags tags = ReadFileTags(path, ID3v2Parts::NameFields, silent);
    FileRecord record;
    record.Path = path;
    if (!tags.Exists) {
        record.What = Outcome::Failed;
        record.Reason = Describe(ErrorNumber::FileNotFound);
        return record;
    }
    if (const Status read = ReadingFault(tags, session.Values); !read.Ok()) {
        record.What = Outcome::Failed;
        record.Reason = Describe(read.Number());
        return record;
    }
    record.NewName = FixFileName(path, session.Values.OutPattern, tags, naming);
    record.Reason = FaultOfNewName(record.NewName, session.Values);
    if (!record.Reason.empty()) record.What = Outcome::Failed;
    if (session.Results.Json()) {
        record.NewPath = FolderOfPath(path) + record.NewName;
        record.Fields = GatherFields(path, tags, naming);
    }
    return record;
}

}  // namespace

void RunNames(Session& session) {
    PathSpelling spelling(session.Folder);
    std::vector<Text> paths;
    if (!GatherPaths(session, spelling, paths)) return;
    Report& report = session.Results;
    for (std::size_t row = 0; report.MayBegin(row, paths.size()); ++row)
        PutRecord(report, spelling, NameFile(session, paths[row]));
}

}  // namespace mdlPLM::cli
