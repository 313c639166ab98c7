// Files, links and other things that a collection can hold: everything that walks over a list ends,
// loses nothing, and does the ordinary file between them.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "app/list/list_file_reader.h"
#include "app/namefromtext/rename_run.h"
#include "app/start/command_line.h"
#include "app/tags/tag_run.h"
#include "core/names/fix_file_name.h"
#include "core/tags/stream_info.h"
#include "tests/app/sort/sort_fixture.h"
#include "tests/support/collected_errors.h"
#include "tests/support/says_no.h"
#include "tests/support/tag_bytes.h"

using namespace mdlPLM;

namespace {

using Contents = std::vector<Bytes>;

struct Odd {
    const char* Name;
    /// Makes it in the folder; returns its path.
    Text (*Make)(const TempFolder& folder);
    bool IsFile = true;  ///< holds contents that must not be lost
};
void PrintTo(const Odd& odd, std::ostream* out) { *out << odd.Name; }

const Bytes Sound = test::Noise(400);
const Text Long(246, u'x');

Text MakePipe(const TempFolder& folder) {
    Text path = folder / u"odd - pipe.mp3";
    EXPECT_EQ(::mkfifo(NativePath(path).c_str(), 0600), 0);
    return path;
}

Text MakeSparse(const TempFolder& folder) {
    Text path = folder.File(u"odd - sparse.mp3");
    EXPECT_EQ(::truncate(NativePath(path).c_str(), 3 << 20), 0);
    return path;
}

Text MakeHardLink(const TempFolder& folder) {
    const Text real = folder.File(u"odd - real.mp3", "linked" + Sound);
    Text path = folder / u"odd - hard.mp3";
    EXPECT_EQ(::link(NativePath(real).c_str(), NativePath(path).c_str()), 0);
    return path;
}

const Odd Things[] = {
    {"Pipe", MakePipe, false},
    {"Folder", [](const TempFolder& folder) { return folder.Folder(u"odd - folder.mp3"); }, false},
    {"DanglingLink",
     [](const TempFolder& folder) { return folder.Link(u"odd - link.mp3", u"nowhere"); }, false},
    {"LoopingLink",
     [](const TempFolder& folder) { return folder.Link(u"odd - loop.mp3", u"odd - loop.mp3"); },
     false},
    {"LinkToAFile",
     [](const TempFolder& folder) {
         static_cast<void>(folder.File(u"elsewhere/real.mp3", "real" + Sound));
         return folder.Link(u"odd - link.mp3", u"elsewhere/real.mp3");
     }},
    {"HardLink", MakeHardLink},
    {"Sparse", MakeSparse},
    {"Empty", [](const TempFolder& folder) { return folder.File(u"odd - empty.mp3"); }},
    {"NameInNoEncoding",
     [](const TempFolder& folder) {
         return folder.File(PathFromNative("odd - \xFF\xFE.mp3"), "no text" + Sound);
     }},
    {"LongestName",
     [](const TempFolder& folder) { return folder.File(u"o - " + Long + u"-.mp3", "l" + Sound); }},
    {"Composed",
     [](const TempFolder& folder) {
         static_cast<void>(folder.File(u"odd - e\u0301.mp3", "decomposed" + Sound));
         return folder.File(u"odd - \u00E9.mp3", "composed" + Sound);
     }},
    {"Device", [](const TempFolder& folder) { return folder.Link(u"odd.mp3", u"/dev/zero"); },
     false},
};

/// A folder with the odd thing and an ordinary file behind it.
struct Place {
    explicit Place(const Odd& odd)
        : Thing(odd.Make(Folder)),
          Ordinary(Folder.File(u"some - ordinary.mp3", "ordinary" + Sound)),
          Before(Held()) {}

    /// The contents of all that is a file or leads to one.
    [[nodiscard]] Contents Held() const {
        Contents held;
        for (const Bytes& name : ListTree(Folder.Path())) {
            const Text path = Folder / PathFromNative(name);
            struct stat data {};
            if (::stat(NativePath(path).c_str(), &data) == 0 && S_ISREG(data.st_mode))
                held.push_back(ReadFile(path));
        }
        std::sort(held.begin(), held.end());
        return held;
    }
    void ExpectNothingLost() const {
        const Contents now = Held();
        for (const Bytes& held : Before)
            EXPECT_TRUE(std::binary_search(now.begin(), now.end(), held)) << held.substr(0, 20);
    }

    TempFolder Folder;
    Text Thing;
    Text Ordinary;
    Contents Before;
};

class OddFiles : public testing::TestWithParam<Odd> {
protected:
    OddFiles() {
        choices_.chkConvert = true;
        choices_.OutPattern = settings_.InPattern = u"%artist - %title.mp3";
    }
    [[nodiscard]] NamingContext Context() const {
        return {settings_, replacements_, settings_.InPattern};
    }

