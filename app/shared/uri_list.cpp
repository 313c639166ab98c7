#include "app/shared/uri_list.h"

#include <algorithm>

#include "core/platform/path.h"

namespace mdlPLM {

namespace {

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool StartsWithIgnoringCase(BytesView text, BytesView lowerCase) {
    return text.size() >= lowerCase.size() &&
           std::equal(lowerCase.begin(), lowerCase.end(), text.begin(), [](char lower, char c) {
               return lower == (c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
           });
}

/// What stands behind the scheme and the host; empty when the file is not on this machine.
BytesView EncodedPath(BytesView uri) {
    constexpr BytesView scheme = "file:";
    if (!StartsWithIgnoringCase(uri, scheme)) return {};
    uri.remove_prefix(scheme.size());
    if (uri.substr(0, 2) != "//") return uri.substr(0, 1) == "/" ? uri : BytesView();
    uri.remove_prefix(2);
    constexpr BytesView host = "localhost/";
    if (StartsWithIgnoringCase(uri, host)) uri.remove_prefix(host.size() - 1);
    return uri.substr(0, 1) == "/" ? uri : BytesView();
}

BytesView TrimLine(BytesView line) {
    constexpr BytesView blanks(" \t\r\0", 4);
    const std::size_t first = line.find_first_not_of(blanks);
    if (first == BytesView::npos) return {};
    return line.substr(first, line.find_last_not_of(blanks) - first + 1);
}

}  // namespace

Bytes DecodePercent(BytesView encoded) {
    Bytes decoded;
    decoded.reserve(encoded.size());
    for (std::size_t i = 0; i < encoded.size(); ++i) {
        const bool room = encoded[i] == '%' && i + 2 < encoded.size();
        const int high = room ? HexDigit(encoded[i + 1]) : -1;
        const int low = room ? HexDigit(encoded[i + 2]) : -1;
        if (high < 0 || low < 0) {
            decoded.push_back(encoded[i]);
            continue;
        }
        decoded.push_back(static_cast<char>(high * 16 + low));
        i += 2;
    }
    return decoded;
}

Text PathFromFileUri(BytesView uri) {
    Bytes path = DecodePercent(EncodedPath(uri));
    if (path.find('\0') != Bytes::npos) return {};
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return PathFromNative(path);
}

std::vector<Text> PathsFromUriList(BytesView list) {
    std::vector<Text> paths;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find('\n'), list.size());
        const BytesView line = TrimLine(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
        if (line.substr(0, 1) == "#") continue;
        Text path = PathFromFileUri(line);
        if (!path.empty()) paths.push_back(std::move(path));
    }
    return paths;
}

}  // namespace mdlPLM
