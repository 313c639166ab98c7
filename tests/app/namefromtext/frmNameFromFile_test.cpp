#include "app/namefromtext/frmNameFromFile.h"

#include <QMenu>

#include "app/list/qt_work_queue.h"
#include "core/tags/genres.h"
#include "tests/app/namefromtext/name_from_file_fixture.h"

using namespace mdlPLM;

class frmNameFromFileTest : public NameFromFileTest {
    Q_OBJECT

private slots:
    void init() { Reset(); }
    void cleanup() { form_.reset(); }

    void ShowsItsTextsAndTips_data();
    void ShowsItsTextsAndTips();
    void ExplainsThePatterns();
    void TakesThePatternsOfTheMainWindow();
    void ThePatternBoxesTakeEveryKey();
    void OffersEveryGenreAndChoosesNone();
    void OpensInTheMiddleOfTheScreen();
    void FitsASmallScreen();
    void EveryControlIsReachedByTab();
    void NoTwoControlsShareAKey();
    void EveryBoxHasANameToReadOut();

    void OpensATextAndScansItsHead();
    void AsksForTheFileInTheRightFolder();
    void ACancelledDialogChangesNothing();
    void AFileThatCannotBeReadIsAMessage();
    void RemovesListedCharactersFromALoadedText();
    void EveryPreScanFillsEveryBox();
    void ThePasteKeyReplacesTheSelectionAndScans();
    void OtherWaysOfPastingDoNotScan();
    void TypingDoesNotScan();
    void OffersToTakeLineEnds();
    void ADroppedTextFileIsOpened();

    void ScansTheSelectedLines();
    void ScansAllOfTheTextWithoutASelection();
    void ScanningTwiceAddsTheNamesTwice();
    void TrimsTheInPatternBeforeAScan();
    void AnEmptyTextGivesNoMessage();
    void IgnoreBoxesAreCheckedBeforeTheScan();
    void UsesTheBoxesForAll();
    void ReadsFixFilenamesAtTheTimeOfTheScan();
    void WarnsBeyondThirtyCharacters();
    void BinaryFilesAreShownAndScanned();
    void AnswersWhileALongTextIsShownAndScanned();
    void LongWorkCanBeStopped();
};

void frmNameFromFileTest::ShowsItsTextsAndTips_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tip");
    const auto row = [](const char* control, const char* text, const char* tip) {
        QTest::newRow(control) << QString(control) << QString(text) << QString(tip);
    };
    const char* const forAll = "If checked all files will be tagged and named with this %1.";
    const auto use = [&](const char* control, const char* what) {
        QTest::newRow(control) << QString(control) << "Use for all." << QString(forAll).arg(what);
    };
    row("cmdOpenSource", "Open Sourcefile...",
        "Select a (text-) file that contains the album information.");
    row("cmdScan", "Scan now!",
        "During this scan PLM generates a list of suggested new filenames from the selected "
        "textlines.");
    row("chkIgnoreFirst", "Ignore first", "");
    row("chkIgnoreLast", "Ignore last", "");
    use("chkArtist4All", "artist");
    use("chkAlbum4All", "album");
    use("chkYear4All", "year");
    use("chkGenre4All", "genre");
    row("chkRelease4All", "stored as comment.",
        "If checked all files will be tagged with this release date as a comment.");
    row("chkSaveID3v1", "Save in ID3v1.",
        "PLM will save the ID3v1 information in all files for you.");
    row("chkSaveID3v2", "Save in ID3v2.",
        "PLM will save the ID3v2 information in all files for you.");
    row("cmdRemoveFile", "Remove file", "Remove the selected filename from the list.");
    row("cmdRemoveNew", "Remove file", "Remove the selected filename from the list.");
    row("cmdClearOld", "Clear list", "");
    row("cmdClearNew", "Clear list", "");
    row("cmdMoveUp", "Move up", "Move the selected file one step up.");
    row("cmdMoveDn", "Move down", "Move the selected file one step down.");
    row("cmdRenameFiles", "Rename Files", "Gives each file the name beside it.");
    row("cmdClose", "Close", "");
}

