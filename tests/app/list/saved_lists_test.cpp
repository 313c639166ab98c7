#include "app/list/saved_lists.h"

#include <gtest/gtest.h>

#include "app/list/list_file_reader.h"
#include "core/platform/path.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

using Lines = std::vector<Text>;

Lines Entries(const FileList& list) {
    Lines entries;
    for (FileList::Index row = 0; row < list.Count(); ++row) entries.push_back(list.Entry(row));
    return entries;
}

Lines PathsOf(const FileList& list) {
    Lines paths;
    for (FileList::Index row = 0; row < list.Count(); ++row) paths.push_back(list.Path(row));
    return paths;
}

Lines Parsed(BytesView contents, ListFileKind kind, TextView path) {
    Lines refused;
    Lines names = ParseListFile(contents, kind, path, refused);
    EXPECT_EQ(refused, Lines{});
    return names;
}

Lines Refused(BytesView contents, ListFileKind kind) {
    Lines refused;
    (void)ParseListFile(contents, kind, u"/x/list", refused);
    return refused;
}

Lines Taken(BytesView contents, ListFileKind kind) {
    Lines refused;
    return ParseListFile(contents, kind, u"/x/list", refused);
}

TEST(ListFileKinds, AnotherKindNamesNothing) {
    EXPECT_EQ(Parsed("/m/a.mp3\r\n", ListFileKind::Other, u"/x/list.txt"), Lines{});
}

TEST(SortingList, HoldsTheLinesAsTheListShowsThem) {
    FileList list;
    list.Append({u"C:\\Music\\song.mp3", u"/home/me/a b.mp3"});
    EXPECT_EQ(RenderListFile(list, ListFileKind::SortingList),
              "song.mp3     (C:\\Music\\)\r\na b.mp3     (/home/me/)\r\n");
}

TEST(SortingList, WrittenAndReadBackIsTheSameLineForLine) {
    const TempFolder folder;
    FileList list;
    list.Append({u"C:\\Music\\song.mp3", u"/m/\u00E5\u20AC.mp3", PathFromNative("/m/caf\xE9.mp3"),
                 u"/m/a     (b).mp3", u"  c.mp3"});
    const Text path = folder / u"list.srt";
    ASSERT_TRUE(SaveListFile(list, path, ListFileKind::SortingList).Ok());
    FileList loaded;
    ScriptedPrompts prompts;
    ASSERT_TRUE(LoadListFile(path, loaded, prompts).Ok());
    EXPECT_EQ(Entries(loaded), Entries(list));
}

// What opens a text file as a mark is, in front of a name, a character of it.
TEST(SortingList, ANameThatBeginsWithAByteOrderMarkKeepsIt) {
    FileList list;
    list.Append({u"/m/\uFEFFa.mp3", u"/m/b.mp3"});
    const Bytes written = RenderListFile(list, ListFileKind::SortingList);
    EXPECT_EQ(Parsed(written, ListFileKind::SortingList, {}), Entries(list));
}

TEST(SortingList, BlankLinesAreIgnoredAndLineEndsMayBeAny) {
    EXPECT_EQ(
        Parsed("a     (/)\r\n\r\n   \nb     (/)\rplain", ListFileKind::SortingList, u"/x.srt"),
        (Lines{u"a     (/)", u"b     (/)", u"plain"}));
}

TEST(SortingList, TheChosenKindDecidesNotTheExtension) {
    const TempFolder folder;
    FileList list;
    list.Append({u"/m/a.mp3"});
    ASSERT_TRUE(SaveListFile(list, folder / u"list.srt", ListFileKind::M3u).Ok());
    EXPECT_EQ(ReadFile(folder / u"list.srt"), "/m/a.mp3\r\n");
    ASSERT_TRUE(SaveListFile(list, folder / u"list.m3u", ListFileKind::SortingList).Ok());
    EXPECT_EQ(ReadFile(folder / u"list.m3u"), "a.mp3     (/m/)\r\n");
}

TEST(M3u, IsWrittenAsFullPaths) {
    FileList list;
    list.Append({u"C:\\Music\\song.mp3", PathFromNative("/m/caf\xE9.mp3"), u"/m/a     (b).mp3"});
    list.AppendEntries({u"x.mp3     (D:\\)"});
    EXPECT_EQ(RenderListFile(list, ListFileKind::M3u),
              "C:\\Music\\song.mp3\r\n/m/caf\xE9.mp3\r\n/m/a     (b).mp3\r\nD:\\x.mp3\r\n");
}

