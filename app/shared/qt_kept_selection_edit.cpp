#include "app/shared/qt_kept_selection_edit.h"

#include <QFocusEvent>

namespace mdlPLM {

KeptSelectionEdit::KeptSelectionEdit(QWidget* parent) : QLineEdit(parent) {
    connect(this, &QLineEdit::textChanged, this, [this] { length_ = 0; });
}

QString KeptSelectionEdit::KeptSelection() const {
    return hasFocus() ? selectedText() : text().mid(start_, length_);
}

void KeptSelectionEdit::focusInEvent(QFocusEvent* event) {
    const int cursor = cursorPosition();
    QLineEdit::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason) return;
    if (length_ > 0)
        setSelection(start_, length_);
    else
        setCursorPosition(cursor);
}

void KeptSelectionEdit::focusOutEvent(QFocusEvent* event) {
    start_ = selectionStart();
    length_ = selectionLength();
    QLineEdit::focusOutEvent(event);
}

}  // namespace mdlPLM
