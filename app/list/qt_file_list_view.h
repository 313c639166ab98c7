// One of the two lists of the main window.
#pragma once

#include <QListView>

namespace mdlPLM {

/// A list over one column of the file list. Lines of any number have one height and one width: the
/// list's, the middle of a longer line left out.
class FileListView : public QListView {
    Q_OBJECT

public:
    explicit FileListView(QWidget* parent = nullptr);

    /// What is shown while the list is empty.
    void SetHint(const QString& hint);

signals:
    /// A double click, or the Enter key. Not the toolkit's "activated", which is a single click on
    /// some desktops.
    void LineOpened(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QString hint_;
};

}  // namespace mdlPLM
