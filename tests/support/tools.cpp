#include "tests/support/tools.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <stdexcept>

#include "core/platform/path.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::test {

namespace {

constexpr int SamplesPerSecond = 44100;

Bytes Quoted(const Bytes& argument) {
    Bytes quoted = "'";
    for (const char c : argument) quoted += c == '\'' ? Bytes("'\\''") : Bytes(1, c);
    return quoted + "' ";
}

void AppendSample(Bytes& bytes, double value) {
    const auto sample = static_cast<std::uint16_t>(static_cast<std::int16_t>(value * 12000));
    bytes.push_back(static_cast<char>(sample & 255U));
    bytes.push_back(static_cast<char>(sample >> 8U));
}

// Two tones that move against each other, so that both channels have something to encode.
Bytes OneSecond() {
    Bytes samples;
    for (int i = 0; i < SamplesPerSecond; ++i) {
        const double t = static_cast<double>(i) / SamplesPerSecond;
        AppendSample(samples, std::sin(t * 2765 * (1 + t)) + std::sin(t * 911) / 2);
        AppendSample(samples, std::sin(t * 1381 * (2 - t)) + std::sin(t * 4400) / 2);
    }
    return samples;
}

Bytes Encode() {
    const TempFolder folder;
    const Text raw = folder.File(u"a.raw", OneSecond());
    const Text encoded = folder / u"a.mp3";
    (void)OutputOf({"lame", "--quiet", "-r", "-s", "44.1", "--signed", "--bitwidth", "16", "-m",
                    "j", "-b", "128", NativePath(raw), NativePath(encoded)});
    return ReadFile(encoded);
}

}  // namespace

Bytes OutputOf(const std::vector<Bytes>& command) {
    Bytes line;
    for (const Bytes& argument : command) line += Quoted(argument);
    std::FILE* const pipe = ::popen((line + "2>&1").c_str(), "r");
    if (pipe == nullptr) throw std::runtime_error("cannot run " + line);
    Bytes output;
    std::array<char, 4096> buffer{};
    while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), pipe))
        output.append(buffer.data(), got);
    if (::pclose(pipe) != 0) throw std::runtime_error(line + "failed: " + output);
    return output;
}

const Bytes& RealMp3() {
    static const Bytes encoded = Encode();
    return encoded;
}

Bytes DecodedSamples(TextView path) {
    return OutputOf({"ffmpeg", "-v", "error", "-i", NativePath(path), "-f", "md5", "-"});
}

}  // namespace mdlPLM::test
