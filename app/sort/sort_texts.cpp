// The questions and messages around a sort.
#include "app/sort/sort_engine.h"

namespace mdlPLM {

namespace {

constexpr TextView TitleOfMessages = u"PLM";

Text Quoted(TextView text) { return u"\"" + Text(text) + u"\""; }

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

// A file that is in its place counts as sorted.
const RunWording SortWording{FileFate::Done, PLM_TRANSLATE("Texts", "This could not be sorted:"),
                             PLM_TRANSLATE("Texts", "%1 could not be sorted:")};

}  // namespace mdlPLM
