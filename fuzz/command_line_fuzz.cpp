// Any command line as one text, and any arguments one by one: both ways agree with a plain reading
// of the switches and the paths behind them.
#include <algorithm>

#include "app/start/command_line.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"
#include "fuzz/property.h"
#include "fuzz/targets.h"

namespace mdlPLM::fuzz {

namespace {

struct Read {
    int Mode = 0;
    Text Value;
    std::vector<Text> Paths;
};

// The switch at the start of `cmd` and its quoted value are taken off.
void TakeSwitch(TextView opening, int mode, Text& cmd, Read& read) {
    const auto length = static_cast<Pos>(opening.size());
    if (LCase(Left(cmd, length)) != opening) return;
    read.Mode = mode;
    read.Value.clear();
    const Pos quote = InStr(length + 1, cmd, u"\"");
    if (quote > 0) read.Value = Mid(cmd, length + 1, quote - length - 1);
    cmd = quote > 0 ? Mid(cmd, quote + 2) : Mid(cmd, length + 1);
}

Read PlainRead(TextView commandLine) {
    Read read;
    Text cmd = Trim(commandLine);
    if (cmd.empty()) return read;
    TakeSwitch(u"+rename=\"", 1, cmd, read);
    TakeSwitch(u"+ext=\"", 2, cmd, read);
    cmd = Replace(cmd, u"\"", u"");
    if (Trim(cmd).empty() || read.Mode == 0) return read;
    cmd += u" C:";
    for (;;) {
        const Pos network = InStr(3, cmd, u"\\\\");
        const Pos drive = InStr(3, cmd, u":");
        if (network == 0 && drive == 0) return read;
        Pos next = drive - 1;
        Pos begins = next;
        if (network > 0 && network - 2 < next) {
            next = network - 2;
            begins = network;
        }
        if (Text path = Trim(Left(cmd, next - 2)); !path.empty()) read.Paths.push_back(path);
        cmd = Mid(cmd, begins);
    }
}

void CheckOneText(const Text& line) {
    const BatchJob job = ParseCommandLine(line);
    const Read read = PlainRead(line);
    Require(job.EndProgram == !Trim(line).empty(), "another end of the program");
    Require(static_cast<int>(job.Mode) == read.Mode, "another mode");
    RequireEqual(job.Argument, read.Value, "another value of the switch");
    Require(job.Paths == read.Paths, "other paths");
    Require(job.AskExtension == (read.Mode == 2 && read.Value.empty() && !read.Paths.empty()),
            "the extension is asked for wrongly");
}

std::vector<Text> TakeArguments(BytesView bytes) {
    Input input(bytes);
    std::vector<Text> arguments;
    while (!input.Rest().empty()) arguments.push_back(input.LineText());
    return arguments;
}

// Every argument that is not a switch in front is one path, in its place and as it stands.
void CheckArguments(const std::vector<Text>& arguments) {
    const StartRequest request = ParseArguments(arguments);
    if (request.Kind == StartKind::List) {
        Require(request.ListPaths.size() + 1 == arguments.size(), "a listed path is lost");
        return;
    }
    if (request.Kind != StartKind::Batch) {
        Require(request.Job.Paths.empty(), "files without a switch");
        Require(arguments.empty() == (request.Kind == StartKind::Window), "another kind of start");
        return;
    }
    std::vector<Text> paths(request.Job.Paths);
    const auto lower = [](const Text& text) { return LCase(text); };
    std::size_t switches = StartsWith(lower(arguments[0]), u"+rename=") ? 1 : 0;
    if (switches < arguments.size() && StartsWith(lower(arguments[switches]), u"+ext=")) ++switches;
    std::vector<Text> expected(arguments.begin() + static_cast<Pos>(switches), arguments.end());
    std::erase(expected, Text());
    Require(switches > 0 && paths == expected, "other paths from arguments");
    Require(request.Job.EndProgram && request.Job.Mode != BatchMode::None, "a batch that is none");
}

void CheckExtension(const Text& path, const Text& extension) {
    const Text name = FileNameOfPath(path);
    const Pos dot = InStrRev(name, u".");
    const Text kept = dot > 0 ? Left(name, dot) : name;
    RequireEqual(NameWithExtension(name, extension), kept + extension, "another extension");
}

}  // namespace

void FuzzCommandLine(BytesView bytes) {
    const std::vector<Text> arguments = TakeArguments(bytes);
    Text line;
    for (const Text& argument : arguments) line += line.empty() ? argument : u" " + argument;
    CheckOneText(line);
    CheckArguments(arguments);
    for (std::size_t i = 1; i < arguments.size(); ++i) CheckExtension(arguments[i], arguments[0]);
}

}  // namespace mdlPLM::fuzz
