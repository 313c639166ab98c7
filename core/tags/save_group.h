// The tags of many files saved so that none of them has to wait for the disk by itself. What goes
// in place is written at once. What is written anew waits under its temporary name until there are
// enough of them: then all are brought to the disk together, and each takes its name.
//
// A group that goes while files wait gives them up: they stay as they were.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

#include "core/tags/save_tags.h"

namespace mdlPLM {

class SaveGroup {
public:
    /// So many files, or so many bytes of them, are enough.
    struct Limits {
        std::size_t Files = 64;
        std::int64_t Bytes = std::int64_t{64} << 20;
    };

    SaveGroup();
    explicit SaveGroup(Limits limits);
    ~SaveGroup();
    SaveGroup(SaveGroup&& other) noexcept;
    SaveGroup& operator=(SaveGroup&& other) noexcept;

    /// Opens a file for reading and then saving, and locks it: Failed when that cannot be done.
    /// Where it waits in this group already it gets its new contents first.
    SaveResult Open(TextView path, File& file);
    /// True when a file waits under its temporary name.
    [[nodiscard]] bool Holds(const FileIdentity& file) const;

    /// SaveTags on such a file; the group takes it over.
    void Save(const OpenTags& opened, const TagChange& change);
    /// WriteID3v1 on such a file, which stays open.
    void SaveID3v1(const OpenTags& opened, const ID3v1Tag& tag);
    /// A result that was come by otherwise, in its place among the others.
    void Add(SaveResult result);

    /// True while there is something to do before the next save: a long file is being written, or
    /// the files that wait get their names.
    [[nodiscard]] bool Working() const { return writing_ != nullptr || committing_; }
    /// Does a piece of that.
    void Step();
    /// No more is to come for now: the steps go on until every file has its name.
    void Finish();
    /// Finish, but a long file (more than the bytes of a group) that is being written is given up.
    void Stop();
    /// Finish and all its steps.
    void Commit();

    /// Takes the results, each once, in the order of the saves: false when there are no more, or
    /// the next file still waits.
    bool Take(SaveResult& result);

private:
    struct Entry;
    /// A result, once it is known: until then a file that is on its way.
    struct Place {
        SaveResult Result;
        std::unique_ptr<Entry> OnItsWay;
    };
    SaveResult SaveAtOnce(const OpenTags& opened, const std::function<SaveResult()>& save);
    void WriteOn();
    void Settle(Place& place, SaveResult result);
    void SettleWritten(Entry& entry);
    Place* NextToFlush();
    void CommitWaiting();
    void FlushOne(Place& place);
    void TakeNames();

    Limits limits_;
    std::deque<Place> places_;
    std::size_t waiting_ = 0;
    std::int64_t waitingBytes_ = 0;
    Place* writing_ = nullptr;
    bool committing_ = false;
};

}  // namespace mdlPLM
