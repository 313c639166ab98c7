// "Fix ID3": the texts of a file's tags cleaned, and completed from its name.
#pragma once

#include "app/tags/tag_box_table.h"
#include "core/settings/settings.h"

namespace mdlPLM {

struct FixScope {
    Text Path;
    bool V1 = false;  ///< the boxes of this version are fixed
    bool V2 = false;
    /// Boxes whose field the file has but whose text is not that of the field: they are left alone.
    std::array<bool, TagBoxCount> Untouchable{};
};

/// Every text cleaned; title, artist, album, year, track and genre that are then empty are taken
/// from the file name through the input pattern, where it has them; years and tracks reduced to
/// their characters.
TagBoxes FixedBoxes(TagBoxes boxes, const FixScope& scope, const NamingContext& context);

}  // namespace mdlPLM
