#include "app/window/preview_rows.h"

#include <algorithm>
#include <numeric>

namespace mdlPLM {

std::vector<FileList::Index> AllRows(const FileList& list) {
    std::vector<FileList::Index> rows(list.Count());
    std::iota(rows.begin(), rows.end(), FileList::Index{0});
    return rows;
}

std::vector<FileList::Index> RowsToRenew(const FileList& list, std::vector<FileList::Index> rows) {
    std::erase_if(rows, [&](FileList::Index row) {
        return list.NewNameEdited(row) || list.NewName(row).empty();
    });
    return rows;
}

std::vector<FileList::Index> RowsThatExist(const FileList& list,
                                           std::vector<FileList::Index> rows) {
    rows.erase(std::lower_bound(rows.begin(), rows.end(), list.Count()), rows.end());
    return rows;
}

}  // namespace mdlPLM
