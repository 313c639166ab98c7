#include "app/shared/qt_elided_label.h"

#include <QTest>

using namespace mdlPLM;

class ElidedLabelTest : public QObject {
    Q_OBJECT

private slots:
    void ALongTextIsCutShortWithDots();
    void AShortTextIsSeenWhole();
    void ItAsksForNoWidth();
    void WhatIsSeenIsPainted();
};

void ElidedLabelTest::ALongTextIsCutShortWithDots() {
    ElidedLabel label;
    label.resize(200, 20);
    const QString text = QStringLiteral("The file \"%1\" cannot be played.").arg(QString(90, u'x'));
    label.setText(text);
    QVERIFY(label.SeenText().startsWith(QStringLiteral("The file")));
    QVERIFY(label.SeenText().endsWith(QChar(0x2026)));
    QVERIFY(label.fontMetrics().horizontalAdvance(label.SeenText()) <= 200);
    QCOMPARE(label.text(), text);
    label.setIndent(100);
    QVERIFY(label.fontMetrics().horizontalAdvance(label.SeenText()) <= 100);
}

void ElidedLabelTest::AShortTextIsSeenWhole() {
    ElidedLabel label;
    label.resize(400, 20);
    label.setText(QStringLiteral("5 files <b>added</b>."));
    QCOMPARE(label.SeenText(), QStringLiteral("5 files <b>added</b>."));
}

void ElidedLabelTest::ItAsksForNoWidth() {
    ElidedLabel label;
    label.setText(QString(1000, u'x'));
    QCOMPARE(label.minimumSizeHint().width(), 0);
    QVERIFY(label.minimumSizeHint().height() > 0);
}

void ElidedLabelTest::WhatIsSeenIsPainted() {
    ElidedLabel label;
    label.resize(200, 20);
    const QImage blank = label.grab().toImage();
    label.setText(QStringLiteral("words"));
    QVERIFY(label.grab().toImage() != blank);
}

QTEST_MAIN(ElidedLabelTest)
#include "qt_elided_label_test.moc"
