// Texts in frames: ID3v2.3.0, section 3.3; ID3v2.4.0, section 4.
//
// What is read is more than the standard allows, because tags hold it. Single bytes are
// Windows-1252 (which gives the bytes 80 to 9F the meaning that programs have given them). A byte
// order mark counts in every encoding. Where UTF-16 has none, the last mark before it counts, else
// the more plausible order, else little-endian, as most readers have it; in the encoding that is
// big-endian by definition only letters of Latin-1 throughout are taken the other way round. UTF-8
// that is none is taken for single bytes; so are plain letters in UTF-16 without a mark, and a text
// without an encoding byte.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM::standard {

/// The encoding byte of a frame.
enum class Encoding : char { Latin1 = 0, Utf16 = 1, Utf16BigEndian = 2, Utf8 = 3 };

/// Takes the texts of a content apart, which NULs end.
class TextReader {
public:
    /// `content` begins with the encoding byte.
    explicit TextReader(BytesView content);
    /// Of texts that follow an encoding byte elsewhere.
    TextReader(Encoding encoding, BytesView texts) : encoding_(encoding), rest_(texts) {}

    /// The next text; false when none is left.
    bool Next(Text& text);
    /// All that are left and not empty.
    std::vector<Text> Values();
    /// The same as one text, for display: "; " stands between them.
    Text AllJoined();
    /// What follows the last text that was taken.
    [[nodiscard]] BytesView Rest() const { return rest_; }
    void Skip(std::size_t count) { rest_.remove_prefix(count); }
    [[nodiscard]] Encoding Kind() const { return encoding_; }
    /// True when an end of a text is left, so that what comes before it can be told from what
    /// follows.
    [[nodiscard]] bool HasEnd() const;

private:
    Text NextWide(std::size_t mark);
    Text NextNarrow(bool utf8);
    BytesView Piece(std::size_t width);

    Encoding encoding_ = Encoding::Latin1;
    BytesView rest_;
    char order_ = '\0';  // of the last mark: its first byte
};

/// Values as one text, as TextReader::AllJoined has them.
Text Joined(const std::vector<Text>& values);

/// The mirror: the encoding that a text is written in by tags of either form. In ID3v2.3 single
/// bytes where they say what is meant in every reader, else UTF-16; in ID3v2.4 UTF-8.
Encoding EncodingFor(bool v24, const std::vector<Text>& texts);

/// A text in that encoding, without an end. UTF-16 is little-endian with its mark. Halves of
/// surrogate pairs become U+FFFD; NULs and marks in front are left out, which no reader would show.
void AppendText(Bytes& bytes, Encoding encoding, TextView text);
/// The end of a text in that encoding.
void AppendEnd(Bytes& bytes, Encoding encoding);

/// A text as it is read again after it was written.
Text Writable(TextView text);

}  // namespace mdlPLM::standard
