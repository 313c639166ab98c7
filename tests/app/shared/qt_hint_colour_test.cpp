#include "app/shared/qt_hint_colour.h"

#include <QApplication>
#include <QPalette>
#include <QTest>

using namespace mdlPLM;

class HintColourTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QApplication::setPalette(QPalette()); }

    void ADarkPaletteWithoutAColourForHintsGetsOne();
    void ALegibleColourStays_data();
    void ALegibleColourStays();

private:
    static QPalette Palette(const QColor& ground, const QColor& text, const QColor& hint) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::PlaceholderText, hint);
        return palette;
    }
};

void HintColourTest::ADarkPaletteWithoutAColourForHintsGetsOne() {
    QApplication::setPalette(Palette(QColor(27, 30, 32), QColor(252, 252, 252), {0, 0, 0, 128}));
    QVERIFY(!HintsAreLegible(QApplication::palette()));
    MakeHintsLegible(*qApp);
    const QPalette now = QApplication::palette();
    QVERIFY(HintsAreLegible(now));
    QCOMPARE(now.color(QPalette::PlaceholderText).red(), 252);
    QVERIFY(now.color(QPalette::PlaceholderText).alpha() < 255);
    QCOMPARE(now.color(QPalette::Text), QColor(252, 252, 252));
    QCOMPARE(now.color(QPalette::Base), QColor(27, 30, 32));
}

void HintColourTest::ALegibleColourStays_data() {
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << Palette(Qt::white, Qt::black, QColor(0, 0, 0, 128));
    QTest::newRow("dark") << Palette(QColor(27, 30, 32), Qt::white, QColor(161, 169, 177));
}

void HintColourTest::ALegibleColourStays() {
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    MakeHintsLegible(*qApp);
    QCOMPARE(QApplication::palette().color(QPalette::PlaceholderText),
             palette.color(QPalette::PlaceholderText));
}

QTEST_MAIN(HintColourTest)
#include "qt_hint_colour_test.moc"
