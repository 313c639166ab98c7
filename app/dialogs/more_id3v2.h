// The frames of a file that the tag panel does not edit, without the window: what is listed, shown,
// added, removed and saved. Frames are found by their four letters anywhere in the text, like
// everywhere in the program.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

/// An identifier that can be listed and added, and what such a frame holds.
struct ListedFrame {
    BytesView Identifier;
    const char* Meaning;
};

/// The frames of "ID3v2.4.0, section 4" in the order of its list, without the comment and the
/// original artist.
extern const std::array<ListedFrame, 81> ListedFrames;

/// The other-frames text of the file that is shown, wherever it is kept. Every change is put back
/// at once.
class OtherFramesText {
public:
    virtual ~OtherFramesText() = default;
    [[nodiscard]] virtual const Bytes& OtherFrames() const = 0;
    virtual void SetOtherFrames(Bytes text) = 0;
};

/// The identifiers of the table that stand anywhere in the text, each once, in the table's order.
/// Four letters inside another frame's content count too; kept on purpose.
std::vector<BytesView> FramesIn(BytesView otherFrames);

/// Why a frame is not added.
enum class AddResult { Added, NoIdentifier, NoContent };

/// Joins a new frame in front of the other frames. Only an identifier of exactly four characters is
/// taken, and only with a content.
AddResult AddFrame(OtherFramesText& frames, BytesView identifier, BytesView content);

/// Cuts out the first place where the identifier stands.
void RemoveFrameAt(OtherFramesText& frames, BytesView identifier);

/// The frame's text as it is saved to a file: a bitmap loses its first nine characters (the MIME
/// type), every other content is saved as it stands.
Bytes ContentToSave(BytesView otherFrames, BytesView identifier);

inline constexpr TextView SaveFrameFilter =
    u"Text File (*.txt)|*.txt|Bitmap Picture (*.bmp)|*.bmp|Jpeg Picture (*.jpg)|*.jpg|"
    u"PNG Picture (*.png)|*.png";

/// A frame's content as a text box takes it. A box stands still over millions of characters in one
/// line, so it gets the beginning; the whole content stays here and is what counts until the user
/// changes the box.
class ShownContent {
public:
    static constexpr std::size_t MostShown = 32768;

    ShownContent() = default;
    explicit ShownContent(Bytes content);

    /// For the box: in the code page, line ends as "\n", other control characters as their
    /// pictures.
    [[nodiscard]] const Text& Shown() const { return shown_; }
    [[nodiscard]] bool IsCut() const { return content_.size() > MostShown; }
    [[nodiscard]] std::size_t Length() const { return content_.size(); }
    /// The content behind a box that now holds `box`.
    [[nodiscard]] Bytes ContentOf(TextView box) const;

private:
    Bytes content_;
    Text shown_;
};

}  // namespace mdlPLM
