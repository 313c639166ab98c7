#include "app/cli/planning_disk.h"

#include <utility>

#include "core/platform/file.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

// What separates folders for the system itself: here a name may hold the other one.
bool SeparatesHere(char16_t c) { return Separator == u'/' ? c == u'/' : IsSeparator(c); }

Text WithoutLastSeparators(TextView path) {
    while (path.size() > 1 && SeparatesHere(path.back())) path.remove_suffix(1);
    return Text(path);
}

/// How many characters of the path are its folder, the last separator included.
std::size_t FolderLength(TextView path) {
    std::size_t length = path.size();
    while (length > 0 && !SeparatesHere(path[length - 1])) --length;
    return length;
}

Status Readable(TextView path) {
    File file;
    return file.Open(path, File::Mode::Read);
}

}  // namespace

/// A copy that takes one step and moves no byte.
class PlanningDisk::Copy final : public PiecewiseCopy {
public:
    Copy(PlanningDisk& disk, Bytes key, Item item)
        : disk_(disk), key_(std::move(key)), item_(std::move(item)) {}
    Status Step(bool& done) override {
        disk_.planned_[key_] = item_;
        done = true;
        return {};
    }
    [[nodiscard]] std::int64_t Copied() const override { return 0; }
    [[nodiscard]] std::int64_t Total() const override { return 0; }

private:
    PlanningDisk& disk_;
    Bytes key_;
    Item item_;
};

PlanningDisk::Folder PlanningDisk::FolderOf(TextView path) {
    const Text folder(path.substr(0, FolderLength(path)));
    const auto known = folders_.find(folder);
    if (known != folders_.end()) return known->second;
    Folder found = LookAtFolder(folder);
    // One that is not there may be planned later.
    if (!found.Key.empty()) folders_.emplace(folder, found);
    return found;
}

// A real folder is known by its identity, whatever name it is reached by; a planned one by its
// place.
PlanningDisk::Folder PlanningDisk::LookAtFolder(TextView folder) {
    const Text name = WithoutLastSeparators(folder);
    FileIdentity identity;
    const Text real = name.empty() ? Text(u".") : name;
    if (mdlPLM::IsFolder(real) && IdentityOf(real, identity)) {
        const Bytes key = std::to_string(identity.Device) + ":" + std::to_string(identity.Node);
        return {key + "/", identity.Device, IsWritableFolder(real)};
    }
    if (name.empty() || name == folder) return {};
    const Place place = PlaceOf(name);
    const auto planned = planned_.find(place.Key);
    if (planned == planned_.end() || planned->second.What != PathKind::Folder) return {};
    return {place.Key + "/", place.In.Device, true};
}

PlanningDisk::Place PlanningDisk::PlaceOf(TextView path) {
    const Text name = WithoutLastSeparators(path);
    Place place{FolderOf(name), {}};
    if (!place.In.Key.empty()) {
        place.Key = place.In.Key + ToUtf8(TextView(name).substr(FolderLength(name)));
    }
    return place;
}

PlanningDisk::Item PlanningDisk::ItemAt(TextView path, const Place& place) {
    const auto planned = planned_.find(place.Key);
    if (planned != planned_.end()) return planned->second;
    const PathKind kind = KindOfPath(path);
    return {kind, kind == PathKind::Nothing ? Text() : Text(path), false};
}

bool PlanningDisk::Exists(TextView path) { return ItemAt(path).What != PathKind::Nothing; }

bool PlanningDisk::IsFolder(TextView path) { return ItemAt(path).What == PathKind::Folder; }

bool PlanningDisk::IsSameFile(TextView a, TextView b) {
    const Place first = PlaceOf(a);
    const Place second = PlaceOf(b);
    const Item one = ItemAt(a, first);
    const Item other = ItemAt(b, second);
    if (one.What == PathKind::Nothing || other.What == PathKind::Nothing) return false;
    if (first.Key == second.Key) return true;
    return !one.OfItsOwn && !other.OfItsOwn && mdlPLM::IsSameFile(one.Contents, other.Contents);
}

