#include "app/shared/file_drops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

#include "app/shared/uri_list.h"

namespace mdlPLM {

namespace {

std::vector<Text> PathsOf(const QDropEvent& event) {
    const QByteArray list = event.mimeData()->data(QStringLiteral("text/uri-list"));
    return PathsFromUriList(BytesView(list.constData(), static_cast<std::size_t>(list.size())));
}

}  // namespace

FileDrops::FileDrops(QWidget* target, Take take) : QObject(target), take_(std::move(take)) {
    target->setAcceptDrops(true);
    target->installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
            carriesFiles_ = !PathsOf(*static_cast<QDropEvent*>(event)).empty();
            OfferCopy(*static_cast<QDropEvent*>(event));
            return true;
        case QEvent::DragMove:
            OfferCopy(*static_cast<QDropEvent*>(event));
            return true;
        case QEvent::Drop:
            Drop(*static_cast<QDropEvent*>(event));
            return true;
        default:
            return QObject::eventFilter(watched, event);
    }
}

void FileDrops::OfferCopy(QDropEvent& event) const {
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(carriesFiles_);
}

void FileDrops::Drop(QDropEvent& event) {
    std::vector<Text> paths = PathsOf(event);
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!paths.empty());
    if (paths.empty()) return;
    QMetaObject::invokeMethod(
        this, [this, taken = std::move(paths)] { take_(taken); }, Qt::QueuedConnection);
}

}  // namespace mdlPLM
