#include <map>
#include <utility>

#include "app/cli/commands.h"
#include "app/cli/inputs.h"
#include "app/cli/planning_disk.h"
#include "app/cli/planning_tag_writer.h"
#include "app/cli/tag_wishes.h"
#include "app/cli/terminal_prompts.h"
#include "app/tags/tag_panel.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

constexpr TextView BoxTitle = u"Pellmore";

constexpr BytesView Read = "read";
constexpr BytesView Written = "written";
constexpr BytesView Unchanged = "unchanged";
constexpr BytesView Failed = "failed";

BytesView WordFor(FileFate fate) {
    if (fate == FileFate::Failed) return Failed;
    return fate == FileFate::Done ? Written : Unchanged;
}

bool Has(const TagBoxes& boxes, TagVersion version) {
    return version == TagVersion::V1 ? boxes.chkID3v1 : boxes.chkID3v2;
}

/// The box of a field in one version; nothing when that version does not have the field.
const Text* BoxOf(const TagField& field, const TagBoxes& boxes, TagVersion version) {
    if (version == TagVersion::V2) return &(boxes.*RowOf(field.V2).Value);
    return field.V1 ? &(boxes.*RowOf(*field.V1).Value) : nullptr;
}

void PutVersion(JsonObject& object, const char* key, const TagBoxes& boxes, TagVersion version) {
    if (!Has(boxes, version)) {
        object.PutNull(key);
        return;
    }
    JsonObject tag;
    for (const TagField& field : TagFields())
        if (const Text* const box = BoxOf(field, boxes, version)) tag.Put(field.Word.c_str(), *box);
    object.Put(key, std::move(tag));
}

struct TagResult {
    Text Path;  ///< as it is shown
    TagBoxes Boxes;
    BytesView Word;  ///< what became of the file
    Text Reason;
};

JsonObject ObjectOf(const Report& report, const TagResult& result, bool changes) {
    JsonObject object;
    object.Put("path", result.Path);
    PutVersion(object, "v1", result.Boxes, TagVersion::V1);
    PutVersion(object, "v2", result.Boxes, TagVersion::V2);
    object.Put("outcome", result.Word).PutOrNull("reason", result.Reason);
    if (changes && report.DryRun()) object.Put("dry_run", true);
    return object;
}

void PutBoxLines(Report& report, const TagBoxes& boxes, TagVersion version, const char* name) {
    if (!Has(boxes, version)) return;
    report.Line(Bytes("    ") + name);
    for (const TagBoxRow& row : TagBoxTable)
        if (row.Version == version && !(boxes.*row.Value).empty())
            report.Line("        " + ToUtf8(row.Label) + report.Shown(boxes.*row.Value));
}

void PutTags(Report& report, const TagResult& result) {
    const bool failed = !result.Reason.empty();
    if (report.Json()) {
        report.Object(ObjectOf(report, result, false));
    } else if (!failed) {
        report.Line(report.Shown(result.Path));
        PutBoxLines(report, result.Boxes, TagVersion::V1, "ID3v1");
        PutBoxLines(report, result.Boxes, TagVersion::V2, "ID3v2");
    }
    if (failed) report.Fail(result.Path, result.Reason);
}

void ShowTags(Session& session, const PathSpelling& spelling, const std::vector<Text>& paths) {
    Report& report = session.Results;
    for (std::size_t row = 0; report.MayBegin(row, paths.size()); ++row) {
        TagResult result{Text(spelling.Shown(paths[row])), {}, Read, {}};
        FileTags tags;
        const Status read = ReadForChange(paths[row], tags);
        result.Boxes = ShowBoxes(tags, session.Values.bOptimizedID3v1);
        if (!read.Ok()) {
            result.Word = Failed;
            result.Reason = Describe(read.Number());
        }
        PutTags(report, result);
    }
}

/// One run over the files that changes their tags.
class Tagging {
public:
    Tagging(Session& session, const PathSpelling& spelling, TagWishes wishes)
        : session_(session),
          report_(session.Results),
          spelling_(spelling),
          wishes_(std::move(wishes)),
          writer_(disk_) {}

