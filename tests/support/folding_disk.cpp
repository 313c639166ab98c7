#include "tests/support/folding_disk.h"

#include <algorithm>

#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

Text SpeltName(const Text& folder, const Text& name) {
    if (FileExists(folder + name)) return name;
    std::vector<FolderItem> items;
    static_cast<void>(ListFolder(folder, items));
    const auto found = std::find_if(items.begin(), items.end(), [&](const FolderItem& item) {
        return EqualIgnoringCase(item.Name, name);
    });
    return found == items.end() ? name : found->Name;
}

}  // namespace

Text FoldingDisk::Spelt(TextView path) {
    Text spelt;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find(Separator), path.size());
        spelt += SpeltName(spelt, Text(path.substr(0, end)));
        if (end < path.size()) spelt.push_back(Separator);
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return spelt;
}

bool FoldingDisk::IsSameFile(TextView a, TextView b) {
    if (EachSpellingHasANumber && FileNameOfPath(a) != FileNameOfPath(b)) return false;
    return inner_.IsSameFile(Spelt(a), Spelt(b));
}

Status FoldingDisk::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    const Text source = Spelt(from);
    const Text target = Spelt(to);
    if (!inner_.IsSameFile(source, target)) return inner_.Rename(source, target, ifExists);
    return inner_.Rename(source, FolderOfPath(target) + FileNameOfPath(to), IfTargetExists::Fail);
}

}  // namespace mdlPLM
