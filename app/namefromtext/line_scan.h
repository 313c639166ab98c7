// The line scan: every line of the chosen text to one suggested file name, by an in-pattern of its
// own kind and an out-pattern.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/settings/settings.h"
#include "core/text/language.h"

namespace mdlPLM {

/// The boxes and check boxes that a scan reads.
struct ScanChoices {
    Text InPattern;
    Text OutPattern;
    bool chkIgnoreFirst = false;
    Text txtIgnoreFirst;
    bool chkIgnoreLast = false;
    Text txtIgnoreLast;
    Text txtArtist;
    Text txtAlbum;
    Text txtYear;
    bool chkArtist4All = false;
    bool chkAlbum4All = false;
    bool chkYear4All = false;
    bool chkConvert = false;  ///< the main window's "Fix Filenames"
};

/// What is wrong with a ticked ignore box, as a message; nothing when both can be used.
std::optional<Text> FaultOfIgnoreBoxes(const ScanChoices& choices, const Language& words = {});

/// The in-pattern of a line scan: at most four placeholders, in any letter case.
class LinePattern {
public:
    explicit LinePattern(TextView inPattern);

    struct Fields {
        Text Track;
        Text Artist;
        Text Title;
        Text Album;
    };
    /// Puts the fields of a line into `fields`; those without a placeholder stay as they are.
    void Extract(TextView line, Fields& fields) const;
    [[nodiscard]] bool Has(Text Fields::*field) const;

private:
    struct Slot {
        Pos At = 0;
        Pos Length = 0;
        Text Fields::*Field = nullptr;
        Text Separator;  ///< behind the placeholder; the last one lacks its last character
    };
    std::array<Slot, 4> slots_;
};

/// A scan that can be taken some lines at a time, so that a window stays alive over a long text.
class LineScan {
public:
    /// `text` is the selected text, or the whole one. Settings and list are those of this moment.
    LineScan(Text text, ScanChoices choices, const Settings& settings,
             const ReplacementList& replacements);

    /// Scans up to `lines` more lines and appends their names; false when no line is left.
    bool Step(std::size_t lines, std::vector<Text>& names);
    [[nodiscard]] std::size_t Done() const { return next_; }  ///< characters scanned
    [[nodiscard]] std::size_t Total() const { return text_.size(); }

private:
    [[nodiscard]] Text Cut(TextView line) const;
    [[nodiscard]] Text NameOf(TextView line) const;

    Text text_;
    ScanChoices choices_;
    Settings settings_;
    ReplacementList replacements_;
    LinePattern pattern_;
    std::size_t next_ = 0;
};

/// All lines at once.
std::vector<Text> ScanLines(Text text, const ScanChoices& choices, const Settings& settings,
                            const ReplacementList& replacements);

}  // namespace mdlPLM