    Settings settings_;
    ReplacementList replacements_;
    SortChoices choices_;
    SystemDisk disk_;
    test::SaysNo no_;
};

}  // namespace

TEST_P(OddFiles, AreSortedOrNamed) {
    for (const SortMethod method : {SortMethod::Copy, SortMethod::Rename, SortMethod::Move}) {
        const Place place(GetParam());
        FileList list;
        list.Append({place.Thing, place.Ordinary});
        list.SelectAll();
        choices_.Method = method;
        choices_.txtTargetDir = place.Folder.Folder(u"to");
        const NamingContext context = Context();
        SortRun run(list, choices_, SortStart::All, context, disk_, no_);
        while (run.Step()) {
        }
        ASSERT_EQ(run.Report().Files.size(), 2U);
        EXPECT_EQ(run.Report().Files[1].What, FileFate::Done);
        const FileOutcome& thing = run.Report().Files[0];
        EXPECT_EQ(thing.Reason.Any(), thing.What != FileFate::Done);
        // A link that points from its own folder leads nowhere from another one; the file stays.
        place.ExpectNothingLost();
    }
}

TEST_P(OddFiles, AreTaggedOrNamed) {
    const Place place(GetParam());
    const auto setTitle = [](TextView, const FileTags&) {
        TagChange change;
        change.V1.Tag = "TAG";
        change.V1.Title = "New";
        change.Modes.V1 = TagMode::Write;
        return change;
    };
    TagRun run({place.Thing, place.Ordinary}, setTitle);
    while (run.Step()) {
    }
    const RunReport& report = run.Report();
    ASSERT_EQ(report.Files.size(), 2U);
    EXPECT_EQ(report.Files[1].What, FileFate::Done);
    EXPECT_EQ(ReadFile(place.Ordinary).substr(0, Sound.size() + 8), "ordinary" + Sound);
    for (const Bytes& before : place.Before) {
        const Contents now = place.Held();
        EXPECT_TRUE(std::any_of(now.begin(), now.end(), [&](const Bytes& held) {
            return held.substr(0, before.size()) == before;
        }));
    }
}

TEST_P(OddFiles, GetTheirNamesFromATextOrAreNamed) {
    const Place place(GetParam());
    RunChoices choices;
    choices.chkSaveID3v1 = choices.chkSaveID3v2 = true;
    choices.Tags.OutPattern = u"%track - %title.mp3";
    RenameRun run({{place.Thing, u"01 - First.mp3"}, {place.Ordinary, u"02 - Second.mp3"}}, choices,
                  settings_, disk_, no_);
    while (run.Step()) {
    }
    EXPECT_TRUE(run.Report().Completed);
    EXPECT_NE(ReadFile(place.Folder / u"02 - Second.mp3").find("ordinary" + Sound), Bytes::npos);
    EXPECT_EQ(place.Held().size(), place.Before.size());
}

TEST_P(OddFiles, AreRenamedInBatchModeOrPassedOver) {
    const Place place(GetParam());
    BatchJob job;
    job.Mode = BatchMode::Rename;
    job.Argument = u"%title - %artist.mp3";
    job.Paths = {place.Thing, place.Ordinary};
    RunBatch(job, Context(), disk_);
    EXPECT_EQ(ReadFile(place.Folder / u"Ordinary - Some.mp3"), "ordinary" + Sound);
    place.ExpectNothingLost();
}

TEST_P(OddFiles, AreLookedAtWithoutWaiting) {
    const Place place(GetParam());
    CollectedErrors errors;
    const Text name = FixFileName(place.Thing, choices_.OutPattern, Context());
    EXPECT_EQ(name.empty(), !FileExists(place.Thing));
    const FileTags tags = ReadFileTags(place.Thing, ID3v2Parts::Everything, errors);
    File file;
    if (file.Open(place.Thing, File::Mode::Read).Ok()) {
        EXPECT_TRUE(ReadStream(file, tags).Header.empty());
    }
    // As a list to be loaded it comes to its end, but for the one thing that has none.
    if (BytesView(GetParam().Name) == "Device") return;
    const Text list = place.Folder / u"list.m3u";
    EXPECT_EQ(::symlink(NativePath(place.Thing).c_str(), NativePath(list).c_str()), 0);
    FileList loaded;
    static_cast<void>(LoadListFile(list, loaded, no_));
    place.ExpectNothingLost();
}

INSTANTIATE_TEST_SUITE_P(All, OddFiles, testing::ValuesIn(Things),
                         [](const auto& each) { return std::string(each.param.Name); });
