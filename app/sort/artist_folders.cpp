#include "app/sort/artist_folders.h"

#include <utility>

namespace mdlPLM {

void ArtistFolders::Count(TextView source) {
    if (!disk_.Exists(source)) return;
    const SortNames names = NamesOf(source, rules_, disk_);
    if (names.Fault.Any()) return;
    const std::optional<Text> artist = ArtistOf(names.ArtistName);
    if (!artist) return;
    Artist& entry = artists_[*artist];
    ++entry.Files;
    entry.Places.insert(FoldersOf(names, rules_.Choices));
}

std::vector<FolderLevels> ArtistFolders::Earned() const {
    std::vector<FolderLevels> folders;
    for (const auto& [name, artist] : artists_) {
        if (artist.Files < ArtistThreshold(rules_.Choices)) continue;
        for (FolderLevels levels : artist.Places) {
            Descend(levels, name);
            folders.push_back(std::move(levels));
        }
    }
    return folders;
}

}  // namespace mdlPLM
