// Texts of our own in the user's language. The wording that files, formats and messages have always
// had is not among them.
#pragma once

#include <functional>
#include <initializer_list>

#include "core/text/text.h"

/// Marks a text for the tools that collect what is to be translated, under a heading.
#define PLM_TRANSLATE(heading, text) text
/// The same, and makes it a Text.
#define PLM_TRANSLATE_TEXT(heading, text) u##text

namespace mdlPLM {

class Language {
public:
    /// Gives an own text (in UTF-8) in the user's language; as it is where it has no translation.
    using Find = std::function<Text(const char* own)>;

    /// Every text as it is written.
    Language() = default;
    explicit Language(Find find) : find_(std::move(find)) {}

    /// The text in the user's language, with "%1" to "%9" replaced by the values.
    Text operator()(const char* own, std::initializer_list<TextView> values = {}) const;
    Text operator()(TextView own, std::initializer_list<TextView> values = {}) const;

private:
    Find find_;
};

}  // namespace mdlPLM
