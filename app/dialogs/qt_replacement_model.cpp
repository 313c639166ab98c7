#include "app/dialogs/qt_replacement_model.h"

#include "app/shared/qt_text.h"

namespace mdlPLM {

ReplacementModel::ReplacementModel(const ReplacementEditor& editor, Text Replacement::*part,
                                   QObject* parent)
    : QAbstractListModel(parent), editor_(editor), part_(part) {}

int ReplacementModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(editor_.Pairs().size());
}

QVariant ReplacementModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Replacement& pair = editor_.Pairs()[static_cast<std::size_t>(index.row())];
    if (role == Qt::EditRole) return ToQt(pair.*part_);
    return role == Qt::DisplayRole ? ToQt(PairText(pair)) : QVariant();
}

void ReplacementModel::Reset() {
    beginResetModel();
    endResetModel();
}

}  // namespace mdlPLM
