// Every window by keyboard and by screen reader: each control has a name that is read out, Tab
// reaches each of them, and no two share a key.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>

#include "app/dialogs/frmEdit.h"
#include "app/dialogs/frmMoreID3v2.h"
#include "app/dialogs/frmOptions.h"
#include "app/main/frmSorting.h"
#include "core/platform/path.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/real_mp3.h"

using namespace mdlPLM;

namespace {

bool TakesInput(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&widget) != nullptr ||
           qobject_cast<const QTextEdit*>(&widget) != nullptr;
}

/// The controls of a window, without what the toolkit builds them of.
QList<QWidget*> InputControls(const QWidget& window) {
    QList<QWidget*> controls;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool own = !widget->objectName().isEmpty() &&
                         !widget->objectName().startsWith(QLatin1String("qt_"));
        if (own && widget->window() == &window && TakesInput(*widget)) controls << widget;
    }
    return controls;
}

/// What a screen reader says: the control's own name, its text, or that of the label beside it.
QString ReadOut(const QWidget& control) {
    if (!control.accessibleName().isEmpty()) return control.accessibleName();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) return button->text();
    for (const QLabel* label :
         control.parentWidget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly))
        if (label->buddy() == &control) return label->text();
    return {};
}

/// Where Tab leads, pressed until it comes round.
QSet<QWidget*> ReachedByTab(QWidget& window) {
    QSet<QWidget*> reached;
    const int most = static_cast<int>(window.findChildren<QWidget*>().size());
    for (int press = 0; press < most; ++press) {
        QWidget* focus = window.focusWidget();
        if (focus != nullptr) reached << focus;
        QTest::keyClick(focus != nullptr ? focus : &window, Qt::Key_Tab);
    }
    return reached;
}

/// Of radio buttons that belong together Tab reaches one, the arrow keys the others.
bool ReachedWithItsGroup(const QRadioButton& radio, const QSet<QWidget*>& reached) {
    const QList<QAbstractButton*> together =
        radio.group() != nullptr ? radio.group()->buttons()
                                 : radio.parentWidget()->findChildren<QAbstractButton*>();
    return std::any_of(together.begin(), together.end(), [&](QAbstractButton* one) {
        return qobject_cast<QRadioButton*>(one) != nullptr && reached.contains(one);
    });
}

bool IsReached(QWidget& control, const QSet<QWidget*>& reached) {
    if (const auto* radio = qobject_cast<QRadioButton*>(&control))
        return ReachedWithItsGroup(*radio, reached);
    return reached.contains(&control);
}

/// "Alt+A" to what has that key, of everything that is seen in the window.
QMultiMap<QString, QString> Keys(const QWidget& window) {
    QMultiMap<QString, QString> keys;
    const auto note = [&keys](const QString& text) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty()) keys.insert(key, text);
    };
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible()) note(button->text());
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->isVisible() && label->buddy() != nullptr) note(label->text());
    for (const auto* group : window.findChildren<QGroupBox*>())
        if (group->isVisible()) note(group->title());
    for (const auto* bar : window.findChildren<QMenuBar*>())
        for (const QAction* entry : bar->actions()) note(entry->text());
    return keys;
}

QMultiMap<QString, QString> KeysOfMenu(const QMenu& menu) {
    QMultiMap<QString, QString> keys;
    for (const QAction* entry : menu.actions())
        if (!entry->isSeparator())
            keys.insert(QKeySequence::mnemonic(entry->text()).toString(), entry->text());
    return keys;
}

QStringList Shared(const QMultiMap<QString, QString>& keys) {
    QStringList shared;
    for (const QString& key : keys.uniqueKeys())
        if (!key.isEmpty() && keys.count(key) > 1)
            shared << key + QStringLiteral(": ") +
                          QStringList(keys.values(key)).join(QStringLiteral(" / "));
    return shared;
}

/// What keeps a user of the keyboard, or one who listens, from using what the window shows now.
QStringList Faults(QWidget& window) {
    QStringList faults;
    const QSet<QWidget*> reached = ReachedByTab(window);
    for (QWidget* control : InputControls(window)) {
        const QString& name = control->objectName();
        if (ReadOut(*control).isEmpty()) faults << name + QStringLiteral(" has no name");
        if (control->isVisible() && control->isEnabled() && !IsReached(*control, reached))
            faults << name + QStringLiteral(" is not reached by Tab");
    }
    return faults << Shared(Keys(window));
}

