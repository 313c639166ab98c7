// Every system call of a piece of work fails, or is the last one of its process, in turn. Whatever
// is struck: the contents of each file are there under a name that the user can find, nothing is
// left lying about, and the outcome is told.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <set>

#include "core/platform/path.h"
#include "tests/faults/fault_run.h"
#include "tests/faults/scenarios.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::test {
namespace {

using Tree = std::map<Bytes, Bytes>;

/// The files of a scenario, in a folder of their own beside what the work prints.
class Place {
public:
    explicit Place(const Scenario& scenario) : Under(folder_.Folder(u"under") + u"/") {
        scenario.MakeFiles(Under);
    }
    StruckRun Run(const Scenario& scenario, FaultPlan plan) const {
        plan.Lines = scenario.Disk;
        if (!plan.Stranger.empty()) plan.Stranger = NativePath(Under) + plan.Stranger;
        return RunStruck(plan, Under, folder_.Path(), scenario.Work);
    }
    /// A list that names files of the folder is the same wherever that folder is.
    [[nodiscard]] Tree Files() const {
        Tree files = ReadTree(Under);
        const Bytes here = NativePath(Under);
        for (auto& [name, contents] : files)
            if (const std::size_t at = contents.find(here); at != Bytes::npos)
                contents.replace(at, here.size(), "HERE/");
        return files;
    }

private:
    TempFolder folder_;

public:
    Text Under;
};

bool IsFolder(const Bytes& name) { return name.back() == '/'; }

Bytes LastName(const Bytes& path) { return path.substr(path.rfind('/') + 1); }

bool IsLeftOver(const Bytes& name) {
    const Bytes last = LastName(name);
    return last.substr(0, 4) == "plm-" && last.size() > 4 && last.substr(last.size() - 4) == ".tmp";
}

bool IsOf(const Tree& tree, const Bytes& name, const Bytes& contents) {
    const auto found = tree.find(name);
    return found != tree.end() && found->second == contents;
}

std::multiset<Bytes> ContentsOf(const Tree& tree) {
    std::multiset<Bytes> contents;
    for (const auto& [name, held] : tree)
        if (!IsFolder(name)) contents.insert(held);
    return contents;
}

Bytes AudioIn(const Bytes& contents) {
    const std::size_t begin = contents.find(AudioBegin);
    if (begin == Bytes::npos) return {};
    return contents.substr(begin, contents.find(AudioEnd, begin) - begin);
}

// A file in a few words: a failure must be readable.
Bytes InWords(const Bytes& contents) {
    const Bytes audio = AudioIn(contents);
    return std::to_string(contents.size()) + " bytes" +
           (audio.empty() ? ": " + contents.substr(0, 40) : " with " + audio.substr(3)) + " #" +
           std::to_string(std::hash<Bytes>()(contents) % 10000);
}

std::vector<Bytes> InWords(const Tree& tree) {
    std::vector<Bytes> words;
    for (const auto& [name, contents] : tree) words.push_back(name + " " + InWords(contents));
    return words;
}

bool BeginsWith(const Bytes& text, const char* start) { return text.rfind(start, 0) == 0; }

/// One scenario, what it makes of its files when nothing fails, and what may be found after a
/// fault.
class Judge {
public:
    explicit Judge(const Scenario& scenario) : scenario_(scenario) {
        const Place place(scenario);
        before_ = place.Files();
        const StruckRun run = place.Run(scenario, {});
        after_ = place.Files();
        EXPECT_EQ(run.Status, 0) << run.Out << run.Errors;
        EXPECT_NE(InWords(before_), InWords(after_));
    }

    /// True while there is a call to be struck.
    bool Strike(const FaultPlan& plan) {
        const Place place(scenario_);
        run_ = place.Run(scenario_, plan);
        plan_ = plan;
        found_ = place.Files();
        if (run_.Struck.empty()) return false;
        SCOPED_TRACE(plan.What + " at " + std::to_string(plan.At) + " (" + run_.Struck +
                     "), status " + std::to_string(run_.Status) + ", " + run_.Errors);
        ExpectEnded();
        ExpectContents();
        ExpectNames();
        ExpectTold();
        return !testing::Test::HasFailure();
    }

