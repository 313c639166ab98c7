// The technical data of a file's audio stream, as the lines that the tag panel shows.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "core/tags/file_tags.h"
#include "core/tags/mpeg_header.h"

namespace mdlPLM {

/// Every line as it is shown; empty where there is nothing to tell.
struct StreamLines {
    Text Version;     ///< "MPEG 1.0"
    Text Layer;       ///< "layer 3"
    Text Bitrate;     ///< "128kbps"
    Text Frequency;   ///< "44100Hz JStereo"
    Text Copyright;   ///< "Copyrighted: No"
    Text Original;    ///< "Original: Yes"
    Text Protection;  ///< "CRCs: No"
    Text Emphasis;    ///< "Emphasis: None"
    Text Header;      ///< "Header:" and the 32 bits
    Text ID3v1;       ///< "ID3v1: 1.1"
    Text ID3v2;       ///< "ID3v2: 3.0"
    Text Size;        ///< "Size: 4000000b"
    Text Length;      ///< "Length: 249.2 s"
};

/// Gives up to `count` bytes at `offset`; fewer at the end, or when they cannot be read.
using ReadBytes = std::function<Bytes(std::int64_t offset, std::size_t count)>;

struct FoundHeader {
    MpegHeader Header;
    std::int64_t At = 0;    ///< offset in the file
    bool Followed = false;  ///< by another one at its distance, or by the end of the audio
};

/// The search for the first header of the audio in the bytes from `begin` to `end`: the first
/// position with a known header that another one follows at its real distance, or that the audio's
/// end follows; where there is none, the first position with eleven set bits. It goes in steps of
/// some kilobytes, so that a window can answer while a large file is searched.
class HeaderSearch {
public:
    HeaderSearch(ReadBytes read, std::int64_t begin, std::int64_t end);

    /// Looks through the next piece; false when the search is over.
    bool Step();
    [[nodiscard]] bool Over() const { return over_; }
    /// What was found, once the search is over.
    [[nodiscard]] const std::optional<FoundHeader>& Found() const { return found_; }
    /// Bytes looked through so far, and in all.
    [[nodiscard]] std::int64_t Done() const { return at_ - begin_; }
    [[nodiscard]] std::int64_t Total() const { return end_ - begin_; }

private:
    /// The file's bytes through one block at a time.
    class Window {
    public:
        Window(ReadBytes read, std::int64_t end) : read_(std::move(read)), end_(end) {}
        /// From `offset` up to the end of a block, at least `least` bytes where the audio has them.
        BytesView At(std::int64_t offset, std::size_t least);

    private:
        ReadBytes read_;
        std::int64_t end_;
        std::int64_t start_ = 0;
        Bytes block_;
    };
    bool LookThroughPiece();
    bool Accepts(BytesView bytes);
    [[nodiscard]] std::int64_t NextSyncByte(std::int64_t to);
    [[nodiscard]] bool IsFollowed(const MpegHeader& header);

    Window candidates_;
    Window followers_;  // its own block, so that a look ahead never moves the other back and forth
    std::int64_t begin_;
    std::int64_t end_;
    std::int64_t at_;
    std::optional<FoundHeader> found_;
    bool over_ = false;
};

/// The same search in one go.
std::optional<MpegHeader> FindHeader(const ReadBytes& read, std::int64_t begin, std::int64_t end);

/// The playing time in seconds; 0 when it cannot be told. The fixed divisor 38.4, whatever the
/// sampling frequency, and the 138 bytes that a trailer takes off are kept on purpose.
double PlayingTime(const FileTags& tags, int frameLength);

/// The lines of a file: `header` is its first one, if there is any.
StreamLines DescribeStream(const FileTags& tags, const std::optional<MpegHeader>& header);

/// The search for the first header of the audio of an open file whose tags have been read. It keeps
/// the file.
HeaderSearch SearchStream(std::shared_ptr<const File> file, const FileTags& tags);

/// Where the first frame of the audio of such a file begins, behind the tag and whatever padding
/// follows it; 0 for a file without a tag, and where no frame is found in the 16 megabytes behind
/// it.
std::int64_t FindFirstFrame(const File& file, const FileTags& tags);

/// The lines of such a file, in one go.
StreamLines ReadStream(const File& file, const FileTags& tags);

}  // namespace mdlPLM
