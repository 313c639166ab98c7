// Playing, help and about in the real window, with a player that plays nothing.
#include <QAbstractButton>
#include <QDesktopServices>
#include <QLabel>
#include <QMenuBar>
#include <QUrl>

#include "app/shared/qt_elided_label.h"
#include "core/platform/path.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_text_viewer.h"
#include "tests/support/real_mp3.h"

using namespace mdlPLM;

class FrmPLMPlayerTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { plm_.reset(); }

    void ButtonAndMenuPlayTheCurrentEntry_data();
    void ButtonAndMenuPlayTheCurrentEntry();
    void PictureNamesTheFileWhileItIsPlayed();
    void StopPlayingStops();
    void TwoSelectedEntriesArePlayedByNobody();
    void MissingFileIsPassedOverInSilence();
    void EmptyListPlaysNothing();
    void OpenButtonNamesTheFileUnderTheMouse();
    void FaultIsToldInTheStatusLine();
    void FaultIsForgottenWhenAnotherFileIsPlayed();
    void PlayingLeavesWhatWasSaidOfOtherWork();
    void MissingSoundDeviceIsToldInTheStatusLine();
    void SavingTheFileThatIsPlayedLetsGoOfIt_data();
    void SavingTheFileThatIsPlayedLetsGoOfIt();
    void SavingAnotherFilePlaysOn();
    void TagRunStopsThePlayer();
    void SortedFileIsLetGoOfFirst();
    void ClosedWindowPlaysNothing();
    void HelpOpensTheHelpText();
    void HelpThatCannotBeOpenedIsTold();
    void AboutSaysWhichVersionThisIs();
    void ExitClosesTheWindow();

private:
    std::vector<Text> DropFiles(int count) {
        std::vector<Text> paths;
        for (int i = 1; i <= count; ++i) {
            const std::string name = std::to_string(i) + ".mp3";
            paths.push_back(plm_->Folder.File(u"in/" + FromAscii(name), EncodedMp3()));
            TagByPeer(paths.back(), {"artist", "title", "", "", "", -1});
        }
        plm_->Drop("lstFiles", {plm_->Folder / u"in"});
        return paths;
    }
    /// Drops one file and plays it.
    Text PlayOne() {
        const Text path = DropFiles(1).front();
        plm_->ClickLine("lstFiles", 0);
        plm_->Click("cmdOpenMP3");
        return path;
    }
    [[nodiscard]] QString PictureTip() { return plm_->Get<QLabel>("picTab").toolTip(); }
    [[nodiscard]] std::vector<Text>& Log() { return plm_->Players.Log; }
    void MoveMouseOverOpen() {
        QTest::mouseMove(&plm_->Window(), QPoint(1, 1));
        QTest::mouseMove(&plm_->Get<QWidget>("cmdOpenMP3"), QPoint(5, 5));
        QTest::mouseMove(&plm_->Get<QWidget>("cmdOpenMP3"), QPoint(6, 6));
        QCoreApplication::processEvents();
    }

    std::unique_ptr<MainWindow> plm_;
};

void FrmPLMPlayerTest::init() {
    plm_ = std::make_unique<MainWindow>();
    plm_->Open();
}

void FrmPLMPlayerTest::ButtonAndMenuPlayTheCurrentEntry_data() {
    QTest::addColumn<bool>("byMenu");
    QTest::newRow("button") << false;
    QTest::newRow("menu") << true;
}

void FrmPLMPlayerTest::ButtonAndMenuPlayTheCurrentEntry() {
    QFETCH(bool, byMenu);
    const std::vector<Text> paths = DropFiles(3);
    plm_->ClickLine("lstFiles", 1);
    QCOMPARE(plm_->TextOf("cmdOpenMP3"), QStringLiteral("Open"));
    QCOMPARE(plm_->TextOf("mnuPlayFile"), QStringLiteral("Play File"));
    if (byMenu)
        plm_->Trigger("mnuPlayFile");
    else
        plm_->Click("cmdOpenMP3");
    QVERIFY(Log() == std::vector<Text>{u"play " + paths[1]});
}

