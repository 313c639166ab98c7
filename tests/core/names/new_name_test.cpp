#include "core/names/new_name.h"

#include <gtest/gtest.h>

namespace mdlPLM {
namespace {

TEST(NewName, AnExtensionAloneIsNoName) {
    const Settings usual;
    for (const TextView name :
         {u"", u"   ", u".mp3", u" .mp3", u".MP3", u".hidden", u"mp3", u"Mp3"})
        EXPECT_TRUE(IsNothingLeft(name, usual)) << Text(name).size();
    for (const TextView name :
         {u"a", u"a.mp3", u"-.mp3", u"..mp3", u"mp3.mp3", u"ogg", u".", u".."})
        EXPECT_FALSE(IsNothingLeft(name, usual)) << Text(name).size();
}

TEST(NewName, WithoutAnExtensionOfTheSettingsItsLettersAreAName) {
    Settings settings;
    settings.bExtension = false;
    EXPECT_FALSE(IsNothingLeft(u"mp3", settings));
    EXPECT_TRUE(IsNothingLeft(u".mp3", settings));
}

TEST(NewName, TheFaultSaysWhatIsTheMatter) {
    const Settings usual;
    EXPECT_EQ(FaultOfNewName(u"a.mp3", usual), u"");
    EXPECT_EQ(FaultOfNewName(u".mp3", usual), u"no name is left (\".mp3\")");
    EXPECT_EQ(FaultOfNewName(u"", usual), u"no name is left");
    EXPECT_EQ(FaultOfNewName(u"a/b.mp3", usual), u"Bad file name or number (\"a/b.mp3\")");
    EXPECT_EQ(FaultOfNewName(u"..", usual), u"Bad file name or number (\"..\")");
}

}  // namespace
}  // namespace mdlPLM
