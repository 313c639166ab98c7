// The tag panel without its widgets: what it shows, what may be typed into it, and what its buttons
// do. Methods are named after the controls; after each call the window shows Boxes() and asks what
// is enabled.
#pragma once

#include "app/tags/tag_box_table.h"
#include "app/tags/tag_edit.h"
#include "app/tags/tag_run.h"
#include "core/names/fix_file_name.h"
#include "core/tags/stream_info.h"

namespace mdlPLM {

/// How a save of the shown file ended. `Reason` is the text of a critical message; the file's path
/// stands beside it.
struct PanelSave {
    SaveOutcome Outcome = SaveOutcome::NoWork;
    Text Reason;
};

class TagPanel {
public:
    enum class State {
        Nothing,  ///< no file is selected
        OneFile,  ///< one file is shown and edited
        Batch,    ///< what is entered goes to all selected files
    };

    /// A box without an entry limit takes this many characters.
    static constexpr int NoLimit = 32767;

    /// `settings` and `replacements` are those in force, also later; they outlive the panel.
    TagPanel(const Settings& settings, const ReplacementList& replacements, Language words = {});

    // --- the selection ---

    /// Nothing is selected, or the list was sorted: everything is empty.
    void Clear();
    /// Shows one file. Errors while reading are reported; such a file is not written later.
    void ShowFile(TextView path, ErrorSink& errors);
    /// Two or more files are selected: every box is emptied and unticked.
    void ShowBatch();

    [[nodiscard]] State Now() const { return state_; }
    [[nodiscard]] const Text& Path() const { return path_; }  ///< of the shown file
    [[nodiscard]] const TagBoxes& Boxes() const { return boxes_; }
    /// What kept the shown file from being read, so that it gets no name.
    [[nodiscard]] Status ReadingFault() const { return mdlPLM::ReadingFault(tags_, settings_); }
    /// The lines of the stream; what comes from its first header is empty until that is found.
    [[nodiscard]] const StreamLines& Stream() const { return stream_; }
    /// The header of the shown file has not been found yet: a file without sound is searched whole,
    /// and a large one takes a while. Showing something else drops the search.
    [[nodiscard]] bool SearchesStream() const { return search_.has_value(); }
    /// Goes on with the search for a moment; false when there is none under way any more.
    bool SearchStreamOn();
    /// How far it is.
    [[nodiscard]] int SearchedPercent() const;
    /// The "Remove!" boxes are seen.
    [[nodiscard]] bool ShowsRemoveBoxes() const { return state_ == State::Batch; }
    /// True while something was typed, ticked or copied that is not saved.
    [[nodiscard]] bool IsEdited() const;

    // --- what the user does with the boxes ---

    /// Takes what was typed or pasted into a box, without the characters that the box does not take
    /// and cut to its limit, and returns what the box then holds. A text that was longer than the
    /// limit before is not cut by this, it only cannot grow.
    const Text& Enter(TagBox box, TextView text);
    /// The characters that a box takes now; empty: any but line breaks and NULs.
    [[nodiscard]] TextView AllowedCharacters(TagBox box) const;
    /// Entry limit in characters.
    [[nodiscard]] int Limit(TagBox box) const;
    void TickID3v1(bool on);
    void TickID3v2(bool on);
    void TickID3v1Rem(bool on) { boxes_.chkID3v1Rem = on; }
    void TickID3v2Rem(bool on) { boxes_.chkID3v2Rem = on; }

    // --- the buttons ---

    /// "Copy from ID3v1" and "Copy to ID3v1". The ID3v1 texts are cut to their fields.
    void CopyFromV1();
    void CopyToV1();
    [[nodiscard]] bool CanCopyFromV1() const { return canCopyFromV1_; }
    [[nodiscard]] bool CanCopyToV1() const { return canCopyToV1_; }

    /// "Save ID3" for the shown file; it is shown as it is on disk afterwards, unless that failed:
    /// then the boxes keep what was entered. A file that is not any more what was shown is left
    /// alone.
    PanelSave SaveID3();
    /// "Fix ID3" for the shown file: the boxes of the ticked versions are cleaned, then saved.
    PanelSave FixID3(TextView inPattern);

    /// The question before a batch save.
    [[nodiscard]] Text ConfirmationText() const;
    /// "Save ID3" for these files, after a Yes: year and track boxes are reduced to their
    /// characters first. The run does not depend on the panel any more.
    TagRun SaveAll(std::vector<Text> paths);
    /// "Fix ID3" for these files: the tags that each has.
    [[nodiscard]] TagRun FixAll(std::vector<Text> paths, TextView inPattern) const;

    // --- further frames ---

    /// The frames of the shown file that have no box, as raw text, for the dialog that edits them.
    /// Other frames than before tick the tag.
    [[nodiscard]] const Bytes& OtherFrames() const { return held_.OtherFrames; }
    void SetOtherFrames(Bytes frames);

private:
    void Show(FileTags tags);
    void SearchStreamOf(std::shared_ptr<const File> file);
    void Reduce(TextView TagBoxRow::*kept);
    [[nodiscard]] TagChange ChangeOfShownFile() const;
    [[nodiscard]] PanelSave Write(const TagChange& change) const;
    [[nodiscard]] std::array<bool, TagBoxCount> UntouchableBoxes() const;

    const Settings& settings_;
    const ReplacementList& replacements_;
    Language words_;
    State state_ = State::Nothing;
    Text path_;
    TagBoxes boxes_;
    TagBoxes shown_;  // as the file has them
    FileTags tags_;
    HeldFrames held_;
    bool framesEdited_ = false;
    bool shownOptimized_ = false;
    StreamLines stream_;
    std::optional<HeaderSearch> search_;
    bool canCopyFromV1_ = false;
    bool canCopyToV1_ = false;
};

/// The question before a batch save of these boxes.
Text ConfirmationText(const TagBoxes& boxes);

}  // namespace mdlPLM
