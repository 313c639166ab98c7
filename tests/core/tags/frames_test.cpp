#include "core/tags/frames.h"

#include <gtest/gtest.h>

#include "tests/support/tag_bytes.h"

namespace mdlPLM {
namespace {

using test::Noise;
using test::Nuls;
using test::TextFrame;

FramePlaces FoundOneByOne(BytesView tagText) {
    FramePlaces places{};
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i] = tagText.find(KnownFrames[i].Identifier);
    return places;
}

TEST(PlacesOfFrames, AreTheFirstOfEachIdentifierWhereverItStands) {
    Bytes all;
    for (const KnownFrame& frame : KnownFrames) all += TextFrame(frame.Identifier, "x");
    const Bytes texts[] = {
        "",
        "TIT",
        "TIT2",
        "TTIT2",
        "WXXXX",
        "tit2",
        "TIT2TIT2",
        all,
        all + all,
        TextFrame("TIT2", "the letters TPE1 COMM") + TextFrame("TPE1", "b"),
        TextFrame("APIC", Noise(70000)) + all,
        Nuls(5000) + "TCOM",
        Bytes(300, 'T') + "IT2",
    };
    for (const Bytes& text : texts) EXPECT_EQ(PlacesOfFrames(text), FoundOneByOne(text)) << text;
}

}  // namespace
}  // namespace mdlPLM
