#include "core/tags/standard/standard_plan.h"

#include <gtest/gtest.h>

#include "tests/core/tags/standard/standard_bytes.h"

namespace mdlPLM::standard {
namespace {

using test::Audio;
using test::B;
using test::Edit;
using test::TagOf;
using test::Text23;

std::int64_t Size(const Bytes& bytes) { return static_cast<std::int64_t>(bytes.size()); }

Bytes Trailer(char filler = ' ') { return "TAG" + Bytes(125, filler); }

SavePlan Plan(const Bytes& file, const TagEdit& edit, const TrailerEdit& trailer = {}) {
    const Tag tag = ParseTag(file);
    const FileLayout layout =
        FindLayout(test::Reader(file), static_cast<std::int64_t>(file.size()), tag);
    return PlanSave(layout, EditTag(tag, edit), trailer);
}

TEST(StandardPlan, NothingNewIsNoWork) {
    const Bytes file = TagOf(Text23("TIT2", "T")) + Audio() + Trailer();
    EXPECT_EQ(Plan(file, {}).Way, SaveWay::NoWork);
    EXPECT_EQ(Plan(file, Edit(Field::Title, u"T")).Way, SaveWay::NoWork);
    EXPECT_EQ(Plan(file, {}, {TagMode::Write, Trailer()}).Way, SaveWay::NoWork);
    EXPECT_EQ(Plan(Audio(), {}, {TagMode::Remove, {}}).Way, SaveWay::NoWork);
    EXPECT_EQ(PlanSave(test::LayoutOf(Audio()), RemovedTag(), {}).Way, SaveWay::NoWork);
}

TEST(StandardPlan, WhatFitsGoesIntoTheRoom) {
    const Bytes file = TagOf(Text23("TIT2", "T"), {3, 0, 100, 0}) + Audio() + Trailer();
    const SavePlan plan = Plan(file, Edit(Field::Title, u"A longer title"));
    EXPECT_EQ(plan.Way, SaveWay::InPlace);
    EXPECT_EQ(plan.Head, TagOf(Text23("TIT2", "A longer title"), {3, 0, 87, 0}));
    EXPECT_EQ(plan.Trailer, "");
    EXPECT_EQ(plan.NewSize, Size(file));
}

TEST(StandardPlan, WhatFitsExactlyGoesIntoTheRoom) {
    const Bytes file = TagOf(Text23("TIT2", "old"), {3, 0, 5, 0}) + Audio();
    EXPECT_EQ(Plan(file, Edit(Field::Title, u"new more")).Head, TagOf(Text23("TIT2", "new more")));
    EXPECT_EQ(Plan(file, Edit(Field::Title, u"new and more")).Way, SaveWay::Rewrite);
}

TEST(StandardPlan, ANewTagMakesTheFileAMultipleOfABlock) {
    for (const Bytes& trailer : {Bytes(), Trailer()}) {
        const Bytes file = Audio(20) + trailer;
        const SavePlan plan = Plan(file, Edit(Field::Title, u"T"));
        EXPECT_EQ(plan.Way, SaveWay::Rewrite);
        EXPECT_EQ(plan.CarriedFrom, 0);
        EXPECT_EQ(plan.CarriedLength, Size(file));
        EXPECT_EQ(plan.NewSize, Size(plan.Head) + Size(file));
        EXPECT_EQ(plan.NewSize % 4096, 0);
        const Tag tag = ParseTag(plan.Head);
        EXPECT_EQ(tag.Header.Length(), Size(plan.Head));
        EXPECT_GE(Size(plan.Head) - tag.FramesEnd, 1024);
        EXPECT_LE(Size(plan.Head) - tag.FramesEnd, 4096);
    }
}

TEST(StandardPlan, PaddingIsWithinItsBoundsForEverySize) {
    int multiples = 0;
    constexpr int sizes = 4096 / 16;
    for (int i = 0; i < sizes; ++i) {
        const Bytes file = Audio(3) + Bytes(static_cast<std::size_t>(i) * 16, 'x');
        const SavePlan plan = Plan(file, Edit(Field::Title, u"T"));
        const std::int64_t padding = Size(plan.Head) - ParseTag(plan.Head).FramesEnd;
        EXPECT_GE(padding, 1024);
        EXPECT_LE(padding, 4096);
        if (plan.NewSize % 4096 == 0) ++multiples;
    }
    EXPECT_GT(multiples, sizes * 7 / 10);
}

TEST(StandardPlan, WhatStandsBehindTheTagIsCarriedOver) {
    const Bytes tag = TagOf(Text23("TIT2", "T"));
    const Bytes second = TagOf(Text23("TIT2", "Two"));
    const Bytes file = tag + second + "bytes" + Audio() + Trailer();
    const SavePlan plan = Plan(file, Edit(Field::Title, u"A longer title"));
    EXPECT_EQ(plan.Way, SaveWay::Rewrite);
    EXPECT_EQ(plan.CarriedFrom, Size(tag));
    EXPECT_EQ(plan.CarriedLength, Size(file) - Size(tag));
}

TEST(StandardPlan, SizesAreTrueAfterATagThatWasNot) {
    for (const std::int64_t error : {-60, 10}) {
        const Bytes tag = TagOf(Text23("TIT2", "T"), {3, 0, 100, error});
        const SavePlan plan = Plan(tag + Audio(), Edit(Field::Title, u"New"));
        EXPECT_EQ(plan.Way, SaveWay::InPlace);
        EXPECT_EQ(plan.Head, TagOf(Text23("TIT2", "New"), {3, 0, 98, 0}));
    }
    const Bytes tag = TagOf(Text23("TIT2", "T"), {3, 0, 0, 10});
    const SavePlan plan = Plan(tag + Audio(), Edit(Field::Title, u"New"));
    EXPECT_EQ(plan.Way, SaveWay::Rewrite);
    EXPECT_EQ(plan.CarriedFrom, Size(tag));
}

TEST(StandardPlan, ATagThatGoesLeavesTheRest) {
    const Bytes tag = TagOf(Text23("TIT2", "T"), {3, 0, 100, 0});
    const Bytes file = tag + Audio() + Trailer();
    const SavePlan plan = Plan(file, Edit(Field::Title, u""));
    EXPECT_EQ(plan.Way, SaveWay::Rewrite);
    EXPECT_EQ(plan.Head, "");
    EXPECT_EQ(plan.CarriedFrom, Size(tag));
    EXPECT_EQ(plan.NewSize, Size(file) - Size(tag));
}

TEST(StandardPlan, ALargeFrameThatGoesGivesItsRoomBack) {
    const Bytes picture = test::Frame23("APIC", B("\0image/png\0\3\0") + Bytes(200000, 'p'));
    const Bytes file = TagOf(Text23("TIT2", "T") + picture) + Audio();
    TagEdit edit;
    edit.Removed = {1};
    const SavePlan plan = Plan(file, edit);
    EXPECT_EQ(plan.Way, SaveWay::Rewrite);
    EXPECT_LT(plan.NewSize, 10000);
    // Padding that was there all the time is left alone.
    const Bytes padded = TagOf(Text23("TIT2", "T"), {3, 0, 200000, 0}) + Audio();
    EXPECT_EQ(Plan(padded, Edit(Field::Title, u"")).Way, SaveWay::Rewrite);
    EXPECT_EQ(Plan(padded, Edit(Field::Title, u"N")).Way, SaveWay::InPlace);
}

TEST(StandardPlan, TheTrailerGoesItsOwnWay) {
    const Bytes bare = TagOf(Text23("TIT2", "T")) + Audio();
    const Bytes file = bare + Trailer();
    const SavePlan over = Plan(file, {}, {TagMode::Write, Trailer('x')});
    EXPECT_EQ(over.Way, SaveWay::InPlace);
    EXPECT_EQ(over.Head, "");
    EXPECT_EQ(over.TrailerPlace, Size(bare));
    EXPECT_EQ(over.NewSize, Size(file));
    const SavePlan behind = Plan(bare, {}, {TagMode::Write, Trailer()});
    EXPECT_EQ(behind.TrailerPlace, Size(bare));
    EXPECT_EQ(behind.NewSize, Size(file));
    const SavePlan gone = Plan(file, {}, {TagMode::Remove, {}});
    EXPECT_EQ(gone.Way, SaveWay::Shorten);
    EXPECT_EQ(gone.NewSize, Size(bare));
}

TEST(StandardPlan, BothTagsAreWrittenInOneGo) {
    const Bytes tag = TagOf(Text23("TIT2", "T"), {3, 0, 50, 0});
    const Bytes file = tag + Audio() + Trailer();
    const SavePlan inPlace = Plan(file, Edit(Field::Title, u"N"), {TagMode::Write, Trailer('x')});
    EXPECT_EQ(inPlace.Way, SaveWay::InPlace);
    EXPECT_EQ(inPlace.Trailer, Trailer('x'));
    EXPECT_EQ(inPlace.TrailerPlace, Size(file) - 128);
    const SavePlan removed = Plan(file, Edit(Field::Title, u"N"), {TagMode::Remove, {}});
    EXPECT_EQ(removed.Way, SaveWay::Rewrite);
    EXPECT_EQ(Size(removed.Head), Size(tag));
    EXPECT_EQ(removed.NewSize, Size(file) - 128);
    const SavePlan anew =
        Plan(file, Edit(Field::Title, Text(80, u'n')), {TagMode::Write, Trailer('x')});
    EXPECT_EQ(anew.Way, SaveWay::Rewrite);
    EXPECT_EQ(anew.CarriedLength, Size(Audio()));
    EXPECT_EQ(anew.Trailer, Trailer('x'));
    EXPECT_EQ(anew.TrailerPlace, anew.NewSize - 128);
}

TEST(StandardPlan, AFileThatIsCutIsRefused) {
    const Bytes tag = TagOf(Text23("TIT2", "T") + Text23("TPE1", Bytes(3000, 'x')));
    const SavePlan plan = Plan(tag.substr(0, 1000), Edit(Field::Title, u"N"));
    EXPECT_EQ(plan.Way, SaveWay::Refused);
    EXPECT_EQ(plan.Error, ErrorNumber::InputPastEnd);
}

TEST(StandardPlan, ATagThatNoHeaderCanDeclareIsRefused) {
    EditedTag tag;
    tag.Changed = true;
    tag.Frames.assign((std::size_t{1} << 28), 'x');
    const SavePlan plan = PlanSave(test::LayoutOf(Audio()), tag, {});
    EXPECT_EQ(plan.Way, SaveWay::Refused);
    EXPECT_EQ(plan.Error, ErrorNumber::Overflow);
}

}  // namespace
}  // namespace mdlPLM::standard
