// What reading and writing of tags share when they touch a file.
#pragma once

#include "core/platform/file.h"
#include "core/tags/id3v1.h"

namespace mdlPLM {

/// Opens an existing file for reading. `exists` is false when there is nothing at that path, which
/// is no error for a reader of tags; any other failure is handed back.
Status OpenForTags(TextView path, File& file, bool& exists);

/// The last 128 bytes of a file. A file shorter than that is BadRecordNumber.
Status ReadTrailer(const File& file, Bytes& trailer);

/// Writes the trailer of a file that is open for writing, over its old one or behind its end. A
/// failure leaves the file as it was.
Status WriteTrailer(File& file, const ID3v1Tag& tag);

/// Where a trailer is to be written: over the one that the last 128 bytes are, else at the end.
std::int64_t TrailerPlace(const File& file, BytesView lastBytes);

}  // namespace mdlPLM
