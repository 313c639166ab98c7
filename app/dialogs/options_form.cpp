#include "app/dialogs/options_form.h"

namespace mdlPLM {

void TakeOverOptions(const Settings& edited, Settings& inForce) {
    for (const OptionRow& row : OptionRows) inForce.*row.Value = edited.*row.Value;
    for (const OptionTextRow& row : OptionTextRows) inForce.*row.Value = edited.*row.Value;
    inForce.Change = edited.Change;
}

bool IsForbiddenInExtension(char16_t c) {
    constexpr TextView forbidden = u"\u0016\\/:?<>|";
    return forbidden.find(c) != TextView::npos;
}

}  // namespace mdlPLM
