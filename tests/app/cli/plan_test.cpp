// A plan says what the run then does: the same files, folders, outcomes and reasons, in the same
// order, and nothing is touched by it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <random>
#include <regex>

#include "app/cli/commands.h"
#include "app/cli/report.h"
#include "app/cli/sample_collection.h"
#include "core/platform/path.h"
#include "tests/app/cli/fake_console.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::cli {
namespace {

using Json = nlohmann::ordered_json;
using Arguments = std::vector<Bytes>;

struct Ran {
    int Status = 0;
    std::vector<Json> Objects;
    Bytes Errors;
};

// What somebody who never wants a file replaced is asked, and what becomes of the file: the plan
// says that there will be a question.
void ForgetAnswers(Ran& ran) {
    static const std::regex question(
        "The file [^\n]*\nDo you want to replace it\\? \\[Yes/No/Cancel\\] ");
    ran.Errors = std::regex_replace(ran.Errors, question, "");
    for (Json& object : ran.Objects) {
        if (object["outcome"] != "kept") continue;
        object["outcome"] = "asks";
        object["reason"] = nullptr;
    }
}

Ran RunWith(Arguments arguments, bool plan) {
    const bool replaces =
        std::find(arguments.begin(), arguments.end(), "replace") != arguments.end();
    arguments.insert(arguments.begin() + 1, {"--json", "--no-user-settings", "--yes"});
    if (plan) arguments.insert(arguments.begin() + 1, "--dry-run");
    FakeConsole console;
    console.Streams.Ask = replaces;
    console.Lines.assign(100, "no");
    Ran ran;
    ran.Status = RunProgram(arguments, console);
    ran.Errors = console.Told;
    for (std::size_t begin = 0; begin < console.Printed.size();) {
        const std::size_t end = console.Printed.find('\n', begin);
        Json object = Json::parse(console.Printed.substr(begin, end - begin));
        // What a plan adds to an object.
        const bool marked = object.erase("dry_run") > 0;
        EXPECT_EQ(marked, plan && object["outcome"] != "scanned");
        object.erase("question");
        ran.Objects.push_back(std::move(object));
        begin = end + 1;
    }
    if (replaces) ForgetAnswers(ran);
    return ran;
}

void ExpectPlanned(const Text& folder, const Arguments& arguments) {
    const auto before = ReadTree(folder);
    const Ran planned = RunWith(arguments, true);
    EXPECT_EQ(ReadTree(folder), before);
    const Ran done = RunWith(arguments, false);
    EXPECT_EQ(planned.Objects, done.Objects);
    EXPECT_EQ(planned.Errors, done.Errors);
    EXPECT_EQ(planned.Status, done.Status);
}

TEST(Plan, SortsOfTheSampleCollection) {
    const std::vector<Arguments> ways = {
        {"--method", "copy"},
        {"--method", "copy", "--genre", "--letter", "--artist", "2"},
        {"--method", "move", "--genre", "--artist", "0"},
        {"--method", "move", "--if-exists", "replace"},
        {"--method", "copy", "--keep-names", "--artist", "1"},
        {"--method", "rename"},
    };
    for (const Arguments& way : ways) {
        const TempFolder folder;
        const Bytes collection = NativePath(folder / u"in/");
        ASSERT_TRUE(MakeSampleCollection(folder / u"in/").Ok());
        Arguments arguments = {"sort", "--to", NativePath(folder / u"out"), collection};
        arguments.insert(arguments.end(), way.begin(), way.end());
        arguments.insert(arguments.end(), {"--out-pattern", "%artist - %track - %title.mp3",
                                           "--setting", "bSetAttributes=True"});
        ExpectPlanned(folder.Path(), arguments);
    }
}

// Few names, many clashes: files that take each other's place, names that differ in letter case
// alone, a target that is itself in the list.
class Clashes {
public:
    explicit Clashes(unsigned seed) : random_(seed) {
        for (const char16_t* name : {u"a", u"b", u"c", u"d", u"e", u"F"})
            if (random_() % 4 != 0) Make(Text(name) + u" - x.mp3");
        for (const char16_t* name : {u"A", u"B"})
            if (random_() % 2 == 0) Make(u"out/" + Text(name) + u" - X.mp3");
        if (random_() % 3 == 0) (void)folder_.Folder(u"out/C - X.mp3");
    }
    void Expect() {
        const char* const methods[] = {"copy", "move", "rename"};
        const char* const choices[] = {"skip", "replace"};
        const Bytes list = NativePath(folder_.File(u"list.m3u", list_));
        ExpectPlanned(folder_.Path(), {"sort", "--method", methods[random_() % 3], "--if-exists",
                                       choices[random_() % 2], "--to", NativePath(folder_ / u"out"),
                                       list, "--out-pattern", "%title.mp3"});
    }

private:
    // The title of a file is the beginning of another one's name, so that a rename clashes.
    void Make(const Text& name) {
        const char* const letters = random_() % 2 == 0 ? "abcdef" : "ABCDEF";
        const Bytes tag =
            test::WholeTag(test::TextFrame("TIT2", Bytes(1, letters[random_() % 6]) + " - x"));
        const Text path = folder_.File(name, tag + test::Noise(200 + random_() % 9));
        list_ += NativePath(path) + "\n";
        if (random_() % 8 == 0) list_ += NativePath(path) + "\n";
    }

