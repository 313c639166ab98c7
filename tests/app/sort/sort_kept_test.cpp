// What a sort was started with holds to its end.
#include "tests/app/sort/sort_fixture.h"

using namespace mdlPLM;

namespace {

class SortKept : public SortTest {};

}  // namespace

TEST_F(SortKept, SettingsReplacementsAndPatternAreThoseOfItsStart) {
    choices_.chkConvert = true;
    settings_.bReplace = true;
    replacements_ = {{u"Waterloo", u"SOS"}};
    Add(u"abba - waterloo.mp3");
    Add(u"abba - waterloo two.mp3");
    Text pattern = settings_.InPattern;
    SortRun run(list_, choices_, SortStart::All, {settings_, replacements_, pattern}, disk_,
                prompts_);
    settings_.Change = static_cast<int>(CaseOption::Upper);
    settings_.bReplace = false;
    replacements_.clear();
    pattern = u"%title.mp3";
    while (run.Step()) {
    }
    EXPECT_EQ(InTarget(), (std::vector<Bytes>{"Abba - SOS Two.mp3", "Abba - SOS.mp3"}));
}
