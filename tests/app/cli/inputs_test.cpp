#include "app/cli/inputs.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "app/cli/commands.h"
#include "app/cli/report.h"
#include "core/platform/path.h"
#include "tests/app/cli/fake_console.h"
#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::cli {
namespace {

TEST(PathSpelling, PathsAreAbsoluteInsideAndAsGivenOutside) {
    PathSpelling spelling(u"/home/me/");
    EXPECT_EQ(spelling.Absolute(u"/m/a.mp3"), u"/m/a.mp3");
    EXPECT_EQ(spelling.Shown(u"/home/me/a.mp3"), u"/home/me/a.mp3");
    EXPECT_EQ(spelling.Absolute(u""), u"");
    EXPECT_EQ(spelling.Absolute(u"b/c.mp3"), u"/home/me/b/c.mp3");
    EXPECT_EQ(spelling.Shown(u"/home/me/b/c.mp3"), u"b/c.mp3");
    EXPECT_EQ(spelling.Shown(u"/home/me/a.mp3"), u"a.mp3");
    EXPECT_EQ(spelling.Shown(u"/m/a.mp3"), u"/m/a.mp3");
    EXPECT_EQ(spelling.Shown(u"/home/me/"), u"/home/me/");
}

TEST(PathSpelling, WithoutACurrentFolderPathsStayAsTheyAre) {
    PathSpelling spelling({});
    EXPECT_EQ(spelling.Absolute(u"b/c.mp3"), u"b/c.mp3");
    EXPECT_EQ(spelling.Shown(u"b/c.mp3"), u"b/c.mp3");
}

struct Gathered {
    explicit Gathered(const TempFolder& folder, std::vector<Bytes> paths, Bytes input = {}) {
        Asked.Common.Paths = std::move(paths);
        Streams.Input = std::move(input);
        Session session(Asked, Streams, folder.Path());
        PathSpelling spelling(folder.Path());
        Good = GatherFiles(session, spelling, List);
        Failures = session.Results.Failures();
    }
    [[nodiscard]] std::vector<Text> Names() const {
        std::vector<Text> names;
        for (FileList::Index row = 0; row < List.Count(); ++row)
            names.push_back(FileNameOfPath(List.Path(row)));
        return names;
    }
    Request Asked;
    FakeConsole Streams;
    FileList List;
    bool Good = false;
    std::size_t Failures = 0;
};

TEST(GatherFiles, KeepsTheOrderOfWhatWasGiven) {
    const TempFolder folder;
    (void)folder.File(u"sub/a.mp3");
    (void)folder.File(u"sub/b.MP3");
    (void)folder.File(u"sub/deep/c.mp3");
    (void)folder.File(u"sub/d.txt");
    (void)folder.File(u"list.m3u", "e.mp3\n");
    const Gathered gathered(folder, {"x.txt", "list.m3u", "-", "sub", "y.mp3"}, "in.mp3\n");
    EXPECT_TRUE(gathered.Good);
    EXPECT_EQ(gathered.Names(), (std::vector<Text>{u"x.txt", u"e.mp3", u"in.mp3", u"a.mp3",
                                                   u"b.MP3", u"c.mp3", u"y.mp3"}));
    EXPECT_EQ(gathered.List.SelectedCount(), 7U);
}

TEST(GatherFiles, AnEndlessListCanBeInterrupted) {
    const TempFolder folder;
    FakeConsole console;
    int looks = 0;
    console.Stop = [&] { return ++looks > 20; };
    const Bytes list = NativePath(folder.Link(u"endless.m3u", u"/dev/zero"));
    EXPECT_EQ(RunProgram({"names", "--no-user-settings", list}, console), SomeFailed);
}

TEST(GatherFiles, WithoutAnyPathItIsMisuse) {
    const TempFolder folder;
    EXPECT_FALSE(Gathered(folder, {}).Good);
    EXPECT_TRUE(Gathered(folder, {"-"}).Good);
}

TEST(GatherFiles, AFolderThatIsTooDeepIsAFailure) {
    const TempFolder folder;
    (void)folder.TooDeep(u"deep");
    const Gathered gathered(folder, {"deep"});
    EXPECT_EQ(gathered.Names(), std::vector<Text>{u"a.mp3"});
    EXPECT_EQ(gathered.Failures, 1U);
    EXPECT_EQ(gathered.Streams.Told.rfind("pellmore-cli: deep/ddd", 0), 0U);
    EXPECT_NE(gathered.Streams.Told.find("d/: the folder is too deep"), Bytes::npos);
}

TEST(GatherFiles, ANamedFolderThatCannotBeReadIsAFailure) {
    const TempFolder folder;
    const Text closed = folder.Folder(u"closed");
    (void)folder.Folder(u"empty");
    EXPECT_EQ(Gathered(folder, {"empty"}).Failures, 0U);
    ASSERT_EQ(::chmod(NativePath(closed).c_str(), 0), 0);
    const int wrong = RunInChild([&] {
        ObeyPermissions();
        const Gathered gathered(folder, {"closed"});
        return gathered.Streams.Told == "pellmore-cli: closed: Permission denied\n" ? 0 : 1;
    });
    ASSERT_EQ(::chmod(NativePath(closed).c_str(), 0755), 0);
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace mdlPLM::cli
