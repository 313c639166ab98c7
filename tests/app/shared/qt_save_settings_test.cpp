#include "app/shared/qt_save_settings.h"

#include <QTest>

#include "tests/support/no_file_dialogs.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

class SaveSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void WritesTheStore();
    void AFailureIsToldOnceWithTheFileAndTheReason();
};

void SaveSettingsTest::WritesTheStore() {
    const TempFolder folder;
    SettingsStore store(folder / u"new/PLM.ini");
    SystemDisk disk;
    ScriptedPrompts prompts;
    NoFileDialogs dialogs;
    AppContext context{{}, {}, store, disk, prompts, dialogs, {}, {}, false};
    store.Set(u"Settings", u"Extension", u"ogg");
    SaveSettings(context);
    QVERIFY(prompts.Log.empty());
    SettingsStore again(store.Path());
    QVERIFY(again.Load().Ok());
    QVERIFY(again.Get(u"Settings", u"Extension", {}) == u"ogg");
}

void SaveSettingsTest::AFailureIsToldOnceWithTheFileAndTheReason() {
    const TempFolder folder;
    SettingsStore store(folder.File(u"file") + u"/PLM.ini");
    SystemDisk disk;
    ScriptedPrompts prompts;
    NoFileDialogs dialogs;
    AppContext context{{}, {}, store, disk, prompts, dialogs, {}, {}, false};
    for (int i = 0; i < 3; ++i) {
        store.Set(u"Settings", u"Extension", NumberText(static_cast<long long>(i)));
        SaveSettings(context);
    }
    QCOMPARE(prompts.Log.size(), std::size_t(1));
    QCOMPARE(prompts.Log[0].Kind, PromptKind::Critical);
    QVERIFY(prompts.Log[0].What.Body.find(u"\r\nError: ") != Text::npos);
    QVERIFY(prompts.Log[0].What.Detail == store.Path());
}

QTEST_GUILESS_MAIN(SaveSettingsTest)
#include "qt_save_settings_test.moc"
