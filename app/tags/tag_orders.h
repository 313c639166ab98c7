// What a run over many files does to each of them. The edits keep copies of all they need: boxes
// and settings may change while the run is under way.
#pragma once

#include "app/tags/tag_edit.h"
#include "app/tags/tag_run.h"
#include "core/settings/settings.h"

namespace mdlPLM {

TagMode WriteIf(bool on);
HiddenFrames HiddenFramesIn(const Settings& settings);

/// The fields that a file has but whose boxes cannot show them: an ID3v1 genre without a name, and
/// frames whose text is not theirs.
std::array<bool, TagBoxCount> FieldsNotShown(const FileTags& tags, const FrameKinds& kinds);

/// "Save ID3" in a batch: every box that is not empty goes to every file, "*" alone in a year or
/// track box clears the field; "Remove!" removes a tag, and a version without a text and without a
/// tick is left alone.
TagRun::Edit BatchEdit(const TagBoxes& boxes, const Settings& settings);

/// "Fix ID3" in a batch: the tags that the file has are cleaned and saved.
TagRun::Edit FixEdit(const NamingContext& context);

}  // namespace mdlPLM
