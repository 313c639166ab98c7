// Which lines of the preview are computed, without its widgets. Rows are in ascending order.
#pragma once

#include "app/list/file_list.h"

namespace mdlPLM {

std::vector<FileList::Index> AllRows(const FileList& list);

/// Those of `rows` whose new name follows a change of what it is made from: a name that was edited
/// by hand stays, and a line that has none gets none.
std::vector<FileList::Index> RowsToRenew(const FileList& list, std::vector<FileList::Index> rows);

/// Those of `rows` that the list has, for rows that were noted some time ago.
std::vector<FileList::Index> RowsThatExist(const FileList& list, std::vector<FileList::Index> rows);

}  // namespace mdlPLM
