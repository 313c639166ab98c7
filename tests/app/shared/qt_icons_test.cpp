#include "app/shared/qt_icons.h"

#include <QImage>
#include <QTest>

using namespace mdlPLM;

class IconsTest : public QObject {
    Q_OBJECT

private slots:
    void EveryIconIsDrawn();
    void EveryIconStandsOutOnLightAndDark();
};

namespace {

constexpr int Count = static_cast<int>(IconName::Stop) + 1;

QImage Drawn(int name) {
    return Icon(static_cast<IconName>(name))
        .pixmap(32, 32)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32);
}

}  // namespace

void IconsTest::EveryIconIsDrawn() {
    for (int name = 0; name < Count; ++name) {
        const QImage image = Drawn(name);
        int covered = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) covered += image.pixelColor(x, y).alpha() > 127;
        QVERIFY2(covered > 20, QByteArray::number(name).constData());
    }
}

void IconsTest::EveryIconStandsOutOnLightAndDark() {
    for (int name = 0; name < Count; ++name) {
        const QImage image = Drawn(name);
        for (const int paper : {255, 32}) {
            int distinct = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x) {
                    const QColor c = image.pixelColor(x, y);
                    distinct += c.alpha() > 200 && std::abs(qGray(c.rgb()) - paper) > 60;
                }
            QVERIFY2(distinct > 15, QByteArray::number(name).constData());
        }
    }
}

QTEST_MAIN(IconsTest)
#include "qt_icons_test.moc"
