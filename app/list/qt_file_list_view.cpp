#include "app/list/qt_file_list_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QStyledItemDelegate>

#include "app/shared/qt_text.h"
#include "core/names/list_entry.h"

namespace mdlPLM {

namespace {

/// Draws a list line with its name in front of its folder: the folder is dimmed, and where there is
/// no room for both it is the first to be shortened.
class LineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& /*index*/) const override {
        // No width of its own, so that every line is as wide as the list. A little air between the
        // lines makes long names easier to follow.
        return {1, option.fontMetrics.height() + 4};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QString text = item.text;
        const QStyle* style = item.widget->style();
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
        const QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget)
                               .adjusted(margin, 0, -margin, 0);
        item.text.clear();
        style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
        painter->save();
        painter->setFont(item.font);
        DrawLine(*painter, item, room, text);
        painter->restore();
    }

private:
    static void DrawLine(QPainter& painter, const QStyleOptionViewItem& item, const QRect& room,
                         const QString& text) {
        const bool selected = item.state.testFlag(QStyle::State_Selected);
        const bool active = item.state.testFlag(QStyle::State_Active);
        const bool enabled = item.state.testFlag(QStyle::State_Enabled);
        const QPalette::ColorGroup group = !enabled ? QPalette::Disabled
                                           : active ? QPalette::Active
                                                    : QPalette::Inactive;
        QColor color =
            item.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
        const qsizetype end = text.indexOf(ToQt(ListEntryMarker));
        const QString name = end < 0 ? text : text.left(end);
        const int nameWidth = item.fontMetrics.horizontalAdvance(name);
        painter.setPen(color);
        painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                         item.fontMetrics.elidedText(name, Qt::ElideMiddle, room.width()));
        if (end < 0 || nameWidth >= room.width()) return;
        color.setAlphaF(color.alphaF() * 0.68F);
        painter.setPen(color);
        const QRect rest = room.adjusted(nameWidth, 0, 0, 0);
        painter.drawText(rest, Qt::AlignVCenter | Qt::TextSingleLine,
                         item.fontMetrics.elidedText(text.mid(end), Qt::ElideMiddle, rest.width()));
    }
};

}  // namespace

FileListView::FileListView(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setItemDelegate(new LineDelegate(this));
    connect(this, &QListView::doubleClicked, this,
            [this](const QModelIndex& index) { emit LineOpened(index.row()); });
}

void FileListView::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || event->modifiers().testFlag(Qt::ControlModifier) || !currentIndex().isValid())
        return QListView::keyPressEvent(event);
    emit LineOpened(currentIndex().row());
}

void FileListView::SetHint(const QString& hint) {
    hint_ = hint;
    setAccessibleDescription(hint);
}

void FileListView::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (hint_.isEmpty() || model() == nullptr || model()->rowCount() > 0) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int air = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(air, air, -air, -air),
                     Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

void FileListView::focusInEvent(QFocusEvent* event) {
    // Both lists have one cursor; the keys of a list work while it is in the list's own column.
    const QModelIndex current = currentIndex();
    if (current.isValid() && current.column() != modelColumn()) {
        selectionModel()->setCurrentIndex(current.siblingAtColumn(modelColumn()),
                                          QItemSelectionModel::NoUpdate);
    }
    QListView::focusInEvent(event);
}

}  // namespace mdlPLM
