// The main job from end to end on one list: load, preview, tags of all files, preview again, sort;
// and what a program that does it over and over keeps in memory.
#include <algorithm>
#include <stdexcept>

#include "app/list/folder_walk.h"
#include "app/sort/sort_engine.h"
#include "app/tags/tag_orders.h"
#include "bench/benchmarks.h"
#include "core/names/fix_file_name.h"
#include "core/platform/path.h"

namespace mdlPLM::bench {

namespace {

constexpr int Loads = 5;
/// What five loads may leave behind: the buffers of the C library, nothing that grows.
constexpr std::size_t MostKept = std::size_t{64} << 10;

class NobodyAsks final : public Prompts {
public:
    Answer AskYesNo(const Message& /*question*/) override { return Answer::Yes; }
    Answer AskYesNoCancel(const Message& /*question*/) override { return Answer::No; }
    void Inform(const Message& /*message*/) override {}
    void Critical(const Message& /*message*/) override {}
    std::optional<Text> AskText(const Message& /*question*/) override { return std::nullopt; }
};

class Job {
public:
    explicit Job(const Text& folder) : folder_(folder) {}

    void Load() {
        FolderWalk walk(folder_, u"mp3");
        std::vector<Text> paths;
        while (!walk.Finished()) walk.Step(paths);
        List.Append(paths);
        List.SelectAll();
    }
    void Preview() {
        std::vector<Text> names;
        for (FileList::Index row = 0; row < List.Count(); ++row)
            names.push_back(FixFileName(List.Path(row), settings_.OutPattern, context_));
        List.SetNewNames(0, std::move(names));
    }
    void SetTags() {
        TagBoxes boxes;
        boxes.txtComments = boxes.txtV2Comments = u"Sorted";
        Settings settings;
        settings.bRemHiddenID3 = true;
        std::vector<Text> paths;
        for (FileList::Index row = 0; row < List.Count(); ++row) paths.push_back(List.Path(row));
        TagRun run(std::move(paths), BatchEdit(boxes, settings));
        while (run.Step()) {
        }
        if (run.Report().Count(FileFate::Failed) > 0)
            throw std::runtime_error("not all files were tagged");
    }
    void Sort(const Text& target) {
        SortChoices choices;
        choices.Method = SortMethod::Move;
        choices.txtTargetDir = target;
        choices.chkConvert = choices.chkGenre = choices.chkAlphabetical = true;
        choices.OutPattern = settings_.OutPattern;
        SystemDisk disk;
        NobodyAsks prompts;
        SortRun run(List, choices, SortStart::All, context_, disk, prompts);
        while (run.Step()) {
        }
        if (run.Report().Count(FileFate::Failed) > 0)
            throw std::runtime_error("not all files were sorted");
        Keep(SummaryText(run.Report(), SortWording));
    }

    FileList List;

private:
    const Text folder_;
    const Settings settings_;
    const ReplacementList replacements_;
    const NamingContext context_{settings_, replacements_, settings_.InPattern};
};

/// The job once; the most memory that stood at the end of one of its parts.
std::size_t MeasureJob(Job& job, const Text& target, std::size_t files, Column& column) {
    const std::size_t before = AllocatedBytes();
    std::size_t most = before;
    double sum = 0;
    const auto part = [&](const char* name, const std::function<void()>& work) {
        const double seconds = Seconds(work);
        sum += seconds;
        most = std::max(most, AllocatedBytes());
        column.AddTime(name, seconds, files);
    };
    part("The whole job: load", [&] { job.Load(); });
    part("... preview", [&] { job.Preview(); });
    part("... a comment into both tags of all", [&] { job.SetTags(); });
    part("... preview again", [&] { job.Preview(); });
    part("... move into genre and letter folders", [&] { job.Sort(target); });
    column.AddTime("... in all", sum, files);
    return most - before;
}

void MeasureRepeatedLoads(Job& job, Column& column) {
    std::size_t first = 0;
    for (int load = 0; load <= Loads; ++load) {
        job.Load();
        job.Preview();
        job.List.Clear();
        if (load == 0) first = AllocatedBytes();
    }
    const std::size_t now = AllocatedBytes();
    const std::size_t kept = now > first ? now - first : 0;
    if (kept > MostKept) throw std::runtime_error("memory grows from load to load");
    column.Add("Memory kept by five more loads", std::to_string(kept) + " bytes");
}

}  // namespace

void MeasureWhole(const Collection& collection, Column& column) {
    const std::size_t files = collection.Paths().size();
    // The job changes its files: they are its own.
    const Collection own(files);
    Job repeated(own.Folder());
    MeasureRepeatedLoads(repeated, column);
    Targets targets;
    Job job(own.Folder());
    const std::size_t most = MeasureJob(job, targets.Next(), files, column);
    column.Add("... most memory a file", std::to_string(most / files) + " bytes");
}

}  // namespace mdlPLM::bench
