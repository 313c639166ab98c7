// What the user does with a long list: selecting, selecting by tag, removing scattered rows.
#include "app/list/file_list.h"
#include "app/list/list_operations.h"
#include "bench/benchmarks.h"

namespace mdlPLM::bench {

namespace {
constexpr int Rounds = 3;
}

void MeasureList(const Collection& collection, Column& column) {
    const std::size_t files = collection.Paths().size();
    FileList list;
    const auto refill = [&] {
        list.Clear();
        list.Append(collection.Paths());
        list.SelectWhere([](FileList::Index row) { return row % 2 == 0; });
    };
    refill();
    column.AddTime("Select all",
                   Fastest(
                       Rounds, [&] { list.SelectAll(); }, [&] { list.SelectNone(); }),
                   files);
    refill();
    column.AddTime("Invert a scattered selection", Fastest(Rounds, [&] { list.InvertSelection(); }),
                   files);
    column.AddTime("Ranges of a scattered selection",
                   Fastest(Rounds, [&] { Keep(list.SelectedRanges()); }), files);
    column.AddTime("Remove every other row",
                   Fastest(
                       Rounds, [&] { list.RemoveSelected(); }, refill),
                   files / 2);
    refill();
    column.AddTime("Select by ID3v1 tag", Fastest(Rounds, [&] { SelectByTag(list, TagKind::V1); }),
                   files);
    column.AddTime("Select by ID3v2 tag", Fastest(Rounds, [&] { SelectByTag(list, TagKind::V2); }),
                   files);
}

}  // namespace mdlPLM::bench
