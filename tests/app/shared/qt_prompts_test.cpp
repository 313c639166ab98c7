#include "app/shared/qt_prompts.h"

#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "app/shared/qt_text.h"
#include "tests/support/qt_modal.h"

using namespace mdlPLM;

namespace {

/// What stood in a box before it was answered.
struct Seen {
    QString Title;
    QString Body;
    QString Detail;
    QMessageBox::Icon Icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons Buttons;
    bool Literal = false;
};

Seen Look(QMessageBox& box) {
    bool literal = true;
    for (const QLabel* label : box.findChildren<QLabel*>())
        literal = literal && label->textFormat() == Qt::PlainText;
    return {box.windowTitle(),     box.text(), box.informativeText(), box.icon(),
            box.standardButtons(), literal};
}

using Answering = void (*)(QMessageBox&);

}  // namespace

class QtPromptsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setApplicationName("Pellmore"); }
    void GivesSafeAnswer_data();
    void GivesSafeAnswer();
    void GivesPressedAnswer_data();
    void GivesPressedAnswer();
    void ShowsTextsLiterally();
    void TakesTheProgramsNameAsTitle();
    void InformsWithOneButton();
    void ReportsErrorWithFileBeside();
    void AsksForText();
    void CancelledInputIsNothing();
    void StaysUsableOverDisabledWindow();
    void CutsLongText();
};

void QtPromptsTest::GivesSafeAnswer_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("Escape") << 0;
    QTest::newRow("closing the box") << 1;
    QTest::newRow("Enter") << 2;
}

void QtPromptsTest::GivesSafeAnswer() {
    QFETCH(int, way);
    const Answering ways[] = {
        [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); },
        [](QMessageBox& box) { box.close(); },
        [](QMessageBox& box) { QTest::keyClick(box.defaultButton(), Qt::Key_Return); },
    };
    QtPrompts prompts;
    OnNextModal<QMessageBox>(ways[way]);
    QCOMPARE(prompts.AskYesNo({{}, u"Delete?", {}}), Answer::No);
    OnNextModal<QMessageBox>(ways[way]);
    QCOMPARE(prompts.AskYesNoCancel({{}, u"Replace?", {}}), Answer::Cancel);
}

void QtPromptsTest::GivesPressedAnswer_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("answer");
    QTest::newRow("Yes") << int(QMessageBox::Yes) << int(Answer::Yes);
    QTest::newRow("No") << int(QMessageBox::No) << int(Answer::No);
    QTest::newRow("Cancel") << int(QMessageBox::Cancel) << int(Answer::Cancel);
}

void QtPromptsTest::GivesPressedAnswer() {
    QFETCH(int, button);
    QFETCH(int, answer);
    const auto press = [button](QMessageBox& box) {
        QTest::mouseClick(box.button(static_cast<QMessageBox::StandardButton>(button)),
                          Qt::LeftButton);
    };
    QtPrompts prompts;
    OnNextModal<QMessageBox>(press);
    QCOMPARE(int(prompts.AskYesNoCancel({{}, u"Replace?", {}})), answer);
    if (button == QMessageBox::Cancel) return;
    OnNextModal<QMessageBox>(press);
    QCOMPARE(int(prompts.AskYesNo({{}, u"Delete?", {}})), answer);
}

