#include <algorithm>

#include "app/cli/commands.h"
#include "app/cli/records.h"
#include "app/cli/scan_apply.h"
#include "app/namefromtext/line_scan.h"
#include "app/namefromtext/pre_scan.h"
#include "app/namefromtext/source_text.h"
#include "core/platform/path.h"
#include "core/tags/genres.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

constexpr long long NoLine = -1;

/// "FIRST-LAST", "FIRST-" or "LINE"; both ends are 1-based and included.
struct LineRange {
    long long First = 1;
    long long Last = NoLine;  ///< NoLine: up to the end
};

bool ReadLineRange(const std::optional<Bytes>& text, LineRange& range) {
    if (!text) return true;
    const Text given = FromUtf8(*text);
    const std::size_t dash = std::min(given.find(u'-'), given.size());
    const Text first = given.substr(0, dash);
    const Text last = dash < given.size() ? given.substr(dash + 1) : first;
    if (!IsAllDigits(first) || !(last.empty() || IsAllDigits(last))) return false;
    range.First = IntegerPart(first);
    range.Last = last.empty() ? NoLine : IntegerPart(last);
    return range.First >= 1 && (last.empty() || range.Last >= range.First);
}

/// Where the box's line begins (1-based); its text's length when there is no such line.
std::size_t BeginOfLine(TextView shown, long long line) {
    std::size_t begin = 0;
    for (; line > 1 && begin < shown.size(); --line) {
        const std::size_t end = shown.find(u'\n', begin);
        begin = end == TextView::npos ? shown.size() : end + 1;
    }
    return begin;
}

Text TextOfLines(const SourceText& source, const LineRange& range) {
    const Text shown = source.Shown();
    const std::size_t begin = BeginOfLine(shown, range.First);
    const bool toTheEnd = range.Last == NoLine || range.Last > static_cast<long long>(shown.size());
    const std::size_t end = toTheEnd ? shown.size() : BeginOfLine(shown, range.Last + 1);
    return source.Range(begin, end);
}

PreScanResult BoxesOf(const ScanOptions& options, TextView source) {
    PreScanResult boxes = PreScan(source);
    const auto take = [](const std::optional<Bytes>& given, Text& box) {
        if (given) box = FromUtf8(*given);
    };
    take(options.Artist, boxes.Artist);
    take(options.Album, boxes.Album);
    take(options.Year, boxes.Year);
    take(options.ReleaseDate, boxes.ReleaseDate);
    return boxes;
}

bool IsForAll(const ScanOptions& options, AlbumField field) {
    return std::find(options.ForAll.begin(), options.ForAll.end(), field) != options.ForAll.end();
}

ScanChoices ScanChoicesOf(const Session& session, const PreScanResult& boxes) {
    const ScanOptions& options = session.Asked.Scan;
    ScanChoices choices;
    choices.InPattern = Trim(session.Values.InPattern);
    choices.OutPattern = session.Values.OutPattern;
    choices.chkIgnoreFirst = options.IgnoreFirst.has_value();
    choices.txtIgnoreFirst = FromUtf8(options.IgnoreFirst.value_or(""));
    choices.chkIgnoreLast = options.IgnoreLast.has_value();
    choices.txtIgnoreLast = FromUtf8(options.IgnoreLast.value_or(""));
    choices.txtArtist = boxes.Artist;
    choices.txtAlbum = boxes.Album;
    choices.txtYear = boxes.Year;
    choices.chkArtist4All = IsForAll(options, AlbumField::Artist);
    choices.chkAlbum4All = IsForAll(options, AlbumField::Album);
    choices.chkYear4All = IsForAll(options, AlbumField::Year);
    choices.chkConvert = !options.KeepTexts.value_or(session.Values.Convert == 0);
    return choices;
}

RunChoices RunChoicesOf(const Session& session, const PreScanResult& boxes, IfExists exists) {
    const ScanOptions& options = session.Asked.Scan;
    const ScanChoices scan = ScanChoicesOf(session, boxes);
    RunChoices choices;
    choices.Tags = {scan.chkArtist4All,
                    scan.chkAlbum4All,
                    scan.chkYear4All,
                    options.Genre.has_value() || IsForAll(options, AlbumField::Genre),
                    IsForAll(options, AlbumField::ReleaseDate),
                    boxes.Artist,
                    boxes.Album,
                    boxes.Year,
                    FromUtf8(options.Genre.value_or("")),
                    boxes.ReleaseDate,
                    session.Values.OutPattern};
    choices.chkSaveID3v1 = !options.NoTags && (options.V1 || !options.V2);
    choices.chkSaveID3v2 = !options.NoTags && (options.V2 || !options.V1);
    choices.chkConvert = scan.chkConvert;
    choices.Exists = exists;
    return choices;
}

