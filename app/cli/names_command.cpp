#include <utility>

#include "app/cli/commands.h"
#include "app/cli/records.h"
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
    const Text name = FixFileName(path, session.Values.OutPattern, tags, naming);
    record.NewPath = FolderOfPath(path) + name;
    if (session.Results.Json()) record.Fields = GatherFields(path, tags, naming);
    if (!IsUsableFileName(name)) {
        record.What = Outcome::Failed;
        record.Reason = Text(Describe(ErrorNumber::BadFileName)) + u" (\"" + name + u"\")";
    }
    return record;
}

}  // namespace

void RunNames(Session& session) {
    PathSpelling spelling(session.Folder);
    FileList list;
    if (!GatherFiles(session, spelling, list)) return;
    Report& report = session.Results;
    for (FileList::Index row = 0; report.MayBegin(row, list.Count()); ++row)
        PutRecord(report, spelling, NameFile(session, list.Path(row)));
}

}  // namespace mdlPLM::cli
