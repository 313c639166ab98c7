// Getting files into the list: the walk over their folders, their lines, their preview and the
// sizes for the counter.
#include "app/list/file_list.h"
#include "app/list/folder_walk.h"
#include "app/list/list_operations.h"
#include "bench/benchmarks.h"
#include "core/names/fix_file_name.h"

namespace mdlPLM::bench {

namespace {

constexpr int Rounds = 3;
constexpr FileList::Index SliceOfSizes = 500;

std::vector<Text> Walked(const Text& folder) {
    FolderWalk walk(folder, u"mp3");
    std::vector<Text> paths;
    while (!walk.Finished()) walk.Step(paths);
    return paths;
}

void FillPreview(FileList& list, const NamingContext& context) {
    std::vector<Text> names;
    for (FileList::Index row = 0; row < list.Count(); ++row) {
        names.push_back(FixFileName(list.Path(row), context.Values.OutPattern, context));
    }
    list.SetNewNames(0, std::move(names));
}

void CountSizes(FileList& list) {
    list.ForgetSizes();
    for (FileList::Index row = 0; row < list.Count();) {
        row = UpdateSizes(list, row, SliceOfSizes);
    }
    Keep(CounterText(list));
}

std::size_t TextBytes(const FileList& list) {
    std::size_t characters = 0;
    for (FileList::Index row = 0; row < list.Count(); ++row) {
        characters += list.Path(row).size() + list.Entry(row).size() + list.NewName(row).size();
    }
    return characters * sizeof(char16_t);
}

void MeasureMemory(const std::vector<Text>& paths, const NamingContext& context, Column& column) {
    const std::size_t before = AllocatedBytes();
    FileList list;
    list.Append(paths);
    FillPreview(list, context);
    const std::size_t used = AllocatedBytes() - before;
    const std::size_t texts = TextBytes(list);
    column.Add("Memory a row, with preview", std::to_string(used / paths.size()) + " bytes");
    column.Add("... beyond its three texts",
               std::to_string((used - texts) / paths.size()) + " bytes");
}

}  // namespace

void MeasureListing(const Collection& collection, Column& column) {
    const std::size_t files = collection.Paths().size();
    const Settings settings;
    const ReplacementList replacements;
    const NamingContext context{settings, replacements, settings.InPattern};

    const std::vector<Text> paths = Walked(collection.Folder());
    column.AddTime("Walk over the folders",
                   Fastest(Rounds, [&] { Keep(Walked(collection.Folder())); }), files);
    FileList list;
    column.AddTime("Rows of the list",
                   Fastest(
                       Rounds, [&] { list.Append(paths); }, [&] { list.Clear(); }),
                   files);
    column.AddTime("Preview of every row", Fastest(Rounds, [&] { FillPreview(list, context); }),
                   files);
    column.AddTime("Sizes for the counter", Fastest(Rounds, [&] { CountSizes(list); }), files);
    list.Clear();
    MeasureMemory(paths, context, column);
}

}  // namespace mdlPLM::bench
