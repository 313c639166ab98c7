// A file that is written anew. Its new contents are made beside it, under a temporary name, and
// take its name in one step once they are on the disk: whatever happens on the way, what stands
// under the name is the old file or the new one, whole.
//
// A symbolic link stays one: the file that it leads to is written anew. The new file keeps mode,
// owner and group, the user's extended attributes and the access control list, as far as the system
// lets them be set; its times are those of the writing. Of several hard links the one that is named
// gets the new contents; the others keep the old ones.
#pragma once

#include <memory>

#include "core/platform/file.h"

namespace mdlPLM {

/// What the new file holds: bytes of its own before and behind a piece of the old one.
struct NewContents {
    BytesView Head;
    std::int64_t CarriedFrom = 0;  ///< 0-based, in the old file
    std::int64_t CarriedLength = 0;
    BytesView Tail;
    [[nodiscard]] std::int64_t Size() const;
};

class Rewrite {
public:
    /// Begins to write the file at `path`, which is open as `old`, anew. `old` and the bytes of
    /// `contents` must outlive the steps.
    static Status Begin(TextView path, const File& old, const NewContents& contents,
                        std::unique_ptr<Rewrite>& begun);
    /// What Begin and the steps would be refused for, as far as it can be told without writing: the
    /// permissions of the folder and the greatest size that a file may have.
    static Status Check(TextView path, const File& old, std::int64_t newSize);

    Rewrite(const Rewrite&) = delete;
    Rewrite& operator=(const Rewrite&) = delete;
    /// Unless the name was taken nothing is left of it.
    virtual ~Rewrite() = default;

    /// Writes the next piece (some megabytes). `written` is set when all of it is; what the old
    /// file should hold and does not hold any more is InputPastEnd.
    virtual Status Step(bool& written) = 0;
    /// Waits until what was written is on the disk. To be called before the name is taken.
    virtual Status Flush() = 0;
    /// Takes the place of the old file, whatever stands there by now: whoever calls it has looked
    /// (File::CompareAt).
    virtual Status TakeName() = 0;

protected:
    Rewrite() = default;
    static int HandleOf(const File& file) { return file.handle_; }
};

}  // namespace mdlPLM
