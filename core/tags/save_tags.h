// Saving both tags of a file in one go.
#pragma once

#include "core/tags/file_tags.h"
#include "core/tags/save_plan.h"
#include "core/text/language.h"

namespace mdlPLM {

enum class SaveOutcome { Written, NoWork, Failed };

/// What kept a file from being saved, where the error number alone does not say it.
enum class SaveObstacle {
    None,
    InUse,    ///< another program is writing to the file
    Changed,  ///< the file is not any more what was read
    Stopped,  ///< the work was given up
};

struct SaveResult {
    SaveOutcome Outcome = SaveOutcome::NoWork;
    ErrorNumber Error = ErrorNumber::None;  ///< when it failed
    SaveObstacle Obstacle = SaveObstacle::None;

    /// True when the file was written.
    explicit operator bool() const { return Outcome == SaveOutcome::Written; }
};

/// Why a save failed, on one line.
Text ReasonOf(const SaveResult& result, const Language& words = {});
/// The same as the text of a message box.
Text SaveMessage(const SaveResult& result, const Language& words = {});

/// Writes, removes or leaves alone each tag of an existing file by its mode; what a tag that is not
/// written holds in its record does not matter. What the file holds is looked at anew, whatever was
/// read from it before. In place only the tag's own bytes are touched; a file that is written anew
/// is made beside the old one and takes its name once it is on the disk (see rewrite.h). Other
/// programs that ask are kept from writing to the file meanwhile. A failure is not reported: the
/// caller names the file. It leaves the file as it was.
SaveResult SaveTags(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes);

/// What is to be written to one file.
struct TagChange {
    ID3v1Tag V1;
    ID3v2Tag V2;
    SaveModes Modes;
};

/// A file that is open for reading and writing, and what has just been read from it, with
/// ID3v2Parts::FieldsAndText; null: it has to be looked at.
struct OpenTags {
    TextView Path;
    File& Source;
    const FileTags* Tags = nullptr;
};

/// SaveTags on such a file. It is closed afterwards. Fails when the file has been changed since it
/// was opened.
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
