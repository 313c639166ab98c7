// The command line on file systems of every kind, in folders that test-filesystems.sh has mounted.
// Lines NAME=FOLDER in the variable PLM_FILE_SYSTEMS name them.
#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"
#include "tests/support/contents.h"
#include "tests/support/places.h"
#include "tests/support/run_program.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM::test {
namespace {

using Arguments = std::vector<Bytes>;
using Names = std::vector<Bytes>;

struct FileSystem {
    std::string Name;
    Text Folder;
};
void PrintTo(const FileSystem& system, std::ostream* out) { *out << system.Name; }

std::vector<FileSystem> FileSystems() {
    const char* const given = std::getenv("PLM_FILE_SYSTEMS");
    std::istringstream lines(given == nullptr ? "" : given);
    std::vector<FileSystem> systems;
    for (std::string line; std::getline(lines, line);)
        if (const std::size_t equals = line.find('='); equals != std::string::npos)
            systems.push_back({line.substr(0, equals), PathFromNative(line.substr(equals + 1))});
    return systems;
}

const Bytes Sound = Noise(5000);
constexpr long long ATime = 1'234'567'890'000'000'000;
constexpr long long CoarsestTime = 2'000'000'000;  // two seconds, in nanoseconds

class OnFileSystem : public testing::TestWithParam<FileSystem> {
protected:
    OnFileSystem() : there_(JoinPath(GetParam().Folder, u"test") + u"/") { Clear(); }
    ~OnFileSystem() override { Clear(); }
    OnFileSystem(const OnFileSystem&) = delete;
    OnFileSystem& operator=(const OnFileSystem&) = delete;

    void Clear() const {
        std::vector<Bytes> names = IsThere(there_) ? ListTree(there_) : Names();
        std::reverse(names.begin(), names.end());
        for (const Bytes& name : names)
            (void)std::remove(NativePath(there_ + PathFromNative(name)).c_str());
    }
    [[nodiscard]] Text Make(TextView name, const Bytes& contents) const {
        WriteFile(there_ + Text(name), contents);
        return there_ + Text(name);
    }
    [[nodiscard]] Names NamesIn(TextView folder) const { return ListTree(there_ + Text(folder)); }
    ProgramResult Sort(Arguments more) const {
        more.insert(more.begin(), {"sort", "--no-user-settings", "--yes"});
        return Run(std::move(more));
    }
    ProgramResult Run(Arguments arguments) const {
        return RunToEnd({PathFromNative(CommandLineFile()), std::move(arguments), {}, {}, there_});
    }
    [[nodiscard]] bool TellsLetterCaseApart() const {
        const Text probe = Make(u"probe", "");
        const bool apart = !IsThere(there_ + u"PROBE");
        (void)std::remove(NativePath(probe).c_str());
        return apart;
    }
    /// Some file systems list every name in small letters.
    [[nodiscard]] Bytes AsListed(const Bytes& name) const {
        const Text probe = JoinPath(GetParam().Folder, u"probe");
        WriteFile(probe + u"/PROBE", {});
        const bool small = ListTree(probe) == Names{"probe"};
        return small ? NativePath(LCase(PathFromNative(name))) : name;
    }
    [[nodiscard]] Bytes There(TextView name) const { return NativePath(there_ + Text(name)); }