void FrmPLMPlayerTest::PictureNamesTheFileWhileItIsPlayed() {
    QCOMPARE(PictureTip(), QString());
    QVERIFY(!plm_->Get<QLabel>("picTab").pixmap(Qt::ReturnByValue).isNull());
    const Text path = PlayOne();
    QCOMPARE(PictureTip(), QStringLiteral("Now Playing: ") + ToQt(path));
    plm_->Players.Events.Ended();
    QCOMPARE(PictureTip(), QString());
}

void FrmPLMPlayerTest::StopPlayingStops() {
    const Text path = PlayOne();
    QCOMPARE(plm_->TextOf("mnuStopPlay"), QStringLiteral("Stop Playing"));
    plm_->Trigger("mnuStopPlay");
    QVERIFY(Log() == (std::vector<Text>{u"play " + path, u"stop"}));
    QCOMPARE(PictureTip(), QString());
}

void FrmPLMPlayerTest::TwoSelectedEntriesArePlayedByNobody() {
    DropFiles(2);
    plm_->ClickLine("lstFiles", 0);
    plm_->ClickLine("lstFiles", 1, Qt::ControlModifier);
    plm_->Click("cmdOpenMP3");
    plm_->Trigger("mnuPlayFile");
    QVERIFY(Log().empty());
}

void FrmPLMPlayerTest::MissingFileIsPassedOverInSilence() {
    const Text path = DropFiles(1).front();
    plm_->ClickLine("lstFiles", 0);
    QVERIFY(SystemDisk().DeleteFile(path).Ok());
    const QString before = plm_->TextOf("lblStatus");
    plm_->Click("cmdOpenMP3");
    QVERIFY(Log().empty());
    QVERIFY(plm_->Ask.Log.empty());
    QCOMPARE(plm_->TextOf("lblStatus"), before);
}

void FrmPLMPlayerTest::EmptyListPlaysNothing() {
    plm_->Click("cmdOpenMP3");
    plm_->Trigger("mnuPlayFile");
    plm_->Trigger("mnuStopPlay");
    QVERIFY(Log().empty());
}

void FrmPLMPlayerTest::OpenButtonNamesTheFileUnderTheMouse() {
    MoveMouseOverOpen();
    QCOMPARE(plm_->Get<QWidget>("cmdOpenMP3").toolTip(), QString());
    const std::vector<Text> paths = DropFiles(2);
    plm_->ClickLine("lstFiles", 1);
    MoveMouseOverOpen();
    QCOMPARE(plm_->Get<QWidget>("cmdOpenMP3").toolTip(), QStringLiteral("Open: ") + ToQt(paths[1]));
    plm_->Click("cmdClear");
    plm_->Settle();
    MoveMouseOverOpen();
    QCOMPARE(plm_->Get<QWidget>("cmdOpenMP3").toolTip(), QString());
}

void FrmPLMPlayerTest::FaultIsToldInTheStatusLine() {
    const Text path = PlayOne();
    plm_->Players.Events.Failed({PlayerFault::Kind::NoSoundDevice, path, {}});
    QCOMPARE(plm_->TextOf("lblStatus"),
             QStringLiteral("Nothing is played: there is no sound device."));
    QCOMPARE(PictureTip(), QString());
    // A longer one is cut short with dots and stands in the tool tip.
    const Text detail(500, u'x');
    plm_->Players.Events.Failed({PlayerFault::Kind::CannotPlay, path, detail});
    const auto& status = plm_->Get<ElidedLabel>("lblStatus");
    QVERIFY(status.SeenText().endsWith(QChar(0x2026)));
    QVERIFY(status.toolTip().endsWith(ToQt(detail)));
}

void FrmPLMPlayerTest::FaultIsForgottenWhenAnotherFileIsPlayed() {
    const std::vector<Text> paths = DropFiles(2);
    plm_->ClickLine("lstFiles", 0);
    plm_->Click("cmdOpenMP3");
    plm_->Players.Events.Failed({PlayerFault::Kind::CannotPlay, paths[0], u"broken"});
    QVERIFY(plm_->TextOf("lblStatus").contains(QStringLiteral("broken")));
    plm_->ClickLine("lstFiles", 1);
    plm_->Click("cmdOpenMP3");
    QCOMPARE(plm_->TextOf("lblStatus"), QString());
}

void FrmPLMPlayerTest::PlayingLeavesWhatWasSaidOfOtherWork() {
    PlayOne();
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("1 file added."));
}

