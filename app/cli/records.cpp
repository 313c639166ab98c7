#include "app/cli/records.h"

#include <array>
#include <utility>

#include "app/list/run_texts.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

struct OutcomeRow {
    BytesView Word;     ///< in JSON, and in front of a line about what was done
    BytesView Planned;  ///< in front of a line about what would be done
};

// In the order of Outcome.
constexpr std::array<OutcomeRow, 11> OutcomeRows = {{{"named", "named"},
                                                     {"copied", "would copy"},
                                                     {"moved", "would move"},
                                                     {"renamed", "would rename"},
                                                     {"written", "would write"},
                                                     {"unchanged", "unchanged"},
                                                     {"kept", "would keep"},
                                                     {"asks", "would ask about"},
                                                     {"skipped", "would skip"},
                                                     {"cancelled", "cancelled"},
                                                     {"failed", "would fail on"}}};

// In the order of FieldSource.
constexpr std::array<const char*, 4> SourceWords = {nullptr, "v2", "v1", "pattern"};

const OutcomeRow& RowOf(Outcome outcome) {
    return OutcomeRows.at(static_cast<std::size_t>(outcome));
}

Outcome WhySkipped(const FileOutcome& file, bool asks) {
    if (file.Answered == Answer::Cancel) return Outcome::Cancelled;
    switch (file.Reason.What) {
        case Why::Missing:
            return Outcome::Failed;  // who names a file that is not there made a mistake
        case Why::TargetExists:
            return asks ? Outcome::Asks : Outcome::Kept;
        default:
            return Outcome::Skipped;
    }
}

Outcome OutcomeOf(const FileOutcome& file, Outcome done, bool asks) {
    switch (file.What) {
        case FileFate::Done:
            return done;
        case FileFate::Unchanged:
            return Outcome::Unchanged;
        case FileFate::Skipped:
            return WhySkipped(file, asks);
        case FileFate::Failed:
            break;
    }
    return Outcome::Failed;
}

bool HasTarget(Outcome outcome) {
    return outcome != Outcome::Unchanged && outcome != Outcome::Skipped &&
           outcome != Outcome::Written;
}

Bytes Indented(const Bytes& text) {
    Bytes indented = "\n    ";
    for (const char c : text) indented += c == '\n' ? "\n    " : Bytes(1, c);
    return indented;
}

Bytes LineOf(const Report& report, const PathSpelling& spelling, const FileRecord& record) {
    Bytes path = report.Shown(spelling.Shown(record.Path));
    if (record.What == Outcome::Named)
        return std::move(path.append(" -> ").append(report.Shown(record.NewName)));
    const OutcomeRow& row = RowOf(record.What);
    Bytes line = Bytes(report.DryRun() ? row.Planned : row.Word) + " " + path;
    if (HasTarget(record.What) && !record.NewPath.empty())
        line += " -> " + report.Shown(spelling.Shown(record.NewPath));
    if (record.Replaced) line += ", replacing the file there";
    if (!record.Reason.empty()) line += ": " + report.Shown(record.Reason);
    if (!record.Question.empty()) line += Indented(ToUtf8(Harmless(record.Question)));
    return line;
}

JsonObject ObjectOf(const Report& report, const PathSpelling& spelling, const FileRecord& record) {
    JsonObject object;
    object.Put("path", spelling.Shown(record.Path));
    object.PutOrNull("new_path", spelling.Shown(record.NewPath));
    if (record.Fields) object.Put("fields", FieldsObject(*record.Fields));
    object.Put("outcome", OutcomeWord(record.What));
    if (record.Replaced) object.Put("replaces", true);
    object.PutOrNull("reason", record.Reason);
    if (!record.Question.empty()) object.Put("question", record.Question);
    if (report.DryRun()) object.Put("dry_run", true);
    return object;
}

}  // namespace

BytesView OutcomeWord(Outcome outcome) { return RowOf(outcome).Word; }

JsonObject FieldsObject(const GatheredFields& fields) {
    JsonObject object;
    for (std::size_t i = 0; i < NameFields.size(); ++i) {
        JsonObject field;
        field.Put("value", fields.Values.*NameFields[i].Value);
        const char* const source = SourceWords.at(static_cast<std::size_t>(fields.Sources[i]));
        source == nullptr ? field.PutNull("source") : field.Put("source", source);
        object.Put(ToUtf8(NameFields[i].Word()).c_str(), std::move(field));
    }
    return object;
}

FileRecord RecordOf(const Report& report, const FileOutcome& file, Outcome done) {
    FileRecord record;
    record.Path = file.Path;
    record.NewPath = file.NewPath;
    // Of a question that was answered the answer is told; a plan tells that it would come.
    if (report.DryRun()) record.Question = Replace(file.Question, CrLf, u"\n");
    record.What = OutcomeOf(file, done, !record.Question.empty());
    record.Replaced = file.Replaced;
    if (record.What != Outcome::Asks) record.Reason = ReasonText(file.Reason);
    return record;
}

void PutRecord(Report& report, const PathSpelling& spelling, const FileRecord& record) {
    if (report.Json()) {
        report.Object(ObjectOf(report, spelling, record));
    } else if (record.What != Outcome::Failed) {
        report.Line(LineOf(report, spelling, record));
    }
    if (record.What == Outcome::Failed) report.Fail(spelling.Shown(record.Path), record.Reason);
}

void PutFolder(Report& report, const PathSpelling& spelling, TextView folder, TextView question) {
    const TextView shown = spelling.Shown(folder);
    if (!report.Json()) {
        Bytes line =
            (report.DryRun() ? "would create folder " : "created folder ") + report.Shown(shown);
        if (!question.empty()) line += Indented(ToUtf8(Harmless(question)));
        return report.Line(line);
    }
    JsonObject object;
    object.Put("folder", shown).Put("outcome", "created");
    if (!question.empty()) object.Put("question", question);
    if (report.DryRun()) object.Put("dry_run", true);
    report.Object(object);
}

}  // namespace mdlPLM::cli
