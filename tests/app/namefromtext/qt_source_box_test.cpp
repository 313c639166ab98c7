#include "app/namefromtext/qt_source_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <random>

#include "app/shared/qt_text.h"

using namespace mdlPLM;

class SourceBoxTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void EveryCharacterHasItsPosition();
    void ALongTextComesInPieces();
    void LongLinesAreBrokenInTheBoxOnly();
    void FollowsEverythingThatIsTyped();
    void KeepsTheLineEndsBesideAnEdit();
    void UndoGivesTheTextBack();
    void PastingNothingRemovesTheSelection();
    void ALongPasteComesInPieces();
    void TakesNoKeysWhileATextIsComing();
    void StoppingLeavesWhatStands();

private:
    void LoadAll(TextView text) {
        box_->Load(text);
        while (box_->FillStep()) {
        }
    }
    /// What the document holds, breaks as "\n".
    [[nodiscard]] Text Held() const {
        QTextCursor cursor(box_->document());
        cursor.select(QTextCursor::Document);
        return FromQt(cursor.selectedText().replace(QChar::ParagraphSeparator, u'\n'));
    }
    void ExpectInStep() const { QCOMPARE(Held(), box_->Source().Shown()); }
    [[nodiscard]] Text Whole() const { return box_->Source().Whole(); }
    void PasteByKey(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(box_.get(), Qt::Key_V, Qt::ControlModifier);
    }
    void FillByItself() {
        connect(box_.get(), &SourceBox::TextComing, box_.get(), [this] {
            while (box_->FillStep()) {
            }
        });
    }

    std::unique_ptr<SourceBox> box_;
};

void SourceBoxTest::init() {
    box_ = std::make_unique<SourceBox>();
    box_->show();
}

void SourceBoxTest::EveryCharacterHasItsPosition() {
    // Those between need fonts of their own to be laid out, and are nothing special.
    Text text;
    for (int code = 0; code < 0x10000; ++code)
        if (code < 0x0590 || (code >= 0x2000 && code < 0x2C00) || code >= 0xD800)
            text.push_back(static_cast<char16_t>(code));
    LoadAll(text);
    ExpectInStep();
    Text expected = Replace(text, u"\u2029", CrLf);
    for (char16_t& c : expected)
        if (c >= 0xFDD0 && c <= 0xFDEF) c = 0xFFFD;
    QCOMPARE(Whole(), expected);
}

void SourceBoxTest::ALongTextComesInPieces() {
    Text text;
    while (text.size() < 100000) text += u"a line of the text\r\n";
    box_->Load(text);
    int pieces = 1;
    while (box_->FillStep()) {
        QVERIFY(box_->isReadOnly());
        QVERIFY(box_->FilledPercent() < 100);
        ++pieces;
    }
    QVERIFY(pieces > 3);
    QVERIFY(!box_->isReadOnly());
    ExpectInStep();
    QCOMPARE(Whole(), text);
    QCOMPARE(box_->textCursor().position(), 0);
}

void SourceBoxTest::LongLinesAreBrokenInTheBoxOnly() {
    LoadAll(Text(SourceText::LongestShownLine * 3, u'x'));
    QCOMPARE(box_->document()->blockCount(), 3);
    QCOMPARE(Whole().size(), SourceText::LongestShownLine * 3);
    box_->selectAll();
    QCOMPARE(box_->SelectedText(), Whole());
}

