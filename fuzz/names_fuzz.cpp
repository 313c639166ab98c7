// New names of any file with any settings: the same name each time, from the file or from what was
// read of it, no forbidden character, and the file stays as it was.
#include <algorithm>

#include "app/sort/sort_folders.h"
#include "app/tags/tag_edit.h"
#include "app/tags/tag_fix.h"
#include "core/names/fix_file_name.h"
#include "core/names/fixing_rules.h"
#include "core/names/new_name.h"
#include "core/platform/path.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

bool HasForbidden(TextView name) { return name.find_first_of(u"\\/:?\"<>|*") != TextView::npos; }

bool HasControl(TextView name) {
    return std::any_of(name.begin(), name.end(), [](char16_t c) { return c < 32 || c == 127; });
}

bool MayBring(const NamingContext& context) {
    const Settings& settings = context.Values;
    return (settings.bReplace && HasForbidden(context.Replacements[0].Put)) ||
           (settings.bExtension && HasForbidden(settings.Extension));
}

// From its gathered fields a name is made as from the file itself.
Text FromGathered(TextView path, TextView outPattern, const FileTags& tags,
                  const NamingContext& context) {
    FieldValues values = GatherFields(path, tags, context).Values;
    if (context.Values.Change == 2)
        for (Text* const text : {&values.Artist, &values.Title, &values.Album})
            *text = FirstLetterUpper(std::move(*text));
    bool filled = false;
    Text name = FillPattern(outPattern, values, context.Values, filled);
    if (!filled) name = FileNameOfPath(path);
    return ApplyRules(FileNameRules(), name, {context.Values, context.Replacements});
}

void CheckFolders(TextView name) {
    for (const Text& folder :
         {FolderName(name), FolderName(LetterOf(name)), FolderName(ArtistOf(name).value_or(u""))})
        Require(folder.empty() || (IsUsableFileName(folder) && !HasForbidden(folder) &&
                                   !HasControl(folder) && !Trimmed(folder).empty()),
                "a folder's name that is none");
}

// "Fix ID3" on boxes that are fixed already changes no more than the rules themselves do.
void CheckFixedBoxes(TextView path, const FileTags& tags, const NamingContext& context) {
    const TagBoxes boxes = ShowBoxes(tags, context.Values.bOptimizedID3v1);
    FixScope scope;
    scope.Path = path;
    scope.V1 = tags.V1.Present();
    scope.V2 = tags.V2.Present();
    const TagBoxes fixed = FixedBoxes(boxes, scope, context);
    for (const TagBoxRow& row : TagBoxTable) {
        const bool inScope = row.Version == TagVersion::V1 ? scope.V1 : scope.V2;
        if (!inScope) RequireEqual(fixed.*row.Value, boxes.*row.Value, row.Name);
        if (inScope && !row.KeptByFix.empty())
            RequireEqual(fixed.*row.Value,
                         RemoveChars(fixed.*row.Value, row.KeptByFix, RemoveMode::KeepOnly),
                         row.Name);
    }
}

}  // namespace

void FuzzNames(BytesView bytes) {
    Input input(bytes);
    const Settings settings = TakeSettings(input);
    const ReplacementList pairs = TakeReplacements(input);
    const Text inPattern = input.LineText();
    const Text outPattern = input.LineText();
    const NamingContext context{settings, pairs, inPattern};
    const ScratchFile scratch(input.Rest(), "Some Artist - A Title.mp3");
    const Text& path = scratch.Path();

    const Text name = FixFileName(path, outPattern, context);
    RequireEqual(FixFileName(path, outPattern, context), name, "a second name differs");
    Require(MayBring(context) || !HasForbidden(name), "a character that no name may hold");
    Require(!HasControl(name), "a control character in a name");
    Require(FaultOfNewName(name, settings).empty() ==
                (IsUsableFileName(name) && !IsNothingLeft(name, settings)),
            "a name is refused for no reason, or taken in spite of one");
    SilentErrors silent;
    const FileTags tags = ReadFileTags(path, ID3v2Parts::NameFields, silent);
    RequireEqual(FixFileName(path, outPattern, tags, context), name, "another name from its tags");
    RequireEqual(FromGathered(path, outPattern, tags, context), name, "another name from fields");
    const Text shown = FixFileName2(path, outPattern, ShowBoxes(tags, false), context);
    Require(MayBring(context) || !HasForbidden(shown), "a shown name with a forbidden character");
    CheckFolders(name);
    CheckFixedBoxes(path, tags, context);
    RequireEqual(scratch.Contents(), input.Rest(), "a file changed while it was named");
}

}  // namespace mdlPLM::fuzz
