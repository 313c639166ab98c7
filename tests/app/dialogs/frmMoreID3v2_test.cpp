#include "app/dialogs/frmMoreID3v2.h"

#include <QBuffer>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "app/shared/file_dialogs.h"
#include "app/shared/qt_text.h"
#include "core/platform/path.h"
#include "core/tags/id3v2_writer.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;
using namespace std::string_literals;

namespace {

struct HeldText final : OtherFramesText {
    [[nodiscard]] const Bytes& OtherFrames() const override { return Held; }
    void SetOtherFrames(Bytes text) override { Held = std::move(text); }
    Bytes Held;
};

struct ScriptedFileDialogs final : FileDialogs {
    FileDialogResult OpenFiles(QWidget*, const FileDialogRequest&) override { return {}; }
    FileDialogResult SaveFile(QWidget*, const FileDialogRequest& request) override {
        Requests.push_back(request);
        return {Answer.empty() ? std::vector<Text>() : std::vector<Text>{Answer}, 1};
    }
    Text BrowseForFolder(QWidget*, TextView, TextView) override { return {}; }
    Text Answer;
    std::vector<FileDialogRequest> Requests;
};

Bytes PictureFile(const char* format, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

Bytes PictureFrame(BytesView file) {
    Bytes content = "\0image/x\0\3\0"s.append(file);
    Bytes frame = "APIC"s;
    for (unsigned shift : {24U, 16U, 8U, 0U})
        frame.push_back(static_cast<char>((content.size() >> shift) & 0xFF));
    return frame + "\0\0"s + content;
}

}  // namespace

class frmMoreID3v2_test : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aFileWithoutOtherFramesStillOffersEveryIdentifier();
    void theFramesOfTheFileAreListed();
    void clickingAFrameShowsItsContent();
    void aFrameWithoutATextToShowSaysSo();
    void addingPutsAFrameIntoTheTextAtOnce();
    void addingWithThreeLettersDoesNothing();
    void addingWithoutContentDoesNothing();
    void typedIdentifiersAreNotCompleted();
    void removingCutsTheSelectedFrameOut();
    void removingWithNothingSelectedDoesNothing();
    void removingAllEmptiesTheText();
    void savingWritesTheFramesText();
    void savingIntoAFileReplacesAllOfIt();
    void aCancelledSaveWritesNothing();
    void aFailedSaveSaysWhy();
    void savingNeedsASelectedFrame();
    void aPictureIsShown_data();
    void aPictureIsShown();
    void aLargePictureIsShownSmall();
    void anUnsynchronisedPictureIsShown();
    void whatCannotBeDecodedIsSaid();
    void thePictureGoesWithItsFrame();
    void thePictureItselfCanBeSaved();
    void aHugeContentIsShownCut();
    void anUntouchedContentIsAddedByteForByte();
    void theShownFileIsNamed();
    void everyControlIsReachedByKeyboardAndNamed();
    void closeAndEscapeClose();

private:
    void Open();
    template <class Widget>
    Widget& The(const char* name) {
        auto* found = dialog_->findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr) qFatal("no control %s", name);
        return *found;
    }
    void Press(const char* name) { QTest::mouseClick(&The<QPushButton>(name), Qt::LeftButton); }
    void Select(int row);
    QStringList Listed();

    TempFolder folder_;
    HeldText frames_;
    ScriptedPrompts ask_;
    ScriptedFileDialogs dialogs_;
    std::unique_ptr<frmMoreID3v2> dialog_;
};

void frmMoreID3v2_test::init() {
    dialog_.reset();
    frames_ = {};
    ask_ = ScriptedPrompts();
    dialogs_ = {};
}

void frmMoreID3v2_test::Open() {
    dialog_ = std::make_unique<frmMoreID3v2>(
        MoreID3v2Context{frames_, ask_, dialogs_, folder_ / u"song.mp3"});
    dialog_->show();
}

void frmMoreID3v2_test::Select(int row) {
    auto& list = The<QListWidget>("lstID3v2Tags");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row)).center());
}

QStringList frmMoreID3v2_test::Listed() {
    QStringList listed;
    auto& list = The<QListWidget>("lstID3v2Tags");
    for (int i = 0; i < list.count(); ++i) listed << list.item(i)->text();
    return listed;
}

