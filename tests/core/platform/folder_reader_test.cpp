#include <gtest/gtest.h>

#include <algorithm>

#include "core/platform/disk.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

namespace {

std::vector<Text> Names(const std::vector<FolderItem>& items) {
    std::vector<Text> names(items.size());
    std::transform(items.begin(), items.end(), names.begin(),
                   [](const FolderItem& item) { return item.Name; });
    return names;
}

}  // namespace

TEST(FolderReader, HandsOutAFolderSomeItemsAtATime) {
    const TempFolder temp;
    for (const TextView name : {u"a", u"b", u"c", u".d"}) (void)temp.File(name);
    (void)temp.Folder(u"e");
    FolderReader reader;
    ASSERT_TRUE(reader.Open(temp.Path()).Ok());
    std::vector<FolderItem> items;
    while (reader.IsOpen()) {
        const std::size_t before = items.size();
        EXPECT_TRUE(reader.Read(2, items).Ok());
        EXPECT_LE(items.size() - before, 2U);
    }
    SortByName(items);
    EXPECT_EQ(Names(items), (std::vector<Text>{u".d", u"a", u"b", u"c", u"e"}));
    EXPECT_TRUE(items.back().IsFolder);
    EXPECT_FALSE(items.front().IsFolder);
}

TEST(FolderReader, AFolderThatIsMissingOrAFileCannotBeOpened) {
    const TempFolder temp;
    FolderReader reader;
    EXPECT_EQ(reader.Open(temp / u"missing").Number(), ErrorNumber::PathNotFound);
    EXPECT_FALSE(reader.IsOpen());
    EXPECT_FALSE(reader.Open(temp.File(u"file")).Ok());
    EXPECT_FALSE(reader.IsOpen());
}

TEST(FolderReader, OpeningAnewStartsAnew) {
    const TempFolder temp;
    (void)temp.File(u"one/a");
    (void)temp.File(u"two/b");
    FolderReader reader;
    std::vector<FolderItem> items;
    ASSERT_TRUE(reader.Open(temp / u"one").Ok());
    ASSERT_TRUE(reader.Open(temp / u"two").Ok());
    while (reader.IsOpen()) ASSERT_TRUE(reader.Read(10, items).Ok());
    EXPECT_EQ(Names(items), (std::vector<Text>{u"b"}));
}

TEST(SortingFolderItems, IgnoresLetterCaseAndIsTotal) {
    std::vector<FolderItem> items;
    for (const TextView name : {u"b", u"a", u"B", u"A", u"\u00E5", u"\u00C4", u"aa"}) {
        items.push_back({Text(name), false});
    }
    SortByName(items);
    EXPECT_EQ(Names(items),
              (std::vector<Text>{u"A", u"a", u"aa", u"B", u"b", u"\u00C4", u"\u00E5"}));
}
