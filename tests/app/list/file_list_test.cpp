#include "app/list/file_list.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

using namespace mdlPLM;

namespace {

using Rows = std::vector<FileList::Index>;
using Ranges = std::vector<std::pair<FileList::Index, FileList::Index>>;

/// Writes down what it is told: "b" before rows change, "r" rows, "s" selection, "n2-4" names.
class Listener : public FileList::Observer {
public:
    explicit Listener(FileList& list) : list_(list) { list.SetObserver(this); }
    ~Listener() override { list_.SetObserver(nullptr); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    void RowsAboutToChange() override {
        countBefore_ = list_.Count();
        told_ += 'b';
    }
    void RowsChanged() override { told_ += 'r'; }
    void NamesChanged(FileList::Index first, FileList::Index last) override {
        told_ += 'n' + std::to_string(first) + '-' + std::to_string(last);
    }
    void SelectionChanged() override { told_ += 's'; }

    std::string Told() { return std::exchange(told_, {}); }
    [[nodiscard]] FileList::Index CountBefore() const { return countBefore_; }

private:
    FileList& list_;
    std::string told_;
    FileList::Index countBefore_ = 0;
};

Text Song(std::size_t number) {
    return u"/m/" + NumberText(static_cast<long long>(number)) + u".mp3";
}

FileList Songs(std::size_t count) {
    std::vector<Text> paths;
    for (std::size_t i = 0; i < count; ++i) paths.push_back(Song(i));
    FileList list;
    list.Append(paths);
    return list;
}

std::vector<Text> Paths(const FileList& list) {
    std::vector<Text> paths;
    for (FileList::Index row = 0; row < list.Count(); ++row) paths.push_back(list.Path(row));
    return paths;
}

}  // namespace

TEST(FileList, ShowsNameAndFolderOfAPath) {
    FileList list;
    list.Append({u"/home/me/song.mp3", u"C:\\Music\\song.mp3"});
    EXPECT_EQ(list.Entry(0), u"song.mp3     (/home/me/)");
    EXPECT_EQ(list.Entry(1), u"song.mp3     (C:\\Music\\)");
    EXPECT_EQ(list.Path(0), u"/home/me/song.mp3");
    EXPECT_FALSE(list.Selected(0));
    EXPECT_EQ(list.Size(0), -1);
    EXPECT_EQ(list.NewName(0), u"");
}

TEST(FileList, KeepsThePathOfAFileWhoseNameHoldsTheMarker) {
    FileList list;
    list.Append({u"/m/a     (b).mp3"});
    EXPECT_EQ(list.Path(0), u"/m/a     (b).mp3");
    EXPECT_EQ(list.Entry(0), u"a     (b).mp3     (/m/)");
}

TEST(FileList, KeepsThePathOfAFileWhoseNameHoldsASeparator) {
    FileList list;
    list.Append({u"/m/a\\b.mp3"});
    EXPECT_EQ(list.Path(0), u"/m/a\\b.mp3");
    EXPECT_EQ(list.Entry(0), u"b.mp3     (/m/a\\)");
}

TEST(FileList, TakesListLinesAsTheyStand) {
    FileList list;
    list.AppendEntries({u"song.mp3     (C:\\Music\\)", u"/a/bare path.mp3"});
    EXPECT_EQ(list.Entry(0), u"song.mp3     (C:\\Music\\)");
    EXPECT_EQ(list.Path(0), u"C:\\Music\\song.mp3");
    EXPECT_EQ(list.Entry(1), u"/a/bare path.mp3");
    EXPECT_EQ(list.Path(1), u"/a/bare path.mp3");
}

TEST(FileList, FewerNewNamesThanPathsLeaveTheRestEmpty) {
    FileList list;
    list.Append({u"/m/a.mp3", u"/m/b.mp3"}, {u"A.mp3"});
    EXPECT_EQ(list.NewName(0), u"A.mp3");
    EXPECT_EQ(list.NewName(1), u"");
}

TEST(FileList, TellsOncePerAddition) {
    FileList list;
    Listener listener(list);
    list.Append({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"});
    EXPECT_EQ(listener.Told(), "br");
    EXPECT_EQ(listener.CountBefore(), 0U);
    list.AppendEntries({u"a     (/m/)", u"b     (/m/)"});
    EXPECT_EQ(listener.Told(), "br");
    EXPECT_EQ(listener.CountBefore(), 3U);
    list.Append({});
    list.AppendEntries({});
    EXPECT_EQ(listener.Told(), "");
}

TEST(FileList, NewNamesAreToldByTheirRows) {
    FileList list = Songs(4);
    Listener listener(list);
    list.SetNewName(2, u"Two.mp3");
    EXPECT_EQ(listener.Told(), "n2-2");
    list.SetNewNames(1, {u"a", u"b", u"c"});
    EXPECT_EQ(listener.Told(), "n1-3");
    EXPECT_EQ(list.NewName(0), u"");
    EXPECT_EQ(list.NewName(1), u"a");
    EXPECT_EQ(list.NewName(3), u"c");
    list.ClearNewNames();
    EXPECT_EQ(listener.Told(), "n0-3");
    EXPECT_EQ(list.NewName(2), u"");
}

TEST(FileList, NewNamesBeyondTheListAreDropped) {
    FileList list = Songs(2);
    Listener listener(list);
    list.SetNewName(2, u"x");
    list.SetNewNames(2, {u"x"});
    list.SetNewNames(0, {});
    EXPECT_EQ(listener.Told(), "");
    list.SetNewNames(1, {u"one", u"beyond"});
    EXPECT_EQ(listener.Told(), "n1-1");
    EXPECT_EQ(list.NewName(1), u"one");
}

TEST(FileList, ANewNameWrittenByHandCountsAsEditedUntilAnotherOneIsSet) {
    FileList list;
    list.Append({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"}, {u"A.mp3", u"B.mp3", u"C.mp3"});
    list.EditNewName(0, u"by hand.mp3");
    list.EditNewName(1, u"by hand too.mp3");
    list.EditNewName(2, u"this as well.mp3");
    list.EditNewName(3, u"no such row");
    EXPECT_EQ(list.NewName(0), u"by hand.mp3");
    EXPECT_TRUE(list.NewNameEdited(0));
    list.SetNewName(1, u"B.mp3");
    EXPECT_FALSE(list.NewNameEdited(1));
    list.SetNewNames(2, {u"C.mp3"});
    EXPECT_FALSE(list.NewNameEdited(2));
    list.RemoveListItem(1);
    EXPECT_TRUE(list.NewNameEdited(0));
    list.ClearNewNames();
    EXPECT_FALSE(list.NewNameEdited(0));
}

TEST(FileList, RemovingARowTakesItsNewNameAlong) {
    FileList list;
    list.Append({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"}, {u"A", u"B", u"C"});
    list.SelectAll();
    Listener listener(list);
    list.RemoveListItem(1);
    EXPECT_EQ(listener.Told(), "br");
    EXPECT_EQ(listener.CountBefore(), 3U);
    EXPECT_EQ(list.Count(), 2U);
    EXPECT_EQ(list.Path(1), u"/m/c.mp3");
    EXPECT_EQ(list.NewName(1), u"C");
    EXPECT_EQ(list.SelectedCount(), 2U);
    list.RemoveListItem(2);
    EXPECT_EQ(listener.Told(), "");
}

TEST(FileList, RemovesScatteredRowsInOneChange) {
    FileList list = Songs(10);
    list.SelectWhere([](FileList::Index row) { return row < 5; });
    Listener listener(list);
    list.RemoveIf([](FileList::Index row) { return row % 3 == 0; });
    EXPECT_EQ(listener.Told(), "br");
    EXPECT_EQ(listener.CountBefore(), 10U);
    EXPECT_EQ(Paths(list),
              (std::vector<Text>{Song(1), Song(2), Song(4), Song(5), Song(7), Song(8)}));
    EXPECT_EQ(list.SelectedRows(), (Rows{0, 1, 2}));
    EXPECT_EQ(list.SelectedCount(), 3U);
}

TEST(FileList, AsksOncePerRowWhetherItGoes) {
    FileList list = Songs(4);
    Rows asked;
    list.RemoveIf([&](FileList::Index row) {
        asked.push_back(row);
        return list.Path(row) == Song(1) || list.Path(row) == Song(2);
    });
    EXPECT_EQ(asked, (Rows{0, 1, 2, 3}));
    EXPECT_EQ(Paths(list), (std::vector<Text>{Song(0), Song(3)}));
}

TEST(FileList, NothingToRemoveIsNotTold) {
    FileList list = Songs(3);
    Listener listener(list);
    list.RemoveIf([](FileList::Index) { return false; });
    list.RemoveSelected();
    EXPECT_EQ(listener.Told(), "");
    EXPECT_EQ(list.Count(), 3U);
}

TEST(FileList, RemovesEverySelectedRow) {
    FileList list = Songs(5);
    list.Select(0, true);
    list.Select(1, true);
    list.Select(4, true);
    list.RemoveSelected();
    EXPECT_EQ(Paths(list), (std::vector<Text>{Song(2), Song(3)}));
    EXPECT_EQ(list.SelectedCount(), 0U);
}

TEST(FileList, ClearEmptiesListAndSelection) {
    FileList list = Songs(3);
    list.SelectAll();
    Listener listener(list);
    list.Clear();
    EXPECT_EQ(listener.Told(), "br");
    EXPECT_EQ(list.Count(), 0U);
    EXPECT_EQ(list.SelectedCount(), 0U);
    list.Clear();
    EXPECT_EQ(listener.Told(), "");
}

TEST(FileList, SelectionIsToldOnlyWhenItChanges) {
    FileList list = Songs(3);
    Listener listener(list);
    list.Select(1, true);
    EXPECT_EQ(listener.Told(), "s");
    list.Select(1, true);
    list.Select(3, true);
    list.SelectOnly(1);
    EXPECT_EQ(listener.Told(), "");
    list.SelectAll();
    EXPECT_EQ(listener.Told(), "s");
    EXPECT_EQ(list.SelectedCount(), 3U);
    list.SelectAll();
    EXPECT_EQ(listener.Told(), "");
    list.SelectNone();
    EXPECT_EQ(listener.Told(), "s");
    EXPECT_EQ(list.SelectedCount(), 0U);
}

TEST(FileList, SelectOnlyLeavesOneRow) {
    FileList list = Songs(4);
    list.SelectAll();
    list.SelectOnly(2);
    EXPECT_EQ(list.SelectedRows(), (Rows{2}));
    EXPECT_EQ(list.SelectedCount(), 1U);
    list.SelectOnly(9);
    EXPECT_EQ(list.SelectedRows(), Rows{});
}

TEST(FileList, InvertingGivesEveryRowTheOppositeSelection) {
    FileList list = Songs(5);
    list.Select(0, true);
    list.Select(3, true);
    Listener listener(list);
    list.InvertSelection();
    EXPECT_EQ(listener.Told(), "s");
    EXPECT_EQ(list.SelectedRows(), (Rows{1, 2, 4}));
    EXPECT_EQ(list.SelectedCount(), 3U);
    list.InvertSelection();
    EXPECT_EQ(list.SelectedRows(), (Rows{0, 3}));
}

TEST(FileList, SelectedRowsAreHandedOutAsRanges) {
    FileList list = Songs(8);
    EXPECT_EQ(list.SelectedRanges(), Ranges{});
    for (const FileList::Index row : {0U, 1U, 3U, 6U, 7U}) list.Select(row, true);
    EXPECT_EQ(list.SelectedRanges(), (Ranges{{0, 1}, {3, 3}, {6, 7}}));
    list.SelectAll();
    EXPECT_EQ(list.SelectedRanges(), (Ranges{{0, 7}}));
}

TEST(FileList, WhatAViewReportsIsNotAnnouncedBack) {
    FileList list = Songs(6);
    Listener listener(list);
    list.NoteSelection(1, 3, true);
    list.NoteSelection(3, 3, false);
    list.NoteSelection(5, 99, true);
    EXPECT_EQ(listener.Told(), "");
    EXPECT_EQ(list.SelectedRows(), (Rows{1, 2, 5}));
    EXPECT_EQ(list.SelectedCount(), 3U);
}

TEST(FileList, FindsTheRowsWhoseSizeIsUnknown) {
    FileList list = Songs(4);
    EXPECT_EQ(list.NextUnknownSize(0), 0U);
    list.SetSize(0, 10);
    list.SetSize(1, 0);
    list.SetSize(9, 10);
    EXPECT_EQ(list.NextUnknownSize(0), 2U);
    EXPECT_EQ(list.NextUnknownSize(3), 3U);
    list.SetSize(2, 1);
    list.SetSize(3, 1);
    EXPECT_EQ(list.NextUnknownSize(0), list.Count());
    EXPECT_EQ(list.NextUnknownSize(99), list.Count());
    list.ForgetSizes();
    EXPECT_EQ(list.NextUnknownSize(0), 0U);
}

TEST(FileList, SizesStayWithTheirRows) {
    FileList list = Songs(3);
    for (FileList::Index row = 0; row < 3; ++row) list.SetSize(row, 100 + static_cast<int>(row));
    list.RemoveListItem(0);
    EXPECT_EQ(list.Size(0), 101);
    EXPECT_EQ(list.Size(1), 102);
}

TEST(FileList, WorksWithoutAnObserver) {
    FileList list = Songs(3);
    list.SelectAll();
    list.SetNewName(0, u"x");
    list.RemoveSelected();
    EXPECT_EQ(list.Count(), 0U);
}

TEST(FileList, AHundredThousandRowsCountTheirSelectionRightly) {
    constexpr FileList::Index Count = 100000;
    FileList list = Songs(Count);
    list.SelectWhere([](FileList::Index row) { return row % 2 == 1; });
    EXPECT_EQ(list.SelectedCount(), Count / 2);
    EXPECT_EQ(list.SelectedRanges().size(), Count / 2);
    Listener listener(list);
    list.RemoveSelected();
    EXPECT_EQ(listener.Told(), "br");
    ASSERT_EQ(list.Count(), Count / 2);
    for (FileList::Index row = 0; row < list.Count(); row += 9973) {
        EXPECT_EQ(list.Path(row), Song(row * 2));
    }
    EXPECT_EQ(list.SelectedCount(), 0U);
}
