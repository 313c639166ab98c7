#include "app/tags/tag_fix.h"

#include "core/names/fixing_rules.h"
#include "core/names/patterns.h"

namespace mdlPLM {

namespace {

bool IsInScope(const TagBoxRow& row, const FixScope& scope) {
    const bool version = row.Version == TagVersion::V1 ? scope.V1 : scope.V2;
    return version && !scope.Untouchable[IndexOf(row.Box)];
}

Text FixedText(const TagBoxRow& row, Text text, TextView path, const NamingContext& context) {
    if (row.Cleaned) text = FixText(text, context.Values, context.Replacements);
    const NameField* const field = FieldOfBox(row.Value);
    if (text.empty() && field != nullptr && field->FillsBoxes)
        text = GetFieldFromPath(path, field->Word(), context.InPattern, context.Values);
    if (!row.KeptByFix.empty()) text = RemoveChars(text, row.KeptByFix, RemoveMode::KeepOnly);
    return text;
}

}  // namespace

TagBoxes FixedBoxes(TagBoxes boxes, const FixScope& scope, const NamingContext& context) {
    for (const TagBoxRow& row : TagBoxTable)
        if (IsInScope(row, scope))
            boxes.*row.Value = FixedText(row, std::move(boxes.*row.Value), scope.Path, context);
    return boxes;
}

}  // namespace mdlPLM
