// The tag panel in the real window: one file, all selected files, and what ends up on disk.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include "app/dialogs/frmEdit.h"
#include "app/dialogs/frmMoreID3v2.h"
#include "core/platform/path.h"
#include "core/tags/file_tags.h"
#include "core/text/code_page.h"
#include "tests/support/collected_errors.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_modal.h"
#include "tests/support/real_mp3.h"
#include "tests/support/tools.h"

using namespace mdlPLM;

namespace {

const QStringList TextBoxes{
    QStringLiteral("txtTitle"),       QStringLiteral("txtArtist"),
    QStringLiteral("txtAlbum"),       QStringLiteral("txtYear"),
    QStringLiteral("cmbGenre"),       QStringLiteral("txtTrackNr"),
    QStringLiteral("txtComments"),    QStringLiteral("txtV2Title"),
    QStringLiteral("txtV2Artist"),    QStringLiteral("txtV2Album"),
    QStringLiteral("txtV2Year"),      QStringLiteral("cmbV2Genre"),
    QStringLiteral("txtV2Track"),     QStringLiteral("txtV2Comments"),
    QStringLiteral("txtV2Composer"),  QStringLiteral("txtV2OrigArtist"),
    QStringLiteral("txtV2Copyright"), QStringLiteral("txtV2URL"),
    QStringLiteral("txtV2Encoder"),
};

const QStringList StreamLabels{
    QStringLiteral("txtfVersion"),    QStringLiteral("txtfLayer"),
    QStringLiteral("txtfBitrate"),    QStringLiteral("txtfFrequency"),
    QStringLiteral("txtfCopyright"),  QStringLiteral("txtfOriginal"),
    QStringLiteral("txtfProtection"), QStringLiteral("txtfEmphasis"),
    QStringLiteral("txtfHeader"),     QStringLiteral("txtfID3v1"),
    QStringLiteral("txtfID3v2"),      QStringLiteral("txtfSize"),
    QStringLiteral("txtfLength"),
};

FileTags TagsOf(const Text& path) {
    CollectedErrors errors;
    return ReadFileTags(path, ID3v2Parts::Everything, errors);
}

Bytes V1Text(const Bytes& field) { return FieldText(field); }

}  // namespace

class FrmPLMTagpanelTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { plm_.reset(); }

    void ControlsAreNamedAsWorded();
    void GenreBoxesBeginEmptyAndHoldTheirLists();
    void ShowsBothTagsAndTheStreamOfOneFile();
    void TheWindowAnswersWhileALargeFileIsSearched();
    void TheSearchRestsWhileOtherWorkIsUnderWay();
    void NothingSelectedShowsNothing();
    void SecondSelectedFileEmptiesThePanel();
    void PanelOfManyFilesFitsIntoASmallWindow();
    void EditedFileIsSavedAndSeenAgain();
    void LongTextIsSeenFromItsBeginningAndWholeAsTip();
    void UntickedVersionIsLeftAlone();
    void SavingNothingSelectedSaysSo();
    void TypedTextFeedsTheNewName();
    void BoxesTakeOnlyTheirCharacters();
    void LineBreaksCannotBePasted();
    void OptimizedLayoutLimitsTheArtistBox();
    void CopiesBetweenTheVersions();
    void ChosenGenreIsTaken();
    void WheelOverGenreBoxChangesNothing();
    void BatchQuestionIsWordedInFull();
    void BatchQuestionOfEmptyBoxesListsTheHeadings();
    void BatchPutsTwoFieldsIntoEveryFile();
    void BatchRefusedChangesNothing();
    void BatchRemovesEachVersion_data();
    void BatchRemovesEachVersion();
    void BatchNamesFilesThatFailAndWritesTheOthers();
    void BatchCanBeStopped();
    void FileSelectedDuringBatchIsShownAsItWasWritten();
    void FixCleansMixedSelection();
    void FixCleansTheShownFile();
    void FailedSaveIsReportedBesideTheFileAndKeepsTheBoxes();
    void SavingRenewsPreviewAndNewName();
    void PreviewLineEditedByHandStays();
    void MoreShowsTheOtherFramesAndTheyAreSaved();
    void AddingInMoreTicksTheTagAndOtherProgramsFindTheFrame();
    void AfterASortThePanelIsBlank();
    void MenuEntriesDoWhatTheButtonsDo();

private:
    /// Files "1.mp3" to "n.mp3" with both tags, "artist n" and "title n" on "Old Album", in a
    /// folder that is dropped.
    std::vector<Text> DropTagged(int count) {
        std::vector<Text> paths;
        for (int i = 1; i <= count; ++i) {
            const std::string number = std::to_string(i);
            paths.push_back(plm_->Folder.File(u"in/" + FromAscii(number) + u".mp3", EncodedMp3()));
            TagByPeer(paths.back(),
                      {"artist " + number, "title " + number, "Old Album", "1999", number, 17});
        }
        plm_->Drop("lstFiles", {plm_->Folder / u"in"});
        return paths;
    }
    [[nodiscard]] bool Checked(const char* box) { return plm_->Get<QCheckBox>(box).isChecked(); }
    [[nodiscard]] QString Texts() {
        QString all;
        for (const QString& box : TextBoxes) all += plm_->TextOf(box.toLatin1().constData());
        return all;
    }

    std::unique_ptr<MainWindow> plm_;
};

