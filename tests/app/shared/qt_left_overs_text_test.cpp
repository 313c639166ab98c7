// What killed runs have left behind is removed by the window's next run in the folder, whose status
// line says so.
#include "app/shared/qt_left_overs_text.h"

#include <ctime>

#include "tests/support/qt_main_window.h"
#include "tests/support/tag_bytes.h"

using namespace mdlPLM;
using namespace mdlPLM::test;

namespace {

const Text LeftName = u"plm-0123456789abcdef.tmp";

}  // namespace

class LeftOversTextTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        plm_ = std::make_unique<MainWindow>();
        plm_->Context.LeftBehind = &tidy_;
    }
    void cleanup() { plm_.reset(); }

    void NothingRemovedIsNothingSaid();
    void ManyAreCounted();
    void WhatWasRemovedBeforeTheWindowOpenedIsSaid();
    void SavingOneFileRemovesThem();
    void SavingManyFilesRemovesThem();
    void SavingAListRemovesThem();

private:
    /// Files that take a tag; one of a killed run beside them.
    void DropSongs(int count) {
        std::vector<Text> paths;
        for (int i = 0; i < count; ++i)
            paths.push_back(plm_->Folder.File(
                u"in/" + NumberText(static_cast<long long>(i)) + u".mp3", Noise(300)));
        left_ = plm_->Folder.File(u"in/" + LeftName, "half a song");
        plm_->Open();
        plm_->Drop("lstFiles", paths);
    }
    void ExpectRemoved(const QString& result) {
        QVERIFY(!IsThere(left_));
        QCOMPARE(
            plm_->TextOf("lblStatus"),
            result + " (left behind by a run that was ended, and removed: " + ToQt(left_) + u')');
    }

    LeftOvers tidy_{[] { return std::int64_t{std::time(nullptr)} + 7200; }};  // two hours later
    std::unique_ptr<MainWindow> plm_;
    Text left_;
};

void LeftOversTextTest::NothingRemovedIsNothingSaid() {
    QCOMPARE(WithRemovedLeftOvers({}, plm_->Context), QString());
    plm_->Context.LeftBehind = nullptr;
    QCOMPARE(WithRemovedLeftOvers({}, plm_->Context), QString());
}

void LeftOversTextTest::ManyAreCounted() {
    for (const TextView digit : {u"0", u"1", u"2", u"3", u"4"})
        (void)plm_->Folder.File(u"plm-000000000000000" + Text(digit) + u".tmp");
    tidy_.LookIn(plm_->Folder.Path());
    const QString said = WithRemovedLeftOvers({}, plm_->Context);
    QCOMPARE(said.count(".tmp"), 3);
    QVERIFY(said.endsWith(", and 2 more"));
    QCOMPARE(WithRemovedLeftOvers({}, plm_->Context), QString());
}

void LeftOversTextTest::WhatWasRemovedBeforeTheWindowOpenedIsSaid() {
    left_ = plm_->Folder.File(LeftName);
    tidy_.LookBeside(plm_->Store.Path());
    plm_->Open();
    QCOMPARE(plm_->TextOf("lblStatus"),
             "left behind by a run that was ended, and removed: " + ToQt(left_));
}

void LeftOversTextTest::SavingOneFileRemovesThem() {
    DropSongs(1);
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtV2Title", QStringLiteral("New"));
    plm_->Click("chkID3v2");
    plm_->Click("cmdSaveID3");
    ExpectRemoved(QStringLiteral("The tags were saved."));
}

void LeftOversTextTest::SavingManyFilesRemovesThem() {
    DropSongs(2);
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtV2Title", QStringLiteral("New"));
    plm_->Ask.Answers.push_back(Answer::Yes);
    plm_->Click("cmdSaveID3");
    plm_->Settle();
    ExpectRemoved(QStringLiteral("2 done, 0 skipped, 0 failed"));
}

void LeftOversTextTest::SavingAListRemovesThem() {
    DropSongs(1);
    const Text list = plm_->Folder / u"in/all.srt";
    plm_->Dialogs.Results.push_back({{list}, 1});
    plm_->Click("cmdSave");
    ExpectRemoved("1 file saved to " + ToQt(list));
}

QTEST_MAIN(LeftOversTextTest)
#include "qt_left_overs_text_test.moc"
