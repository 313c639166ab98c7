// The questions and messages around a sort.
#include <algorithm>

#include "app/main/sort_engine.h"

namespace mdlPLM {

namespace {

/// A message box with more lines than this would outgrow the screen.
constexpr std::size_t FailuresInBox = 15;

constexpr TextView TitleOfMessages = u"PLM";

Text Quoted(TextView text) { return u"\"" + Text(text) + u"\""; }

Text Count(std::size_t count) { return NumberText(static_cast<long long>(count)); }

Text FailureLine(const SortFailure& failure) {
    return Quoted(failure.Path) + u": " + failure.Reason;
}

Text FileLine(const SortedFile& file) {
    switch (file.What) {
        case SortedFile::Outcome::Done:
            return u"Done: " + Quoted(file.Source) + u" to " + Quoted(file.Target);
        case SortedFile::Outcome::Skipped:
            return u"Skipped: " + Quoted(file.Source) + u": " + file.Reason;
        case SortedFile::Outcome::Failed:
            break;
    }
    return u"Failed: " + Quoted(file.Source) + u": " + file.Reason;
}

Text TargetDirectory(const SortChoices& choices) {
    return u"The target directory " + Quoted(choices.txtTargetDir);
}

bool CreateTargetFolder(const SortChoices& choices, Disk& disk, Prompts& prompts) {
    const Text directory = TargetDirectory(choices);
    const Message question{
        Text(TitleOfMessages), directory + u" does not exist!\nWould you like to create it?", {}};
    if (prompts.AskYesNo(question) != Answer::Yes) return false;
    const Status status = disk.CreateFolder(choices.txtTargetDir);
    if (status.Ok()) return true;
    prompts.Critical(
        {Text(TitleOfMessages),
         directory + u" could not be created: " + Text(Describe(status.Number())) + u".",
         {}});
    return false;
}

}  // namespace

bool CheckTargetFolder(const SortChoices& choices, Disk& disk, Prompts& prompts) {
    if (choices.Method == SortMethod::Rename) return true;
    if (choices.txtTargetDir.empty()) {
        prompts.Inform({Text(TitleOfMessages), u"You must choose a target directory first!", {}});
        return false;
    }
    if (!disk.Exists(choices.txtTargetDir)) return CreateTargetFolder(choices, disk, prompts);
    if (disk.IsFolder(choices.txtTargetDir)) return true;
    prompts.Critical({Text(TitleOfMessages), TargetDirectory(choices) + u" is not a folder.", {}});
    return false;
}

Text FailureText(const std::vector<SortFailure>& failures) {
    if (failures.empty()) return {};
    Text text = failures.size() == 1 ? Text(u"This could not be sorted:")
                                     : Count(failures.size()) + u" could not be sorted:";
    const std::size_t shown = std::min(failures.size(), FailuresInBox);
    for (std::size_t i = 0; i < shown; ++i) text += u"\n" + FailureLine(failures[i]);
    if (shown < failures.size()) {
        text += u"\nand " + Count(failures.size() - shown) + u" more.";
    }
    return text;
}

Text FailureList(const std::vector<SortFailure>& failures) {
    Text text;
    for (const SortFailure& failure : failures) text += FailureLine(failure) + u"\n";
    return text;
}

Text SummaryText(const SortReport& report) {
    return Count(report.Handled - report.LeftAlone) + u" done, " +
           Count(report.Skipped + report.LeftAlone) + u" skipped, " +
           Count(report.Failures.size()) + u" failed";
}

Text ReportList(const SortReport& report) {
    Text text;
    for (const SortedFile& file : report.Files) text += FileLine(file) + u"\n";
    return text;
}

}  // namespace mdlPLM
