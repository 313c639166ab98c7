#include "app/shared/qt_tool_tip_wrapper.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

using namespace mdlPLM;

namespace {

QLabel* ShownTip() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel") && window->isVisible())
            return qobject_cast<QLabel*>(window);
    return nullptr;
}

void RestMouseOn(QWidget& widget, const QPoint& place) {
    QHelpEvent help(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &help);
}

/// What a reader sees of the tool tip.
QString ReadTip() {
    const QLabel* tip = ShownTip();
    if (tip == nullptr) return {};
    QTextDocument page;
    page.setHtml(tip->text());
    return page.toPlainText();
}

}  // namespace

class ToolTipWrapperTest : public QObject {
    Q_OBJECT

private slots:
    void init() { qApp->installEventFilter(&wrapper_); }
    void cleanup() {
        qApp->removeEventFilter(&wrapper_);
        QToolTip::hideText();
    }

    void BreaksLongToolTipIntoLines();
    void AShortPathStaysInOneLine();
    void MarkupInAFileNameIsShownAsItStands_data();
    void MarkupInAFileNameIsShownAsItStands();
    void MarkupInALineOfAListIsShownAsItStands();
    void AWidgetWithoutAToolTipShowsNone();

private:
    ToolTipWrapper wrapper_;
};

void ToolTipWrapperTest::BreaksLongToolTipIntoLines() {
    QPushButton button;
    const QString text =
        "This tool tip says \"much\" & more <than> fits on one line of any reasonable screen, so "
        "it has to be broken into several lines to be read at all by anybody, wherever it stands.";
    button.setToolTip(text);
    button.show();
    RestMouseOn(button, QPoint(1, 1));
    QCOMPARE(button.toolTip(), text);
    const QLabel* tip = ShownTip();
    if (tip == nullptr) QFAIL("no tool tip is shown");
    QVERIFY(tip->wordWrap());
    QVERIFY(tip->width() < tip->fontMetrics().horizontalAdvance(text));
    QCOMPARE(ReadTip(), text);
}

void ToolTipWrapperTest::AShortPathStaysInOneLine() {
    QPushButton button;
    button.show();
    for (const QString& text : {QStringLiteral("Open: /home/me/music/The Paper Kites/one.mp3"),
                                QStringLiteral("Doubleclick!\n01 - The Paper Kites - One.mp3")}) {
        button.setToolTip(text);
        RestMouseOn(button, QPoint(1, 1));
        QCOMPARE(ReadTip(), text);
        const QLabel* tip = ShownTip();
        const int longest = tip->fontMetrics().horizontalAdvance(text.section(u'\n', -1));
        QVERIFY2(tip->width() >= longest, qPrintable(QString::number(tip->width())));
        QToolTip::hideText();
    }
}

void ToolTipWrapperTest::MarkupInAFileNameIsShownAsItStands_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("bold") << "Open: /music/<b>Loud</b>.mp3";
    QTest::newRow("at the start") << "<b>Loud</b>.mp3";
    QTest::newRow("a whole page") << "<html><body><h1>Loud</h1></body></html>.mp3";
    QTest::newRow("an entity") << "Rock &amp; Roll.mp3";
    QTest::newRow("a picture") << "<img src=\"/etc/hostname\">.mp3";
}

void ToolTipWrapperTest::MarkupInAFileNameIsShownAsItStands() {
    QFETCH(QString, text);
    QPushButton button;
    button.setToolTip(text);
    button.show();
    RestMouseOn(button, QPoint(1, 1));
    QCOMPARE(ReadTip(), text);
}

void ToolTipWrapperTest::MarkupInALineOfAListIsShownAsItStands() {
    QListWidget list;
    list.setToolTip("The list");
    auto* line = new QListWidgetItem("1", &list);
    line->setToolTip("<b>Loud</b>.mp3");
    new QListWidgetItem("a line without one", &list);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    RestMouseOn(*list.viewport(), list.visualItemRect(line).center());
    QCOMPARE(ReadTip(), QString("<b>Loud</b>.mp3"));
}

void ToolTipWrapperTest::AWidgetWithoutAToolTipShowsNone() {
    QPushButton button;
    button.show();
    RestMouseOn(button, QPoint(1, 1));
    QVERIFY(ShownTip() == nullptr);
}

QTEST_MAIN(ToolTipWrapperTest)
#include "qt_tool_tip_wrapper_test.moc"
