// The source text behind its box: what a loaded file holds, with its own line ends, while the box
// shows any of them as a line break.
#pragma once

#include "core/platform/errors.h"
#include "core/platform/prompts.h"
#include "core/settings/settings.h"
#include "core/text/language.h"

namespace mdlPLM {

/// The contents of an album text file. With a byte order mark (UTF-8, UTF-16), or when valid UTF-8
/// with characters beyond ASCII: Unicode, damaged sequences as U+FFFD; every other one in the code
/// page.
Text DecodeSourceFile(BytesView contents);

/// A loaded text without the characters to remove, trimmed of blanks. The list is applied whether
/// or not its option is on, by design.
Text PrepareLoadedText(TextView text, const Settings& settings);

/// A file of this many bytes is most likely no album text.
inline constexpr std::int64_t LargeSource = 64 << 20;
/// True when the file may be read: a large one is asked about.
bool MayReadSource(const Text& path, Prompts& ask, const Language& words = {});

/// The text of the file at `path`, decoded and prepared.
Status ReadSourceFile(TextView path, const Settings& settings, Text& text);

/// Keeps one character per position of the box, so that a selection in the box is a range of the
/// text: a line end of any kind is one position, and lines that are too long for a text box are
/// broken for display only.
class SourceText {
public:
    /// Longest line that the box is given in one piece.
    static constexpr std::size_t LongestShownLine = 2000;

    /// A loaded text; keeps its line ends.
    void Load(TextView text);
    /// What the box shows: every break is one "\n".
    [[nodiscard]] Text Shown() const;

    /// The box replaced `removed` characters at 0-based `position` by `added`. Line ends in `added`
    /// (CR LF, CR, LF, U+2029) are typed or pasted ones: they count as CR LF.
    /// What stands there already is no edit: a box may report a change of looks so.
    void Edit(std::size_t position, std::size_t removed, TextView added);
    /// The same for a text that the box has yet to show: returns what it has to show for `added`,
    /// long lines broken.
    Text Paste(std::size_t position, std::size_t removed, TextView added);

    /// The text, or the part of it between two positions of the box, with its own line ends.
    [[nodiscard]] Text Whole() const;
    [[nodiscard]] Text Range(std::size_t begin, std::size_t end) const;
    [[nodiscard]] std::size_t Positions() const { return places_.size(); }

    /// True for a text that was loaded without any CR LF and has other line ends: the scan would
    /// see one single line.
    [[nodiscard]] bool OffersLineEnds() const;
    /// Takes every line end of the text as CR LF.
    void TakeLineEndsAsCrLf();

private:
    void PutAt(std::size_t position, std::size_t removed, const Text& marked);

    Text places_;               // characters, and one mark per break
    bool withoutCrLf_ = false;  // it was loaded, and no CR LF was in it
};

}  // namespace mdlPLM
