// The real player. GStreamer is kept from every sound device, so its automatic sink falls back to
// its null sink: everything but the last step to the loudspeaker is what users have.
#include "app/dialogs/qt_player.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include "app/shared/qt_text.h"
#include "core/platform/path.h"
#include "core/tags/save_tags.h"
#include "tests/support/places.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

namespace {

/// Silence: whole MPEG 1.0 layer 3 frames of 128 kbit/s and 44100 Hz without side information.
Bytes Silence(int frames) {
    const Bytes frame = Bytes("\xFF\xFB\x90\x64") + Bytes(413, '\0');
    Bytes silence;
    for (int i = 0; i < frames; ++i) silence += frame;
    return silence;
}

bool IsHeldOpen(TextView path) {
    const Bytes nativePath = NativePath(path);
    const QDir handles(QStringLiteral("/proc/self/fd"));
    for (const QFileInfo& handle : handles.entryInfoList(QDir::System | QDir::Files)) {
        QByteArray target(4096, '\0');
        const auto length = readlink(QFile::encodeName(handle.filePath()).constData(),
                                     target.data(), static_cast<std::size_t>(target.size()));
        if (length > 0 && target.left(length).toStdString() == nativePath) return true;
    }
    return false;
}

}  // namespace

class qt_player_test : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { player_.reset(); }
    void aFileIsPlayedToItsEnd();
    void withoutASoundDeviceThatIsSaid();
    void aFileThatWasSavedOverALongTagIsPlayed();
    void stoppingClosesTheFileAtOnce();
    void stoppingIsHarmlessAtAnyMoment();
    void releasingTheFileClosesItAtOnce();
    void aNameInNoEncodingIsPlayed();
    void anotherFileTakesThePlaceOfTheFirst();
    void aFileWithoutMusicSaysWhyOnceAndDoesNotHoldTheWindow();
    void aFileThatCannotBeReadSaysWhy();

private:
    TempFolder folder_;
    std::unique_ptr<MediaPlayer> player_;
    QList<Text> started_;
    int ended_ = 0;
    int unheard_ = 0;
    QStringList faults_;
};

void qt_player_test::initTestCase() {
    qputenv("GST_REGISTRY", QByteArray::fromStdString(NativePath(folder_ / u"registry")));
    qputenv("GST_PLUGIN_FEATURE_RANK",
            "pulsesink:NONE,pipewiresink:NONE,alsasink:NONE,jackaudiosink:NONE,openalsink:NONE,"
            "oss4sink:NONE,osssink:NONE");
}

void qt_player_test::init() {
    started_.clear();
    faults_.clear();
    ended_ = 0;
    unheard_ = 0;
    const QString programFolder = QFileInfo(QString::fromStdString(test::ProgramFile())).path();
    player_ = std::make_unique<MediaPlayer>(
        LoadedPlayers(PlayerFolders(programFolder)),
        PlayerEvents{[this](const Text& file) { started_ << file; }, [this] { ++ended_; },
                     [this](const PlayerFault& fault) { faults_ << PlayerFaultText(fault); },
                     [this] { ++unheard_; }});
}

void qt_player_test::aFileIsPlayedToItsEnd() {
    const Text path = folder_.File(u"50% of #1 å.mp3", Silence(20));
    player_->Play(path);
    QTRY_COMPARE(started_.size(), 1);
    QCOMPARE(started_[0], path);
    QTRY_COMPARE(ended_, 1);
    QVERIFY(player_->FileName().empty());
    QTRY_VERIFY(!IsHeldOpen(path));
    QVERIFY2(faults_.isEmpty(), qPrintable(faults_.join(u'\n')));
}

void qt_player_test::withoutASoundDeviceThatIsSaid() {
    player_->Play(folder_.File(u"quiet.mp3", Silence(20)));
    QTRY_COMPARE(unheard_, 1);
    QCOMPARE(started_.size(), 1);
    QTRY_COMPARE(ended_, 1);
    QVERIFY(faults_.isEmpty());
}

