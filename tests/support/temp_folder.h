// A temporary folder of a test's own, and files in it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/text/text.h"

namespace mdlPLM {

/// A new, empty folder that goes with everything in it when the object goes.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// With trailing separator.
    [[nodiscard]] const Text& Path() const { return path_; }
    /// The path of something in the folder: "a.mp3", "sub/a.mp3".
    [[nodiscard]] Text operator/(TextView name) const;
    /// Creates a file (and the folders it stands in); returns its path.
    [[nodiscard]] Text File(TextView name, BytesView contents = {}) const;
    /// Creates a folder and its parents; returns its path, without trailing separator.
    [[nodiscard]] Text Folder(TextView name) const;
    /// Creates a symbolic link that leads to `target` (a path as the link holds it).
    [[nodiscard]] Text Link(TextView name, TextView target) const;
    /// Creates folders in each other, the outermost called `name`, until the path of the innermost
    /// is longer than the system takes, and a file "a.mp3" in the outermost and the innermost one.
    [[nodiscard]] Text TooDeep(TextView name) const;
    /// Creates a thing that is there and that nobody can open, the superuser neither; the error is
    /// DeviceUnavailable.
    [[nodiscard]] Text Unopenable(TextView name) const;

private:
    Text path_;
};

/// Writes or overwrites a file, creating its folder; throws when it cannot be done.
void WriteFile(TextView path, BytesView contents);

/// Lengthens a file with NULs that take no room, or cuts it; throws when it cannot be done.
void SetFileLength(TextView path, long long bytes);

/// Contents of a file; throws when it cannot be read, so that a missing file is never an empty one.
Bytes ReadFile(TextView path);

/// True when something stands at the path itself, a link that leads nowhere included.
bool IsThere(TextView path);

/// Everything below a folder, as paths from there in byte order: "b.mp3", "sub/", "sub/a.mp3".
std::vector<Bytes> ListTree(TextView folder);

/// The same with the contents of the files; folders hold the empty text.
std::map<Bytes, Bytes> ReadTree(TextView folder);

/// Sets a file's modification time in nanoseconds since 1970, and reads it back.
void SetModificationTime(TextView path, long long nanoseconds);
long long ModificationTime(TextView path);

}  // namespace mdlPLM