void frmMoreID3v2_test::aFileWithoutOtherFramesStillOffersEveryIdentifier() {
    Open();
    QCOMPARE(dialog_->windowTitle(), QStringLiteral("More ID3v2 frames"));
    QCOMPARE(Listed(), QStringList());
    auto& offered = The<QComboBox>("cmbV2Frames");
    QCOMPARE(offered.count(), 81);
    QCOMPARE(offered.itemText(0), QStringLiteral("AENC"));
    QCOMPARE(offered.itemText(80), QStringLiteral("WXXX"));
    QCOMPARE(offered.currentText(), QString());
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QString());
}

void frmMoreID3v2_test::theFramesOfTheFileAreListed() {
    frames_.Held = BuildFrame("TLEN", "1234") + BuildFrame("TXXX", "see USLT") +
                   BuildFrame("APIC", "x") + BuildFrame("TLEN", "2");
    Open();
    QCOMPARE(Listed(), QStringList({"APIC", "TLEN", "TXXX", "USLT"}));
}

void frmMoreID3v2_test::clickingAFrameShowsItsContent() {
    frames_.Held = BuildFrame("TLEN", "1234") + BuildFrame("TXXX", "h\xE5r\nag");
    Open();
    Select(1);
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QStringLiteral("hår\nag"));
    Select(0);
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QStringLiteral("1234"));
    The<QPlainTextEdit>("txtTagContent").setPlainText(QStringLiteral("typed over"));
    Select(0);
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QStringLiteral("1234"));
    QTest::keyClick(&The<QListWidget>("lstID3v2Tags"), Qt::Key_Down);
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QStringLiteral("hår\nag"));
}

void frmMoreID3v2_test::aFrameWithoutATextToShowSaysSo() {
    frames_.Held = BuildFrame("TLEN", "1234") + BuildFrame("TSRC", "SEABC9912345\0"s);
    Open();
    Select(1);
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QString());
    QCOMPARE(The<QLabel>("lblNote").text(),
             QStringLiteral("The frame has no text that can be shown."));
    Select(0);
    QCOMPARE(The<QLabel>("lblNote").text(), QString());
}

void frmMoreID3v2_test::addingPutsAFrameIntoTheTextAtOnce() {
    frames_.Held = BuildFrame("TLEN", "1234");
    Open();
    The<QComboBox>("cmbV2Frames").setEditText(QStringLiteral("TMOO"));
    The<QPlainTextEdit>("txtTagContent").setPlainText(QStringLiteral("glad\nå"));
    Press("cmdAdd");
    QVERIFY(frames_.Held == BuildFrame("TMOO", "glad\n\xE5") + BuildFrame("TLEN", "1234"));
    QCOMPARE(Listed(), QStringList({"TLEN", "TMOO"}));
    QCOMPARE(The<QComboBox>("cmbV2Frames").currentText(), QString());
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QString());
}

void frmMoreID3v2_test::addingWithThreeLettersDoesNothing() {
    Open();
    The<QComboBox>("cmbV2Frames").setEditText(QStringLiteral("TMO"));
    The<QPlainTextEdit>("txtTagContent").setPlainText(QStringLiteral("glad"));
    Press("cmdAdd");
    QVERIFY(frames_.Held.empty());
    QCOMPARE(Listed(), QStringList());
    QCOMPARE(The<QComboBox>("cmbV2Frames").currentText(), QStringLiteral("TMO"));
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QStringLiteral("glad"));
}

void frmMoreID3v2_test::addingWithoutContentDoesNothing() {
    Open();
    The<QComboBox>("cmbV2Frames").setEditText(QStringLiteral("TMOO"));
    Press("cmdAdd");
    QVERIFY(frames_.Held.empty());
    QCOMPARE(The<QComboBox>("cmbV2Frames").currentText(), QStringLiteral("TMOO"));
}

void frmMoreID3v2_test::typedIdentifiersAreNotCompleted() {
    Open();
    auto& box = The<QComboBox>("cmbV2Frames");
    QTest::keyClicks(&box, QStringLiteral("TIT"));
    QCOMPARE(box.currentText(), QStringLiteral("TIT"));
    QTest::keyClicks(&box, QStringLiteral("x"));
    QCOMPARE(box.currentText(), QStringLiteral("TITx"));
}

