// The fuzz targets over their seeds and over everything that a fuzzer ever found.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/platform/path.h"
#include "fuzz/targets.h"
#include "tests/support/places.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::fuzz {

void PrintTo(const Target& target, std::ostream* out) { *out << target.Name; }

namespace {

using Path = std::filesystem::path;

std::vector<Path> FilesIn(const Path& folder) {
    std::vector<Path> files;
    if (!std::filesystem::is_directory(folder)) return files;
    for (const auto& item : std::filesystem::directory_iterator(folder))
        if (item.is_regular_file()) files.push_back(item.path());
    std::sort(files.begin(), files.end());
    return files;
}

class FuzzTarget : public testing::TestWithParam<Target> {
protected:
    [[nodiscard]] std::vector<Path> Files(const char* kind) const {
        return FilesIn(Path(test::SourceFolder()) / "fuzz" / kind / Path(GetParam().Name));
    }
    // A broken property is an exception; the failure names the file.
    void Run(const Path& file) const {
        SCOPED_TRACE(file.string());
        EXPECT_NO_THROW(GetParam().Run(ReadFile(PathFromNative(file.string()))));
    }
};

TEST_P(FuzzTarget, HoldsOverItsSeeds) {
    const std::vector<Path> seeds = Files("seeds");
    EXPECT_GE(seeds.size(), 3U);
    for (const Path& seed : seeds) Run(seed);
}

TEST_P(FuzzTarget, HoldsOverWhatWasFound) {
    for (const Path& found : Files("found")) Run(found);
}

// Cut short anywhere a seed is still an input.
TEST_P(FuzzTarget, HoldsOverEveryBeginningOfASeed) {
    for (const Path& seed : Files("seeds")) {
        const Bytes whole = ReadFile(PathFromNative(seed.string()));
        for (std::size_t length = 0; length < whole.size(); length += 1 + whole.size() / 25) {
            SCOPED_TRACE(seed.string() + ", the first " + std::to_string(length) + " bytes");
            EXPECT_NO_THROW(GetParam().Run(BytesView(whole).substr(0, length)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, FuzzTarget, testing::ValuesIn(Targets),
                         [](const auto& tested) { return Bytes(tested.param.Name); });

}  // namespace
}  // namespace mdlPLM::fuzz