void QtPromptsTest::ShowsTextsLiterally() {
    Seen seen;
    OnNextModal<QMessageBox>([&seen](QMessageBox& box) {
        seen = Look(box);
        box.reject();
    });
    QtPrompts().AskYesNoCancel(
        {u"PLM", u"The file \"<b>a</b> & b\" already exists!\r\nReplace?", u"/m/<i>x</i>.mp3"});
    QCOMPARE(seen.Title, "PLM");
    QCOMPARE(seen.Body, "The file \"<b>a</b> & b\" already exists!\nReplace?");
    QCOMPARE(seen.Detail, "/m/<i>x</i>.mp3");
    QCOMPARE(seen.Icon, QMessageBox::Question);
    QCOMPARE(seen.Buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QVERIFY(seen.Literal);
}

void QtPromptsTest::TakesTheProgramsNameAsTitle() {
    Seen seen;
    OnNextModal<QMessageBox>([&seen](QMessageBox& box) {
        seen = Look(box);
        box.reject();
    });
    QtPrompts().AskYesNo({{}, u"Apply?", {}});
    QCOMPARE(seen.Title, "Pellmore");
    QCOMPARE(seen.Buttons, QMessageBox::Yes | QMessageBox::No);
}

void QtPromptsTest::InformsWithOneButton() {
    Seen seen;
    OnNextModal<QMessageBox>([&seen](QMessageBox& box) {
        seen = Look(box);
        box.accept();
    });
    QtPrompts().Inform({u"PLM", u"You must choose a target directory first!", {}});
    QCOMPARE(seen.Icon, QMessageBox::Information);
    QCOMPARE(seen.Buttons, QMessageBox::Ok);
    QCOMPARE(seen.Body, "You must choose a target directory first!");
}

void QtPromptsTest::ReportsErrorWithFileBeside() {
    Seen seen;
    OnNextModal<QMessageBox>([&seen](QMessageBox& box) {
        seen = Look(box);
        box.accept();
    });
    QtPrompts prompts;
    BoxErrors(prompts).Report(ErrorNumber::PermissionDenied, u"/m/a.mp3");
    QCOMPARE(seen.Icon, QMessageBox::Critical);
    QCOMPARE(seen.Body, "Error: 70\nPermission denied");
    QCOMPARE(seen.Detail, "/m/a.mp3");
}

void QtPromptsTest::AsksForText() {
    QString label;
    OnNextModal<QInputDialog>([&label](QInputDialog& box) {
        label = box.findChild<QLabel*>()->text();
        QTest::keyClicks(box.findChild<QLineEdit*>(), "ogg");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    const std::optional<Text> answer = QtPrompts().AskText({{}, u"Enter <ext>: ", {}});
    QCOMPARE(label, "Enter <ext>: ");
    QVERIFY(answer == Text(u"ogg"));
}

void QtPromptsTest::CancelledInputIsNothing() {
    OnNextModal<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    QVERIFY(!QtPrompts().AskText({{}, u"Enter:", {}}));
}

void QtPromptsTest::StaysUsableOverDisabledWindow() {
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.setEnabled(false);
    bool usable = false;
    OnNextModal<QMessageBox>([&usable](QMessageBox& box) {
        usable = box.button(QMessageBox::Yes)->isEnabled();
        box.reject();
    });
    QtPrompts().AskYesNo({{}, u"Replace?", {}});
    QVERIFY(usable);
}

void QtPromptsTest::CutsLongText() {
    Text lines;
    for (int i = 1; i <= 12; ++i)
        lines += (i > 1 ? u"\r\nfile " : u"file ") + NumberText((long long)i);
    QVERIFY(FitIntoBox(lines).Shown == lines);
    QVERIFY(FitIntoBox(lines).Rest.empty());
    const Text more = lines + u"\r\nfile 13";
    QVERIFY(FitIntoBox(more).Rest == more);
    const QString shown = ToQt(FitIntoBox(more).Shown);
    QVERIFY(shown.contains("file 11\r\n"));
    QVERIFY(shown.endsWith(u"\u2026 2 more lines"));
    // A list whose last line is ended as well has no line more.
    const Text ended = more + u"\r\nfile 14\r\n";
    QVERIFY(ToQt(FitIntoBox(ended).Shown).endsWith(u"\u2026 3 more lines"));
    QVERIFY(FitIntoBox(lines + u"\r\n").Rest.empty());

    QString whole;
    OnNextModal<QMessageBox>([&whole](QMessageBox& box) {
        whole = box.detailedText();
        box.accept();
    });
    QtPrompts().Critical({{}, more, {}});
    QVERIFY(whole.endsWith("file 12\nfile 13"));
}

QTEST_MAIN(QtPromptsTest)
#include "qt_prompts_test.moc"
