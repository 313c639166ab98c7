#include "app/dialogs/frmOptions.h"

#include <QAccessible>
#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "app/shared/app_context.h"
#include "app/shared/qt_text.h"
#include "core/platform/path.h"
#include "tests/support/no_file_dialogs.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

using namespace mdlPLM;

namespace {

struct OptionRow {
    const char* Control;
    bool Settings::*Value;
};
constexpr OptionRow OptionRows[] = {
    {"chkID3", &Settings::bID3},
    {"chkExtension", &Settings::bExtension},
    {"chkLowext", &Settings::bLowExtension},
    {"chkUndtospace", &Settings::bScoreToSpace},
    {"chk20tospace", &Settings::b20toSpace},
    {"chkSpaces", &Settings::bSpaces},
    {"chkParenth", &Settings::bParentheses},
    {"chkReplace", &Settings::bReplace},
    {"chkMisses", &Settings::bMisses},
    {"chkSetAttributes", &Settings::bSetAttributes},
    {"chkReadOnly", &Settings::bReadOnly},
    {"chkHidden", &Settings::bHidden},
    {"chkArchive", &Settings::bArhive},
    {"chkRemoveChars", &Settings::bRemoveChars},
    {"chkRemHiddenID3", &Settings::bRemHiddenID3},
    {"chkOptimizeID3v1", &Settings::bOptimizedID3v1},
};

/// What the dialog is opened on: its own folder, store and prompts.
struct World {
    TempFolder Folder;
    SettingsStore Store{Folder / u"settings/PLM.ini"};
    SystemDisk Disk;
    ScriptedPrompts Prompts;
    NoFileDialogs Dialogs;
    AppContext Context{{}, {}, Store, Disk, Prompts, Dialogs, Folder.Path(), Folder.Path(), false};
};

}  // namespace

class frmOptionsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ShowsTheSettingsInForce();
    void CaptionsStandAsTheyAre_data();
    void CaptionsStandAsTheyAre();
    void OffersTheFiveCaseOptions();
    void ExplainsHiddenAndOptimizedTags();
    void OKTakesEverythingOverAndSavesIt();
    void OKSavesTheOptionsOnly();
    void ArchiveAndRemovedCharactersAreBackToTheirDefaultsAfterARestart();
    void AnUntouchedDialogChangesNothing();
    void LeavingWithoutOKChangesNothing_data();
    void LeavingWithoutOKChangesNothing();
    void AStoreThatCannotBeWrittenIsToldOnce();
    void AListThatCannotBeWrittenIsTold();

    void ExtensionBoxTakesNoPathCharacters();
    void ExtensionBoxTakesNoPasteKey();
    void ExtensionBoxFiltersWhatIsPasted();
    void LineBreaksCannotBeEntered();
    void SwitchesWhatDependsOnACheckBox();
    void ExtensionStaysEditableForTheFolderWalk();

    void ChoosingAPairShowsBothTexts();
    void TheDropDownListShowsWholePairs();
    void AddNewAppendsWhatWasEntered();
    void RemoveTakesTheShownPairOut();
    void TheListKeepsAtLeastOnePair();
    void OKTakesOverWhatStandsInTheBoxes();
    void TypingTheTextOfAnotherPairStaysWithTheShownOne();

    void EveryControlHasANameAndIsReachedByTab();
    void EnterIsOK();
    void FitsASmallScreen();

private:
    void Open();
    template <class Control>
    Control* Get(const char* name) {
        auto* control = form_->findChild<Control*>(name);
        Q_ASSERT(control != nullptr);
        return control;
    }
    void Tick(const char* name, bool on) { Get<QCheckBox>(name)->setChecked(on); }
    void PressOK() { QTest::mouseClick(Get<QPushButton>("cmdOK"), Qt::LeftButton); }
    void Press(const char* name) { QTest::mouseClick(Get<QPushButton>(name), Qt::LeftButton); }
    void Type(const char* combo, const QString& text);
    QString Shown(const char* combo) { return Get<QComboBox>(combo)->currentText(); }
    QString CountShown() { return Get<QLabel>("lblReplaceCount")->text(); }
    Text StoredValue(TextView key) const;

    std::unique_ptr<World> world_;
    std::unique_ptr<frmOptions> form_;
};

