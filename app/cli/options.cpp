#include "app/cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>

#include "app/cli/option_rows.h"
#include "app/cli/report.h"

namespace mdlPLM::cli {

namespace {

constexpr const char* Description =
    "Puts a personal MP3 collection in order: clean names, sorted folders, tags.";

constexpr const char* Footer =
    "Folders are searched for files, and .srt, .m3u and .pls files are read.\n"
    "Exit status: 0 all done, 1 some failed, 2 used wrongly.";

void AddRow(CLI::App& app, Request& request, const OptionRow& row) {
    if (row.Value == nullptr) {
        app.add_flag_callback(
            row.Name, [&request, &row] { row.Take(request, {}); }, row.Help);
        return;
    }
    const auto take = [&request, &row](const std::vector<Bytes>& texts) {
        for (const Bytes& text : texts)
            if (!row.Take(request, text))
                throw CLI::ValidationError(row.Name, "\"" + text + "\" is not " + row.Value);
    };
    app.add_option_function<std::vector<Bytes>>(row.Name, take, row.Help)
        ->type_name(row.Value)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(row.Many == Values::UpToNextOption);
}

void AddCommand(CLI::App& app, Request& request, const CommandRow& row) {
    CLI::App* const command = app.add_subcommand(row.Name, row.Help);
    command->callback([&request, &row] { request.What = row.What; });
    for (const OptionRow& option : row.Options) AddRow(*command, request, option);
    if (row.TextFile) {
        command->add_option("TEXTFILE", request.Scan.TextFile, "The album text")->required();
    } else if (row.Paths != nullptr) {
        command->add_option("PATH", request.Common.Paths, row.Paths)->type_name("");
    }
    if (!TakesCommonRows(row)) return;
    for (const OptionRow& option : CommonRows()) AddRow(*command, request, option);
    command->footer(Footer);
}

/// What the parser says about wrong arguments, as one message of this program.
Bytes MisuseText(const CLI::ParseError& error, const CLI::App& app) {
    std::ostringstream out;
    std::ostringstream errors;
    (void)app.exit(error, out, errors);
    return Bytes(ProgramName) + ": " + errors.str();
}

void Finish(const CLI::ParseError& error, const CLI::App& app, ParsedArguments& parsed) {
    if (error.get_exit_code() != 0) {
        parsed.Exit = UsedWrongly;
        parsed.Errors = MisuseText(error, app);
        return;
    }
    std::ostringstream out;
    (void)app.exit(error, out, out);
    parsed.Exit = AllDone;
    parsed.Out = out.str();
}

/// What is wrong with the first word; empty when it is a command or an option.
Bytes FaultOfCommand(const std::vector<Bytes>& arguments) {
    const auto& commands = CommandRows();
    const auto isFirst = [&](const CommandRow& row) { return arguments[0] == row.Name; };
    const bool good =
        !arguments.empty() && (arguments[0].substr(0, 1) == "-" ||
                               std::any_of(commands.begin(), commands.end(), isFirst));
    if (good) return {};
    Bytes fault = arguments.empty() ? "a command is needed:"
                                    : "\"" + arguments[0] + "\" is no command; there are";
    for (const CommandRow& row : commands) fault += Bytes(" ") + row.Name;
    return Bytes(ProgramName) + ": " + fault + "\n";
}

}  // namespace

ParsedArguments ParseOptions(const std::vector<Bytes>& arguments) {
    ParsedArguments parsed;
    parsed.Errors = FaultOfCommand(arguments);
    if (!parsed.Errors.empty()) {
        parsed.Exit = UsedWrongly;
        return parsed;
    }
    CLI::App app(Description, Bytes(ProgramName));
    app.set_version_flag("--version", Bytes(ProgramName) + " " + PLM_VERSION, "Print the version");
    app.require_subcommand(1);
    // Making all of them takes longer than naming a file.
    const bool option = arguments[0].substr(0, 1) == "-";
    for (const CommandRow& row : CommandRows())
        if (option || arguments[0] == row.Name) AddCommand(app, parsed.Asked, row);
    try {
        // The parser takes them from the back.
        app.parse(std::vector<Bytes>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        Finish(error, app, parsed);
    }
    return parsed;
}

}  // namespace mdlPLM::cli
