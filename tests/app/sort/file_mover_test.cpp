// Copying, moving and renaming single files, and what can go wrong with them.
#include <sys/stat.h>

#include <algorithm>

#include "app/sort/file_mover.h"
#include "core/text/letter_case.h"
#include "tests/app/sort/sort_fixture.h"
#include "tests/support/child_process.h"
#include "tests/support/tag_bytes.h"

using namespace mdlPLM;

namespace {

constexpr auto CopyAndMove = {SortMethod::Copy, SortMethod::Move};

class SortFiles : public SortTest {
protected:
    [[nodiscard]] SortReport Failed(const Text& path, TextView reason,
                                    std::size_t handled = 0) const {
        SortReport report = Counts(handled);
        report.Failures = {{path, Text(reason)}};
        return report;
    }
    /// The list starts anew with one file "abba - one.mp3" whose new name is in the box.
    Text OnlyFile(TextView newName) {
        list_.Clear();
        choices_.chkConvert = true;
        choices_.txtNewName = newName;
        return Add(u"abba - one.mp3", "sound");
    }
};

}  // namespace

TEST_F(SortFiles, CopyKeepsNameContentsAndTime) {
    const Text source = Add(u"Some_name.MP3", "sound");
    SetModificationTime(source, 1234567890123456789);
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(InTarget(), (Tree{"Some_name.MP3"}));
    EXPECT_EQ(ReadFile(target_ + u"/Some_name.MP3"), "sound");
    EXPECT_EQ(ModificationTime(target_ + u"/Some_name.MP3"), 1234567890123456789);
    EXPECT_EQ(ReadFile(source), "sound");
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(SortFiles, MoveKeepsNameContentsAndTime) {
    choices_.Method = SortMethod::Move;
    const Text source = Add(u"Some_name.MP3", "sound");
    SetModificationTime(source, 1234567890123456789);
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(ReadFile(target_ + u"/Some_name.MP3"), "sound");
    EXPECT_EQ(ModificationTime(target_ + u"/Some_name.MP3"), 1234567890123456789);
    EXPECT_FALSE(IsThere(source));
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(SortFiles, RenameStaysInTheFilesOwnFolder) {
    choices_.Method = SortMethod::Rename;
    Add(u"deep/abba_-_one.mp3", "one");
    Add(u"zappa_-_two.mp3", "two");
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_EQ(InSource(), (Tree{"Zappa - Two.mp3", "deep/", "deep/Abba - One.mp3"}));
    EXPECT_EQ(InTarget(), Tree{});
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(SortFiles, NamesAreFixedWhenAsked) {
    choices_.chkConvert = true;
    Add(u"abba_-_one.mp3");
    Add(u"zappa_-_two.mp3");
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_EQ(InTarget(), (Tree{"Abba - One.mp3", "Zappa - Two.mp3"}));
}

TEST_F(SortFiles, RenameFixesNamesWhateverTheBoxForItSays) {
    choices_.Method = SortMethod::Rename;
    choices_.chkConvert = false;
    Add(u"abba_-_one.mp3");
    Add(u"zappa_-_two.mp3");
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_EQ(InSource(), (Tree{"Abba - One.mp3", "Zappa - Two.mp3"}));
}

TEST_F(SortFiles, OneFileTakesTheNameFromTheNewNameBox) {
    for (const SortStart start : {SortStart::All, SortStart::ThisFile}) {
        for (const SortMethod method : Methods) {
            OnlyFile(u"By hand.mp3");
            choices_.Method = method;
            choices_.Exists = IfExists::Replace;
            EXPECT_EQ(Sort(start), Counts(1));
            const Text place = method == SortMethod::Rename ? temp_ / u"in" : target_;
            EXPECT_TRUE(IsThere(place + u"/By hand.mp3"));
        }
    }
}

TEST_F(SortFiles, AnEmptyNewNameBoxMeansTheFixedName) {
    for (const SortMethod method : Methods) {
        OnlyFile({});
        choices_.Method = method;
        choices_.Exists = IfExists::Replace;
        EXPECT_EQ(Sort(SortStart::ThisFile), Counts(1));
        const Text place = method == SortMethod::Rename ? temp_ / u"in" : target_;
        EXPECT_TRUE(IsThere(place + u"/Abba - One.mp3"));
    }
}

TEST_F(SortFiles, UnfixedNamesDoNotLookAtTheNewNameBox) {
    for (const SortMethod method : CopyAndMove) {
        OnlyFile(u"By hand.mp3");
        choices_.chkConvert = false;
        choices_.Method = method;
        choices_.Exists = IfExists::Replace;
        EXPECT_EQ(Sort(SortStart::ThisFile), Counts(1));
        EXPECT_EQ(InTarget(), (Tree{"abba - one.mp3"}));
    }
}

TEST_F(SortFiles, SeveralFilesDoNotLookAtTheNewNameBox) {
    choices_.chkConvert = true;
    choices_.txtNewName = u"By hand.mp3";
    Add(u"abba_-_one.mp3");
    Add(u"zappa_-_two.mp3");
    EXPECT_EQ(Sort(SortStart::ThisFile), Counts(2));
    EXPECT_EQ(InTarget(), (Tree{"Abba - One.mp3", "Zappa - Two.mp3"}));
}

TEST_F(SortFiles, AFileWhoseNameHoldsTheListMarkerOrABackslashIsTheOneTouched) {
    const Text marker = Add(u"a     (b).mp3", "marker");
    const Text backslash = Add(u"c\\d.mp3", "backslash");
    EXPECT_EQ(Sort(), Counts(2));
    EXPECT_EQ(InTarget(), (Tree{"a     (b).mp3", "d.mp3"}));
    EXPECT_EQ(ReadFile(target_ + u"/a     (b).mp3"), "marker");
    EXPECT_EQ(ReadFile(target_ + u"/d.mp3"), "backslash");
}

TEST_F(SortFiles, ANameThatIsNoValidTextIsSortedToo) {
    const Text source = Add(PathFromNative("b\xE5nd - s\xF6ng.mp3"), "sound");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(InTarget(), (Tree{"b\xE5nd - s\xF6ng.mp3"}));
}

TEST_F(SortFiles, AnEntryOfASortingListIsFoundByItsLine) {
    WriteFile(temp_ / u"in/one.mp3", "sound");
    list_.AppendEntries({u"one.mp3     (" + temp_.Path() + u"in/)"});
    list_.SelectAll();
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(InTarget(), (Tree{"one.mp3"}));
}

// A file that has gone: a silent skip.

TEST_F(SortFiles, AFileThatVanishedIsSkippedSilentlyAndStaysInTheList) {
    for (const SortMethod method : Methods) {
        list_.Clear();
        choices_.Method = method;
        choices_.Exists = IfExists::Replace;
        choices_.chkConvert = method == SortMethod::Move;
        AddPath(temp_ / u"in/gone.mp3");
        Add(u"here - one.mp3");
        EXPECT_EQ(Sort(), Counts(1, 1));
        EXPECT_EQ(Listed(), (Names{u"gone.mp3"}));
    }
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(SortFiles, ALinkThatLeadsNowhereIsSkippedSilently) {
    ASSERT_FALSE(temp_.Folder(u"in").empty());
    AddPath(temp_.Link(u"in/link.mp3", u"nowhere.mp3"));
    EXPECT_EQ(Sort(), Counts(0, 1));
    EXPECT_TRUE(IsThere(temp_ / u"in/link.mp3"));
}

// The file itself as its target: nothing is done.

TEST_F(SortFiles, ATargetThatIsTheSourceItselfIsSilentlyLeftAloneAndCountsAsHandled) {
    settings_.bSetAttributes = settings_.bReadOnly = true;
    choices_.txtTargetDir = temp_.Link(u"by another way", u"in");
    for (const SortMethod method : CopyAndMove) {
        for (const IfExists choice : {IfExists::Prompt, IfExists::Skip, IfExists::Replace}) {
            list_.Clear();
            choices_.Method = method;
            choices_.Exists = choice;
            const Text source = Add(u"one.mp3", "sound");
            EXPECT_EQ(Sort(), Counts(1));
            EXPECT_EQ(ReadFile(source), "sound");
            EXPECT_EQ(list_.Count(), 0U);
        }
    }
    EXPECT_TRUE(disk_.Changes().empty());
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(SortFiles, ARenameToTheSameNameDoesNothingAndCountsAsHandled) {
    choices_.Method = SortMethod::Rename;
    settings_.bSetAttributes = settings_.bReadOnly = true;
    OnlyFile(u"abba - one.mp3");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_TRUE(disk_.Changes().empty());
    EXPECT_EQ(list_.Count(), 0U);
}

TEST_F(SortFiles, ALinkIsNotPutInPlaceOfTheFileItLeadsTo) {
    choices_.Exists = IfExists::Replace;
    for (const SortMethod method : {SortMethod::Move, SortMethod::Rename}) {
        list_.Clear();
        choices_.Method = method;
        choices_.txtTargetDir = temp_ / u"in";
        choices_.chkConvert = true;
        choices_.txtNewName = u"real.mp3";
        WriteFile(temp_ / u"in/real.mp3", "the only copy");
        if (!IsThere(temp_ / u"in/link.mp3")) (void)temp_.Link(u"in/link.mp3", u"real.mp3");
        AddPath(temp_ / u"in/link.mp3");
        EXPECT_EQ(Sort(), Counts(1));
        EXPECT_EQ(ReadFile(temp_ / u"in/real.mp3"), "the only copy");
    }
}

// A change of letter case alone.

TEST_F(SortFiles, AChangeOfLetterCaseAloneIsRenamedWithoutAQuestion) {
    choices_.Method = SortMethod::Rename;
    OnlyFile(u"ABBA - One.mp3");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(InSource(), (Tree{"ABBA - One.mp3"}));
    EXPECT_EQ(disk_.Count(DiskOperation::DeleteFile), 0U);
    EXPECT_TRUE(prompts_.Log.empty());
}

TEST_F(SortFiles, AnotherFileOfTheOtherSpellingIsNeverReplacedAndNamedInTheMessage) {
    choices_.Method = SortMethod::Rename;
    for (const IfExists choice : {IfExists::Prompt, IfExists::Skip, IfExists::Replace}) {
        choices_.Exists = choice;
        const Text source = OnlyFile(u"ABBA - One.mp3");
        WriteFile(temp_ / u"in/ABBA - One.mp3", "another");
        EXPECT_EQ(Sort(), Failed(source, u"File already exists"));
        EXPECT_EQ(ReadFile(temp_ / u"in/ABBA - One.mp3"), "another");
        EXPECT_EQ(ReadFile(source), "sound");
        EXPECT_EQ(list_.Count(), 1U);
    }
    EXPECT_TRUE(prompts_.Log.empty());
}

namespace {
/// A disk that does not tell upper from lower case: both spellings are the same file.
class CaseBlindDisk : public MemoryDisk {
public:
    bool Exists(TextView path) override {
        return IsFolder(path) || std::any_of(Files.begin(), Files.end(), [&](const Text& file) {
                   return EqualIgnoringCase(file, path);
               });
    }
    bool IsSameFile(TextView a, TextView b) override {
        return EqualIgnoringCase(a, b) && Exists(a);
    }
};
}  // namespace

TEST_F(SortFiles, MovingToTheOtherSpellingOnADiskThatDoesNotTellThemApartRenames) {
    CaseBlindDisk disk;
    disk.Folders = {u"/m"};
    disk.Files = {u"/m/one.mp3"};
    choices_.Method = SortMethod::Move;
    choices_.txtTargetDir = u"/m";
    choices_.chkConvert = true;
    choices_.txtNewName = u"One.mp3";
    AddPath(u"/m/one.mp3");
    const NamingContext context = Context();
    SortRun run(list_, choices_, SortStart::All, context, disk, prompts_);
    while (run.Step()) {
    }
    EXPECT_EQ(ReportOf(run), Counts(1));
    EXPECT_EQ(disk.Files, (std::set<Text>{u"/m/One.mp3"}));
}

// Names that cannot be used: a message.

TEST_F(SortFiles, ANewNameThatIsNoFileNameIsNamedInTheMessageAndTheFileStays) {
    for (const TextView name : {u".", u"..", u"a/b.mp3", u"a\\b.mp3", u"../b.mp3"}) {
        for (const SortMethod method : Methods) {
            const Text source = OnlyFile(name);
            choices_.Method = method;
            EXPECT_EQ(Sort(), Failed(source, u"Bad file name or number (\"" + Text(name) + u"\")"));
            EXPECT_EQ(ReadFile(source), "sound");
            EXPECT_EQ(list_.Count(), 1U);
        }
    }
    EXPECT_TRUE(disk_.Changes().empty());
}

TEST_F(SortFiles, ANameOfNothingButItsExtensionIsNeverUsed) {
    choices_.OutPattern = u"%title.mp3";
    for (const Bytes& title : std::vector<Bytes>{".", "???", "\r\n"}) {
        for (const SortMethod method : Methods) {
            list_.Clear();
            choices_.chkConvert = true;
            choices_.Method = method;
            const Text source =
                Add(u"a.mp3", test::WholeTag(test::TextFrame("TIT2", title)) + test::Noise(200));
            EXPECT_EQ(Sort(), Failed(source, u"no name is left (\".mp3\")"));
            EXPECT_EQ(list_.Count(), 1U);
        }
    }
    for (const TextView byHand : {u".mp3", u" .mp3", u"   "}) {
        const Text source = OnlyFile(byHand);
        EXPECT_EQ(Sort(), Failed(source, u"no name is left (\"" + Text(byHand) + u"\")"));
    }
    EXPECT_TRUE(disk_.Changes().empty());
}

TEST_F(SortFiles, AFileThatKeepsItsNameKeepsAnyName) {
    for (const SortMethod method : CopyAndMove) {
        list_.Clear();
        choices_.Method = method;
        choices_.txtTargetDir = temp_.Folder(u"to " + NumberText(static_cast<long long>(method)));
        Add(u".mp3", "sound");
        EXPECT_EQ(Sort(), Counts(1));
        EXPECT_EQ(ReadFile(choices_.txtTargetDir + u"/.mp3"), "sound");
    }
}

// Its tags may say something else than its old name does.
TEST_F(SortFiles, AFileThatCannotBeReadIsNotRenamedByItsOldName) {
    choices_.chkConvert = true;
    for (const SortMethod method : Methods) {
        list_.Clear();
        choices_.Method = method;
        const Text source = Add(u"abba_-_one.mp3", "sound");
        ASSERT_EQ(::chmod(NativePath(source).c_str(), 0), 0);
        EXPECT_EQ(RunInChild([&] {
                      ObeyPermissions();
                      return Sort() == Failed(source, u"Permission denied") ? 0 : 1;
                  }),
                  0);
        EXPECT_EQ(InSource(), Tree{"abba_-_one.mp3"});
        EXPECT_EQ(InTarget(), Tree{});
    }
}

TEST_F(SortFiles, AFileThatCannotBeReadIsRenamedWhereItsTagsAreNotAsked) {
    choices_.chkConvert = true;
    choices_.Method = SortMethod::Rename;
    AddPath(temp_.Unopenable(u"abba_-_one.mp3"));
    EXPECT_EQ(Sort(), Failed(temp_ / u"abba_-_one.mp3", u"Device unavailable"));
    settings_.bID3 = false;
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_TRUE(IsThere(temp_ / u"Abba - One.mp3"));
}

TEST_F(SortFiles, AFileThatCannotBeReadTakesANameThatIsWrittenByHand) {
    choices_.chkConvert = true;
    choices_.txtNewName = u"Mine.mp3";
    choices_.Method = SortMethod::Move;
    AddPath(temp_.Unopenable(u"abba_-_one.mp3"));
    // Its artist is not known, though.
    choices_.chkSubFolder = true;
    EXPECT_EQ(Sort(), Failed(temp_ / u"abba_-_one.mp3", u"Device unavailable"));
    choices_.chkSubFolder = false;
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(InTarget(), Tree{"Mine.mp3"});
}

TEST_F(SortFiles, ANameLongerThanTheFileSystemTakesIsNamedInTheMessage) {
    for (const SortMethod method : Methods) {
        const Text source = OnlyFile(Text(300, u'x') + u".mp3");
        choices_.Method = method;
        const SortReport report = Sort();
        ASSERT_EQ(report.Failures.size(), 1U);
        EXPECT_EQ(report.Failures[0].Path, source);
        EXPECT_EQ(report.Handled, 0U);
        EXPECT_EQ(ReadFile(source), "sound");
        EXPECT_EQ(list_.Count(), 1U);
        EXPECT_EQ(InTarget(), Tree{});
    }
}

TEST_F(SortFiles, AListedFolderIsNotSortedAndNamedInTheMessage) {
    settings_.bSetAttributes = true;
    for (const SortMethod method : Methods) {
        list_.Clear();
        choices_.Method = method;
        const Text folder = temp_.Folder(u"in/folder - x");
        AddPath(folder);
        EXPECT_EQ(Sort(), Failed(folder, u"Path/File access error"));
        EXPECT_EQ(InSource(), (Tree{"folder - x/"}));
    }
    EXPECT_TRUE(disk_.Changes().empty());
}

// Failures: a message at the end, the entry stays, the run goes on.

TEST_F(SortFiles, AnUnwritableTargetIsNamedInTheMessageAndTheRunGoesOn) {
    struct {
        SortMethod Method;
        DiskOperation Operation;
    } const cases[] = {{SortMethod::Copy, DiskOperation::BeginCopy},
                       {SortMethod::Move, DiskOperation::Rename},
                       {SortMethod::Rename, DiskOperation::Rename}};
    for (const auto& each : cases) {
        list_.Clear();
        choices_.Method = each.Method;
        choices_.Exists = IfExists::Replace;
        const Text source = Add(u"abba_-_one.mp3", "sound");
        Add(u"zappa_-_two.mp3");
        disk_.FailCall(each.Operation, ErrorNumber::PermissionDenied);
        EXPECT_EQ(Sort(), Failed(source, u"Permission denied", 1));
        EXPECT_EQ(ReadFile(source), "sound");
        EXPECT_EQ(Listed(), (Names{u"abba_-_one.mp3"}));
    }
}

TEST_F(SortFiles, ATargetFolderThatHasGoneIsNamedInTheMessage) {
    choices_.txtTargetDir = target_ + u"/gone";
    for (const SortMethod method : CopyAndMove) {
        list_.Clear();
        choices_.Method = method;
        const Text source = Add(u"one.mp3", "sound");
        const SortReport report = Sort();
        ASSERT_EQ(report.Failures.size(), 1U);
        EXPECT_EQ(report.Failures[0].Path, source);
        EXPECT_EQ(ReadFile(source), "sound");
        EXPECT_EQ(list_.Count(), 1U);
    }
}

TEST_F(SortFiles, AFullDiskIsNamedInTheMessageAndLeavesNothingBehind) {
    const Text first = Add(u"one.mp3", "first");
    const Text second = Add(u"two.mp3", "second");
    WriteFile(target_ + u"/one.mp3", "old");
    choices_.Exists = IfExists::Replace;
    disk_.FailCall(DiskOperation::CopyStep, ErrorNumber::DiskFull);
    EXPECT_EQ(Sort(), Failed(first, u"Disk full", 1));
    EXPECT_EQ(InTarget(), (Tree{"one.mp3", "two.mp3"}));
    EXPECT_EQ(ReadFile(target_ + u"/one.mp3"), "old");
    EXPECT_EQ(Listed(), (Names{u"one.mp3"}));
}

TEST_F(SortFiles, AFileThatDoesNotFitStaysWhileSmallerOnesAreCopied) {
    Add(u"large.mp3", Bytes(200000, 'x'));
    Add(u"small.mp3", "small");
    const int result = RunInChild([this] {
        LimitFileSize(100000);
        const SortReport report = Sort();
        const bool right = report.Handled == 1 && report.Failures.size() == 1 &&
                           EndsWith(report.Failures[0].Path, u"large.mp3");
        return right ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(InTarget(), (Tree{"small.mp3"}));
    EXPECT_EQ(InSource(), (Tree{"large.mp3", "small.mp3"}));
}

TEST_F(SortFiles, ATargetThatAppearsMeanwhileIsNotReplaced) {
    for (const SortMethod method : CopyAndMove) {
        list_.Clear();
        choices_.Method = method;
        choices_.Exists = IfExists::Replace;
        const Text source = Add(u"one.mp3", "mine");
        const Text target = target_ + u"/one.mp3";
        disk_.Inject = [&](const DiskCall&, std::size_t) {
            WriteFile(target, "somebody else's");
            return Status();
        };
        EXPECT_EQ(Sort(), Failed(source, u"File already exists"));
        EXPECT_EQ(ReadFile(target), "somebody else's");
        EXPECT_EQ(ReadFile(source), "mine");
        ASSERT_TRUE(SystemDisk().DeleteFile(target).Ok());
    }
}

// Moving to another file system: a copy, then the removal of the source.

TEST_F(SortFiles, MovingAcrossFileSystemsCopiesAndThenRemovesTheSource) {
    choices_.Method = SortMethod::Move;
    const Text source = Add(u"one.mp3", "sound");
    SetModificationTime(source, 1234567890123456789);
    disk_.FailCall(DiskOperation::Rename, ErrorNumber::DifferentDrive);
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(ReadFile(target_ + u"/one.mp3"), "sound");
    EXPECT_EQ(ModificationTime(target_ + u"/one.mp3"), 1234567890123456789);
    EXPECT_FALSE(IsThere(source));
    std::vector<DiskOperation> done;
    for (const DiskCall& call : disk_.Changes()) done.push_back(call.Operation);
    EXPECT_EQ(done, (std::vector<DiskOperation>{DiskOperation::Rename, DiskOperation::BeginCopy,
                                                DiskOperation::DeleteFile}));
}

TEST_F(SortFiles, MovingAcrossFileSystemsWaitsForTheDiskBeforeTheSourceGoes) {
    choices_.Method = SortMethod::Move;
    const Text source = Add(u"one.mp3", "sound");
    disk_.Inject = [](const DiskCall& call, std::size_t) -> Status {
        if (call.Operation == DiskOperation::Rename) return ErrorNumber::DifferentDrive;
        return call.Operation == DiskOperation::Flush ? ErrorNumber::DeviceIo : ErrorNumber::None;
    };
    EXPECT_EQ(Sort(), Failed(source,
                             u"Copied, but the original could not be removed: "
                             u"Device I/O error"));
    EXPECT_EQ(ReadFile(source), "sound");
    EXPECT_EQ(disk_.Count(DiskOperation::DeleteFile), 0U);
    disk_.Inject = [](const DiskCall& call, std::size_t) -> Status {
        return call.Operation == DiskOperation::Rename ? ErrorNumber::DifferentDrive
                                                       : ErrorNumber::None;
    };
    WriteFile(target_ + u"/one.mp3", "there before");
    choices_.Exists = IfExists::Replace;
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(disk_.Calls().back().Operation, DiskOperation::DeleteFile);
    EXPECT_EQ(disk_.Count(DiskOperation::Flush), 2U);
}

TEST_F(SortFiles, MovingAcrossFileSystemsWaitsForTheContentsBeforeTheNameIsTaken) {
    choices_.Method = SortMethod::Move;
    (void)Add(u"one.mp3", "sound");
    disk_.FailCall(DiskOperation::Rename, ErrorNumber::DifferentDrive);
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(disk_.Count(DiskOperation::CopyWaits), 1U);
}

TEST_F(SortFiles, APlainCopyDoesNotWaitForTheDisk) {
    (void)Add(u"one.mp3", "sound");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(disk_.Count(DiskOperation::CopyWaits) + disk_.Count(DiskOperation::Flush), 0U);
}

TEST_F(SortFiles, MovingAcrossFileSystemsReplacesWhenAsked) {
    choices_.Method = SortMethod::Move;
    choices_.Exists = IfExists::Replace;
    const Text source = Add(u"one.mp3", "new");
    WriteFile(target_ + u"/one.mp3", "old");
    disk_.FailCall(DiskOperation::Rename, ErrorNumber::DifferentDrive);
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(ReadFile(target_ + u"/one.mp3"), "new");
    EXPECT_FALSE(IsThere(source));
}

TEST_F(SortFiles, AMoveAcrossFileSystemsThatFailsLeavesTheSource) {
    choices_.Method = SortMethod::Move;
    const Text source = Add(u"one.mp3", "sound");
    disk_.Inject = [](const DiskCall& call, std::size_t) -> Status {
        if (call.Operation == DiskOperation::Rename) return ErrorNumber::DifferentDrive;
        return call.Operation == DiskOperation::CopyStep ? ErrorNumber::DiskFull
                                                         : ErrorNumber::None;
    };
    EXPECT_EQ(Sort(), Failed(source, u"Disk full"));
    EXPECT_EQ(ReadFile(source), "sound");
    EXPECT_EQ(InTarget(), Tree{});
    EXPECT_EQ(disk_.Count(DiskOperation::DeleteFile), 0U);
}

TEST_F(SortFiles, ASourceThatCannotBeRemovedAfterwardsIsNamedInTheMessageAndBothStand) {
    choices_.Method = SortMethod::Move;
    const Text source = Add(u"one.mp3", "sound");
    disk_.Inject = [](const DiskCall& call, std::size_t) -> Status {
        if (call.Operation == DiskOperation::Rename) return ErrorNumber::DifferentDrive;
        return call.Operation == DiskOperation::DeleteFile ? ErrorNumber::PermissionDenied
                                                           : ErrorNumber::None;
    };
    EXPECT_EQ(Sort(), Failed(source,
                             u"Copied, but the original could not be removed: "
                             u"Permission denied"));
    EXPECT_EQ(ReadFile(source), "sound");
    EXPECT_EQ(ReadFile(target_ + u"/one.mp3"), "sound");
    EXPECT_EQ(list_.Count(), 1U);
}

// Attributes.

TEST_F(SortFiles, AttributesAreSetOnTheSourceBeforeAnythingElse) {
    settings_.bSetAttributes = settings_.bReadOnly = settings_.bHidden = settings_.bArhive = true;
    for (const SortMethod method : Methods) {
        list_.Clear();
        choices_.Method = method;
        choices_.Exists = IfExists::Replace;
        RecordingDisk disk;
        const Text source = Add(u"abba_-_" + NumberText(static_cast<long long>(method)) + u".mp3");
        const NamingContext context = Context();
        SortRun run(list_, choices_, SortStart::All, context, disk, prompts_);
        while (run.Step()) {
        }
        EXPECT_EQ(ReportOf(run), Counts(1));
        ASSERT_EQ(disk.Changes().size(), 2U);
        EXPECT_EQ(disk.Changes()[0].Operation, DiskOperation::SetAttributes);
        EXPECT_EQ(disk.Changes()[0].Path, source);
        EXPECT_EQ(disk.Changes()[0].Attributes, 1 + 2 + 32);
    }
}

TEST_F(SortFiles, ACopyCarriesTheAttributes) {
    settings_.bSetAttributes = settings_.bReadOnly = true;
    const Text source = Add(u"one.mp3");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(GetAttributes(source) & ReadOnly, ReadOnly);
    EXPECT_EQ(GetAttributes(target_ + u"/one.mp3") & ReadOnly, ReadOnly);
}

TEST_F(SortFiles, NoFlagOnSetsNoAttributes) {
    settings_.bSetAttributes = true;
    Add(u"one.mp3");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(disk_.Changes().front().Operation, DiskOperation::SetAttributes);
    EXPECT_EQ(disk_.Changes().front().Attributes, 0);
}

TEST_F(SortFiles, AttributesAreLeftAloneUnlessAsked) {
    settings_.bReadOnly = settings_.bHidden = settings_.bArhive = true;
    Add(u"one.mp3");
    EXPECT_EQ(Sort(), Counts(1));
    EXPECT_EQ(disk_.Count(DiskOperation::SetAttributes), 0U);
}

TEST_F(SortFiles, AttributesThatCannotBeSetAreSwallowed) {
    settings_.bSetAttributes = settings_.bReadOnly = true;
    for (const SortMethod method : Methods) {
        list_.Clear();
        choices_.Method = method;
        choices_.Exists = IfExists::Replace;
        Add(u"abba_-_one.mp3");
        disk_.FailCall(DiskOperation::SetAttributes, ErrorNumber::PermissionDenied);
        EXPECT_EQ(Sort(), Counts(1));
    }
}

TEST_F(SortFiles, AttributesAreSetEvenWhenTheTargetIsThenLeftAlone) {
    settings_.bSetAttributes = settings_.bArhive = true;
    choices_.Exists = IfExists::Skip;
    for (const SortMethod method : Methods) {
        list_.Clear();
        OnlyFile(u"new.mp3");
        choices_.Method = method;
        RecordingDisk disk;
        WriteFile(target_ + u"/new.mp3", "old");
        WriteFile(temp_ / u"in/new.mp3", "old");
        const NamingContext context = Context();
        SortRun run(list_, choices_, SortStart::All, context, disk, prompts_);
        while (run.Step()) {
        }
        ASSERT_EQ(disk.Changes().size(), 1U);
        EXPECT_EQ(disk.Changes()[0].Operation, DiskOperation::SetAttributes);
    }
}

namespace {

/// One file "old.mp3" and a mover whose rules each test sets.
class Mover : public SortTest {
protected:
    MoveResult RenameTo(TextView newName, TextView oldName = u"old.mp3") {
        const Text old = temp_.File(u"in/" + Text(oldName), "old");
        FileMover mover(rules_, disk_, prompts_, own_);
        return mover.RenameFile(old, temp_ / u"in/" + Text(newName));
    }
    MoverRules rules_;
    OwnFiles own_;
};

}  // namespace

TEST_F(Mover, NoAndSkipMeanWhatTheRunSays) {
    const Text there = temp_.File(u"in/there.mp3", "there");
    for (const MoveResult meaning : {MoveResult::Stays, MoveResult::LeftAlone}) {
        rules_.Leave = meaning;
        rules_.Exists = IfExists::Skip;
        EXPECT_EQ(RenameTo(u"there.mp3"), meaning);
        rules_.Exists = IfExists::Prompt;
        prompts_.Answers = {Answer::No};
        EXPECT_EQ(RenameTo(u"there.mp3"), meaning);
        prompts_.Answers = {Answer::Cancel};
        EXPECT_EQ(RenameTo(u"there.mp3"), MoveResult::Cancelled);
    }
    EXPECT_EQ(ReadFile(there), "there");
}

// The small dotless i has the capital of the other one, and no other small letter.
TEST_F(Mover, TheFoldDecidesWhichNamesAreOneInAnotherCase) {
    const Text there = temp_.File(u"in/i.mp3", "there");
    rules_.Exists = IfExists::Skip;
    rules_.Fold = CaseFold::Lower;
    EXPECT_EQ(RenameTo(u"i.mp3", u"\u0131.mp3"), MoveResult::Stays);
    // One name in another case is renamed without a look, and takes nobody else's place.
    rules_.Fold = CaseFold::Upper;
    EXPECT_EQ(RenameTo(u"i.mp3", u"\u0131.mp3"), MoveResult::Failed);
    EXPECT_EQ(ReadFile(there), "there");
}

TEST_F(Mover, AttributesAreSetBeforehandOrNotAtAll) {
    EXPECT_EQ(RenameTo(u"new.mp3"), MoveResult::Handled);
    EXPECT_EQ(disk_.Changes().size(), 1U);
    rules_.Attributes = ReadOnly;
    EXPECT_EQ(RenameTo(u"newer.mp3"), MoveResult::Handled);
    ASSERT_EQ(disk_.Changes().size(), 3U);
    EXPECT_EQ(disk_.Changes()[1].Operation, DiskOperation::SetAttributes);
    EXPECT_EQ(GetAttributes(temp_ / u"in/newer.mp3") & ReadOnly, ReadOnly);
}

TEST_F(Mover, TheRunIsToldBeforeAnExistingTargetIsLookedAt) {
    const Text there = temp_.File(u"in/there.mp3", "there");
    std::vector<bool> asked;
    rules_.BeforeTarget = [&](TextView target, bool asks) {
        EXPECT_EQ(target, there);
        asked.push_back(asks);
    };
    RenameTo(u"new.mp3");
    EXPECT_TRUE(asked.empty());
    rules_.Exists = IfExists::Replace;
    RenameTo(u"there.mp3");
    // It is the run's own now, so that even "Replace" asks.
    prompts_.Answers = {Answer::No};
    RenameTo(u"there.mp3");
    EXPECT_EQ(asked, (std::vector<bool>{false, true}));
}

TEST_F(Mover, ARenameNeverTurnsIntoACopy) {
    disk_.FailCall(DiskOperation::Rename, ErrorNumber::DifferentDrive);
    EXPECT_EQ(RenameTo(u"new.mp3"), MoveResult::Failed);
    EXPECT_EQ(InSource(), (Tree{"old.mp3"}));
}
