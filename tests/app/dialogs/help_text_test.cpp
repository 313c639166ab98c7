// The help text is held against the program: every example in it is run, and every caption of every
// window must be in it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "app/namefromtext/line_scan.h"
#include "core/names/fix_file_name.h"
#include "core/names/fixing_rules.h"
#include "core/text/code_page.h"
#include "tests/support/places.h"

namespace mdlPLM {
namespace {

std::string ReadSource(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

std::filesystem::path SourceRoot() { return test::SourceFolder(); }

std::string HelpText() { return ReadSource(SourceRoot() / "plm.txt"); }

Text ToText(const std::string& utf8) { return FromUtf8(utf8); }

/// Nothing is changed but what is always changed.
Settings AllOff() {
    Settings settings;
    settings.bID3 = false;
    settings.bExtension = false;
    settings.bLowExtension = false;
    settings.bScoreToSpace = false;
    settings.b20toSpace = false;
    settings.bSpaces = false;
    settings.bMisses = false;
    settings.Change = 0;
    return settings;
}

/// The options that have examples, by their captions.
const std::map<std::string, std::function<void(Settings&)>>& Options() {
    static const std::map<std::string, std::function<void(Settings&)>> table = {
        {"Create filename from ID3 tag if possible.", [](Settings& s) { s.bID3 = true; }},
        {"Change file extension to: .", [](Settings& s) { s.bExtension = true; }},
        {"Use lowercase extensions.", [](Settings& s) { s.bLowExtension = true; }},
        {"Convert underscore to space.", [](Settings& s) { s.bScoreToSpace = true; }},
        {"Convert %20 to space.", [](Settings& s) { s.b20toSpace = true; }},
        {"Remove multiple spaces.", [](Settings& s) { s.bSpaces = true; }},
        {"Remove leading and trailing parentheses.", [](Settings& s) { s.bParentheses = true; }},
        {"Fix common misstakes.", [](Settings& s) { s.bMisses = true; }},
        {"Remove characters:", [](Settings& s) { s.bRemoveChars = true; }},
        {"None of these.", [](Settings& s) { s.Change = 0; }},
        {"Make the first letter in every word uppercase.", [](Settings& s) { s.Change = 1; }},
        {"Only first letter in artist, title and album uppercase.",
         [](Settings& s) { s.Change = 2; }},
        {"All letters UPPERCASE.", [](Settings& s) { s.Change = 3; }},
        {"All letters lowercase.", [](Settings& s) { s.Change = 4; }},
        {"Replace the texts of this list, in its order.", [](Settings& s) { s.bReplace = true; }},
    };
    return table;
}

/// Runs the examples of the help text while it is read line by line.
class Examples {
public:
    void Read(const std::string& line);
    std::multiset<std::string> Seen;  ///< the option or chapter that each example stood under

private:
    void BeginChapter(const std::string& title);
    bool TakeSetting(const std::string& line);
    void TakeTags(const std::string& list);
    void Run(const std::string& left, const std::string& right);
    [[nodiscard]] Text Made(const std::string& left) const;

    std::string place_;
    Settings settings_;
    ReplacementList replacements_;
    Text inPattern_;
    Text outPattern_;
    FileTags tags_;
    bool scan_ = false;
};

void Examples::BeginChapter(const std::string& title) {
    place_ = title;
    const bool options = title.find("THE OPTIONS") != std::string::npos;
    settings_ = options ? AllOff() : Settings();
    scan_ = title.find("NAMES FROM TEXT") != std::string::npos;
    inPattern_ = options ? Text() : settings_.InPattern;
    outPattern_.clear();
    tags_ = {};
}

void Examples::TakeTags(const std::string& list) {
    static const std::map<std::string, Bytes ID3v2Tag::*> fields = {{"artist", &ID3v2Tag::Artist},
                                                                    {"title", &ID3v2Tag::Title},
                                                                    {"track", &ID3v2Tag::Track},
                                                                    {"album", &ID3v2Tag::Album}};
    static const std::regex field(R"((\w+) ([^,]+))");
    tags_ = {};
    if (list == "none") return;
    tags_.V2.ID = "ID3";
    for (std::sregex_iterator it(list.begin(), list.end(), field), end; it != end; ++it)
        tags_.V2.*fields.at((*it)[1]) = (*it)[2];
}

bool Examples::TakeSetting(const std::string& line) {
    static const std::regex setting(
        R"(^ +(Tags|Pair|(?:In|Input |In-|Out|Output |Out-)pattern): +(.*)$)");
    std::smatch match;
    if (!std::regex_match(line, match, setting)) return false;
    const std::string name = match[1];
    const std::string value = match[2];
    if (name == "Tags") {
        TakeTags(value);
    } else if (name == "Pair") {
        const auto middle = value.find(" = ");
        replacements_ = {{ToText(value.substr(0, middle)), ToText(value.substr(middle + 3))}};
    } else if (name[0] == 'I') {
        inPattern_ = ToText(value);
    } else {
        outPattern_ = ToText(value);
    }
    return true;
}

Text Examples::Made(const std::string& left) const {
    static const std::string TagText = "tag text ";
    if (left.compare(0, TagText.size(), TagText) == 0)
        return FixText(ToText(left.substr(TagText.size())), settings_, replacements_);
    if (scan_) {
        ScanChoices choices;
        choices.InPattern = inPattern_;
        choices.OutPattern = outPattern_;
        std::vector<Text> names;
        LineScan scan(ToText(left), choices, settings_, replacements_);
        while (scan.Step(100, names)) {
        }
        return names.empty() ? Text() : names.front();
    }
    FileTags tags = tags_;
    tags.Exists = true;
    return FixFileName(ToText(left), outPattern_, tags,
                       NamingContext{settings_, replacements_, inPattern_});
}

void Examples::Run(const std::string& left, const std::string& right) {
    EXPECT_EQ(ToUtf8(Made(left)), right) << "under \"" << place_ << "\": " << left;
    Seen.insert(place_);
}

void Examples::Read(const std::string& line) {
    static const std::regex chapter(R"(^\d+  ([A-Z].*)$)");
    static const std::regex example(R"(^ {6}(.*)  ->  (.*)$)");
    std::smatch match;
    if (std::regex_match(line, match, chapter)) {
        BeginChapter(match[1]);
    } else if (std::regex_match(line, match, example)) {
        Run(match[1], match[2]);
    } else if (TakeSetting(line)) {
        return;
    } else if (line.size() > 2 && Options().count(line.substr(2)) != 0) {
        place_ = line.substr(2);
        settings_ = AllOff();
        Options().at(place_)(settings_);
        tags_ = {};
        inPattern_.clear();
        outPattern_.clear();
        replacements_.clear();
    }
}

TEST(HelpText, EveryExampleIsWhatTheProgramDoes) {
    Examples examples;
    std::istringstream help(HelpText());
    for (std::string line; std::getline(help, line);) examples.Read(line);
    for (const auto& option : Options())
        EXPECT_GT(examples.Seen.count(option.first), 0U) << "no example for " << option.first;
    EXPECT_GE(examples.Seen.count("NEW NAMES: PATTERNS AND PLACEHOLDERS"), 4U);
    EXPECT_GE(examples.Seen.count("NAMES FROM TEXT"), 1U);
    EXPECT_GE(examples.Seen.size(), 25U);
}

/// One blank for every run of blanks and line ends.
std::string Flowing(const std::string& text) {
    return std::regex_replace(text, std::regex(R"(\s+)"), " ");
}

std::string Caption(std::string text) {
    for (const auto& [from, to] : {std::pair<std::string, std::string>{"&amp;", ""},
                                   {"&quot;", "\""},
                                   {"&lt;", "<"},
                                   {"&gt;", ">"}}) {
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at))
            text.replace(at, from.size(), to);
    }
    return text;
}

/// The captions of the buttons, check boxes, option buttons and menu entries of a form.
std::set<std::string> CaptionsOf(const std::string& form) {
    static const std::regex control(
        R"re(<(?:widget class="Q(?:Push|Tool|Radio)Button"|widget class="QCheckBox"|action) name="[^"]*">)re");
    static const std::regex text(R"re(<property name="text">\s*<string[^>]*>([^<]+)</string>)re");
    std::set<std::string> captions;
    for (std::sregex_iterator it(form.begin(), form.end(), control), end; it != end; ++it) {
        const auto from = static_cast<std::size_t>(it->position() + it->length());
        const auto next = std::min(form.find("<widget ", from), form.find("<action ", from));
        const std::string own = form.substr(from, next - from);
        std::smatch match;
        if (std::regex_search(own, match, text)) captions.insert(Caption(match[1]));
    }
    return captions;
}

TEST(HelpText, EveryWindowIsDescribedWithItsOwnWords) {
    const std::string help = Flowing(HelpText());
    std::size_t captions = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(SourceRoot() / "app")) {
        if (entry.path().extension() != ".ui") continue;
        for (const std::string& caption : CaptionsOf(ReadSource(entry.path()))) {
            ++captions;
            EXPECT_NE(help.find(caption), std::string::npos)
                << entry.path().filename() << " has \"" << caption << "\"";
        }
    }
    EXPECT_GT(captions, 60U);
}

TEST(HelpText, NamesEveryPlaceholderAndEveryFile) {
    const std::string help = HelpText();
    for (const char* word :
         {"%artist", "%title", "%album", "%track", "%year", "%genre", "%comment", "+list",
          "+rename=", "+ext=", "--help", "--version", "replaces.txt", "inpattern.txt",
          "outpattern.txt", "PLM.ini", "plm.txt", "This is FREEWARE! NO WARRANTY!"})
        EXPECT_NE(help.find(word), std::string::npos) << word;
}

TEST(HelpText, NamesEveryCommandOfTheCommandLine) {
    const std::string help = HelpText();
    const std::string rows = ReadSource(SourceRoot() / "app/cli/option_rows.cpp");
    const std::regex command("\\{Command::\\w+, \"([a-z]+)\"");
    std::size_t commands = 0;
    for (std::sregex_iterator at(rows.begin(), rows.end(), command), end; at != end; ++at) {
        ++commands;
        EXPECT_NE(help.find("pellmore-cli " + (*at)[1].str()), std::string::npos) << (*at)[1];
    }
    EXPECT_GT(commands, 6U);
}

TEST(HelpText, FitsIntoAnyEditor) {
    const Text help = FromUtf8(HelpText());
    EXPECT_EQ(help.find(u'\t'), Text::npos);
    std::size_t start = 0;
    for (std::size_t end = help.find(u'\n'); end != Text::npos; end = help.find(u'\n', start)) {
        EXPECT_LE(end - start, 80U) << ToUtf8(help.substr(start, end - start));
        start = end + 1;
    }
}

}  // namespace
}  // namespace mdlPLM
