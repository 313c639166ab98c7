// The label that says how many files the list has and how large they are together.
#pragma once

#include <QTimer>

#include "app/list/file_list.h"

class QLabel;

namespace mdlPLM {

class ListCounter : public QObject {
    Q_OBJECT

public:
    /// Both outlive the counter.
    ListCounter(FileList& list, QLabel& lblFiles);

    /// Counts anew, in slices behind whatever else is done.
    void Update();
    /// What stands there until the list is counted anew.
    void Show(const QString& text);

private:
    void CountSlice();

    FileList& list_;
    QLabel& lblFiles_;
    QTimer counting_;
    FileList::Index counted_ = 0;
};

}  // namespace mdlPLM
