#include "app/list/list_texts.h"

namespace mdlPLM {

Text CountOfFiles(std::size_t count, const Language& words) {
    if (count == 1) return words(PLM_TRANSLATE("Texts", "1 file"));
    return words(PLM_TRANSLATE("Texts", "%1 files"), {NumberText(static_cast<long long>(count))});
}

Text RunStatus(TextView summary, CommandEnd end, const Language& words) {
    if (end == CommandEnd::Reached) return Text(summary);
    return words(PLM_TRANSLATE("Texts", "Stopped. %1"), {summary});
}

Text AddedText(std::size_t count, CommandEnd end, const Language& words) {
    const char* const text = end == CommandEnd::Stopped
                                 ? PLM_TRANSLATE("Texts", "Stopped. %1 added.")
                                 : PLM_TRANSLATE("Texts", "%1 added.");
    return words(text, {CountOfFiles(count, words)});
}

Text SavedListText(std::size_t count, TextView path, const Language& words) {
    return words(PLM_TRANSLATE("Texts", "%1 saved to %2"), {CountOfFiles(count, words), path});
}

Text RemovedText(std::size_t count, const Language& words) {
    return words(PLM_TRANSLATE("Texts", "%1 taken out of the list."), {CountOfFiles(count, words)});
}

Text DeletedText(const ListScan& scan, const Language& words) {
    const auto refused = static_cast<long long>(scan.Count(ListScan::Finding::Match));
    return words(PLM_TRANSLATE("Texts", "%1 deleted, %2 could not be deleted."),
                 {CountOfFiles(scan.Count(ListScan::Finding::Gone), words), NumberText(refused)});
}

Text MissingText(const ListScan& scan, const Language& words) {
    return words(PLM_TRANSLATE("Texts", "%1 taken out of the list because they are missing."),
                 {CountOfFiles(scan.Count(ListScan::Finding::Gone), words)});
}

Text SelectedByTagText(const ListScan& scan, CommandEnd end, const Language& words) {
    if (end == CommandEnd::Stopped)
        return words(PLM_TRANSLATE("Texts", "Stopped. The selection is as it was."));
    return words(PLM_TRANSLATE("Texts", "%1 selected."),
                 {CountOfFiles(scan.Count(ListScan::Finding::Match), words)});
}

}  // namespace mdlPLM
