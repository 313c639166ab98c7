// Playing where what it needs is missing: a line that says why, and the program goes on.
#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include "app/dialogs/qt_player.h"
#include "tests/support/places.h"

using namespace mdlPLM;

class qt_player_missing_test : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void withoutThePlayersLibraryAReasonIsGiven();
    void withoutGStreamersPluginsAReasonIsGiven();
    void everyFaultIsWorded();

private:
    QString FaultOf(const QString& programFolder);
    QTemporaryDir empty_;
};

void qt_player_missing_test::initTestCase() {
    // Read when GStreamer is first used in the process: it finds no plug-in at all.
    qputenv("GST_PLUGIN_SYSTEM_PATH_1_0", empty_.path().toUtf8());
    qputenv("GST_REGISTRY", empty_.filePath(QStringLiteral("registry")).toUtf8());
}

QString qt_player_missing_test::FaultOf(const QString& programFolder) {
    QStringList faults;
    MediaPlayer player(
        LoadedPlayers(PlayerFolders(programFolder)),
        PlayerEvents{[&](const Text&) { faults << QStringLiteral("started"); },
                     [&] { faults << QStringLiteral("ended"); },
                     [&](const PlayerFault& fault) { faults << PlayerFaultText(fault); }});
    player.Play(u"/m/a.mp3");
    player.Stop();
    return faults.join(u'\n');
}

void qt_player_missing_test::withoutThePlayersLibraryAReasonIsGiven() {
    const QString fault = FaultOf(empty_.path());
    QVERIFY2(fault.startsWith(QStringLiteral("Nothing is played: Qt Multimedia is missing (")),
             qPrintable(fault));
    QVERIFY(!fault.contains(u'\n'));
}

void qt_player_missing_test::withoutGStreamersPluginsAReasonIsGiven() {
    const QString fault = FaultOf(QFileInfo(QString::fromStdString(test::ProgramFile())).path());
    QVERIFY2(fault.startsWith(QStringLiteral("Nothing is played: please install GStreamer's base "
                                             "and good plug-ins (missing: ")),
             qPrintable(fault));
    QVERIFY(fault.contains(QStringLiteral("autoaudiosink")));
    QVERIFY(fault.contains(QStringLiteral("volume")));
    QVERIFY(!fault.contains(u'\n'));
}

void qt_player_missing_test::everyFaultIsWorded() {
    using Kind = PlayerFault::Kind;
    QCOMPARE(PlayerFaultText({Kind::NoPlayer, u"/a", u"no\nfile"}),
             QStringLiteral("Nothing is played: Qt Multimedia is missing (no file)."));
    QCOMPARE(PlayerFaultText({Kind::NoSoundDevice, u"/a", u""}),
             QStringLiteral("Nothing is played: there is no sound device."));
    QCOMPARE(PlayerFaultText({Kind::CannotPlay, u"/a%2.mp3", u"%1 broken"}),
             QStringLiteral("The file \"/a%2.mp3\" cannot be played: %1 broken"));
}

QTEST_MAIN(qt_player_missing_test)
#include "qt_player_missing_test.moc"
