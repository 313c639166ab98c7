// What single saves and groups of saves share.
#pragma once

#include "core/tags/save_tags.h"

namespace mdlPLM {

SaveResult FailedSave(Status status, SaveObstacle obstacle = SaveObstacle::None);
/// The failure of a file that is not any more what was read.
SaveResult ChangedSave();
/// Why a file that is open may not be written to by now, or its name not be taken: it has been
/// changed, or cannot be looked at. NoWork when it may.
SaveResult LookBeforeWriting(const File& file);
SaveResult LookBeforeNaming(const File& file, TextView path);
/// Written, or the failure.
SaveResult SavedBy(Status status);

/// Works out what is to be done with a file that is open; nothing is changed yet. A plan that
/// refuses is its error.
Status PlanOpenSave(const OpenTags& opened, const TagChange& change, SavePlan& plan);

/// Carries out a plan that changes the file where it is, or finds no work.
SaveResult SaveInPlace(const OpenTags& opened, const SavePlan& plan);

}  // namespace mdlPLM
