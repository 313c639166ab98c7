// What is asked of the tags of every file, and the edit that does it to one.
#pragma once

#include "app/cli/options.h"
#include "app/tags/tag_run.h"
#include "core/settings/settings.h"

namespace mdlPLM::cli {

/// A field by the word that stands for it on the command line and in JSON, and its boxes.
struct TagField {
    Bytes Word;
    std::optional<TagBox> V1;  ///< nothing: ID3v1 does not have it
    TagBox V2;
};
/// In the order of the boxes.
const std::vector<TagField>& TagFields();

struct TagWishes {
    struct Setting {
        TagBox Box;
        Text Value;
    };
    std::vector<Setting> Set;
    bool RemoveV1 = false;
    bool RemoveV2 = false;
    std::optional<CopyDirection> Copy;
    bool Fix = false;

    [[nodiscard]] bool SetsOrRemoves() const { return !Set.empty() || RemoveV1 || RemoveV2; }
    [[nodiscard]] bool Any() const { return SetsOrRemoves() || Copy || Fix; }
};

/// Reads the wishes of a command line. `fault` says what is wrong with it, if anything.
bool ReadWishes(const TagsOptions& options, TagWishes& wishes, Text& fault);

/// The boxes as they would stand in the panel for all selected files: the text of its question.
TagBoxes BoxesOfWishes(const TagWishes& wishes);

/// What the tags of a file are to become.
struct EditedTags {
    TagBoxes Boxes;  ///< as they will be shown; the check boxes say which tags the file will have
    TagChange Change;
};
/// First copied, then set, then cleaned; a tag that is to be removed is removed in any case.
EditedTags EditTags(TextView path, const FileTags& tags, const TagWishes& wishes,
                    const NamingContext& context);

}  // namespace mdlPLM::cli
