#include "app/namefromtext/qt_pair_column.h"

#include <QGuiApplication>
#include <QPalette>

#include "app/shared/qt_text.h"

namespace mdlPLM {

namespace {

// No file system takes a longer name; a list would take seconds to cut it short.
constexpr std::size_t LongestShown = 1000;

}  // namespace

PairColumn::PairColumn(NamePairs& lists, Side side, QObject* parent)
    : QAbstractListModel(parent), lists_(lists), side_(side) {}

int PairColumn::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return static_cast<int>(side_ == Side::OldFiles ? lists_.OldFiles().size()
                                                    : lists_.NewNames().size());
}

QVariant PairColumn::data(const QModelIndex& index, int role) const {
    const int row = index.row();
    if (!index.isValid() || row >= rowCount()) return {};
    if (role == Qt::DisplayRole) return TextOf(row);
    if (role == Qt::ToolTipRole) return ToolTipOf(row);
    // What the run leaves alone is written paler.
    if (role == Qt::ForegroundRole && !HasPartner(row))
        return QGuiApplication::palette().brush(QPalette::PlaceholderText);
    if (role == Qt::AccessibleDescriptionRole && !HasPartner(row))
        return side_ == Side::OldFiles ? tr("no new name beside it") : tr("no file beside it");
    return {};
}

QString PairColumn::TextOf(int row) const {
    const auto index = static_cast<std::size_t>(row);
    const Text& text =
        side_ == Side::OldFiles ? lists_.OldFiles()[index].Entry : lists_.NewNames()[index];
    if (text.size() <= LongestShown) return ToQt(text);
    return ToQt(TextView(text).substr(0, LongestShown)) + QChar(0x2026);
}

// The whole text too, which the list may cut short.
QString PairColumn::ToolTipOf(int row) const {
    if (side_ == Side::OldFiles) return TextOf(row);
    return tr("Doubleclick to edit the filename!") + u'\n' + TextOf(row);
}

bool PairColumn::HasPartner(int row) const {
    return static_cast<std::size_t>(row) < lists_.Pairs();
}

void PairColumn::Append(const std::vector<Text>& texts) {
    if (texts.empty()) return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(texts.size()) - 1);
    if (side_ == Side::OldFiles)
        lists_.AddOldFiles(texts);
    else
        lists_.AddNewNames(texts);
    endInsertRows();
    emit CountChanged();
}

void PairColumn::Remove(int row) {
    if (row < 0 || row >= rowCount()) return;
    beginRemoveRows({}, row, row);
    if (side_ == Side::OldFiles)
        lists_.RemoveOldFile(static_cast<std::size_t>(row));
    else
        lists_.RemoveNewName(static_cast<std::size_t>(row));
    endRemoveRows();
    emit CountChanged();
}

void PairColumn::Clear() {
    beginResetModel();
    if (side_ == Side::OldFiles)
        lists_.ClearOldFiles();
    else
        lists_.ClearNewNames();
    endResetModel();
    emit CountChanged();
}

void PairColumn::SetNewName(int row, const Text& name) {
    lists_.SetNewName(static_cast<std::size_t>(row), name);
    emit dataChanged(index(row), index(row));
}

int PairColumn::MoveOldFile(int row, NamePairs::Direction direction) {
    if (row < 0) return row;
    const int moved =
        static_cast<int>(lists_.MoveOldFile(static_cast<std::size_t>(row), direction));
    emit dataChanged(index(qMin(row, moved)), index(qMax(row, moved)));
    return moved;
}

void PairColumn::ShowPartners() {
    if (rowCount() > 0) emit dataChanged(index(0), index(rowCount() - 1), {Qt::ForegroundRole});
}

}  // namespace mdlPLM
