#include "core/tags/standard/inflate.h"

#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>

namespace mdlPLM::standard {

namespace {

class Inflater {
public:
    Inflater() : ready_(inflateInit(&stream_) == Z_OK) {}
    ~Inflater() {
        if (ready_) inflateEnd(&stream_);
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    std::optional<Bytes> Run(BytesView compressed, std::size_t most) {
        if (!ready_ || compressed.size() > std::numeric_limits<uInt>::max()) return std::nullopt;
        stream_.next_in = reinterpret_cast<const Bytef*>(compressed.data());
        stream_.avail_in = static_cast<uInt>(compressed.size());
        Bytes contents;
        int outcome = Z_OK;
        while (outcome == Z_OK && contents.size() <= most) outcome = Step(contents);
        if (outcome != Z_STREAM_END || contents.size() > most) return std::nullopt;
        return contents;
    }

private:
    int Step(Bytes& contents) {
        std::array<char, 16384> block;
        stream_.next_out = reinterpret_cast<Bytef*>(block.data());
        stream_.avail_out = static_cast<uInt>(block.size());
        const int outcome = inflate(&stream_, Z_NO_FLUSH);
        contents.append(block.data(), block.size() - stream_.avail_out);
        return outcome;
    }

    z_stream stream_{};
    bool ready_;
};

}  // namespace

std::optional<Bytes> Inflated(BytesView compressed, std::size_t most) {
    return Inflater().Run(compressed, most);
}

}  // namespace mdlPLM::standard
