// Other frames as the panel hands them to their window, without a panel.
#pragma once

#include <utility>

#include "app/dialogs/frmMoreID3v2.h"

namespace mdlPLM::test {

class PanelFrames : public OtherFramesText {
public:
    explicit PanelFrames(Bytes frames = {}) : frames_(std::move(frames)) {}
    [[nodiscard]] const Bytes& OtherFrames() const override { return frames_; }
    void SetOtherFrames(Bytes text) override { frames_ = std::move(text); }

private:
    Bytes frames_;
};

}  // namespace mdlPLM::test
