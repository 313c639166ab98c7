#include "app/dialogs/options_form.h"

namespace mdlPLM {

bool IsForbiddenInExtension(char16_t c) {
    constexpr TextView forbidden = u"\u0016\\/:?<>|";
    return forbidden.find(c) != TextView::npos;
}

}  // namespace mdlPLM
