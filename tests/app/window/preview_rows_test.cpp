#include "app/window/preview_rows.h"

#include <gtest/gtest.h>

using namespace mdlPLM;

using Rows = std::vector<FileList::Index>;

namespace {

FileList FourFiles() {
    FileList list;
    list.Append({u"/a.mp3", u"/b.mp3", u"/c.mp3", u"/d.mp3"}, {u"A.mp3", u"B.mp3", u"", u"D.mp3"});
    return list;
}

}  // namespace

TEST(PreviewRows, AllRowsAreTheListsRowsUpwards) {
    EXPECT_EQ(AllRows(FourFiles()), (Rows{0, 1, 2, 3}));
    EXPECT_EQ(AllRows(FileList()), Rows{});
}

TEST(PreviewRows, ALineThatHasNoNameGetsNone) {
    EXPECT_EQ(RowsToRenew(FourFiles(), {0, 1, 2, 3}), (Rows{0, 1, 3}));
}

TEST(PreviewRows, ANameThatWasEditedByHandStays) {
    FileList list = FourFiles();
    list.EditNewName(1, u"mine.mp3");
    EXPECT_EQ(RowsToRenew(list, {0, 1}), Rows{0});
    list.SetNewName(1, u"computed.mp3");
    EXPECT_EQ(RowsToRenew(list, {0, 1}), (Rows{0, 1}));
}

TEST(PreviewRows, OnlyTheNamedRowsAreRenewed) {
    EXPECT_EQ(RowsToRenew(FourFiles(), {3}), Rows{3});
    EXPECT_EQ(RowsToRenew(FourFiles(), {}), Rows{});
}

TEST(PreviewRows, RowsBehindTheListsEndAreLeftOut) {
    EXPECT_EQ(RowsThatExist(FourFiles(), {1, 3, 4, 9}), (Rows{1, 3}));
    EXPECT_EQ(RowsThatExist(FourFiles(), {0}), Rows{0});
    EXPECT_EQ(RowsThatExist(FileList(), {0, 1}), Rows{});
}
