// Name patterns: placeholders for tag fields and, between them, literal text as separators.
#pragma once

#include <array>

#include "core/settings/settings.h"

namespace mdlPLM {

/// The seven values that a pattern can hold.
struct FieldValues {
    Text Artist;
    Text Title;
    Text Album;
    Text Track;
    Text Year;
    Text Genre;
    Text Comment;
};

/// A field and the word for it, as GetFieldFromPattern takes it.
struct FieldWord {
    Text FieldValues::*Value;
    TextView Word;
};
inline constexpr std::array<FieldWord, 7> FieldWords = {{{&FieldValues::Artist, u"artist"},
                                                         {&FieldValues::Title, u"title"},
                                                         {&FieldValues::Album, u"album"},
                                                         {&FieldValues::Track, u"track"},
                                                         {&FieldValues::Year, u"year"},
                                                         {&FieldValues::Genre, u"genre"},
                                                         {&FieldValues::Comment, u"comment"}}};

/// One field of a file name, path, list line or any text line by an input pattern; trimmed, empty
/// when it cannot be taken. `fieldName` is one of "artist", "title", "album", "track", "year",
/// "genre", "comment" in any letter case. Never fails.
Text GetFieldFromPattern(TextView fileName, TextView fieldName, TextView pattern,
                         const Settings& settings);

/// The same of what is known to be a path or a file name: its last part is the name, also where
/// that holds what separates name and folder in a list line.
Text GetFieldFromPath(TextView path, TextView fieldName, TextView pattern,
                      const Settings& settings);

/// The output pattern with its placeholders (exact, lower case) replaced. `filled` is false when no
/// field put anything in; the result is then of no use and the old file name takes its place.
Text FillPattern(TextView outPattern, const FieldValues& values, const Settings& settings,
                 bool& filled);

/// True for the characters that a key press may not put into the in-pattern / out-pattern box.
bool IsForbiddenInInPattern(char16_t c);
bool IsForbiddenInOutPattern(char16_t c);

}  // namespace mdlPLM