void FrmPLMTagpanelTest::init() {
    plm_ = std::make_unique<MainWindow>();
    plm_->Context.Values.OutPattern = u"%artist - %title.mp3";
    plm_->Open();
}

void FrmPLMTagpanelTest::ControlsAreNamedAsWorded() {
    const QList<QPair<const char*, const char*>> captions{
        {"chkID3v1", "ID3v1 tag"},
        {"chkID3v2", "ID3v2 tag"},
        {"chkID3v1Rem", "Remove!"},
        {"chkID3v2Rem", "Remove!"},
        {"cmdCopyFromV1", "Copy from ID3v1"},
        {"cmdCopyToV1", "Copy to ID3v1"},
        {"cmdFixID3", "Fix ID3"},
        {"cmdSaveID3", "Save ID3"},
        {"cmdMore", "More"},
    };
    for (const auto& [name, caption] : captions)
        QCOMPARE(plm_->TextOf(name), QString::fromLatin1(caption));
    QCOMPARE(plm_->Get<QWidget>("fraTags").property("title").toString(),
             QStringLiteral("File ID3 info:"));
    const QList<QPair<const char*, const char*>> tips{
        {"chkID3v1Rem", "Remove ID3v1 tags from all selected files."},
        {"chkID3v2Rem", "Remove ID3v2 tags from all selected files."},
        {"cmdFixID3", "Clean up the ID3 tags."},
        {"cmdSaveID3", "Save changes to ID3-tags."},
        {"cmdMore", "Show other \"hidden\" ID3v2 frames in the file."},
    };
    DropTagged(1);
    plm_->ClickLine("lstFiles", 0);
    for (const auto& [name, tip] : tips)
        QCOMPARE(plm_->Get<QWidget>(name).toolTip(), QString::fromLatin1(tip));
    // Why a button cannot be used stands behind its tool tip.
    plm_->Click("cmdSelectNone");
    QCOMPARE(plm_->Get<QWidget>("cmdMore").toolTip(),
             QStringLiteral("Show other \"hidden\" ID3v2 frames in the file. "
                            "Select one file first."));
    for (const QString& name : TextBoxes + StreamLabels)
        QVERIFY2(plm_->Window().findChild<QWidget*>(name) != nullptr, qPrintable(name));
}

void FrmPLMTagpanelTest::GenreBoxesBeginEmptyAndHoldTheirLists() {
    const auto& v1 = plm_->Get<QComboBox>("cmbGenre");
    const auto& v2 = plm_->Get<QComboBox>("cmbV2Genre");
    QCOMPARE(v1.count(), 149);
    QCOMPARE(v2.count(), 149);
    QCOMPARE(v1.itemText(0), QString());
    QCOMPARE(v1.itemText(1), QStringLiteral("A Capella"));
    QVERIFY(v1.findText(QStringLiteral("National Folk"), Qt::MatchExactly) > 0);
    QVERIFY(v2.findText(QStringLiteral("Natianal Folk"), Qt::MatchExactly) > 0);
    QCOMPARE(v2.findText(QStringLiteral("National Folk"), Qt::MatchExactly), -1);
}

void FrmPLMTagpanelTest::ShowsBothTagsAndTheStreamOfOneFile() {
    DropTagged(1);
    plm_->ClickLine("lstFiles", 0);
    QVERIFY(Checked("chkID3v1"));
    QVERIFY(Checked("chkID3v2"));
    QCOMPARE(plm_->TextOf("txtTitle"), QStringLiteral("title 1"));
    QCOMPARE(plm_->TextOf("txtArtist"), QStringLiteral("artist 1"));
    QCOMPARE(plm_->TextOf("txtAlbum"), QStringLiteral("Old Album"));
    QCOMPARE(plm_->TextOf("txtYear"), QStringLiteral("1999"));
    QCOMPARE(plm_->TextOf("txtTrackNr"), QStringLiteral("1"));
    QCOMPARE(plm_->TextOf("cmbGenre"), QStringLiteral("Rock"));
    QCOMPARE(plm_->TextOf("txtV2Title"), QStringLiteral("title 1"));
    QCOMPARE(plm_->TextOf("txtV2Year"), QStringLiteral("1999"));
    QCOMPARE(plm_->TextOf("cmbV2Genre"), QStringLiteral("Rock"));
    QCOMPARE(plm_->TextOf("txtfVersion"), QStringLiteral("MPEG 1.0"));
    QCOMPARE(plm_->TextOf("txtfLayer"), QStringLiteral("layer 3"));
    QCOMPARE(plm_->TextOf("txtfBitrate"), QStringLiteral("64kbps"));
    QCOMPARE(plm_->TextOf("txtfFrequency"), QStringLiteral("44100Hz Mono"));
    QCOMPARE(plm_->TextOf("txtfID3v1"), QStringLiteral("ID3v1: 1.1"));
    QVERIFY(plm_->TextOf("txtfID3v2").startsWith(QLatin1String("ID3v2: 3.0")));
    QVERIFY(plm_->TextOf("txtfHeader").startsWith(QLatin1String("Header:11111111111")));
    QVERIFY(!plm_->Get<QWidget>("chkID3v1Rem").isVisible());
    QVERIFY(!plm_->Get<QWidget>("chkID3v2Rem").isVisible());
}