TEST(M3u, CommentsAndBlankLinesAreNoFiles) {
    EXPECT_EQ(Parsed("#EXTM3U\r\n#EXTINF:249,Artist - Title\r\n/m/a.mp3\r\n\r\n  \r\n"
                     "/m/b c.mp3",
                     ListFileKind::M3u, u"/x/list.m3u"),
              (Lines{u"/m/a.mp3", u"/m/b c.mp3"}));
}

TEST(M3u, PathsAreTakenAsTheyStand) {
    EXPECT_EQ(Parsed(" #1.mp3 \n  b.mp3", ListFileKind::M3u, u"/x/list.m3u"),
              (Lines{u"/x/ #1.mp3 ", u"/x/  b.mp3"}));
}

TEST(M3u, AByteOrderMarkIsNoPartOfAName) {
    EXPECT_EQ(Parsed("\xEF\xBB\xBF#EXTM3U\na.mp3", ListFileKind::M3u, u"/x/list.m3u"),
              (Lines{u"/x/a.mp3"}));
}

TEST(Pls, OnlyFileLinesCount) {
    EXPECT_EQ(Parsed("[playlist]\r\nFile1=C:\\x.mp3\r\nTitle1=Song\r\nLength1=249\r\n"
                     "NumberOfEntries=1\r\nVersion=2\r\n",
                     ListFileKind::Pls, u"C:\\list.pls"),
              Lines{u"C:\\x.mp3"});
}

TEST(Pls, TheKeyIsReadInAnyLetterCaseAndNotBehindBlanks) {
    EXPECT_EQ(Parsed("file1=/a\nFILE22=/b=c.mp3\nFilesystem=/d\n File3=/e\nFile4\nFile=/f\n"
                     "File5= /g",
                     ListFileKind::Pls, u"/x/list.pls"),
              (Lines{u"/a", u"/b=c.mp3", u"/d", u"/f", u"/x/ /g"}));
}

TEST(Pls, AFileLineWithoutAPathNamesNothing) {
    EXPECT_TRUE(Parsed("File1=\nFile2=  \n", ListFileKind::Pls, u"/x/list.pls").empty());
}

struct PathCase {
    TextView Entry;
    TextView Playlist;
    TextView Complete;
};

TEST(PlaylistPaths, AreMadeWhole) {
    const PathCase cases[] = {
        {u"\\Music\\a.mp3", u"D:\\lists\\x.m3u", u"D:\\Music\\a.mp3"},
        {u"a.mp3", u"D:\\lists\\x.m3u", u"D:a.mp3"},
        {u"/Music/a.mp3", u"d:/x.m3u", u"d:/Music/a.mp3"},
        {u"C:\\a.mp3", u"D:\\x.m3u", u"C:\\a.mp3"},
        {u"\\\\server\\a.mp3", u"D:\\x.m3u", u"\\\\server\\a.mp3"},
        {u"x\\\\a.mp3", u"D:\\x.m3u", u"x\\\\a.mp3"},
        {u"a.mp3", u"\\\\server\\x.m3u", u"\\\\a.mp3"},
        {u"\\Music\\a.mp3", u"\\\\server\\x.m3u", u"\\\\\\Music\\a.mp3"},
        {u"a.mp3", u"/home/me/x.m3u", u"/home/me/a.mp3"},
        {u"sub/a.mp3", u"/home/me/x.m3u", u"/home/me/sub/a.mp3"},
        {u"../a.mp3", u"/home/me/x.m3u", u"/home/me/../a.mp3"},
        {u"/music/a.mp3", u"/home/me/x.m3u", u"/music/a.mp3"},
        {u"\\music\\a.mp3", u"/home/me/x.m3u", u"\\music\\a.mp3"},
        {u"C:\\a.mp3", u"/home/me/x.m3u", u"C:\\a.mp3"},
        {u"a:\\b.mp3", u"/home/me/x.m3u", u"a:\\b.mp3"},
        {u"a.mp3", u"x.m3u", u"a.mp3"},
        {u"a.mp3", u"1:/x.m3u", u"1:/a.mp3"},
        {u"a.mp3", u"", u"a.mp3"},
    };
    for (const PathCase& c : cases)
        EXPECT_EQ(CompletePlaylistPath(c.Entry, c.Playlist), c.Complete);
}

