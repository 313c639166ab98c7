#include "app/dialogs/replacement_editor.h"

#include <algorithm>

namespace mdlPLM {

namespace {

bool IsBlank(const Replacement& pair) { return pair.Find.empty() && pair.Put.empty(); }

}  // namespace

ReplacementEditor::ReplacementEditor(ReplacementList list) : pairs_(std::move(list)) {
    pairs_.erase(std::remove_if(pairs_.begin(), pairs_.end(), IsBlank), pairs_.end());
    ShowNear(0);
}

Replacement ReplacementEditor::ShownPair() const {
    return shown_ == NewPair ? Replacement() : pairs_[shown_];
}

void ReplacementEditor::Show(std::size_t row, const Replacement& entered) {
    if (row >= pairs_.size() || row == shown_) return;
    const std::size_t before = pairs_.size();
    const bool behindShown = shown_ != NewPair && row > shown_;
    TakeOver(entered);
    const bool shownHasGone = pairs_.size() < before;
    shown_ = behindShown && shownHasGone ? row - 1 : row;
}

void ReplacementEditor::AddNew(const Replacement& entered) {
    const bool isNew = shown_ == NewPair || !(entered == pairs_[shown_]);
    if (isNew && !entered.Find.empty()) pairs_.push_back(entered);
    shown_ = NewPair;
}

void ReplacementEditor::Remove() {
    if (shown_ != NewPair) pairs_.erase(pairs_.begin() + static_cast<std::ptrdiff_t>(shown_));
    ShowNear(shown_);
}

ReplacementList ReplacementEditor::Finish(const Replacement& entered) {
    TakeOver(entered);
    ShowNear(shown_);
    return pairs_.empty() ? ReplacementList(1) : pairs_;
}

void ReplacementEditor::TakeOver(const Replacement& entered) {
    if (shown_ == NewPair) {
        if (!entered.Find.empty()) pairs_.push_back(entered);
    } else if (IsBlank(entered)) {
        pairs_.erase(pairs_.begin() + static_cast<std::ptrdiff_t>(shown_));
    } else {
        pairs_[shown_] = entered;
    }
}

void ReplacementEditor::ShowNear(std::size_t row) {
    shown_ = pairs_.empty() ? NewPair : std::min(row, pairs_.size() - 1);
}

Text PairText(const Replacement& pair) {
    return u"\"" + pair.Find + u"\" \u2192 \"" + pair.Put + u"\"";
}

}  // namespace mdlPLM
