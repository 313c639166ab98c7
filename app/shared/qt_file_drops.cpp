#include "app/shared/qt_file_drops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QWidget>
#include <utility>

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
    later_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this, &FileDrops::HandOver);
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
    const std::vector<Text> paths = PathsOf(event);
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!paths.empty());
    if (paths.empty()) return;
    dropped_.insert(dropped_.end(), paths.begin(), paths.end());
    later_.start(0);
}

void FileDrops::HandOver() {
    // Emptied first: what takes the files may wait in a message box while more are dropped.
    take_(std::exchange(dropped_, {}));
}

}  // namespace mdlPLM