// Turns of the event loop, not time: each is one in which a window can answer.
void FrmPLMTagpanelTest::TheWindowAnswersWhileALargeFileIsSearched() {
    const Text large = plm_->Folder.File(u"in/1.mp3");
    SetFileLength(large, 64LL << 30);
    const Text later = plm_->Folder.File(u"in/2.mp3", Bytes(std::size_t{40} << 20, '\0'));
    WriteFile(later, ReadFile(later) + EncodedMp3());
    const Text song = plm_->Folder.File(u"in/3.mp3", EncodedMp3());
    plm_->Drop("lstFiles", {large, later, song});
    plm_->ClickLine("lstFiles", 0);
    QCOMPARE(plm_->TextOf("txtfSize"), QStringLiteral("Size: 68719476736b"));
    for (int turn = 0; turn < 5; ++turn) {
        QCoreApplication::processEvents();
        QCOMPARE(plm_->TextOf("txtfVersion"), QStringLiteral("Searching: 0 %"));
    }
    plm_->SetText("txtTitle", QStringLiteral("typed meanwhile"));
    QCOMPARE(plm_->TextOf("txtTitle"), QStringLiteral("typed meanwhile"));

    plm_->ClickLine("lstFiles", 2);
    QCOMPARE(plm_->TextOf("txtfVersion"), QStringLiteral("MPEG 1.0"));
    QCOMPARE(plm_->TextOf("txtfBitrate"), QStringLiteral("64kbps"));
    for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
    QCOMPARE(plm_->TextOf("txtfVersion"), QStringLiteral("MPEG 1.0"));

    plm_->ClickLine("lstFiles", 1);
    QVERIFY(plm_->TextOf("txtfVersion").startsWith(QLatin1String("Searching: ")));
    QTRY_COMPARE(plm_->TextOf("txtfVersion"), QStringLiteral("MPEG 1.0"));
    QVERIFY(plm_->TextOf("txtfLength").startsWith(QLatin1String("Length: ")));
}

void FrmPLMTagpanelTest::TheSearchRestsWhileOtherWorkIsUnderWay() {
    const Text later = plm_->Folder.File(u"in/large.mp3");
    SetFileLength(later, 64LL << 30);
    const std::vector<Text> songs = DropTagged(3);
    plm_->Drop("lstFiles", {later});
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtAlbum", QStringLiteral("New Album"));
    plm_->WorkStepByStep();
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click("cmdSaveID3");
    QVERIFY(plm_->Busy());
    plm_->ClickLine("lstFiles", 3);
    const auto searching = [this] {
        for (const QTimer* timer : plm_->Get<QWidget>("frmPLM_tagpanel").findChildren<QTimer*>())
            if (timer->isActive()) return true;
        return false;
    };
    QVERIFY(!searching());
    plm_->Get<QAbstractButton>("cmdStop").click();
    plm_->Settle();
    QVERIFY(searching());
    QCOMPARE(plm_->TextOf("txtfVersion"), QStringLiteral("Searching: 0 %"));
}

void FrmPLMTagpanelTest::NothingSelectedShowsNothing() {
    DropTagged(1);
    plm_->ClickLine("lstFiles", 0);
    plm_->Click("cmdSelectNone");
    QCOMPARE(Texts(), QString());
    QVERIFY(!Checked("chkID3v1"));
    QVERIFY(!Checked("chkID3v2"));
    QCOMPARE(plm_->Get<QComboBox>("cmbGenre").currentIndex(), 0);
    for (const QString& label : StreamLabels)
        QCOMPARE(plm_->TextOf(label.toLatin1().constData()), QString());
    QVERIFY(!plm_->Get<QWidget>("cmdMore").isEnabled());
}

void FrmPLMTagpanelTest::SecondSelectedFileEmptiesThePanel() {
    DropTagged(2);
    plm_->ClickLine("lstFiles", 0);
    plm_->ClickLine("lstFiles", 1, Qt::ControlModifier);
    QCOMPARE(Texts(), QString());
    for (const char* box : {"chkID3v1", "chkID3v2", "chkID3v1Rem", "chkID3v2Rem"})
        QVERIFY2(!Checked(box), box);
    QVERIFY(plm_->Get<QWidget>("chkID3v1Rem").isVisible());
    QVERIFY(plm_->Get<QWidget>("chkID3v2Rem").isVisible());
    plm_->Click("chkID3v1Rem");
    plm_->ClickLine("lstFiles", 1);
    QVERIFY(!plm_->Get<QWidget>("chkID3v1Rem").isVisible());
    plm_->ClickLine("lstFiles", 0, Qt::ControlModifier);
    QVERIFY(!Checked("chkID3v1Rem"));
}

void FrmPLMTagpanelTest::PanelOfManyFilesFitsIntoASmallWindow() {
    plm_->Window().resize(1024, 768);
    DropTagged(2);
    plm_->Click("cmdSelectAll");
    QVERIFY(plm_->Get<QWidget>("chkID3v2Rem").isVisible());
    QCoreApplication::processEvents();
    const auto& area = plm_->Get<QScrollArea>("scrTags");
    QCOMPARE(area.horizontalScrollBar()->maximum(), 0);
    QCOMPARE(plm_->Window().width(), 1024);
}

