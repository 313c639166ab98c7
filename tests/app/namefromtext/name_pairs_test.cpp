#include "app/namefromtext/name_pairs.h"

#include <gtest/gtest.h>

namespace mdlPLM {
namespace {

using Direction = NamePairs::Direction;

NamePairs Three() {
    NamePairs lists;
    lists.AddOldFiles({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"});
    return lists;
}

Text Order(const NamePairs& lists) {
    Text order;
    for (const auto& file : lists.OldFiles()) order += file.Path.substr(3, 1);
    return order;
}

TEST(NamePairs, AFileIsShownAsAListLineAndKeepsItsPath) {
    NamePairs lists;
    lists.AddOldFiles({u"/m/odd     (name).mp3"});
    EXPECT_EQ(lists.OldFiles()[0].Path, u"/m/odd     (name).mp3");
    EXPECT_EQ(lists.OldFiles()[0].Entry, u"odd     (name).mp3     (/m/)");
}

TEST(NamePairs, ThereAreAsManyPairsAsTheShorterListHas) {
    NamePairs lists = Three();
    EXPECT_EQ(lists.Pairs(), 0U);
    lists.AddNewNames({u"1.mp3", u"2.mp3"});
    EXPECT_EQ(lists.Pairs(), 2U);
    lists.AddNewNames({u"3.mp3", u"4.mp3"});
    EXPECT_EQ(lists.Pairs(), 3U);
}

TEST(NamePairs, EntriesAreRemovedOneByOneOrAllAtOnce) {
    NamePairs lists = Three();
    lists.AddNewNames({u"1", u"2", u"3"});
    lists.RemoveOldFile(1);
    EXPECT_EQ(Order(lists), u"ac");
    lists.RemoveNewName(0);
    EXPECT_EQ(lists.NewNames(), (std::vector<Text>{u"2", u"3"}));
    lists.RemoveOldFile(7);
    lists.RemoveNewName(7);
    EXPECT_EQ(Order(lists), u"ac");
    lists.ClearOldFiles();
    EXPECT_TRUE(lists.OldFiles().empty());
    EXPECT_EQ(lists.NewNames().size(), 2U);
    lists.ClearNewNames();
    EXPECT_TRUE(lists.NewNames().empty());
}

TEST(NamePairs, AFileChangesPlacesWithItsNeighbour) {
    NamePairs lists = Three();
    EXPECT_EQ(lists.MoveOldFile(2, Direction::Up), 1U);
    EXPECT_EQ(Order(lists), u"acb");
    EXPECT_EQ(lists.MoveOldFile(0, Direction::Down), 1U);
    EXPECT_EQ(Order(lists), u"cab");
}

TEST(NamePairs, NothingMovesBeyondTheEnds) {
    NamePairs lists = Three();
    EXPECT_EQ(lists.MoveOldFile(0, Direction::Up), 0U);
    EXPECT_EQ(lists.MoveOldFile(2, Direction::Down), 2U);
    EXPECT_EQ(lists.MoveOldFile(9, Direction::Up), 9U);
    EXPECT_EQ(Order(lists), u"abc");
}

TEST(NamePairs, ANewNameIsEdited) {
    NamePairs lists;
    lists.AddNewNames({u"1", u"2"});
    lists.SetNewName(1, u"two");
    lists.SetNewName(2, u"three");
    EXPECT_EQ(lists.NewNames(), (std::vector<Text>{u"1", u"two"}));
}

}  // namespace
}  // namespace mdlPLM
