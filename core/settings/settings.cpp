#include "core/settings/settings.h"

#include "core/text/code_page.h"

namespace mdlPLM {

namespace {

constexpr TextView AlwaysRemoved = u"^`{}~";
// The letters of the Nordic languages and German, and the section sign.
constexpr TextView NeverRemoved =
    u"\u00A7\u00C4\u00C5\u00C6\u00D6\u00D8\u00DC\u00E4\u00E5\u00E6\u00F6\u00F8\u00FC";

}  // namespace

Text DefaultRemoveChars() {
    Text characters(AlwaysRemoved);
    for (int code = 127; code <= 255; ++code) {
        const Text character = FromCodePage(Bytes(1, static_cast<char>(code)));
        if (NeverRemoved.find(character) == TextView::npos) characters += character;
    }
    return characters;
}

}  // namespace mdlPLM
