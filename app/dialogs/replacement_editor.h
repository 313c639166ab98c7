// Editing the replacement list: one pair is shown at a time, in two boxes.
#pragma once

#include "core/settings/settings.h"

namespace mdlPLM {

/// Holds the list while it is edited. What stands in the boxes ("entered") belongs to the pair
/// shown and is taken over when another one is shown or the list is finished, so that nothing typed
/// is lost. A pair that was emptied goes.
class ReplacementEditor {
public:
    /// Shown() while the boxes are for a pair that is not in the list yet.
    static constexpr std::size_t NewPair = static_cast<std::size_t>(-1);

    /// Shows the first pair. Pairs of two empty texts change nothing and are left out.
    explicit ReplacementEditor(ReplacementList list);

    [[nodiscard]] const ReplacementList& Pairs() const { return pairs_; }
    [[nodiscard]] std::size_t Shown() const { return shown_; }
    /// What the boxes are to show; two empty texts for a new pair.
    [[nodiscard]] Replacement ShownPair() const;

    /// Shows the pair at `row`. Choosing the pair that is shown already brings back its texts.
    void Show(std::size_t row, const Replacement& entered);
    /// What was entered becomes a new pair at the end, and the boxes are for the next one; the pair
    /// that was shown stays as it was. With nothing new entered, the boxes are emptied for one.
    void AddNew(const Replacement& entered);
    /// Takes the shown pair out of the list and shows the one that takes its place.
    void Remove();
    /// The list as it is to be kept: always at least one pair.
    ReplacementList Finish(const Replacement& entered);

private:
    void TakeOver(const Replacement& entered);
    void ShowNear(std::size_t row);
    ReplacementList pairs_;
    std::size_t shown_ = NewPair;
};

/// A pair in one line, quoted so that blanks are seen.
Text PairText(const Replacement& pair);

}  // namespace mdlPLM
