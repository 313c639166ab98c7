#include "app/dialogs/options_form.h"

#include <gtest/gtest.h>

using namespace mdlPLM;

TEST(OptionsForm, ExtensionBoxSwallowsPathCharactersAndThePasteKey) {
    for (const char16_t c : Text(u"\\/:?<>|")) EXPECT_TRUE(IsForbiddenInExtension(c)) << int(c);
    EXPECT_TRUE(IsForbiddenInExtension(22));
    for (const char16_t c : Text(u"mp3.MP3 \"*\u0003\u0018\u0008"))
        EXPECT_FALSE(IsForbiddenInExtension(c)) << int(c);
}
