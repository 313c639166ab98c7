#include "tests/support/qt_keyboard.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMultiMap>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSet>
#include <QTextEdit>
#include <QtTest/QtTest>

namespace mdlPLM {

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

}  // namespace

QStringList KeyboardFaults(QWidget& window) {
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

QStringList MenuFaults(const QWidget& window) {
    QStringList faults;
    for (const auto* menu : window.findChildren<QMenu*>()) {
        const QMultiMap<QString, QString> keys = KeysOfMenu(*menu);
        faults << Shared(keys);
        for (const QString& entry : keys.values(QString()))
            faults << entry + QStringLiteral(" has no key");
    }
    return faults;
}

}  // namespace mdlPLM
