#include "app/shared/qt_box_text.h"

#include <QLineEdit>
#include <QStyle>
#include <algorithm>

namespace mdlPLM {

namespace {

constexpr int TextMargin = 2;  // the toolkit's own, on either side

bool IsWholeSeen(const QLineEdit& box) {
    const int frame = box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &box);
    return box.fontMetrics().horizontalAdvance(box.text()) <=
           box.width() - 2 * (frame + TextMargin);
}

}  // namespace

void SetBoxText(QLineEdit& box, const QString& text) {
    if (box.text() == text) return;
    const auto behind = box.hasFocus() ? box.text().size() - box.cursorPosition() : text.size();
    box.setText(text);
    box.setCursorPosition(static_cast<int>(std::max<qsizetype>(0, text.size() - behind)));
}

void ShowWholeTextAsTip(QLineEdit& box) {
    box.setToolTip(IsWholeSeen(box) ? QString() : box.text());
}

}  // namespace mdlPLM
