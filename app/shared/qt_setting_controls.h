// Settings and the controls that show them: each pair is bound once, in a row of its form's table.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <initializer_list>

#include "core/settings/settings_table.h"

namespace mdlPLM {

/// How a value gets into a control of each kind, and back. An integer of a check box is 0 or 1, one
/// of a group the number of its button: a number without a button chooses none, and where none is
/// chosen the value stays. A text is shown from its beginning.
void ShowSetting(QCheckBox& box, bool value);
void ShowSetting(QCheckBox& box, int value);
void ShowSetting(QLineEdit& box, const Text& value);
void ShowSetting(QLineEdit& box, long long value);
void ShowSetting(QComboBox& box, const Text& value);
void ShowSetting(QButtonGroup& group, int value);
void TakeSetting(const QCheckBox& box, bool& value);
void TakeSetting(const QCheckBox& box, int& value);
void TakeSetting(const QLineEdit& box, Text& value);
void TakeSetting(const QLineEdit& box, long long& value);
void TakeSetting(const QComboBox& box, Text& value);
void TakeSetting(const QButtonGroup& group, int& value);

/// A control of the form whose controls are members of `Form`, and its setting. Who saves it stands
/// in the setting's own row.
template <class Form>
struct SettingControl {
    SettingField Setting;
    void (*Load)(const Form& form, const Settings& values);
    void (*Take)(const Form& form, Settings& values);
};

template <class Form, auto Control, auto Setting>
constexpr SettingControl<Form> Bound() {
    return {
        Setting,
        [](const Form& form, const Settings& values) {
            ShowSetting(*(form.*Control), values.*Setting);
        },
        [](const Form& form, Settings& values) { TakeSetting(*(form.*Control), values.*Setting); }};
}

/// True when `writer` saves every setting of these rows.
template <class Form, std::size_t Count>
constexpr bool AllWrittenBy(WrittenBy writer, const SettingControl<Form> (&rows)[Count]) {
    for (const SettingControl<Form>& row : rows)
        if (RowOfSetting(row.Setting).Writer != writer) return false;
    return true;
}

/// Gives the buttons of a group the numbers 0, 1, 2 and so on.
void NumberButtons(QButtonGroup& group, std::initializer_list<QAbstractButton*> buttons);

}  // namespace mdlPLM
