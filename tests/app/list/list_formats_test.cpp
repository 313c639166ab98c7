#include "app/list/list_formats.h"

#include <gtest/gtest.h>

namespace mdlPLM {
namespace {

TEST(ListFormats, GoByTheEndingsOnly) {
    EXPECT_EQ(KindOfListFile(u"/m/list.SRT"), ListFileKind::SortingList);
    EXPECT_EQ(KindOfListFile(u"a.m3U"), ListFileKind::M3u);
    EXPECT_EQ(KindOfListFile(u".pls"), ListFileKind::Pls);
    for (const TextView other : {u"list.m3u8", u"list.mp3", u"m3u", u"", u"a.srt "})
        EXPECT_EQ(KindOfListFile(other), ListFileKind::Other);
}

TEST(ListFormats, AreOfferedInTheDialogs) {
    EXPECT_EQ(AddFilesFilter(),
              u"MP3 Files (*.mp3;*.mp2)|*.mp3;*.mp2|Playlists (*.srt;*.m3u;*.pls)|"
              u"*.srt;*.m3u;*.pls|All Files (*.*)|*.*");
    EXPECT_EQ(
        LoadListFilter(),
        u"Sorting File (*.srt)|*.srt|Playlist File (*.m3u)|*.m3u|Playlist File (*.pls)|*.pls");
    EXPECT_EQ(SaveListFilter(), u"Sorting File (*.srt)|*.srt|M3U Playlist(*.m3u)|*.m3u");
}

TEST(ListFormats, TheFilterOfTheSaveDialogIsTheKind) {
    EXPECT_EQ(KindOfSaveFilter(1), ListFileKind::SortingList);
    EXPECT_EQ(KindOfSaveFilter(2), ListFileKind::M3u);
    EXPECT_EQ(KindOfSaveFilter(9), ListFileKind::M3u);
    EXPECT_EQ(KindOfSaveFilter(0), ListFileKind::SortingList);
}

TEST(ListFormats, AreNamedInASentence) {
    EXPECT_EQ(EndingsInWords(ListFormats, u"and"), u".srt, .m3u and .pls");
    EXPECT_EQ(EndingsInWords(WrittenFormats(), u"or"), u".srt or .m3u");
}

// A table with endings longer and shorter than those that there are.
constexpr std::array<ListFormat, 3> OtherFormats = {{
    {u".m3u8", ListFileKind::M3u, u"Playlist ", u"Playlist "},
    {u".m3u", ListFileKind::Pls, u"List ", {}},
    {u".l", ListFileKind::SortingList, u"Short ", u"Short "},
}};

TEST(ListFormats, AnEndingMayHaveAnyLength) {
    EXPECT_EQ(KindOfListFile(u"/m/list.M3U8", OtherFormats), ListFileKind::M3u);
    EXPECT_EQ(KindOfListFile(u"/m/list.m3u", OtherFormats), ListFileKind::Pls);
    EXPECT_EQ(KindOfListFile(u"/m/x.l", OtherFormats), ListFileKind::SortingList);
    EXPECT_EQ(KindOfListFile(u"l", OtherFormats), ListFileKind::Other);
    EXPECT_EQ(KindOfListFile(u"/m/xl", OtherFormats), ListFileKind::Other);
    EXPECT_EQ(LoadListFilter(OtherFormats),
              u"Playlist (*.m3u8)|*.m3u8|List (*.m3u)|*.m3u|Short (*.l)|*.l");
    EXPECT_EQ(SaveListFilter(OtherFormats), u"Playlist (*.m3u8)|*.m3u8|Short (*.l)|*.l");
}

}  // namespace
}  // namespace mdlPLM