void frmNameFromFileTest::ShowsItsTextsAndTips() {
    QFETCH(QString, control);
    QFETCH(QString, text);
    QFETCH(QString, tip);
    Open();
    auto* button = Get<QAbstractButton>(control.toLatin1().constData());
    QCOMPARE(button->text().remove(u'&'), text);
    QCOMPARE(button->toolTip(), tip);
}

void frmNameFromFileTest::ExplainsThePatterns() {
    Open();
    QCOMPARE(form_->windowTitle(), "Get MP3 info from File/Text");
    QCOMPARE(Label("lblPattern"),
             "Here you define the inpattern that matches the text and the outpattern that will be "
             "used for the new filenames. \r\n"
             "%track = TrackNr    %artist = Artist    %title = Title    %album = Album \r\n"
             "The characters between are the separators. ");
    QCOMPARE(Get<QComboBox>("cmbInPattern")->toolTip(),
             "This pattern should match the selected textlines so that PLM can get information "
             "from them.");
    QCOMPARE(Get<QComboBox>("cmbOutPattern")->toolTip(),
             "This pattern will be used for the new filenames.");
    QCOMPARE(NewList()->toolTip(), "Doubleclick to edit the filename!");
    QCOMPARE(Get<QMenu>("mnuFile")->title(), "&File");
    QCOMPARE(Get<QAction>("mnuOpenSource")->text(), "&Open Sourcefile...");
    QCOMPARE(Get<QAction>("mnuAddMP3")->text(), "&Add MP3 files...");
    QCOMPARE(Get<QAction>("mnuClose")->text(), "&Close");
    QCOMPARE(Label("lblNrOldFiles"), "0 files");
    QCOMPARE(Label("lblNrNewFiles"), "0 files");
}

void frmNameFromFileTest::TakesThePatternsOfTheMainWindow() {
    WriteFile(world_->Folder / u"inpattern.txt", "%track %title.mp3\r\n\r\n  %title.mp3 \r\n");
    WriteFile(world_->Folder / u"outpattern.txt", "%title.mp3\r\n");
    world_->Host.In = u"%artist: %title..";
    world_->Host.Out = u"%title (%artist).mp3";
    Open();
    auto* in = Get<QComboBox>("cmbInPattern");
    QCOMPARE(in->count(), 2);
    QCOMPARE(in->itemText(1), "  %title.mp3 ");
    QCOMPARE(in->currentText(), "%artist: %title..");
    QCOMPARE(Get<QComboBox>("cmbOutPattern")->count(), 1);
    QCOMPARE(Get<QComboBox>("cmbOutPattern")->currentText(), "%title (%artist).mp3");
}

// Unlike those of the main window: a text has separators that no file name can hold.
void frmNameFromFileTest::ThePatternBoxesTakeEveryKey() {
    Open();
    for (const char* name : {"cmbInPattern", "cmbOutPattern"}) {
        auto* box = Get<QComboBox>(name);
        box->clearEditText();
        QTest::keyClicks(box, R"(%track: "%title" <%artist> |*?\/)");
        QCOMPARE(box->currentText(), R"(%track: "%title" <%artist> |*?\/)");
    }
}

void frmNameFromFileTest::OffersEveryGenreAndChoosesNone() {
    Open();
    auto* genres = Get<QComboBox>("cmbGenre");
    QCOMPARE(genres->count(), GenreCount);
    QCOMPARE(genres->currentIndex(), -1);
    QCOMPARE(genres->currentText(), "");
    QVERIFY(genres->findText("National Folk") >= 0);
    QCOMPARE(genres->itemText(0), "A Capella");
}

void frmNameFromFileTest::OpensInTheMiddleOfTheScreen() {
    Open();
    const QPoint off = form_->frameGeometry().center() - form_->screen()->geometry().center();
    // The frame is the window system's, and not known before the window is up.
    QVERIFY2(off.manhattanLength() <= 8, qPrintable(QDebug::toString(off)));
}

void frmNameFromFileTest::FitsASmallScreen() {
    Open();
    QVERIFY(form_->minimumSizeHint().width() <= 1024);
    QVERIFY(form_->minimumSizeHint().height() <= 700);
}