void FrmPLMTagpanelTest::EditedFileIsSavedAndSeenAgain() {
    const std::vector<Text> paths = DropTagged(2);
    plm_->ClickLine("lstFiles", 0);
    const QMap<QString, QString> entered{
        {QStringLiteral("txtTitle"), QStringLiteral("New Title")},
        {QStringLiteral("txtYear"), QStringLiteral("2001")},
        {QStringLiteral("cmbGenre"), QStringLiteral("Trance")},
        {QStringLiteral("txtTrackNr"), QStringLiteral("12")},
        {QStringLiteral("txtV2Artist"), QStringLiteral("New Artist")},
        {QStringLiteral("txtV2Comments"), QStringLiteral("a comment")},
        {QStringLiteral("txtV2Composer"), QStringLiteral("a composer")},
        {QStringLiteral("txtV2URL"), QStringLiteral("http://example.org/")},
    };
    for (auto box = entered.begin(); box != entered.end(); ++box)
        plm_->SetText(box.key().toLatin1().constData(), box.value());
    plm_->SetText("cmbV2Genre", QStringLiteral("Trance"));
    plm_->Click("cmdSaveID3");
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("The tags were saved."));
    plm_->ClickLine("lstFiles", 1);
    plm_->ClickLine("lstFiles", 0);
    for (auto box = entered.begin(); box != entered.end(); ++box)
        QCOMPARE(plm_->TextOf(box.key().toLatin1().constData()), box.value());
    // A genre that is written as its name is not read back. Intended.
    QCOMPARE(plm_->TextOf("cmbV2Genre"), QString());
    QCOMPARE(V1Text(TagsOf(paths[0]).V1.Title), Bytes("New Title"));
    QCOMPARE(V1Text(TagsOf(paths[0]).V1.Artist), Bytes("artist 1"));
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
}

void FrmPLMTagpanelTest::LongTextIsSeenFromItsBeginningAndWholeAsTip() {
    const std::string title(120, 'm');
    const Text path = plm_->Folder.File(u"a.mp3", EncodedMp3());
    TagByPeer(path, {"short", title, "", "", "", -1}, PeerVersion::V2);
    plm_->Drop("lstFiles", {path});
    plm_->ClickLine("lstFiles", 0);
    const auto tipOf = [this](const char* name) {
        auto& box = plm_->Get<QLineEdit>(name);
        QEvent enter(QEvent::Enter);
        QApplication::sendEvent(&box, &enter);
        return box.toolTip();
    };
    QCOMPARE(plm_->Get<QLineEdit>("txtV2Title").cursorPosition(), 0);
    QCOMPARE(tipOf("txtV2Title"), plm_->TextOf("txtV2Title"));
    QCOMPARE(plm_->TextOf("txtV2Title").size(), 120);
    QCOMPARE(tipOf("txtV2Artist"), QString());
    QCOMPARE(plm_->Get<QLineEdit>("txtNewName").cursorPosition(), 0);
}

void FrmPLMTagpanelTest::UntickedVersionIsLeftAlone() {
    const Text path = DropTagged(1)[0];
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtTitle", QStringLiteral("one"));
    plm_->SetText("txtV2Title", QStringLiteral("two"));
    plm_->Click("chkID3v1");
    plm_->Click("cmdSaveID3");
    QCOMPARE(V1Text(TagsOf(path).V1.Title), Bytes("title 1"));
    QCOMPARE(TagsOf(path).V2.Title, Bytes("two"));
}

void FrmPLMTagpanelTest::SavingNothingSelectedSaysSo() {
    DropTagged(1);
    for (const char* button : {"cmdSaveID3", "cmdFixID3"}) {
        plm_->Click("cmdClear");
        plm_->Click(button);
        QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("No file is selected."));
    }
}

void FrmPLMTagpanelTest::TypedTextFeedsTheNewName() {
    const Text path = plm_->Folder.File(u"robyn - hang with me.mp3", EncodedMp3());
    TagByPeer(path, {"Abba", "SOS", "", "", "", -1});
    plm_->Drop("lstFiles", {path});
    plm_->ClickLine("lstFiles", 0);
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Abba - Sos.mp3"));
    plm_->SetText("txtV2Title", QStringLiteral("typed"));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Abba - Typed.mp3"));
    plm_->SetText("txtV2Title", {});
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Abba - Sos.mp3"));
    plm_->SetText("txtTitle", QStringLiteral("of the first tag"));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Abba - Of The First Tag.mp3"));
    plm_->Click("chkID3v1");
    plm_->Click("chkID3v2");
    // Without a tag the name comes from the old one.
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Robyn - Hang With Me.mp3"));
}

void FrmPLMTagpanelTest::BoxesTakeOnlyTheirCharacters() {
    DropTagged(2);
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtYear", QStringLiteral("2*0a0-4"));
    QCOMPARE(plm_->TextOf("txtYear"), QStringLiteral("2004"));
    plm_->SetText("txtTrackNr", QStringLiteral("1/2*x"));
    QCOMPARE(plm_->TextOf("txtTrackNr"), QStringLiteral("12"));
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtYear", QStringLiteral("*2x"));
    QCOMPARE(plm_->TextOf("txtYear"), QStringLiteral("*2"));
    plm_->SetText("txtV2Year", QStringLiteral("2004-05/06+x*"));
    QCOMPARE(plm_->TextOf("txtV2Year"), QStringLiteral("2004-05/06+*"));
    plm_->SetText("txtV2Track", QStringLiteral("*3/4"));
    QCOMPARE(plm_->TextOf("txtV2Track"), QStringLiteral("*34"));
}

