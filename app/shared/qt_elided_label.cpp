#include "app/shared/qt_elided_label.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace mdlPLM {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QString ElidedLabel::SeenText() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, Room().width());
}

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    style()->drawItemText(&painter, Room(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          palette(), isEnabled(), SeenText(), foregroundRole());
}

QRect ElidedLabel::Room() const { return contentsRect().adjusted(std::max(indent(), 0), 0, 0, 0); }

}  // namespace mdlPLM
