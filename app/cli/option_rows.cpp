#include "app/cli/option_rows.h"

#include <algorithm>

#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

template <class Value>
struct Word {
    BytesView Name;
    Value Means;
};

constexpr Word<SortMethod> Methods[] = {
    {"copy", SortMethod::Copy}, {"move", SortMethod::Move}, {"rename", SortMethod::Rename}};
constexpr Word<IfExists> ExistsChoices[] = {
    {"ask", IfExists::Prompt}, {"skip", IfExists::Skip}, {"replace", IfExists::Replace}};
constexpr Word<TagVersion> Versions[] = {{"v1", TagVersion::V1}, {"v2", TagVersion::V2}};
constexpr Word<CopyDirection> Directions[] = {{"v1-to-v2", CopyDirection::V1ToV2},
                                              {"v2-to-v1", CopyDirection::V2ToV1}};
constexpr Word<AlbumField> AlbumFields[] = {{"artist", AlbumField::Artist},
                                            {"album", AlbumField::Album},
                                            {"year", AlbumField::Year},
                                            {"genre", AlbumField::Genre},
                                            {"release-date", AlbumField::ReleaseDate}};

constexpr const char* ExistsWords = "ask|skip|replace";
constexpr const char* ExistsHelp =
    "What to do when the new name exists (the stored choice on a terminal, else skip)";

template <class Words, class Value>
bool FindWord(const Words& words, const Bytes& text, Value& value) {
    const auto* found = std::find_if(std::begin(words), std::end(words),
                                     [&](const auto& word) { return word.Name == text; });
    if (found == std::end(words)) return false;
    value = found->Means;
    return true;
}

template <class Words, class Value>
bool FindWord(const Words& words, const Bytes& text, std::optional<Value>& value) {
    return FindWord(words, text, value.emplace());
}

template <class Words, class Value>
bool FindWord(const Words& words, const Bytes& text, std::vector<Value>& values) {
    return FindWord(words, text, values.emplace_back());
}

// What an option does with its value, by the kind of field that it fills.
bool Fill(bool& field, const Bytes& /*text*/) { return field = true; }
bool Fill(std::optional<Bytes>& field, const Bytes& text) {
    field = text;
    return true;
}
bool Fill(std::vector<Bytes>& field, const Bytes& text) {
    field.push_back(text);
    return true;
}

template <auto Part, auto Field>
bool Take(Request& request, const Bytes& text) {
    return Fill(request.*Part.*Field, text);
}

template <auto Part, auto Field, const auto& Words>
bool TakeWord(Request& request, const Bytes& text) {
    return FindWord(Words, text, request.*Part.*Field);
}

template <auto Part, auto Field, bool Value>
bool TakeSwitch(Request& request, const Bytes& /*text*/) {
    request.*Part.*Field = Value;
    return true;
}

bool TakeArtist(Request& request, const Bytes& text) {
    request.Sort.Artist = true;
    request.Sort.ArtistThreshold = text;
    return IsAllDigits(BytesView(text));
}

constexpr auto Common = &Request::Common;
constexpr auto Sort = &Request::Sort;
constexpr auto Tags = &Request::Tags;
constexpr auto Scan = &Request::Scan;
constexpr auto List = &Request::List;

