#include "app/cli/commands.h"
#include "app/cli/inputs.h"
#include "core/tags/stream_info.h"

namespace mdlPLM::cli {

namespace {

struct StreamRow {
    const char* Key;
    Text StreamLines::*Line;
};

constexpr StreamRow StreamRows[] = {
    {"version", &StreamLines::Version},       {"layer", &StreamLines::Layer},
    {"bitrate", &StreamLines::Bitrate},       {"frequency", &StreamLines::Frequency},
    {"copyright", &StreamLines::Copyright},   {"original", &StreamLines::Original},
    {"protection", &StreamLines::Protection}, {"emphasis", &StreamLines::Emphasis},
    {"header", &StreamLines::Header},         {"id3v1", &StreamLines::ID3v1},
    {"id3v2", &StreamLines::ID3v2},           {"size", &StreamLines::Size},
    {"length", &StreamLines::Length}};

struct Stream {
    FileTags Tags;
    std::optional<MpegHeader> Header;
    Text Failure;  ///< why the file could not be read; empty when it could
};

/// Nothing when the user ends the program meanwhile.
std::optional<Stream> ReadStreamOf(const Text& path, const Report& report) {
    Stream stream;
    const auto file = std::make_shared<File>();
    const Status opened = file->Open(path, File::Mode::Read);
    if (!opened.Ok()) {
        stream.Failure = Describe(opened.Number());
        return stream;
    }
    // Tags that cannot be read say nothing about the audio.
    SilentErrors silent;
    stream.Tags = ReadFileTags(*file, path, ID3v2Parts::NameFields, silent);
    HeaderSearch search = SearchStream(file, stream.Tags);
    while (search.Step())
        if (report.ShouldStop()) return std::nullopt;
    if (search.Found()) stream.Header = search.Found()->Header;
    return stream;
}

void PutNumber(JsonObject& object, const char* key, long long value) {
    value > 0 ? object.Put(key, value) : object.PutNull(key);
}

JsonObject ObjectOf(const Text& path, const Stream& stream) {
    JsonObject object;
    object.Put("path", path);
    const StreamLines lines = DescribeStream(stream.Tags, stream.Header);
    for (const StreamRow& row : StreamRows) object.PutOrNull(row.Key, lines.*row.Line);
    PutNumber(object, "size_bytes", stream.Tags.FileSize);
    PutNumber(object, "bitrate_kbps", stream.Header ? stream.Header->Bitrate() : 0);
    PutNumber(object, "frequency_hz", stream.Header ? stream.Header->Frequency() : 0);
    const double seconds =
        stream.Header ? PlayingTime(stream.Tags, stream.Header->FrameLength()) : 0;
    seconds > 0 ? object.Put("length_seconds", seconds) : object.PutNull("length_seconds");
    object.Put("outcome", stream.Failure.empty() ? "read" : "failed");
    object.PutOrNull("reason", stream.Failure);
    return object;
}

void PutLines(Report& report, const Text& path, const Stream& stream) {
    report.Line(report.Shown(path));
    const StreamLines lines = DescribeStream(stream.Tags, stream.Header);
    for (const StreamRow& row : StreamRows)
        if (!(lines.*row.Line).empty()) report.Line("    " + report.Shown(lines.*row.Line));
}

}  // namespace

void RunStream(Session& session) {
    PathSpelling spelling(session.Folder);
    std::vector<Text> paths;
    if (!GatherPaths(session, spelling, paths)) return;
    Report& report = session.Results;
    for (std::size_t row = 0; report.MayBegin(row, paths.size()); ++row) {
        const std::optional<Stream> read = ReadStreamOf(paths[row], report);
        if (!read) {
            static_cast<void>(report.MayBegin(row, paths.size()));  // says where it was ended
            return;
        }
        const Stream& stream = *read;
        const Text path(spelling.Shown(paths[row]));
        if (report.Json()) {
            report.Object(ObjectOf(path, stream));
        } else if (stream.Failure.empty()) {
            PutLines(report, path, stream);
        }
        if (!stream.Failure.empty()) report.Fail(path, stream.Failure);
    }
}

}  // namespace mdlPLM::cli
