#include "app/shared/qt_tool_tip_wrapper.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>

namespace mdlPLM {

namespace {

/// That of the widget, or of the line in a list.
QString ToolTipAt(const QWidget& widget, const QPoint& place) {
    const auto* list = qobject_cast<const QAbstractItemView*>(widget.parent());
    if (list == nullptr || list->viewport() != &widget) return widget.toolTip();
    const QString ofLine = list->indexAt(place).data(Qt::ToolTipRole).toString();
    return ofLine.isEmpty() ? widget.toolTip() : ofLine;
}

/// Lines that no reasonable screen is too narrow for.
constexpr qsizetype ShortLine = 80;

bool HasShortLinesOnly(const QString& text) {
    const QStringList lines = text.split(u'\n');
    return std::all_of(lines.begin(), lines.end(),
                       [](const QString& line) { return line.size() <= ShortLine; });
}

/// The toolkit makes markup about as wide as high, and breaks a path for it wherever it can.
QString MarkupOf(const QString& text) {
    QString markup = Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
    if (HasShortLinesOnly(text))
        markup.replace(QLatin1String("<p>"), QLatin1String("<p style=\"white-space:nowrap\">"));
    return markup;
}

}  // namespace

bool ToolTipWrapper::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = event->type() == QEvent::ToolTip ? qobject_cast<QWidget*>(watched) : nullptr;
    if (widget == nullptr) return QObject::eventFilter(watched, event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString text = ToolTipAt(*widget, help->pos());
    if (text.isEmpty()) return QObject::eventFilter(watched, event);
    QToolTip::showText(help->globalPos(), MarkupOf(text), widget);
    return true;
}

}  // namespace mdlPLM