void FrmPLMTagpanelTest::LineBreaksCannotBePasted() {
    DropTagged(1);
    plm_->ClickLine("lstFiles", 0);
    auto& box = plm_->Get<QLineEdit>("txtV2Comments");
    box.setFocus();
    box.selectAll();
    box.insert(QStringLiteral("one\r\ntwo"));
    QVERIFY(!box.text().contains(u'\n'));
    QVERIFY(!box.text().contains(u'\r'));
    QVERIFY(box.text().startsWith(QLatin1String("one")));
    QVERIFY(box.text().endsWith(QLatin1String("two")));
}

void FrmPLMTagpanelTest::OptimizedLayoutLimitsTheArtistBox() {
    plm_->Context.Values.bOptimizedID3v1 = true;
    DropTagged(1);
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtAlbum", QString(30, u'b'));
    plm_->SetText("txtArtist", QString(80, u'a'));
    QCOMPARE(plm_->TextOf("txtArtist").size(), 29);
    plm_->SetText("txtAlbum", {});
    plm_->SetText("txtArtist", QString(80, u'a'));
    QCOMPARE(plm_->TextOf("txtArtist").size(), 59);
}

void FrmPLMTagpanelTest::CopiesBetweenTheVersions() {
    const Text path = plm_->Folder.File(u"plain.mp3", EncodedMp3());
    plm_->Drop("lstFiles", {path});
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtV2Title", QString(40, u't'));
    plm_->SetText("txtV2Year", QStringLiteral("2004-05"));
    plm_->SetText("txtV2Comments", QString(40, u'c'));
    plm_->Click("chkID3v2");
    plm_->Click("cmdCopyToV1");
    QVERIFY(Checked("chkID3v1"));
    QCOMPARE(plm_->TextOf("txtTitle"), QString(30, u't'));
    QCOMPARE(plm_->TextOf("txtYear"), QStringLiteral("2004"));
    QCOMPARE(plm_->TextOf("txtComments"), QString(28, u'c'));
    QCOMPARE(plm_->Get<QComboBox>("cmbGenre").currentIndex(), 0);
    plm_->SetText("txtArtist", QStringLiteral("from v1"));
    plm_->SetText("cmbGenre", QStringLiteral("Rock"));
    QVERIFY(plm_->Get<QWidget>("cmdCopyFromV1").isEnabled());
    plm_->Click("cmdCopyFromV1");
    QCOMPARE(plm_->TextOf("txtV2Artist"), QStringLiteral("from v1"));
    QCOMPARE(plm_->TextOf("cmbV2Genre"), QStringLiteral("Rock"));
    QCOMPARE(plm_->TextOf("txtV2Title"), QString(30, u't'));
    QVERIFY(plm_->Get<QWidget>("cmdCopyToV1").isEnabled());
}

void FrmPLMTagpanelTest::ChosenGenreIsTaken() {
    const Text path = DropTagged(1)[0];
    plm_->ClickLine("lstFiles", 0);
    auto& box = plm_->Get<QComboBox>("cmbGenre");
    box.setFocus();
    box.setCurrentIndex(box.findText(QStringLiteral("Polka")));
    plm_->Click("cmdSaveID3");
    QCOMPARE(static_cast<int>(TagsOf(path).V1.Genre), 75);
    box.setCurrentIndex(0);
    plm_->Click("cmdSaveID3");
    QCOMPARE(TagsOf(path).V1.Genre, NoGenre);
}

void FrmPLMTagpanelTest::WheelOverGenreBoxChangesNothing() {
    DropTagged(1);
    plm_->ClickLine("lstFiles", 0);
    auto& box = plm_->Get<QComboBox>("cmbGenre");
    const QPointF place(5, 5);
    QWheelEvent wheel(place, box.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &wheel);
    QCOMPARE(plm_->TextOf("cmbGenre"), QStringLiteral("Rock"));
}

void FrmPLMTagpanelTest::BatchQuestionIsWordedInFull() {
    DropTagged(2);
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtAlbum", QStringLiteral("A"));
    plm_->SetText("cmbGenre", QStringLiteral("Rock"));
    plm_->SetText("txtTrackNr", QStringLiteral("3"));
    plm_->SetText("txtV2Title", QStringLiteral("T"));
    plm_->SetText("txtV2URL", QStringLiteral("U"));
    plm_->SetText("txtV2OrigArtist", QStringLiteral("O"));
    plm_->SetText("txtV2Encoder", QStringLiteral("E"));
    plm_->Ask.Answers = {Answer::No};
    plm_->Click("cmdSaveID3");
    QCOMPARE(plm_->Ask.Log.at(0).Kind, PromptKind::YesNo);
    QCOMPARE(ToQt(plm_->Ask.Log.at(0).What.Body),
             QStringLiteral("The following attributes will be changed for ALL selected files:"
                            "\r\n\r\nID3v1 (ID3v1 will be added if nonexistent):"
                            "\r\nAlbum: A\r\nGenre: Rock\r\nTrack: 3"
                            "\r\n\r\nID3v2 (ID3v2 will be added if nonexistent):"
                            "\r\nTitle: T\r\nOriginal Artist: O\r\nEncoded By: E\r\nURL: U"));
}

