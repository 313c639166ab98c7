#include "app/namefromtext/qt_paired_list_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace mdlPLM {

namespace {

// Rows as wide as the list, so that long texts are cut short with dots.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {0, QStyledItemDelegate::sizeHint(option, index).height()};
    }
};

}  // namespace

PairedListView::PairedListView(QWidget* parent) : QListView(parent) {
    setSelectionMode(SingleSelection);
    setItemDelegate(new RowDelegate(this));
    // One that comes and goes would do so for ever: whether it is needed depends on the other list.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void PairedListView::PairWith(PairedListView* other) {
    other_ = other;
    other->other_ = this;
    const auto follow = [](PairedListView* leader, PairedListView* follower) {
        connect(leader->verticalScrollBar(), &QScrollBar::valueChanged,
                follower->verticalScrollBar(), &QScrollBar::setValue);
    };
    follow(this, other);
    follow(other, this);
}

int PairedListView::SelectedRow() const {
    const QModelIndexList rows = selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void PairedListView::SelectRow(int row) { setCurrentIndex(model()->index(row, 0)); }

// An empty list keeps the size of what it held.
int PairedListView::ContentsHeight() const {
    return model() == nullptr || model()->rowCount() == 0 ? 0 : contentsSize().height();
}

// The list measures itself by its own rows alone, which must not move the place that both show.
void PairedListView::updateGeometries() {
    QScrollBar* const bar = verticalScrollBar();
    const int before = bar->value();
    {
        const QSignalBlocker quiet(bar);
        QListView::updateGeometries();
        StretchScrolling();
        bar->setValue(before);
    }
    if (bar->value() != before) emit bar->valueChanged(bar->value());
    if (other_ != nullptr) other_->StretchScrolling();
}

void PairedListView::StretchScrolling() {
    if (other_ == nullptr) return;
    const int height = qMax(ContentsHeight(), other_->ContentsHeight());
    const int room = qMin(viewport()->height(), other_->viewport()->height());
    verticalScrollBar()->setMaximum(qMax(0, height - room));
}

void PairedListView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Delete:
            emit DeletePressed();
            break;
        case Qt::Key_F2:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            emit EditPressed();
            break;
        default:
            QListView::keyPressEvent(event);
    }
}

void PairedListView::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (hint_.isEmpty() || model() == nullptr || model()->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(12, 6, -12, -6),
                     Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

}  // namespace mdlPLM