void frmOptionsTest::init() { world_ = std::make_unique<World>(); }

void frmOptionsTest::cleanup() { form_.reset(); }

void frmOptionsTest::Open() {
    form_ = std::make_unique<frmOptions>(world_->Context);
    form_->show();
    form_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form_.get()));
}

void frmOptionsTest::Type(const char* combo, const QString& text) {
    QLineEdit* box = Get<QComboBox>(combo)->lineEdit();
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
}

/// What stands in the settings file now.
Text frmOptionsTest::StoredValue(TextView key) const {
    SettingsStore store(world_->Store.Path());
    return store.Load().Ok() ? store.Get(u"Settings", key, u"(none)") : Text(u"(unreadable)");
}

void frmOptionsTest::ShowsTheSettingsInForce() {
    Settings& values = world_->Context.Values;
    for (const OptionRow& row : OptionRows) values.*row.Value = !(values.*row.Value);
    values.Extension = u"ogg";
    values.strSettings = u"#~";
    values.Change = 3;
    Open();
    QCOMPARE(form_->windowTitle(), "Options");
    for (const OptionRow& row : OptionRows)
        QVERIFY2(Get<QCheckBox>(row.Control)->isChecked() == values.*row.Value, row.Control);
    QCOMPARE(Get<QLineEdit>("txtExtension")->text(), "ogg");
    QCOMPARE(Get<QLineEdit>("txtRemoveChars")->text(), "#~");
    QCOMPARE(Get<QButtonGroup>("optChange")->checkedId(), 3);
}

void frmOptionsTest::CaptionsStandAsTheyAre_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char* control, const char* caption) {
        QTest::newRow(control) << QString(control) << QString(caption);
    };
    row("chkID3", "Create filename from ID3 tag if possible.");
    row("chkExtension", "Change file extension to: .");
    row("chkLowext", "Use lowercase extensions.");
    row("chkUndtospace", "Convert underscore to space.");
    row("chk20tospace", "Convert %20 to space.");
    row("chkSpaces", "Remove multiple spaces.");
    row("chkParenth", "Remove leading and trailing parentheses.");
    row("chkMisses", "Fix common misstakes.");
    row("chkSetAttributes", "Set file attributes to:");
    row("chkReadOnly", "Read-only");
    row("chkHidden", "Hidden");
    row("chkArchive", "Archive");
    row("chkRemoveChars", "Remove characters:");
    row("chkRemHiddenID3", "Remove \"hidden\" ID3v2 tags.");
    row("chkOptimizeID3v1", "Use optimized ID3v1 tags.");
}

void frmOptionsTest::CaptionsStandAsTheyAre() {
    QFETCH(QString, control);
    Open();
    QTEST(Get<QCheckBox>(control.toLatin1().constData())->text(), "caption");
}

void frmOptionsTest::OffersTheFiveCaseOptions() {
    Open();
    const char* captions[] = {
        "None of these.",
        "Make the first letter in every word uppercase.",
        "Only first letter in artist, title and album uppercase.",
        "All letters UPPERCASE.",
        "All letters lowercase.",
    };
    auto* group = Get<QButtonGroup>("optChange");
    QCOMPARE(group->buttons().size(), 5);
    for (int i = 0; i < 5; ++i) QCOMPARE(group->button(i)->text(), captions[i]);
}