void FrmPLMTagpanelTest::BatchQuestionOfEmptyBoxesListsTheHeadings() {
    DropTagged(2);
    plm_->Click("cmdSelectAll");
    plm_->Ask.Answers = {Answer::No};
    plm_->Click("cmdSaveID3");
    QCOMPARE(ToQt(plm_->Ask.Log.at(0).What.Body),
             QStringLiteral("The following attributes will be changed for ALL selected files:"
                            "\r\n\r\nID3v1 (ID3v1 will be added if nonexistent):"
                            "\r\n\r\nID3v2 (ID3v2 will be added if nonexistent):"));
}

void FrmPLMTagpanelTest::BatchPutsTwoFieldsIntoEveryFile() {
    const std::vector<Text> paths = DropTagged(5);
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtAlbum", QStringLiteral("New Album"));
    plm_->SetText("txtV2Album", QStringLiteral("New Album"));
    plm_->SetText("txtV2Year", QStringLiteral("2003"));
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click("cmdSaveID3");
    plm_->Settle();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(ToQt(plm_->Ask.Log[0].What.Body),
             QStringLiteral("The following attributes will be changed for ALL selected files:"
                            "\r\n\r\nID3v1 (ID3v1 will be added if nonexistent):"
                            "\r\nAlbum: New Album"
                            "\r\n\r\nID3v2 (ID3v2 will be added if nonexistent):"
                            "\r\nAlbum: New Album\r\nYear: 2003"));
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const FileTags tags = TagsOf(paths[i]);
        QCOMPARE(V1Text(tags.V1.Album), Bytes("New Album"));
        QCOMPARE(V1Text(tags.V1.Year), Bytes("1999"));
        QCOMPARE(V1Text(tags.V1.Title), "title " + std::to_string(i + 1));
        QCOMPARE(tags.V2.Album, Bytes("New Album"));
        QCOMPARE(tags.V2.Year, Bytes("2003"));
        QCOMPARE(tags.V2.Title, "title " + std::to_string(i + 1));
    }
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("5 done, 0 skipped, 0 failed"));
    QCOMPARE(plm_->SelectedRows().size(), 5);
    QCOMPARE(Texts(), QString());
}

void FrmPLMTagpanelTest::BatchRefusedChangesNothing() {
    const std::vector<Text> paths = DropTagged(2);
    const Bytes before = ReadFile(paths[1]);
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtAlbum", QStringLiteral("New Album"));
    plm_->Ask.Answers = {Answer::No};
    plm_->Click("cmdSaveID3");
    plm_->Settle();
    QCOMPARE(ReadFile(paths[1]), before);
    QCOMPARE(plm_->TextOf("txtAlbum"), QStringLiteral("New Album"));
}

void FrmPLMTagpanelTest::BatchRemovesEachVersion_data() {
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("line");
    QTest::newRow("ID3v1") << QByteArray("chkID3v1Rem")
                           << QStringLiteral("ID3v1 tags will be REMOVED!");
    QTest::newRow("ID3v2") << QByteArray("chkID3v2Rem")
                           << QStringLiteral("ID3v2 tags will be REMOVED!");
}

void FrmPLMTagpanelTest::BatchRemovesEachVersion() {
    QFETCH(QByteArray, box);
    QFETCH(QString, line);
    const bool first = box == "chkID3v1Rem";
    const std::vector<Text> paths = DropTagged(3);
    plm_->Click("cmdSelectAll");
    plm_->Click(box.constData());
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click("cmdSaveID3");
    plm_->Settle();
    QVERIFY(ToQt(plm_->Ask.Log.at(0).What.Body).contains(line));
    for (const Text& path : paths) {
        QCOMPARE(TagsOf(path).V1.Present(), !first);
        QCOMPARE(TagsOf(path).V2.Present(), first);
        QVERIFY(ReadFile(path).find(EncodedMp3()) != Bytes::npos);
    }
}

void FrmPLMTagpanelTest::BatchNamesFilesThatFailAndWritesTheOthers() {
    const std::vector<Text> paths = DropTagged(3);
    plm_->Click("cmdSelectAll");
    QVERIFY(plm_->Disk.DeleteFile(paths[1]).Ok());
    plm_->SetText("txtAlbum", QStringLiteral("New Album"));
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click("cmdSaveID3");
    plm_->Settle();
    QCOMPARE(V1Text(TagsOf(paths[0]).V1.Album), Bytes("New Album"));
    QCOMPARE(V1Text(TagsOf(paths[2]).V1.Album), Bytes("New Album"));
    QVERIFY(!IsThere(paths[1]));
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{2});
    QCOMPARE(plm_->Ask.Log[1].Kind, PromptKind::Critical);
    QVERIFY(ToQt(plm_->Ask.Log[1].What.Body).contains(ToQt(paths[1])));
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("2 done, 0 skipped, 1 failed"));
    // What was entered stays for another try.
    QCOMPARE(plm_->TextOf("txtAlbum"), QStringLiteral("New Album"));
}

