// One of two lists that stand side by side and scroll together, row beside row.
#pragma once

#include <QListView>

namespace mdlPLM {

class PairedListView : public QListView {
    Q_OBJECT

public:
    explicit PairedListView(QWidget* parent = nullptr);

    /// From here on both lists show the same rows at the same height, the shorter one blank beyond
    /// its end.
    void PairWith(PairedListView* other);
    /// What an empty list says.
    void SetHint(const QString& hint) { hint_ = hint; }
    /// Row that is selected; -1 when there is none.
    [[nodiscard]] int SelectedRow() const;
    void SelectRow(int row);

signals:
    void DeletePressed();
    void EditPressed();

protected:
    void updateGeometries() override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int ContentsHeight() const;
    void StretchScrolling();

    PairedListView* other_ = nullptr;
    QString hint_;
};

}  // namespace mdlPLM
