#include <array>

#include "app/cli/commands.h"

namespace mdlPLM::cli {

namespace {

// In the order of Command.
constexpr std::array<void (*)(Session&), 8> Commands = {RunNames, RunSort, RunTags,     RunStream,
                                                        RunScan,  RunList, RunSettings, RunDemo};

}  // namespace

void RunCommand(Session& session) {
    if (TakeSettings(session)) Commands.at(static_cast<std::size_t>(session.Asked.What))(session);
}

int RunProgram(const std::vector<Bytes>& arguments, Console& console) {
    const ParsedArguments parsed = ParseOptions(arguments);
    if (parsed.Exit) {
        console.Out(parsed.Out);
        if (!parsed.Errors.empty()) console.Errors(parsed.Errors);
        console.Flush();
        return console.OutFailed() ? SomeFailed : *parsed.Exit;
    }
    Session session(parsed.Asked, console, CurrentFolder());
    RunCommand(session);
    for (const Text& path : session.LeftBehind.TakeRemoved())
        session.Results.Tell(path + u": left behind by a run that was ended; removed");
    session.Results.EndProgress();
    console.Flush();
    return session.Results.Status();
}

}  // namespace mdlPLM::cli