void qt_player_test::aFileThatWasSavedOverALongTagIsPlayed() {
    const Text path = folder_.File(
        u"saved.mp3", test::WholeTag(test::TextFrame("TIT2", "A title"), 20000) + Silence(20));
    ID3v2Tag tag;
    tag.Title = "Another title";
    for (int i = 0; i < 2; ++i)
        QVERIFY(SaveTags(path, {}, tag, {TagMode::Leave, TagMode::Write}).Outcome ==
                SaveOutcome::Written);
    player_->Play(path);
    QTRY_COMPARE(ended_, 1);
    QCOMPARE(started_.size(), 1);
    QVERIFY2(faults_.isEmpty(), qPrintable(faults_.join(u'\n')));
    player_->Play(
        folder_.File(u"padded.mp3", test::TagHeader(0) + Bytes(12128, '\0') + Silence(20)));
    QTRY_COMPARE(ended_, 2);
    QVERIFY2(faults_.isEmpty(), qPrintable(faults_.join(u'\n')));
}

void qt_player_test::stoppingClosesTheFileAtOnce() {
    const Text path = folder_.File(u"long.mp3", Silence(5000));
    player_->Play(path);
    QTRY_COMPARE(started_.size(), 1);
    QVERIFY(IsHeldOpen(path));
    player_->Stop();
    QVERIFY(!IsHeldOpen(path));
    QCOMPARE(ended_, 1);
}

void qt_player_test::stoppingIsHarmlessAtAnyMoment() {
    const Text path = folder_.File(u"hasty.mp3", Silence(5000));
    for (int wait = 0; wait < 30; ++wait) {
        player_->Play(path);
        if (wait > 0) QTest::qWait(wait);
        player_->Stop();
        QVERIFY(!IsHeldOpen(path));
    }
    QCOMPARE(ended_, 30);
    QVERIFY2(faults_.isEmpty(), qPrintable(faults_.join(u'\n')));
}

void qt_player_test::releasingTheFileClosesItAtOnce() {
    const Text path = folder_.File(u"held.mp3", Silence(5000));
    player_->Play(path);
    QTRY_COMPARE(started_.size(), 1);
    player_->Release(folder_ / u"long.mp3");
    QVERIFY(IsHeldOpen(path));
    player_->Release(path);
    QVERIFY(!IsHeldOpen(path));
    QCOMPARE(ended_, 1);
}

void qt_player_test::aNameInNoEncodingIsPlayed() {
    const Text path = folder_.File(u"b\xDCE9n%E9.mp3", Silence(20));
    player_->Play(path);
    QTRY_COMPARE(ended_, 1);
    QCOMPARE(started_.size(), 1);
    QTRY_VERIFY(!IsHeldOpen(path));
    QVERIFY2(faults_.isEmpty(), qPrintable(faults_.join(u'\n')));
}

void qt_player_test::anotherFileTakesThePlaceOfTheFirst() {
    const Text first = folder_.File(u"first.mp3", Silence(5000));
    const Text second = folder_.File(u"second.mp3", Silence(5000));
    player_->Play(first);
    QTRY_COMPARE(started_.size(), 1);
    player_->Play(second);
    QCOMPARE(ended_, 1);
    QVERIFY(!IsHeldOpen(first));
    QTRY_COMPARE(started_.size(), 2);
    QCOMPARE(player_->FileName(), second);
}

void qt_player_test::aFileWithoutMusicSaysWhyOnceAndDoesNotHoldTheWindow() {
    const Text path = folder_.File(u"text.mp3", "no music in here\n");
    player_->Play(path);
    QTRY_COMPARE(faults_.size(), 1);
    QVERIFY(faults_[0].contains(QStringLiteral("text.mp3\" cannot be played: ")));
    QTest::qWait(50);
    QCOMPARE(faults_.size(), 1);
    QVERIFY(started_.isEmpty());
    QTRY_VERIFY(!IsHeldOpen(path));
}

void qt_player_test::aFileThatCannotBeReadSaysWhy() {
    player_->Play(folder_ / u"gone.mp3");
    player_->Play(folder_ / u"g\xDCF6ne.mp3");
    player_->Play(folder_.File(u"empty.mp3"));
    player_->Play(folder_.Folder(u"folder.mp3"));
    QCOMPARE(faults_.size(), 4);
    QVERIFY(faults_[0].endsWith(QStringLiteral("gone.mp3\" cannot be played: File not found")));
    QVERIFY(faults_[2].endsWith(
        QStringLiteral("empty.mp3\" cannot be played: Input past end of file")));
    QVERIFY(player_->FileName().empty());
    QVERIFY(started_.isEmpty());
}

QTEST_MAIN(qt_player_test)
#include "qt_player_test.moc"
