#include "app/shared/tool_tips.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace mdlPLM {

bool ToolTipWrapper::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = event->type() == QEvent::ToolTip ? qobject_cast<QWidget*>(watched) : nullptr;
    if (widget == nullptr || widget->toolTip().isEmpty() || Qt::mightBeRichText(widget->toolTip()))
        return QObject::eventFilter(watched, event);
    const QString markup = Qt::convertFromPlainText(widget->toolTip(), Qt::WhiteSpaceNormal);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), markup, widget);
    return true;
}

}  // namespace mdlPLM
