// Saving to files of any garbage: what fails or has no work leaves the file, what is written has
// the audio and what was asked for.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/platform/path.h"
#include "core/tags/file_tags.h"
#include "core/tags/id3v2_writer.h"
#include "core/tags/save_tags.h"

namespace {

using namespace mdlPLM;

void Require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

Bytes FilePath() {
    static const Bytes path =
        (std::filesystem::temp_directory_path() / ("plm-fuzz-" + std::to_string(::getpid())))
            .string();
    return path;
}

void Write(BytesView contents) {
    std::ofstream file(FilePath(), std::ios::binary | std::ios::trunc);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
}

Bytes Read() {
    std::ifstream file(FilePath(), std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

struct Wish {
    ID3v1Tag V1;
    ID3v2Tag V2;
    SaveModes Modes;
};

// The first bytes say what is asked for; the rest is the file.
Wish TakeWish(BytesView& input) {
    Wish wish;
    const auto byte = [&] {
        const auto value = input.empty() ? 0U : static_cast<unsigned char>(input.front());
        input.remove_prefix(std::min<std::size_t>(1, input.size()));
        return value;
    };
    wish.Modes = {static_cast<TagMode>(static_cast<int>(byte() % 3) - 1),
                  static_cast<TagMode>(static_cast<int>(byte() % 3) - 1)};
    wish.V1.Title = Bytes(byte() % 31, 'v');
    wish.V1.Track = static_cast<char>(byte());
    wish.V2.Title = Bytes(std::size_t{byte()} * 4, 't');
    wish.V2.Comments = Bytes(std::size_t{byte() % 3} * 6000, 'c');
    wish.V2.OtherFrames = Bytes(byte() % 64, 'o');
    return wish;
}

void CheckTagWritten(const Wish& wish, const Bytes& after) {
    const Bytes frames = BuildFrames(wish.V2);
    if (frames.empty()) return;
    Require(after.substr(0, 4) == "ID3\3", "no tag");
    // The trailer may take the place of the padding at most.
    Require(after.compare(10, frames.size(), frames) == 0, "other frames than asked for");
}

void CheckWritten(const Wish& wish, const OldFile& old, const Bytes& before, const Bytes& after) {
    const SavePlan plan = PlanSave(old, wish.V1, wish.V2, wish.Modes);
    Require(static_cast<std::int64_t>(after.size()) == plan.NewSize, "another size than planned");
    if (wish.Modes.V2 == TagMode::Write) CheckTagWritten(wish, after);
    const Bytes trailer = RenderID3v1(wish.V1);
    const auto end = static_cast<std::size_t>(old.Size - (old.HasV1 ? 128 : 0));
    const std::size_t start = std::min(static_cast<std::size_t>(old.V2Length), end);
    Bytes tail = before.substr(start, end - start);
    if (wish.Modes.V1 == TagMode::Write) tail += trailer;
    if (wish.Modes.V1 == TagMode::Leave) tail += before.substr(end);
    // A tag that reached beyond the end made the file as long as it says.
    if (old.V2Length > static_cast<std::int64_t>(end) && tail.empty()) return;
    Require(after.size() >= tail.size() &&
                after.compare(after.size() - tail.size(), tail.size(), tail) == 0,
            "audio or trailer changed");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    BytesView input(reinterpret_cast<const char*>(data), size);
    const Wish wish = TakeWish(input);
    const Bytes before(input);
    Write(before);
    const Text path = PathFromNative(FilePath());
    OldFile old{static_cast<std::int64_t>(before.size()), false, false, 0};
    if (before.size() >= 128) {
        old.HasV1 = before.compare(before.size() - 128, 3, "TAG") == 0;
        old.HasV2 = before.compare(0, 3, "ID3") == 0;
        if (old.HasV2) old.V2Length = 10 + DecodeSize(BytesView(before).substr(6));
    }
    const SaveResult tried = TrySaveTags(path, wish.V1, wish.V2, wish.Modes);
    const SaveResult result = SaveTags(path, wish.V1, wish.V2, wish.Modes);
    Require(tried.Outcome == result.Outcome, "trying told another outcome");
    const Bytes after = Read();
    if (result)
        CheckWritten(wish, old, before, after);
    else
        Require(after == before, "a file changed without being written");
    SilentErrors silent;
    (void)ReadFileTags(path, ID3v2Parts::Everything, silent);
    std::filesystem::remove(FilePath());
    return 0;
}
