#include "app/list/file_failures.h"

#include <algorithm>

namespace mdlPLM {

namespace {

/// A message box with more lines than this would outgrow the screen.
constexpr std::size_t FailuresInBox = 15;

Text Line(const FileFailure& failure) { return u"\"" + failure.Path + u"\": " + failure.Reason; }

}  // namespace

Text FailureBox(Text heading, const std::vector<FileFailure>& failures, const Language& words) {
    const std::size_t shown = std::min(failures.size(), FailuresInBox);
    for (std::size_t i = 0; i < shown; ++i) heading += u"\n" + Line(failures[i]);
    const auto more = static_cast<long long>(failures.size() - shown);
    if (more > 0)
        heading += u"\n" + words(PLM_TRANSLATE("Texts", "and %1 more."), {NumberText(more)});
    return heading;
}

}  // namespace mdlPLM
