#include "core/tags/frame_walk.h"

#include <algorithm>
#include <array>
#include <functional>
#include <queue>

#include "core/tags/frames.h"

namespace mdlPLM {

namespace {

constexpr std::size_t IdentifierSize = 4;
constexpr char FirstSyncByte = '\xFF';
constexpr unsigned SyncBits = 0xE0;  // of the second byte

bool IsIdentifierCharacter(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

bool StartsFrame(BytesView text) {
    return text.size() >= FrameHeaderSize &&
           std::all_of(text.begin(), text.begin() + IdentifierSize, IsIdentifierCharacter);
}

bool StartsAudio(BytesView text) {
    return text.size() > 1 && text[0] == FirstSyncByte &&
           (static_cast<unsigned char>(text[1]) & SyncBits) == SyncBits;
}

// A frame ends where the next one starts, or padding, or the audio, or in the ten bytes behind the
// tag.
bool EndsFrame(BytesView tagText, std::size_t end) {
    if (end > tagText.size()) return false;
    return end + ID3v2HeaderSize >= tagText.size() || tagText[end] == '\0' ||
           tagText[end] == FirstSyncByte || StartsFrame(tagText.substr(end));
}

// A place that some walk comes to. Lengths are those of the frame that starts there, 0 where its
// size leads nowhere in that form; the rest tells of the best walk from there on.
struct Place {
    enum Form : std::size_t { SevenBit, Plain };

    std::size_t Start = 0;
    std::array<std::size_t, 2> Lengths{};
    std::size_t Frames = 0;
    bool Clean = false;
    Form Best = SevenBit;

    [[nodiscard]] bool IsBetterThan(const Place& other) const {
        return Frames != other.Frames ? Frames > other.Frames : Clean && !other.Clean;
    }
};

// All walks at once: a wrong size looks right often enough (it may lead to any zero byte of a
// picture), so what counts is where it leads in the end.
class Walks {
public:
    explicit Walks(BytesView tagText) : text_(tagText), nulsEnd_(tagText.size()) {
        FindPlaces();
        for (std::size_t i = places_.size(); i-- > 0;) Rate(places_[i]);
    }

    [[nodiscard]] FrameWalk Best() const {
        FrameWalk walk;
        walk.EndsCleanly = places_.front().Clean;
        walk.Frames.reserve(places_.front().Frames);
        for (const Place* place = places_.data(); place->Frames > 0;) {
            const std::size_t length = place->Lengths[place->Best];
            walk.Frames.push_back({place->Start, length, place->Best == Place::SevenBit});
            place = &At(place->Start + length);
        }
        return walk;
    }

private:
    void FindPlaces() {
        std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>> pending;
        pending.push(0);
        while (!pending.empty()) {
            const std::size_t start = pending.top();
            pending.pop();
            if (!places_.empty() && places_.back().Start == start) continue;
            places_.push_back(Measured(start));
            for (const std::size_t length : places_.back().Lengths)
                if (length > 0) pending.push(start + length);
        }
    }

    [[nodiscard]] Place Measured(std::size_t start) const {
        Place place;
        place.Start = start;
        if (!StartsFrame(text_.substr(start))) return place;
        const BytesView sizeBytes = text_.substr(start + IdentifierSize, 4);
        const std::array<std::size_t, 2> sizes = {
            static_cast<std::size_t>(DecodeSize(sizeBytes)),
            static_cast<std::size_t>(DecodePlainSize(sizeBytes))};
        for (const Place::Form form : {Place::SevenBit, Place::Plain}) {
            const std::size_t length = FrameHeaderSize + sizes[form];
            if (EndsFrame(text_, start + length)) place.Lengths[form] = length;
        }
        if (sizes[0] == sizes[1]) place.Lengths[Place::Plain] = 0;
        return place;
    }

    // The places behind this one are rated.
    void Rate(Place& place) {
        const Place* best = nullptr;
        for (const Place::Form form : {Place::SevenBit, Place::Plain}) {
            if (place.Lengths[form] == 0) continue;
            const Place& next = At(place.Start + place.Lengths[form]);
            if (best != nullptr && !next.IsBetterThan(*best)) continue;
            best = &next;
            place.Best = form;
        }
        place.Frames = best == nullptr ? 0 : best->Frames + 1;
        place.Clean = best == nullptr ? IsCleanEnd(place.Start) : best->Clean;
    }

    // Asked from the back to the front, so that no NUL is looked at twice.
    bool IsCleanEnd(std::size_t end) {
        const std::size_t other = text_.substr(end, nulsFrom_ - end).find_first_not_of('\0');
        if (other != BytesView::npos) nulsEnd_ = end + other;
        nulsFrom_ = end;
        return nulsEnd_ + ID3v2HeaderSize >= text_.size() || StartsAudio(text_.substr(nulsEnd_));
    }

    [[nodiscard]] const Place& At(std::size_t start) const {
        return *std::lower_bound(
            places_.begin(), places_.end(), start,
            [](const Place& place, std::size_t at) { return place.Start < at; });
    }

    BytesView text_;
    std::vector<Place> places_;  // in the order of their starts
    std::size_t nulsFrom_ = BytesView::npos;
    std::size_t nulsEnd_;  // the first byte from nulsFrom_ on that is no NUL
};

}  // namespace

FrameWalk WalkTag(BytesView tagText) { return Walks(tagText).Best(); }

std::vector<WalkedFrame> WalkFrames(BytesView tagText) { return WalkTag(tagText).Frames; }

}  // namespace mdlPLM