// A list cannot hold such a name; the others are written as if it were not there.
TEST(LineBreaks, ANameThatHoldsOneIsNotWritten) {
    FileList list;
    list.Append({u"/m/a.mp3", u"/m/b\nc.mp3", u"/m\r/d.mp3", u"/m/e.mp3"});
    EXPECT_EQ(NamesWithLineBreak(list), (Lines{u"/m/b\nc.mp3", u"/m\r/d.mp3"}));
    EXPECT_EQ(RenderListFile(list, ListFileKind::M3u), "/m/a.mp3\r\n/m/e.mp3\r\n");
    EXPECT_EQ(RenderListFile(list, ListFileKind::SortingList),
              "a.mp3     (/m/)\r\ne.mp3     (/m/)\r\n");
    const Message told = NotWrittenMessage(NamesWithLineBreak(list), u"/x/l.srt", {});
    EXPECT_EQ(told.Body,
              u"These were not written into \"/x/l.srt\":\n"
              u"\"/m/b c.mp3\": a list file cannot hold a name with a line break\n"
              u"\"/m /d.mp3\": a list file cannot hold a name with a line break");
}

// A list that holds one all the same: the pieces are not taken for names.
TEST(LineBreaks, AListLineWithOneIsRefused) {
    const Bytes name =
        "a.mp3     (/m/)\r\nb\nc.mp3     (/m/)\r\nd.mp3     (/m\r/)\r\ne.mp3     (/)\r\n";
    EXPECT_EQ(Refused(name, ListFileKind::SortingList),
              (Lines{u"b c.mp3     (/m/)", u"d.mp3     (/m /)"}));
    EXPECT_EQ(Taken(name, ListFileKind::SortingList),
              (Lines{u"a.mp3     (/m/)", u"e.mp3     (/)"}));
}

TEST(LineBreaks, APathOfAPlaylistWithOneIsRefused) {
    const Bytes playlist = "#EXTM3U\r\n/m/a.mp3\r\n/m/b\nc.mp3\r\n/m/d.mp3\r\n";
    EXPECT_EQ(Refused(playlist, ListFileKind::M3u), Lines{u"/m/b c.mp3"});
    EXPECT_EQ(Taken(playlist, ListFileKind::M3u), (Lines{u"/m/a.mp3", u"/m/d.mp3"}));
    EXPECT_EQ(Refused("/m/a.mp3\r\nb\nc.mp3\r\n", ListFileKind::M3u), Lines{u"b c.mp3"});
    const Bytes pls = "[playlist]\nFile1=/m/b\nc.mp3\nTitle1=x\nFile2=/m/d.mp3\n\n;e\nVersion=2\n";
    EXPECT_EQ(Refused(pls, ListFileKind::Pls), Lines{u"File1=/m/b c.mp3"});
    EXPECT_EQ(Taken(pls, ListFileKind::Pls), Lines{u"/m/d.mp3"});
}

