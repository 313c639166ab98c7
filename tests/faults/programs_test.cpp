// The real programs, killed before every system call on their files and started again, or asked to
// end by a signal there.
#include <gtest/gtest.h>

#include <array>
#include <csignal>

#include "core/platform/path.h"
#include "tests/faults/fault_run.h"
#include "tests/support/contents.h"
#include "tests/support/places.h"
#include "tests/support/run_program.h"
#include "tests/support/tag_bytes.h"

namespace mdlPLM::test {
namespace {

struct Case {
    const char* Name;
    Bytes (*Program)();
    std::vector<Bytes> Arguments;
    std::vector<Bytes> Disk;
    bool Replaces = false;
};
void PrintTo(const Case& each, std::ostream* out) { *out << each.Name; }

const Bytes Sound = Noise(300);
const Bytes OldTarget = "there before";

class KilledPrograms : public testing::TestWithParam<Case> {
protected:
    /// A folder with two files to be worked on.
    struct Place {
        Place() : Under(Folder.Folder(u"under") + u"/") {
            WriteFile(Under + u"in/abba_-_one.mp3", "1" + Sound);
            WriteFile(Under + u"in/kent_-_two.mp3", "2" + Sound);
            WriteFile(Under + u"out/bystander.mp3", "3" + Sound);
            if (GetParam().Replaces) WriteFile(Under + u"out/Abba - One.mp3", OldTarget);
        }
        TempFolder Folder;
        Text Under;
        Text Log = Folder / u"log";
    };

    static ProgramResult Run(const Place& place, const FaultPlan& plan) {
        const Bytes home = NativePath(place.Folder.Path());
        const std::map<Bytes, Bytes> environment = {
            {"HOME", home},
            {"XDG_CONFIG_HOME", home + "config"},
            {"XDG_DATA_HOME", home + "data"},
            {"LD_PRELOAD", FailingCallsFile()},
            {"ASAN_OPTIONS", "verify_asan_link_order=0"},
            {"PLM_FAULTS", Rendered(plan, place.Under, place.Log)}};
        return RunToEnd({PathFromNative(GetParam().Program()),
                         GetParam().Arguments,
                         environment,
                         {},
                         place.Under});
    }

    static void ExpectNothingLost(const Place& place) {
        EXPECT_EQ(LostSince({"1" + Sound, "2" + Sound, "3" + Sound}, place.Under),
                  std::vector<Bytes>{});
        if (!GetParam().Replaces) return;
        const Bytes target = ReadFile(place.Under + u"out/Abba - One.mp3");
        EXPECT_TRUE(target == OldTarget || target == "1" + Sound);
    }
};

TEST_P(KilledPrograms, LoseNothingAndGoOnWhenStartedAgain) {
    FaultPlan plan{"kill", 1, 0, {}, GetParam().Disk};
    for (;; ++plan.At) {
        const Place place;
        const ProgramResult result = Run(place, plan);
        if (!IsThere(place.Log)) break;
        SCOPED_TRACE(ReadFile(place.Log));
        EXPECT_EQ(result.Status, -1);
        ExpectNothingLost(place);
        EXPECT_NE(Run(place, {"none", 0, 0, {}, GetParam().Disk}).Status, -1);
        ExpectNothingLost(place);
    }
    EXPECT_GT(plan.At, 5);
}

constexpr std::array<int, 4> StopSignals = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

class SignalledPrograms : public KilledPrograms {
protected:
    static void ExpectNothingLeftBehind(const Place& place) {
        for (const Bytes& name : ListTree(place.Under))
            EXPECT_EQ(name.find("plm-"), Bytes::npos) << name;
    }
    // The file at hand is finished, no further one is begun.
    static void ExpectTheSecondFileNotBegun(const Place& place) {
        EXPECT_EQ(ReadFile(place.Under + u"in/kent_-_two.mp3"), "2" + Sound);
        EXPECT_FALSE(IsThere(place.Under + u"out/Kent - Two.mp3"));
    }
};

TEST_P(SignalledPrograms, EndBehindTheFileAtHand) {
    int first = 0;
    FaultPlan plan{"signal", 1, 0, {}, GetParam().Disk};
    for (;; ++plan.At) {
        plan.Code = StopSignals.at(static_cast<std::size_t>(plan.At) % StopSignals.size());
        const Place place;
        const ProgramResult result = Run(place, plan);
        if (!IsThere(place.Log)) break;
        const Bytes struck = ReadFile(place.Log);
        SCOPED_TRACE(struck);
        EXPECT_EQ(result.Signal, 0);
        ExpectNothingLost(place);
        ExpectNothingLeftBehind(place);
        if (struck.find("abba") == Bytes::npos) continue;
        ++first;
        EXPECT_EQ(result.Status, 1);
        EXPECT_NE(result.Errors.find("stopped"), Bytes::npos) << result.Errors;
        ExpectTheSecondFileNotBegun(place);
    }
    EXPECT_GT(first, 3);
}

const std::vector<Bytes> Sorted = {"in/abba_-_one.mp3", "in/kent_-_two.mp3"};

std::vector<Bytes> Sort(std::vector<Bytes> more) {
    more.insert(more.begin(), {"sort", "--no-user-settings", "--to", "out"});
    more.insert(more.end(), Sorted.begin(), Sorted.end());
    return more;
}

const auto Cases = testing::Values(
    Case{"Copy", CommandLineFile, Sort({"--method", "copy"}), {}},
    Case{"Move", CommandLineFile, Sort({"--method", "move"}), {}},
    Case{"MoveToAnotherDisk", CommandLineFile, Sort({"--method", "move"}), {"disks=1"}},
    Case{"CopyThatReplaces",
         CommandLineFile,
         Sort({"--method", "copy", "--if-exists", "replace"}),
         {},
         true},
    Case{"MoveThatReplaces",
         CommandLineFile,
         Sort({"--method", "move", "--if-exists", "replace"}),
         {},
         true},
    Case{"BatchMode", ProgramFile, {"+rename=%title - %artist.mp3", Sorted[0], Sorted[1]}, {}});

const auto NameOfCase = [](const auto& each) { return std::string(each.param.Name); };

INSTANTIATE_TEST_SUITE_P(At, KilledPrograms, Cases, NameOfCase);

INSTANTIATE_TEST_SUITE_P(At, SignalledPrograms, Cases, NameOfCase);

}  // namespace
}  // namespace mdlPLM::test
