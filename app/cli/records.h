// What became, or would become, of one file: as a line for people, as an object for programs.
#pragma once

#include <optional>

#include "app/cli/inputs.h"
#include "app/list/run.h"
#include "core/names/fix_file_name.h"

namespace mdlPLM::cli {

enum class Outcome {
    Named,  ///< has this new name
    Copied,
    Moved,
    Renamed,
    Written,    ///< its tags were written
    Unchanged,  ///< is as it should be already
    Kept,       ///< left alone for the sake of a target that exists
    Asks,       ///< a plan: the question would come
    Skipped,    ///< nothing was to be done with it, see Reason
    Cancelled,  ///< Cancel in the question
    Failed,     ///< see Reason
};

struct FileRecord {
    Text Path;
    Text NewPath;  ///< empty: there is none
    Text NewName;  ///< of Named: what a line for people shows
    std::optional<GatheredFields> Fields;
    Outcome What = Outcome::Named;
    bool Replaced = false;  ///< a file that stood in the target's place is replaced
    Text Reason;
    Text Question;
};

/// The record of what became of a file; `done`: what the command does with files.
FileRecord RecordOf(const Report& report, const FileOutcome& file, Outcome done);

/// Prints the record; a failure is named on the error stream as well.
void PutRecord(Report& report, const PathSpelling& spelling, const FileRecord& record);

/// Prints that a folder was, or would be, created. `question`: what is asked first, if anything.
void PutFolder(Report& report, const PathSpelling& spelling, TextView folder, TextView question);

/// The fields with their sources as an object.
JsonObject FieldsObject(const GatheredFields& fields);

/// The word for an outcome in JSON.
BytesView OutcomeWord(Outcome outcome);

}  // namespace mdlPLM::cli
