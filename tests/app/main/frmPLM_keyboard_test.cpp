// The main window without a mouse.
#include <QAction>

#include "tests/support/qt_main_window.h"

using namespace mdlPLM;

class FrmPLMKeyboardTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { plm_.reset(); }

    void TabFollowsTheOrderOfTheWork();
    void ShortcutsAreUniqueAndShownInTheMenus();
    void ListKeysWorkOnlyInTheLists();

private:
    std::unique_ptr<MainWindow> plm_;
};

void FrmPLMKeyboardTest::init() {
    plm_ = std::make_unique<MainWindow>();
    plm_->Context.Values.Move = 0;
    plm_->Open();
    plm_->Click("chkPreview");
    plm_->Drop("lstFiles", {plm_->Folder.File(u"a.mp3", Bytes(300, 'x')),
                            plm_->Folder.File(u"b.mp3", Bytes(300, 'x'))});
    plm_->Click("cmdSelectAll");
}

void FrmPLMKeyboardTest::TabFollowsTheOrderOfTheWork() {
    plm_->Get<QWidget>("cmdAddFiles").setFocus();
    QStringList reached;
    for (int i = 0; i < 200; ++i) {
        reached << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget()->objectName() == reached.first()) break;
    }
    const QStringList order{QStringLiteral("cmdAddFiles"),   QStringLiteral("lstFiles"),
                            QStringLiteral("lstPreview"),    QStringLiteral("cmbInPattern"),
                            QStringLiteral("cmbOutPattern"), QStringLiteral("txtNewName"),
                            QStringLiteral("optMethod0"),    QStringLiteral("chkGenre"),
                            QStringLiteral("txtTargetDir"),  QStringLiteral("optExists0"),
                            QStringLiteral("cmdSort"),       QStringLiteral("chkID3v1"),
                            QStringLiteral("txtTitle"),      QStringLiteral("chkID3v2"),
                            QStringLiteral("txtV2Title"),    QStringLiteral("txtV2Composer"),
                            QStringLiteral("cmdSaveID3")};
    for (int i = 1; i < order.size(); ++i)
        QVERIFY2(reached.indexOf(order[i - 1]) < reached.indexOf(order[i]), qPrintable(order[i]));
}

void FrmPLMKeyboardTest::ShortcutsAreUniqueAndShownInTheMenus() {
    QMap<QString, QString> owners;
    for (const QAction* entry : plm_->Window().findChildren<QAction*>()) {
        const QString key = entry->shortcut().toString();
        if (key.isEmpty() || entry->objectName().isEmpty()) continue;
        QVERIFY2(!owners.contains(key), qPrintable(key));
        owners[key] = entry->objectName();
    }
    QCOMPARE(owners.value(QStringLiteral("Ctrl+O")), QStringLiteral("mnuAddFiles"));
    QCOMPARE(owners.value(QStringLiteral("Ctrl+S")), QStringLiteral("mnuSave"));
    QCOMPARE(owners.value(QStringLiteral("Ctrl+A")), QStringLiteral("mnuSelectAll"));
    QCOMPARE(owners.value(QStringLiteral("Ctrl+Q")), QStringLiteral("mnuExit"));
    QCOMPARE(owners.value(QStringLiteral("Del")), QStringLiteral("mnuRemFromList"));
    QCOMPARE(owners.value(QStringLiteral("Shift+Del")), QStringLiteral("mnuRemFromHD"));
}

void FrmPLMKeyboardTest::ListKeysWorkOnlyInTheLists() {
    plm_->ClickLine("lstFiles", 0);
    for (const char* elsewhere : {"txtTargetDir", "cmdSort", "cmbInPattern", "txtV2Title"})
        plm_->Key(elsewhere, Qt::Key_Delete);
    QCOMPARE(plm_->Lines("lstFiles").size(), 2);
    plm_->Key("lstFiles", Qt::Key_Delete);
    QCOMPARE(plm_->Lines("lstFiles").size(), 1);
}

QTEST_MAIN(FrmPLMKeyboardTest)
#include "frmPLM_keyboard_test.moc"
