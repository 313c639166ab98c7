#include "tests/support/real_mp3.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <map>
#include <stdexcept>

#include "core/platform/path.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {

namespace {

constexpr int SampleRate = 44100;

void Append16(Bytes& bytes, unsigned value) {
    bytes.push_back(static_cast<char>(value & 0xFF));
    bytes.push_back(static_cast<char>((value >> 8) & 0xFF));
}

/// Signed 16-bit mono samples, least significant byte first.
Bytes Tone(int pitch) {
    Bytes samples;
    for (int i = 0; i < SampleRate / 2; ++i) {
        const double angle = 2 * 3.14159265358979 * pitch * i / SampleRate;
        Append16(samples, static_cast<unsigned>(std::lround(12000 * std::sin(angle))));
    }
    return samples;
}

Bytes Encode(int pitch) {
    const TempFolder folder;
    const Text raw = folder.File(u"tone.raw", Tone(pitch));
    const Text mp3 = folder / u"tone.mp3";
    // -t: no frame of the encoder's own in front; the audio begins with the first byte.
    RunProgram({"lame", "--quiet", "-t", "-r", "-s", "44.1", "-m", "m", "--little-endian", "-b",
                "64", NativePath(raw), NativePath(mp3)});
    return ReadFile(mp3);
}

}  // namespace

void RunProgram(const std::vector<std::string>& words) {
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int failed =
        posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = -1;
    if (failed != 0 || waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("the program did not run well: " + words.front());
}

Bytes EncodedMp3(int pitch) {
    static std::map<int, Bytes> encoded;
    Bytes& bytes = encoded[pitch];
    if (bytes.empty()) bytes = Encode(pitch);
    return bytes;
}

void TagByPeer(TextView path, const PeerTags& tags, PeerVersion version) {
    std::vector<std::string> words{"id3v2"};
    if (version == PeerVersion::V1) words.emplace_back("-1");
    if (version == PeerVersion::V2) words.emplace_back("-2");
    const auto add = [&words](const char* option, const std::string& value) {
        if (!value.empty()) words.insert(words.end(), {option, value});
    };
    add("-a", tags.Artist);
    add("-t", tags.Title);
    add("-A", tags.Album);
    add("-y", tags.Year);
    add("-T", tags.Track);
    if (tags.Genre >= 0) add("-g", std::to_string(tags.Genre));
    words.push_back(NativePath(path));
    RunProgram(words);
}

}  // namespace mdlPLM
