// Tool tips of more than one line, taken as the plain texts that they are.
#pragma once

#include <QObject>

namespace mdlPLM {

/// Installed on the application, breaks long tool tips into lines. The toolkit does so for markup
/// only, and takes a text for markup that only looks like it, as a file's name may.
class ToolTipWrapper : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace mdlPLM
