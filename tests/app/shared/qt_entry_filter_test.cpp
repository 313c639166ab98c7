#include "app/shared/qt_entry_filter.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

#include "app/shared/qt_text.h"

using namespace mdlPLM;

namespace {

bool IsSlashOrPasteKey(char16_t c) { return c == u'/' || c == 22; }

}  // namespace

class EntryFilterTest : public QObject {
    Q_OBJECT

private slots:
    void SwallowsForbiddenKeys();
    void SwallowsThePasteKeyWhereItIsForbidden();
    void TakesForbiddenCharactersOutOfPastedText();
    void KeepsTheCursorBehindPastedText();
    void TurnsLineBreaksIntoBlanks();
    void LeavesTextsOfTheProgramAlone();
    void WorksInAComboBox();
};

void EntryFilterTest::SwallowsForbiddenKeys() {
    QLineEdit box;
    FilterEntry(box, IsSlashOrPasteKey);
    QTest::keyClicks(&box, "a/b//c");
    QCOMPARE(box.text(), "abc");
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(box.text(), "ab");
}

void EntryFilterTest::SwallowsThePasteKeyWhereItIsForbidden() {
    QGuiApplication::clipboard()->setText("pasted");
    QLineEdit filtered;
    FilterEntry(filtered, IsSlashOrPasteKey);
    QTest::keyClick(&filtered, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(filtered.text(), "");
    QLineEdit open;
    FilterEntry(open);
    QTest::keyClick(&open, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(open.text(), "pasted");
}

void EntryFilterTest::TakesForbiddenCharactersOutOfPastedText() {
    QGuiApplication::clipboard()->setText("m/p/3");
    QLineEdit box;
    FilterEntry(box, IsSlashOrPasteKey);
    box.paste();
    QCOMPARE(box.text(), "mp3");
}

void EntryFilterTest::KeepsTheCursorBehindPastedText() {
    QGuiApplication::clipboard()->setText("/x/");
    QLineEdit box;
    FilterEntry(box, IsSlashOrPasteKey);
    box.setText("ab");
    box.setCursorPosition(1);
    box.paste();
    QCOMPARE(box.text(), "axb");
    QCOMPARE(box.cursorPosition(), 2);
}

void EntryFilterTest::TurnsLineBreaksIntoBlanks() {
    QVERIFY(FilteredEntry(u"a\r\nb\nc\rd\u2028e\u2029f", nullptr) == Text(u"a b c d e f"));
    QVERIFY(FilteredEntry(Text(u"a\0b", 3), nullptr) == Text(u"ab"));
    QVERIFY(FilteredEntry(u"\t a", nullptr) == Text(u"\t a"));
}

void EntryFilterTest::LeavesTextsOfTheProgramAlone() {
    QLineEdit box;
    FilterEntry(box, IsSlashOrPasteKey);
    box.setText("a/b");
    QCOMPARE(box.text(), "a/b");
}

void EntryFilterTest::WorksInAComboBox() {
    QComboBox combo;
    combo.setEditable(true);
    FilterEntry(*combo.lineEdit(), IsSlashOrPasteKey);
    QTest::keyClicks(combo.lineEdit(), "a/b");
    QCOMPARE(combo.currentText(), "ab");
}

QTEST_MAIN(EntryFilterTest)
#include "qt_entry_filter_test.moc"
