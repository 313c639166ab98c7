#include <gtest/gtest.h>

#include "core/tags/standard/date_text.h"
#include "core/tags/standard/genre_text.h"

namespace mdlPLM::standard {
namespace {

using Values = std::vector<Text>;

TEST(StandardGenre, IsReadInEveryForm) {
    struct Case {
        Values In;
        Values Out;
    };
    const Case cases[] = {
        {{u"Rock"}, {u"Rock"}},
        {{u"17"}, {u"Rock"}},
        {{u"(17)"}, {u"Rock"}},
        {{u"(17)Rock"}, {u"Rock"}},
        {{u"(17)Hard rock"}, {u"Hard rock"}},
        {{u"(17) Hard rock "}, {u"Hard rock"}},
        {{u"(51)(39)"}, {u"Techno-Industrial", u"Noise"}},
        {{u"(51)(39)Loud"}, {u"Techno-Industrial", u"Loud"}},
        {{u"(RX)"}, {u"Remix"}},
        {{u"(CR)"}, {u"Cover"}},
        {{u"RX"}, {u"Remix"}},
        {{u"(17)(RX)"}, {u"Rock", u"Remix"}},
        {{u"((Hard) rock"}, {u"(Hard) rock"}},
        {{u"(17)((Hard) rock"}, {u"(Hard) rock"}},
        {{u"(Hard) rock"}, {u"(Hard) rock"}},
        {{u"17", u"Pop", u"(13)"}, {u"Rock", u"Pop"}},
        {{u"Rock", u"Own name"}, {u"Rock", u"Own name"}},
        {{u"147"}, {u"Synthpop"}},
        {{u"(191)"}, {u"Psybient"}},
        {{u"192"}, {u"192"}},
        {{u"1984"}, {u"1984"}},
        {{u"(", u")", u"()"}, {u"(", u")", u"()"}},
        {{}, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(ParseGenres(c.In), c.Out);
}

TEST(StandardGenre, IsWrittenForTheReadersOfTheVersion) {
    EXPECT_EQ(RenderGenres({u"Rock"}, false), Values{u"(17)"});
    EXPECT_EQ(RenderGenres({u"Rock"}, true), Values{u"Rock"});
    EXPECT_EQ(RenderGenres({u"Own name"}, false), Values{u"Own name"});
    EXPECT_EQ(RenderGenres({u"Rock", u"Pop"}, false), Values{u"(17)(13)"});
    EXPECT_EQ(RenderGenres({u"Rock", u"Pop"}, true), (Values{u"Rock", u"Pop"}));
    EXPECT_EQ(RenderGenres({u"Rock", u"Own name"}, false), (Values{u"(17)", u"Own name"}));
    EXPECT_EQ(RenderGenres({u"(Hard) rock"}, false), Values{u"(Hard) rock"});
    EXPECT_EQ(RenderGenres({u"17"}, true), Values{u"Rock"});
    EXPECT_EQ(RenderGenres({u""}, true), Values{});
}

TEST(StandardGenre, IsReadAsItWasWritten) {
    const Values lists[] = {{u"Rock"},      {u"Rock", u"Pop", u"Own"},
                            {u"(17)Rock?"}, {u"((a"},
                            {u"(RX)"},      {u"("},
                            {u"Psybient"},  {u"\u0416"},
                            {u"rock"}};
    for (const Values& list : lists)
        for (const bool v24 : {false, true}) EXPECT_EQ(ParseGenres(RenderGenres(list, v24)), list);
}

TEST(StandardDate, IsMadeOfItsParts) {
    EXPECT_EQ(JoinDate({u"1999", u"", u""}), u"1999");
    EXPECT_EQ(JoinDate({u"1999", u"1705", u""}), u"1999-05-17");
    EXPECT_EQ(JoinDate({u"1999", u"1705", u"2015"}), u"1999-05-17T20:15");
    EXPECT_EQ(JoinDate({u"1999", u"", u"2015"}), u"1999");
    EXPECT_EQ(JoinDate({u"1999", u"17/5", u""}), u"1999");
    EXPECT_EQ(JoinDate({u"99", u"1705", u""}), u"99");
    EXPECT_EQ(JoinDate({}), u"");
}

TEST(StandardDate, IsTakenApart) {
    const auto parts = [](TextView date) {
        const DateParts p = SplitDate(date);
        return p.Year + u"|" + p.Day + u"|" + p.Time;
    };
    EXPECT_EQ(parts(u"1999"), u"1999||");
    EXPECT_EQ(parts(u"1999-05"), u"1999||");
    EXPECT_EQ(parts(u"1999-05-17"), u"1999|1705|");
    EXPECT_EQ(parts(u"1999-05-17T20:15"), u"1999|1705|2015");
    EXPECT_EQ(parts(u"1999-05-17T20:15:30"), u"1999|1705|2015");
    EXPECT_EQ(parts(u"99"), u"99||");
    EXPECT_EQ(parts(u"May 1999"), u"May 1999||");
}

TEST(StandardDate, BeginsWithItsYear) {
    EXPECT_EQ(YearOf(u"1999-05-17"), u"1999");
    EXPECT_EQ(YearOf(u"1999"), u"1999");
    EXPECT_EQ(YearOf(u"19991"), u"19991");
    EXPECT_EQ(YearOf(u"99"), u"99");
    EXPECT_EQ(YearOf(u""), u"");
}

}  // namespace
}  // namespace mdlPLM::standard
