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

// The header of a frame: how it is to be read, and what it leads to.
struct Measured {
    TagForm Form = TagForm::V23;
    std::size_t Header = 0;  // what comes before the content
    std::size_t Size = 0;    // of the content
    bool TwoWays = false;    // the two readings differ
};

struct Walked {
    std::size_t End = 0;
    std::size_t Count = 0;
    Landing At = Landing::Garbage;
    std::size_t FirstTwoWays = BytesView::npos;  // the first frame whose size has two readings
    std::size_t CountBefore = 0;                 // the frames before that one
};

template <std::size_t Block>
void TakeNulsOff(BytesView text, std::size_t& end) {
    static constexpr std::array<char, Block> nuls{};
    while (end >= Block && std::memcmp(text.data() + end - Block, nuls.data(), Block) == 0)
        end -= Block;
}

// Behind the last byte that is not NUL.
std::size_t EndOfContent(BytesView text) {
    std::size_t end = text.size();
    TakeNulsOff<256>(text, end);
    TakeNulsOff<16>(text, end);
    TakeNulsOff<1>(text, end);
    return end;
}

bool IsSync(BytesView bytes) {
    return bytes.size() > 1 && bytes[0] == '\xFF' && static_cast<unsigned char>(bytes[1]) >= 0xE0;
}

bool IsControl(char c) { return c >= '\0' && c < ' '; }

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

    FrameList Run() {
        Walked best = Walk(0, Sizes::Own, &list_.Frames);
        if (best.FirstTwoWays != BytesView::npos) best = WalkOtherWays(best);
        list_.Clean = IsClean(best);
        Recover(best);
        return std::move(list_);
    }

