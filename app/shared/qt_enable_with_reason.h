// Tool tips that say why a control cannot be used.
#pragma once

#include <QWidget>

namespace mdlPLM {

/// Enables or disables a control. While it is disabled, the reason stands behind its tool tip.
void EnableWithReason(QWidget& control, bool enabled, const QString& reason);

}  // namespace mdlPLM
