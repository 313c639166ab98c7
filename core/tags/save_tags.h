// Saving both tags of a file in one go.
#pragma once

#include "core/tags/file_tags.h"
#include "core/tags/save_plan.h"

namespace mdlPLM {

enum class SaveOutcome { Written, NoWork, Failed };

struct SaveResult {
    SaveOutcome Outcome = SaveOutcome::NoWork;
    ErrorNumber Error = ErrorNumber::None;  ///< when it failed

    /// True when the file was written.
    explicit operator bool() const { return Outcome == SaveOutcome::Written; }
};

/// Writes, removes or leaves alone each tag of an existing file by its mode; what a tag that is not
/// written holds in its record does not matter. What the file holds is looked at anew, whatever was
/// read from it before. In place only the tag's own bytes are touched. A file that is written anew
/// is read into memory, deleted and made again (see delete_and_write.h); one without tags is
/// written over. A failure is not reported: the caller names the file. It leaves the file as it
/// was, but for one between the delete and the end of the write.
SaveResult SaveTags(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes);

/// What is to be written to one file.
struct TagChange {
    ID3v1Tag V1;
    ID3v2Tag V2;
    SaveModes Modes;
};

/// A file that is open for reading and writing, and the tags that have just been read from it, with
/// ID3v2Parts::FieldsAndText.
struct OpenTags {
    TextView Path;
    File& Source;
    const FileTags& Tags;
};

/// SaveTags on such a file, without looking at it again. It is closed afterwards.
SaveResult SaveTags(const OpenTags& opened, const TagChange& change);

/// What would come of SaveTags, as far as it can be told without writing: the file is opened for
/// writing, looked at and closed.
SaveResult TrySaveTags(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes);

/// The same for WriteID3v1.
SaveResult TryWriteID3v1(TextView path);

/// Saves the tags of one file after the other, or only pretends to.
class TagWriter {
public:
    virtual ~TagWriter() = default;
    virtual SaveResult Save(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2,
                            SaveModes modes) = 0;
    /// The trailer alone, as WriteID3v1 does it: whatever state the other tag is in.
    virtual SaveResult SaveID3v1(TextView path, const ID3v1Tag& v1) = 0;
};

}  // namespace mdlPLM
