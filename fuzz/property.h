// What fuzz targets share: properties that must hold, and an input taken apart.
#pragma once

#include <stdexcept>

#include "core/settings/settings.h"

namespace mdlPLM::fuzz {

class BrokenProperty : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Throws BrokenProperty, which names what is broken.
void Require(bool holds, const char* what);
/// The same with both texts in the message.
void RequireEqual(BytesView is, BytesView expected, const char* what);
void RequireEqual(TextView is, TextView expected, const char* what);

/// Takes an input apart: lines from its beginning, and what is left. So a seed is a text file that
/// can be read and written by hand.
class Input {
public:
    explicit Input(BytesView bytes) : bytes_(bytes) {}
    /// The next line without its line feed; empty when there is none.
    Bytes Line();
    /// The next line as Text: UTF-8, with 0x1E for a line feed, 0x1F for half of a surrogate pair
    /// and 0x1D for a NUL.
    Text LineText();
    /// The next line as flags: the first is set when it holds "a", and so on.
    unsigned LineFlags();
    [[nodiscard]] BytesView Rest() const { return bytes_; }

private:
    BytesView bytes_;
};

/// Settings of the filename engine from three lines: a letter for each option that is switched on
/// ("a" to "k") and a digit for the case option, the extension, the characters to remove.
Settings TakeSettings(Input& input);

/// A replacement list of one pair, from two lines.
ReplacementList TakeReplacements(Input& input);

/// A folder of this process, with trailing separator; it goes when the process ends.
const Text& ScratchFolder();

/// A file in it, which goes when the object goes.
class ScratchFile {
public:
    explicit ScratchFile(BytesView contents, BytesView name = "scratch.mp3");
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    [[nodiscard]] const Text& Path() const { return path_; }
    [[nodiscard]] Bytes Contents() const;
    void Write(BytesView contents) const;

private:
    Text path_;
    Bytes native_;
};

}  // namespace mdlPLM::fuzz