    std::mt19937 random_;
    TempFolder folder_;
    Bytes list_;
};

TEST(Plan, SortsWithClashesOfEveryKind) {
    for (unsigned seed = 0; seed < 40; ++seed) {
        SCOPED_TRACE(seed);
        Clashes(seed).Expect();
        if (testing::Test::HasFailure()) return;
    }
}

TEST(Plan, NamesOfAnAlbumApplied) {
    for (const Arguments& way :
         {Arguments{}, Arguments{"--no-tags"}, Arguments{"--for-all", "artist", "--genre", "Folk"},
          Arguments{"--lines", "7-", "--if-exists", "replace"}}) {
        const TempFolder folder;
        ASSERT_TRUE(MakeSampleCollection(folder.Path()).Ok());
        (void)folder.File(u"album/02 - Ivar Strand - Slack Water.mp3", test::Noise(300));
        (void)folder.File(u"album/short.mp3", "x");
        Arguments arguments = {"scan",         NativePath(folder / u"album/album.txt"),
                               "--lines",      "6-",
                               "--in-pattern", "%track - %title.mp3",
                               "--apply",      "--to-files"};
        for (const TextView name : {u"album/a.mp3", u"album/b.mp3", u"album/short.mp3"})
            arguments.push_back(NativePath(folder / name));
        arguments.insert(arguments.end(), way.begin(), way.end());
        ExpectPlanned(folder.Path(), arguments);
    }
}

TEST(Plan, AnInterruptionEndsARunBehindTheFileAtHand) {
    const TempFolder folder;
    Arguments arguments = {"sort", "--to", NativePath(folder.Folder(u"out")), "--no-user-settings"};
    for (const TextView name : {u"a - b.mp3", u"c - d.mp3", u"e - f.mp3"})
        arguments.push_back(NativePath(folder.File(name, test::Noise(200))));
    FakeConsole console;
    console.Stop = [&] { return console.Printed.find("C - D.mp3") != Bytes::npos; };
    EXPECT_EQ(RunProgram(arguments, console), SomeFailed);
    EXPECT_EQ(ListTree(folder / u"out"), (std::vector<Bytes>{"A - B.mp3", "C - D.mp3"}));
    EXPECT_EQ(console.Told, "pellmore-cli: stopped: 2 done, 0 skipped, 0 failed\n");
}

}  // namespace
}  // namespace mdlPLM::cli