void frmOptionsTest::ExplainsHiddenAndOptimizedTags() {
    Open();
    QCOMPARE(Get<QCheckBox>("chkRemHiddenID3")->toolTip(),
             "When the ID3 tags are saved \"hidden\" ID3v2 tags will be removed. These tags can "
             "contain pictures, lyrics, song length and more. But they are porly supported by "
             "todays applications.");
    QCOMPARE(Get<QCheckBox>("chkOptimizeID3v1")->toolTip(),
             "This will allow you to use up to 59 characters in the Title and Artist frames. "
             "(Depending on the length of Album and Comment). WinAmp though, will only show the "
             "first 30 characters.");
}

void frmOptionsTest::OKTakesEverythingOverAndSavesIt() {
    Open();
    for (const OptionRow& row : OptionRows) {
        QTest::keyClick(Get<QCheckBox>(row.Control), Qt::Key_Space);
        Tick(row.Control, !(Settings().*row.Value));
    }
    Get<QLineEdit>("txtExtension")->setText("ogg");
    Get<QLineEdit>("txtRemoveChars")->setText("#~");
    Get<QRadioButton>("optChange4")->setChecked(true);
    PressOK();
    QVERIFY(!form_->isVisible());
    QCOMPARE(form_->result(), int(QDialog::Accepted));
    for (const OptionRow& row : OptionRows)
        QVERIFY2(world_->Context.Values.*row.Value != Settings().*row.Value, row.Control);
    QVERIFY(world_->Context.Values.Extension == u"ogg");
    QVERIFY(world_->Context.Values.strSettings == u"#~");
    QCOMPARE(world_->Context.Values.Change, 4);
    QVERIFY(StoredValue(u"bID3") == u"False");
    QVERIFY(StoredValue(u"bReplace") == u"True");
    QVERIFY(StoredValue(u"Extension") == u"ogg");
    QVERIFY(StoredValue(u"Change") == u"4");
}

void frmOptionsTest::OKSavesTheOptionsOnly() {
    world_->Context.Values.InPattern = u"%title";
    Open();
    PressOK();
    QVERIFY(StoredValue(u"bID3") == u"True");
    for (const TextView key : {u"InPattern", u"OutPattern", u"Genre", u"Move", u"TargetDir"})
        QVERIFY(StoredValue(key) == u"(none)");
}

void frmOptionsTest::ArchiveAndRemovedCharactersAreBackToTheirDefaultsAfterARestart() {
    Open();
    Tick("chkSetAttributes", true);
    Tick("chkArchive", true);
    Tick("chkRemoveChars", true);
    Get<QLineEdit>("txtRemoveChars")->setText("#");
    PressOK();
    QVERIFY(world_->Context.Values.bArhive);
    QVERIFY(world_->Context.Values.strSettings == u"#");
    QVERIFY(StoredValue(u"bArchive") == u"True");
    QVERIFY(StoredValue(u"strRemoveChars") == u"#");

    SettingsStore store(world_->Store.Path());
    QVERIFY(store.Load().Ok());
    const Settings restarted = LoadSettings(store, world_->Folder.Path());
    QVERIFY(!restarted.bArhive);
    QVERIFY(restarted.strSettings == DefaultRemoveChars());
    QVERIFY(restarted.bSetAttributes);
    QVERIFY(restarted.bRemoveChars);
}

void frmOptionsTest::AnUntouchedDialogChangesNothing() {
    const Settings before = world_->Context.Values;
    world_->Context.Replacements = {{u"_-_", u" - "}, {u"x", u""}};
    Open();
    PressOK();
    const Settings& after = world_->Context.Values;
    for (const OptionRow& row : OptionRows)
        QVERIFY2(after.*row.Value == before.*row.Value, row.Control);
    QVERIFY(after.strSettings == DefaultRemoveChars());
    QVERIFY(after.Extension == before.Extension);
    QCOMPARE(after.Change, before.Change);
    QCOMPARE(ReadFile(world_->Folder / u"replaces.txt"), Bytes("_-_\r\n - \r\nx\r\n\r\n"));
}

void frmOptionsTest::LeavingWithoutOKChangesNothing_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("closing") << 2;
}

