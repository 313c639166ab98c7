// Ends the program as its user would, once a signal has asked for it.
#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace mdlPLM {

/// Waits until `descriptor` can be read from (see StopSignalDescriptor). From then on every box,
/// menu and dialog that comes up is closed, which gives each question its safe answer, and whenever
/// there is none the window is closed: it ends work under way behind the file at hand and saves its
/// settings, as it always does. Without a window only what waits for an answer is closed.
class CloseAtSignal : public QObject {
public:
    explicit CloseAtSignal(int descriptor, QWidget* window = nullptr);

private:
    void CloseNext();

    QPointer<QWidget> window_;
};

}  // namespace mdlPLM
