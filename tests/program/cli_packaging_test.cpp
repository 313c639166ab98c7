// What comes with the program: its manual page, whose examples are typed as they stand, and the
// completions of the shells.
#include <algorithm>
#include <set>

#include "app/cli/option_rows.h"
#include "app/cli/sample_collection.h"
#include "app/cli/tag_wishes.h"
#include "core/settings/user_lists.h"
#include "tests/program/cli_fixture.h"
#include "tests/support/tools.h"

namespace mdlPLM::test {
namespace {

Bytes Packaged(const Bytes& name) {
    return ReadFile(PathFromNative(SourceFolder() + "/packaging/" + name));
}

Bytes Plain(Bytes text) {
    const std::pair<const char*, const char*> escapes[] = {
        {"\\fP", ""},   {"\\fR", ""},   {"\\fI", ""}, {"\\-", "-"},
        {"\\(aq", "'"}, {"\\(ti", "~"}, {"\\e", "\\"}};
    for (const auto& [escape, plain] : escapes)
        text = NativePath(
            Replace(PathFromNative(text), PathFromNative(escape), PathFromNative(plain)));
    return text;
}

Lines ExamplesOf(const Bytes& page) {
    const Bytes begin = "\n.EX\n";
    const Bytes end = ".EE\n";
    Lines examples;
    for (std::size_t at = page.find(begin); at != Bytes::npos; at = page.find(begin, at)) {
        at += begin.size();
        examples.push_back(Plain(page.substr(at, page.find(end, at) - at)));
    }
    return examples;
}

class CliManual : public CliTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(cli::MakeSampleCollection(Folder.Folder(u"collection")).Ok());
    }
};

TEST_F(CliManual, ItsExamplesDoWhatTheySay) {
    const Lines examples = ExamplesOf(Packaged("pellmore-cli.1"));
    ASSERT_EQ(examples.size(), 10U);
    std::vector<ProgramResult> results;
    for (const Bytes& example : examples) {
        results.push_back(Shell("set -e; " + example));
        EXPECT_EQ(results.back().Status, 0) << example << results.back().Errors;
        EXPECT_EQ(results.back().Errors, "") << example;
    }
    const auto printed = [&](std::size_t example, const Bytes& text) {
        EXPECT_NE(results[example].Out.find(text), Bytes::npos)
            << examples[example] << results[example].Out;
    };
    printed(0, "collection/TRACK01.MP3 -> 01 - Aurora Lane - Night Train.mp3\n");
    printed(1, "collection/TRACK01.MP3 -> Aurora Lane - night train.mp3\n");
    printed(2, "would copy collection/TRACK01.MP3 -> ");
    printed(2,
            "\ncopied collection/TRACK01.MP3 -> sorted/Pop/0/01 - Aurora Lane - Night Train.mp3\n");
    printed(3,
            "renamed collection/new/aurora lane - night train.mp3 -> "
            "collection/new/01 - Aurora Lane - Night Train.mp3\n");
    printed(4, "copied collection/album/a.mp3 -> sorted/A.mp3\n");
    printed(5, "        Album: Winter\n");
    printed(5, "written collection/album/a.mp3\n");
    printed(6, "renamed collection/album/a.mp3 -> collection/album/01 - Ivar Strand - Ebb.mp3\n");
    printed(7, "written everything.m3u: 14 files\n");
    printed(8, "128\n128\n");
    printed(9, "Change=0\n");
    EXPECT_TRUE(IsThere(Home / u"config/PLM/PLM.ini"));
}

TEST_F(CliManual, TheFormatterFindsNothingWrong) {
    EXPECT_EQ(OutputOf({"man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z",
                        SourceFolder() + "/packaging/pellmore-cli.1"})
                  .find("warning"),
              Bytes::npos);
}

// The runs of letters, digits and "-" of a text.
std::set<Bytes> WordsOf(const Bytes& text) {
    const char* const letters = "-0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::set<Bytes> words;
    for (std::size_t at = text.find_first_of(letters); at != Bytes::npos;) {
        const std::size_t end = text.find_first_not_of(letters, at);
        words.insert(text.substr(at, end - at));
        at = text.find_first_of(letters, end);
    }
    return words;
}

// Every option and value stands in the manual and in both completions, and none that is not there.
class CliWords : public testing::TestWithParam<const char*> {};

