// Answers the next modal window from a test, while the code under test waits in it.
#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

namespace mdlPLM {

/// Runs `act` on the next modal window that is a `Box`, as soon as it stands. The poll ends with
/// the test program at the latest; a window that never comes is seen by `act` not having run.
template <class Box>
void OnNextModal(std::function<void(Box&)> act) {
    auto* poll = new QTimer(qApp);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, act = std::move(act)] {
        auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible()) return;
        poll->stop();
        poll->deleteLater();
        act(*box);
    });
    poll->start(1);
}

}  // namespace mdlPLM
