#include "core/tags/standard/frame_walk.h"

#include <algorithm>
#include <cstring>

#include "core/tags/standard/frame_table.h"
#include "core/tags/standard/sizes.h"

namespace mdlPLM::standard {

namespace {

constexpr std::size_t HeaderSize = 10;
constexpr std::size_t ShortHeaderSize = 6;  // of ID3v2.2
constexpr std::size_t ShortIdSize = 3;
constexpr std::size_t SizeField = 4;
constexpr std::size_t MostBeyond = 10;       // what a tag may declare too much or too little
constexpr std::size_t MostAudioInside = 30;  // after such a tag was saved again and again
constexpr std::size_t FewestNuls = 16;       // that are padding, whatever follows
constexpr std::size_t UsualFrames = 24;

// What a place is for a frame to end at, worst first.
enum class Landing { Beyond, Garbage, Padding, End, Frame };

// How the sizes of a walk are read.
enum class Sizes {
    Own,    // as the version has them
    Other,  // the other way
    Mixed,  // each the way that leads to the better place
};

struct Measured {
    Frame Found;
    std::size_t Next = 0;
    bool TwoWays = false;  // the two readings differ
};

struct Walked {
    FrameList List;
    Landing At = Landing::Garbage;
    bool TwoWays = false;
};

// Behind the last byte that is not NUL.
std::size_t EndOfContent(BytesView text) {
    constexpr std::size_t block = 64;
    static constexpr std::array<char, block> nuls{};
    std::size_t end = text.size();
    while (end >= block && std::memcmp(text.data() + end - block, nuls.data(), block) == 0)
        end -= block;
    while (end > 0 && text[end - 1] == '\0') --end;
    return end;
}

bool IsSync(BytesView bytes) {
    return bytes.size() > 1 && bytes[0] == '\xFF' && static_cast<unsigned char>(bytes[1]) >= 0xE0;
}

bool AreIdCharacters(BytesView bytes) {
    return std::all_of(bytes.begin(), bytes.end(), IsIdCharacter);
}

class Walker {
public:
    Walker(BytesView text, std::size_t size, TagForm form)
        : text_(text),
          end_(std::min(size, text.size())),
          contentEnd_(EndOfContent(text.substr(0, end_))),
          form_(form) {}

    [[nodiscard]] FrameList Run() const {
        Walked best = Walk(0, Sizes::Own);
        if (best.TwoWays) {
            for (const Sizes sizes : {Sizes::Other, Sizes::Mixed}) {
                Walked other = Walk(0, sizes);
                if (IsBetter(other, best)) best = std::move(other);
            }
        }
        const std::size_t count = best.List.Frames.size();
        best.List.Clean = IsClean(best);
        Recover(best);
        if (best.List.Frames.size() > count) best.List.Clean = false;
        return std::move(best.List);
    }

private:
    static bool IsClean(const Walked& walked) { return walked.At >= Landing::Padding; }

    // The frames of a walk that end where something can follow.
    static std::size_t GoodFrames(const Walked& walked) {
        const std::size_t count = walked.List.Frames.size();
        return count - (count > 0 && !IsClean(walked) ? 1 : 0);
    }

    static bool IsBetter(const Walked& a, const Walked& b) {
        if (GoodFrames(a) != GoodFrames(b)) return GoodFrames(a) > GoodFrames(b);
        return IsClean(a) && IsClean(b) && a.At > b.At;
    }

    [[nodiscard]] BytesView From(std::size_t at) const {
        return text_.substr(std::min(at, text_.size()));
    }

    [[nodiscard]] bool IsShortId(std::size_t at) const {
        const BytesView id = text_.substr(at, ShortIdSize);
        if (form_ == TagForm::V22) return AreIdCharacters(id);
        return text_[at + ShortIdSize] < 0x20 && FromThreeLetters(id);
    }

    // An identifier of three letters also stands in later tags: a tag of ID3v2.2 that was given
    // another header, or programs that have not changed it.
    [[nodiscard]] bool StartsFrame(std::size_t at) const {
        if (at >= end_ || end_ - at < ShortHeaderSize || !IsIdCharacter(text_[at])) return false;
        if (form_ != TagForm::V22 && AreIdCharacters(text_.substr(at, IdSize)))
            return text_.size() - at >= HeaderSize;
        return IsShortId(at);
    }

