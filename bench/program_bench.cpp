// pellmore-cli as whole processes, from their start to their end, against a program that does
// nothing and against loops of the bare system calls, in processor time.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

#include "bench/bare_calls.h"
#include "bench/benchmarks.h"
#include "core/platform/path.h"

namespace mdlPLM::bench {

namespace {

constexpr int StartRounds = 300;
constexpr int Rounds = 7;
constexpr int CopyRounds = 5;
/// More would only fill the disk: the work is the same for each file.
constexpr std::size_t MostFiles = 10000;

/// Runs a program to its end, its output thrown away.
void RunProcess(std::vector<Bytes> words) {
    std::vector<char*> pointers;
    for (Bytes& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int failed =
        ::posix_spawn(&process, pointers[0], &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    int status = -1;
    if (failed != 0 || ::waitpid(process, &status, 0) != process || status != 0)
        throw std::runtime_error("failed: " + words[0]);
}

void MeasureStart(const Bytes& file, Column& column) {
    const auto [empty, names] = FastestOfBoth(
        StartRounds, [] { RunProcess({PLM_EMPTY}); },
        [&] {
            RunProcess({PLM_CLI, "names", file});
        },
        ProcessorSeconds);
    column.AddTime("Start and end of an empty C program", empty, 1);
    column.AddTime("pellmore-cli names, one file", names, 1);
    column.AddRatio("... against the empty program", names, empty);
}

void MeasureNaming(const Bytes& folder, Column& column) {
    const auto [bare, names] = FastestOfBoth(
        Rounds, [&] { ReadFolderBare(folder); },
        [&] {
            RunProcess({PLM_CLI, "names", folder});
        },
        ProcessorSeconds);
    column.AddTime("Bare walk and reads", bare, column.Files());
    column.AddTime("pellmore-cli names, the folder", names, column.Files());
    column.AddRatio("... against the bare calls", names, bare);
}

using CopyOne = void (*)(const Bytes& from, const Bytes& to);

double SecondsOfBare(const std::vector<Bytes>& paths, CopyOne copy, Targets& targets) {
    const Bytes folder = NativePath(targets.Next());
    return ProcessorSeconds([&] {
        for (const Bytes& path : paths) copy(path, folder + path.substr(path.rfind('/') + 1));
    });
}

double SecondsOfSort(const Bytes& list, Targets& targets) {
    const Bytes folder = NativePath(targets.Next());
    return ProcessorSeconds([&] {
        RunProcess({PLM_CLI, "sort", "--method", "copy", "--keep-names", "--to", folder, list});
    });
}

/// A playlist of the files, so that both sides copy the same ones.
Bytes ListOf(const std::vector<Bytes>& paths, const Text& folder) {
    Bytes list = NativePath(folder) + "list.m3u";
    const int file = ::open(list.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    Bytes lines;
    for (const Bytes& path : paths) lines += path + "\n";
    const auto written = ::write(file, lines.data(), lines.size());
    ::close(file);
    if (written != static_cast<ssize_t>(lines.size())) throw std::runtime_error("cannot " + list);
    return list;
}

void MeasureCopies(const std::vector<Bytes>& paths, const char* what, Column& column) {
    Targets targets;
    const Bytes list = ListOf(paths, targets.Next());
    double bare = 1e9;
    double safe = 1e9;
    double sorted = 1e9;
    for (int round = 0; round < CopyRounds; ++round) {
        bare = std::min(bare, SecondsOfBare(paths, CopyBare, targets));
        safe = std::min(safe, SecondsOfBare(paths, CopyBareInTwoSteps, targets));
        sorted = std::min(sorted, SecondsOfSort(list, targets));
    }
    column.AddTime("Bare calls of a copy, " + Bytes(what), bare, paths.size());
    column.AddTime("pellmore-cli sort --method copy, the same", sorted, paths.size());
    column.AddRatio("... against the bare calls", sorted, bare);
    column.AddRatio("... against them with a temporary name and a rename", sorted, safe);
}

/// Files of the size of a song: the same ones, each many times behind itself.
std::vector<Bytes> MakeSongs(const std::vector<Bytes>& paths, const Text& folder) {
    constexpr std::size_t Songs = 25;
    constexpr std::size_t SongSize = 4 << 20;
    std::vector<Bytes> songs;
    Bytes song;
    while (song.size() < SongSize) song += SongFile(0);
    for (std::size_t i = 0; i < std::min(Songs, paths.size()); ++i) {
        songs.push_back(NativePath(folder) + std::to_string(i) + ".mp3");
        const int file = ::open(songs.back().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        const auto written = ::write(file, song.data(), song.size());
        ::close(file);
        if (written != static_cast<ssize_t>(song.size())) throw std::runtime_error("disk full");
    }
    return songs;
}

}  // namespace

void MeasureProgram(const Collection& collection, Column& column) {
    std::vector<Bytes> paths;
    for (const Text& path : collection.Paths()) paths.push_back(NativePath(path));
    Bytes folder = NativePath(collection.Folder());
    folder.pop_back();
    MeasureStart(paths[0], column);
    MeasureNaming(folder, column);
    paths.resize(std::min(paths.size(), MostFiles));
    MeasureCopies(paths, "small files (at most 10,000)", column);
    Targets songs;
    MeasureCopies(MakeSongs(paths, songs.Next()), "25 files of 4 MB", column);
}

}  // namespace mdlPLM::bench
