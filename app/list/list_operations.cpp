#include "app/list/list_operations.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "core/platform/file.h"
#include "core/tags/id3v1.h"

namespace mdlPLM {

namespace {

constexpr FileList::Index AllRows = std::numeric_limits<FileList::Index>::max();

ListScan Completed(ListScan scan) {
    scan.Step(AllRows);
    return scan;
}

bool IsNotThere(Status status) {
    return status.Number() == ErrorNumber::FileNotFound ||
           status.Number() == ErrorNumber::PathNotFound;
}

}  // namespace

double GetListSizeMb(const FileList& list) {
    std::int64_t bytes = 0;
    for (FileList::Index row = 0; row < list.Count(); ++row) {
        bytes += std::max<std::int64_t>(list.Size(row), 0);
    }
    return std::round(static_cast<double>(bytes) / 1024 / 1024 * 100) / 100;
}

Text FilesText(std::size_t count) { return NumberText(static_cast<long long>(count)) + u" files"; }

Text CounterText(const FileList& list) {
    return FilesText(list.Count()) + u" (" + NumberText(GetListSizeMb(list), 2) + u" Mb)";
}

FileList::Index UpdateSizes(FileList& list, FileList::Index from, FileList::Index most) {
    FileList::Index row = list.NextUnknownSize(from);
    for (; most > 0 && row < list.Count(); --most) {
        list.SetSize(row, std::max<std::int64_t>(FileLength(list.Path(row)), 0));
        row = list.NextUnknownSize(row);
    }
    return row;
}

ListScan::ListScan(FileList& list, Look look) : list_(list), look_(std::move(look)) {}

bool ListScan::Step(FileList::Index most) {
    const FileList::Index end = Done() + std::min(most, list_.Count() - Done());
    while (Done() < end) findings_.push_back(look_(Done()));
    return Done() < list_.Count();
}

FileList::Index ListScan::Count(Finding finding) const {
    return static_cast<FileList::Index>(std::count(findings_.begin(), findings_.end(), finding));
}

bool ListScan::Is(FileList::Index row, Finding finding) const {
    return row < Done() && findings_[row] == finding;
}

void ListScan::SelectMatches() {
    list_.SelectWhere([this](FileList::Index row) { return Is(row, Finding::Match); });
}

void ListScan::RemoveGone() {
    list_.RemoveIf([this](FileList::Index row) { return Is(row, Finding::Gone); });
}

bool HasTag(TextView path, TagKind kind) {
    const BytesView marker = kind == TagKind::V1 ? "TAG" : "ID3";
    File file;
    if (!file.Open(path, File::Mode::Read).Ok()) return false;
    const std::int64_t offset =
        kind == TagKind::V1 ? file.Size() - static_cast<std::int64_t>(ID3v1Size) : 0;
    Bytes found;
    return file.ReadAt(offset, marker.size(), found).Ok() && found == marker;
}

ListScan ScanForTag(FileList& list, TagKind kind) {
    return ListScan(list, [&list, kind](FileList::Index row) {
        if (HasTag(list.Path(row), kind)) return ListScan::Finding::Match;
        return FileExists(list.Path(row)) ? ListScan::Finding::Other : ListScan::Finding::Gone;
    });
}

void SelectByTag(FileList& list, TagKind kind) {
    ListScan scan = Completed(ScanForTag(list, kind));
    scan.SelectMatches();
    scan.RemoveGone();
}

ListScan ScanForMissing(FileList& list) {
    return ListScan(list, [&list](FileList::Index row) {
        return FileExists(list.Path(row)) ? ListScan::Finding::Other : ListScan::Finding::Gone;
    });
}

void RemoveNonExistent(FileList& list) { Completed(ScanForMissing(list)).RemoveGone(); }

ListScan DeletionFromDisk(FileList& list, Disk& disk) {
    std::vector<bool> asked(list.Count());
    for (const FileList::Index row : list.SelectedRows()) asked[row] = true;
    // What the question was about goes, not what is clicked while it goes.
    return ListScan(list, [&list, &disk, asked = std::move(asked)](FileList::Index row) {
        if (!asked[row]) return ListScan::Finding::Other;
        const Status status = disk.DeleteFile(list.Path(row));
        return status.Ok() || IsNotThere(status) ? ListScan::Finding::Gone
                                                 : ListScan::Finding::Match;
    });
}

std::size_t DeleteSelectedFromDisk(FileList& list, Disk& disk) {
    ListScan scan = Completed(DeletionFromDisk(list, disk));
    scan.RemoveGone();
    return scan.Count(ListScan::Finding::Match);
}

}  // namespace mdlPLM
