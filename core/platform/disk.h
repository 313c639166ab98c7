// What the program does to the file system, as one interface: the real disk below, a recording
// double in the tests. Paths are Text (see path.h).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "core/platform/file.h"

namespace mdlPLM {

/// File attributes as the rules count them.
enum Attributes : int { ReadOnly = 1, Hidden = 2, Directory = 16, Archive = 32 };

/// True when the attributes of the path can be read: for folders too, and through symbolic links.
/// Every failure gives false.
bool FileExists(TextView path);

/// True when the path's attributes have the directory bit.
bool IsFolder(TextView path);

/// File length in bytes; -1 when it cannot be told (missing, a folder).
std::int64_t FileLength(TextView path);

/// False when the path cannot be read. Follows symbolic links.
bool IdentityOf(TextView path, FileIdentity& identity);

/// True when both paths exist and lead to the same file (device and inode).
bool IsSameFile(TextView a, TextView b);

struct FolderItem {
    Text Name;
    bool IsFolder = false;  ///< symbolic links to folders included
};

/// Sorts by name without regard to letter case, names that differ in nothing else by themselves.
void SortByName(std::vector<FolderItem>& items);

/// The names in a folder ("." and ".." left out) in no order, some at a time: a folder can hold
/// more than a window has time for.
class FolderReader {
public:
    FolderReader() = default;
    ~FolderReader() { Close(); }
    FolderReader(const FolderReader&) = delete;
    FolderReader& operator=(const FolderReader&) = delete;

    Status Open(TextView folder);
    [[nodiscard]] bool IsOpen() const { return folder_ != nullptr; }
    /// Appends up to `most` further items. Closes itself at the end and at a failure.
    Status Read(std::size_t most, std::vector<FolderItem>& items);
    void Close();

private:
    void* folder_ = nullptr;  ///< the system's handle
};

/// The names in a folder ("." and ".." left out), sorted by name without regard to letter case so
/// that a listing is the same on every system. Hidden (dot) names are listed too.
Status ListFolder(TextView folder, std::vector<FolderItem>& items);

/// A copy that is made piece by piece into a temporary name beside the target and takes the target
/// name at the end: a failure or an abandoned copy leaves the target as it was and nothing behind.
class PiecewiseCopy {
public:
    virtual ~PiecewiseCopy() = default;
    /// The contents are to be on the disk before the target's name is taken: asked for where the
    /// source is to go. Where a target is replaced they are in any case. Before the first step; a
    /// disk in memory has nothing to wait for.
    virtual void WaitForDisk() {}
    /// Copies the next piece (a megabyte). `done` is set when the target stands complete.
    virtual Status Step(bool& done) = 0;
    /// Bytes copied so far and in all.
    [[nodiscard]] virtual std::int64_t Copied() const = 0;
    [[nodiscard]] virtual std::int64_t Total() const = 0;
};

enum class IfTargetExists {
    Fail,     ///< a target that exists, or comes to exist meanwhile, is FileAlreadyExists
    Replace,  ///< the target is replaced by one atomic rename
};

/// What stands under a path, symbolic links followed.
enum class PathKind { Nothing, File, Folder };
PathKind KindOfPath(TextView path);

class Disk {
public:
    virtual ~Disk() = default;
    virtual bool Exists(TextView path) = 0;  ///< FileExists
    virtual bool IsFolder(TextView path) = 0;
    virtual bool IsSameFile(TextView a, TextView b) = 0;
    /// Exists and IsFolder in one look.
    virtual PathKind KindOf(TextView path) {
        if (!Exists(path)) return PathKind::Nothing;
        return IsFolder(path) ? PathKind::Folder : PathKind::File;
    }
    /// Renames within one file system; a symbolic link is renamed as a link. Across file systems:
    /// DifferentDrive. Onto a folder: PathFileAccess. Fail mode never replaces, not even a target
    /// that appears between two looks; source and target being two spellings of the same file (a
    /// change of letter case where the file system does not tell them apart) succeeds.
    virtual Status Rename(TextView from, TextView to, IfTargetExists ifExists) = 0;
    /// Begins a copy that keeps mode bits and modification time. The user's extended attributes and
    /// the access control list travel along as far as the target's file system takes them.
    virtual Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                             std::unique_ptr<PiecewiseCopy>& copy) = 0;
    /// One level; FileAlreadyExists when something of that name is there, PathNotFound when the
    /// parent is missing.
    virtual Status CreateFolder(TextView path) = 0;
    /// A file or symbolic link, never a folder.
    virtual Status DeleteFile(TextView path) = 0;
    /// Waits until the file stands on the disk with its contents and its name: what is asked before
    /// another copy of it is given up. A disk in memory has nothing to wait for.
    virtual Status Flush(TextView /*path*/) { return {}; }
    /// Where the contents of the file at `path` can be read: there, but for a disk that only
    /// pretends to have put them there.
    [[nodiscard]] virtual Text ContentsAt(TextView path) { return Text(path); }
    /// Sum of ReadOnly, Hidden and Archive; 0 is "normal".
    virtual Status SetAttributes(TextView path, int attributes) = 0;
};

/// The machine's own file system.
class SystemDisk : public Disk {
public:
    bool Exists(TextView path) override;
    bool IsFolder(TextView path) override;
    bool IsSameFile(TextView a, TextView b) override;
    PathKind KindOf(TextView path) override { return KindOfPath(path); }
    Status Rename(TextView from, TextView to, IfTargetExists ifExists) override;
    Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                     std::unique_ptr<PiecewiseCopy>& copy) override;
    Status CreateFolder(TextView path) override;
    Status DeleteFile(TextView path) override;
    Status Flush(TextView path) override;
    Status SetAttributes(TextView path, int attributes) override;
};

/// Attributes of an existing path as SetAttributes takes them (plus Directory); 0 when unreadable.
int GetAttributes(TextView path);

/// Whole contents of a small file (settings, lists, album texts).
Status ReadWholeFile(TextView path, Bytes& contents);
/// The same of a file that has `most` bytes at most; a longer one is Overflow and not read.
Status ReadWholeFile(TextView path, std::size_t most, Bytes& contents);

/// Replaces or creates a small file of our own in one atomic step: the old contents stand until the
/// new ones are complete. A symbolic link is written through.
Status WriteWholeFile(TextView path, BytesView contents);

/// Creates a folder and its missing parents.
Status CreateFolders(TextView path);

/// The folder of the running program, with its trailing separator.
Text ProgramFolder();

/// The user's folders for configuration and for data of this program, with trailing separator
/// (XDG base directories and "PLM"); not created.
Text ConfigurationFolder();
Text DataFolder();

/// The folder that relative paths are below, with trailing separator; empty when it cannot be told.
Text CurrentFolder();
/// A path that is the same file from wherever it is looked at. Without a current folder it stays
/// as it is.
Text AbsolutePath(TextView path);

/// The user's temporary folder with trailing separator.
Text TemporaryFolder();

/// True when files can be created in the folder (asked of the system, nothing is written).
bool IsWritableFolder(TextView folder);

}  // namespace mdlPLM