class PanelFrames : public OtherFramesText {
public:
    [[nodiscard]] const Bytes& OtherFrames() const override { return frames_; }
    void SetOtherFrames(Bytes text) override { frames_ = std::move(text); }

private:
    Bytes frames_;
};

}  // namespace

class KeyboardTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { plm_.reset(); }

    void FaultsAreFound();
    void MainWindowWithOneFile();
    void MainWindowWithManyFiles();
    void MainMenus();
    void Progress();
    void EditName();
    void Options();
    void MoreFrames();

private:
    void Check(QWidget& window);
    template <class Dialog>
    void CheckDialog(Dialog& dialog) {
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        Check(dialog);
    }

    std::unique_ptr<MainWindow> plm_;
    PanelFrames frames_;
};

void KeyboardTest::init() {
    plm_ = std::make_unique<MainWindow>();
    plm_->Open();
    for (const TextView name : {u"in/1.mp3", u"in/2.mp3"}) {
        const Text path = plm_->Folder.File(Text(name), EncodedMp3());
        TagByPeer(path, {"artist", "title", "", "", "", -1});
    }
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    plm_->Click("chkPreview");
    plm_->Settle();
}

void KeyboardTest::Check(QWidget& window) {
    QVERIFY(!InputControls(window).isEmpty());
    const QList<QTabWidget*> tabs = window.findChildren<QTabWidget*>();
    const int pages = tabs.isEmpty() ? 1 : tabs.front()->count();
    for (int page = 0; page < pages; ++page) {
        if (!tabs.isEmpty()) tabs.front()->setCurrentIndex(page);
        QCoreApplication::processEvents();
        const QStringList faults = Faults(window);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
}

void KeyboardTest::FaultsAreFound() {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    const auto add = [layout](QWidget* control, const char* name) {
        control->setObjectName(QLatin1String(name));
        layout->addWidget(control);
    };
    add(new QPushButton(QStringLiteral("&One")), "cmdOne");
    add(new QPushButton(QStringLiteral("&Other")), "cmdOther");
    add(new QLineEdit, "txtNameless");
    auto* mouseOnly = new QCheckBox(QStringLiteral("Mouse only"));
    mouseOnly->setFocusPolicy(Qt::NoFocus);
    add(mouseOnly, "chkMouseOnly");
    auto* trap = new QPlainTextEdit;
    trap->setAccessibleName(QStringLiteral("Trap"));
    add(trap, "txtTrap");
    add(new QPushButton(QStringLiteral("Behind the trap")), "cmdBehind");
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(Faults(window), (QStringList{QStringLiteral("txtNameless has no name"),
                                          QStringLiteral("chkMouseOnly is not reached by Tab"),
                                          QStringLiteral("cmdBehind is not reached by Tab"),
                                          QStringLiteral("Alt+O: &Other / &One")}));
}

void KeyboardTest::MainWindowWithOneFile() {
    plm_->ClickLine("lstFiles", 0);
    Check(plm_->Window());
}

void KeyboardTest::MainWindowWithManyFiles() {
    plm_->Click("cmdSelectAll");
    QVERIFY(plm_->Get<QWidget>("chkID3v1Rem").isVisible());
    Check(plm_->Window());
}

void KeyboardTest::MainMenus() {
    QStringList faults;
    for (const auto* menu : plm_->Window().menuBar()->findChildren<QMenu*>()) {
        const QMultiMap<QString, QString> keys = KeysOfMenu(*menu);
        faults << Shared(keys);
        for (const QString& entry : keys.values(QString()))
            faults << entry + QStringLiteral(" has no key");
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

void KeyboardTest::Progress() {
    frmSorting sorting;
    CheckDialog(sorting);
}

void KeyboardTest::EditName() {
    frmEdit edit(u"name.mp3");
    CheckDialog(edit);
}

void KeyboardTest::Options() {
    frmOptions options(plm_->Context);
    CheckDialog(options);
}

void KeyboardTest::MoreFrames() {
    frmMoreID3v2 more({frames_, plm_->Ask, plm_->Dialogs, plm_->Folder / u"in/1.mp3"});
    CheckDialog(more);
}

QTEST_MAIN(KeyboardTest)
#include "qt_keyboard_test.moc"
