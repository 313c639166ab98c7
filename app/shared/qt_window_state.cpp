#include "app/shared/qt_window_state.h"

#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QWidget>

#include "app/shared/qt_text.h"

namespace mdlPLM {

namespace {

constexpr TextView Section = u"Window";

void Keep(SettingsStore& store, const QString& key, const QByteArray& state) {
    const QByteArray text = state.toBase64();
    store.Set(Section, FromQt(key), FromAscii(BytesView(text.constData(), text.size())));
}

QByteArray Kept(const SettingsStore& store, const QString& key) {
    return QByteArray::fromBase64(ToQt(store.Get(Section, FromQt(key), {})).toLatin1());
}

QString GeometryKey(const QWidget& window) {
    return window.objectName() + QStringLiteral(".Geometry");
}

QString SplitterKey(const QSplitter& splitter) {
    return splitter.window()->objectName() + u'.' + splitter.objectName();
}

}  // namespace

void KeepGeometry(const QWidget& window, SettingsStore& store) {
    Keep(store, GeometryKey(window), window.saveGeometry());
}

bool RestoreGeometry(QWidget& window, const SettingsStore& store) {
    return window.restoreGeometry(Kept(store, GeometryKey(window)));
}

// The frame is the window system's, and not known before the window is up; the toolkit's own frame
// is about as high.
void FitOnScreen(QWidget& window, const QSize& wanted) {
    const int frame = window.style()->pixelMetric(QStyle::PM_TitleBarHeight) +
                      2 * window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    window.resize(wanted.boundedTo(window.screen()->availableSize() - QSize(0, frame)));
}

void KeepSplitter(const QSplitter& splitter, SettingsStore& store) {
    Keep(store, SplitterKey(splitter), splitter.saveState());
}

bool RestoreSplitter(QSplitter& splitter, const SettingsStore& store) {
    return splitter.restoreState(Kept(store, SplitterKey(splitter)));
}

}  // namespace mdlPLM
