#include <utility>

#include "app/cli/commands.h"
#include "app/cli/planning_disk.h"
#include "app/cli/sort_watch.h"
#include "core/platform/path.h"
#include "core/platform/tidy_disk.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

constexpr TextView NoTarget = u"You must choose a target directory first!";

SortMethod MethodOf(const Session& session) {
    const SortOptions& options = session.Asked.Sort;
    if (options.Method) return *options.Method;
    const auto stored = static_cast<SortMethod>(session.Values.Move);
    // Who names a target folder wants the files there; the careful way leaves them here too.
    return stored == SortMethod::Rename ? SortMethod::Copy : stored;
}

Text ThresholdOf(const Session& session) {
    const std::optional<Bytes>& given = session.Asked.Sort.ArtistThreshold;
    return given ? FromUtf8(*given) : NumberText(session.Values.txtSubFolder);
}

SortChoices ChoicesOf(const Session& session, IfExists exists) {
    const SortOptions& options = session.Asked.Sort;
    const Settings& stored = session.Values;
    SortChoices choices;
    choices.Method = MethodOf(session);
    choices.Exists = exists;
    if (options.To) choices.txtTargetDir = PathFromNative(*options.To);
    choices.chkConvert = !options.KeepNames.value_or(stored.Convert == 0);
    choices.chkGenre = options.Genre.value_or(stored.Genre == 1);
    choices.chkAlphabetical = options.Letter.value_or(stored.Alphabetical == 1);
    choices.chkSubFolder = options.Artist.value_or(stored.SubFolder == 1);
    choices.txtSubFolder = ThresholdOf(session);
    choices.OutPattern = stored.OutPattern;
    return choices;
}

bool NamesAreFixed(const SortChoices& choices) {
    return choices.chkConvert || choices.Method == SortMethod::Rename;
}

/// One sort with its disk and its questions: the real ones, or those of a plan.
class Sorting {
public:
    Sorting(Session& session, SortChoices choices)
        : session_(session),
          report_(session.Results),
          choices_(std::move(choices)),
          spelling_(session.Folder),
          system_(session.LeftBehind),
          terminal_(session.Streams, report_, session.Asked.Common.Yes),
          planner_(report_),
          prompts_(report_.DryRun() ? static_cast<Prompts&>(planner_) : terminal_),
          disk_(report_.DryRun() ? static_cast<Disk&>(planned_) : system_) {}

    void Run();

private:
    [[nodiscard]] bool HasTargetFolder();
    void SortAll();
    void ShowProgress(const RunProgress& progress);
    void Summarize(const RunReport& result);

    Session& session_;
    Report& report_;
    SortChoices choices_;
    PathSpelling spelling_;
    FileList list_;
    TidyDisk system_;
    PlanningDisk planned_;
    TerminalPrompts terminal_;
    PlanningPrompts planner_;
    Prompts& prompts_;
    ActionLog disk_;
};

void Sorting::Run() {
    choices_.txtTargetDir = spelling_.Absolute(choices_.txtTargetDir);
    if (GatherFiles(session_, spelling_, list_) && HasTargetFolder() && list_.Count() > 0)
        SortAll();
}

bool Sorting::HasTargetFolder() {
    if (CheckTargetFolder(choices_, disk_, prompts_)) return true;
    if (terminal_.NobodyToAsk()) {
        report_.Misuse(u"with --yes the target folder is created");
    } else if (report_.Failures() == 0) {
        report_.Fail(u"nothing was sorted");
    }
    return false;
}

void Sorting::SortAll() {
    const NamingContext naming = session_.Naming();
    SortWatch watch(report_, spelling_, disk_, planner_,
                    NamesAreFixed(choices_) ? &naming : nullptr);
    SortRun run(list_, choices_, SortStart::All, naming, disk_, prompts_);
    while (!run.Finished()) {
        if (report_.ShouldStop()) run.Stop();
        watch.Expect(list_.Path(run.Progress().Done));
        if (report_.WantsProgress()) ShowProgress(run.Progress());
        (void)run.Step();
        watch.Look(run, choices_.Method);
        // Behind every piece of a long copy too.
        report_.FlushSoon();
    }
    Summarize(run.Report());
}

void Sorting::ShowProgress(const RunProgress& progress) {
    const auto number = [](auto value) { return NumberText(static_cast<long long>(value)); };
    Text line = number(progress.Done) + u" of " + number(progress.Total) + u"  " + progress.Each +
                u" " + FileNameOfPath(progress.Source);
    if (progress.FileTotal > 0)
        line += u"  " + number(progress.FileDone * 100 / progress.FileTotal) + u" %";
    report_.Progress(line);
}

void Sorting::Summarize(const RunReport& result) {
    const Text summary = SummaryText(result, SortWording);
    if (result.Broken()) {
        report_.Fail(u"stopped: " + summary);
    } else if (!report_.Json()) {
        report_.Line((report_.DryRun() ? "would be: " : "") + ToUtf8(summary));
    }
}

}  // namespace

void RunSort(Session& session) {
    const SortOptions& options = session.Asked.Sort;
    const bool rename = options.Method == SortMethod::Rename;
    if (!rename && (!options.To || options.To->empty())) {
        session.Results.Misuse(Text(NoTarget) + u" (--to DIR)");
        return;
    }
    const std::optional<IfExists> exists = ExistsChoice(session, options.Exists);
    if (exists) Sorting(session, ChoicesOf(session, *exists)).Run();
}

}  // namespace mdlPLM::cli