void FrmPLMPlayerTest::MissingSoundDeviceIsToldInTheStatusLine() {
    const Text path = PlayOne();
    plm_->Players.Events.Unheard();
    QCOMPARE(plm_->TextOf("lblStatus"),
             QStringLiteral("Nothing is heard: there is no sound device."));
    QCOMPARE(PictureTip(), QStringLiteral("Now Playing: ") + ToQt(path));
}

void FrmPLMPlayerTest::SavingTheFileThatIsPlayedLetsGoOfIt_data() {
    QTest::addColumn<QString>("button");
    QTest::newRow("save") << QStringLiteral("cmdSaveID3");
    QTest::newRow("fix") << QStringLiteral("cmdFixID3");
}

void FrmPLMPlayerTest::SavingTheFileThatIsPlayedLetsGoOfIt() {
    QFETCH(QString, button);
    PlayOne();
    plm_->Click(button.toLatin1().constData());
    QVERIFY(Log().back() == u"stop");
    QCOMPARE(PictureTip(), QString());
}

void FrmPLMPlayerTest::SavingAnotherFilePlaysOn() {
    DropFiles(2);
    plm_->ClickLine("lstFiles", 0);
    plm_->Click("cmdOpenMP3");
    plm_->ClickLine("lstFiles", 1);
    plm_->Click("cmdSaveID3");
    QCOMPARE(Log().size(), std::size_t{1});
    QVERIFY(!PictureTip().isEmpty());
}

void FrmPLMPlayerTest::TagRunStopsThePlayer() {
    DropFiles(3);
    plm_->ClickLine("lstFiles", 0);
    plm_->Click("cmdOpenMP3");
    plm_->Click("cmdSelectAll");
    plm_->Click("cmdFixID3");
    plm_->Settle();
    QVERIFY(Log().back() == u"stop");
    QCOMPARE(PictureTip(), QString());
}

void FrmPLMPlayerTest::SortedFileIsLetGoOfFirst() {
    plm_->Get<QAbstractButton>("optMethod2").click();
    PlayOne();
    plm_->SetText("txtNewName", QStringLiteral("other.mp3"));
    plm_->Click("cmdSortThisFile");
    plm_->Settle();
    QVERIFY(SystemDisk().Exists(plm_->Folder / u"in/other.mp3"));
    QVERIFY(Log().back() == u"stop");
}

void FrmPLMPlayerTest::ClosedWindowPlaysNothing() {
    PlayOne();
    plm_->Reopen();
    QVERIFY(Log().back() == u"stop");
    QCOMPARE(PictureTip(), QString());
}

void FrmPLMPlayerTest::HelpOpensTheHelpText() {
    test::TextViewer viewer;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &viewer, "open");
    const Text help = plm_->Folder.File(u"program/plm.txt", "help");
    plm_->Trigger("mnuHelpMe");
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QCOMPARE(viewer.Opened.size(), 1);
    QCOMPARE(viewer.Opened[0].toLocalFile(), ToQt(help));
    QCOMPARE(plm_->TextOf("lblStatus"),
             QStringLiteral("The help is in the file \"%1\".").arg(ToQt(help)));
}

void FrmPLMPlayerTest::HelpThatCannotBeOpenedIsTold() {
    // The platform that tests run on opens nothing.
    plm_->Trigger("mnuHelpMe");
    QVERIFY(plm_->TextOf("lblStatus").contains(QStringLiteral("plm.txt")));
}

void FrmPLMPlayerTest::AboutSaysWhichVersionThisIs() {
    plm_->Trigger("mnuAbout");
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QVERIFY(plm_->Ask.Log[0].Kind == PromptKind::Inform);
    const QString body = ToQt(plm_->Ask.Log[0].What.Body);
    QCOMPARE(body, QStringLiteral("Pellmore\r\nVersion: %1.%2\r\nThis is FREEWARE! NO WARRANTY!")
                       .arg(PLM_VERSION_MAJOR)
                       .arg(PLM_VERSION_MINOR));
}

void FrmPLMPlayerTest::ExitClosesTheWindow() {
    plm_->Trigger("mnuExit");
    QVERIFY(!plm_->Window().isVisible());
}

QTEST_MAIN(FrmPLMPlayerTest)
#include "frmPLM_player_test.moc"
