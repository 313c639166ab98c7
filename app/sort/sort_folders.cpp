#include "app/sort/sort_folders.h"

#include <algorithm>

#include "core/names/fix_file_name.h"
#include "core/names/fixing_rules.h"
#include "core/names/new_name.h"
#include "core/platform/path.h"
#include "core/tags/genres.h"
#include "core/tags/id3v1.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"
#include "core/text/surrogates.h"

namespace mdlPLM {

namespace {

constexpr TextView ArtistMark = u" - ";

/// A target folder that ends in a separator gets a second one: the file system takes no offence,
/// and the text stays the user's. Intended.
Text Below(TextView folder, TextView name) { return Text(folder) + Separator + Text(name); }

bool WantsArtist(const SortChoices& choices) {
    return choices.chkSubFolder && choices.Method != SortMethod::Rename;
}

Cause FaultOfPresentName(TextView name) {
    if (IsUsableFileName(name)) return {};
    return {Why::SystemError, ErrorNumber::BadFileName, Text(name)};
}

Cause FaultOfFixedName(TextView name, const Settings& settings) {
    if (IsNothingLeft(name, settings)) return {Why::NoNameLeft, ErrorNumber::None, Text(name)};
    return FaultOfPresentName(name);
}

SortNames PresentNames(TextView source, const SortChoices& choices, Disk& disk) {
    SilentErrors silent;
    const Text present = FileNameOfPath(source);
    const Text contents = disk.ContentsAt(source);
    return {present, present, choices.chkGenre ? GetFileGenre(contents, silent) : Text(),
            FaultOfPresentName(present)};
}

/// What GetFileGenre gives, from tags that have been read already.
Text GenreOf(const FileTags& tags) {
    if (!tags.Exists) return {};
    return FromCodePage(GenreNameOfNumber(static_cast<unsigned char>(tags.V1.Genre)));
}

}  // namespace

Text FolderName(TextView text) {
    Text name = BlankControlCharacters(ReplaceIllegalCharacters(Text(text)));
    return IsUsableFileName(name) && !Trimmed(name).empty() ? name : Text();
}

Text LetterOf(TextView newName) { return UCase(FirstCharacter(newName)); }

std::optional<Text> ArtistOf(TextView name) {
    const Pos mark = InStr(name, ArtistMark);
    if (mark == 0) return std::nullopt;
    return Left(name, mark - 1);
}

SortNames NamesOf(TextView source, const SortRules& rules, Disk& disk) {
    const SortChoices& choices = rules.Choices;
    if (!choices.chkConvert) return PresentNames(source, choices, disk);
    SilentErrors silent;
    const FileTags tags = ReadFileTags(disk.ContentsAt(source), ID3v2Parts::NameFields, silent);
    const Text fixed = FixFileName(source, choices.OutPattern, tags, rules.Context);
    const bool fromBox = !rules.Multiple && !choices.txtNewName.empty();
    SortNames names{
        fromBox ? choices.txtNewName : fixed, fixed, choices.chkGenre ? GenreOf(tags) : Text(), {}};
    const Status read = ReadingFault(tags, rules.Context.Values);
    // A name that is written down in the box needs no tag.
    const bool lacksName = !read.Ok() && (!fromBox || WantsArtist(choices));
    names.Fault = lacksName ? Cause{Why::SystemError, read.Number()}
                            : FaultOfFixedName(names.NewName, rules.Context.Values);
    return names;
}

void Descend(FolderLevels& levels, TextView text) {
    const Text name = FolderName(text);
    if (!name.empty()) levels.push_back(Below(levels.back(), name));
}

Status EnsureFolders(const FolderLevels& levels, Disk& disk, Text& failed) {
    for (std::size_t level = 1; level < levels.size(); ++level) {
        if (disk.IsFolder(levels[level])) continue;
        const Status status = disk.CreateFolder(levels[level]);
        if (!status.Ok()) {
            failed = levels[level];
            return status;
        }
    }
    return {};
}

FolderLevels FoldersOf(const SortNames& names, const SortChoices& choices) {
    FolderLevels levels{choices.txtTargetDir};
    if (choices.chkGenre) Descend(levels, names.Genre);
    if (choices.chkAlphabetical) Descend(levels, LetterOf(names.NewName));
    return levels;
}

long long ArtistThreshold(const SortChoices& choices) {
    return std::max(0LL, IntegerPart(choices.txtSubFolder));
}

bool AddArtistFolder(FolderLevels& levels, TextView artistName, const SortChoices& choices,
                     Disk& disk) {
    const std::optional<Text> artist = ArtistOf(artistName);
    if (!artist) return false;
    FolderLevels withArtist = levels;
    Descend(withArtist, *artist);
    // Above 0 the folder counts as earned when it stands, whoever made it.
    if (ArtistThreshold(choices) == 0 || disk.IsFolder(withArtist.back())) {
        levels = std::move(withArtist);
    }
    return true;
}

}  // namespace mdlPLM
