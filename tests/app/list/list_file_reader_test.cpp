// Lists of any size: read a piece at a time, with memory for what they name.
#include "app/list/list_file_reader.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "core/platform/path.h"
#include "tests/support/child_process.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using Lines = std::vector<Text>;

Lines InPieces(BytesView contents, ListFileKind kind, std::size_t size) {
    ListFileParser parser(kind, u"/x/list");
    Lines names;
    for (; !contents.empty(); contents.remove_prefix(std::min(size, contents.size())))
        parser.Take(contents.substr(0, size), names);
    parser.End(names);
    return names;
}

TEST(ListFileParser, TheSizeOfThePiecesChangesNothing) {
    const Bytes contents =
        "\xEF\xBB\xBF#EXTM3U\r\n/m/a.mp3\r/m/b.mp3\n\r\n\n\r/m/caf\xC3\xA9.mp3\r\n"
        "File1=/m/c\xE9.mp3\n  \n/m/last.mp3";
    for (const ListFileKind kind :
         {ListFileKind::SortingList, ListFileKind::M3u, ListFileKind::Pls}) {
        Lines refused;
        const Lines whole = ParseListFile(contents, kind, u"/x/list", refused);
        EXPECT_FALSE(whole.empty());
        for (std::size_t size = 1; size <= contents.size(); ++size)
            EXPECT_EQ(InPieces(contents, kind, size), whole) << size;
    }
    EXPECT_EQ(InPieces(contents, ListFileKind::M3u, 1),
              (Lines{u"/m/a.mp3", u"/m/b.mp3", u"/m/caf\u00E9.mp3",
                     PathFromNative("/x/File1=/m/c\xE9.mp3"), u"/m/last.mp3"}));
}

TEST(ListFileParser, ANameWithALineBreakIsToldApartInPiecesOfAnySize) {
    const Bytes contents =
        "/m/a.mp3\r\n/m/one\nname.mp3\r\n/m/b.mp3\r\n/m/two\r/m/lines.mp3\r\n/m/c.mp3";
    for (std::size_t size = 1; size <= contents.size(); ++size) {
        ListFileParser parser(ListFileKind::M3u, u"/x/list");
        Lines names;
        for (std::size_t at = 0; at < contents.size(); at += size)
            parser.Take(BytesView(contents).substr(at, size), names);
        parser.End(names);
        EXPECT_EQ(names, (Lines{u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"})) << size;
        EXPECT_EQ(parser.Refused(), (Lines{u"/m/one name.mp3", u"/m/two /m/lines.mp3"})) << size;
    }
}

TEST(ListFileParser, LinesThatAreTogetherLongerThanANameAreNoName) {
    // Not one of them ends in CR LF, but the first.
    Bytes contents = "[playlist]\r\nFile1=/m/a.mp3\n";
    while (contents.size() < 2 * LongestListLine) contents += "rubbish\n";
    Lines refused;
    const Lines names = ParseListFile(contents, ListFileKind::Pls, u"/x/list", refused);
    EXPECT_EQ(names, Lines{u"/m/a.mp3"});
    EXPECT_EQ(refused, Lines{});
}

class ReadingLists : public testing::Test {
protected:
    Lines Read(TextView path) {
        ListFileReader reader(path, prompts_);
        Lines names;
        for (steps_ = 1; reader.Step(names); ++steps_) {
        }
        EXPECT_TRUE(reader.Result().Ok());
        return names;
    }

    const TempFolder folder_;
    ScriptedPrompts prompts_;
    int steps_ = 0;
};

TEST_F(ReadingLists, ALargeListTakesManySteps) {
    Bytes contents;
    Lines expected;
    for (int i = 0; i < 20000; ++i) {
        const Text name = u"/m/" + NumberText(static_cast<long long>(i)) + u".mp3";
        contents += NativePath(name) + "\r\n";
        expected.push_back(name);
    }
    EXPECT_EQ(Read(folder_.File(u"x.m3u", contents)), expected);
    EXPECT_GE(steps_, 4);
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(ReadingLists, ALineThatIsLongerThanAPathCanBeIsPassedOverAndTold) {
    const Bytes longest = "/m/" + Bytes(LongestListLine - 3, 'x');
    EXPECT_EQ(Read(folder_.File(u"x.m3u", "/m/a\n" + longest + "\n/m/b\n")).size(), 3U);
    EXPECT_TRUE(prompts_.Log.empty());
    const Text one = folder_.File(u"one.srt", "/m/a\n" + longest + "x\r\n/m/b\n");
    EXPECT_EQ(Read(one), (Lines{u"/m/a", u"/m/b"}));
    ASSERT_EQ(prompts_.Log.size(), 1U);
    EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::Inform);
    EXPECT_EQ(prompts_.Log[0].What.Body,
              u"A line of this list is longer than a file name can be. It was passed over.");
    EXPECT_EQ(prompts_.Log[0].What.Detail, one);
    EXPECT_EQ(Read(folder_.File(u"two.m3u", longest + "x\n/m/a\n" + longest + longest)),
              Lines{u"/m/a"});
    ASSERT_EQ(prompts_.Log.size(), 2U);
    EXPECT_EQ(prompts_.Log[1].What.Body,
              u"2 lines of this list are longer than a file name can be. They were passed over.");
}

TEST_F(ReadingLists, ALongLineThatNamesNothingIsNotTold) {
    const Bytes comment = "#" + Bytes(LongestListLine, 'x') + "\n";
    EXPECT_EQ(Read(folder_.File(u"x.m3u", comment + "/m/a\n")), Lines{u"/m/a"});
    EXPECT_EQ(Read(folder_.File(u"x.pls", "Title" + comment + "File1=/m/a\n")), Lines{u"/m/a"});
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(ReadingLists, OneLineOfAnySizeTakesNoMemory) {
    const Text path = folder_.File(u"x.m3u");
    SetFileLength(path, 64 << 20);
    const int grownMegabytes = RunInChild([&] {
        const auto peak = [] {
            rusage usage{};
            ::getrusage(RUSAGE_SELF, &usage);
            return usage.ru_maxrss;  // kilobytes
        };
        const long before = peak();
        return Read(path).empty() ? static_cast<int>((peak() - before) >> 10) : 254;
    });
    EXPECT_LE(grownMegabytes, 8);
}

TEST_F(ReadingLists, AFileWithoutAnEndCanBeLeft) {
    const Text path = folder_.Link(u"x.m3u", u"/dev/zero");
    ListFileReader reader(path, prompts_);
    Lines names;
    for (int i = 0; i < 100; ++i) EXPECT_TRUE(reader.Step(names));
    EXPECT_TRUE(names.empty());
}

}  // namespace
}  // namespace mdlPLM