TEST_P(CliWords, AreThoseOfTheProgram) {
    const std::set<Bytes> words = WordsOf(Plain(Packaged(GetParam())));
    std::set<Bytes> known = {"--help", "--version", "--"};
    const auto expectWord = [&](const Bytes& word) {
        EXPECT_EQ(words.count(word), 1U) << word;
        known.insert(word);
    };
    const auto expectOption = [&](const cli::OptionRow& option) {
        const Bytes names = option.Name;
        expectWord(names.substr(names.find("--")));
        if (option.Value == nullptr || Bytes(option.Value).find('|') == Bytes::npos) return;
        for (const Bytes& value : WordsOf(option.Value)) expectWord(value);
    };
    for (const cli::CommandRow& command : cli::CommandRows()) {
        expectWord(command.Name);
        for (const cli::OptionRow& option : command.Options) expectOption(option);
    }
    for (const cli::OptionRow& option : cli::CommonRows()) expectOption(option);
    for (const cli::TagField& field : cli::TagFields()) expectWord(field.Word);
    for (const Bytes& word : words)
        EXPECT_TRUE(word.substr(0, 2) != "--" || known.count(word) == 1) << word;
}

INSTANTIATE_TEST_SUITE_P(Packaged, CliWords,
                         testing::Values("pellmore-cli.1", "cli/pellmore-cli.bash",
                                         "cli/_pellmore-cli"));

class CliCompletion : public CliTest {
protected:
    // What bash offers for the last of these words.
    Lines Offered(const Arguments& words) const {
        Bytes script = "source '" + SourceFolder() + "/packaging/cli/pellmore-cli.bash'\n";
        script += "COMP_WORDS=('" + CommandLineFile() + "'";
        for (const Bytes& word : words) script += " '" + word + "'";
        script += ")\nCOMP_CWORD=" + std::to_string(words.size()) +
                  "\n_pellmore_cli\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n";
        std::map<Bytes, Bytes> environment = Environment;
        environment["PATH"] = "/usr/bin:/bin";
        const ProgramResult result =
            RunToEnd({u"/bin/bash", {"-c", script}, environment, {}, Folder.Path()});
        EXPECT_EQ(result.Errors, "");
        Lines offered;
        for (const Text& line : SplitLines(PathFromNative(result.Out)))
            if (!line.empty()) offered.push_back(NativePath(line));
        std::sort(offered.begin(), offered.end());
        return offered;
    }
};

TEST_F(CliCompletion, OffersCommandsOptionsValuesAndFiles) {
    (void)Folder.Folder(u"some folder");
    (void)Folder.File(u"song.mp3");
    EXPECT_EQ(Offered({"s"}), (Lines{"scan", "settings", "sort", "stream"}));
    EXPECT_EQ(Offered({"sort", "--no-"}),
              (Lines{"--no-artist", "--no-genre", "--no-letter", "--no-user-settings"}));
    EXPECT_EQ(Offered({"sort", "--method", ""}), (Lines{"copy", "move", "rename"}));
    EXPECT_EQ(Offered({"tags", "--set", "co"}), (Lines{"comment=", "composer=", "copyright="}));
    EXPECT_EQ(Offered({"sort", "--to", "so"}), (Lines{"some folder"}));
    EXPECT_EQ(Offered({"names", "so"}), (Lines{"some folder", "song.mp3"}));
    EXPECT_EQ(Offered({"sort", "--genre", "song"}), (Lines{"song.mp3"}));
    EXPECT_EQ(Offered({"scan", "--genre", "song"}), Lines{});
    EXPECT_EQ(Offered({"settings", "bR"}),
              (Lines{"bReadOnly=", "bRemHiddenID3=", "bRemoveChars=", "bReplace="}));
    EXPECT_EQ(Offered({"demo", "so"}), Lines{});
    EXPECT_EQ(Offered({"demo", "--"}), Lines{"--help"});
}

TEST_F(CliCompletion, ZshReadsItsOwn) {
    EXPECT_EQ(OutputOf({"zsh", "-n", SourceFolder() + "/packaging/cli/_pellmore-cli"}), "");
}

Bytes DynamicSection(const Bytes& program) { return OutputOf({"readelf", "-d", program}); }

TEST(CliProgram, IsBoundToNoToolkit) {
    Bytes needed;
    for (const Text& line : SplitLines(PathFromNative(DynamicSection(CommandLineFile()))))
        if (line.find(u"(NEEDED)") != Text::npos) needed += NativePath(line) + "\n";
    EXPECT_NE(needed.find("[libc.so"), Bytes::npos) << needed;
    for (const char* library : {"Qt", "X11", "xcb", "wayland", "GL"})
        EXPECT_EQ(needed.find(library), Bytes::npos) << needed;
}

// An empty entry of a search path would be whatever folder the user is in.
TEST(CliProgram, LooksForLibrariesInThePlacesOfTheSystemOnly) {
    const Bytes section = DynamicSection(CommandLineFile());
    EXPECT_NE(section.find("(STRTAB)"), Bytes::npos) << section;
    EXPECT_EQ(section.find("PATH)"), Bytes::npos) << section;
}

}  // namespace
}  // namespace mdlPLM::test
