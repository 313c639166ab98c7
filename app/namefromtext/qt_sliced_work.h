// Work that would keep a window waiting, done in slices between which the window answers.
#pragma once

#include <QObject>
#include <functional>

namespace mdlPLM {

class SlicedWork : public QObject {
    Q_OBJECT

public:
    /// Does one piece; false when nothing is left.
    using Piece = std::function<bool()>;

    using QObject::QObject;

    /// Pieces for some hundredths of a second at a time, the first of them at once, so that short
    /// work is over when this returns. Then `done`.
    void Start(Piece piece, std::function<void()> done);
    /// One piece per turn of the event loop, none at once: for pieces that may open a box.
    void StartPieceByPiece(Piece piece, std::function<void()> done);
    /// Milliseconds of work between two turns of the event loop; 0: one piece.
    void SetSliceLength(int milliseconds) { sliceLength_ = milliseconds; }
    /// Drops the work; `done` is not called.
    void Stop();
    [[nodiscard]] bool Running() const { return static_cast<bool>(piece_); }
    /// True while a piece is being done, in whatever box it waits.
    [[nodiscard]] bool Working() const { return working_; }

signals:
    /// After each slice that leaves something to do.
    void SliceDone();

private:
    void Turn();
    bool DoSlice();
    void Later();
    void Finish();

    Piece piece_;
    std::function<void()> done_;
    int sliceLength_ = 30;
    bool slices_ = true;
    bool working_ = false;
};

}  // namespace mdlPLM
