// What becomes of a target that exists: every choice under every method.
#include "core/names/existing_target.h"
#include "tests/app/sort/sort_fixture.h"

using namespace mdlPLM;

namespace {

struct ExistingCase {
    const char* Name;
    SortMethod Method;
    IfExists Choice;
    std::deque<Answer> Answers;
    // What is expected of the first of two files, whose target exists.
    bool Replaced;
    bool SourceStays;
    bool EntryStays;
    bool SecondIsSorted;
};

void PrintTo(const ExistingCase& each, std::ostream* out) { *out << each.Name; }

constexpr auto Copy = SortMethod::Copy;
constexpr auto Move = SortMethod::Move;
constexpr auto Rename = SortMethod::Rename;

const ExistingCase Cases[] = {
    {"CopyPromptYes", Copy, IfExists::Prompt, {Answer::Yes}, true, true, false, true},
    {"CopyPromptNo", Copy, IfExists::Prompt, {Answer::No}, false, true, false, true},
    {"CopyPromptCancel", Copy, IfExists::Prompt, {Answer::Cancel}, false, true, true, false},
    {"CopySkip", Copy, IfExists::Skip, {}, false, true, false, true},
    {"CopyReplace", Copy, IfExists::Replace, {}, true, true, false, true},
    {"MovePromptYes", Move, IfExists::Prompt, {Answer::Yes}, true, false, false, true},
    {"MovePromptNo", Move, IfExists::Prompt, {Answer::No}, false, true, false, true},
    {"MovePromptCancel", Move, IfExists::Prompt, {Answer::Cancel}, false, true, true, false},
    {"MoveSkip", Move, IfExists::Skip, {}, false, true, false, true},
    {"MoveReplace", Move, IfExists::Replace, {}, true, false, false, true},
    {"RenamePromptYes", Rename, IfExists::Prompt, {Answer::Yes}, true, false, false, true},
    {"RenamePromptNo", Rename, IfExists::Prompt, {Answer::No}, false, true, true, true},
    {"RenamePromptCancel", Rename, IfExists::Prompt, {Answer::Cancel}, false, true, true, false},
    {"RenameSkip", Rename, IfExists::Skip, {}, false, true, true, true},
    {"RenameReplace", Rename, IfExists::Replace, {}, true, false, false, true},
};

class ExistingTarget : public SortTest, public ::testing::WithParamInterface<ExistingCase> {
protected:
    /// The folder that the target of the method stands in.
    [[nodiscard]] Text Place() const {
        return GetParam().Method == Rename ? temp_ / u"in" : target_;
    }
    [[nodiscard]] SortReport Expected() const {
        const ExistingCase& each = GetParam();
        SortReport report;
        report.Cancelled = !each.SecondIsSorted;
        report.Handled = (each.EntryStays ? 0U : 1U) + (each.SecondIsSorted ? 1U : 0U);
        report.Skipped = each.EntryStays && each.SecondIsSorted ? 1U : 0U;
        return report;
    }
};

}  // namespace

TEST_P(ExistingTarget, IsTreatedAsChosen) {
    const ExistingCase& each = GetParam();
    choices_.Method = each.Method;
    choices_.Exists = each.Choice;
    choices_.chkConvert = true;
    prompts_.Answers = each.Answers;
    const Text first = Add(u"abba_-_one.mp3", "new");
    Add(u"abba_-_two.mp3", "second");
    const Text existing = Place() + u"/Abba - One.mp3";
    WriteFile(existing, "old");

    EXPECT_EQ(Sort(), Expected());
    EXPECT_EQ(ReadFile(existing), each.Replaced ? "new" : "old");
    EXPECT_EQ(IsThere(first), each.SourceStays);
    if (each.SourceStays) {
        EXPECT_EQ(ReadFile(first), "new");
    }
    EXPECT_EQ(IsThere(Place() + u"/Abba - Two.mp3"), each.SecondIsSorted);
    Names listed;
    if (each.EntryStays) listed.push_back(u"abba_-_one.mp3");
    if (!each.SecondIsSorted) listed.push_back(u"abba_-_two.mp3");
    EXPECT_EQ(Listed(), listed);
}

