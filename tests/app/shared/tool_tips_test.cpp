#include "app/shared/tool_tips.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

using namespace mdlPLM;

class ToolTipsTest : public QObject {
    Q_OBJECT

private slots:
    void BreaksLongToolTipIntoLines();
};

void ToolTipsTest::BreaksLongToolTipIntoLines() {
    ToolTipWrapper wrapper;
    qApp->installEventFilter(&wrapper);
    QPushButton button;
    const QString text =
        "This tool tip says \"much\" & more <than> fits on one line of any reasonable screen, so "
        "it has to be broken into several lines to be read at all by anybody, wherever it stands.";
    button.setToolTip(text);
    button.show();
    QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(&button, &help);
    QCOMPARE(button.toolTip(), text);
    QVERIFY(QToolTip::isVisible());
    QLabel* tip = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel")) tip = qobject_cast<QLabel*>(window);
    QVERIFY(tip != nullptr);
    QVERIFY(tip->wordWrap());
    QVERIFY(tip->width() < tip->fontMetrics().horizontalAdvance(text));
    QVERIFY(tip->text().contains("\"much\" &amp; more &lt;than&gt;"));
}

QTEST_MAIN(ToolTipsTest)
#include "tool_tips_test.moc"
