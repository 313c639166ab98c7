#include "tests/faults/scenarios.h"

#include <csignal>
#include <iostream>
#include <memory>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "app/cli/commands.h"
#include "app/cli/system_console.h"
#include "app/start/start_up.h"
#include "core/platform/path.h"
#include "core/settings/user_lists.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM::test {

const Bytes AudioBegin = "\xFF\xFB<audio of ";
const Bytes AudioEnd = ">";

namespace {

constexpr const char* One = "in/abba_-_one.mp3";
constexpr const char* Two = "in/kent_-_two.mp3";
constexpr const char* Three = "in/roxette_-_three.mp3";
constexpr const char* Four = "in/secret_service_-_four.mp3";
constexpr std::size_t Padding = 300;

// Long enough to be two transfers where half of one is done.
Bytes Audio(BytesView name) { return AudioBegin + Bytes(name) + AudioEnd + Noise(700); }

void Make(TextView folder, BytesView name, const Bytes& contents) {
    WriteFile(Text(folder) + PathFromNative(name), contents);
}

void MakeTwo(TextView folder) {
    Make(folder, One, Audio(One));
    Make(folder, Two, Audio(Two));
    Make(folder, "out/bystander.mp3", Audio("bystander"));
}

void MakeTwoAndTargets(TextView folder) {
    MakeTwo(folder);
    Make(folder, "out/Abba - One.mp3", "old target");
    Make(folder, "in/Abba - One.mp3", "old target");
}

void MakeTagged(TextView folder) {
    const Bytes tag = WholeTag(TextFrame("TIT2", "Old title"), Padding);
    for (const char* name : {One, Two})
        Make(folder, name, tag + Audio(name) + Trailer("Old title"));
}

void MakeFullTag(TextView folder) {
    const Bytes tag = WholeTag(TextFrame("TIT2", "Old title") + TextFrame("PRIV", "kept"), 0);
    Make(folder, One, tag + Audio(One) + Trailer("Old title"));
    Make(folder, Two, Audio(Two));
}

void MakeUntagged(TextView folder) { Make(folder, One, Audio(One)); }

// One has room for more in its tag, the others have to be written anew.
void MakeBatch(TextView folder) {
    const Bytes full = WholeTag(TextFrame("TIT2", "Old title"), 0);
    Make(folder, One, Audio(One));
    Make(folder, Two, full + Audio(Two) + Trailer("Old title"));
    Make(folder, Three, WholeTag(TextFrame("TIT2", "Old title"), Padding) + Audio(Three));
    Make(folder, Four, full + Audio(Four));
    Make(folder, "out/bystander.mp3", Audio("bystander"));
}

void MakeList(TextView folder) {
    MakeUntagged(folder);
    Make(folder, "list.srt", "old list\r\n");
}

void MakeSettings(TextView folder) {
    Make(folder, "config/PLM/PLM.ini", "[Settings]\nMove=1\nmine=kept\n");
}

void MakeReplaces(TextView folder) { Make(folder, "replaces.txt", "old\r\nlist\r\n"); }

void MakeAlbum(TextView folder) {
    MakeTagged(folder);
    Make(folder, "album.txt", "1. Waterloo\r\n2. Fernando\r\n");
}

void MakeUntaggedAlbum(TextView folder) {
    MakeTwo(folder);
    Make(folder, "album.txt", "1. Waterloo\r\n2. Fernando\r\n");
}

using Command = void(cli::Session&);

// The command line is taken apart once, before any process of its own: that is what takes longest.
std::function<int()> Cli(Command* command, const std::vector<Bytes>& arguments) {
    const auto parsed = std::make_shared<cli::ParsedArguments>(cli::ParseOptions(arguments));
    if (parsed->Exit) throw std::runtime_error(parsed->Errors);
    return [command, parsed] {
        const Text here = cli::CurrentFolder();
        ::setenv("XDG_CONFIG_HOME", NativePath(here + u"config").c_str(), 1);
        static const volatile std::sig_atomic_t interrupted = 0;
        cli::SystemConsole console(interrupted);
        cli::Session session(parsed->Asked, console, here);
        if (cli::TakeSettings(session)) command(session);
        console.Flush();
        return session.Results.Status();
    };
}

std::function<int()> Sort(const Bytes& method, std::vector<Bytes> more = {}) {
    std::vector<Bytes> arguments = {
        "sort", "--no-user-settings", "--method",           method, "--to",
        "out",  "--setting",          "bSetAttributes=True"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    arguments.insert(arguments.end(), {One, Two});
    return Cli(cli::RunSort, arguments);
}

std::function<int()> Tags(std::vector<Bytes> more, const std::vector<Bytes>& files = {One}) {
    // The ten bytes behind an old tag are handed on with its other frames: where those are left
    // out there is room in place.
    more.insert(more.begin(), {"tags", "--no-user-settings", "--setting", "bRemHiddenID3=True"});
    more.insert(more.end(), files.begin(), files.end());
    return Cli(cli::RunTags, more);
}

int SaveReplaces() {
    const Status saved = SaveReplacements(cli::CurrentFolder(), {{u"new", u"list"}});
    if (!saved.Ok()) std::cerr << "not saved\n" << std::flush;
    return saved.Ok() ? 0 : 1;
}

int BatchRename() {
    std::istringstream nothing;
    const Text here = cli::CurrentFolder();
    const Surroundings surroundings{
        nothing, std::cout, std::cerr, {here + u"none.ini", here + u"../", here + u"../"},
        false,   {},        {}};
    const int status = RunProgram(
        {u"+rename=%title - %artist.mp3", here + PathFromNative(One), here + PathFromNative(Two)},
        surroundings);
    // A rename that fails is skipped silently; the status tells.
    if (status != 0) std::cerr << "status " << status << std::flush;
    return status;
}

const Bytes NoFlagRename = "always=renameat2 22";        // EINVAL
const Bytes NoLink = "always=linkat 1";                  // EPERM
const Bytes NoKernelCopy = "always=copy_file_range 18";  // EXDEV
const Bytes FoldersAreDisks = "disks=1";
const std::vector<Bytes> Replacing = {"--if-exists", "replace"};

}  // namespace

void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.Name; }

