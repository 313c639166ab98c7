#include "core/tags/save_plan.h"

#include <gtest/gtest.h>

#include "core/tags/id3v2_writer.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::Nuls;

constexpr std::int64_t AudioSize = 100000;

// A file of 100,000 bytes of audio and these tags.
OldFile File(std::int64_t v2Length, bool hasV1) {
    return {v2Length + AudioSize + (hasV1 ? 128 : 0), hasV1, v2Length > 0, v2Length};
}

ID3v2Tag Titled(std::size_t length) {
    ID3v2Tag tag;
    tag.Title = Bytes(length, 't');
    return tag;
}

ID3v1Tag OldTrailer() { return ParseID3v1(test::Trailer("Title", 5)); }

SavePlan Plan(const OldFile& old, const ID3v2Tag& v2, SaveModes modes) {
    return PlanSave(old, OldTrailer(), v2, modes);
}

constexpr auto Remove = TagMode::Remove;
constexpr auto Leave = TagMode::Leave;
constexpr auto Write = TagMode::Write;

TEST(SavePlan, EveryCombinationOfModesAndTags) {
    struct Case {
        TagMode V1;
        TagMode V2;
        bool HasV1;
        bool HasV2;
        SaveWay Way;
    };
    const Case cases[] = {
        {Leave, Leave, false, false, SaveWay::NoWork},
        {Leave, Leave, true, true, SaveWay::NoWork},
        {Write, Leave, false, false, SaveWay::InPlace},
        {Write, Leave, true, false, SaveWay::InPlace},
        {Write, Leave, true, true, SaveWay::InPlace},
        {Remove, Leave, false, false, SaveWay::NoWork},
        {Remove, Leave, false, true, SaveWay::NoWork},
        {Remove, Leave, true, false, SaveWay::Shorten},
        {Remove, Leave, true, true, SaveWay::Shorten},
        {Leave, Remove, false, false, SaveWay::NoWork},
        {Leave, Remove, true, false, SaveWay::NoWork},
        {Leave, Remove, false, true, SaveWay::Rewrite},
        {Leave, Remove, true, true, SaveWay::Rewrite},
        {Remove, Remove, false, false, SaveWay::NoWork},
        {Remove, Remove, true, false, SaveWay::Shorten},
        {Remove, Remove, false, true, SaveWay::Rewrite},
        {Remove, Remove, true, true, SaveWay::Rewrite},
        {Write, Remove, false, false, SaveWay::InPlace},
        {Write, Remove, true, true, SaveWay::Rewrite},
        {Leave, Write, false, false, SaveWay::Rewrite},
        {Leave, Write, true, false, SaveWay::Rewrite},
        {Leave, Write, true, true, SaveWay::InPlace},
        {Write, Write, false, false, SaveWay::Rewrite},
        {Write, Write, true, false, SaveWay::Rewrite},
        {Write, Write, false, true, SaveWay::InPlace},
        {Write, Write, true, true, SaveWay::InPlace},
        {Remove, Write, false, false, SaveWay::Rewrite},
        {Remove, Write, false, true, SaveWay::Rewrite},
        {Remove, Write, true, true, SaveWay::Rewrite},
    };
    for (const Case& c : cases) {
        const SavePlan plan = Plan(File(c.HasV2 ? 1000 : 0, c.HasV1), Titled(10), {c.V1, c.V2});
        EXPECT_EQ(plan.Way, c.Way)
            << static_cast<int>(c.V1) << static_cast<int>(c.V2) << c.HasV1 << c.HasV2;
        EXPECT_EQ(plan.Error, ErrorNumber::None);
    }
}

TEST(SavePlan, AFirstTagIsPaddedByAsMuchAsItHolds) {
    const SavePlan plan = Plan(File(0, false), Titled(10), {Leave, Write});
    EXPECT_EQ(plan.Head, BuildTagHeader(42) + BuildFrame("TIT2", "tttttttttt") + Nuls(21));
    EXPECT_EQ(plan.Head.size(), 52U);
    EXPECT_EQ(plan.CarriedFrom, 0);
    EXPECT_EQ(plan.CarriedLength, AudioSize);
    EXPECT_EQ(plan.NewSize, AudioSize + 52);
}

TEST(SavePlan, ALargeFirstTagIsPaddedBy12000) {
    for (const std::size_t frames : {11999U, 12000U, 12001U, 50000U}) {
        const SavePlan plan = Plan(File(0, false), Titled(frames - 11), {Leave, Write});
        const std::size_t padding = std::min<std::size_t>(frames, 12000);
        const auto declared = static_cast<std::int64_t>(frames + padding);
        EXPECT_EQ(plan.Head.substr(0, 10), BuildTagHeader(declared)) << frames;
        EXPECT_EQ(plan.Head.size(), 10 + frames + padding);
    }
}

