// The new name of every file against a loop of the bare system calls that read the same bytes.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

#include "bench/benchmarks.h"
#include "core/names/fix_file_name.h"
#include "core/platform/path.h"

namespace mdlPLM::bench {

namespace {

constexpr int Rounds = 5;
constexpr std::size_t HeadSize = 4096;
constexpr std::size_t TrailerSize = 128;

struct NameRules {
    Settings Values;
    ReplacementList Replacements;
    [[nodiscard]] NamingContext Context() const { return {Values, Replacements, Values.InPattern}; }
};

void ReadBare(const Bytes& path) {
    char buffer[HeadSize];
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat data {};
    if (file < 0 || ::fstat(file, &data) != 0) throw std::runtime_error("cannot open " + path);
    if (::pread(file, buffer, HeadSize, 0) < 0 ||
        ::pread(file, buffer, TrailerSize, data.st_size - static_cast<off_t>(TrailerSize)) < 0) {
        throw std::runtime_error("cannot read " + path);
    }
    ::close(file);
    Keep(buffer);
}

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
