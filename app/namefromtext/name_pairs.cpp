#include "app/namefromtext/name_pairs.h"

#include <algorithm>
#include <utility>

#include "core/names/list_entry.h"

namespace mdlPLM {

namespace {

template <class Row>
void EraseAt(std::vector<Row>& rows, std::size_t index) {
    if (index < rows.size()) rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace

NamePairs::Index NamePairs::Pairs() const { return std::min(old_.size(), new_.size()); }

void NamePairs::AddOldFiles(const std::vector<Text>& paths) {
    for (const Text& path : paths) old_.push_back({path, MakeListEntry(path)});
}

void NamePairs::AddNewNames(const std::vector<Text>& names) {
    new_.insert(new_.end(), names.begin(), names.end());
}

void NamePairs::SetNewName(Index index, Text name) {
    if (index < new_.size()) new_[index] = std::move(name);
}

void NamePairs::RemoveOldFile(Index index) { EraseAt(old_, index); }

void NamePairs::RemoveNewName(Index index) { EraseAt(new_, index); }

NamePairs::Index NamePairs::MoveOldFile(Index index, Direction direction) {
    const bool up = direction == Direction::Up;
    if (index >= old_.size() || (up ? index == 0 : index + 1 == old_.size())) return index;
    const Index other = up ? index - 1 : index + 1;
    std::swap(old_[index], old_[other]);
    return other;
}

}  // namespace mdlPLM
