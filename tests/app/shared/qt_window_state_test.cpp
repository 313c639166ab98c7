#include "app/shared/qt_window_state.h"

#include <QScreen>
#include <QSplitter>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include "app/shared/qt_text.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

namespace {

struct Window {
    Window() {
        Form.setObjectName("frmTest");
        Splitter.setObjectName("splLists");
        auto* layout = new QVBoxLayout(&Form);
        layout->addWidget(&Splitter);
        Splitter.addWidget(new QTextEdit);
        Splitter.addWidget(new QTextEdit);
    }
    QWidget Form;
    QSplitter Splitter{&Form};
};

}  // namespace

class WindowStateTest : public QObject {
    Q_OBJECT

private slots:
    void SizesComeBackAfterARestart();
    void StaysAwayFromTheSettings();
    void NothingKeptLeavesTheWindowAlone();
    void RubbishLeavesTheWindowAlone();
    void AWindowFitsOnItsScreenWithItsFrame();
};

void WindowStateTest::SizesComeBackAfterARestart() {
    const TempFolder folder;
    SettingsStore store(folder / u"PLM.ini");
    QList<int> sizes;
    {
        Window window;
        window.Form.resize(640, 360);
        window.Form.show();
        window.Splitter.setSizes({420, 180});
        sizes = window.Splitter.sizes();
        KeepGeometry(window.Form, store);
        KeepSplitter(window.Splitter, store);
        QVERIFY(store.Save().Ok());
    }
    SettingsStore restarted(folder / u"PLM.ini");
    QVERIFY(restarted.Load().Ok());
    Window window;
    QVERIFY(RestoreGeometry(window.Form, restarted));
    window.Form.show();
    QVERIFY(RestoreSplitter(window.Splitter, restarted));
    QCOMPARE(window.Form.size(), QSize(640, 360));
    QCOMPARE(window.Splitter.sizes(), sizes);
}

void WindowStateTest::StaysAwayFromTheSettings() {
    const TempFolder folder;
    SettingsStore store(folder / u"PLM.ini");
    const Window window;
    KeepGeometry(window.Form, store);
    QVERIFY(!store.Get(u"Window", u"frmTest.Geometry", {}).empty());
    QVERIFY(store.Get(u"Settings", u"frmTest.Geometry", {}).empty());
}

void WindowStateTest::NothingKeptLeavesTheWindowAlone() {
    const SettingsStore store(u"/nowhere/PLM.ini");
    Window window;
    window.Form.resize(500, 400);
    QVERIFY(!RestoreGeometry(window.Form, store));
    QVERIFY(!RestoreSplitter(window.Splitter, store));
    QCOMPARE(window.Form.size(), QSize(500, 400));
}

void WindowStateTest::RubbishLeavesTheWindowAlone() {
    SettingsStore store(u"/nowhere/PLM.ini");
    store.Set(u"Window", u"frmTest.Geometry", u"no such thing \u00E4");
    store.Set(u"Window", u"frmTest.splLists", u"AAAA");
    Window window;
    window.Form.resize(500, 400);
    QVERIFY(!RestoreGeometry(window.Form, store));
    QVERIFY(!RestoreSplitter(window.Splitter, store));
    QCOMPARE(window.Form.size(), QSize(500, 400));
}

void WindowStateTest::AWindowFitsOnItsScreenWithItsFrame() {
    QWidget window;
    FitOnScreen(window, QSize(300, 200));
    QCOMPARE(window.size(), QSize(300, 200));
    FitOnScreen(window, QSize(5000, 5000));
    const QSize room = window.screen()->availableSize();
    QCOMPARE(window.width(), room.width());
    QVERIFY(window.height() <= room.height() - 20);
    QVERIFY(window.height() > room.height() - 100);
}

QTEST_MAIN(WindowStateTest)
#include "qt_window_state_test.moc"
