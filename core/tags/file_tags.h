// Both tags of one file in one go: the file is opened once and only its head, its tag and its last
// 128 bytes are read.
#pragma once

#include "core/platform/file.h"
#include "core/tags/id3v1.h"
#include "core/tags/id3v2.h"

namespace mdlPLM {

struct FileTags {
    bool Exists = false;
    ID3v1Tag V1;
    ID3v2Tag V2;
    bool V1Failed = false;  ///< an error was reported while reading it
    bool V2Failed = false;
    /// What kept the file from being read (no permission, the disk), as opposed to a tag that is
    /// not as it should be, or a thing that holds no bytes.
    ErrorNumber Unreadable = ErrorNumber::None;
    bool V1HasTrackByte = false;  ///< the trailer is of the ID3v1.1 form
    std::int64_t FileSize = 0;    ///< bytes
    std::int64_t V2Length = 0;    ///< header included; 0 without a tag
    /// With ID3v2Parts::FieldsAndText, as the file holds them:
    Bytes V1Bytes;   ///< the trailer; empty without one
    Bytes V2Header;  ///< the ten bytes before the tag text; empty without a tag
    Bytes V2Text;    ///< the tag text
};

/// Sets Unreadable where the file's opening or reading ended so.
void NoteUnreadable(FileTags& tags, Status status);

/// ReadID3v1 and ReadID3v2 together.
FileTags ReadFileTags(TextView path, ID3v2Parts parts, ErrorSink& errors);

/// The same on a file that is already open.
FileTags ReadFileTags(const File& file, TextView path, ID3v2Parts parts, ErrorSink& errors);

}  // namespace mdlPLM
