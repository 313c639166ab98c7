// Album and year set in both tags of many files, as "Save ID3" does it for all selected ones,
// against the bare calls that write the same bytes.
#include <unistd.h>

#include <algorithm>
#include <list>
#include <numeric>
#include <stdexcept>

#include "app/tags/tag_orders.h"
#include "bench/bare_calls.h"
#include "bench/benchmarks.h"
#include "core/platform/disk.h"
#include "core/platform/path.h"

namespace mdlPLM::bench {

namespace {

constexpr int Rounds = 3;
/// More would only fill the disk: the work is the same for each file.
constexpr std::size_t MostFiles = 10000;

void Check(bool ok, const Bytes& path) {
    if (!ok) throw std::runtime_error("cannot tag " + path);
}

/// One way of saving: what is asked for, and that it leads there.
struct Way {
    TagRun::Edit Edit;
    SaveWay Expected;
    void (*Bare)(const Bytes& path, const SavePlan& plan);
};

Way SetAlbumAndYear(SaveWay expected) {
    TagBoxes boxes;
    boxes.txtAlbum = boxes.txtV2Album = u"Greatest Hits";
    boxes.txtYear = boxes.txtV2Year = u"1999";
    Settings settings;
    // With the ten bytes behind the tag handed on, no tag of its own size is large enough.
    settings.bRemHiddenID3 = expected == SaveWay::InPlace;
    return {BatchEdit(boxes, settings), expected,
            expected == SaveWay::InPlace ? SaveBareInPlace : SaveBareAnew};
}

SavePlan PlanOf(const Text& path, const Way& way) {
    FileTags tags;
    Check(ReadForChange(path, tags).Ok(), NativePath(path));
    const TagChange change = way.Edit(path, tags);
    SavePlan plan = PlanSave({tags.FileSize, tags.V1.Present(), tags.V2.Present(), tags.V2Length},
                             change.V1, change.V2, change.Modes);
    Check(plan.Way == way.Expected, NativePath(path));
    return plan;
}

void CheckSameContents(const Text& a, const Text& b) {
    Bytes first;
    Bytes second;
    Check(ReadWholeFile(a, first).Ok() && ReadWholeFile(b, second).Ok(), NativePath(a));
    Check(first == second, NativePath(a));
}

/// Seconds of each file (or of all of them as one), the fastest of all rounds: the one that other
/// programs disturbed least.
class FastestOfEach {
public:
    explicit FastestOfEach(std::size_t files) : seconds_(files, 1e9) {}
    void Take(std::size_t file, const std::function<void()>& work) {
        seconds_[file] = std::min(seconds_[file], Seconds(work));
    }
    [[nodiscard]] double Sum() const {
        return std::accumulate(seconds_.begin(), seconds_.end(), 0.0);
    }

private:
    std::vector<double> seconds_;
};

struct Times {
    FastestOfEach Bare;
    FastestOfEach Run;
};

std::vector<SavePlan> PlansOf(const std::vector<Text>& paths, const Way& way) {
    std::vector<SavePlan> plans;
    plans.reserve(paths.size());
    for (const Text& path : paths) plans.push_back(PlanOf(path, way));
    return plans;
}

void CheckRun(const TagRun& run, const std::vector<Text>& bare, const std::vector<Text>& own) {
    if (run.Report().Count(FileFate::Failed) > 0)
        throw std::runtime_error(NativePath(FailureText(run.Report(), TagWording)));
    for (std::size_t i = 0; i < bare.size(); ++i) CheckSameContents(bare[i], own[i]);
}

/// File by file in turns, so that both meet the file system in the same mood.
void SaveInTurns(const std::vector<Text>& bare, const std::vector<Text>& own, const Way& way,
                 Times& times) {
    const std::vector<SavePlan> plans = PlansOf(bare, way);
    Keep(PlansOf(own, way));  // both have been read before they are written
    TagRun run(own, way.Edit);
    for (std::size_t i = 0; i < plans.size(); ++i) {
        const Bytes path = NativePath(bare[i]);
        times.Bare.Take(i, [&] { way.Bare(path, plans[i]); });
        times.Run.Take(i, [&] { run.Step(); });
    }
    CheckRun(run, bare, own);
}

/// All files of one, then all of the other: the run brings them to the disk together. Both begin
/// with nothing that the disk has still to write.
void SaveOneAfterTheOther(const std::vector<Text>& bare, const std::vector<Text>& own,
                          const Way& way, Times& times) {
    const std::vector<SavePlan> plans = PlansOf(bare, way);
    Keep(PlansOf(own, way));
    ::sync();
    times.Bare.Take(0, [&] {
        for (std::size_t i = 0; i < plans.size(); ++i) way.Bare(NativePath(bare[i]), plans[i]);
    });
    ::sync();
    TagRun run(own, way.Edit);
    times.Run.Take(0, [&] {
        while (run.Step()) continue;
    });
    CheckRun(run, bare, own);
}

void MeasureWay(std::size_t files, const Bytes& name, const Way& way, Column& column) {
    const bool inPlace = way.Expected == SaveWay::InPlace;
    // New files for each round, which all stay: see Targets in collection.h.
    std::list<Collection> collections;
    Times times{FastestOfEach(inPlace ? files : 1), FastestOfEach(inPlace ? files : 1)};
    for (int round = 0; round < Rounds; ++round) {
        const Collection& bare = collections.emplace_back(files);
        const Collection& own = collections.emplace_back(files);
        (inPlace ? SaveInTurns : SaveOneAfterTheOther)(bare.Paths(), own.Paths(), way, times);
    }
    column.AddTime("Bare calls of a save " + name + " (at most 10,000)", times.Bare.Sum(), files);
    column.AddTime("Album and year in both tags, " + name, times.Run.Sum(), files);
    column.AddRatio("... against the bare calls", times.Run.Sum(), times.Bare.Sum());
}

}  // namespace

void MeasureTagging(const Collection& collection, Column& column) {
    const std::size_t files = std::min(collection.Paths().size(), MostFiles);
    MeasureWay(files, "in place", SetAlbumAndYear(SaveWay::InPlace), column);
    MeasureWay(files, "anew", SetAlbumAndYear(SaveWay::Rewrite), column);
}

}  // namespace mdlPLM::bench