void frmOptionsTest::LeavingWithoutOKChangesNothing() {
    QFETCH(int, way);
    world_->Context.Replacements = {{u"a", u"b"}};
    Open();
    Tick("chkID3", false);
    Tick("chkReplace", true);
    Get<QLineEdit>("txtExtension")->setText("ogg");
    Get<QRadioButton>("optChange0")->setChecked(true);
    Type("cmbReplace1", "typed");
    Press("cmdAddReplace");
    if (way == 0) Press("cmdCancel");
    if (way == 1) QTest::keyClick(form_.get(), Qt::Key_Escape);
    if (way == 2) form_->close();
    QVERIFY(!form_->isVisible());
    QVERIFY(world_->Context.Values.bID3);
    QVERIFY(!world_->Context.Values.bReplace);
    QVERIFY(world_->Context.Values.Extension == u"mp3");
    QCOMPARE(world_->Context.Values.Change, 1);
    QCOMPARE(world_->Context.Replacements.size(), std::size_t(1));
    QVERIFY(ListTree(world_->Folder.Path()).empty());
}

void frmOptionsTest::AStoreThatCannotBeWrittenIsToldOnce() {
    (void)world_->Folder.File(u"settings", "a file where the folder should be");
    for (int round = 0; round < 2; ++round) {
        Open();
        Get<QLineEdit>("txtExtension")->setText(round == 0 ? "ogg" : "mp2");
        PressOK();
        QVERIFY(!form_->isVisible());
    }
    QVERIFY(world_->Context.Values.Extension == u"mp2");
    QCOMPARE(world_->Prompts.Log.size(), std::size_t(1));
    const Asked& told = world_->Prompts.Log[0];
    QCOMPARE(told.Kind, PromptKind::Critical);
    QVERIFY(StartsWith(told.What.Body, u"The settings could not be saved."));
    QVERIFY(told.What.Body.find(u"Error: ") != Text::npos);
    QVERIFY(told.What.Detail == world_->Store.Path());
}

void frmOptionsTest::AListThatCannotBeWrittenIsTold() {
    (void)world_->Folder.Folder(u"replaces.txt");
    Open();
    Tick("chkReplace", true);
    Type("cmbReplace1", "a");
    PressOK();
    QVERIFY(!form_->isVisible());
    QCOMPARE(world_->Context.Replacements.size(), std::size_t(1));
    QVERIFY(world_->Context.Replacements[0].Find == u"a");
    QCOMPARE(world_->Prompts.Log.size(), std::size_t(1));
    QVERIFY(StartsWith(world_->Prompts.Log[0].What.Body, u"The replacement list could not be"));
    QVERIFY(world_->Prompts.Log[0].What.Detail == world_->Folder / u"replaces.txt");
}

void frmOptionsTest::ExtensionBoxTakesNoPathCharacters() {
    Open();
    auto* box = Get<QLineEdit>("txtExtension");
    box->clear();
    QTest::keyClicks(box, "\\m/p:3?<>|");
    QCOMPARE(box->text(), "mp3");
}

void frmOptionsTest::ExtensionBoxTakesNoPasteKey() {
    QGuiApplication::clipboard()->setText("ogg");
    Open();
    QTest::keyClick(Get<QLineEdit>("txtExtension"), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Get<QLineEdit>("txtExtension")->text(), "mp3");
}

void frmOptionsTest::ExtensionBoxFiltersWhatIsPasted() {
    QGuiApplication::clipboard()->setText("o/g:g|");
    Open();
    auto* box = Get<QLineEdit>("txtExtension");
    box->clear();
    box->paste();
    QCOMPARE(box->text(), "ogg");
}

