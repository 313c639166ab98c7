// A line edit whose selection outlives its focus.
#pragma once

#include <QLineEdit>

namespace mdlPLM {

/// Remembers what was selected when the focus goes elsewhere, so that other controls can work on
/// it, and selects it again when the focus comes back. The focus alone selects nothing.
class KeptSelectionEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit KeptSelectionEdit(QWidget* parent = nullptr);
    /// The text that is selected, or was when the focus left; empty after a change of the text.
    [[nodiscard]] QString KeptSelection() const;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int start_ = 0;
    int length_ = 0;
};

}  // namespace mdlPLM
