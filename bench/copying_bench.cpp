// Sorting by copy against the bare calls of a copy, and with new names into genre and letter
// folders.
#include <algorithm>
#include <memory>
#include <stdexcept>

#include "app/sort/sort_engine.h"
#include "bench/bare_calls.h"
#include "bench/benchmarks.h"
#include "core/platform/path.h"

namespace mdlPLM::bench {

namespace {

constexpr int Rounds = 3;
/// More would only fill the disk: the work is the same for each file.
constexpr std::size_t MostFiles = 10000;

/// Nothing is asked in these sorts; a question would mean that something went wrong.
class NoPrompts : public Prompts {
public:
    Answer AskYesNo(const Message& question) override { Refuse(question); }
    Answer AskYesNoCancel(const Message& question) override { Refuse(question); }
    void Inform(const Message& message) override { Refuse(message); }
    void Critical(const Message& message) override { Refuse(message); }
    std::optional<Text> AskText(const Message& question) override { Refuse(question); }

private:
    [[noreturn]] static void Refuse(const Message& message) {
        throw std::runtime_error(NativePath(message.Body));
    }
};

SortChoices CopyTo(const Text& folder, bool newPlaces) {
    SortChoices choices;
    choices.Method = SortMethod::Copy;
    choices.txtTargetDir = folder;
    choices.OutPattern = u"%artist - %title.mp3";
    choices.chkConvert = choices.chkGenre = choices.chkAlphabetical = newPlaces;
    return choices;
}

/// A sort of these files, one by one, with everything it needs.
class Sort {
public:
    Sort(const std::vector<Text>& paths, SortChoices choices) : files_(paths.size()) {
        list_.Append(paths);
        list_.SelectAll();
        run_ = std::make_unique<SortRun>(list_, std::move(choices), SortStart::All, context_, disk_,
                                         prompts_);
    }
    void Step() { run_->Step(); }
    void Check() const {
        if (run_->Handled() == files_) return;
        throw std::runtime_error(NativePath(FailureText(run_->Report(), SortWording)));
    }

private:
    std::size_t files_;
    Settings settings_;
    ReplacementList replacements_;
    NamingContext context_{settings_, replacements_, settings_.InPattern};
    FileList list_;
    SystemDisk disk_;
    NoPrompts prompts_;
    std::unique_ptr<SortRun> run_;
};

struct Times {
    double Bare = 0;
    double Sorted = 0;
    double InNewPlaces = 0;
};

/// File by file in turns, so that all three meet the file system in the same mood.
Times CopyInTurns(const std::vector<Text>& paths, Targets& targets) {
    const Bytes bare = NativePath(targets.Next());
    Sort sorted(paths, CopyTo(targets.Next(), false));
    Sort inNewPlaces(paths, CopyTo(targets.Next(), true));
    Times times;
    for (const Text& path : paths) {
        const Bytes from = NativePath(path);
        const Bytes to = bare + NativePath(FileNameOfPath(path));
        times.Bare += Seconds([&] { CopyBare(from, to); });
        times.Sorted += Seconds([&] { sorted.Step(); });
        times.InNewPlaces += Seconds([&] { inNewPlaces.Step(); });
    }
    sorted.Check();
    inNewPlaces.Check();
    return times;
}

}  // namespace

void MeasureCopying(const Collection& collection, Column& column) {
    const std::size_t files = std::min(collection.Paths().size(), MostFiles);
    const std::vector<Text> paths(collection.Paths().begin(),
                                  collection.Paths().begin() + static_cast<std::ptrdiff_t>(files));
    Targets targets;
    Times best = CopyInTurns(paths, targets);
    for (int round = 1; round < Rounds; ++round) {
        const Times times = CopyInTurns(paths, targets);
        if (times.Bare + times.Sorted < best.Bare + best.Sorted) best = times;
    }
    column.AddTime("Bare calls of a copy (at most 10,000)", best.Bare, files);
    column.AddTime("Sort by copy (at most 10,000)", best.Sorted, files);
    column.AddRatio("Sort by copy against the bare calls", best.Sorted, best.Bare);
    column.AddTime("... with new names, genre and letter folders", best.InNewPlaces, files);
}

}  // namespace mdlPLM::bench
