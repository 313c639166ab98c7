#include "app/shared/qt_entry_filter.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "app/shared/qt_text.h"

namespace mdlPLM {

namespace {

bool IsLineBreak(char16_t c) {
    return c == u'\n' || c == u'\r' || c == u'\u2028' || c == u'\u2029';
}

/// The character of a key press as a key filter counts it: a control key gives its control code on
/// every platform, whether or not the toolkit says so.
char16_t CharacterOf(const QKeyEvent& key) {
    const bool letter = key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
    if (letter && key.modifiers() == Qt::ControlModifier)
        return static_cast<char16_t>(key.key() - Qt::Key_A + 1);
    return key.text().size() == 1 ? key.text().front().unicode() : char16_t(0);
}

class KeyFilter : public QObject {
public:
    KeyFilter(QLineEdit& box, IsForbidden forbidden) : QObject(&box), forbidden_(forbidden) {
        box.installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
        const char16_t c = CharacterOf(*static_cast<QKeyEvent*>(event));
        return c != 0 && forbidden_(c);
    }

private:
    IsForbidden forbidden_;
};

void CleanEntry(QLineEdit& box, IsForbidden forbidden) {
    const Text entered = FromQt(box.text());
    const Text kept = FilteredEntry(entered, forbidden);
    if (kept == entered) return;
    const TextView beforeCursor =
        TextView(entered).substr(0, static_cast<std::size_t>(box.cursorPosition()));
    const std::size_t cursor = FilteredEntry(beforeCursor, forbidden).size();
    box.setText(ToQt(kept));
    box.setCursorPosition(static_cast<int>(cursor));
}

}  // namespace

Text FilteredEntry(TextView text, IsForbidden forbidden) {
    Text kept;
    kept.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c == u'\n' && i > 0 && text[i - 1] == u'\r') continue;
        if (IsLineBreak(c))
            kept.push_back(u' ');
        else if (c != 0 && (forbidden == nullptr || !forbidden(c)))
            kept.push_back(c);
    }
    return kept;
}

void FilterEntry(QLineEdit& box, IsForbidden forbidden) {
    if (forbidden != nullptr) new KeyFilter(box, forbidden);
    QObject::connect(&box, &QLineEdit::textEdited, &box,
                     [&box, forbidden] { CleanEntry(box, forbidden); });
}

}  // namespace mdlPLM