private:
    static bool IsClean(const Walked& walked) { return walked.At >= Landing::Padding; }

    // The frames of a walk that end where something can follow.
    static std::size_t GoodFrames(const Walked& walked) {
        return walked.Count - (walked.Count > 0 && !IsClean(walked) ? 1 : 0);
    }

    static bool IsBetter(const Walked& a, const Walked& b) {
        if (GoodFrames(a) != GoodFrames(b)) return GoodFrames(a) > GoodFrames(b);
        return IsClean(a) && IsClean(b) && a.At > b.At;
    }

    // The others are tried from where they differ, and without making a list.
    Walked WalkOtherWays(const Walked& own) {
        Walked best = own;
        Sizes bestSizes = Sizes::Own;
        for (const Sizes sizes : {Sizes::Other, Sizes::Mixed}) {
            Walked other = Walk(own.FirstTwoWays, sizes, nullptr);
            other.Count += own.CountBefore;
            if (!IsBetter(other, best)) continue;
            best = other;
            bestSizes = sizes;
        }
        if (bestSizes == Sizes::Own) return own;
        list_.Frames.resize(own.CountBefore);
        Walk(own.FirstTwoWays, bestSizes, &list_.Frames);
        return best;
    }

    [[nodiscard]] BytesView From(std::size_t at) const {
        return text_.substr(std::min(at, text_.size()));
    }

    [[nodiscard]] bool IsShortId(std::size_t at) const {
        const BytesView id = text_.substr(at, ShortIdSize);
        if (form_ == TagForm::V22) return AreIdCharacters(id);
        return IsControl(text_[at + ShortIdSize]) && FromThreeLetters(id);
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

    static std::size_t NextOf(std::size_t at, const Measured& measured) {
        return at + measured.Header + measured.Size;
    }

    [[nodiscard]] Landing LandingOf(std::size_t at, const Measured& measured) const {
        return LandingAt(NextOf(at, measured));
    }

    [[nodiscard]] Frame FrameAt(std::size_t at, const Measured& measured) const {
        Frame frame;
        frame.Form = measured.Form;
        const bool shortId = text_[at + ShortIdSize] == '\0' || measured.Form == TagForm::V22;
        frame.Id = shortId ? IdOfThreeLetters(text_.substr(at, ShortIdSize))
                           : FrameId(text_.substr(at, IdSize));
        if (measured.Form != TagForm::V22) frame.Flags = {text_[at + 8], text_[at + 9]};
        frame.Body = text_.substr(at + measured.Header, measured.Size);
        return frame;
    }

    [[nodiscard]] Measured MeasureShort(std::size_t at) const {
        const BytesView bytes = From(at);
        const Measured own{TagForm::V22, ShortHeaderSize, PlainNumber(bytes.substr(3, 3)), false};
        if (form_ == TagForm::V22 || end_ - at < HeaderSize) return own;
        const Measured longer{form_, HeaderSize, PlainNumber(bytes.substr(IdSize, SizeField)),
                              false};
        const bool isLonger =
            bytes[ShortIdSize] == '\0' && LandingOf(at, longer) > LandingOf(at, own);
        return isLonger ? longer : own;
    }

    [[nodiscard]] Measured Measure(std::size_t at, Sizes sizes) const {
        const bool isShort = form_ == TagForm::V22 || IsControl(text_[at + ShortIdSize]);
        return isShort ? MeasureShort(at) : MeasureLong(at, sizes);
    }

    [[nodiscard]] Measured MeasureLong(std::size_t at, Sizes sizes) const {
        const BytesView field = From(at).substr(IdSize, SizeField);
        const std::size_t plain = PlainNumber(field);
        const std::size_t sevenBit = SevenBitNumber(field);
        const bool twoWays = plain != sevenBit && IsSevenBit(field);
        if (!twoWays) return {form_, HeaderSize, plain, false};
        const bool ownIsPlain = form_ == TagForm::V23;
        const Measured own{form_, HeaderSize, ownIsPlain ? plain : sevenBit, true};
        const Measured other{form_, HeaderSize, ownIsPlain ? sevenBit : plain, true};
        if (sizes == Sizes::Own) return own;
        const bool better = LandingOf(at, other) > std::max(LandingOf(at, own), Landing::Garbage);
        return sizes == Sizes::Other || better ? other : own;
    }

    [[nodiscard]] bool HasOddId(std::size_t at) const {
        if (form_ == TagForm::V22 || at >= end_ || end_ - at < HeaderSize) return false;
        const BytesView id = text_.substr(at, IdSize);
        return std::all_of(id.begin(), id.end(), [](char c) { return c >= 0x20 && c <= 0x7E; });
    }

    // Some programs have identifiers that are none; their sizes lead on like those of others.
    [[nodiscard]] bool StartsOddFrame(std::size_t at) const {
        if (!HasOddId(at)) return false;
        const std::size_t next = NextOf(at, MeasureLong(at, Sizes::Mixed));
        return LandingAt(next) >= Landing::Padding || HasOddId(next);
    }

    // `frames`: where they go; null: they are only counted.
    Walked Walk(std::size_t from, Sizes sizes, std::vector<Frame>* frames) const {
        Walked walked;
        if (frames != nullptr) frames->reserve(UsualFrames);
        std::size_t at = from;
        for (; StartsFrame(at) || StartsOddFrame(at); ++walked.Count) {
            const Measured measured = Measure(at, sizes);
            if (measured.TwoWays && walked.FirstTwoWays == BytesView::npos) {
                walked.FirstTwoWays = at;
                walked.CountBefore = walked.Count;
            }
            if (frames != nullptr) frames->push_back(FrameAt(at, measured));
            at = NextOf(at, measured);
        }
        walked.End = at;
        walked.At = LandingAt(at);
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
        return known && LandingOf(at, Measure(at, Sizes::Mixed)) >= Landing::Padding;
    }

    [[nodiscard]] std::size_t FindKnownFrame(std::size_t from) const {
        for (std::size_t at = from; at + HeaderSize <= end_; ++at)
            if (IsIdCharacter(text_[at]) && StartsKnownFrame(at)) return at;
        return BytesView::npos;
    }

    // Where the walk can be taken up again.
    [[nodiscard]] std::size_t NextBehind(const Walked& walked) const {
        // The size that has led here may be too large as well as too small.
        if (walked.At != Landing::Padding)
            return FindKnownFrame(list_.Frames.empty() ? walked.End
                                                       : StartOf(list_.Frames.back().Body));
        const std::size_t next = text_.find_first_not_of('\0', walked.End);
        return next < end_ && StartsKnownFrame(next) ? next : BytesView::npos;
    }

    void Recover(Walked walked) {
        while (walked.At < Landing::End) {
            const std::size_t next = NextBehind(walked);
            if (next == BytesView::npos) break;
            if (walked.At != Landing::Padding) EndLastAt(next);
            list_.Clean = false;
            walked = Walk(next, Sizes::Mixed, &list_.Frames);
        }
        list_.End = std::min(walked.End, text_.size());
        if (walked.At == Landing::Garbage)
            list_.Unread = text_.substr(walked.End, contentEnd_ - walked.End);
        if (walked.At != Landing::Beyond) return;
        EndLastAt(end_);
        list_.End = end_;
    }

    void EndLastAt(std::size_t end) {
        if (list_.Frames.empty()) return;
        BytesView& body = list_.Frames.back().Body;
        const std::size_t start = std::min(StartOf(body), end);
        body = text_.substr(start, end - start);
    }

    FrameList list_;
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
