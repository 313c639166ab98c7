#include "app/namefromtext/qt_sliced_work.h"

#include <QElapsedTimer>
#include <QTimer>
#include <utility>

namespace mdlPLM {

void SlicedWork::Start(Piece piece, std::function<void()> done) {
    piece_ = std::move(piece);
    done_ = std::move(done);
    slices_ = true;
    Turn();
}

void SlicedWork::StartPieceByPiece(Piece piece, std::function<void()> done) {
    piece_ = std::move(piece);
    done_ = std::move(done);
    slices_ = false;
    Later();
}

void SlicedWork::Stop() {
    piece_ = nullptr;
    done_ = nullptr;
}

void SlicedWork::Later() { QTimer::singleShot(0, this, &SlicedWork::Turn); }

void SlicedWork::Turn() {
    if (!Running() || working_) return;
    working_ = true;
    const bool more = DoSlice();
    working_ = false;
    if (!Running()) return;
    if (!more) return Finish();
    emit SliceDone();
    Later();
}

bool SlicedWork::DoSlice() {
    // A piece may stop the work and with it the function that it is part of.
    const Piece piece = piece_;
    QElapsedTimer slice;
    slice.start();
    while (piece()) {
        if (!Running()) return false;
        if (!slices_ || slice.elapsed() >= sliceLength_) return true;
    }
    return false;
}

void SlicedWork::Finish() {
    piece_ = nullptr;
    const std::function<void()> done = std::exchange(done_, nullptr);
    if (done) done();
}

}  // namespace mdlPLM
