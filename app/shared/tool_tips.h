// Tool tips of more than one line.
#pragma once

#include <QObject>

namespace mdlPLM {

/// Installed on the application, breaks long tool tips into lines. The toolkit does so for markup
/// only, and a tool tip's text is to stay what it is.
class ToolTipWrapper : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace mdlPLM