TEST(SavePlan, InPlaceAllBytesOfTheOldTagAreWritten) {
    const SavePlan plan = Plan(File(1000, true), Titled(10), {Leave, Write});
    // The header declares ten bytes more than follow it.
    EXPECT_EQ(plan.Head, BuildTagHeader(1000) + BuildFrame("TIT2", "tttttttttt") + Nuls(969));
    EXPECT_EQ(plan.Head.size(), 1000U);
    EXPECT_EQ(plan.Trailer, "");
    EXPECT_EQ(plan.NewSize, 1000 + AudioSize + 128);
}

TEST(SavePlan, TheRoomGoesFromZeroTo12000) {
    struct Case {
        std::int64_t OldLength;
        std::size_t Frames;
        SaveWay Way;
        std::int64_t Declared;
    };
    const Case cases[] = {
        {1000, 990, SaveWay::InPlace, 1000},     {1000, 991, SaveWay::Rewrite, 1000},
        {1000, 999, SaveWay::Rewrite, 1000},     {1000, 1000, SaveWay::Rewrite, 1000},
        {1000, 1001, SaveWay::Rewrite, 1001},    {11999, 21, SaveWay::InPlace, 11999},
        {12000, 21, SaveWay::InPlace, 21},       {12031, 21, SaveWay::InPlace, 21},
        {12032, 21, SaveWay::Rewrite, 21},       {20000, 7990, SaveWay::InPlace, 7990},
        {20000, 7989, SaveWay::Rewrite, 7989},   {20000, 19990, SaveWay::InPlace, 19990},
        {20000, 19991, SaveWay::Rewrite, 19991},
    };
    for (const Case& c : cases) {
        const OldFile old = File(c.OldLength, false);
        const SavePlan plan = Plan(old, Titled(c.Frames - 11), {Leave, Write});
        EXPECT_EQ(plan.Way, c.Way) << c.OldLength << ' ' << c.Frames;
        EXPECT_EQ(plan.Head.substr(0, 10), BuildTagHeader(c.Declared))
            << c.OldLength << ' ' << c.Frames;
        if (c.Way == SaveWay::InPlace)
            EXPECT_EQ(plan.Head.size(), static_cast<std::size_t>(c.OldLength));
        else
            EXPECT_EQ(plan.Head.size(), 10 + c.Frames + std::min<std::size_t>(c.Frames, 12000));
    }
}

TEST(SavePlan, WithoutFramesTheRestOfTheOldTagBecomesNuls) {
    const SavePlan plan = Plan(File(1000, false), ID3v2Tag(), {Leave, Write});
    EXPECT_EQ(plan.Way, SaveWay::InPlace);
    EXPECT_EQ(plan.Head, BuildTagHeader(1000) + Nuls(990));
}

TEST(SavePlan, WithoutFramesALargeOldTagBecomesABareHeader) {
    const SavePlan plan = Plan(File(20000, false), ID3v2Tag(), {Leave, Write});
    EXPECT_EQ(plan.Way, SaveWay::Rewrite);
    EXPECT_EQ(plan.Head, BuildTagHeader(0));
    EXPECT_EQ(plan.CarriedFrom, 20000);
}

TEST(SavePlan, WithoutFramesAndWithoutAnOldTagNoTagIsWritten) {
    EXPECT_EQ(Plan(File(0, true), ID3v2Tag(), {Leave, Write}).Way, SaveWay::NoWork);
    EXPECT_EQ(Plan(File(0, false), ID3v2Tag(), {Remove, Write}).Way, SaveWay::NoWork);
    EXPECT_EQ(Plan(File(0, true), ID3v2Tag(), {Remove, Write}).Way, SaveWay::Shorten);
    const SavePlan plan = Plan(File(0, true), ID3v2Tag(), {Write, Write});
    EXPECT_EQ(plan.Way, SaveWay::InPlace);
    EXPECT_EQ(plan.Head, "");
    EXPECT_EQ(plan.Trailer, RenderID3v1(OldTrailer()));
}

TEST(SavePlan, OverATooSmallTagTheHeaderDeclaresOnlyTheFrames) {
    const SavePlan plan = Plan(File(30, true), Titled(100), {Leave, Write});
    EXPECT_EQ(plan.Head, BuildTagHeader(111) + BuildFrame("TIT2", Bytes(100, 't')) + Nuls(111));
    EXPECT_EQ(plan.CarriedFrom, 30);
    EXPECT_EQ(plan.CarriedLength, AudioSize + 128);
    EXPECT_EQ(plan.NewSize, 10 + 222 + AudioSize + 128);
}

TEST(SavePlan, TheTrailerIsWrittenOverTheOldOneOrBehindTheEnd) {
    EXPECT_EQ(Plan(File(1000, true), Titled(10), {Write, Write}).TrailerPlace, 1000 + AudioSize);
    EXPECT_EQ(Plan(File(1000, false), Titled(10), {Write, Write}).TrailerPlace, 1000 + AudioSize);
    EXPECT_EQ(Plan(File(0, false), Titled(10), {Write, Leave}).TrailerPlace, AudioSize);
    for (const bool hasV1 : {false, true})
        EXPECT_EQ(Plan(File(1000, hasV1), Titled(10), {Write, Write}).NewSize,
                  1000 + AudioSize + 128);
}