    [[nodiscard]] const Tree& Found() const { return found_; }
    [[nodiscard]] const StruckRun& Run() const { return run_; }
    [[nodiscard]] const Tree& WhenNothingFails() const { return after_; }

private:
    [[nodiscard]] bool IsKill() const { return plan_.What == "kill"; }
    [[nodiscard]] bool IsForGood() const {
        return plan_.What == "gone" || plan_.What == "readonly";
    }

    // A program that was killed ended so; every other one came to its own end.
    void ExpectEnded() const {
        const bool killed = run_.Status == StruckRun::Killed;
        EXPECT_EQ(killed, IsKill());
        EXPECT_LE(run_.Status, 2);
    }

    void ExpectContents() const {
        if (scenario_.How == Carries::Whole) {
            std::multiset<Bytes> lost = Required();
            for (const Bytes& contents : ContentsOf(found_))
                if (const auto at = lost.find(contents); at != lost.end()) lost.erase(at);
            EXPECT_TRUE(lost.empty()) << "lost: " << InWords(*lost.begin());
        } else if (scenario_.How == Carries::Audio) {
            for (const auto& [name, contents] : before_) ExpectAudio(AudioIn(contents));
        } else {
            for (const auto& [name, contents] : before_) ExpectOldOrNew(name, contents);
        }
    }

    void ExpectOldOrNew(const Bytes& name, const Bytes& contents) const {
        EXPECT_TRUE(IsOf(found_, name, contents) ||
                    (after_.count(name) > 0 && IsOf(found_, name, after_.at(name))))
            << name << " holds " << (found_.count(name) > 0 ? InWords(found_.at(name)) : "nothing");
    }

    /// What stands before and after when all goes well must stand at every moment.
    [[nodiscard]] std::multiset<Bytes> Required() const {
        const std::multiset<Bytes> before = ContentsOf(before_);
        const std::multiset<Bytes> after = ContentsOf(after_);
        std::multiset<Bytes> both;
        std::set_intersection(before.begin(), before.end(), after.begin(), after.end(),
                              std::inserter(both, both.end()));
        if (BeginsWith(run_.Struck, "stranger")) both.insert("stranger");
        return both;
    }

    void ExpectAudio(const Bytes& audio) const {
        EXPECT_TRUE(
            std::any_of(found_.begin(), found_.end(),
                        [&](const auto& file) { return file.second.find(audio) != Bytes::npos; }))
            << "lost: " << audio;
    }

    [[nodiscard]] bool IsOfResult(const Bytes& name, const Bytes& contents) const {
        if (!scenario_.AnyFolder) return IsOf(after_, name, contents);
        return std::any_of(after_.begin(), after_.end(), [&](const auto& file) {
            return LastName(file.first) == LastName(name) && file.second == contents;
        });
    }

    void ExpectNames() const {
        for (const auto& [name, contents] : found_) {
            if (IsFolder(name) && scenario_.AnyFolder) continue;
            if (IsLeftOver(name)) {
                EXPECT_TRUE(MayLeaveBehind()) << name;
            } else if (scenario_.How == Carries::Whole) {
                EXPECT_TRUE(IsOf(before_, name, contents) || IsOfResult(name, contents) ||
                            IsClaim(name, contents) || contents == "stranger")
                    << name << " holds " << InWords(contents);
            } else {
                EXPECT_TRUE(before_.count(name) + after_.count(name) > 0) << name;
            }
        }
    }

    // A temporary file stays where the process has no chance to remove it.
    [[nodiscard]] bool MayLeaveBehind() const {
        return IsKill() || IsForGood() || BeginsWith(run_.Struck, "unlink");
    }

    // Where a file system knows neither of the better ways, the new name is taken by an empty file
    // first.
    [[nodiscard]] bool IsClaim(const Bytes& name, const Bytes& contents) const {
        return MayLeaveBehind() && contents.empty() && after_.count(name) > 0 &&
               scenario_.Disk.size() == 2;
    }