void frmOptionsTest::LineBreaksCannotBeEntered() {
    QGuiApplication::clipboard()->setText("a\r\nb");
    Open();
    Tick("chkReplace", true);
    Type("cmbReplace1", "");
    Get<QComboBox>("cmbReplace1")->lineEdit()->paste();
    QCOMPARE(Shown("cmbReplace1"), "a b");
    PressOK();
    QVERIFY(world_->Context.Replacements[0].Find == u"a b");
}

void frmOptionsTest::SwitchesWhatDependsOnACheckBox() {
    Open();
    const std::pair<const char*, QStringList> groups[] = {
        {"chkRemoveChars", {"txtRemoveChars"}},
        {"chkSetAttributes", {"chkReadOnly", "chkHidden", "chkArchive"}},
        {"chkReplace", {"cmbReplace1", "cmbReplace2", "cmdAddReplace", "cmdRemReplace"}},
    };
    for (const auto& [box, dependants] : groups)
        for (const bool on : {true, false}) {
            Tick(box, on);
            for (const QString& name : dependants)
                QVERIFY2(Get<QWidget>(name.toLatin1().constData())->isEnabled() == on,
                         qPrintable(name));
        }
    world_->Context.Values.bReplace = true;
    Open();
    QVERIFY(Get<QComboBox>("cmbReplace1")->isEnabled());
}

void frmOptionsTest::ExtensionStaysEditableForTheFolderWalk() {
    world_->Context.Values.bExtension = false;
    Open();
    QVERIFY(Get<QLineEdit>("txtExtension")->isEnabled());
}

void frmOptionsTest::ChoosingAPairShowsBothTexts() {
    world_->Context.Values.bReplace = true;
    world_->Context.Replacements = {{u"a", u"1"}, {u"b", u"2"}, {u"c", u"3"}};
    Open();
    QCOMPARE(Shown("cmbReplace1"), "a");
    QCOMPARE(Shown("cmbReplace2"), "1");
    QTest::keyClick(Get<QComboBox>("cmbReplace1"), Qt::Key_Down);
    QCOMPARE(Shown("cmbReplace1"), "b");
    QCOMPARE(Shown("cmbReplace2"), "2");
    QTest::keyClick(Get<QComboBox>("cmbReplace2"), Qt::Key_Down);
    QCOMPARE(Shown("cmbReplace1"), "c");
    QCOMPARE(Shown("cmbReplace2"), "3");
    QCOMPARE(CountShown(), "3 pairs in the list.");
}

void frmOptionsTest::TheDropDownListShowsWholePairs() {
    world_->Context.Replacements = {{u"_-_", u" - "}, {u"x", u""}};
    Open();
    for (const char* name : {"cmbReplace1", "cmbReplace2"}) {
        const QAbstractItemModel* model = Get<QComboBox>(name)->model();
        QCOMPARE(model->rowCount(), 2);
        QCOMPARE(model->index(0, 0).data().toString(), u"\"_-_\" \u2192 \" - \"");
        QCOMPARE(model->index(1, 0).data().toString(), u"\"x\" \u2192 \"\"");
    }
}

void frmOptionsTest::AddNewAppendsWhatWasEntered() {
    world_->Context.Values.bReplace = true;
    world_->Context.Replacements = {{u"a", u"1"}};
    Open();
    Type("cmbReplace1", "b");
    Type("cmbReplace2", "2");
    Press("cmdAddReplace");
    QCOMPARE(CountShown(), "2 pairs in the list.");
    QCOMPARE(Shown("cmbReplace1"), "");
    QCOMPARE(Shown("cmbReplace2"), "");
    QCOMPARE(QApplication::focusWidget(), Get<QComboBox>("cmbReplace1"));
    PressOK();
    QCOMPARE(ReadFile(world_->Folder / u"replaces.txt"), Bytes("a\r\n1\r\nb\r\n2\r\n"));
    QVERIFY(world_->Context.Replacements.at(1) == (Replacement{u"b", u"2"}));
}

