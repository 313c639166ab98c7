// Name patterns: placeholders for tag fields and, between them, literal text as separators.
#pragma once

#include <algorithm>
#include <span>

#include "core/names/name_fields.h"
#include "core/settings/settings.h"

namespace mdlPLM {

/// The rules of patterns over a table of fields; the functions below go by NameFields. A pattern
/// that holds all rows marked OfTheSeven has no value for the first of these, and the next one
/// starts where the name does; other rows and other patterns know nothing of that.
class PatternRules {
public:
    /// `fields` must outlive the rules; rows beyond MostFields count for nothing.
    explicit constexpr PatternRules(std::span<const NameField> fields)
        : fields_(fields.first(std::min(fields.size(), MostFields))) {}
    static constexpr std::size_t MostFields = 12;

    /// GetFieldFromPattern, GetFieldFromPath.
    [[nodiscard]] Text FromEntry(TextView entry, TextView fieldName, TextView pattern,
                                 const Settings& settings) const;
    [[nodiscard]] Text FromPath(TextView path, TextView fieldName, TextView pattern,
                                const Settings& settings) const;
    /// The pattern with its placeholders replaced.
    [[nodiscard]] Text Filled(TextView pattern, const FieldValues& values) const;

private:
    std::span<const NameField> fields_;
};

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
