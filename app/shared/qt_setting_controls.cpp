#include "app/shared/qt_setting_controls.h"

#include "app/shared/qt_text.h"

namespace mdlPLM {

void ShowSetting(QCheckBox& box, bool value) { box.setChecked(value); }

void ShowSetting(QCheckBox& box, int value) { box.setChecked(value == 1); }

void ShowSetting(QLineEdit& box, const Text& value) {
    box.setText(ToQt(value));
    box.setCursorPosition(0);
}

void ShowSetting(QLineEdit& box, long long value) { box.setText(ToQt(NumberText(value))); }

void ShowSetting(QComboBox& box, const Text& value) {
    box.setEditText(ToQt(value));
    box.lineEdit()->setCursorPosition(0);
}

void ShowSetting(QButtonGroup& group, int value) {
    if (QAbstractButton* button = group.button(value)) button->setChecked(true);
}

void TakeSetting(const QCheckBox& box, bool& value) { value = box.isChecked(); }

void TakeSetting(const QCheckBox& box, int& value) { value = box.isChecked() ? 1 : 0; }

void TakeSetting(const QLineEdit& box, Text& value) { value = FromQt(box.text()); }

void TakeSetting(const QLineEdit& box, long long& value) {
    value = IntegerPart(FromQt(box.text()));
}

void TakeSetting(const QComboBox& box, Text& value) { value = FromQt(box.currentText()); }

void TakeSetting(const QButtonGroup& group, int& value) {
    if (group.checkedId() >= 0) value = group.checkedId();
}

void NumberButtons(QButtonGroup& group, std::initializer_list<QAbstractButton*> buttons) {
    int number = 0;
    for (QAbstractButton* button : buttons) group.setId(button, number++);
}

}  // namespace mdlPLM
