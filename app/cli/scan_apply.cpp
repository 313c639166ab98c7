#include "app/cli/scan_apply.h"

#include <algorithm>
#include <deque>

#include "app/cli/action_log.h"
#include "app/cli/planning_disk.h"
#include "app/cli/planning_tag_writer.h"
#include "app/cli/records.h"
#include "app/cli/terminal_prompts.h"
#include "app/list/run_texts.h"
#include "core/platform/path.h"
#include "core/platform/tidy_disk.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

/// The questions of a run; what it would show in a box beside them is in its report as well.
class QuestionsOnly final : public Prompts {
public:
    explicit QuestionsOnly(Prompts& inner) : inner_(inner) {}
    Answer AskYesNo(const Message& question) override { return inner_.AskYesNo(question); }
    Answer AskYesNoCancel(const Message& question) override {
        return inner_.AskYesNoCancel(question);
    }
    void Inform(const Message& /*message*/) override {}
    void Critical(const Message& /*message*/) override {}
    std::optional<Text> AskText(const Message& question) override {
        return inner_.AskText(question);
    }

private:
    Prompts& inner_;
};

std::vector<RenamePair> PairsOf(const FileList& files, const std::vector<Text>& names) {
    std::vector<RenamePair> pairs;
    const std::size_t count = std::min(files.Count(), names.size());
    for (std::size_t i = 0; i < count; ++i) pairs.push_back({files.Path(i), names[i]});
    return pairs;
}

/// The failures of a pair, on one line.
Text ReasonsOf(const RenameReport& report, std::size_t pair) {
    const auto first = std::lower_bound(
        report.Failures.begin(), report.Failures.end(), pair,
        [](const RunFailure& failure, std::size_t wanted) { return failure.Pair < wanted; });
    Text reasons;
    for (auto at = first; at != report.Failures.end() && at->Pair == pair; ++at)
        reasons += (reasons.empty() ? u"" : u"; ") +
                   Replace(Replace(at->Reason, u" \r\n", CrLf), CrLf, u" ");
    return reasons;
}

class Applying {
public:
    Applying(Session& session, const PathSpelling& spelling)
        : report_(session.Results),
          spelling_(spelling),
          system_(session.LeftBehind),
          terminal_(session.Streams, report_, session.Asked.Common.Yes),
          planner_(report_),
          prompts_(report_.DryRun() ? static_cast<Prompts&>(planner_) : terminal_),
          disk_(report_.DryRun() ? static_cast<Disk&>(planned_) : system_),
          pretending_(disk_),
          settings_(session.Values) {}

    bool MayBegin(std::size_t files, std::size_t names);
    void Run(std::vector<RenamePair> pairs, const RunChoices& choices);

private:
    void Advance(RenameRun& run);
    void NoteRename(const RenamePair& pair, const RenameReport& now);
    void PutSettled(const RenameRun& run);

    Report& report_;
    const PathSpelling& spelling_;
    TidyDisk system_;
    PlanningDisk planned_;
    TerminalPrompts terminal_;
    PlanningPrompts planner_;
    QuestionsOnly prompts_;
    ActionLog disk_;
    PlanningTagWriter pretending_;
    const Settings& settings_;
    /// Of the pairs that were handled and are not told yet.
    std::deque<FileRecord> records_;
    std::size_t told_ = 0;
    // What the run had told before the file in hand.
    std::size_t missing_ = 0;
    std::size_t kept_ = 0;
};

bool Applying::MayBegin(std::size_t files, std::size_t names) {
    const bool may = MayRename(files, names, prompts_);
    const Text question = planner_.TakeQuestion();
    if (!question.empty() && !report_.Json()) report_.Line(ToUtf8(question));
    if (terminal_.NobodyToAsk()) report_.Misuse(u"with --yes the run goes on");
    if (!may && !terminal_.NobodyToAsk()) report_.Fail(u"nothing was renamed");
    return may;
}

void Applying::Run(std::vector<RenamePair> pairs, const RunChoices& choices) {
    RenameRun run(std::move(pairs), choices, settings_, disk_, prompts_);
    if (report_.DryRun()) run.WriteTagsThrough(pretending_);
    while (!run.Finished()) {
        if (report_.ShouldStop()) run.Stop();
        Advance(run);
        PutSettled(run);
    }
    const Text summary = SummaryText(run.Report());
    if (!run.Report().Completed) {
        report_.Fail(u"stopped: " + summary);
    } else if (!report_.Json()) {
        report_.Line((report_.DryRun() ? "would be: " : "") + ToUtf8(summary));
    }
}

void Applying::Advance(RenameRun& run) {
    const std::size_t done = run.Done();
    const RenamePair pair = done < run.Total() ? run.Next() : RenamePair();
    report_.Progress(NumberText(static_cast<long long>(done)) + u" of " +
                     NumberText(static_cast<long long>(run.Total())) + u"  " +
                     FileNameOfPath(pair.OldPath));
    (void)run.Step();
    if (run.Done() > done) NoteRename(pair, run.Report());
}

// What became of the name; the tags may still be on their way.
void Applying::NoteRename(const RenamePair& pair, const RenameReport& now) {
    FileRecord record;
    record.Path = pair.OldPath;
    record.NewPath = JoinPath(FolderOfPath(pair.OldPath), pair.NewName);
    record.Question = planner_.TakeQuestion();
    const std::vector<Action> actions = disk_.Take();
    record.Replaced = !actions.empty() && actions.front().Replaced;
    if (now.Cancelled) {
        record.What = Outcome::Cancelled;
    } else if (!record.Question.empty()) {
        record.What = Outcome::Asks;
    } else if (now.Missing > missing_) {
        record.What = Outcome::Failed;
        record.Reason = Describe(ErrorNumber::FileNotFound);
    } else if (now.Kept > kept_) {
        record.What = Outcome::Kept;
        record.Reason = ReasonText({Why::TargetExists});
    } else {
        record.What = actions.empty() ? Outcome::Unchanged : Outcome::Renamed;
    }
    missing_ = now.Missing;
    kept_ = now.Kept;
    records_.push_back(std::move(record));
}

void Applying::PutSettled(const RenameRun& run) {
    for (; told_ < run.Settled(); ++told_) {
        FileRecord& record = records_.front();
        const Text reasons = ReasonsOf(run.Report(), told_);
        if (!reasons.empty()) {
            record.What = Outcome::Failed;
            record.Reason = reasons;
        }
        PutRecord(report_, spelling_, record);
        report_.FlushSoon();
        records_.pop_front();
    }
}

}  // namespace

void ApplyNames(Session& session, const PathSpelling& spelling, const FileList& files,
                const std::vector<Text>& names, const RunChoices& choices) {
    Applying applying(session, spelling);
    if (applying.MayBegin(files.Count(), names.size()))
        applying.Run(PairsOf(files, names), choices);
}

}  // namespace mdlPLM::cli
