#include "app/list/run_texts.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/list/file_failures.h"
#include "core/names/existing_target.h"
#include "core/tags/save_tags.h"

namespace mdlPLM {

namespace {

Text CountText(std::size_t count) { return NumberText(static_cast<long long>(count)); }

/// What is said of every cause but those of the system and of a save; in the order of Why.
constexpr std::array<const char*, 6> Sentences = {
    "",
    TargetExistsReason,
    PLM_TRANSLATE("Texts", "The file is missing"),
    PLM_TRANSLATE("Texts", "Its name has no artist"),
    PLM_TRANSLATE("Texts", "no name is left"),
    PLM_TRANSLATE("Texts", "Copied, but the original could not be removed: %1"),
};

Text Sentence(const Cause& reason, const Language& words) {
    const auto obstacle = [&](SaveObstacle what) {
        return ReasonOf({SaveOutcome::Failed, reason.Error, what}, words);
    };
    switch (reason.What) {
        case Why::None:
            return {};
        case Why::AnotherWrites:
            return obstacle(SaveObstacle::InUse);
        case Why::ChangedMeanwhile:
            return obstacle(SaveObstacle::Changed);
        case Why::GivenUp:
            return obstacle(SaveObstacle::Stopped);
        case Why::SystemError:
            return words(Describe(reason.Error));
        default:
            return words(Sentences.at(static_cast<std::size_t>(reason.What)),
                         {words(Describe(reason.Error))});
    }
}

Text DoneLine(const FileOutcome& file, const Language& words) {
    if (file.NewPath.empty()) return words(PLM_TRANSLATE("Texts", "Done: \"%1\""), {file.Path});
    return words(PLM_TRANSLATE("Texts", "Done: \"%1\" to \"%2\""), {file.Path, file.NewPath});
}

Text SkippedLine(const FileOutcome& file, const Language& words) {
    const Text reason = file.What == FileFate::Unchanged
                            ? words(PLM_TRANSLATE("Texts", "There was nothing to change"))
                            : ReasonText(file.Reason, words);
    return words(PLM_TRANSLATE("Texts", "Skipped: \"%1\": %2"), {file.Path, reason});
}

FileFate CountedAs(const FileOutcome& file, const RunWording& wording) {
    return file.What == FileFate::Unchanged ? wording.Unchanged : file.What;
}

Text FileLine(const FileOutcome& file, const RunWording& wording, const Language& words) {
    switch (CountedAs(file, wording)) {
        case FileFate::Failed:
            return words(PLM_TRANSLATE("Texts", "Failed: \"%1\": %2"),
                         {file.Path, ReasonText(file.Reason, words)});
        case FileFate::Done:
            return DoneLine(file, words);
        case FileFate::Skipped:
        case FileFate::Unchanged:
            break;
    }
    return SkippedLine(file, words);
}

}  // namespace

std::size_t RunReport::Count(FileFate what) const {
    return static_cast<std::size_t>(std::count_if(
        Files.begin(), Files.end(), [what](const FileOutcome& file) { return file.What == what; }));
}

Text ReasonText(const Cause& reason, const Language& words) {
    const Text detail = reason.Detail.empty() ? Text() : u" (\"" + reason.Detail + u"\")";
    return Sentence(reason, words) + detail;
}

Text SummaryText(const RunReport& report, const RunWording& wording, const Language& words) {
    const auto counted = [&](FileFate fate) {
        const bool unchanged = wording.Unchanged == fate;
        return CountText(report.Count(fate) + (unchanged ? report.Count(FileFate::Unchanged) : 0));
    };
    return words(PLM_TRANSLATE("Texts", "%1 done, %2 skipped, %3 failed"),
                 {counted(FileFate::Done), counted(FileFate::Skipped), counted(FileFate::Failed)});
}

Text DetailsText(const RunReport& report, const RunWording& wording, const Language& words) {
    Text text;
    for (const FileOutcome& file : report.Files) text += FileLine(file, wording, words) + u"\n";
    return text;
}

Text FailureText(const RunReport& report, const RunWording& wording, const Language& words) {
    std::vector<FileFailure> failures;
    for (const FileOutcome& file : report.Files)
        if (file.What == FileFate::Failed)
            failures.push_back({file.Path, ReasonText(file.Reason, words)});
    if (failures.empty()) return {};
    Text heading = failures.size() == 1 ? words(wording.OneFailed)
                                        : words(wording.ManyFailed, {CountText(failures.size())});
    return FailureBox(std::move(heading), failures, words);
}

}  // namespace mdlPLM
