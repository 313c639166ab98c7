// One file to its new, clean name.
#pragma once

#include "core/names/patterns.h"
#include "core/names/tag_boxes.h"
#include "core/tags/file_tags.h"

namespace mdlPLM {

/// New name (name and extension, no folder) of the file at `path`, from its own tags; empty when
/// the file does not exist or cannot be read (see ReadingFault). What is wrong with a tag itself is
/// not told: the fields come from the old name then.
Text FixFileName(TextView path, TextView outPattern, const NamingContext& context);

/// The same from tags that have been read already (nothing is opened).
Text FixFileName(TextView path, TextView outPattern, const FileTags& tags,
                 const NamingContext& context);

/// What kept a file from being read, so that it gets no name (its old one may not be what its tags
/// say). Ok where names are not made from tags, and for what is wrong with a tag itself.
Status ReadingFault(const FileTags& tags, const Settings& settings);

/// Where a field of a new name came from.
enum class FieldSource { None, V2, V1, Pattern };

/// The fields that FixFileName puts into the output pattern.
struct GatheredFields {
    FieldValues Values;
    std::array<FieldSource, NameFields.size()> Sources{};  ///< in the order of NameFields
};
GatheredFields GatherFields(TextView path, const FileTags& tags, const NamingContext& context);

/// New name of the file at `path` from the tag panel's boxes; never touches the disk.
Text FixFileName2(TextView path, TextView outPattern, const TagBoxes& boxes,
                  const NamingContext& context);

}  // namespace mdlPLM