// Lines that another program has put behind those of a list, with its own line ends.
TEST(LineBreaks, LinesOfBothKindsAreLines) {
    EXPECT_EQ(Parsed("/m/a.mp3\r\n/m/b.mp3\n/m/c.mp3\n", ListFileKind::M3u, u"/x/l.m3u"),
              (Lines{u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"}));
    EXPECT_EQ(Parsed("a.mp3\r\n#x\nb.mp3\nc.mp3", ListFileKind::M3u, u"/x/l.m3u"),
              (Lines{u"/x/a.mp3", u"/x/b.mp3", u"/x/c.mp3"}));
    EXPECT_EQ(
        Parsed("a     (/)\r\nb     (/)\nc     (/)\rd     (/)", ListFileKind::SortingList, u"/x"),
        (Lines{u"a     (/)", u"b     (/)", u"c     (/)", u"d     (/)"}));
}

class Loading : public testing::Test {
protected:
    Status Load(TextView path) { return LoadListFile(path, list_, prompts_); }

    const TempFolder folder_;
    FileList list_;
    ScriptedPrompts prompts_;
};

TEST_F(Loading, AppendsTheFilesOfAPlaylist) {
    list_.Append({u"/m/first.mp3"});
    EXPECT_TRUE(Load(folder_.File(u"x.m3u", "/m/a.mp3\r\nb.mp3\r\n")).Ok());
    EXPECT_TRUE(Load(folder_.File(u"x.pls", "File1=/m/c.mp3")).Ok());
    EXPECT_EQ(PathsOf(list_),
              (Lines{u"/m/first.mp3", u"/m/a.mp3", folder_ / u"b.mp3", u"/m/c.mp3"}));
    EXPECT_EQ(list_.Entry(1), u"a.mp3     (/m/)");
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(Loading, NamesKeepTheirBytes) {
    EXPECT_TRUE(Load(folder_.File(u"x.m3u", "/m/caf\xE9\xC3\xA5.mp3\n")).Ok());
    EXPECT_EQ(NativePath(list_.Path(0)), "/m/caf\xE9\xC3\xA5.mp3");
}

TEST_F(Loading, AnotherKindGivesAMessageAndReadsNothing) {
    EXPECT_TRUE(Load(folder_.File(u"x.m3u8", "/m/a.mp3")).Ok());
    EXPECT_EQ(list_.Count(), 0U);
    ASSERT_EQ(prompts_.Log.size(), 1U);
    EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::Inform);
    EXPECT_EQ(prompts_.Log[0].What.Body,
              u"Only .srt, .m3u and .pls files are supported.\r\n"
              u"That was not a compatible playlist!");
    EXPECT_EQ(prompts_.Log[0].What.Detail, folder_ / u"x.m3u8");
}

TEST_F(Loading, ABlankPathIsNothing) {
    EXPECT_TRUE(Load(u"  ").Ok());
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(Loading, AFileThatCannotBeOpenedIsNotReported) {
    list_.Append({u"/m/first.mp3"});
    EXPECT_EQ(Load(folder_ / u"none.m3u").Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(Load(folder_.Folder(u"folder.srt")).Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(list_.Count(), 1U);
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(Loading, LinesOfBinaryRubbishAreSkippedSilently) {
    const Bytes rubbish("\0\1\2\n\xFF\xFE\r\n\x7F\0ELF\n/m/a.mp3\n\0", 24);
    for (const TextView name : {u"x.m3u", u"x.srt"}) {
        list_.Clear();
        EXPECT_TRUE(Load(folder_.File(name, rubbish)).Ok());
        ASSERT_EQ(list_.Count(), 2U);
        EXPECT_EQ(FileNameOfPath(list_.Path(0)), PathFromNative("\xFF\xFE"));
        EXPECT_EQ(list_.Path(1), u"/m/a.mp3");
    }
    EXPECT_TRUE(Load(folder_.File(u"x.pls", rubbish)).Ok());
    EXPECT_EQ(list_.Count(), 2U);
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(Loading, ANameWithALineBreakIsToldAndTheOthersAreTaken) {
    const Text path = folder_.File(u"x.m3u", "/m/a.mp3\r\n/m/b\nc.mp3\r\n/m/d.mp3\r\n");
    EXPECT_TRUE(Load(path).Ok());
    EXPECT_EQ(PathsOf(list_), (Lines{u"/m/a.mp3", u"/m/d.mp3"}));
    ASSERT_EQ(prompts_.Log.size(), 1U);
    EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::Inform);
    EXPECT_EQ(prompts_.Log[0].What.Body,
              u"These were not taken from \"" + path +
                  u"\":\n\"/m/b c.mp3\": a list file cannot hold a name with a line break");
}

TEST_F(Loading, AnEmptyFileAddsNothing) {
    for (const TextView name : {u"a.srt", u"a.m3u", u"a.pls"})
        EXPECT_TRUE(Load(folder_.File(name, "")).Ok());
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(Loading, AListThatCannotBeSavedLeavesTheOldOne) {
    list_.Append({u"/m/a.mp3"});
    EXPECT_EQ(SaveListFile(list_, folder_.Folder(u"x.srt"), ListFileKind::SortingList).Number(),
              ErrorNumber::PathFileAccess);
    EXPECT_EQ(SaveListFile(list_, folder_ / u"none/x.srt", ListFileKind::SortingList).Number(),
              ErrorNumber::PathNotFound);
}

}  // namespace
}  // namespace mdlPLM