void frmNameFromFileTest::EveryControlIsReachedByTab() {
    Open();
    QSet<QWidget*> reached;
    Box()->setFocus();
    for (int i = 0; i < 60; ++i) {
        reached.insert(form_->focusWidget());
        QTest::keyClick(form_->focusWidget(), Qt::Key_Tab);
    }
    const char* const names[] = {
        "cmdOpenSource",  "txtSourceText",  "txtArtist",       "chkArtist4All",   "txtAlbum",
        "chkAlbum4All",   "txtYear",        "chkYear4All",     "cmbGenre",        "chkGenre4All",
        "txtReleaseDate", "chkRelease4All", "cmbInPattern",    "cmbOutPattern",   "chkIgnoreFirst",
        "chkIgnoreLast",  "cmdScan",        "lstOldFileNames", "lstNewFileNames", "cmdAddFiles",
        "cmdRemoveFile",  "cmdClearOld",    "cmdMoveUp",       "cmdMoveDn",       "cmdRemoveNew",
        "cmdClearNew",    "chkSaveID3v1",   "chkSaveID3v2",    "cmdRenameFiles",  "cmdClose"};
    for (const char* name : names) QVERIFY2(reached.contains(Get<QWidget>(name)), name);
}

void frmNameFromFileTest::NoTwoControlsShareAKey() {
    Open();
    QStringList texts = {Get<QMenu>("mnuFile")->title()};
    for (const auto* button : form_->findChildren<QAbstractButton*>()) texts << button->text();
    for (const auto* label : form_->findChildren<QLabel*>())
        if (label->buddy() != nullptr) texts << label->text();
    QMap<QString, QString> taken;
    for (const QString& text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (key.isEmpty()) continue;
        QVERIFY2(!taken.contains(key), qPrintable(text + " and " + taken.value(key)));
        taken.insert(key, text);
    }
    QVERIFY(taken.size() > 20);
}

void frmNameFromFileTest::EveryBoxHasANameToReadOut() {
    Open();
    QSet<QWidget*> named;
    for (const auto* label : form_->findChildren<QLabel*>()) named.insert(label->buddy());
    const char* const boxes[] = {"txtSourceText", "txtArtist",       "txtAlbum",
                                 "txtYear",       "cmbGenre",        "txtReleaseDate",
                                 "cmbInPattern",  "cmbOutPattern",   "txtIgnoreFirst",
                                 "txtIgnoreLast", "lstOldFileNames", "lstNewFileNames"};
    for (const char* name : boxes) {
        auto* box = Get<QWidget>(name);
        QVERIFY2(named.contains(box) || !box->accessibleName().isEmpty(), name);
    }
}

void frmNameFromFileTest::OpensATextAndScansItsHead() {
    Open();
    OpenText("Artist: Foo\r\nAlbum: Bar\r\nYear: 1998\r\nReleased: May\r\n\r\n1. A\r\n");
    QCOMPARE(Box()->toPlainText(), "Artist: Foo\nAlbum: Bar\nYear: 1998\nReleased: May\n\n1. A\n");
    QCOMPARE(Entered("txtArtist"), "Foo");
    QCOMPARE(Entered("txtAlbum"), "Bar");
    QCOMPARE(Entered("txtYear"), "1998");
    QCOMPARE(Entered("txtReleaseDate"), "May");
    QCOMPARE(OfQt(ToQt(world_->Host.SourceFolder) + u'/'), world_->Folder.Path());
    QCOMPARE(form_->focusWidget(), Box());
}

