// A disk that only pretends: it looks at the machine's own and keeps in mind what would have been
// done to it, so that the very steps of a run can be walked through without doing anything.
#pragma once

#include <map>

#include "core/platform/disk.h"

namespace mdlPLM::cli {

class PlanningDisk final : public Disk {
public:
    bool Exists(TextView path) override;
    bool IsFolder(TextView path) override;
    bool IsSameFile(TextView a, TextView b) override;
    PathKind KindOf(TextView path) override { return ItemAt(path).What; }
    Status Rename(TextView from, TextView to, IfTargetExists ifExists) override;
    Status BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                     std::unique_ptr<PiecewiseCopy>& copy) override;
    Status CreateFolder(TextView path) override;
    Status DeleteFile(TextView path) override;
    Status SetAttributes(TextView path, int attributes) override;
    Text ContentsAt(TextView path) override;

private:
    /// What stands (or would stand) under a name.
    struct Item {
        PathKind What = PathKind::Nothing;
        Text Contents;          ///< a real path where its contents are
        bool OfItsOwn = false;  ///< a copy: no other name leads to it
    };
    /// Where a name is: its folder, real or planned, as the start of every key of that folder.
    struct Folder {
        Bytes Key;  ///< empty: there is no such folder
        std::uint64_t Device = 0;
        bool Writable = false;
    };
    struct Place {
        Folder In;
        Bytes Key;
    };
    class Copy;

    Folder FolderOf(TextView path);
    Folder LookAtFolder(TextView folder);
    Place PlaceOf(TextView path);
    Item ItemAt(TextView path, const Place& place);
    Item ItemAt(TextView path) { return ItemAt(path, PlaceOf(path)); }
    bool IsBelowFile(TextView path);
    Status CheckTarget(TextView to, const Place& place, IfTargetExists ifExists);

    /// Names that are not as the machine's own disk has them.
    std::map<Bytes, Item> planned_;
    /// Folders looked at before.
    std::map<Text, Folder> folders_;
};

}  // namespace mdlPLM::cli
