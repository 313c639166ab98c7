#include "tests/support/tools.h"

#include <array>
#include <cstdio>
#include <stdexcept>

#include "core/platform/path.h"

namespace mdlPLM::test {

namespace {

Bytes Quoted(const Bytes& argument) {
    Bytes quoted = "'";
    for (const char c : argument) quoted += c == '\'' ? Bytes("'\\''") : Bytes(1, c);
    return quoted + "' ";
}

}  // namespace

Bytes OutputOf(const std::vector<Bytes>& command) {
    // In a locale without UTF-8 some of them mistake their arguments.
    Bytes line = "LC_ALL=C.UTF-8 ";
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

Bytes DecodedSamples(TextView path) {
    return OutputOf({"ffmpeg", "-v", "error", "-i", NativePath(path), "-f", "md5", "-"});
}

}  // namespace mdlPLM::test
