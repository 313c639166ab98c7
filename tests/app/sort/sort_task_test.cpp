// The sort as the main window drives it: what it was started with holds to its end.
#include "app/sort/sort_task.h"

#include "tests/app/sort/sort_fixture.h"

using namespace mdlPLM;

namespace {

class SortingTask : public SortTest {};

}  // namespace

TEST_F(SortingTask, SettingsReplacementsAndPatternAreThoseOfItsStart) {
    choices_.chkConvert = true;
    settings_.bReplace = true;
    replacements_ = {{u"Waterloo", u"SOS"}};
    Add(u"abba - waterloo.mp3");
    Add(u"abba - waterloo two.mp3");
    Text pattern = settings_.InPattern;
    SortTask task(list_, choices_, SortStart::All, {settings_, replacements_, pattern}, disk_,
                  prompts_);
    settings_.Change = static_cast<int>(CaseOption::Upper);
    settings_.bReplace = false;
    replacements_.clear();
    pattern = u"%title.mp3";
    while (task.Step()) {
    }
    EXPECT_EQ(InTarget(), (std::vector<Bytes>{"Abba - SOS Two.mp3", "Abba - SOS.mp3"}));
}