void frmNameFromFileTest::AsksForTheFileInTheRightFolder() {
    Open();
    world_->Host.SourceFolder = u"/notes";
    Get<QAction>("mnuOpenSource")->trigger();
    AddFiles({u"/music/a.mp3", u"/elsewhere/b.mp3"});
    Press("cmdOpenSource");
    const auto& asked = world_->Dialogs.Requests;
    QCOMPARE(asked.size(), std::size_t(3));
    QCOMPARE(asked[0].InitialFolder, Text(u"/notes"));
    QCOMPARE(asked[0].Filter, Text(u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
    QVERIFY(!asked[0].Multiple);
    QCOMPARE(asked[2].InitialFolder, Text(u"/music/"));
}

void frmNameFromFileTest::ACancelledDialogChangesNothing() {
    Open();
    OpenText("Artist: Foo\r\n");
    Press("cmdOpenSource");
    QCOMPARE(Box()->toPlainText(), "Artist: Foo\n");
    QCOMPARE(Entered("txtArtist"), "Foo");
}

void frmNameFromFileTest::AFileThatCannotBeReadIsAMessage() {
    Open();
    world_->Dialogs.Chosen.push_back({world_->Folder / u"gone.txt"});
    Press("cmdOpenSource");
    QCOMPARE(world_->Prompts.Bodies(), std::vector<Text>{u"Error: 53\r\nFile not found"});
    QCOMPARE(world_->Prompts.Log[0].What.Detail, world_->Folder / u"gone.txt");
    QCOMPARE(world_->Host.SourceFolder, Text());
}

void frmNameFromFileTest::RemovesListedCharactersFromALoadedText() {
    world_->Context.Values.strSettings = u"^~";
    world_->Context.Values.bRemoveChars = false;
    Open();
    OpenText("  ^A~rtist: Foo\r\n ");
    QCOMPARE(Box()->toPlainText(), "Artist: Foo\n");
}

void frmNameFromFileTest::EveryPreScanFillsEveryBox() {
    Open();
    for (const char* box : {"txtArtist", "txtAlbum", "txtYear", "txtReleaseDate"}) Enter(box, "x");
    Get<QComboBox>("cmbGenre")->setCurrentIndex(5);
    OpenText("nothing to find\r\n");
    for (const char* box : {"txtArtist", "txtAlbum", "txtYear", "txtReleaseDate"})
        QCOMPARE(Entered(box), "");
    QCOMPARE(Get<QComboBox>("cmbGenre")->currentIndex(), 5);
}

void frmNameFromFileTest::ThePasteKeyReplacesTheSelectionAndScans() {
    Open();
    OpenText("Artist: Foo\r\nold line\r\n");
    SelectLines(0, 0);
    QGuiApplication::clipboard()->setText("Artist: Bar\nAlbum: Baz");
    QTest::keyClick(Box(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Box()->Source().Whole(), Text(u"Artist: Bar\r\nAlbum: Baz\r\nold line\r\n"));
    QCOMPARE(Entered("txtArtist"), "Bar");
    QCOMPARE(Entered("txtAlbum"), "Baz");
}

void frmNameFromFileTest::OtherWaysOfPastingDoNotScan() {
    Open();
    QGuiApplication::clipboard()->setText("Artist: Bar\n");
    Box()->paste();
    QCOMPARE(Box()->Source().Whole(), Text(u"Artist: Bar\r\n"));
    QCOMPARE(Entered("txtArtist"), "");
}

void frmNameFromFileTest::TypingDoesNotScan() {
    Open();
    QTest::keyClicks(Box(), "Artist: Foo");
    QTest::keyClick(Box(), Qt::Key_Return);
    QCOMPARE(Box()->Source().Whole(), Text(u"Artist: Foo\r\n"));
    QCOMPARE(Entered("txtArtist"), "");
}

void frmNameFromFileTest::OffersToTakeLineEnds() {
    Open();
    QCOMPARE(Box()->placeholderText(), "Open, paste or drop the text of an album here.");
    QVERIFY(!Get<QWidget>("fraLineEnds")->isVisible());
    OpenText("Artist: Foo\n1 - A - B\n2 - A - C\n");
    QVERIFY(Get<QWidget>("fraLineEnds")->isVisible());
    Press("cmdScan");
    QCOMPARE(Label("lblNrNewFiles"), "1 files");
    Press("cmdClearNew");
    Press("cmdTakeLineEnds");
    QVERIFY(!Get<QWidget>("fraLineEnds")->isVisible());
    QCOMPARE(Entered("txtArtist"), "Foo");
    SelectLines(1, 2);
    Press("cmdScan");
    QCOMPARE(Rows(NewList()), QStringList({"01 - A - B.mp3", "02 - A - C.mp3"}));
    OpenText("Artist: Foo\r\n1 - A - B\r\n", u"dos.txt");
    QVERIFY(!Get<QWidget>("fraLineEnds")->isVisible());
}

void frmNameFromFileTest::ADroppedTextFileIsOpened() {
    Open();
    const Text path = world_->Folder.File(u"dropped.txt", "Artist: Foo\r\n");
    QCOMPARE(DropOn(*Box()->viewport(), {path}), Qt::CopyAction);
    QTRY_COMPARE(Entered("txtArtist"), "Foo");
    QCOMPARE(Box()->toPlainText(), "Artist: Foo\n");
}

void frmNameFromFileTest::ScansTheSelectedLines() {
    Open();
    OpenText("head\r\n7 - Artist - Song\r\n   \r\n8 - Artist - Tune\r\ntail\r\n");
    SelectLines(1, 3);
    Press("cmdScan");
    QCOMPARE(Rows(NewList()), QStringList({"07 - Artist - Song.mp3", "08 - Artist - Tune.mp3"}));
    QCOMPARE(Label("lblNrNewFiles"), "2 files");
}

void frmNameFromFileTest::ScansAllOfTheTextWithoutASelection() {
    Open();
    OpenText("7 - Artist - Song\r\n8 - Artist - Tune");
    Press("cmdScan");
    QCOMPARE(Rows(NewList()), QStringList({"07 - Artist - Song.mp3", "08 - Artist - Tune.mp3"}));
}

void frmNameFromFileTest::ScanningTwiceAddsTheNamesTwice() {
    Open();
    OpenText("1 - A - A\r\n2 - A - B\r\n3 - A - C\r\n4 - A - D\r\n");
    SelectLines(0, 2);
    Press("cmdScan");
    Press("cmdScan");
    QCOMPARE(NewList()->model()->rowCount(), 6);
    QCOMPARE(Label("lblNrNewFiles"), "6 files");
}

void frmNameFromFileTest::TrimsTheInPatternBeforeAScan() {
    world_->Host.In = u"  %track. %title.mp3  ";
    Open();
    Press("cmdScan");
    QCOMPARE(Get<QComboBox>("cmbInPattern")->currentText(), "%track. %title.mp3");
}

void frmNameFromFileTest::AnEmptyTextGivesNoMessage() {
    Open();
    Tick("chkIgnoreFirst");
    Press("cmdScan");
    QTest::keyClicks(Box(), "   ");
    Press("cmdScan");
    QVERIFY(world_->Prompts.Log.empty());
    QCOMPARE(NewList()->model()->rowCount(), 0);
}

void frmNameFromFileTest::IgnoreBoxesAreCheckedBeforeTheScan() {
    Open();
    OpenText("1 - A - B\r\n");
    QVERIFY(!Get<QLineEdit>("txtIgnoreFirst")->isEnabled());
    Tick("chkIgnoreFirst");
    QVERIFY(Get<QLineEdit>("txtIgnoreFirst")->isEnabled());
    Enter("txtIgnoreFirst", "0");
    Press("cmdScan");
    QCOMPARE(world_->Prompts.Log.size(), std::size_t(1));
    QCOMPARE(NewList()->model()->rowCount(), 0);
    Enter("txtIgnoreFirst", "1");
    Tick("chkIgnoreLast");
    Enter("txtIgnoreLast", "2");
    Press("cmdScan");
    QCOMPARE(Rows(NewList()), QStringList({"01 - A - - .mp3"}));
}

void frmNameFromFileTest::UsesTheBoxesForAll() {
    world_->Host.Out = u"%artist - %album - %year - %title.mp3";
    Open();
    OpenText("1 - A - B\r\n");
    Enter("txtArtist", "Artist");
    Enter("txtAlbum", "Album");
    Enter("txtYear", "1998");
    for (const char* box : {"chkArtist4All", "chkAlbum4All", "chkYear4All"}) Tick(box);
    Press("cmdScan");
    QCOMPARE(Rows(NewList()), QStringList({"Artist - Album - 1998 - B.mp3"}));
}

void frmNameFromFileTest::ReadsFixFilenamesAtTheTimeOfTheScan() {
    Open();
    OpenText("1 - the_band - a_song\r\n");
    Press("cmdScan");
    world_->Host.Fix = true;
    Press("cmdScan");
    QCOMPARE(Rows(NewList()),
             QStringList({"01 - the_band - a_song.mp3", "01 - The Band - A Song.mp3"}));
}

void frmNameFromFileTest::WarnsBeyondThirtyCharacters() {
    Open();
    const struct {
        const char* Box;
        const char* Plain;
        const char* Warning;
    } boxes[] = {{"txtArtist", "Artist", "Artist (Optimized=More than 30 characters)"},
                 {"txtAlbum", "Album", "Album (More than 30 characters)"}};
    for (const auto& row : boxes) {
        auto* box = Get<QLineEdit>(row.Box);
        const QColor plain = box->palette().color(QPalette::Base);
        QCOMPARE(box->toolTip(), row.Plain);
        box->setText(QString(30, u'x'));
        QCOMPARE(box->toolTip(), row.Plain);
        QCOMPARE(box->palette().color(QPalette::Base), plain);
        box->setText(QString(31, u'x'));
        QCOMPARE(box->toolTip(), row.Warning);
        QCOMPARE(box->palette().color(QPalette::Base), QColor(0xFF, 0xFF, 0xC0));
        box->setText("x");
        QCOMPARE(box->toolTip(), row.Plain);
        QCOMPARE(box->palette().color(QPalette::Base), plain);
    }
}

void frmNameFromFileTest::BinaryFilesAreShownAndScanned() {
    world_->Context.Values.strSettings.clear();
    Open();
    Bytes contents;
    for (int i = 0; i < 200000; ++i) contents.push_back(static_cast<char>(i * 31 + i / 253));
    OpenText(contents);
    QCOMPARE(static_cast<std::size_t>(Box()->document()->characterCount()) - 1,
             Box()->Source().Positions());
    Press("cmdScan");
    QTRY_VERIFY(NewList()->model()->rowCount() > 0);
}

void frmNameFromFileTest::AnswersWhileALongTextIsShownAndScanned() {
    Open();
    Bytes contents = "Artist: Foo\r\n";
    const Bytes line = "07 - Some Artist - A song with a name" + Bytes(150, ' ') + "\r\n";
    while (contents.size() < 5000000) contents += line;
    world_->Dialogs.Chosen.push_back({world_->Folder.File(u"album.txt", contents)});
    form_->findChild<WorkQueue*>()->SetSliceLength(0);
    Press("cmdOpenSource");
    QVERIFY(Box()->isReadOnly());
    QVERIFY(Get<QPushButton>("cmdStop")->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!Box()->isReadOnly(), 60000);
    QCOMPARE(Entered("txtArtist"), "Foo");
    Press("cmdScan");
    QVERIFY(Get<QPushButton>("cmdStop")->isVisible());
    QVERIFY(!Get<QPushButton>("cmdScan")->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(Get<QPushButton>("cmdScan")->isEnabled(), 60000);
    const auto lines = static_cast<int>(std::count(contents.begin(), contents.end(), '\n'));
    QCOMPARE(NewList()->model()->rowCount(), lines);
}

void frmNameFromFileTest::LongWorkCanBeStopped() {
    Open();
    Bytes contents;
    while (contents.size() < 200000) contents += "07 - Some Artist - A song with a name\r\n";
    world_->Dialogs.Chosen.push_back({world_->Folder.File(u"album.txt", contents)});
    form_->findChild<WorkQueue*>()->SetSliceLength(0);
    Press("cmdOpenSource");
    Press("cmdStop");
    QVERIFY(!Box()->isReadOnly());
    QVERIFY(Get<QPushButton>("cmdScan")->isEnabled());
    const auto shown = static_cast<std::size_t>(Box()->document()->characterCount()) - 1;
    QVERIFY(shown > 0);
    QVERIFY(shown < contents.size() / 2);
    QCOMPARE(Box()->Source().Positions(), shown);
    Press("cmdScan");
    Press("cmdStop");
    const int made = NewList()->model()->rowCount();
    QVERIFY(made > 0);
    QCOMPARE(Label("lblNrNewFiles"), QString("%1 files").arg(made));
}

QTEST_MAIN(frmNameFromFileTest)
#include "frmNameFromFile_test.moc"
