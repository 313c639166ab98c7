// The collection of MP3 files that everything is measured on.
#pragma once

#include <cstddef>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM::bench {

/// Small but real MP3 files with both tags, badly named, spread over subfolders of one folder in
/// the user's temporary folder. Removed with the object.
class Collection {
public:
    /// Makes `count` files. The same count always gives the same files.
    explicit Collection(std::size_t count);
    ~Collection();
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;

    [[nodiscard]] const Text& Folder() const { return folder_; }  ///< with trailing separator
    [[nodiscard]] const std::vector<Text>& Paths() const { return paths_; }

private:
    Text folder_;
    std::vector<Text> paths_;
};

/// An empty folder of its own in the temporary folder, with trailing separator, and its removal.
Text NewTemporaryFolder();
void RemoveFolderTree(const Text& folder);

/// New, empty folders. All of them stay until the end: file systems look for room differently right
/// after many files have gone, which would favour whoever copies first.
class Targets {
public:
    Targets() = default;
    ~Targets() {
        for (const Text& folder : folders_) RemoveFolderTree(folder);
    }
    Targets(const Targets&) = delete;
    Targets& operator=(const Targets&) = delete;
    const Text& Next() { return folders_.emplace_back(NewTemporaryFolder()); }

private:
    std::vector<Text> folders_;
};

/// One file of the collection: ID3v2.3.0 tag with padding, frames of ISO/IEC 11172-3 layer 3 that
/// hold silence, ID3v1.1 trailer.
Bytes SongFile(std::size_t number);

}  // namespace mdlPLM::bench
