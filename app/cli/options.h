// What a command line of pellmore-cli asks for.
#pragma once

#include <optional>
#include <vector>

#include "app/list/saved_lists.h"
#include "app/tags/tag_box_table.h"
#include "core/settings/settings.h"

namespace mdlPLM::cli {

enum class Command { Names, Sort, Tags, Stream, Scan, List, Settings, Demo };

/// What every command takes. Texts are as the system handed them over.
struct CommonOptions {
    bool Json = false;
    bool DryRun = false;
    bool Yes = false;           ///< every Yes/No question is answered with Yes
    bool NulSeparated = false;  ///< paths on standard input end in NUL
    bool NoUserSettings = false;
    std::vector<Bytes> Settings;  ///< "KEY=VALUE"
    std::optional<Bytes> InPattern;
    std::optional<Bytes> OutPattern;
    std::optional<Bytes> ReplacesFile;
    std::vector<Bytes> Paths;
};

/// Choices that are not made are those of the settings.
struct SortOptions {
    std::optional<Bytes> To;
    std::optional<SortMethod> Method;
    std::optional<IfExists> Exists;
    std::optional<bool> Genre;
    std::optional<bool> Letter;
    std::optional<bool> Artist;
    std::optional<Bytes> ArtistThreshold;
    std::optional<bool> KeepNames;
};

enum class CopyDirection { V1ToV2, V2ToV1 };

struct TagsOptions {
    std::vector<Bytes> Set;  ///< "FIELD=TEXT"
    bool V1 = false;
    bool V2 = false;
    std::vector<TagVersion> Remove;
    std::optional<CopyDirection> Copy;
    bool Fix = false;
};

/// The fields of an album text that can hold for all of its files.
enum class AlbumField { Artist, Album, Year, Genre, ReleaseDate };

struct ScanOptions {
    Bytes TextFile;
    bool AnyLineEnds = false;
    std::optional<Bytes> Lines;  ///< "FIRST-LAST"
    std::optional<Bytes> IgnoreFirst;
    std::optional<Bytes> IgnoreLast;
    std::optional<Bytes> Artist;
    std::optional<Bytes> Album;
    std::optional<Bytes> Year;
    std::optional<Bytes> Genre;
    std::optional<Bytes> ReleaseDate;
    std::vector<AlbumField> ForAll;
    std::optional<bool> KeepTexts;
    bool Apply = false;
    bool V1 = false;
    bool V2 = false;
    bool NoTags = false;
    std::optional<IfExists> Exists;
};

struct ListOptions {
    std::optional<ListFileKind> As;
    std::optional<Bytes> Output;
    std::optional<IfExists> Exists;
    bool Existing = false;  ///< only files that are there
};

struct Request {
    Command What = Command::Names;
    CommonOptions Common;
    SortOptions Sort;
    TagsOptions Tags;
    ScanOptions Scan;
    ListOptions List;
};

/// The result of reading a command line: a request, or what there is to say instead.
struct ParsedArguments {
    std::optional<int> Exit;  ///< ends the program with this status
    Bytes Out;                ///< for standard output (help, version)
    Bytes Errors;             ///< for the error stream
    Request Asked;
};

/// Reads the arguments, the program's own name left out.
ParsedArguments ParseOptions(const std::vector<Bytes>& arguments);

}  // namespace mdlPLM::cli