void frmMoreID3v2_test::removingCutsTheSelectedFrameOut() {
    frames_.Held = BuildFrame("APIC", "x") + BuildFrame("TLEN", "1234") + BuildFrame("TMOO", "sad");
    Open();
    Select(1);
    Press("cmdRemove");
    QVERIFY(frames_.Held == BuildFrame("APIC", "x") + BuildFrame("TMOO", "sad"));
    QCOMPARE(Listed(), QStringList({"APIC", "TMOO"}));
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QString());
    Press("cmdRemove");  // nothing is selected any more
    QCOMPARE(Listed(), QStringList({"APIC", "TMOO"}));
}

void frmMoreID3v2_test::removingWithNothingSelectedDoesNothing() {
    frames_.Held = BuildFrame("TLEN", "1234");
    Open();
    Press("cmdRemove");
    QVERIFY(frames_.Held == BuildFrame("TLEN", "1234"));
    QCOMPARE(Listed(), QStringList({"TLEN"}));
}

void frmMoreID3v2_test::removingAllEmptiesTheText() {
    frames_.Held = BuildFrame("TLEN", "1234") + Bytes(100, '\0') + "\xFF\xFB";
    Open();
    Select(0);
    QCOMPARE(The<QPushButton>("cmdRemoveAll").toolTip(),
             QStringLiteral("Remove All ID3v2 tags in the list from the file."));
    Press("cmdRemoveAll");
    QVERIFY(frames_.Held.empty());
    QCOMPARE(Listed(), QStringList());
    QCOMPARE(The<QPlainTextEdit>("txtTagContent").toPlainText(), QString());
}

void frmMoreID3v2_test::savingWritesTheFramesText() {
    frames_.Held = BuildFrame("APIC", "image/bmpBM\x01\xFF") + BuildFrame("TXXX", "image/jpeg");
    Open();
    dialogs_.Answer = folder_ / u"out.bmp";
    Select(0);
    The<QPlainTextEdit>("txtTagContent").setPlainText(QStringLiteral("not what is saved"));
    Press("cmdSaveToFile");
    QVERIFY(ReadFile(dialogs_.Answer) == "BM\x01\xFF");
    QCOMPARE(The<QLabel>("lblNote").text(), QStringLiteral("Saved."));
    QCOMPARE(dialogs_.Requests.size(), 1U);
    QCOMPARE(ToQt(dialogs_.Requests[0].Filter),
             QStringLiteral("Text File (*.txt)|*.txt|Bitmap Picture (*.bmp)|*.bmp|Jpeg Picture "
                            "(*.jpg)|*.jpg|PNG Picture (*.png)|*.png"));
    QCOMPARE(dialogs_.Requests[0].InitialFolder, folder_.Path());
    dialogs_.Answer = folder_ / u"out.txt";
    Select(1);
    Press("cmdSaveToFile");
    QVERIFY(ReadFile(dialogs_.Answer) == "image/jpeg");
}

void frmMoreID3v2_test::savingIntoAFileReplacesAllOfIt() {
    frames_.Held = BuildFrame("TXXX", "short");
    Open();
    dialogs_.Answer = folder_.File(u"old.txt", "something much longer than that");
    Select(0);
    Press("cmdSaveToFile");
    QVERIFY(ReadFile(dialogs_.Answer) == "short");
}

void frmMoreID3v2_test::aCancelledSaveWritesNothing() {
    frames_.Held = BuildFrame("TXXX", "short");
    Open();
    Select(0);
    Press("cmdSaveToFile");
    QCOMPARE(dialogs_.Requests.size(), 1U);
    QVERIFY(ask_.Log.empty());
}

void frmMoreID3v2_test::aFailedSaveSaysWhy() {
    frames_.Held = BuildFrame("TXXX", "short");
    Open();
    dialogs_.Answer = folder_ / u"no such folder" + Text(1, Separator) + u"out.txt";
    Select(0);
    Press("cmdSaveToFile");
    QCOMPARE(ask_.Log.size(), 1U);
    QCOMPARE(ask_.Log[0].Kind, PromptKind::Critical);
    QCOMPARE(ToQt(ask_.Log[0].What.Body), QStringLiteral("Error: 76\r\nPath not found"));
    QCOMPARE(ask_.Log[0].What.Detail, dialogs_.Answer);
}

