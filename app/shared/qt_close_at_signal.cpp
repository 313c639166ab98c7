#include "app/shared/qt_close_at_signal.h"

#include <QApplication>
#include <QDialog>
#include <QSocketNotifier>
#include <QTimer>

namespace mdlPLM {

namespace {

constexpr int Pause = 10;  // milliseconds: what is closed comes to its end meanwhile

void CloseDialog(QWidget& widget) {
    const QPointer<QWidget> open(&widget);
    widget.close();
    // One that asks back is not asked again.
    auto* const dialog = qobject_cast<QDialog*>(open.data());
    if (dialog != nullptr && dialog->isVisible()) dialog->done(QDialog::Rejected);
}

}  // namespace

CloseAtSignal::CloseAtSignal(int descriptor, QWidget* window) : window_(window) {
    if (descriptor < 0) return;
    auto* const notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        CloseNext();
    });
}

void CloseAtSignal::CloseNext() {
    // A timer of its own for each turn: closing can bring up the next question, and a timer whose
    // turn is not over does not fire.
    QTimer::singleShot(Pause, this, &CloseAtSignal::CloseNext);
    if (QWidget* const menu = QApplication::activePopupWidget())
        menu->close();
    else if (QWidget* const dialog = QApplication::activeModalWidget())
        CloseDialog(*dialog);
    else if (window_ != nullptr && window_->close())
        QCoreApplication::exit(0);  // whatever other window there still is
}

}  // namespace mdlPLM
