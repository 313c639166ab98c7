#include "core/names/existing_target.h"

namespace mdlPLM {

namespace {

struct AttributeSetting {
    bool Settings::*Flag;
    Attributes Value;
};

constexpr AttributeSetting AttributeSettings[] = {
    {&Settings::bReadOnly, ReadOnly},
    {&Settings::bHidden, Hidden},
    {&Settings::bArhive, Archive},
};

}  // namespace

Message ExistingTargetQuestion(TextView target) {
    Text body = u"The file \"";
    body.append(target).append(u"\" already exists!").append(CrLf);
    body.append(u"Do you want to replace it?");
    return {u"PLM", body, {}};
}

TargetDecision DecideExistingTarget(IfExists choice, TextView target, Prompts& prompts) {
    if (choice == IfExists::Skip) return TargetDecision::Leave;
    if (choice == IfExists::Replace) return TargetDecision::Replace;
    switch (prompts.AskYesNoCancel(ExistingTargetQuestion(target))) {
        case Answer::Yes:
            return TargetDecision::Replace;
        case Answer::No:
            return TargetDecision::Leave;
        case Answer::Cancel:
            break;
    }
    return TargetDecision::Cancel;
}

int AttributesToSet(const Settings& settings) {
    int sum = 0;
    for (const AttributeSetting& row : AttributeSettings)
        if (settings.*row.Flag) sum += row.Value;
    return sum;
}

}  // namespace mdlPLM
