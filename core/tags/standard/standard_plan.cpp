#include "core/tags/standard/standard_plan.h"

#include <algorithm>

namespace mdlPLM::standard {

namespace {

constexpr auto HeaderSize = static_cast<std::int64_t>(TagHeaderSize);
constexpr auto TrailerSize = static_cast<std::int64_t>(ID3v1Size);
constexpr std::int64_t LargestTag = (std::int64_t{1} << 28) - 1 + HeaderSize;
constexpr std::int64_t Block = 4096;
constexpr std::int64_t LeastPadding = 1024;
constexpr std::int64_t MostPadding = 4096;
constexpr std::int64_t MostPaddingMade = 65536;  // where a large frame has gone

std::int64_t LengthOf(BytesView bytes) { return static_cast<std::int64_t>(bytes.size()); }

class Planner {
public:
    Planner(const FileLayout& layout, const EditedTag& tag, const TrailerEdit& trailer)
        : layout_(layout), tag_(tag), trailer_(trailer) {}

    SavePlan Run() {
        if (!TagChanges() && !TrailerChanges()) return {};
        if (trailer_.Mode == TagMode::Write) plan_.Trailer = trailer_.Trailer;
        if (!TagChanges())
            PlanTrailerOnly();
        else if (const ErrorNumber fault = Fault(); fault != ErrorNumber::None)
            Refuse(fault);
        else if (FitsRoom() && trailer_.Mode != TagMode::Remove)
            PlanInPlace();
        else
            PlanRewrite();
        return std::move(plan_);
    }

private:
    [[nodiscard]] bool HasTrailer() const { return !layout_.Trailer.empty(); }

    [[nodiscard]] bool TagChanges() const {
        return tag_.Changed && (!tag_.Frames.empty() || layout_.TagRoom > 0);
    }

    [[nodiscard]] bool TrailerChanges() const {
        if (trailer_.Mode == TagMode::Leave) return false;
        return trailer_.Mode == TagMode::Remove ? HasTrailer()
                                                : trailer_.Trailer != layout_.Trailer;
    }

    [[nodiscard]] std::int64_t Needed() const {
        return tag_.Frames.empty() ? 0 : HeaderSize + LengthOf(tag_.Frames);
    }

    [[nodiscard]] ErrorNumber Fault() const {
        if (layout_.TagBeyondFile) return ErrorNumber::InputPastEnd;
        return Needed() + MostPadding > LargestTag ? ErrorNumber::Overflow : ErrorNumber::None;
    }

    [[nodiscard]] bool FitsRoom() const {
        const std::int64_t padding = layout_.TagRoom - Needed();
        const std::int64_t oldPadding = layout_.TagRoom - layout_.TagUsed;
        return Needed() > 0 && padding >= 0 && layout_.TagRoom <= LargestTag &&
               padding <= std::max(oldPadding, MostPaddingMade);
    }

    void Refuse(ErrorNumber error) {
        plan_ = {};
        plan_.Way = SaveWay::Refused;
        plan_.Error = error;
    }

    void PlanTrailerOnly() {
        const bool remove = trailer_.Mode == TagMode::Remove;
        plan_.Way = remove ? SaveWay::Shorten : SaveWay::InPlace;
        PlaceTrailer();
        if (remove) plan_.NewSize = layout_.Size - TrailerSize;
    }

    void PlaceTrailer() {
        plan_.TrailerPlace = layout_.Size - (HasTrailer() ? TrailerSize : 0);
        plan_.NewSize =
            plan_.Trailer.empty() ? layout_.Size : plan_.TrailerPlace + LengthOf(plan_.Trailer);
    }

    void PlanInPlace() {
        plan_.Way = SaveWay::InPlace;
        PutHead(layout_.TagRoom - Needed());
        if (!TrailerChanges()) plan_.Trailer.clear();
        PlaceTrailer();
    }

    void PlanRewrite() {
        plan_.Way = SaveWay::Rewrite;
        const bool dropsTrailer = HasTrailer() && trailer_.Mode != TagMode::Leave;
        plan_.CarriedFrom = layout_.TagRoom;
        plan_.CarriedLength = layout_.Size - layout_.TagRoom - (dropsTrailer ? TrailerSize : 0);
        if (Needed() > 0) PutHead(FitsRoom() ? layout_.TagRoom - Needed() : NewPadding());
        plan_.TrailerPlace = LengthOf(plan_.Head) + plan_.CarriedLength;
        plan_.NewSize = plan_.TrailerPlace + LengthOf(plan_.Trailer);
    }

    [[nodiscard]] std::int64_t NewPadding() const {
        const std::int64_t least =
            Needed() + LeastPadding + plan_.CarriedLength + LengthOf(plan_.Trailer);
        const std::int64_t padding = LeastPadding + (Block - least % Block) % Block;
        return padding <= MostPadding ? padding : LeastPadding;
    }

    void PutHead(std::int64_t padding) {
        TagHeader header = tag_.Header;
        header.Size = tag_.Frames.size() + static_cast<std::size_t>(padding);
        plan_.Head.reserve(TagHeaderSize + header.Size);
        plan_.Head.append(RenderTagHeader(header)).append(tag_.Frames);
        plan_.Head.append(static_cast<std::size_t>(padding), '\0');
    }

    const FileLayout& layout_;
    const EditedTag& tag_;
    const TrailerEdit& trailer_;
    SavePlan plan_;
};

}  // namespace

SavePlan PlanSave(const FileLayout& layout, const EditedTag& tag, const TrailerEdit& trailer) {
    return Planner(layout, tag, trailer).Run();
}

}  // namespace mdlPLM::standard
