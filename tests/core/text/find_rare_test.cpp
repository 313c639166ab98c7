#include <gtest/gtest.h>

#include "core/text/text.h"

using namespace mdlPLM;

TEST(FindRare, FindsWhatFindFinds) {
    const Text texts[] = {u"", u"a", u"a--b", u"--", u"- -", u"%track - %artist - %title.mp3",
                          // Characters that hold the bytes of "-" and "%" in either half.
                          u"\u2D2D\u002D\u252D\u2D25-%\u2525%", u"\u0100\u0001a\u0001",
                          Text(1000, u'\u2D00') + u"--" + Text(1000, u' ')};
    const Text wanted[] = {u"", u"-", u"--", u"- -", u"%", u"%title", u"\u252D", u"a\u0001", u"a"};
    for (const Text& text : texts) {
        for (const Text& what : wanted) {
            for (std::size_t start = 0; start <= text.size() + 1; ++start) {
                ASSERT_EQ(FindRare(text, what, start), text.find(what, start)) << start;
            }
        }
    }
}

TEST(FindRare, FindsCharactersThatEndInAZeroByte) {
    const Text text = u"abc\u0100\u0200x";
    EXPECT_EQ(FindRare(text, u"\u0100"), 3U);
    EXPECT_EQ(FindRare(text, u"\u0200x"), 4U);
    EXPECT_EQ(FindRare(text, TextView(u"\0", 1)), TextView::npos);
}
