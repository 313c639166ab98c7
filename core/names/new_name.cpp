#include "core/names/new_name.h"

#include "core/platform/errors.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

bool IsBlank(TextView text) { return Trimmed(text).empty(); }

}  // namespace

bool IsNothingLeft(TextView name, const Settings& settings) {
    const std::size_t dot = name.rfind(u'.');
    if (dot != TextView::npos && IsUsableFileName(name)) return IsBlank(name.substr(0, dot));
    return IsBlank(name) ||
           (settings.bExtension && EqualIgnoringCase(Trimmed(name), settings.Extension));
}

Text FaultOfNewName(TextView name, const Settings& settings, const Language& words) {
    const Text shown = name.empty() ? Text() : u" (\"" + Text(name) + u"\")";
    if (IsNothingLeft(name, settings))
        return words(PLM_TRANSLATE("Texts", "no name is left")) + shown;
    if (!IsUsableFileName(name)) return words(Describe(ErrorNumber::BadFileName)) + shown;
    return {};
}

}  // namespace mdlPLM
