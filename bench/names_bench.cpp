// The new name of every file against a loop of the bare system calls that read the same bytes.
#include "bench/bare_calls.h"
#include "bench/benchmarks.h"
#include "core/names/fix_file_name.h"
#include "core/platform/path.h"

namespace mdlPLM::bench {

namespace {

constexpr int Rounds = 5;

struct NameRules {
    Settings Values;
    ReplacementList Replacements;
    [[nodiscard]] NamingContext Context() const { return {Values, Replacements, Values.InPattern}; }
};

void NameAll(const std::vector<Text>& paths, const NamingContext& context) {
    for (const Text& path : paths) Keep(FixFileName(path, context.Values.OutPattern, context));
}

}  // namespace

void MeasureNames(const Collection& collection, Column& column) {
    std::vector<Bytes> native;
    for (const Text& path : collection.Paths()) native.push_back(NativePath(path));
    const NameRules rules;
    const auto [bare, names] = FastestOfBoth(
        Rounds,
        [&] {
            for (const Bytes& path : native) ReadBare(path);
        },
        [&] { NameAll(collection.Paths(), rules.Context()); });
    column.AddTime("Bare open, fstat, two reads, close", bare, native.size());
    column.AddTime("New name of every file", names, native.size());
    column.AddRatio("New name against the bare calls", names, bare);
}

}  // namespace mdlPLM::bench
