#include "app/dialogs/replacement_editor.h"

#include <gtest/gtest.h>

using namespace mdlPLM;

namespace {

const Replacement Blank;
const Replacement A{u"a", u"1"};
const Replacement B{u"b", u"2"};
const Replacement C{u"c", u"3"};

void ExpectPairs(const ReplacementList& actual, const ReplacementList& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) EXPECT_TRUE(actual[i] == expected[i]) << i;
}

}  // namespace

TEST(ReplacementEditor, ShowsTheFirstPair) {
    const ReplacementEditor editor({A, B});
    EXPECT_EQ(editor.Shown(), 0U);
    EXPECT_TRUE(editor.ShownPair() == A);
}

TEST(ReplacementEditor, AnEmptyListIsOpenForANewPair) {
    ReplacementEditor editor({Blank});
    EXPECT_EQ(editor.Shown(), ReplacementEditor::NewPair);
    EXPECT_TRUE(editor.ShownPair() == Blank);
    ExpectPairs(editor.Finish(A), {A});
}

TEST(ReplacementEditor, AlwaysKeepsAtLeastOnePair) {
    ReplacementEditor editor({Blank});
    ExpectPairs(editor.Finish(Blank), {Blank});
    ReplacementEditor emptied({A});
    emptied.Remove();
    ExpectPairs(emptied.Finish(Blank), {Blank});
}

TEST(ReplacementEditor, AnUntouchedListStaysAsItWas) {
    const Replacement deletes{u"x", u""};
    const Replacement oddButKept{u"", u"y"};
    ReplacementEditor editor({deletes, oddButKept, A});
    ExpectPairs(editor.Finish(deletes), {deletes, oddButKept, A});
}

TEST(ReplacementEditor, ChoosingAPairShowsIt) {
    ReplacementEditor editor({A, B, C});
    editor.Show(2, A);
    EXPECT_TRUE(editor.ShownPair() == C);
    editor.Show(1, C);
    EXPECT_TRUE(editor.ShownPair() == B);
    editor.Show(7, B);
    EXPECT_TRUE(editor.ShownPair() == B);
    ExpectPairs(editor.Pairs(), {A, B, C});
}

TEST(ReplacementEditor, EditsAreTakenOverWhenAnotherPairIsShown) {
    ReplacementEditor editor({A, B});
    editor.Show(1, {u"a", u"one"});
    ExpectPairs(editor.Pairs(), {{u"a", u"one"}, B});
    EXPECT_TRUE(editor.ShownPair() == B);
}

TEST(ReplacementEditor, EditsAreTakenOverAtTheEnd) {
    ReplacementEditor editor({A, B});
    editor.Show(1, A);
    ExpectPairs(editor.Finish({u"b", u"two"}), {A, {u"b", u"two"}});
}

TEST(ReplacementEditor, ChoosingTheShownPairBringsItsTextsBack) {
    ReplacementEditor editor({A, B});
    editor.Show(0, {u"typed", u"over"});
    EXPECT_TRUE(editor.ShownPair() == A);
    ExpectPairs(editor.Pairs(), {A, B});
}

TEST(ReplacementEditor, AnEmptiedPairGoes) {
    ReplacementEditor behind({A, B, C});
    behind.Show(2, Blank);
    ExpectPairs(behind.Pairs(), {B, C});
    EXPECT_TRUE(behind.ShownPair() == C);
    ReplacementEditor before({A, B, C});
    before.Show(2, A);
    before.Show(0, Blank);
    ExpectPairs(before.Pairs(), {A, B});
    EXPECT_TRUE(before.ShownPair() == A);
}

TEST(ReplacementEditor, AddNewKeepsTheShownPairAndAppendsWhatWasEntered) {
    ReplacementEditor editor({A, B});
    editor.AddNew(C);
    ExpectPairs(editor.Pairs(), {A, B, C});
    EXPECT_EQ(editor.Shown(), ReplacementEditor::NewPair);
    EXPECT_TRUE(editor.ShownPair() == Blank);
}

TEST(ReplacementEditor, PairsCanBeAddedOneAfterTheOther) {
    ReplacementEditor editor({Blank});
    editor.AddNew(A);
    editor.AddNew(B);
    ExpectPairs(editor.Finish(C), {A, B, C});
}

TEST(ReplacementEditor, AddNewWithoutAnythingNewEmptiesTheBoxes) {
    ReplacementEditor editor({A});
    editor.AddNew(A);
    ExpectPairs(editor.Pairs(), {A});
    EXPECT_TRUE(editor.ShownPair() == Blank);
    editor.AddNew({u"", u"nothing to find"});
    ExpectPairs(editor.Finish(Blank), {A});
}

TEST(ReplacementEditor, ANewPairIsTakenOverWhenAnotherOneIsShown) {
    ReplacementEditor editor({A});
    editor.AddNew(A);
    editor.Show(0, B);
    ExpectPairs(editor.Pairs(), {A, B});
    EXPECT_TRUE(editor.ShownPair() == A);
}

TEST(ReplacementEditor, RemoveShowsThePairThatTakesThePlace) {
    ReplacementEditor editor({A, B, C});
    editor.Show(1, A);
    editor.Remove();
    EXPECT_TRUE(editor.ShownPair() == C);
    editor.Remove();
    EXPECT_TRUE(editor.ShownPair() == A);
    editor.Remove();
    EXPECT_EQ(editor.Shown(), ReplacementEditor::NewPair);
    editor.Remove();
    EXPECT_TRUE(editor.Pairs().empty());
}

TEST(ReplacementEditor, RemoveGivesUpANewPair) {
    ReplacementEditor editor({A, B});
    editor.AddNew(A);
    editor.Remove();
    ExpectPairs(editor.Pairs(), {A, B});
    EXPECT_TRUE(editor.ShownPair() == B);
}

TEST(ReplacementEditor, FinishingTwiceAddsNothing) {
    ReplacementEditor editor({A});
    editor.AddNew(A);
    ExpectPairs(editor.Finish(B), {A, B});
    EXPECT_TRUE(editor.ShownPair() == B);
    ExpectPairs(editor.Finish(B), {A, B});
}

TEST(ReplacementEditor, ALineShowsBlanksOfAPair) {
    EXPECT_EQ(PairText({u"_-_", u" - "}), u"\"_-_\" \u2192 \" - \"");
}