void FrmPLMTagpanelTest::BatchCanBeStopped() {
    const std::vector<Text> paths = DropTagged(6);
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtAlbum", QStringLiteral("New Album"));
    plm_->WorkStepByStep();
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click("cmdSaveID3");
    QVERIFY(plm_->Busy());
    QVERIFY(!plm_->Get<QWidget>("cmdSaveID3").isEnabled());
    plm_->Get<QAbstractButton>("cmdStop").click();
    plm_->Settle();
    QCOMPARE(V1Text(TagsOf(paths.front()).V1.Album), Bytes("New Album"));
    QCOMPARE(V1Text(TagsOf(paths.back()).V1.Album), Bytes("Old Album"));
    QVERIFY(plm_->TextOf("lblStatus").startsWith(QLatin1String("Stopped. ")));
}

void FrmPLMTagpanelTest::FileSelectedDuringBatchIsShownAsItWasWritten() {
    DropTagged(6);
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtV2Album", QStringLiteral("New Album"));
    plm_->WorkStepByStep();
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click("cmdSaveID3");
    QVERIFY(plm_->Busy());
    plm_->ClickLine("lstFiles", 5);
    plm_->Settle();
    QCOMPARE(plm_->TextOf("txtV2Title"), QStringLiteral("title 6"));
    QCOMPARE(plm_->TextOf("txtV2Album"), QStringLiteral("New Album"));
    QVERIFY(!plm_->Get<QWidget>("chkID3v1Rem").isVisible());
}

void FrmPLMTagpanelTest::FixCleansMixedSelection() {
    const TempFolder& folder = plm_->Folder;
    const Text both = folder.File(u"in/both.mp3", EncodedMp3());
    TagByPeer(both, {"THE_KNIFE", "heartbeats", "deep%20cuts", "2003", "2", 17});
    const Text first = folder.File(u"in/robyn - hang_with_me.mp3", EncodedMp3());
    TagByPeer(first, {"", "", "body  talk", "2010", "", -1}, PeerVersion::V1);
    const Text none = folder.File(u"in/none.mp3", EncodedMp3());
    plm_->Drop("lstFiles", {folder / u"in"});
    plm_->Click("cmdSelectAll");
    plm_->Click("cmdFixID3");
    plm_->Settle();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
    QCOMPARE(V1Text(TagsOf(both).V1.Artist), Bytes("The Knife"));
    QCOMPARE(TagsOf(both).V2.Artist, Bytes("The Knife"));
    QCOMPARE(TagsOf(both).V2.Title, Bytes("Heartbeats"));
    QCOMPARE(TagsOf(both).V2.Album, Bytes("Deep Cuts"));
    QCOMPARE(V1Text(TagsOf(first).V1.Album), Bytes("Body Talk"));
    QCOMPARE(V1Text(TagsOf(first).V1.Artist), Bytes("robyn"));
    QCOMPARE(V1Text(TagsOf(first).V1.Title), Bytes("hang with me"));
    QVERIFY(!TagsOf(first).V2.Present());
    QCOMPARE(ReadFile(none), EncodedMp3());
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("2 done, 1 skipped, 0 failed"));
    // What became of each file can be seen though none failed.
    QVERIFY(plm_->Get<QWidget>("cmdDetails").isVisible());
    QString details;
    OnNextModal<QDialog>([&details](QDialog& dialog) {
        details = dialog.findChild<QPlainTextEdit*>()->toPlainText();
        dialog.reject();
    });
    plm_->Click("cmdDetails");
    QCOMPARE(details.count(QLatin1String("Done: ")), 2);
    QVERIFY(details.contains(QLatin1String("Skipped: \"") + ToQt(none)));
}

void FrmPLMTagpanelTest::FixCleansTheShownFile() {
    const Text path = DropTagged(1)[0];
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtV2Title", QStringLiteral("some_TITLE"));
    plm_->Click("chkID3v1");
    plm_->Click("cmdFixID3");
    QCOMPARE(plm_->TextOf("txtV2Title"), QStringLiteral("Some Title"));
    QCOMPARE(TagsOf(path).V2.Title, Bytes("Some Title"));
    QCOMPARE(V1Text(TagsOf(path).V1.Title), Bytes("title 1"));
}

void FrmPLMTagpanelTest::FailedSaveIsReportedBesideTheFileAndKeepsTheBoxes() {
    const Text path = DropTagged(1)[0];
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtTitle", QStringLiteral("New Title"));
    QVERIFY(plm_->Disk.DeleteFile(path).Ok());
    plm_->Click("cmdSaveID3");
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->Ask.Log[0].Kind, PromptKind::Critical);
    QCOMPARE(plm_->Ask.Log[0].What.Detail, path);
    QCOMPARE(plm_->TextOf("txtTitle"), QStringLiteral("New Title"));
}