// A file that stands where a folder is needed is another error than nothing at all.
bool PlanningDisk::IsBelowFile(TextView path) {
    const TextView folder = path.substr(0, FolderLength(path));
    return !folder.empty() && ItemAt(folder).What == PathKind::File;
}

Status PlanningDisk::CheckTarget(TextView to, const Place& place, IfTargetExists ifExists) {
    if (place.In.Key.empty()) return ErrorNumber::PathNotFound;
    if (!place.In.Writable) return ErrorNumber::PermissionDenied;
    const Item there = ItemAt(to, place);
    if (there.What == PathKind::Folder) return ErrorNumber::PathFileAccess;
    const bool inTheWay = there.What == PathKind::File && ifExists == IfTargetExists::Fail;
    return inTheWay ? ErrorNumber::FileAlreadyExists : ErrorNumber::None;
}

Status PlanningDisk::Rename(TextView from, TextView to, IfTargetExists ifExists) {
    const Place source = PlaceOf(from);
    const Place target = PlaceOf(to);
    const Item item = ItemAt(from, source);
    if (item.What == PathKind::Nothing)
        return IsBelowFile(from) || IsBelowFile(to) ? ErrorNumber::PathNotFound
                                                    : ErrorNumber::FileNotFound;
    if (target.In.Key.empty()) return ErrorNumber::PathNotFound;
    if (source.In.Device != target.In.Device) return ErrorNumber::DifferentDrive;
    if (!source.In.Writable) return ErrorNumber::PermissionDenied;
    const bool respelt = IsSameFile(from, to);
    const Status free = CheckTarget(to, target, respelt ? IfTargetExists::Replace : ifExists);
    if (!free.Ok()) return free;
    planned_[source.Key] = Item();
    planned_[target.Key] = item;
    return {};
}

Status PlanningDisk::BeginCopy(TextView from, TextView to, IfTargetExists ifExists,
                               std::unique_ptr<PiecewiseCopy>& copy) {
    const Item item = ItemAt(from);
    if (item.What == PathKind::Nothing)
        return IsBelowFile(from) ? ErrorNumber::PathNotFound : ErrorNumber::FileNotFound;
    if (item.What == PathKind::Folder) return ErrorNumber::PathFileAccess;
    if (const Status open = Readable(item.Contents); !open.Ok()) return open;
    const Place target = PlaceOf(to);
    if (const Status free = CheckTarget(to, target, ifExists); !free.Ok()) return free;
    copy = std::make_unique<Copy>(*this, target.Key, Item{PathKind::File, item.Contents, true});
    return {};
}

Status PlanningDisk::CreateFolder(TextView path) {
    const Place place = PlaceOf(path);
    if (place.In.Key.empty()) return ErrorNumber::PathNotFound;
    if (ItemAt(path, place).What != PathKind::Nothing) return ErrorNumber::FileAlreadyExists;
    if (!place.In.Writable) return ErrorNumber::PermissionDenied;
    planned_[place.Key] = {PathKind::Folder, {}, true};
    return {};
}

Status PlanningDisk::DeleteFile(TextView path) {
    const Place place = PlaceOf(path);
    const Item item = ItemAt(path, place);
    if (item.What == PathKind::Nothing)
        return IsBelowFile(path) ? ErrorNumber::PathNotFound : ErrorNumber::FileNotFound;
    if (item.What == PathKind::Folder) return ErrorNumber::PathFileAccess;
    if (!place.In.Writable) return ErrorNumber::PermissionDenied;
    planned_[place.Key] = Item();
    return {};
}

Status PlanningDisk::SetAttributes(TextView path, int /*attributes*/) {
    return Exists(path) ? ErrorNumber::None : ErrorNumber::FileNotFound;
}

Text PlanningDisk::ContentsAt(TextView path) {
    Item item = ItemAt(path);
    return item.What == PathKind::File ? std::move(item.Contents) : Text(path);
}

}  // namespace mdlPLM::cli
