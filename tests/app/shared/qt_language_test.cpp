// The program in Swedish, and in languages that it has no translation for.
#include "app/shared/qt_language.h"

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QScrollArea>
#include <QTabWidget>
#include <QXmlStreamReader>

#include "app/dialogs/frmEdit.h"
#include "app/dialogs/frmMoreID3v2.h"
#include "app/dialogs/frmOptions.h"
#include "app/namefromtext/frmNameFromFile.h"
#include "app/shared/qt_prompts.h"
#include "app/window/frmSorting.h"
#include "tests/support/places.h"
#include "tests/support/qt_keyboard.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_modal.h"
#include "tests/support/qt_panel_frames.h"

using namespace mdlPLM;

namespace {

/// Labels and buttons that have less room than their text needs, and what stands outside its
/// window.
QStringList CutOff(const QWidget& window) {
    QStringList cut;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(control);
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const QString text = label != nullptr    ? label->text()
                             : button != nullptr ? button->text()
                                                 : QString();
        if (!control->isVisible() || text.isEmpty() || control->objectName().isEmpty()) continue;
        const bool wraps = label != nullptr && label->wordWrap();
        const QPoint end = control->mapTo(&window, control->rect().bottomRight());
        const bool outside = end.x() > window.width();
        if ((!wraps && control->width() < control->minimumSizeHint().width()) || outside)
            cut << control->objectName() + QStringLiteral(": ") + text;
    }
    return cut;
}

/// From here on; the tests of other languages stand before those that call it.
void SpeakSwedish() {
    if (QCoreApplication::translate("Texts", "Nothing renamed") == u"Nothing renamed")
        InstallTranslation(*qApp, QLocale(QStringLiteral("sv_SE")));
}

QString Plain(QString text) { return text.remove(u'&'); }

}  // namespace

class LanguageTest : public QObject {
    Q_OBJECT

private slots:
    void WithoutATranslationTextsAreAsTheyAreWritten_data();
    void WithoutATranslationTextsAreAsTheyAreWritten();
    void SwedishIsComplete_data();
    void SwedishIsComplete();
    void MainWindowIsSwedish();
    void DialogsAreSwedish();
    void NamesFromTextIsSwedish();
    void QuestionsHaveSwedishButtons();
    void TextsWithoutAWindowAreSwedish();

private:
    static void Check(QWidget& window, const char* title);
};

