// Whole album descriptions, each with a script beside it that says what a user does with it and
// what the window is to show: tests/data/albums/*.txt and *.expected.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>

#include "app/namefromtext/line_scan.h"
#include "app/namefromtext/pre_scan.h"
#include "app/namefromtext/source_text.h"
#include "core/settings/user_lists.h"
#include "core/text/code_page.h"
#include "tests/support/places.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

class AlbumScript {
public:
    explicit AlbumScript(const Text& textPath) {
        Text text;
        EXPECT_TRUE(ReadSourceFile(textPath, values_, text).Ok());
        source_.Load(text);
        TakePreScan();
    }

    void Run(const Text& script) {
        for (const Text& line : SplitLines(script)) {
            const Pos blank = InStr(line, u" ");
            const Text verb = blank > 0 ? Left(line, blank - 1) : line;
            const auto command = Commands().find(ToUtf8(verb));
            ASSERT_NE(command, Commands().end()) << ToUtf8(line);
            (this->*command->second)(blank > 0 ? Mid(line, blank + 1) : Text());
        }
        ExpectNoNamesLeft();
    }

    std::size_t NamesChecked = 0;

private:
    using Command = void (AlbumScript::*)(const Text&);

    static const std::map<Bytes, Command>& Commands() {
        static const std::map<Bytes, Command> commands = {
            {"prescan", &AlbumScript::ExpectPreScan},
            {"set", &AlbumScript::SetBox},
            {"in", &AlbumScript::SetInPattern},
            {"out", &AlbumScript::SetOutPattern},
            {"fix", &AlbumScript::FixFilenames},
            {"year4all", &AlbumScript::YearForAll},
            {"ignorefirst", &AlbumScript::IgnoreFirst},
            {"ignorelast", &AlbumScript::IgnoreLast},
            {"lineends", &AlbumScript::ExpectOffer},
            {"takelineends", &AlbumScript::TakeLineEnds},
            {"lines", &AlbumScript::ScanLinesFromTo},
            {"name", &AlbumScript::ExpectName}};
        return commands;
    }

    void TakePreScan() {
        found_ = PreScan(source_.Whole());
        choices_.txtArtist = found_.Artist;
        choices_.txtAlbum = found_.Album;
        choices_.txtYear = found_.Year;
    }

    void ExpectPreScan(const Text& what) {
        const std::map<Text, Text> boxes = {{u"artist", found_.Artist},
                                            {u"album", found_.Album},
                                            {u"year", found_.Year},
                                            {u"date", found_.ReleaseDate}};
        const Pos blank = InStr(what, u" ");
        const Text box = blank > 0 ? Left(what, blank - 1) : what;
        EXPECT_EQ(ToUtf8(boxes.at(box)), ToUtf8(blank > 0 ? Mid(what, blank + 1) : Text()))
            << ToUtf8(box);
    }

    void SetBox(const Text& what) {
        const Text box = what.substr(0, what.find(u' '));
        ASSERT_TRUE(box == u"artist" || box == u"album");
        (box == u"artist" ? choices_.txtArtist : choices_.txtAlbum) =
            Mid(what, static_cast<Pos>(box.size()) + 2);
    }

    void SetInPattern(const Text& what) { choices_.InPattern = Replace(what, u"\\t", u"\t"); }
    void SetOutPattern(const Text& what) { choices_.OutPattern = what; }
    void FixFilenames(const Text& /*none*/) { choices_.chkConvert = true; }
    void YearForAll(const Text& /*none*/) { choices_.chkYear4All = true; }
    void IgnoreFirst(const Text& what) {
        choices_.chkIgnoreFirst = true;
        choices_.txtIgnoreFirst = what;
    }
    void IgnoreLast(const Text& what) {
        choices_.chkIgnoreLast = true;
        choices_.txtIgnoreLast = what;
    }
    void ExpectOffer(const Text& /*none*/) { EXPECT_TRUE(source_.OffersLineEnds()); }
    void TakeLineEnds(const Text& /*none*/) {
        source_.TakeLineEndsAsCrLf();
        TakePreScan();
    }

    // 1-based lines as the box shows them, the break behind the last one left out.
    void ScanLinesFromTo(const Text& what) {
        ExpectNoNamesLeft();
        const std::vector<Text> shown = SplitLines(source_.Shown());
        const auto first = static_cast<std::size_t>(IntegerPart(what));
        const auto last = static_cast<std::size_t>(IntegerPart(Mid(what, InStr(what, u" "))));
        std::size_t begin = 0;
        for (std::size_t i = 0; i + 1 < first; ++i) begin += shown.at(i).size() + 1;
        std::size_t end = begin;
        for (std::size_t i = first - 1; i < last; ++i) end += shown.at(i).size() + 1;
        names_ = ScanLines(source_.Range(begin, end - 1), choices_, values_, {});
        std::reverse(names_.begin(), names_.end());
    }

    void ExpectName(const Text& name) {
        ASSERT_FALSE(names_.empty()) << ToUtf8(name);
        EXPECT_EQ(ToUtf8(names_.back()), ToUtf8(name));
        names_.pop_back();
        ++NamesChecked;
    }

    void ExpectNoNamesLeft() const {
        for (const Text& name : names_) ADD_FAILURE() << "a name too many: " << ToUtf8(name);
    }

    Settings values_;
    SourceText source_;
    PreScanResult found_;
    ScanChoices choices_;
    std::vector<Text> names_;
};

std::vector<std::string> Albums() {
    std::vector<std::string> albums;
    for (const auto& file : std::filesystem::directory_iterator(test::TestDataFolder() + "/albums"))
        if (file.path().extension() == ".txt") albums.push_back(file.path().stem().string());
    std::sort(albums.begin(), albums.end());
    return albums;
}

class AlbumDescription : public testing::TestWithParam<std::string> {};

TEST_P(AlbumDescription, GivesItsPreScanAndNames) {
    const Text path = FromUtf8(test::TestDataFolder() + "/albums/" + GetParam());
    AlbumScript album(path + u".txt");
    album.Run(FromUtf8(ReadFile(path + u".expected")));
    EXPECT_GT(album.NamesChecked, 2U);
}

INSTANTIATE_TEST_SUITE_P(Albums, AlbumDescription, testing::ValuesIn(Albums()),
                         [](const auto& album) { return album.param; });

TEST(AlbumDescriptions, ThereAreAtLeastTwelve) { EXPECT_GE(Albums().size(), 12U); }

}  // namespace
}  // namespace mdlPLM
