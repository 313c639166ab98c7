#include "app/shared/qt_enable_with_reason.h"

#include <QVariant>

namespace mdlPLM {

namespace {

constexpr const char* OwnTip = "OwnToolTip";

}  // namespace

void EnableWithReason(QWidget& control, bool enabled, const QString& reason) {
    control.setEnabled(enabled);
    if (!control.property(OwnTip).isValid()) control.setProperty(OwnTip, control.toolTip());
    const QString own = control.property(OwnTip).toString();
    const QString both = own.isEmpty() ? reason : own + u' ' + reason;
    control.setToolTip(enabled ? own : both);
}

}  // namespace mdlPLM
