#include "core/tags/save_group.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/platform/rewrite.h"
#include "core/tags/open_save.h"
#include "core/tags/tag_file.h"

namespace mdlPLM {

// What stands last goes first: the new file reads from what stands before it.
struct SaveGroup::Entry {
    enum class State {
        Writing,
        Waiting,  ///< written whole
        Flushed,  ///< and on the disk
    };
    State Now = State::Writing;
    Text Path;
    File Source;
    SavePlan Plan;
    std::unique_ptr<Rewrite> New;

    [[nodiscard]] NewContents Contents() const {
        return {Plan.Head, Plan.CarriedFrom, Plan.CarriedLength, Plan.Trailer};
    }
    Status WritePiece(bool& written) {
        if (New == nullptr) {
            const Status begun = Rewrite::Begin(Path, Source, Contents(), New);
            if (!begun.Ok()) return begun;
        }
        return New->Step(written);
    }
};

namespace {

constexpr std::size_t MostHeldBack = 4;  // times the files of a group

// Files that wait hold room on the disk and open files that may be wanting.
bool IsShortage(Status status) {
    return status.Number() == ErrorNumber::DiskFull || status.Number() == ErrorNumber::TooManyFiles;
}

SaveResult SaveTrailer(const OpenTags& opened, const ID3v1Tag& tag) {
    const SaveResult looked = LookBeforeWriting(opened.Source);
    if (looked.Outcome == SaveOutcome::Failed) return looked;
    Status status = WriteTrailer(opened.Source, tag);
    if (status.Ok()) status = opened.Source.LookAgain();
    return SavedBy(status);
}

}  // namespace

SaveGroup::SaveGroup() : SaveGroup(Limits()) {}
SaveGroup::SaveGroup(Limits limits) : limits_(limits) {}
SaveGroup::~SaveGroup() = default;
SaveGroup::SaveGroup(SaveGroup&& other) noexcept = default;
SaveGroup& SaveGroup::operator=(SaveGroup&& other) noexcept = default;

SaveResult SaveGroup::Open(TextView path, File& file) {
    Status status = file.Open(path, File::Mode::ReadWrite);
    const bool again = status.Ok() ? Holds(file.Identity()) : waiting_ > 0 && IsShortage(status);
    if (again) {
        (void)file.Close();
        Commit();
        status = file.Open(path, File::Mode::ReadWrite);
    }
    if (!status.Ok()) return FailedSave(status);
    const Status locked = file.Lock();
    if (locked.Ok()) return {};
    (void)file.Close();
    return FailedSave(locked, SaveObstacle::InUse);
}

bool SaveGroup::Holds(const FileIdentity& file) const {
    if (waiting_ == 0 && writing_ == nullptr) return false;
    return std::any_of(places_.begin(), places_.end(), [&](const Place& place) {
        return place.OnItsWay != nullptr && place.OnItsWay->Source.Identity() == file;
    });
}

void SaveGroup::Save(const OpenTags& opened, const TagChange& change) {
    SavePlan plan;
    const Status planned = PlanOpenSave(opened, change, plan);
    if (!planned.Ok() || plan.Way != SaveWay::Rewrite) {
        Add(planned.Ok() ? SaveAtOnce(opened, [&] { return SaveInPlace(opened, plan); })
                         : FailedSave(planned));
        (void)opened.Source.Close();
        return;
    }
    while (writing_ != nullptr) WriteOn();
    writing_ = &places_.emplace_back();
    writing_->OnItsWay = std::make_unique<Entry>();
    Entry& entry = *writing_->OnItsWay;
    entry.Path = opened.Path;
    entry.Source = std::move(opened.Source);
    entry.Plan = std::move(plan);
    WriteOn();
}

void SaveGroup::SaveID3v1(const OpenTags& opened, const ID3v1Tag& tag) {
    Add(SaveAtOnce(opened, [&] { return SaveTrailer(opened, tag); }));
}

// A trailer that makes its file longer may find the disk full of files that wait.
SaveResult SaveGroup::SaveAtOnce(const OpenTags& opened, const std::function<SaveResult()>& save) {
    const SaveResult result = save();
    if (waiting_ == 0 || !IsShortage(result.Error)) return result;
    CommitWaiting();
    return opened.Source.LookAgain().Ok() ? save() : result;
}

// A file that waits does not hold back the results of all that come behind it.
void SaveGroup::Add(SaveResult result) {
    places_.push_back({result, nullptr});
    if (waiting_ > 0 && places_.size() >= MostHeldBack * limits_.Files) committing_ = true;
}

void SaveGroup::WriteOn() {
    Entry& entry = *writing_->OnItsWay;
    bool written = false;
    const Status status = entry.WritePiece(written);
    if (waiting_ > 0 && IsShortage(status)) {
        entry.New.reset();
        CommitWaiting();
        return WriteOn();
    }
    if (!status.Ok()) {
        const SaveResult looked = LookBeforeNaming(entry.Source, entry.Path);
        Settle(*writing_, looked.Outcome == SaveOutcome::Failed ? looked : FailedSave(status));
    } else if (written) {
        SettleWritten(entry);
    }
}

void SaveGroup::SettleWritten(Entry& entry) {
    writing_ = nullptr;
    entry.Now = Entry::State::Waiting;
    ++waiting_;
    waitingBytes_ += entry.Plan.NewSize;
    entry.Plan = {};
    if (waiting_ >= limits_.Files || waitingBytes_ >= limits_.Bytes) committing_ = true;
}

void SaveGroup::Settle(Place& place, SaveResult result) {
    if (writing_ == &place)
        writing_ = nullptr;
    else
        --waiting_;
    if (waiting_ == 0) waitingBytes_ = 0;
    place.OnItsWay.reset();
    place.Result = result;
}

void SaveGroup::Step() {
    if (writing_ != nullptr) return WriteOn();
    if (!committing_) return;
    if (Place* const next = NextToFlush()) return FlushOne(*next);
    TakeNames();
    committing_ = false;
}

SaveGroup::Place* SaveGroup::NextToFlush() {
    const auto next = std::find_if(places_.begin(), places_.end(), [](const Place& place) {
        return place.OnItsWay != nullptr && place.OnItsWay->Now == Entry::State::Waiting;
    });
    return next == places_.end() ? nullptr : &*next;
}

void SaveGroup::CommitWaiting() {
    while (Place* const next = NextToFlush()) FlushOne(*next);
    TakeNames();
}

void SaveGroup::FlushOne(Place& place) {
    const Status flushed = place.OnItsWay->New->Flush();
    if (!flushed.Ok()) return Settle(place, FailedSave(flushed));
    place.OnItsWay->Now = Entry::State::Flushed;
}

void SaveGroup::TakeNames() {
    for (Place& place : places_) {
        const Entry* const entry = place.OnItsWay.get();
        if (entry == nullptr || entry->Now != Entry::State::Flushed) continue;
        const SaveResult looked = LookBeforeNaming(entry->Source, entry->Path);
        const bool failed = looked.Outcome == SaveOutcome::Failed;
        Settle(place, failed ? looked : SavedBy(entry->New->TakeName()));
    }
}

void SaveGroup::Finish() { committing_ = waiting_ > 0 || writing_ != nullptr; }

void SaveGroup::Stop() {
    if (writing_ != nullptr && writing_->OnItsWay->Plan.NewSize > limits_.Bytes)
        Settle(*writing_, FailedSave({}, SaveObstacle::Stopped));
    Finish();
}

void SaveGroup::Commit() {
    Finish();
    while (Working()) Step();
}

bool SaveGroup::Take(SaveResult& result) {
    if (places_.empty() || places_.front().OnItsWay != nullptr) return false;
    result = places_.front().Result;
    places_.pop_front();
    return true;
}

}  // namespace mdlPLM
