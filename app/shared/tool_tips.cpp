#include "app/shared/tool_tips.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace mdlPLM {

namespace {

/// That of the widget, or of the line in a list.
QString ToolTipAt(const QWidget& widget, const QPoint& place) {
    const auto* list = qobject_cast<const QAbstractItemView*>(widget.parent());
    if (list == nullptr || list->viewport() != &widget) return widget.toolTip();
    const QString ofLine = list->indexAt(place).data(Qt::ToolTipRole).toString();
    return ofLine.isEmpty() ? widget.toolTip() : ofLine;
}

}  // namespace

bool ToolTipWrapper::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = event->type() == QEvent::ToolTip ? qobject_cast<QWidget*>(watched) : nullptr;
    if (widget == nullptr) return QObject::eventFilter(watched, event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString text = ToolTipAt(*widget, help->pos());
    if (text.isEmpty()) return QObject::eventFilter(watched, event);
    QToolTip::showText(help->globalPos(), Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal),
                       widget);
    return true;
}

}  // namespace mdlPLM
