// The replacement list for the drop-down lists of its two boxes.
#pragma once

#include <QAbstractListModel>

#include "app/dialogs/replacement_editor.h"

namespace mdlPLM {

/// Lists whole pairs; choosing one puts one text of it, `part`, into the box. (Were the lines the
/// texts themselves, a box would jump to another pair as soon as its text is typed.)
class ReplacementModel : public QAbstractListModel {
public:
    ReplacementModel(const ReplacementEditor& editor, Text Replacement::*part, QObject* parent);
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// To be called after every change of the list.
    void Reset();

private:
    const ReplacementEditor& editor_;
    Text Replacement::*part_;
};

}  // namespace mdlPLM