    TempFolder here_;
    const Text there_;
};

TEST_P(OnFileSystem, AChangeOfLetterCaseAloneIsARename) {
    for (const char* method : {"rename", "move"}) {
        Clear();
        static_cast<void>(Make(u"abba - one.mp3", Sound));
        const ProgramResult result =
            Sort({"--method", method, "--to", ".", "--if-exists", "skip", "abba - one.mp3"});
        EXPECT_EQ(result.Status, 0) << result.Errors;
        EXPECT_EQ(NamesIn(u""), Names{AsListed("Abba - One.mp3")});
        EXPECT_EQ(ReadFile(there_ + u"Abba - One.mp3"), Sound);
    }
}

TEST_P(OnFileSystem, TheOtherSpellingIsAnotherFileOrTheSame) {
    const bool apart = TellsLetterCaseApart();
    static_cast<void>(Make(u"abba - one.mp3", "lower" + Sound));
    if (apart) static_cast<void>(Make(u"Abba - One.mp3", "upper" + Sound));
    const std::vector<Bytes> before = ContentsBelow(there_);
    EXPECT_EQ(Sort({"--method", "rename", "--if-exists", "replace", "abba - one.mp3"}).Status,
              apart ? 1 : 0);
    EXPECT_EQ(ContentsBelow(there_), before);
}

TEST_P(OnFileSystem, ATargetOfAnotherSpellingIsReplacedOnlyWhenAsked) {
    const bool apart = TellsLetterCaseApart();
    static_cast<void>(Make(u"in/abba - one.mp3", "new" + Sound));
    const Text target = Make(u"out/ABBA - ONE.mp3", "old" + Sound);
    EXPECT_EQ(Sort({"--method", "move", "--if-exists", "skip", "--to", "out", "in"}).Status, 0);
    EXPECT_EQ(ReadFile(target), "old" + Sound);
    if (apart) return;
    EXPECT_EQ(Sort({"--method", "move", "--if-exists", "replace", "--to", "out", "in"}).Status, 0);
    EXPECT_EQ(ContentsBelow(there_), std::vector<Bytes>{"new" + Sound});
}

TEST_P(OnFileSystem, FoldersThatDifferInLetterCaseLoseNothing) {
    const bool apart = TellsLetterCaseApart();
    for (const TextView name :
         {u"in/ABBA - one.mp3", u"in/Abba - two.mp3", u"in/abba - three.mp3", u"in/z - last.mp3"})
        static_cast<void>(Make(name, NativePath(name) + Sound));
    const std::vector<Bytes> before = ContentsBelow(there_);
    const ProgramResult result =
        Sort({"--method", "move", "--keep-names", "--artist", "0", "--to", "out", "in"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(ContentsBelow(there_ + u"out"), before);
    EXPECT_EQ(NamesIn(u"out").size(), apart ? 7U : 5U);
}

TEST_P(OnFileSystem, ANameThatItRefusesIsNamedAndTheFileStays) {
    const Text odd = here_.File(u"in/what? - \"a:b\"*.mp3", "odd" + Sound);
    static_cast<void>(here_.File(u"in/plain - name.mp3", "plain" + Sound));
    const Bytes in = NativePath(here_ / u"in");
    const ProgramResult result =
        Sort({"--method", "move", "--keep-names", "--to", There(u"out"), in});
    EXPECT_EQ(result.Status == 1, IsThere(odd)) << result.Errors;
    if (IsThere(odd)) {
        EXPECT_EQ(ReadFile(odd), "odd" + Sound);
        EXPECT_NE(result.Errors.find("what?"), Bytes::npos);
        // Under its clean name it goes.
        EXPECT_EQ(Sort({"--method", "move", "--to", There(u"out"), in}).Status, 0);
    }
    EXPECT_EQ(NamesIn(u"out").size(), 2U);
    EXPECT_EQ(LostSince({"odd" + Sound, "plain" + Sound}, there_), std::vector<Bytes>{});
}

TEST_P(OnFileSystem, MovesThereAndBackKeepContentsAndTime) {
    const Text source = here_.File(u"in/abba - one.mp3", Sound);
    SetModificationTime(source, ATime);
    const auto isKept = [&](const Text& path) {
        return std::abs(ModificationTime(path) - ATime) <= CoarsestTime;
    };
    const ProgramResult there =
        Sort({"--method", "move", "--to", There(u"out"), NativePath(source)});
    EXPECT_EQ(there.Status, 0) << there.Errors;
    EXPECT_FALSE(IsThere(source));
    EXPECT_EQ(ReadFile(there_ + u"out/Abba - One.mp3"), Sound);
    EXPECT_TRUE(isKept(there_ + u"out/Abba - One.mp3"));
    const ProgramResult back =
        Sort({"--method", "move", "--to", NativePath(here_.Folder(u"back")), "out/Abba - One.mp3"});
    EXPECT_EQ(back.Status, 0) << back.Errors;
    EXPECT_EQ(ReadFile(here_ / u"back/Abba - One.mp3"), Sound);
    EXPECT_TRUE(isKept(here_ / u"back/Abba - One.mp3"));
    EXPECT_EQ(NamesIn(u"out"), Names{});
}

TEST_P(OnFileSystem, AFullDiskLosesNothingAndLeavesNothingBehind) {
    static_cast<void>(Make(u"out/there before.mp3", Sound));
    struct statvfs system {};
    ASSERT_EQ(::statvfs(There(u"").c_str(), &system), 0);
    const Bytes large(system.f_bavail * system.f_frsize + (1U << 20), 'x');
    static_cast<void>(here_.File(u"in/a - large.mp3", large));
    static_cast<void>(here_.File(u"in/b - small.mp3", "small" + Sound));
    const ProgramResult result =
        Sort({"--method", "move", "--to", There(u"out"), NativePath(here_ / u"in")});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Errors.find("Disk full"), Bytes::npos) << result.Errors;
    EXPECT_EQ(ReadFile(here_ / u"in/a - large.mp3"), large);
    EXPECT_EQ(NamesIn(u"out"), (Names{AsListed("B - Small.mp3"), "there before.mp3"}));
    EXPECT_EQ(ReadFile(there_ + u"out/B - Small.mp3"), "small" + Sound);
}

TEST_P(OnFileSystem, TagsAreSavedInPlaceAndAnew) {
    const Text path = Make(u"a - b.mp3", Sound);
    for (const Bytes& title : {Bytes("First"), Bytes("Second"), Bytes(3000, 'x'), Bytes("Last")}) {
        const ProgramResult result =
            Run({"tags", "--no-user-settings", "--set", "title=" + title, "a - b.mp3"});
        EXPECT_EQ(result.Status, 0) << result.Errors;
        EXPECT_NE(ReadFile(path).find(Sound), Bytes::npos);
    }
    EXPECT_EQ(NamesIn(u""), Names{"a - b.mp3"});
}

TEST_P(OnFileSystem, FilesThatWantEachOthersNamesLoseNothing) {
    for (const TextView name : {u"A - B - C.mp3", u"B - C - A.mp3", u"C - A - B.mp3"})
        static_cast<void>(Make(name, NativePath(name)));
    const std::vector<Bytes> before = ContentsBelow(there_);
    for (const char* choice : {"skip", "replace"}) {
        Sort({"--method", "rename", "--if-exists", choice, "--in-pattern",
              "%artist - %album - %title.mp3", "--out-pattern", "%album - %title - %artist.mp3",
              "."});
        EXPECT_EQ(ContentsBelow(there_), before);
    }
}

INSTANTIATE_TEST_SUITE_P(At, OnFileSystem, testing::ValuesIn(FileSystems()),
                         [](const auto& each) { return each.param.Name; });

}  // namespace
}  // namespace mdlPLM::test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (std::getenv("PLM_FILE_SYSTEMS") == nullptr) {
        std::fputs("PLM_FILE_SYSTEMS names no folder: see test-filesystems.sh\n", stderr);
        return 2;
    }
    return RUN_ALL_TESTS();
}
