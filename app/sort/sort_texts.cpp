// The questions and messages around a sort.
#include <utility>

#include "app/sort/sort_engine.h"

namespace mdlPLM {

namespace {

constexpr TextView TitleOfMessages = u"PLM";

Text Quoted(TextView text) { return u"\"" + Text(text) + u"\""; }

Text Count(std::size_t count) { return NumberText(static_cast<long long>(count)); }

Text FileLine(const SortedFile& file, const Language& words) {
    switch (file.What) {
        case SortedFile::Outcome::Done:
            return words(PLM_TRANSLATE("Texts", "Done: \"%1\" to \"%2\""),
                         {file.Source, file.Target});
        case SortedFile::Outcome::Skipped:
            return words(PLM_TRANSLATE("Texts", "Skipped: \"%1\": %2"), {file.Source, file.Reason});
        case SortedFile::Outcome::Failed:
            break;
    }
    return words(PLM_TRANSLATE("Texts", "Failed: \"%1\": %2"), {file.Source, file.Reason});
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
         choices.Words(
             PLM_TRANSLATE("Texts", "The target directory \"%1\" could not be created: %2."),
             {choices.txtTargetDir, choices.Words(Describe(status.Number()))}),
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
    prompts.Critical(
        {Text(TitleOfMessages),
         choices.Words(PLM_TRANSLATE("Texts", "The target directory \"%1\" is not a folder."),
                       {choices.txtTargetDir}),
         {}});
    return false;
}

Text FailureText(const std::vector<FileFailure>& failures, const Language& words) {
    if (failures.empty()) return {};
    Text heading = failures.size() == 1 ? words(PLM_TRANSLATE("Texts", "This could not be sorted:"))
                                        : words(PLM_TRANSLATE("Texts", "%1 could not be sorted:"),
                                                {Count(failures.size())});
    return FailureBox(std::move(heading), failures, words);
}

Text SummaryText(const SortReport& report, const Language& words) {
    return words(PLM_TRANSLATE("Texts", "%1 done, %2 skipped, %3 failed"),
                 {Count(report.Handled - report.LeftAlone),
                  Count(report.Skipped + report.LeftAlone), Count(report.Failures.size())});
}

Text ReportList(const SortReport& report, const Language& words) {
    Text text;
    for (const SortedFile& file : report.Files) text += FileLine(file, words) + u"\n";
    return text;
}

}  // namespace mdlPLM