void FrmPLMTagpanelTest::SavingRenewsPreviewAndNewName() {
    DropTagged(2);
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtV2Title", QStringLiteral("new one"));
    QCOMPARE(plm_->Lines("lstPreview").at(0), QStringLiteral("Artist 1 - Title 1.mp3"));
    plm_->Click("cmdSaveID3");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstPreview"), (QStringList{QStringLiteral("Artist 1 - New One.mp3"),
                                                     QStringLiteral("Artist 2 - Title 2.mp3")}));
    QCOMPARE(plm_->TextOf("txtNewName"), QStringLiteral("Artist 1 - New One.mp3"));
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("The tags were saved."));
}

void FrmPLMTagpanelTest::PreviewLineEditedByHandStays() {
    DropTagged(2);
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 0);
    OnNextModal<frmEdit>([](frmEdit& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("txtFixedName"))
            ->setText(QStringLiteral("By hand.mp3"));
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    plm_->Trigger("mnuEditName");
    plm_->Click("cmdSelectAll");
    plm_->SetText("txtV2Artist", QStringLiteral("same"));
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click("cmdSaveID3");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstPreview"),
             (QStringList{QStringLiteral("By hand.mp3"), QStringLiteral("Same - Title 2.mp3")}));
}

void FrmPLMTagpanelTest::MoreShowsTheOtherFramesAndTheyAreSaved() {
    const Text path = plm_->Folder.File(u"a.mp3", EncodedMp3());
    TagByPeer(path, {"Abba", "SOS", "", "", "", -1}, PeerVersion::V2);
    RunProgram({"id3v2", "--TBPM", "120", "--TPUB", "somebody", NativePath(path)});
    plm_->Drop("lstFiles", {path});
    plm_->ClickLine("lstFiles", 0);
    int listed = 0;
    OnNextModal<frmMoreID3v2>([&listed](frmMoreID3v2& dialog) {
        auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lstID3v2Tags"));
        listed = list == nullptr ? -1 : list->count();
        dialog.findChild<QPushButton*>(QStringLiteral("cmdRemoveAll"))->click();
        dialog.findChild<QPushButton*>(QStringLiteral("cmdClose"))->click();
    });
    plm_->Click("cmdMore");
    QCOMPARE(listed, 2);
    QVERIFY(ReadFile(path).find("TPUB") != Bytes::npos);
    plm_->Click("cmdSaveID3");
    QVERIFY(ReadFile(path).find("TPUB") == Bytes::npos);
    QVERIFY(ReadFile(path).find("TBPM") == Bytes::npos);
    QCOMPARE(TagsOf(path).V2.Title, Bytes("SOS"));
}

void FrmPLMTagpanelTest::AddingInMoreTicksTheTagAndOtherProgramsFindTheFrame() {
    const Text path = DropTagged(1)[0];
    plm_->ClickLine("lstFiles", 0);
    plm_->Get<QCheckBox>("chkID3v2").setChecked(false);
    OnNextModal<frmMoreID3v2>([](frmMoreID3v2& dialog) {
        dialog.findChild<QComboBox*>(QStringLiteral("cmbV2Frames"))
            ->setEditText(QStringLiteral("TMOO"));
        dialog.findChild<QPlainTextEdit*>(QStringLiteral("txtTagContent"))
            ->setPlainText(QStringLiteral("cheerful"));
        dialog.findChild<QPushButton*>(QStringLiteral("cmdAdd"))->click();
        dialog.findChild<QPushButton*>(QStringLiteral("cmdClose"))->click();
    });
    plm_->Click("cmdMore");
    QVERIFY(Checked("chkID3v2"));
    plm_->Click("cmdSaveID3");
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("The tags were saved."));
    const Bytes told = test::OutputOf({"id3v2", "-R", NativePath(path)});
    QVERIFY2(told.find("TMOO") != Bytes::npos, told.c_str());
    QVERIFY2(told.find("TIT2: title 1") != Bytes::npos, told.c_str());
}

void FrmPLMTagpanelTest::AfterASortThePanelIsBlank() {
    DropTagged(2);
    plm_->Click("optMethod0");
    plm_->SetText("txtTargetDir", ToQt(plm_->Folder.Folder(u"out")));
    plm_->ClickLine("lstFiles", 0);
    plm_->Click("cmdSort");
    plm_->Settle();
    QCOMPARE(plm_->SelectedRows(), QList<int>{0});
    QCOMPARE(Texts(), QString());
    QVERIFY(!Checked("chkID3v1"));
}

void FrmPLMTagpanelTest::MenuEntriesDoWhatTheButtonsDo() {
    const Text path = DropTagged(1)[0];
    plm_->ClickLine("lstFiles", 0);
    plm_->SetText("txtTitle", QStringLiteral("from_v1"));
    plm_->Trigger("mnuCopyFromV1");
    QCOMPARE(plm_->TextOf("txtV2Title"), QStringLiteral("from_v1"));
    plm_->Trigger("mnuSaveID3");
    QCOMPARE(TagsOf(path).V2.Title, Bytes("from_v1"));
    plm_->Trigger("mnuFixID3");
    QCOMPARE(TagsOf(path).V2.Title, Bytes("From V1"));
    plm_->SetText("txtV2Title", QStringLiteral("back"));
    plm_->Trigger("mnuCopyToV1");
    QCOMPARE(plm_->TextOf("txtTitle"), QStringLiteral("back"));
}

QTEST_MAIN(FrmPLMTagpanelTest)
#include "frmPLM_tagpanel_test.moc"