    [[nodiscard]] Landing LandingAt(std::size_t at) const {
        if (at > end_) return EndsJustBeyond(at) ? Landing::End : Landing::Beyond;
        if (at >= contentEnd_) return Landing::End;
        if (text_[at] == '\0') return IsPadding(at) ? Landing::Padding : Landing::Garbage;
        if (StartsFrame(at)) return Landing::Frame;
        return end_ - at <= MostBeyond && IsSync(From(at)) ? Landing::End : Landing::Garbage;
    }

    // A place inside a picture may hold some NULs too. What a tag may have behind its padding is
    // the audio's first bytes, which it takes for its own.
    [[nodiscard]] bool IsPadding(std::size_t at) const {
        const std::size_t limit = std::min(at + FewestNuls, end_);
        std::size_t next = at;
        while (next < limit && text_[next] == '\0') ++next;
        if (next == limit || StartsFrame(next)) return true;
        return end_ - next <= MostAudioInside && IsSync(From(next));
    }

    [[nodiscard]] bool EndsJustBeyond(std::size_t at) const {
        if (at > end_ + MostBeyond || at >= text_.size()) return false;
        return text_[at] == '\0' || IsSync(From(at));
    }

    // The size as it is to be read; `header` is what comes before the content.
    struct Reading {
        TagForm Form;
        std::size_t Header;
        std::size_t Size;
    };

    [[nodiscard]] Landing LandingOf(std::size_t at, const Reading& reading) const {
        return LandingAt(at + reading.Header + reading.Size);
    }

    [[nodiscard]] Measured Taken(std::size_t at, const Reading& reading) const {
        Measured measured;
        Frame& frame = measured.Found;
        frame.Form = reading.Form;
        const bool shortId = text_[at + ShortIdSize] == '\0' || reading.Form == TagForm::V22;
        frame.Id = shortId ? IdOfThreeLetters(text_.substr(at, ShortIdSize))
                           : FrameId(text_.substr(at, IdSize));
        if (reading.Form != TagForm::V22) frame.Flags = {text_[at + 8], text_[at + 9]};
        frame.Body = text_.substr(at + reading.Header, reading.Size);
        measured.Next = at + reading.Header + reading.Size;
        return measured;
    }

    [[nodiscard]] Measured MeasureShort(std::size_t at) const {
        const BytesView bytes = From(at);
        const Reading own{TagForm::V22, ShortHeaderSize, PlainNumber(bytes.substr(3, 3))};
        if (form_ == TagForm::V22 || end_ - at < HeaderSize) return Taken(at, own);
        const Reading longer{form_, HeaderSize, PlainNumber(bytes.substr(IdSize, SizeField))};
        return Taken(at, bytes[ShortIdSize] == '\0' && LandingOf(at, longer) > LandingOf(at, own)
                             ? longer
                             : own);
    }

    [[nodiscard]] Measured Measure(std::size_t at, Sizes sizes) const {
        const bool isShort = form_ == TagForm::V22 || text_[at + ShortIdSize] < 0x20;
        return isShort ? MeasureShort(at) : MeasureLong(at, sizes);
    }

    [[nodiscard]] Measured MeasureLong(std::size_t at, Sizes sizes) const {
        const BytesView field = From(at).substr(IdSize, SizeField);
        const Reading plain{form_, HeaderSize, PlainNumber(field)};
        const Reading sevenBit{form_, HeaderSize, SevenBitNumber(field)};
        const bool twoWays = IsSevenBit(field) && plain.Size != sevenBit.Size;
        const bool ownIsPlain = form_ == TagForm::V23 || !twoWays;
        const Reading& own = ownIsPlain ? plain : sevenBit;
        const Reading& other = twoWays && ownIsPlain ? sevenBit : plain;
        const bool takeOther =
            sizes == Sizes::Other ||
            (sizes == Sizes::Mixed &&
             LandingOf(at, other) > std::max(LandingOf(at, own), Landing::Garbage));
        Measured measured = Taken(at, takeOther ? other : own);
        measured.TwoWays = twoWays;
        return measured;
    }