TEST_P(ExistingTarget, IsAskedAboutWithItsPathOnlyUnderPrompt) {
    const ExistingCase& each = GetParam();
    choices_.Method = each.Method;
    choices_.Exists = each.Choice;
    choices_.chkConvert = true;
    prompts_.Answers = each.Answers;
    Add(u"abba_-_one.mp3");
    Add(u"abba_-_two.mp3");
    const Text existing = Place() + u"/Abba - One.mp3";
    WriteFile(existing, "old");

    Sort();
    if (each.Choice != IfExists::Prompt) {
        EXPECT_TRUE(prompts_.Log.empty());
        return;
    }
    ASSERT_EQ(prompts_.Log.size(), 1U);
    EXPECT_EQ(prompts_.Log[0].Kind, PromptKind::YesNoCancel);
    EXPECT_EQ(prompts_.Log[0].What.Body, ExistingTargetQuestion(existing).Body);
    EXPECT_TRUE(
        StartsWith(prompts_.Log[0].What.Body, u"The file \"" + existing + u"\" already exists!"));
    EXPECT_TRUE(EndsWith(prompts_.Log[0].What.Body, u"Do you want to replace it?"));
}

TEST_P(ExistingTarget, ThatIsAFolderIsNeverReplaced) {
    const ExistingCase& each = GetParam();
    choices_.Method = each.Method;
    choices_.Exists = each.Choice;
    choices_.chkConvert = true;
    prompts_.Answers = each.Answers;
    const Text first = Add(u"abba_-_one.mp3", "new");
    Add(u"abba_-_two.mp3", "second");
    WriteFile(Place() + u"/Abba - One.mp3/inside.txt", "kept");

    SortReport expected = Expected();
    if (each.Replaced) {
        expected.Handled = 1;
        expected.Failures = {{first, u"Path/File access error"}};
    }
    EXPECT_EQ(Sort(), expected);
    EXPECT_EQ(ReadFile(Place() + u"/Abba - One.mp3/inside.txt"), "kept");
    EXPECT_EQ(ReadFile(first), "new");
}

INSTANTIATE_TEST_SUITE_P(Sort, ExistingTarget, ::testing::ValuesIn(Cases),
                         [](const auto& each) { return std::string(each.param.Name); });

namespace {
class TwoEntriesWithOneNewName : public SortTest {
protected:
    void AddTwins() {
        choices_.chkConvert = true;
        Add(u"abba_-_one.mp3", "first");
        Add(u"abba__-__one.mp3", "second");
    }
};
}  // namespace

TEST_F(TwoEntriesWithOneNewName, SecondIsSilentlyNotCopiedUnderSkip) {
    AddTwins();
    choices_.Exists = IfExists::Skip;
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_EQ(InTarget(), (Tree{"Abba - One.mp3"}));
    EXPECT_EQ(ReadFile(target_ + u"/Abba - One.mp3"), "first");
    EXPECT_EQ(InSource().size(), 2U);
}

TEST_F(TwoEntriesWithOneNewName, SecondIsSilentlyNotMovedUnderSkip) {
    AddTwins();
    choices_.Method = SortMethod::Move;
    choices_.Exists = IfExists::Skip;
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_EQ(ReadFile(target_ + u"/Abba - One.mp3"), "first");
    EXPECT_EQ(ReadFile(temp_ / u"in/abba__-__one.mp3"), "second");
}

TEST_F(TwoEntriesWithOneNewName, SecondIsSilentlyNotRenamedUnderSkipAndStays) {
    AddTwins();
    choices_.Method = SortMethod::Rename;
    choices_.Exists = IfExists::Skip;
    EXPECT_EQ(Sort(), Counts(1, 1));
    EXPECT_EQ(ReadFile(temp_ / u"in/Abba - One.mp3"), "first");
    EXPECT_EQ(ReadFile(temp_ / u"in/abba__-__one.mp3"), "second");
    EXPECT_EQ(Listed(), (Names{u"abba__-__one.mp3"}));
}

TEST_F(TwoEntriesWithOneNewName, AreAskedAboutUnderPrompt) {
    for (const SortMethod method : {SortMethod::Copy, SortMethod::Move, SortMethod::Rename}) {
        list_.Clear();
        AddTwins();
        choices_.Method = method;
        choices_.txtTargetDir = temp_.Folder(u"to " + NumberText(static_cast<long long>(method)));
        prompts_.Answers = {Answer::No};
        Sort();
        EXPECT_TRUE(prompts_.Answers.empty());
        EXPECT_EQ(ReadFile(temp_ / u"in/abba__-__one.mp3"), "second");
    }
    EXPECT_EQ(prompts_.Log.size(), 3U);
}
