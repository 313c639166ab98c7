#include "app/window/shown_selection.h"

#include <gtest/gtest.h>

using namespace mdlPLM;

namespace {

constexpr int NoRow = -1;
using State = TagPanel::State;

class ShownSelection : public testing::Test {
protected:
    void SetUp() override { list_.Append({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3"}); }

    FileList list_;
};

}  // namespace

TEST_F(ShownSelection, TheOneSelectedFileIsShownWhereverTheCursorIs) {
    list_.SelectOnly(1);
    for (const int current : {NoRow, 0, 1}) {
        const Showing showing = WhatToShow(list_, current, ChangedBy::Program);
        EXPECT_EQ(showing.What, State::OneFile);
        EXPECT_EQ(showing.Row, 1U);
    }
}

TEST_F(ShownSelection, SeveralFilesAreABatch) {
    list_.SelectAll();
    EXPECT_EQ(WhatToShow(list_, 1, ChangedBy::User).What, State::Batch);
    list_.Select(0, false);
    EXPECT_EQ(WhatToShow(list_, 1, ChangedBy::Program).What, State::Batch);
}

TEST_F(ShownSelection, AClickThatSelectsNothingShowsTheEntryThatWasClicked) {
    const Showing showing = WhatToShow(list_, 2, ChangedBy::User);
    EXPECT_EQ(showing.What, State::OneFile);
    EXPECT_EQ(showing.Row, 2U);
    EXPECT_EQ(WhatToShow(list_, NoRow, ChangedBy::User).What, State::Nothing);
}

TEST_F(ShownSelection, NothingIsShownWhenTheProgramSelectsNothing) {
    EXPECT_EQ(WhatToShow(list_, 2, ChangedBy::Program).What, State::Nothing);
}

TEST_F(ShownSelection, TheShownFileHasTheRowOfTheSelectedFileElseOfTheCursor) {
    EXPECT_EQ(RowOfShown(list_, 2, u"/m/c.mp3"), FileList::Index{2});
    list_.SelectOnly(1);
    EXPECT_EQ(RowOfShown(list_, 2, u"/m/b.mp3"), FileList::Index{1});
    list_.SelectAll();
    EXPECT_EQ(RowOfShown(list_, 0, u"/m/a.mp3"), FileList::Index{0});
}

TEST_F(ShownSelection, AFileThatIsNotThereAnyMoreHasNoRow) {
    EXPECT_EQ(RowOfShown(list_, NoRow, u"/m/a.mp3"), std::nullopt);
    EXPECT_EQ(RowOfShown(list_, 0, u""), std::nullopt);
    list_.SelectOnly(1);
    EXPECT_EQ(RowOfShown(list_, 1, u"/m/a.mp3"), std::nullopt);
    list_.Clear();
    EXPECT_EQ(RowOfShown(list_, NoRow, u""), std::nullopt);
}

TEST_F(ShownSelection, ABatchIsEmptiedOnlyWhenAllOfItWasSaved) {
    EXPECT_EQ(WhatPanelShowsAfter({State::Batch, true, true}), PanelAfterRun::IsEmptied);
    EXPECT_EQ(WhatPanelShowsAfter({State::Batch, true, false}), PanelAfterRun::StaysAsItIs);
}

TEST_F(ShownSelection, WhatWasSelectedMeanwhileIsReadAgainUnlessItWasEdited) {
    for (const State state : {State::OneFile, State::Nothing})
        for (const bool allSaved : {true, false}) {
            EXPECT_EQ(WhatPanelShowsAfter({state, false, allSaved}), PanelAfterRun::ShowsSelection);
            EXPECT_EQ(WhatPanelShowsAfter({state, true, allSaved}), PanelAfterRun::StaysAsItIs);
        }
}