    [[nodiscard]] bool HasOddId(std::size_t at) const {
        if (form_ == TagForm::V22 || at >= end_ || end_ - at < HeaderSize) return false;
        const BytesView id = text_.substr(at, IdSize);
        return std::all_of(id.begin(), id.end(), [](char c) { return c >= 0x20 && c <= 0x7E; });
    }

    // Some programs have identifiers that are none; their sizes lead on like those of others.
    [[nodiscard]] bool StartsOddFrame(std::size_t at) const {
        if (!HasOddId(at)) return false;
        const std::size_t next = MeasureLong(at, Sizes::Mixed).Next;
        return LandingAt(next) >= Landing::Padding || HasOddId(next);
    }

    [[nodiscard]] Walked Walk(std::size_t from, Sizes sizes) const {
        Walked walked;
        walked.List.Frames.reserve(UsualFrames);
        walked.List.End = from;
        while (StartsFrame(walked.List.End) || StartsOddFrame(walked.List.End)) {
            const Measured measured = Measure(walked.List.End, sizes);
            walked.TwoWays = walked.TwoWays || measured.TwoWays;
            walked.List.End = measured.Next;
            walked.List.Frames.push_back(measured.Found);
        }
        walked.At = LandingAt(walked.List.End);
        return walked;
    }

    // --- damaged tags ---

    [[nodiscard]] std::size_t StartOf(BytesView body) const {
        return static_cast<std::size_t>(body.data() - text_.data());
    }

    [[nodiscard]] bool StartsKnownFrame(std::size_t at) const {
        if (end_ - at < HeaderSize || !StartsFrame(at)) return false;
        const BytesView id = text_.substr(at, IdSize);
        const bool known = form_ == TagForm::V22
                               ? FromThreeLetters(id.substr(0, ShortIdSize)).has_value()
                               : IsKnown(FrameId(id));
        return known && LandingAt(Measure(at, Sizes::Mixed).Next) >= Landing::Padding;
    }

    [[nodiscard]] std::size_t FindKnownFrame(std::size_t from) const {
        for (std::size_t at = from; at + HeaderSize <= end_; ++at)
            if (IsIdCharacter(text_[at]) && StartsKnownFrame(at)) return at;
        return BytesView::npos;
    }

    // Where the walk can be taken up again.
    [[nodiscard]] std::size_t NextBehind(const Walked& walked) const {
        const std::size_t end = walked.List.End;
        // The size that has led here may be too large as well as too small.
        if (walked.At != Landing::Padding)
            return FindKnownFrame(
                walked.List.Frames.empty() ? end : StartOf(walked.List.Frames.back().Body));
        const std::size_t next = text_.find_first_not_of('\0', end);
        const bool frames = next < end_ && StartsFrame(next) && StartsKnownFrame(next);
        return frames ? next : BytesView::npos;
    }

    void Recover(Walked& walked) const {
        FrameList& list = walked.List;
        while (walked.At < Landing::End) {
            const std::size_t next = NextBehind(walked);
            if (next == BytesView::npos) break;
            if (walked.At != Landing::Padding) EndLastAt(list, next);
            Walked rest = Walk(next, Sizes::Mixed);
            list.Frames.insert(list.Frames.end(), rest.List.Frames.begin(), rest.List.Frames.end());
            list.End = rest.List.End;
            walked.At = rest.At;
        }
        if (walked.At == Landing::Garbage)
            list.Unread = text_.substr(list.End, contentEnd_ - list.End);
        if (walked.At != Landing::Beyond) return;
        EndLastAt(list, end_);
        list.End = end_;
    }

    void EndLastAt(FrameList& list, std::size_t end) const {
        if (list.Frames.empty()) return;
        BytesView& body = list.Frames.back().Body;
        const std::size_t start = std::min(StartOf(body), end);
        body = text_.substr(start, end - start);
    }

    BytesView text_;
    std::size_t end_;
    std::size_t contentEnd_;
    TagForm form_;
};

}  // namespace

FrameList WalkFrames(BytesView text, std::size_t size, TagForm form) {
    return Walker(text, size, form).Run();
}

}  // namespace mdlPLM::standard
