#include "core/tags/save_plan.h"

#include <algorithm>

#include "core/tags/id3v2_writer.h"

namespace mdlPLM {

namespace {

constexpr auto HeaderSize = static_cast<std::int64_t>(ID3v2HeaderSize);
constexpr std::int64_t MostRoom = 12000;
constexpr std::int64_t LargestOverreach = 10;  // a tag saved in place declares that much too much

std::int64_t LengthOf(BytesView bytes) { return static_cast<std::int64_t>(bytes.size()); }

std::int64_t AudioEnd(const OldFile& old) { return old.Size - (old.HasV1 ? TrailerSize : 0); }

ErrorNumber Fault(const OldFile& old) {
    if (old.Size < TrailerSize) return ErrorNumber::BadRecordNumber;
    if (old.V2Length > AudioEnd(old) + LargestOverreach) return ErrorNumber::InputPastEnd;
    return ErrorNumber::None;
}

// What is asked for and would change nothing counts as left alone.
SaveModes WorkToDo(const OldFile& old, std::int64_t framesLength, SaveModes modes) {
    if (!old.HasV2 && (modes.V2 == TagMode::Remove || framesLength == 0)) modes.V2 = TagMode::Leave;
    if (!old.HasV1 && modes.V1 == TagMode::Remove && modes.V2 == TagMode::Leave)
        modes.V1 = TagMode::Leave;
    return modes;
}

class Planner {
public:
    Planner(const OldFile& old, SaveModes modes, Bytes frames)
        : old_(old), modes_(modes), frames_(std::move(frames)) {}

    SavePlan Plan(const ID3v1Tag& v1) {
        if (modes_.V1 == TagMode::Write) plan_.Trailer = RenderID3v1(v1);
        if (modes_.V2 == TagMode::Leave)
            PlanTrailerOnly();
        else if (GoesInPlace())
            PlanInPlace();
        else
            PlanRewrite();
        return std::move(plan_);
    }

private:
    // Where the tag must end so that a trailer, old or new, is not touched by it.
    [[nodiscard]] std::int64_t BytesBeyondAudio() const {
        const bool anyTrailer = old_.HasV1 || modes_.V1 == TagMode::Write;
        return anyTrailer ? std::max<std::int64_t>(0, old_.V2Length - AudioEnd(old_)) : 0;
    }

    [[nodiscard]] std::int64_t Room() const {
        return old_.V2Length - LengthOf(frames_) - HeaderSize;
    }

    [[nodiscard]] bool GoesInPlace() const {
        return modes_.V2 == TagMode::Write && modes_.V1 != TagMode::Remove &&
               Room() >= BytesBeyondAudio() && Room() <= MostRoom;
    }

    void PlanTrailerOnly() {
        if (modes_.V1 == TagMode::Remove) {
            plan_.Way = SaveWay::Shorten;
            plan_.NewSize = AudioEnd(old_);
        } else {
            plan_.Way = SaveWay::InPlace;
            PlaceTrailer(old_.Size);
        }
    }

    void PlanInPlace() {
        plan_.Way = SaveWay::InPlace;
        PutHead(Room() - BytesBeyondAudio());
        PlaceTrailer(std::max(old_.Size, LengthOf(plan_.Head)));
    }

    void PlanRewrite() {
        plan_.Way = SaveWay::Rewrite;
        if (modes_.V2 == TagMode::Write)
            PutHead(std::min<std::int64_t>(LengthOf(frames_), MostRoom));
        const std::int64_t end = modes_.V1 == TagMode::Leave ? old_.Size : AudioEnd(old_);
        plan_.CarriedFrom = std::min(old_.V2Length, AudioEnd(old_));
        plan_.CarriedLength = end - plan_.CarriedFrom;
        plan_.TrailerPlace = LengthOf(plan_.Head) + plan_.CarriedLength;
        plan_.NewSize = plan_.TrailerPlace + LengthOf(plan_.Trailer);
    }

    void PutHead(std::int64_t padding) {
        const std::int64_t declared = DeclaredSize(old_, LengthOf(frames_));
        plan_.Head.reserve(ID3v2HeaderSize + frames_.size() + static_cast<std::size_t>(padding));
        plan_.Head.append(BuildTagHeader(declared)).append(frames_);
        plan_.Head.append(static_cast<std::size_t>(padding), '\0');
    }

    void PlaceTrailer(std::int64_t sizeWithout) {
        plan_.TrailerPlace = AudioEnd(old_);
        plan_.NewSize = plan_.Trailer.empty() ? sizeWithout : AudioEnd(old_) + TrailerSize;
    }

    const OldFile& old_;
    SaveModes modes_;
    Bytes frames_;
    SavePlan plan_;
};

SavePlan Refusal(ErrorNumber error) {
    SavePlan plan;
    plan.Way = SaveWay::Refused;
    plan.Error = error;
    return plan;
}

}  // namespace

std::int64_t DeclaredSize(const OldFile& old, std::int64_t framesLength) {
    if (old.HasV2 && framesLength < old.V2Length && old.V2Length < MostRoom) return old.V2Length;
    if (!old.HasV2) return framesLength + std::min(framesLength, MostRoom);
    return framesLength;
}

SavePlan PlanSave(const OldFile& old, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes) {
    if (modes.V1 == TagMode::Leave && modes.V2 == TagMode::Leave) return {};
    if (const ErrorNumber fault = Fault(old); fault != ErrorNumber::None) return Refusal(fault);
    Bytes frames = modes.V2 == TagMode::Write ? BuildFrames(v2) : Bytes();
    const SaveModes work = WorkToDo(old, LengthOf(frames), modes);
    if (work.V1 == TagMode::Leave && work.V2 == TagMode::Leave) return {};
    return Planner(old, work, std::move(frames)).Plan(v1);
}

}  // namespace mdlPLM
