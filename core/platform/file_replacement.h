// A file that is written anew: its new contents grow in a temporary file beside it and take its
// name in one step at the end, so that a failure leaves the file as it was and nothing behind.
//
// A symbolic link stays one: the file that it leads to is replaced. The new file keeps mode, owner
// and group, the user's extended attributes and the access control list, as far as the system lets
// them be set. Of several hard links the one that is named gets the new contents; the others keep
// the old ones.
#pragma once

#include <memory>

#include "core/platform/file.h"

namespace mdlPLM {

class FileReplacement {
public:
    FileReplacement();
    ~FileReplacement();  ///< removes the temporary file unless it was committed
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Begins to replace the file at `path`, which is open as `old`; `old` must outlive this.
    Status Begin(TextView path, const File& old);
    Status Append(BytesView bytes);
    /// Appends bytes of the old file. When it has become shorter than they need: InputPastEnd.
    Status AppendOld(std::int64_t offset, std::int64_t count);
    /// Puts the new file in the old one's place. When something else stands there by now, it is
    /// left alone: PathFileAccess.
    Status Commit();

private:
    struct Implementation;
    std::unique_ptr<Implementation> impl_;
};

}  // namespace mdlPLM