void frmMoreID3v2_test::savingNeedsASelectedFrame() {
    frames_.Held = BuildFrame("TXXX", "short");
    Open();
    QVERIFY(!The<QPushButton>("cmdSaveToFile").isEnabled());
    Select(0);
    QVERIFY(The<QPushButton>("cmdSaveToFile").isEnabled());
    Press("cmdRemove");
    QVERIFY(!The<QPushButton>("cmdSaveToFile").isEnabled());
}

void frmMoreID3v2_test::aPictureIsShown_data() {
    QTest::addColumn<QByteArray>("format");
    for (const char* format : {"JPEG", "PNG", "BMP"}) QTest::newRow(format) << QByteArray(format);
}

void frmMoreID3v2_test::aPictureIsShown() {
    QFETCH(QByteArray, format);
    frames_.Held = BuildFrame("TLEN", "1") + PictureFrame(PictureFile(format, {40, 30})) +
                   PictureFrame(PictureFile(format, {10, 10})) + Bytes(2000, '\0');
    Open();
    QVERIFY(!The<QLabel>("lblPicture").isVisible());
    Select(0);
    QVERIFY(The<QLabel>("lblPicture").isVisible());
    const QPixmap shown = The<QLabel>("lblPicture").pixmap();
    QCOMPARE(shown.deviceIndependentSize().toSize(), QSize(40, 30));
    const QColor middle = shown.toImage().pixelColor(shown.width() / 2, shown.height() / 2);
    QVERIFY(std::abs(middle.green() - 128) < 8 && middle.red() < 8);
    QCOMPARE(The<QLabel>("lblPictureInfo").text(),
             QString::fromLatin1(format) +
                 QStringLiteral(", 40 x 30, Front cover\nThe first of 2 pictures"));
}

void frmMoreID3v2_test::aLargePictureIsShownSmall() {
    frames_.Held = PictureFrame(PictureFile("JPEG", {2000, 1000}));
    Open();
    Select(0);
    QCOMPARE(The<QLabel>("lblPicture").pixmap().deviceIndependentSize().toSize(), QSize(240, 120));
    QCOMPARE(The<QLabel>("lblPictureInfo").text(),
             QStringLiteral("JPEG, 2000 x 1000, Front cover"));
}

void frmMoreID3v2_test::anUnsynchronisedPictureIsShown() {
    Bytes unsynchronised;
    for (char c : PictureFile("JPEG", {40, 30})) {
        unsynchronised.push_back(c);
        if (c == '\xFF') unsynchronised.push_back('\0');
    }
    frames_.Held = PictureFrame(unsynchronised);
    Open();
    Select(0);
    QCOMPARE(The<QLabel>("lblPicture").pixmap().deviceIndependentSize().toSize(), QSize(40, 30));
}

void frmMoreID3v2_test::whatCannotBeDecodedIsSaid() {
    const Bytes scalable = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    for (const Bytes& file : {Bytes("no picture"), scalable}) {
        frames_.Held = PictureFrame(file);
        Open();
        Select(0);
        QVERIFY(!The<QLabel>("lblPicture").isVisible());
        QCOMPARE(The<QLabel>("lblNote").text(), QStringLiteral("The picture cannot be shown."));
    }
}

void frmMoreID3v2_test::thePictureGoesWithItsFrame() {
    frames_.Held = PictureFrame(PictureFile("PNG", {40, 30})) + BuildFrame("TLEN", "1");
    Open();
    Select(0);
    QVERIFY(The<QLabel>("lblPicture").isVisible());
    Select(1);
    QVERIFY(!The<QLabel>("lblPicture").isVisible());
    Select(0);
    Press("cmdRemove");
    QVERIFY(!The<QLabel>("lblPicture").isVisible());
    QVERIFY(frames_.Held.find("APIC") == Bytes::npos);
}

void frmMoreID3v2_test::thePictureItselfCanBeSaved() {
    const Bytes file = PictureFile("JPEG", {40, 30});
    frames_.Held = PictureFrame(file);
    Open();
    Select(0);
    dialogs_.Answer = folder_ / u"cover.jpg";
    Press("cmdSavePicture");
    QVERIFY(ReadFile(dialogs_.Answer) == file);
    QCOMPARE(ToQt(dialogs_.Requests[0].Filter), QStringLiteral("JPEG (*.jpg)|*.jpg"));
}