    void ExpectTold() const {
        if (IsKill() || plan_.What == "stranger") return;
        if (run_.Status == 0 && !StaysAsItWas()) {
            EXPECT_TRUE(ContentsOf(found_) == ContentsOf(after_));
            if (!scenario_.AnyFolder) {
                EXPECT_EQ(InWords(found_), InWords(after_));
            }
        } else if (run_.Status != 0) {
            EXPECT_FALSE(run_.Errors.empty());
            if (scenario_.How == Carries::OldOrNew) ExpectEachNamed();
        }
    }

    void ExpectEachNamed() const {
        for (const auto& [name, contents] : before_) {
            if (!IsFolder(name) && IsOf(found_, name, contents) && !IsOf(after_, name, contents)) {
                EXPECT_NE(run_.Errors.find(name), Bytes::npos) << name << " is not named";
            }
        }
    }

    // A file that cannot be looked at counts as missing: it is passed over, and that is told.
    [[nodiscard]] bool StaysAsItWas() const {
        return run_.Out.find("skipped in/") != Bytes::npos ||
               run_.Out.find("kept in/") != Bytes::npos;
    }

    const Scenario& scenario_;
    Tree before_;
    Tree after_;
    FaultPlan plan_;
    StruckRun run_;
    Tree found_;
};

constexpr long FarMoreThanAll = 1000;

class Faults : public testing::TestWithParam<Scenario> {
protected:
    static void StrikeWithoutEffect(const Bytes& what) {
        Judge judge(GetParam());
        for (FaultPlan plan{what, 1, 0, {}, {}}; judge.Strike(plan); ++plan.At) {
            EXPECT_EQ(judge.Run().Status, 0);
            EXPECT_EQ(InWords(judge.Found()), InWords(judge.WhenNothingFails()));
        }
    }

    /// Strikes every call in turn; returns how many there were.
    static long StrikeAll(FaultPlan plan) {
        Judge judge(GetParam());
        for (plan.At = 1; plan.At < FarMoreThanAll; ++plan.At)
            if (!judge.Strike(plan)) break;
        if (HasFailure()) return plan.At;
        EXPECT_EQ(InWords(judge.Found()), InWords(judge.WhenNothingFails()))
            << "the last run was struck by nothing";
        EXPECT_EQ(judge.Run().Status, 0);
        return plan.At - 1;
    }
};

TEST_P(Faults, ACallThatFailsLosesNothingAndIsTold) { EXPECT_GT(StrikeAll({}), 5); }

TEST_P(Faults, ADiskThatIsGoneFromACallOnLosesNothing) { StrikeAll({"gone", 0, EIO, {}, {}}); }

TEST_P(Faults, ADiskThatIsFullFromACallOnLosesNothing) { StrikeAll({"full", 0, ENOSPC, {}, {}}); }

TEST_P(Faults, AProcessKilledBeforeACallLosesNothing) {
    EXPECT_GT(StrikeAll({"kill", 0, 0, {}, {}}), 5);
}

TEST_P(Faults, AnInterruptedCallIsMadeAgain) { StrikeWithoutEffect("interrupt"); }

TEST_P(Faults, ATransferThatDoesHalfIsGoneOnWith) { StrikeWithoutEffect("half"); }

TEST_P(Faults, SomebodyElsesFileOfTheNewNameStays) {
    if (GetParam().Target == nullptr) return;  // the target is replaced, or there is none
    Judge judge(GetParam());
    int put = 0;
    for (FaultPlan plan{"stranger", 1, 0, GetParam().Target, {}}; judge.Strike(plan); ++plan.At)
        if (BeginsWith(judge.Run().Struck, "stranger")) ++put;
    EXPECT_GT(put, 5);
}

INSTANTIATE_TEST_SUITE_P(Of, Faults, testing::ValuesIn(Scenarios()),
                         [](const auto& each) { return std::string(each.param.Name); });

}  // namespace
}  // namespace mdlPLM::test
