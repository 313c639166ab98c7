// What happens to a target that exists: shared by the sort engine and the name-from-text run.
#pragma once

#include "core/platform/disk.h"
#include "core/platform/prompts.h"
#include "core/settings/settings.h"
#include "core/text/language.h"

namespace mdlPLM {

/// The question for an existing target: "The file "..." already exists!", line break, "Do you want
/// to replace it?".
Message ExistingTargetQuestion(TextView target);

/// Why a file that was left alone did not get its new name.
inline constexpr const char* TargetExistsReason =
    PLM_TRANSLATE("Texts", "There is a file of its new name");

enum class TargetDecision { Replace, Leave, Cancel };

/// Asks when `choice` is Prompt (Yes: Replace, No: Leave, Cancel: Cancel); Skip leaves, Replace
/// replaces.
TargetDecision DecideExistingTarget(IfExists choice, TextView target, Prompts& prompts);

/// Sum of the attribute values that the settings have switched on (0 for none).
int AttributesToSet(const Settings& settings);

}  // namespace mdlPLM