void frmOptionsTest::RemoveTakesTheShownPairOut() {
    world_->Context.Values.bReplace = true;
    world_->Context.Replacements = {{u"a", u"1"}, {u"b", u"2"}};
    Open();
    Press("cmdRemReplace");
    QCOMPARE(Shown("cmbReplace1"), "b");
    QCOMPARE(Shown("cmbReplace2"), "2");
    QCOMPARE(CountShown(), "1 pair in the list.");
    PressOK();
    QCOMPARE(ReadFile(world_->Folder / u"replaces.txt"), Bytes("b\r\n2\r\n"));
}

void frmOptionsTest::TheListKeepsAtLeastOnePair() {
    world_->Context.Values.bReplace = true;
    world_->Context.Replacements = {{u"a", u"1"}};
    Open();
    Press("cmdRemReplace");
    QCOMPARE(CountShown(), "No pairs in the list.");
    PressOK();
    QCOMPARE(world_->Context.Replacements.size(), std::size_t(1));
    QVERIFY(world_->Context.Replacements[0] == Replacement());
}

void frmOptionsTest::OKTakesOverWhatStandsInTheBoxes() {
    world_->Context.Values.bReplace = true;
    world_->Context.Replacements = {{u"a", u"1"}, {u"b", u"2"}};
    Open();
    Type("cmbReplace2", "one");
    QTest::keyClick(Get<QComboBox>("cmbReplace1"), Qt::Key_Down);
    Type("cmbReplace2", "two");
    PressOK();
    QCOMPARE(ReadFile(world_->Folder / u"replaces.txt"), Bytes("a\r\none\r\nb\r\ntwo\r\n"));
}

void frmOptionsTest::TypingTheTextOfAnotherPairStaysWithTheShownOne() {
    world_->Context.Values.bReplace = true;
    world_->Context.Replacements = {{u"a", u"1"}, {u"b", u"2"}};
    Open();
    Type("cmbReplace2", "2");
    QTest::keyClick(Get<QComboBox>("cmbReplace2")->lineEdit(), Qt::Key_Tab);
    QCOMPARE(Shown("cmbReplace1"), "a");
    QCOMPARE(Shown("cmbReplace2"), "2");
    PressOK();
    QCOMPARE(ReadFile(world_->Folder / u"replaces.txt"), Bytes("a\r\n2\r\nb\r\n2\r\n"));
}

void frmOptionsTest::EveryControlHasANameAndIsReachedByTab() {
    for (const OptionRow& row : OptionRows) world_->Context.Values.*row.Value = true;
    Open();
    QSet<QWidget*> reached;
    for (int i = 0; i < 100; ++i) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (QWidget* control : form_->findChildren<QWidget*>()) {
        const bool inner = qobject_cast<QComboBox*>(control->parentWidget()) != nullptr;
        if (control->focusPolicy() == Qt::NoFocus || !control->isVisible() || inner) continue;
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
        QVERIFY2(accessible != nullptr && !accessible->text(QAccessible::Name).isEmpty(),
                 qPrintable(control->objectName()));
        const bool otherOption = qobject_cast<QRadioButton*>(control) != nullptr;
        QVERIFY2(otherOption || reached.contains(control), qPrintable(control->objectName()));
    }
    QVERIFY(reached.contains(Get<QRadioButton>("optChange1")));
    Get<QRadioButton>("optChange1")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QVERIFY(Get<QRadioButton>("optChange2")->isChecked());
}

void frmOptionsTest::EnterIsOK() {
    Open();
    QTest::keyClick(Get<QLineEdit>("txtExtension"), Qt::Key_Return);
    QCOMPARE(form_->result(), int(QDialog::Accepted));
}

void frmOptionsTest::FitsASmallScreen() {
    Open();
    QVERIFY2(form_->width() <= 900 && form_->height() <= 520,
             qPrintable(QStringLiteral("%1 x %2").arg(form_->width()).arg(form_->height())));
}

QTEST_MAIN(frmOptionsTest)
#include "frmOptions_test.moc"