    void Run(std::vector<Text> paths);

private:
    [[nodiscard]] bool MayBegin(std::size_t files);
    void PutSettled(const RunReport& now);
    void Put(const TagResult& result);
    void Summarize(const RunReport& result);

    Session& session_;
    Report& report_;
    const PathSpelling& spelling_;
    const TagWishes wishes_;
    PlanningDisk disk_;
    PlanningTagWriter writer_;
    /// Of the files whose outcome is not known yet, by place: the boxes as they become.
    std::map<std::size_t, TagBoxes> boxes_;
    std::size_t told_ = 0;  ///< records of the run that have been printed
};

// The question is the panel's; without a terminal the command itself is the answer to it, because
// it says nothing that the command does not.
bool Tagging::MayBegin(std::size_t files) {
    const bool asks =
        files > 1 && wishes_.SetsOrRemoves() && !report_.DryRun() && session_.Streams.Kinds().Ask;
    if (!asks) return true;
    TerminalPrompts prompts(session_.Streams, report_, session_.Asked.Common.Yes);
    const Message question{Text(BoxTitle), ConfirmationText(BoxesOfWishes(wishes_)), {}};
    if (prompts.AskYesNo(question) == Answer::Yes) return true;
    report_.Fail(u"nothing was changed");
    return false;
}

void Tagging::Run(std::vector<Text> paths) {
    if (!MayBegin(paths.size())) return;
    if (!report_.DryRun())
        for (const Text& path : paths) session_.LeftBehind.LookBeside(path);
    const NamingContext naming = session_.Naming();
    std::size_t place = 0;
    TagRun run(std::move(paths), [&](TextView path, const FileTags& tags) {
        EditedTags edited = EditTags(path, tags, wishes_, naming);
        boxes_[place] = std::move(edited.Boxes);
        return std::move(edited.Change);
    });
    if (report_.DryRun()) run.WriteThrough(writer_);
    while (!run.Finished()) {
        place = run.Done();
        if (report_.WantsProgress())
            report_.Progress(NumberText(static_cast<long long>(place)) + u" of " +
                             NumberText(static_cast<long long>(run.Total())) + u"  " +
                             run.Current());
        (void)run.Step();
        PutSettled(run.Report());
        if (report_.ShouldStop()) run.Stop();
    }
    PutSettled(run.Report());
    Summarize(run.Report());
}

void Tagging::PutSettled(const RunReport& now) {
    for (; told_ < now.Files.size(); ++told_) {
        const FileOutcome& file = now.Files[told_];
        Put({Text(spelling_.Shown(file.Path)), std::move(boxes_[told_]), WordFor(file.What),
             ReasonText(file.Reason)});
        boxes_.erase(told_);
    }
}

void Tagging::Put(const TagResult& result) {
    const bool failed = !result.Reason.empty();
    if (report_.Json()) {
        report_.Object(ObjectOf(report_, result, true));
    } else if (!failed) {
        const bool would = report_.DryRun() && result.Word == Written;
        report_.Line((would ? "would write" : Bytes(result.Word)) + " " +
                     report_.Shown(result.Path));
    }
    if (failed) report_.Fail(result.Path, result.Reason);
    report_.FlushSoon();
}

void Tagging::Summarize(const RunReport& result) {
    const Text summary = SummaryText(result, TagWording);
    if (result.Stopped) {
        report_.Fail(u"stopped: " + summary);
    } else if (!report_.Json()) {
        report_.Line((report_.DryRun() ? "would be: " : "") + ToUtf8(summary));
    }
}

}  // namespace

void RunTags(Session& session) {
    TagWishes wishes;
    Text fault;
    if (!ReadWishes(session.Asked.Tags, wishes, fault)) return session.Results.Misuse(fault);
    PathSpelling spelling(session.Folder);
    std::vector<Text> paths;
    if (!GatherPaths(session, spelling, paths)) return;
    if (wishes.Any()) {
        Tagging(session, spelling, std::move(wishes)).Run(std::move(paths));
    } else {
        ShowTags(session, spelling, paths);
    }
}

}  // namespace mdlPLM::cli