TEST(SavePlan, ARewriteCarriesTheTrailerOverReplacesItOrLeavesItOut) {
    const OldFile old = File(0, true);
    EXPECT_EQ(Plan(old, Titled(10), {Leave, Write}).CarriedLength, AudioSize + 128);
    EXPECT_EQ(Plan(old, Titled(10), {Leave, Write}).Trailer, "");
    EXPECT_EQ(Plan(old, Titled(10), {Write, Write}).CarriedLength, AudioSize);
    EXPECT_EQ(Plan(old, Titled(10), {Write, Write}).Trailer, RenderID3v1(OldTrailer()));
    EXPECT_EQ(Plan(old, Titled(10), {Remove, Write}).CarriedLength, AudioSize);
    EXPECT_EQ(Plan(old, Titled(10), {Remove, Write}).Trailer, "");
}

TEST(SavePlan, RemovingTheTagCarriesOnlyTheAudio) {
    const SavePlan plan = Plan(File(1000, false), Titled(10), {Leave, Remove});
    EXPECT_EQ(plan.Head, "");
    EXPECT_EQ(plan.CarriedFrom, 1000);
    EXPECT_EQ(plan.CarriedLength, AudioSize);
    EXPECT_EQ(plan.NewSize, AudioSize);
}

TEST(SavePlan, RemovingTheTrailerAloneShortensTheFile) {
    EXPECT_EQ(Plan(File(1000, true), Titled(10), {Remove, Leave}).NewSize, 1000 + AudioSize);
}

TEST(SavePlan, AFileBelow128BytesIsRefused) {
    const OldFile tiny{127, false, false, 0};
    for (const SaveModes modes : {SaveModes{Write, Leave}, SaveModes{Leave, Write},
                                  SaveModes{Remove, Leave}, SaveModes{Leave, Remove}}) {
        const SavePlan plan = Plan(tiny, Titled(10), modes);
        EXPECT_EQ(plan.Way, SaveWay::Refused);
        EXPECT_EQ(plan.Error, ErrorNumber::BadRecordNumber);
    }
    EXPECT_EQ(Plan(tiny, Titled(10), {Leave, Leave}).Way, SaveWay::NoWork);
    EXPECT_EQ(Plan({128, true, false, 0}, Titled(10), {Write, Leave}).Way, SaveWay::InPlace);
}

TEST(SavePlan, ATagThatReachesTooFarIsRefused) {
    for (const bool hasV1 : {false, true}) {
        const std::int64_t end = hasV1 ? 872 : 1000;
        for (const SaveModes modes : {SaveModes{Write, Leave}, SaveModes{Leave, Write},
                                      SaveModes{Leave, Remove}, SaveModes{Remove, Write}}) {
            const SavePlan plan = Plan({1000, hasV1, true, end + 11}, Titled(10), modes);
            EXPECT_EQ(plan.Way, SaveWay::Refused);
            EXPECT_EQ(plan.Error, ErrorNumber::InputPastEnd);
            EXPECT_NE(Plan({1000, hasV1, true, end + 10}, Titled(10), modes).Way, SaveWay::Refused);
        }
    }
}

// A tag saved in place declares ten bytes too many; without audio they are the trailer's.
TEST(SavePlan, ATagThatReachesIntoTheTrailerStopsBeforeIt) {
    const OldFile old{1000 + 128, true, true, 1010};
    const SavePlan plan = Plan(old, Titled(10), {Leave, Write});
    EXPECT_EQ(plan.Way, SaveWay::InPlace);
    EXPECT_EQ(plan.Head, BuildTagHeader(1010) + BuildFrame("TIT2", "tttttttttt") + Nuls(969));
    EXPECT_EQ(plan.NewSize, 1128);
}

TEST(SavePlan, FramesThatWouldReachIntoTheTrailerAreWrittenAnew) {
    const OldFile old{1000 + 128, true, true, 1010};
    EXPECT_EQ(Plan(old, Titled(979), {Leave, Write}).Way, SaveWay::InPlace);
    const SavePlan plan = Plan(old, Titled(980), {Leave, Write});
    EXPECT_EQ(plan.Way, SaveWay::Rewrite);
    EXPECT_EQ(plan.CarriedFrom, 1000);
    EXPECT_EQ(plan.CarriedLength, 128);
}

TEST(SavePlan, ATagThatReachesBeyondTheEndGrowsTheFileToItsLength) {
    const OldFile old{1000, false, true, 1010};
    const SavePlan plan = Plan(old, Titled(10), {Leave, Write});
    EXPECT_EQ(plan.Head.size(), 1010U);
    EXPECT_EQ(plan.NewSize, 1010);
    const SavePlan both = Plan(old, Titled(10), {Write, Write});
    EXPECT_EQ(both.Head.size(), 1000U);
    EXPECT_EQ(both.TrailerPlace, 1000);
    EXPECT_EQ(both.NewSize, 1128);
}

}  // namespace
}  // namespace mdlPLM