const std::vector<OptionRow>& SortRows() {
    static const std::vector<OptionRow> rows = {
        {"--to", "DIR", "The target folder", Take<Sort, &SortOptions::To>},
        {"--method", "copy|move|rename", "How to sort (the stored choice; with --to never rename)",
         TakeWord<Sort, &SortOptions::Method, Methods>},
        {"--if-exists", ExistsWords, ExistsHelp,
         TakeWord<Sort, &SortOptions::Exists, ExistsChoices>},
        {"--genre", nullptr, "Sort into genre folders",
         TakeSwitch<Sort, &SortOptions::Genre, true>},
        {"--no-genre", nullptr, "Not so, whatever the settings say",
         TakeSwitch<Sort, &SortOptions::Genre, false>},
        {"--letter", nullptr, "Sort into folders by first letter",
         TakeSwitch<Sort, &SortOptions::Letter, true>},
        {"--no-letter", nullptr, "Not so, whatever the settings say",
         TakeSwitch<Sort, &SortOptions::Letter, false>},
        {"--artist", "N", "A folder for each artist with at least N files; 0: for every one",
         TakeArtist},
        {"--no-artist", nullptr, "Not so, whatever the settings say",
         TakeSwitch<Sort, &SortOptions::Artist, false>},
        {"--keep-names", nullptr, "Keep the files' present names",
         TakeSwitch<Sort, &SortOptions::KeepNames, true>},
        {"--fix-names", nullptr, "Give new names, whatever the settings say",
         TakeSwitch<Sort, &SortOptions::KeepNames, false>},
    };
    return rows;
}

const std::vector<OptionRow>& TagsRows() {
    static const std::vector<OptionRow> rows = {
        {"--set", "FIELD=TEXT", "Set a field; an empty text clears it",
         Take<Tags, &TagsOptions::Set>},
        {"--v1", nullptr, "Set in ID3v1 only", Take<Tags, &TagsOptions::V1>},
        {"--v2", nullptr, "Set in ID3v2 only", Take<Tags, &TagsOptions::V2>},
        {"--remove", "v1|v2", "Remove a tag", TakeWord<Tags, &TagsOptions::Remove, Versions>},
        {"--copy", "v1-to-v2|v2-to-v1", "Copy the fields of one tag into the other",
         TakeWord<Tags, &TagsOptions::Copy, Directions>},
        {"--fix", nullptr, "Clean up the ID3 tags", Take<Tags, &TagsOptions::Fix>},
    };
    return rows;
}

const std::vector<OptionRow>& ScanRows() {
    static const std::vector<OptionRow> rows = {
        {"--any-line-ends", nullptr, "Take every line end as one, not CR LF alone",
         Take<Scan, &ScanOptions::AnyLineEnds>},
        {"--lines", "FIRST-LAST", "Only these lines of the text", Take<Scan, &ScanOptions::Lines>},
        {"--ignore-first", "N", "Take every line from its N-th character on",
         Take<Scan, &ScanOptions::IgnoreFirst>},
        {"--ignore-last", "N", "Take every line without its last N characters",
         Take<Scan, &ScanOptions::IgnoreLast>},
        {"--artist", "TEXT", "The artist, instead of the pre-scan's",
         Take<Scan, &ScanOptions::Artist>},
        {"--album", "TEXT", "The album, instead of the pre-scan's",
         Take<Scan, &ScanOptions::Album>},
        {"--year", "TEXT", "The year, instead of the pre-scan's", Take<Scan, &ScanOptions::Year>},
        {"--genre", "NAME", "The genre", Take<Scan, &ScanOptions::Genre>},
        {"--release-date", "TEXT", "The release date, instead of the pre-scan's",
         Take<Scan, &ScanOptions::ReleaseDate>},
        {"--for-all", "artist|album|year|genre|release-date",
         "Use it for all files (the release date is stored as comment)",
         TakeWord<Scan, &ScanOptions::ForAll, AlbumFields>},
        {"--keep-texts", nullptr, "Take the texts as they stand",
         TakeSwitch<Scan, &ScanOptions::KeepTexts, true>},
        {"--fix-texts", nullptr, "Clean the texts, whatever the settings say",
         TakeSwitch<Scan, &ScanOptions::KeepTexts, false>},
        {"--apply", nullptr, "Rename and tag the files of --to-files",
         Take<Scan, &ScanOptions::Apply>},
        {"--to-files", "PATH", "The files, in the order of the names",
         Take<Common, &CommonOptions::Paths>, Values::UpToNextOption},
        {"--v1", nullptr, "Save in ID3v1 only", Take<Scan, &ScanOptions::V1>},
        {"--v2", nullptr, "Save in ID3v2 only", Take<Scan, &ScanOptions::V2>},
        {"--no-tags", nullptr, "Rename only", Take<Scan, &ScanOptions::NoTags>},
        {"--if-exists", ExistsWords, ExistsHelp,
         TakeWord<Scan, &ScanOptions::Exists, ExistsChoices>},
    };
    return rows;
}