const std::vector<Scenario>& Scenarios() {
    constexpr const char* target = "out/Abba - One.mp3";
    static const std::vector<Scenario> scenarios = {
        {"Copy", MakeTwo, Sort("copy"), Carries::Whole, {}, false, target},
        {"CopyIntoFolders",
         MakeTwo,
         Sort("copy", {"--genre", "--letter", "--artist", "0"}),
         Carries::Whole,
         {},
         true,
         "out/Unknown/A/Abba/Abba - One.mp3"},
        {"CopyByBuffer", MakeTwo, Sort("copy"), Carries::Whole, {NoKernelCopy}, false, target},
        {"CopyOverTargets", MakeTwoAndTargets, Sort("copy", Replacing)},
        {"Move", MakeTwo, Sort("move"), Carries::Whole, {}, false, target},
        {"MoveOverTargets", MakeTwoAndTargets, Sort("move", Replacing)},
        {"MoveByLink", MakeTwo, Sort("move"), Carries::Whole, {NoFlagRename}, false, target},
        {"MoveByClaim",
         MakeTwo,
         Sort("move"),
         Carries::Whole,
         {NoFlagRename, NoLink},
         false,
         target},
        {"MoveToAnotherDisk",
         MakeTwo,
         Sort("move"),
         Carries::Whole,
         {FoldersAreDisks},
         false,
         target},
        {"MoveToAnotherDiskOverTargets",
         MakeTwoAndTargets,
         Sort("move", Replacing),
         Carries::Whole,
         {FoldersAreDisks}},
        {"Rename", MakeTwo, Sort("rename"), Carries::Whole, {}, false, "in/Abba - One.mp3"},
        {"RenameOverTargets", MakeTwoAndTargets, Sort("rename", Replacing)},
        {"TagsInPlace", MakeTagged, Tags({"--set", "title=New"}), Carries::Audio},
        {"TrailerOnly", MakeTagged, Tags({"--v1", "--set", "title=New"}), Carries::Audio},
        {"TrailerRemoved", MakeTagged, Tags({"--remove", "v1"}), Carries::Audio},
        {"FirstTags", MakeUntagged, Tags({"--set", "title=New"}), Carries::OldOrNew},
        {"TagsWrittenAnew", MakeFullTag, Tags({"--set", "comment=" + Bytes(400, 'c')}),
         Carries::OldOrNew},
        {"TagsWrittenAnewByBuffer",
         MakeFullTag,
         Tags({"--set", "comment=" + Bytes(400, 'c')}),
         Carries::OldOrNew,
         {NoKernelCopy}},
        {"TagRemoved", MakeTagged, Tags({"--remove", "v2"}), Carries::OldOrNew},
        {"TagsOfABatch", MakeBatch,
         Tags({"--v2", "--set", "comment=" + Bytes(200, 'c')}, {One, Two, Three, Four}),
         Carries::OldOrNew},
        {"ListSaved", MakeUntagged, Cli(cli::RunList, {"list", "--output", "list.srt", One})},
        {"ListReplaced", MakeList,
         Cli(cli::RunList, {"list", "--if-exists", "replace", "--output", "list.srt", One})},
        {"SettingsStored", MakeSettings,
         Cli(cli::RunSettings, {"settings", "Move=2", "OutPattern=%title.mp3"})},
        {"ReplacementsSaved", MakeReplaces, SaveReplaces},
        {"NamesFromText", MakeAlbum,
         Cli(cli::RunScan,
             {"scan", "--no-user-settings", "--setting", "bRemHiddenID3=True", "album.txt",
              "--in-pattern", "%track. %title.mp3", "--apply", "--to-files", One, Two}),
         Carries::Audio},
        {"NamesAndFirstTagsFromText", MakeUntaggedAlbum,
         Cli(cli::RunScan, {"scan", "--no-user-settings", "album.txt", "--in-pattern",
                            "%track. %title.mp3", "--apply", "--to-files", One, Two}),
         Carries::Audio},
        {"Batch", MakeTwo, BatchRename, Carries::Whole, {}, false, "in/One - Abba.mp3"},
    };
    return scenarios;
}

}  // namespace mdlPLM::test
