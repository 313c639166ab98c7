// The two lists as the views see them. Changes go through here, so that a view keeps its place.
#pragma once

#include <QAbstractListModel>

#include "app/namefromtext/name_pairs.h"

namespace mdlPLM {

class PairColumn : public QAbstractListModel {
    Q_OBJECT

public:
    enum class Side { OldFiles, NewNames };
    PairColumn(NamePairs& lists, Side side, QObject* parent);

    /// Paths of old files, or new names.
    void Append(const std::vector<Text>& texts);
    void Remove(int row);
    void Clear();
    void SetNewName(int row, const Text& name);
    /// Where the old file stands then.
    int MoveOldFile(int row, NamePairs::Direction direction);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

signals:
    /// The number of rows changed: rows of the other side may have gained or lost their partner.
    void CountChanged();

public slots:
    void ShowPartners();

private:
    [[nodiscard]] QString TextOf(int row) const;
    [[nodiscard]] QString ToolTipOf(int row) const;
    [[nodiscard]] bool HasPartner(int row) const;

    NamePairs& lists_;
    Side side_;
};

}  // namespace mdlPLM
