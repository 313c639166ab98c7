// What happens to the files of a folder, in its order.
#pragma once

#include <vector>

#include "core/text/text.h"

namespace mdlPLM::test {

/// Watches a folder while it lives. Throws when that cannot be had.
class FolderWatch {
public:
    explicit FolderWatch(TextView folder);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// What has happened since the last call: "created NAME", "deleted NAME", "written NAME"
    /// (closed after writing), "renamed away NAME", "renamed to NAME".
    [[nodiscard]] std::vector<Bytes> Seen() const;

private:
    int handle_ = -1;
};

}  // namespace mdlPLM::test
