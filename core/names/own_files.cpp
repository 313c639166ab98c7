#include "core/names/own_files.h"

#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

// A disk that only pretends has no file of its own behind a name: there names have to do.
bool IsRealFile(TextView path, Disk& disk, FileIdentity& identity) {
    return disk.ContentsAt(path) == path && IdentityOf(path, identity);
}

}  // namespace

void OwnFiles::Add(TextView path, Disk& disk) {
    names_.insert(UCase(path));
    FileIdentity identity;
    if (IsRealFile(path, disk, identity)) nodes_.insert({identity.Device, identity.Node});
}

bool OwnFiles::Contains(TextView path, Disk& disk) const {
    if (names_.count(UCase(path)) != 0) return true;
    FileIdentity identity;
    return IsRealFile(path, disk, identity) && nodes_.count({identity.Device, identity.Node}) != 0;
}

}  // namespace mdlPLM
