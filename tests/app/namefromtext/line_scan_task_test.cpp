#include "app/namefromtext/line_scan_task.h"

#include <gtest/gtest.h>

using namespace mdlPLM;

namespace {

Text Lines(std::size_t count) {
    Text text;
    for (std::size_t i = 0; i < count; ++i) text += u"Title\r\n";
    return text;
}

LineScanTask TaskOver(Text text) {
    ScanChoices choices;
    choices.InPattern = u"%title.mp3";
    choices.OutPattern = u"%title.mp3";
    return {u"Scanning", LineScan(std::move(text), choices, Settings(), ReplacementList())};
}

}  // namespace

TEST(LineScanTask, TakesALongTextInSeveralSteps) {
    LineScanTask task = TaskOver(Lines(2 * LineScanTask::LinesPerStep));
    EXPECT_TRUE(task.Step());
    EXPECT_EQ(task.Names().size(), LineScanTask::LinesPerStep);
    EXPECT_EQ(task.Names().front(), u"Title.mp3");
    while (task.Step()) {
    }
    EXPECT_EQ(task.Names().size(), 2 * LineScanTask::LinesPerStep);
}

TEST(LineScanTask, TellsHowFarItIsInPercent) {
    LineScanTask task = TaskOver(Lines(2 * LineScanTask::LinesPerStep));
    EXPECT_EQ(task.Progress().Done, 0U);
    task.Step();
    EXPECT_EQ(task.Progress().What, u"Scanning");
    EXPECT_EQ(task.Progress().Done, 50U);
    EXPECT_EQ(task.Progress().Total, 100U);
}