void SourceBoxTest::FollowsEverythingThatIsTyped() {
    FillByItself();
    LoadAll(u"one\ntwo\r\nthree\rfour\r\n\r\nfive");
    std::mt19937 random(1);
    const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
    for (int i = 0; i < 600; ++i) {
        QTextCursor cursor = box_->textCursor();
        const int end = box_->document()->characterCount();
        cursor.setPosition(below(end));
        if (below(2) == 0) cursor.setPosition(below(end), QTextCursor::KeepAnchor);
        box_->setTextCursor(cursor);
        switch (below(7)) {
            case 0:
                QTest::keyClick(box_.get(), Qt::Key_Return);
                break;
            case 1:
                QTest::keyClick(box_.get(), Qt::Key_Delete);
                break;
            case 2:
                QTest::keyClick(box_.get(), Qt::Key_Backspace);
                break;
            case 3:
                box_->undo();
                break;
            case 4:
                box_->redo();
                break;
            case 5:
                PasteByKey(QStringLiteral("p\nq"));
                break;
            default:
                QTest::keyClicks(box_.get(), QStringLiteral("ab"));
                break;
        }
        ExpectInStep();
        if (QTest::currentTestFailed()) return;
    }
}

void SourceBoxTest::KeepsTheLineEndsBesideAnEdit() {
    LoadAll(u"one\ntwo\rthree");
    box_->moveCursor(QTextCursor::EndOfLine);
    QTest::keyClicks(box_.get(), QStringLiteral("!"));
    QTest::keyClick(box_.get(), Qt::Key_Return);
    QCOMPARE(Whole(), Text(u"one!\r\n\ntwo\rthree"));
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    QTextCursor all(box_->document());
    all.select(QTextCursor::Document);
    all.mergeCharFormat(bold);
    QCOMPARE(Whole(), Text(u"one!\r\n\ntwo\rthree"));
}

void SourceBoxTest::UndoGivesTheTextBack() {
    FillByItself();
    LoadAll(u"one\r\ntwo");
    box_->selectAll();
    PasteByKey(QStringLiteral("three"));
    QCOMPARE(Whole(), Text(u"three"));
    box_->undo();
    QCOMPARE(Whole(), Text(u"one\r\ntwo"));
    QVERIFY(!box_->document()->isUndoAvailable());
}

void SourceBoxTest::PastingNothingRemovesTheSelection() {
    FillByItself();
    LoadAll(u"one\r\ntwo");
    box_->selectAll();
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(box_.get(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Whole(), Text());
    ExpectInStep();
}

void SourceBoxTest::ALongPasteComesInPieces() {
    LoadAll(u"before\r\nafter");
    QTextCursor cursor = box_->textCursor();
    cursor.setPosition(7);
    box_->setTextCursor(cursor);
    const QString lines = QStringLiteral("a pasted line\n").repeated(5000);
    PasteByKey(lines);
    int pieces = 1;
    while (box_->FillStep()) ++pieces;
    QVERIFY(pieces > 3);
    ExpectInStep();
    QCOMPARE(Whole(), u"before\r\n" + Replace(FromQt(lines), u"\n", CrLf) + u"after");
    box_->undo();
    ExpectInStep();
    QCOMPARE(Whole(), Text(u"before\r\nafter"));
}

void SourceBoxTest::TakesNoKeysWhileATextIsComing() {
    box_->Load(Text(100000, u'x'));
    box_->FillStep();
    QTest::keyClicks(box_.get(), QStringLiteral("abc"));
    PasteByKey(QStringLiteral("abc"));
    while (box_->FillStep()) {
    }
    QCOMPARE(Whole(), Text(100000, u'x'));
    ExpectInStep();
}

void SourceBoxTest::StoppingLeavesWhatStands() {
    LoadAll(u"before\r\nafter");
    box_->moveCursor(QTextCursor::Down);
    PasteByKey(QString(100000, u'x'));
    box_->FillStep();
    box_->StopFilling();
    ExpectInStep();
    const Text whole = Whole();
    QVERIFY(whole.size() > 100);
    QVERIFY(whole.size() < 50000);
    QVERIFY(StartsWith(whole, u"before\r\nxxx"));
    QVERIFY(EndsWith(whole, u"xxafter"));
    QVERIFY(!box_->isReadOnly());
}

QTEST_MAIN(SourceBoxTest)
#include "qt_source_box_test.moc"