void LanguageTest::WithoutATranslationTextsAreAsTheyAreWritten_data() {
    QTest::addColumn<QString>("locale");
    for (const char* name : {"C", "en_US", "en_GB", "fi_FI"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void LanguageTest::WithoutATranslationTextsAreAsTheyAreWritten() {
    QFETCH(QString, locale);
    InstallTranslation(*qApp, QLocale(locale));
    MainWindow plm;
    plm.Open();
    QCOMPARE(plm.TextOf("cmdSort"), QStringLiteral("Sort All Now!"));
    QCOMPARE(ToQt(UserLanguage()("%1 renamed", {u"2"})), QStringLiteral("2 renamed"));
}

void LanguageTest::SwedishIsComplete_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("own texts") << QStringLiteral("pellmore_sv.ts");
    QTest::newRow("the toolkit's") << QStringLiteral("toolkit_sv.ts");
}

void LanguageTest::SwedishIsComplete() {
    QFETCH(QString, file);
    QFile source(QString::fromStdString(test::SourceFolder()) +
                 QStringLiteral("/app/shared/translations/") + file);
    QVERIFY(source.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&source);
    int translations = 0;
    QString own;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement()) continue;
        if (reader.name() == u"source") own = reader.readElementText();
        if (reader.name() != u"translation") continue;
        ++translations;
        QVERIFY2(!reader.attributes().hasAttribute(QStringLiteral("type")), qPrintable(own));
        const QString text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
        QVERIFY2(!text.trimmed().isEmpty(), qPrintable(own));
        for (const QString& place : {QStringLiteral("%1"), QStringLiteral("%2"),
                                     QStringLiteral("%3"), QStringLiteral("%L1")})
            QVERIFY2(own.contains(place) == text.contains(place), qPrintable(own));
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QVERIFY(translations > 5);
}

void LanguageTest::Check(QWidget& window, const char* title) {
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(window.windowTitle(), QString::fromUtf8(title));
    const auto* tabs = window.findChild<QTabWidget*>();
    for (int page = 0; page < (tabs != nullptr ? tabs->count() : 1); ++page) {
        if (tabs != nullptr) const_cast<QTabWidget*>(tabs)->setCurrentIndex(page);
        QCoreApplication::processEvents();
        const QStringList faults = CutOff(window) + KeyboardFaults(window);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
}

void LanguageTest::MainWindowIsSwedish() {
    SpeakSwedish();
    MainWindow plm;
    plm.Open();
    plm.Window().resize(1024, 768);
    plm.Drop("lstFiles", {plm.Folder.File(u"in/1.mp3", "no tags")});
    QCOMPARE(plm.TextOf("cmdSort"), QStringLiteral("Sortera alla nu!"));
    QCOMPARE(plm.TextOf("mnuAbout"), QStringLiteral("Om"));
    QCOMPARE(plm.TextOf("lblStatus"), QStringLiteral("1 fil lades till."));
    Check(plm.Window(), "Pellmore");
    QCOMPARE(plm.Window().width(), 1024);
    const QStringList faults = MenuFaults(plm.Window());
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

void LanguageTest::DialogsAreSwedish() {
    SpeakSwedish();
    MainWindow plm;
    test::PanelFrames frames{"no frame"};
    frmOptions options(plm.Context);
    Check(options, "Inställningar");
    frmEdit edit(u"name.mp3");
    Check(edit, "Redigera filnamnet");
    frmSorting sorting;
    Check(sorting, "PLM - Sorterar...");
    frmMoreID3v2 more({frames, plm.Ask, plm.Dialogs, plm.Folder / u"1.mp3"});
    Check(more, "Fler ID3v2-ramar");
}

void LanguageTest::NamesFromTextIsSwedish() {
    SpeakSwedish();
    MainWindow plm;
    plm.Open();
    plm.Click("cmdNameFromFile");
    auto* tool = plm.Window().findChild<frmNameFromFile*>();
    QVERIFY(tool != nullptr);
    tool->resize(1024, 768);
    Check(*tool, "Hämta MP3-data från fil/text");
    QCOMPARE(tool->width(), 1024);
    const QStringList faults = MenuFaults(*tool);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

void LanguageTest::QuestionsHaveSwedishButtons() {
    SpeakSwedish();
    QStringList buttons;
    OnNextModal<QMessageBox>([&buttons](QMessageBox& box) {
        for (const QAbstractButton* button : box.buttons()) buttons << Plain(button->text());
        box.reject();
    });
    QVERIFY(QtPrompts().AskYesNoCancel({u"Title", u"Question?", {}}) == Answer::Cancel);
    buttons.sort();
    QCOMPARE(buttons,
             (QStringList{QStringLiteral("Avbryt"), QStringLiteral("Ja"), QStringLiteral("Nej")}));
}

void LanguageTest::TextsWithoutAWindowAreSwedish() {
    SpeakSwedish();
    RunReport report;
    report.Files.resize(3);
    report.Files.push_back(
        {u"/a.mp3", {}, FileFate::Failed, {Why::SystemError, ErrorNumber::DiskFull}});
    QCOMPARE(ToQt(SummaryText(report, SortWording, UserLanguage())),
             QStringLiteral("3 klara, 0 överhoppade, 1 misslyckade"));
    QCOMPARE(ToQt(FailureText(report, SortWording, UserLanguage())),
             QStringLiteral("Detta kunde inte sorteras:\n\"/a.mp3\": Disken är full"));
    QCOMPARE(QCoreApplication::translate("ListedFrames", "Lyrics"), QStringLiteral("Sångtext"));
}

QTEST_MAIN(LanguageTest)
#include "qt_language_test.moc"
