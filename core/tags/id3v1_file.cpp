#include "core/platform/disk.h"
#include "core/tags/genres.h"
#include "core/tags/patches.h"
#include "core/tags/tag_file.h"
#include "core/text/code_page.h"

namespace mdlPLM {

namespace {

Status ReadRecord(const File& file, ID3v1Tag& tag) {
    Bytes trailer;
    const Status status = ReadTrailer(file, trailer);
    if (status.Ok()) tag = ParseID3v1(trailer);
    return status;
}

}  // namespace

std::int64_t TrailerPlace(const File& file, BytesView lastBytes) {
    return lastBytes.substr(0, 3) == "TAG" ? file.Size() - TrailerSize : file.Size();
}

Status OpenForTags(TextView path, File& file, bool& exists) {
    const Status status = file.Open(path, File::Mode::Read);
    exists = status.Ok() || FileExists(path);
    return exists ? status : Status();
}

Status ReadTrailer(const File& file, Bytes& trailer) {
    const Status status = file.ReadAt(file.Size() - TrailerSize, ID3v1Size, trailer);
    if (!status.Ok()) return status;
    // The file has become shorter since it was opened.
    return trailer.size() == ID3v1Size ? Status() : Status(ErrorNumber::InputPastEnd);
}

Status WriteTrailer(File& file, const ID3v1Tag& tag) {
    Bytes old;
    const Status status = ReadTrailer(file, old);
    if (!status.Ok()) return status;
    return ApplyPatches(file, {{TrailerPlace(file, old), RenderID3v1(tag)}});
}

ID3v1Tag ReadID3v1(TextView path, ErrorSink& errors) {
    ID3v1Tag tag;
    File file;
    bool exists = false;
    Status status = OpenForTags(path, file, exists);
    if (!exists) return tag;
    if (status.Ok()) status = ReadRecord(file, tag);
    if (!status.Ok()) {
        tag.Genre = NoGenre;
        errors.Report(status.Number(), path);
    }
    return tag;
}

bool WriteID3v1(TextView path, const ID3v1Tag& tag, ErrorSink& errors) {
    File file;
    Status status = file.Open(path, File::Mode::ReadWrite);
    if (status.Ok()) status = file.Lock();
    if (status.Ok()) status = WriteTrailer(file, tag);
    if (status.Ok()) status = file.Close();
    if (!status.Ok()) errors.Report(status.Number(), path);
    return status.Ok();
}

Text GetFileGenre(TextView path, ErrorSink& errors) {
    if (!FileExists(path)) return {};
    const ID3v1Tag tag = ReadID3v1(path, errors);
    return FromCodePage(GenreNameOfNumber(static_cast<unsigned char>(tag.Genre)));
}

}  // namespace mdlPLM