void frmMoreID3v2_test::aHugeContentIsShownCut() {
    frames_.Held = BuildFrame("USLT", Bytes(2'000'000, 'x'));
    Open();
    Select(0);
    auto& box = The<QPlainTextEdit>("txtTagContent");
    QCOMPARE(box.toPlainText().size(), qsizetype(ShownContent::MostShown));
    QVERIFY(The<QLabel>("lblNote").text().startsWith(QStringLiteral("The beginning of ")));
    dialogs_.Answer = folder_ / u"lyrics.txt";
    Press("cmdSaveToFile");
    QCOMPARE(ReadFile(dialogs_.Answer).size(), std::size_t(2'000'000));
}

void frmMoreID3v2_test::anUntouchedContentIsAddedByteForByte() {
    const Bytes content = "a\r\nb\x01\x81\xA0.";
    frames_.Held = BuildFrame("USLT", content);
    Open();
    Select(0);
    The<QComboBox>("cmbV2Frames").setEditText(QStringLiteral("TXXX"));
    Press("cmdAdd");
    QVERIFY(frames_.Held == BuildFrame("TXXX", content) + BuildFrame("USLT", content));
    // A changed one is what the box holds; a non-breaking blank stays one.
    Select(0);
    The<QPlainTextEdit>("txtTagContent").setPlainText(QStringLiteral("a\u00A0b"));
    The<QComboBox>("cmbV2Frames").setEditText(QStringLiteral("TMOO"));
    Press("cmdAdd");
    QVERIFY(frames_.Held.find("a\xA0"s + "b") != Bytes::npos);
}

void frmMoreID3v2_test::theShownFileIsNamed() {
    Open();
    QCOMPARE(The<QLabel>("lblFile").text(), QStringLiteral("song.mp3"));
    QCOMPARE(The<QLabel>("lblFile").toolTip(), ToQt(folder_ / u"song.mp3"));
}

void frmMoreID3v2_test::everyControlIsReachedByKeyboardAndNamed() {
    frames_.Held = PictureFrame(PictureFile("PNG", {40, 30}));
    Open();
    QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
    Select(0);
    QStringList order;
    The<QListWidget>("lstID3v2Tags").setFocus();
    for (int i = 0; i < 9; ++i) {
        order << dialog_->focusWidget()->objectName();
        QTest::keyClick(dialog_->focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order,
             QStringList({"lstID3v2Tags", "cmdRemove", "cmdRemoveAll", "txtTagContent",
                          "cmbV2Frames", "cmdAdd", "cmdSaveToFile", "cmdSavePicture", "cmdClose"}));
    QSet<QChar> mnemonics;
    for (const QString& name : order) {
        auto* widget = dialog_->findChild<QWidget*>(name);
        QString label = widget->property("text").toString();
        for (QLabel* candidate : dialog_->findChildren<QLabel*>()) {
            if (candidate->buddy() == widget) label = candidate->text();
        }
        const auto mnemonic = label.indexOf(u'&');
        QVERIFY2(mnemonic >= 0, qPrintable(name));
        mnemonics << label.at(mnemonic + 1).toUpper();
    }
    QCOMPARE(mnemonics.size(), order.size());
    QVERIFY(!The<QLabel>("lblPicture").accessibleName().isEmpty());
    QCOMPARE(The<QLabel>("lblPicture").accessibleDescription(),
             QStringLiteral("PNG, 40 x 30, Front cover"));
    QCOMPARE(The<QListWidget>("lstID3v2Tags").item(0)->toolTip(),
             QStringLiteral("Attached picture"));
}

void frmMoreID3v2_test::closeAndEscapeClose() {
    Open();
    Press("cmdClose");
    QVERIFY(!dialog_->isVisible());
    Open();
    QTest::keyClick(dialog_.get(), Qt::Key_Escape);
    QVERIFY(!dialog_->isVisible());
}

QTEST_MAIN(frmMoreID3v2_test)
#include "frmMoreID3v2_test.moc"
