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
    void DamagedSettingsAreToldOnceAndLeftAsTheyAre();
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

void SaveSettingsTest::DamagedSettingsAreToldOnceAndLeftAsTheyAre() {
    const TempFolder folder;
    SettingsStore store(folder.File(u"PLM.ini", "[Settings]\nChange=4\n"));
    SetFileLength(store.Path(), 2 << 20);
    SystemDisk disk;
    ScriptedPrompts prompts;
    NoFileDialogs dialogs;
    AppContext context{{}, {}, store, disk, prompts, dialogs, {}, {}, false};
    TellUnreadSettings(context, store.Load());
    QCOMPARE(prompts.Log.size(), std::size_t(1));
    QCOMPARE(prompts.Log[0].Kind, PromptKind::Critical);
    QVERIFY(prompts.Log[0].What.Body.find(u"so it is damaged") != Text::npos);
    QVERIFY(prompts.Log[0].What.Detail == store.Path());
    store.Set(u"Settings", u"Extension", u"ogg");
    SaveSettings(context);
    TellUnreadSettings(context, store.Load());
    QCOMPARE(prompts.Log.size(), std::size_t(1));
    QCOMPARE(ReadFile(store.Path()).size(), std::size_t{2} << 20);
    context.StoreFailureTold = false;
    TellUnreadSettings(context, Status());
    QCOMPARE(prompts.Log.size(), std::size_t(1));
}

QTEST_GUILESS_MAIN(SaveSettingsTest)
#include "qt_save_settings_test.moc"
