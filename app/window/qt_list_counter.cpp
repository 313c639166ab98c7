#include "app/window/qt_list_counter.h"

#include <QElapsedTimer>
#include <QLabel>

#include "app/list/list_operations.h"
#include "app/shared/qt_text.h"

namespace mdlPLM {

namespace {

/// Sizes asked for between two looks at the clock, and for how long in one turn of the event loop
/// (milliseconds).
constexpr FileList::Index SizesAtOnce = 50;
constexpr qint64 CountingTime = 15;

}  // namespace

ListCounter::ListCounter(FileList& list, QLabel& lblFiles) : list_(list), lblFiles_(lblFiles) {
    counting_.setInterval(0);
    connect(&counting_, &QTimer::timeout, this, &ListCounter::CountSlice);
}

void ListCounter::Update() {
    list_.ForgetSizes();
    counted_ = 0;
    counting_.start();
    CountSlice();
}

void ListCounter::Show(const QString& text) { lblFiles_.setText(text); }

void ListCounter::CountSlice() {
    QElapsedTimer clock;
    clock.start();
    do {
        counted_ = UpdateSizes(list_, counted_, SizesAtOnce);
    } while (counted_ < list_.Count() && clock.elapsed() < CountingTime);
    if (counted_ >= list_.Count()) counting_.stop();
    Show(ToQt(CounterText(list_)));
}

}  // namespace mdlPLM