/// The word for a format is its ending without the dot.
Bytes WordOf(const ListFormat& format) { return ToUtf8(format.Ending.substr(1)); }

Bytes WordsOfFormats() {
    Bytes words;
    for (const ListFormat& format : WrittenFormats())
        words += (words.empty() ? "" : "|") + WordOf(format);
    return words;
}

bool TakeFormat(Request& request, const Bytes& text) {
    const std::vector<ListFormat> formats = WrittenFormats();
    const auto format =
        std::find_if(formats.begin(), formats.end(),
                     [&](const ListFormat& candidate) { return WordOf(candidate) == text; });
    if (format == formats.end()) return false;
    (request.*List).As = format->Kind;
    return true;
}

const std::vector<OptionRow>& ListRows() {
    static const Bytes formats = WordsOfFormats();
    static const std::vector<OptionRow> rows = {
        {"--as", formats.c_str(), "Write a sorting list or a playlist", TakeFormat},
        {"-o,--output", "FILE", "Write it to this file", Take<List, &ListOptions::Output>},
        {"--if-exists", ExistsWords, ExistsHelp,
         TakeWord<List, &ListOptions::Exists, ExistsChoices>},
        {"--existing", nullptr, "Leave out files that no longer exist",
         Take<List, &ListOptions::Existing>},
    };
    return rows;
}

constexpr const char* PathsHelp = "Files, folders, lists; - for standard input";

}  // namespace

const std::vector<OptionRow>& CommonRows() {
    static const std::vector<OptionRow> rows = {
        {"--json", nullptr, "Print one JSON object per line", Take<Common, &CommonOptions::Json>},
        {"-n,--dry-run", nullptr, "Print what would be done and do nothing",
         Take<Common, &CommonOptions::DryRun>},
        {"-y,--yes", nullptr, "Answer every Yes/No question with Yes",
         Take<Common, &CommonOptions::Yes>},
        {"-0,--null", nullptr, "Take paths from standard input, each ended by NUL",
         Take<Common, &CommonOptions::NulSeparated>},
        {"--in-pattern", "PATTERN", "The input pattern", Take<Common, &CommonOptions::InPattern>},
        {"--out-pattern", "PATTERN", "The output pattern",
         Take<Common, &CommonOptions::OutPattern>},
        {"--replaces", "FILE", "Apply the replacement list of this file",
         Take<Common, &CommonOptions::ReplacesFile>},
        {"--setting", "KEY=VALUE", "Use this value of a setting",
         Take<Common, &CommonOptions::Settings>},
        {"--no-user-settings", nullptr, "Start from the defaults, not from the user's settings",
         Take<Common, &CommonOptions::NoUserSettings>},
    };
    return rows;
}

bool TakesCommonRows(const CommandRow& command) { return command.What != Command::Demo; }

const std::vector<CommandRow>& CommandRows() {
    static const std::vector<CommandRow> rows = {
        {Command::Names, "names", "Print old and new names", PathsHelp, false, {}},
        {Command::Sort, "sort", "Copy, move or rename files", PathsHelp, false, SortRows()},
        {Command::Tags, "tags", "Show or write tags", PathsHelp, false, TagsRows()},
        {Command::Stream, "stream", "Show the data of the MPEG audio stream", PathsHelp, false, {}},
        {Command::Scan, "scan", "Get names from an album text", nullptr, true, ScanRows()},
        {Command::List, "list", "Read and write list files", PathsHelp, false, ListRows()},
        {Command::Settings,
         "settings",
         "Show or store settings",
         "KEY to show, KEY=VALUE to store",
         false,
         {}},
        {Command::Demo, "demo", "Make a small collection and put it in order", nullptr, false, {}},
    };
    return rows;
}

}  // namespace mdlPLM::cli
