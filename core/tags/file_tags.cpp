#include "core/tags/file_tags.h"

#include <algorithm>

#include "core/tags/tag_file.h"

namespace mdlPLM {

namespace {

constexpr auto HeaderSize = static_cast<std::int64_t>(ID3v2HeaderSize);

// The start of a file in one read: as a rule the whole tag of a file without a picture.
class Head {
public:
    Status Read(const File& file) {
        const auto most = static_cast<std::int64_t>(buffer_.size());
        const auto count = static_cast<std::size_t>(std::min(most, file.Size()));
        return file.ReadAt(0, count, buffer_.data(), got_);
    }
    [[nodiscard]] BytesView View() const { return {buffer_.data(), got_}; }

private:
    std::array<char, 4096> buffer_;
    std::size_t got_ = 0;
};

struct TagSpan {
    std::int64_t Length = 0;      // header included, as declared
    std::int64_t TextInFile = 0;  // bytes of the tag text that the file holds
};

Status FindTag(BytesView head, std::int64_t fileSize, TagSpan& span) {
    if (head.size() < ID3v2HeaderSize) return ErrorNumber::InputPastEnd;
    const std::int64_t size = DecodeSize(head.substr(6, 4));
    if (size > fileSize) return ErrorNumber::InputPastEnd;
    // The text reaches ten bytes beyond the tag, because it is counted from behind the header.
    span = {size + HeaderSize, std::min(size + HeaderSize, fileSize - HeaderSize)};
    return {};
}

Status CompleteText(const File& file, BytesView head, Bytes& text, std::size_t length) {
    text.reserve(length);
    text.assign(head.substr(ID3v2HeaderSize));
    const std::size_t have = text.size();
    text.resize(length);
    std::size_t got = 0;
    const Status status =
        file.ReadAt(static_cast<std::int64_t>(head.size()), length - have, text.data() + have, got);
    if (!status.Ok()) return status;
    return got == length - have ? Status() : Status(ErrorNumber::InputPastEnd);
}

Status ReadTag(const File& file, BytesView head, ID3v2Parts parts, FileTags& tags) {
    if (head.substr(0, 3) != "ID3") return {};
    tags.V2.ID = "ID3";
    TagSpan span;
    const Status status = FindTag(head, file.Size(), span);
    if (!status.Ok()) return status;
    const auto length = static_cast<std::size_t>(span.TextInFile);
    Bytes longText;
    BytesView text = head.substr(ID3v2HeaderSize, length);
    if (text.size() < length) {
        const Status rest = CompleteText(file, head, longText, length);
        if (!rest.Ok()) return rest;
        text = longText;
    }
    tags.V2 = ParseID3v2(head, text, parts);
    tags.V2Length = span.Length;
    if (parts == ID3v2Parts::FieldsAndText) {
        tags.V2Header.assign(head.substr(0, ID3v2HeaderSize));
        tags.V2Text.assign(text);
    }
    return {};
}

Status ReadRecord(const File& file, BytesView head, ID3v2Parts parts, FileTags& tags) {
    const std::int64_t start = file.Size() - TrailerSize;
    Bytes read;
    BytesView trailer;
    if (start >= 0 && static_cast<std::int64_t>(head.size()) == file.Size()) {
        trailer = head.substr(static_cast<std::size_t>(start));
    } else {
        const Status status = ReadTrailer(file, read);
        if (!status.Ok()) return status;
        trailer = read;
    }
    ParseID3v1(trailer, tags.V1);
    tags.V1HasTrackByte = tags.V1.Present() && HasTrackByte(trailer);
    if (tags.V1.Present() && parts == ID3v2Parts::FieldsAndText) tags.V1Bytes.assign(trailer);
    return {};
}

void NoteV1Failure(FileTags& tags) {
    tags.V1Failed = true;
    tags.V1.Genre = NoGenre;
}

struct Reading {
    const File& Source;
    TextView Path;
    ID3v2Parts Parts;
    ErrorSink& Errors;
};

void Read(const Reading& reading, FileTags& tags) {
    const File& file = reading.Source;
    tags.Exists = true;
    tags.FileSize = file.Size();
    Head head;
    const Status first = head.Read(file);
    const Status v1 = ReadRecord(file, head.View(), reading.Parts, tags);
    if (!v1.Ok()) {
        NoteV1Failure(tags);
        NoteUnreadable(tags, v1);
        reading.Errors.Report(v1.Number(), reading.Path);
    }
    const Status v2 = first.Ok() ? ReadTag(file, head.View(), reading.Parts, tags) : first;
    tags.V2Failed = !v2.Ok();
    if (!tags.V2Failed) return;
    NoteUnreadable(tags, v2);
    reading.Errors.Report(v2.Number(), reading.Path);
}

}  // namespace

// The errors that speak of the file's contents, and of folders and pipes, are told apart from those
// that a permission or another disk would take away.
void NoteUnreadable(FileTags& tags, Status status) {
    const ErrorNumber error = status.Number();
    if (status.Ok() || error == ErrorNumber::InputPastEnd ||
        error == ErrorNumber::BadRecordNumber || error == ErrorNumber::PathFileAccess)
        return;
    tags.Unreadable = error;
}

FileTags ReadFileTags(const File& file, TextView path, ID3v2Parts parts, ErrorSink& errors) {
    FileTags tags;
    Read({file, path, parts, errors}, tags);
    return tags;
}

FileTags ReadFileTags(TextView path, ID3v2Parts parts, ErrorSink& errors) {
    File file;
    FileTags tags;
    const Status status = OpenForTags(path, file, tags.Exists);
    if (!tags.Exists) return tags;
    if (status.Ok()) {
        Read({file, path, parts, errors}, tags);
        return tags;
    }
    NoteV1Failure(tags);
    tags.V2Failed = true;
    NoteUnreadable(tags, status);
    errors.Report(status.Number(), path);
    return tags;
}

ID3v2Tag ReadID3v2(TextView path, ErrorSink& errors) {
    File file;
    bool exists = false;
    Status status = OpenForTags(path, file, exists);
    FileTags tags;
    Head head;
    if (exists && status.Ok()) status = head.Read(file);
    if (exists && status.Ok()) status = ReadTag(file, head.View(), ID3v2Parts::Everything, tags);
    if (!status.Ok()) errors.Report(status.Number(), path);
    return std::move(tags.V2);
}

}  // namespace mdlPLM
