#include "tests/support/run_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "core/platform/path.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::test {

namespace {

std::vector<char*> Pointers(std::vector<Bytes>& texts) {
    std::vector<char*> pointers;
    for (Bytes& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<Bytes> Joined(const std::map<Bytes, Bytes>& environment) {
    std::vector<Bytes> variables;
    for (const auto& [name, value] : environment) variables.push_back(name + "=" + value);
    return variables;
}

}  // namespace

/// Files stand for the streams: no pipe can fill up while nobody reads.
struct RunningProgram::Streams {
    TempFolder Folder;
    Bytes In = NativePath(Folder / u"in");
    Bytes Out = NativePath(Folder / u"out");
    Bytes Errors = NativePath(Folder / u"errors");
};

RunningProgram::RunningProgram(const ProgramCall& call) : streams_(std::make_unique<Streams>()) {
    WriteFile(streams_->Folder / u"in", call.Input);
    constexpr int create = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, 0, streams_->In.c_str(), O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 1, streams_->Out.c_str(), create, 0600);
    ::posix_spawn_file_actions_addopen(&actions, 2, streams_->Errors.c_str(), create, 0600);
    if (!call.Folder.empty())
        ::posix_spawn_file_actions_addchdir_np(&actions, NativePath(call.Folder).c_str());
    std::vector<Bytes> arguments{NativePath(call.Program)};
    arguments.insert(arguments.end(), call.Arguments.begin(), call.Arguments.end());
    std::vector<Bytes> variables = Joined(call.Environment);
    const int failed = ::posix_spawn(&process_, arguments[0].c_str(), &actions, nullptr,
                                     Pointers(arguments).data(), Pointers(variables).data());
    ::posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) throw std::runtime_error("cannot start " + arguments[0]);
}

RunningProgram::~RunningProgram() {
    if (IsRunning()) ::kill(process_, SIGKILL);
    if (!ended_) ::waitpid(process_, &status_, 0);
}

bool RunningProgram::IsRunning() {
    if (!ended_) ended_ = ::waitpid(process_, &status_, WNOHANG) == process_;
    return !ended_;
}

void RunningProgram::Send(int signal) {
    if (IsRunning()) ::kill(process_, signal);
}

Bytes RunningProgram::SystemStatus() {
    if (!IsRunning()) return {};
    std::ifstream file("/proc/" + std::to_string(process_) + "/status");
    return {std::istreambuf_iterator<char>(file), {}};
}

bool RunningProgram::HasSignalIn(const Bytes& set, int signal) {
    const Bytes status = SystemStatus();
    const std::size_t at = status.find(set + ":\t");
    if (at == Bytes::npos) return false;
    const auto signals = std::stoull(status.substr(at + set.size() + 2, 16), nullptr, 16);
    return (signals >> static_cast<unsigned>(signal - 1) & 1U) != 0;
}

ProgramResult RunningProgram::Wait() {
    if (!ended_) ended_ = ::waitpid(process_, &status_, 0) == process_;
    return {WIFEXITED(status_) ? WEXITSTATUS(status_) : -1, ReadFile(streams_->Folder / u"out"),
            ReadFile(streams_->Folder / u"errors"), WIFSIGNALED(status_) ? WTERMSIG(status_) : 0};
}

ProgramResult RunToEnd(const ProgramCall& call) { return RunningProgram(call).Wait(); }

}  // namespace mdlPLM::test
