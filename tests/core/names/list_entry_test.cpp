#include "core/names/list_entry.h"

#include <gtest/gtest.h>

namespace mdlPLM {
namespace {

TEST(ListEntry, APathBecomesNameAndFolder) {
    EXPECT_EQ(MakeListEntry(u"C:\\a.mp3"), u"a.mp3     (C:\\)");
    EXPECT_EQ(MakeListEntry(u"C:\\Music\\Pop\\song.mp3"), u"song.mp3     (C:\\Music\\Pop\\)");
    EXPECT_EQ(MakeListEntry(u"/home/me/song.mp3"), u"song.mp3     (/home/me/)");
    EXPECT_EQ(MakeListEntry(u"C:\\a/b.mp3"), u"b.mp3     (C:\\a/)");
    EXPECT_EQ(MakeListEntry(u"song.mp3"), u"song.mp3     ()");
    EXPECT_EQ(MakeListEntry(u"/home/me/"), u"     (/home/me/)");
    EXPECT_EQ(MakeListEntry(u""), u"     ()");
}

TEST(ListEntry, ThePathComesBack) {
    for (const TextView path :
         {u"C:\\a.mp3", u"/home/me/song (live).mp3", u"a.mp3", u"\\\\s\\x\\a"})
        EXPECT_EQ(GetListEntryPath(MakeListEntry(path)), path);
}

TEST(ListEntry, ABarePathPassesThroughEveryHelper) {
    EXPECT_EQ(GetListEntryPath(u"C:\\Music\\a.mp3"), u"C:\\Music\\a.mp3");
    EXPECT_EQ(GetListEntryFileName(u"C:\\Music\\a.mp3"), u"a.mp3");
    EXPECT_EQ(GetListEntryFolder(u"C:\\Music\\a.mp3"), u"C:\\Music\\");
    EXPECT_EQ(GetListEntryFolder(u"/home/me/a.mp3"), u"/home/me/");
    EXPECT_EQ(GetListEntryFolder(u"a.mp3"), u"");
    EXPECT_EQ(GetListEntryFileName(u"a.mp3"), u"a.mp3");
}

TEST(ListEntry, ALineIsTakenApartAtTheMarker) {
    const TextView entry = u"song.mp3     (C:\\Music\\)";
    EXPECT_EQ(GetListEntryFileName(entry), u"song.mp3");
    EXPECT_EQ(GetListEntryFolder(entry), u"C:\\Music\\");
    EXPECT_EQ(GetListEntryPath(entry), u"C:\\Music\\song.mp3");
}

TEST(ListEntry, ANameThatHoldsTheMarkerIsCutAtTheFirst) {
    const Text entry = MakeListEntry(u"/m/a     (b).mp3");
    EXPECT_EQ(entry, u"a     (b).mp3     (/m/)");
    EXPECT_EQ(GetListEntryFileName(entry), u"a");
    EXPECT_EQ(GetListEntryFolder(entry), u"b).mp3     (/m/");
    EXPECT_EQ(GetListEntryPath(entry), u"b).mp3     (/m/a");
}

TEST(ListEntry, SixBlanksLeaveOneInTheName) {
    EXPECT_EQ(GetListEntryFileName(u"a      (/m/)"), u"a ");
    EXPECT_EQ(GetListEntryFileName(u"a    (/m/)"), u")");
}

TEST(ListEntry, AMarkerAtTheVeryStartIsNoNameButAFolder) {
    const TextView entry = u"     (/m/)";
    EXPECT_EQ(GetListEntryFileName(entry), u")");
    EXPECT_EQ(GetListEntryFolder(entry), u"/m/");
    EXPECT_EQ(GetListEntryPath(entry), u"/m/");
}

TEST(ListEntry, ALineThatEndsAtTheMarkerHasNoFolder) {
    EXPECT_EQ(GetListEntryFolder(u"a     ("), u"");
    EXPECT_EQ(GetListEntryPath(u"a     ("), u"a");
    EXPECT_EQ(GetListEntryFolder(u"a     ()"), u"");
}

}  // namespace
}  // namespace mdlPLM