struct BoxRow {
    const char* Key;
    BytesView Label;
    Text PreScanResult::*Box;
};

constexpr BoxRow BoxRows[] = {{"artist", "Artist: ", &PreScanResult::Artist},
                              {"album", "Album: ", &PreScanResult::Album},
                              {"year", "Year: ", &PreScanResult::Year},
                              {"release_date", "Release date: ", &PreScanResult::ReleaseDate}};

void PutBoxes(Report& report, const PreScanResult& boxes) {
    JsonObject object;
    for (const BoxRow& row : BoxRows) {
        object.Put(row.Key, boxes.*row.Box);
        if (!report.Json()) report.Line(Bytes(row.Label) + report.Shown(boxes.*row.Box));
    }
    if (report.Json()) report.Object(object.Put("outcome", "scanned"));
}

/// The names, each with the file it would be given to.
void PutNames(Report& report, const PathSpelling& spelling, const FileList& files,
              const std::vector<Text>& names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        FileRecord record;
        if (i < files.Count()) {
            record.Path = files.Path(i);
            record.NewPath = JoinPath(FolderOfPath(record.Path), names[i]);
            record.NewName = names[i];
            PutRecord(report, spelling, record);
        } else if (report.Json()) {
            JsonObject object;
            object.PutNull("path").Put("new_path", names[i]).Put("outcome", "named");
            report.Object(object);
        } else {
            report.Line(report.Shown(names[i]));
        }
    }
}

bool IsGenre(const std::optional<Bytes>& genre) {
    if (!genre) return true;
    const Bytes name = ToCodePage(FromUtf8(*genre));
    return GenreNameOfNumber(GetGenreIndex(name)) == name;
}

/// What is wrong with the options; empty when nothing is.
Text FaultOf(const Session& session, LineRange& range) {
    const ScanOptions& options = session.Asked.Scan;
    if (!ReadLineRange(options.Lines, range)) return u"--lines: not FIRST-LAST";
    if (!IsGenre(options.Genre)) return u"--genre: not one of the 148 genres";
    if (options.Apply && session.Asked.Common.Paths.empty() && !session.Asked.Common.NulSeparated)
        return u"--apply: --to-files names no files";
    return FaultOfIgnoreBoxes(ScanChoicesOf(session, {})).value_or(Text());
}

bool ReadSource(Session& session, SourceText& source) {
    const Text path = PathFromNative(session.Asked.Scan.TextFile);
    Text text;
    const Status read = ReadSourceFile(path, session.Values, text);
    if (!read.Ok()) {
        session.Results.Fail(path, Describe(read.Number()));
        return false;
    }
    source.Load(text);
    if (session.Asked.Scan.AnyLineEnds) source.TakeLineEndsAsCrLf();
    if (source.OffersLineEnds())
        session.Results.Tell(
            u"only CR LF ends a line, and the text has none of it; "
            u"--any-line-ends takes the line ends it has");
    return true;
}

}  // namespace

void RunScan(Session& session) {
    LineRange range;
    const Text fault = FaultOf(session, range);
    if (!fault.empty()) return session.Results.Misuse(fault);
    const std::optional<IfExists> exists = ExistsChoice(session, session.Asked.Scan.Exists);
    SourceText source;
    if (!exists || !ReadSource(session, source)) return;

    const PreScanResult boxes = BoxesOf(session.Asked.Scan, source.Whole());
    PutBoxes(session.Results, boxes);
    const std::vector<Text> names =
        ScanLines(TextOfLines(source, range), ScanChoicesOf(session, boxes), session.Values,
                  session.Replacements);
    PathSpelling spelling(session.Folder);
    FileList files;
    const CommonOptions& common = session.Asked.Common;
    if ((!common.Paths.empty() || common.NulSeparated) && !GatherFiles(session, spelling, files))
        return;
    if (session.Asked.Scan.Apply) {
        ApplyNames(session, spelling, files, names, RunChoicesOf(session, boxes, *exists));
    } else {
        PutNames(session.Results, spelling, files, names);
    }
}

}  // namespace mdlPLM::cli
