#include <gtest/gtest.h>

#include "core/text/text.h"

using namespace mdlPLM;

TEST(Trimming, AllThreeWaysTakeTheSameBlanks) {
    struct {
        TextView Given;
        TextView Expected;
    } const cases[] = {
        {u"", u""},
        {u"   ", u""},
        {u"a", u"a"},
        {u" a", u"a"},
        {u"a  ", u"a"},
        {u"  a b  ", u"a b"},
        {u"\ta ", u"\ta"},
        {u" \r\n", u"\r\n"},
        {u"\u00A0a", u"\u00A0a"},
        {u"   a text that is too long for a small buffer ",
         u"a text that is too long for a small buffer"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Trim(each.Given), each.Expected);
        EXPECT_EQ(Trimmed(each.Given), each.Expected);
        Text text(each.Given);
        TrimInPlace(text);
        EXPECT_EQ(text, each.Expected);
    }
}
