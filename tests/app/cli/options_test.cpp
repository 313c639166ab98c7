#include "app/cli/options.h"

#include <gtest/gtest.h>

#include <set>

#include "app/cli/option_rows.h"
#include "app/cli/report.h"

namespace mdlPLM::cli {
namespace {

using Arguments = std::vector<Bytes>;

Request Parse(const Arguments& arguments) {
    const ParsedArguments parsed = ParseOptions(arguments);
    EXPECT_EQ(parsed.Exit, std::nullopt) << parsed.Errors;
    return parsed.Asked;
}

void ExpectMisuse(const Arguments& arguments, const Bytes& part) {
    const ParsedArguments parsed = ParseOptions(arguments);
    EXPECT_EQ(parsed.Exit, UsedWrongly);
    EXPECT_EQ(parsed.Out, "");
    EXPECT_EQ(parsed.Errors.find("pellmore-cli: "), 0U) << parsed.Errors;
    EXPECT_NE(parsed.Errors.find(part), Bytes::npos) << parsed.Errors;
}

TEST(Options, EveryCommandByItsName) {
    for (const CommandRow& row : CommandRows()) {
        if (row.TextFile) {
            const Request request = Parse({row.Name, "a.txt"});
            EXPECT_EQ(request.What, row.What) << row.Name;
            EXPECT_EQ(request.Scan.TextFile, "a.txt");
        } else if (row.Paths != nullptr) {
            const Request request = Parse({row.Name, "a", "b"});
            EXPECT_EQ(request.What, row.What) << row.Name;
            EXPECT_EQ(request.Common.Paths, (Arguments{"a", "b"}));
        } else {
            EXPECT_EQ(Parse({row.Name}).What, row.What) << row.Name;
        }
    }
}

TEST(Options, APathMayBeCalledLikeACommand) {
    EXPECT_EQ(Parse({"names", "names", "sort"}).Common.Paths, (Arguments{"names", "sort"}));
}

TEST(Options, EveryOptionIsThereOnce) {
    for (const CommandRow& row : CommandRows()) {
        std::set<Bytes> names;
        for (const auto* options : {&row.Options, &CommonRows()})
            for (const OptionRow& option : *options)
                EXPECT_TRUE(names.insert(option.Name).second) << row.Name << ' ' << option.Name;
    }
}

TEST(Options, HelpAndVersionEndWellAndGoToStandardOutput) {
    const ParsedArguments help = ParseOptions({"--help"});
    EXPECT_EQ(help.Exit, AllDone);
    for (const CommandRow& row : CommandRows()) {
        EXPECT_NE(help.Out.find(Bytes("\n  ") + row.Name), Bytes::npos) << row.Name;
        const ParsedArguments own = ParseOptions({row.Name, "--help"});
        EXPECT_EQ(own.Exit, AllDone);
        for (const OptionRow& option : row.Options)
            EXPECT_NE(own.Out.find(option.Name), Bytes::npos) << option.Name;
        for (const OptionRow& option : CommonRows())
            EXPECT_EQ(own.Out.find(option.Name) != Bytes::npos, TakesCommonRows(row))
                << row.Name << ' ' << option.Name;
    }
    const ParsedArguments version = ParseOptions({"--version"});
    EXPECT_EQ(version.Exit, AllDone);
    EXPECT_EQ(version.Out.find("pellmore-cli "), 0U);
}

TEST(Options, WhatIsNotUnderstoodIsMisuse) {
    const Bytes commands = " names sort tags stream scan list settings demo\n";
    ExpectMisuse({}, "a command is needed:" + commands);
    ExpectMisuse({"sing", "--help"}, "\"sing\" is no command; there are" + commands);
    ExpectMisuse({"--json"}, "subcommand");
    ExpectMisuse({"names", "--loudly", "a"}, "--loudly");
    ExpectMisuse({"sort", "--method", "fly", "a"}, "\"fly\" is not copy|move|rename");
    ExpectMisuse({"sort", "--if-exists", "Ask", "a"}, "\"Ask\" is not ask|skip|replace");
    ExpectMisuse({"sort", "--artist", "-1", "a"}, "--artist");
    ExpectMisuse({"sort", "--artist", "many", "a"}, "\"many\" is not N");
    ExpectMisuse({"tags", "--remove", "v3", "a"}, "\"v3\" is not v1|v2");
    ExpectMisuse({"tags", "--copy", "v1", "a"}, "\"v1\" is not v1-to-v2|v2-to-v1");
    ExpectMisuse({"scan"}, "TEXTFILE");
    ExpectMisuse({"list", "--as", "pls", "a"}, "\"pls\" is not srt|m3u");
    ExpectMisuse({"names", "--setting"}, "--setting");
    ExpectMisuse({"demo", "--dry-run"}, "--dry-run");
}

TEST(Options, CommonOnes) {
    const CommonOptions common =
        Parse({"names", "--json", "-n", "-y", "-0", "--no-user-settings", "--setting", "Change=1",
               "--setting", "bID3=False", "--in-pattern", "%title", "--out-pattern", "%artist",
               "--replaces", "r.txt", "--", "-a", "--json"})
            .Common;
    EXPECT_TRUE(common.Json && common.DryRun && common.Yes && common.NulSeparated);
    EXPECT_TRUE(common.NoUserSettings);
    EXPECT_EQ(common.Settings, (Arguments{"Change=1", "bID3=False"}));
    EXPECT_EQ(common.InPattern, "%title");
    EXPECT_EQ(common.OutPattern, "%artist");
    EXPECT_EQ(common.ReplacesFile, "r.txt");
    EXPECT_EQ(common.Paths, (Arguments{"-a", "--json"}));
}

TEST(Options, ADashIsAPath) { EXPECT_EQ(Parse({"names", "-"}).Common.Paths, Arguments{"-"}); }

TEST(Options, NothingChosenLeavesTheSettingsInForce) {
    const SortOptions sort = Parse({"sort", "a"}).Sort;
    EXPECT_FALSE(sort.To || sort.Method || sort.Exists || sort.Genre || sort.Letter);
    EXPECT_FALSE(sort.Artist || sort.ArtistThreshold || sort.KeepNames);
    const CommonOptions common = Parse({"sort", "a"}).Common;
    EXPECT_FALSE(common.Json || common.DryRun || common.Yes || common.NulSeparated);
    EXPECT_FALSE(common.InPattern || common.OutPattern || common.ReplacesFile);
}

TEST(Options, SortOnes) {
    const SortOptions on = Parse({"sort", "--to", "x", "--method=move", "--if-exists", "replace",
                                  "--genre", "--letter", "--artist", "3", "--keep-names", "a"})
                               .Sort;
    EXPECT_EQ(on.To, "x");
    EXPECT_EQ(on.Method, SortMethod::Move);
    EXPECT_EQ(on.Exists, IfExists::Replace);
    EXPECT_EQ(on.Genre, true);
    EXPECT_EQ(on.Letter, true);
    EXPECT_EQ(on.Artist, true);
    EXPECT_EQ(on.ArtistThreshold, "3");
    EXPECT_EQ(on.KeepNames, true);
    const SortOptions off =
        Parse({"sort", "--no-genre", "--no-letter", "--no-artist", "--fix-names", "a"}).Sort;
    EXPECT_EQ(off.Genre, false);
    EXPECT_EQ(off.Letter, false);
    EXPECT_EQ(off.Artist, false);
    EXPECT_EQ(off.KeepNames, false);
}

TEST(Options, TagsOnes) {
    const Request request =
        Parse({"tags", "--set", "title=A = B", "--set", "year=", "--v1", "--v2", "--remove", "v1",
               "--remove", "v2", "--copy", "v2-to-v1", "--fix", "a", "b"});
    EXPECT_EQ(request.Tags.Set, (Arguments{"title=A = B", "year="}));
    EXPECT_TRUE(request.Tags.V1 && request.Tags.V2 && request.Tags.Fix);
    EXPECT_EQ(request.Tags.Remove, (std::vector<TagVersion>{TagVersion::V1, TagVersion::V2}));
    EXPECT_EQ(request.Tags.Copy, CopyDirection::V2ToV1);
    EXPECT_EQ(request.Common.Paths, (Arguments{"a", "b"}));
}

TEST(Options, ScanOnes) {
    const Request request = Parse({"scan",
                                   "t.txt",
                                   "--lines",
                                   "2-9",
                                   "--ignore-first",
                                   "3",
                                   "--ignore-last",
                                   "4",
                                   "--artist",
                                   "A",
                                   "--album",
                                   "B",
                                   "--year",
                                   "C",
                                   "--genre",
                                   "D",
                                   "--release-date",
                                   "E",
                                   "--for-all",
                                   "artist",
                                   "--for-all",
                                   "release-date",
                                   "--keep-texts",
                                   "--any-line-ends",
                                   "--apply",
                                   "--no-tags",
                                   "--if-exists",
                                   "skip",
                                   "--to-files",
                                   "a",
                                   "b",
                                   "c",
                                   "--json"});
    const ScanOptions& scan = request.Scan;
    EXPECT_EQ(scan.TextFile, "t.txt");
    EXPECT_EQ(scan.Lines, "2-9");
    EXPECT_EQ(scan.IgnoreFirst, "3");
    EXPECT_EQ(scan.IgnoreLast, "4");
    EXPECT_EQ(scan.Artist, "A");
    EXPECT_EQ(scan.Album, "B");
    EXPECT_EQ(scan.Year, "C");
    EXPECT_EQ(scan.Genre, "D");
    EXPECT_EQ(scan.ReleaseDate, "E");
    EXPECT_EQ(scan.ForAll, (std::vector<AlbumField>{AlbumField::Artist, AlbumField::ReleaseDate}));
    EXPECT_EQ(scan.KeepTexts, true);
    EXPECT_TRUE(scan.AnyLineEnds && scan.Apply && scan.NoTags);
    EXPECT_EQ(scan.Exists, IfExists::Skip);
    EXPECT_EQ(request.Common.Paths, (Arguments{"a", "b", "c"}));
    EXPECT_TRUE(request.Common.Json);
}

TEST(Options, ListOnes) {
    const ListOptions list =
        Parse({"list", "--as", "m3u", "-o", "x", "--existing", "--if-exists", "ask", "a"}).List;
    EXPECT_EQ(list.As, ListFileKind::M3u);
    EXPECT_EQ(list.Output, "x");
    EXPECT_TRUE(list.Existing);
    EXPECT_EQ(list.Exists, IfExists::Prompt);
}

}  // namespace
}  // namespace mdlPLM::cli
