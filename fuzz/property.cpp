#include "fuzz/property.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/platform/path.h"
#include "core/text/code_page.h"

namespace mdlPLM::fuzz {

namespace {

namespace fs = std::filesystem;

constexpr bool Settings::*Options[] = {
    &Settings::bID3,          &Settings::bExtension,     &Settings::bLowExtension,
    &Settings::bScoreToSpace, &Settings::b20toSpace,     &Settings::bSpaces,
    &Settings::bParentheses,  &Settings::bReplace,       &Settings::bMisses,
    &Settings::bRemoveChars,  &Settings::bOptimizedID3v1};

// Made at its first use; in memory where there is room for it, because a target that writes files
// is a hundred times as fast where nothing has to reach a disk.
class OwnFolder {
public:
    OwnFolder() {
        const fs::path memory = "/dev/shm";
        const bool inMemory = ::access(memory.c_str(), W_OK) == 0;
        native_ = (inMemory ? memory : fs::temp_directory_path()) /
                  ("plm-fuzz-" + std::to_string(::getpid()));
        fs::create_directories(native_);
        path_ = PathFromNative(native_.string() + "/");
    }
    ~OwnFolder() {
        std::error_code ignored;
        fs::remove_all(native_, ignored);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;
    [[nodiscard]] const Text& Path() const { return path_; }

private:
    fs::path native_;
    Text path_;
};

char16_t Unescaped(char16_t c) {
    if (c == 0x1D) return u'\0';
    if (c == 0x1E) return u'\n';
    return c == 0x1F ? char16_t{0xD83D} : c;
}

}  // namespace

void Require(bool holds, const char* what) {
    if (!holds) throw BrokenProperty(what);
}

void RequireEqual(BytesView is, BytesView expected, const char* what) {
    if (is == expected) return;
    throw BrokenProperty(Bytes(what).append(": \"").append(is).append("\" instead of \"") +
                         Bytes(expected).append("\""));
}

void RequireEqual(TextView is, TextView expected, const char* what) {
    if (is != expected) RequireEqual(ToUtf8(is), ToUtf8(expected), what);
    Require(is == expected, what);
}

Bytes Input::Line() {
    const std::size_t end = std::min(bytes_.find('\n'), bytes_.size());
    Bytes line(bytes_.substr(0, end));
    bytes_.remove_prefix(std::min(end + 1, bytes_.size()));
    return line;
}

Text Input::LineText() {
    Text text = FromUtf8(Line());
    std::transform(text.begin(), text.end(), text.begin(), Unescaped);
    return text;
}

unsigned Input::LineFlags() {
    unsigned flags = 0;
    for (const char c : Line())
        if (c >= 'a' && c <= 'z') flags |= 1U << (c - 'a');
    return flags;
}

Settings TakeSettings(Input& input) {
    Settings settings;
    const Bytes line = input.Line();
    for (std::size_t i = 0; i < std::size(Options); ++i)
        settings.*Options[i] = line.find(static_cast<char>('a' + i)) != Bytes::npos;
    const std::size_t digit = line.find_first_of("01234");
    settings.Change = digit == Bytes::npos ? 0 : line[digit] - '0';
    settings.Extension = input.LineText();
    settings.strSettings = input.LineText();
    return settings;
}

ReplacementList TakeReplacements(Input& input) {
    ReplacementList list(1);
    list[0].Find = input.LineText();
    list[0].Put = input.LineText();
    return list;
}

const Text& ScratchFolder() {
    static const OwnFolder folder;
    return folder.Path();
}

ScratchFile::ScratchFile(BytesView contents, BytesView name)
    : path_(ScratchFolder() + FromUtf8(name)), native_(NativePath(path_)) {
    Write(contents);
}

ScratchFile::~ScratchFile() {
    std::error_code ignored;
    fs::remove(native_, ignored);
}

Bytes ScratchFile::Contents() const {
    std::ifstream file(native_, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

void ScratchFile::Write(BytesView contents) const {
    std::ofstream file(native_, std::ios::binary | std::ios::trunc);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + native_);
}

}  // namespace mdlPLM::fuzz
