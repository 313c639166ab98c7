#include "app/start/command_line.h"

#include <algorithm>

#include "core/names/fix_file_name.h"
#include "core/names/new_name.h"
#include "core/platform/path.h"
#include "core/text/letter_case.h"

namespace mdlPLM {

namespace {

constexpr TextView Quote = u"\"";
constexpr TextView NetworkPath = u"\\\\";
constexpr TextView Sentinel = u" C:";

struct Switch {
    TextView Word;  // with its "=", without the opening double quote of the value
    BatchMode Mode;
};

constexpr Switch RenameSwitch = {u"+rename=", BatchMode::Rename};
constexpr Switch ExtensionSwitch = {u"+ext=", BatchMode::Extension};
constexpr TextView ListSwitch = u"+list";

bool BeginsWithWord(TextView text, TextView word) {
    return EqualIgnoringCase(text.substr(0, word.size()), word);
}

// A switch and its quoted value at the start of `rest`; both and one separator are taken off. A
// value without its closing quote is empty.
bool TakeSwitch(const Switch& wanted, Text& rest, BatchJob& job) {
    const Text opening = Text(wanted.Word).append(Quote);
    if (!BeginsWithWord(rest, opening)) return false;
    const Pos start = static_cast<Pos>(opening.size()) + 1;
    const Pos end = InStr(start, rest, Quote);
    job.Mode = wanted.Mode;
    job.Argument = end > 0 ? Mid(rest, start, end - start) : Text();
    rest = Mid(rest, end > 0 ? end + 2 : start);
    return true;
}

// The length of the path at the start of `rest`, and the position where the next one begins.
struct PathEnd {
    Pos Length = 0;
    Pos Next = 0;  // 0: there is no further path
};

PathEnd FindPathEnd(TextView rest) {
    const Pos network = InStr(3, rest, NetworkPath);
    const Pos drive = InStr(3, rest, u":");
    if (network == 0 && drive == 0) return {};
    // Kept on purpose: the path before a network path loses its last two characters.
    if (network != 0 && network - 2 < drive - 1) return {network - 4, network};
    return {drive - 3, drive - 1};
}

std::vector<Text> SplitPaths(Text rest) {
    std::vector<Text> paths;
    rest += Sentinel;
    for (PathEnd end = FindPathEnd(rest); end.Next > 0; end = FindPathEnd(rest)) {
        Text path = Trim(Left(rest, end.Length));
        if (!path.empty()) paths.push_back(std::move(path));
        rest = Mid(rest, end.Next);
    }
    return paths;
}

Text WithoutQuotes(TextView value) {
    const bool quoted = value.size() >= 2 && value.front() == u'"' && value.back() == u'"';
    return Text(quoted ? value.substr(1, value.size() - 2) : value);
}

bool TakeSwitchArgument(const Switch& wanted, TextView argument, BatchJob& job) {
    if (!BeginsWithWord(argument, wanted.Word)) return false;
    job.Mode = wanted.Mode;
    job.Argument = WithoutQuotes(argument.substr(wanted.Word.size()));
    return true;
}

bool NeedsExtension(const BatchJob& job) {
    return job.Mode == BatchMode::Extension && job.Argument.empty() && !job.Paths.empty();
}

StartRequest ParseBatchArguments(const std::vector<Text>& arguments) {
    StartRequest request;
    BatchJob& job = request.Job;
    std::size_t next = 0;
    if (TakeSwitchArgument(RenameSwitch, arguments[next], job)) ++next;
    if (next < arguments.size() && TakeSwitchArgument(ExtensionSwitch, arguments[next], job))
        ++next;
    request.Kind = next > 0 ? StartKind::Batch : StartKind::Misuse;
    job.EndProgram = true;
    if (next == 0) return request;
    std::copy_if(arguments.begin() + static_cast<std::ptrdiff_t>(next), arguments.end(),
                 std::back_inserter(job.Paths), [](const Text& path) { return !path.empty(); });
    job.AskExtension = NeedsExtension(job);
    return request;
}

struct NewName {
    Text Name;
    Text Fault;  // why there is none, in words
};

NewName NameByPattern(TextView path, TextView pattern, const NamingContext& context,
                      const Language& words) {
    SilentErrors silent;
    const FileTags tags = ReadFileTags(path, ID3v2Parts::NameFields, silent);
    if (const Status read = ReadingFault(tags, context.Values); !read.Ok())
        return {{}, words(Describe(read.Number()))};
    return {FixFileName(path, pattern, tags, context), {}};
}

NewName NewNameOf(const BatchJob& job, TextView path, const NamingContext& context,
                  const Language& words) {
    NewName made = job.Mode == BatchMode::Rename
                       ? NameByPattern(path, job.Argument, context, words)
                       : NewName{NameWithExtension(FileNameOfPath(path), job.Argument), {}};
    if (made.Fault.empty()) made.Fault = FaultOfNewName(made.Name, context.Values, words);
    return made;
}

enum class Outcome { Renamed, Unchanged, Failed };

Outcome RenameTo(TextView path, TextView newName, Disk& disk) {
    const Text newPath = FolderOfPath(path).append(newName);
    if (newPath == path) return Outcome::Unchanged;
    const Status renamed = disk.Rename(path, newPath, IfTargetExists::Fail);
    if (renamed.Ok()) return Outcome::Renamed;
    return disk.IsSameFile(path, newPath) ? Outcome::Unchanged : Outcome::Failed;
}

void Count(Outcome outcome, BatchResult& result) {
    if (outcome == Outcome::Renamed) ++result.Renamed;
    if (outcome == Outcome::Unchanged) ++result.Unchanged;
    if (outcome == Outcome::Failed) ++result.Failed;
}

bool HasWork(const BatchJob& job) {
    return job.Mode == BatchMode::Rename ||
           (job.Mode == BatchMode::Extension && !job.Argument.empty());
}

}  // namespace

BatchJob ParseCommandLine(TextView commandLine) {
    BatchJob job;
    Text rest = Trim(commandLine);
    if (rest.empty()) return job;
    job.EndProgram = true;
    TakeSwitch(RenameSwitch, rest, job);
    // Right behind the other switch this one overrides it.
    TakeSwitch(ExtensionSwitch, rest, job);
    rest = Replace(rest, Quote, {});
    if (job.Mode == BatchMode::None || Trim(rest).empty()) return job;
    job.Paths = SplitPaths(std::move(rest));
    job.AskExtension = NeedsExtension(job);
    return job;
}

StartRequest ParseArguments(const std::vector<Text>& arguments) {
    StartRequest request;
    if (arguments.empty()) return request;
    const Text& first = arguments.front();
    if (first == u"--help") {
        request.Kind = StartKind::Help;
    } else if (first == u"--version") {
        request.Kind = StartKind::Version;
    } else if (EqualIgnoringCase(first, ListSwitch)) {
        request.Kind = StartKind::List;
        request.ListPaths.assign(arguments.begin() + 1, arguments.end());
    } else {
        request = ParseBatchArguments(arguments);
    }
    return request;
}

bool SettleExtension(BatchJob& job, Prompts& prompts) {
    if (!job.AskExtension) return true;
    job.Argument = prompts.AskText({u"PLM", Text(ExtensionPrompt), {}}).value_or(Text());
    job.AskExtension = job.Argument.empty();
    return !job.AskExtension;
}

int BatchResult::ExitStatus() const {
    if (Failed + NotBegun > 0) return 1;
    return Renamed + Unchanged > 0 ? 0 : 2;
}

BatchResult RunBatch(const BatchJob& job, const NamingContext& context, Disk& disk,
                     const BatchManner& manner) {
    BatchResult result;
    if (!HasWork(job)) return result;
    for (const Text& path : job.Paths) {
        if (manner.ShouldStop && manner.ShouldStop()) break;
        const bool isFile = disk.Exists(path) && !disk.IsFolder(path);
        const NewName made = isFile ? NewNameOf(job, path, context, manner.Words) : NewName();
        const bool canBe = isFile && made.Fault.empty();
        if (!made.Fault.empty()) result.Nameless.push_back({path, made.Fault});
        Count(canBe ? RenameTo(path, made.Name, disk) : Outcome::Failed, result);
    }
    result.NotBegun = job.Paths.size() - result.Renamed - result.Unchanged - result.Failed;
    return result;
}

Text NameWithExtension(TextView name, TextView extension) {
    const Pos dot = InStrRev(name, u".");
    return (dot > 0 ? Left(name, dot) : Text(name)).append(extension);
}

}  // namespace mdlPLM
