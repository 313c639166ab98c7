#include "app/start/start_up.h"

#include <algorithm>
#include <array>
#include <istream>
#include <ostream>

#include "core/names/fixing_rules.h"
#include "core/platform/tidy_disk.h"
#include "core/settings/user_lists.h"
#include "core/text/code_page.h"

namespace mdlPLM {

namespace {

constexpr int ExitDone = 0;
constexpr int ExitFailed = 1;
constexpr int ExitNothingDone = 2;

/// Batch mode has one thing to ask for: the extension.
class StartPrompts final : public Prompts {
public:
    explicit StartPrompts(const Surroundings& surroundings) : surroundings_(surroundings) {}
    Answer AskYesNo(const Message& /*question*/) override { return Answer::No; }
    Answer AskYesNoCancel(const Message& /*question*/) override { return Answer::Cancel; }
    void Inform(const Message& message) override { Critical(message); }
    void Critical(const Message& message) override {
        surroundings_.Errors << ToUtf8(Replace(message.Body, CrLf, u"\n")) << '\n';
    }
    std::optional<Text> AskText(const Message& question) override {
        return surroundings_.HasDisplay ? surroundings_.AskInBox(question) : AskLine(question);
    }

private:
    std::optional<Text> AskLine(const Message& question) {
        surroundings_.Out << ToUtf8(question.Body) << std::flush;
        Bytes line;
        if (!std::getline(surroundings_.In, line)) {
            surroundings_.Out << '\n';
            return std::nullopt;
        }
        if (!line.empty() && line.back() == '\r') line.pop_back();
        return FromUtf8(line);
    }

    const Surroundings& surroundings_;
};

int Print(std::ostream& out, TextView text) {
    out << ToUtf8(text) << std::flush;
    return out.good() ? ExitDone : ExitFailed;
}

int Refuse(std::ostream& errors, TextView text) {
    Print(errors, text);
    return ExitNothingDone;
}

/// What the program refuses to do is said under its name, as programs of the command line do.
Text Refusal(TextView reason) { return Text(u"pellmore: ").append(reason).append(u"\n"); }

/// On one line and harmless to a terminal, whatever the name holds.
Text Nameless(const NamelessFile& failure) {
    return Refusal(BlankControlCharacters(failure.Path + u": " + failure.Reason));
}

Text UnreadSettingsText(const StartData& data, const Language& words) {
    const Text told = words(
        PLM_TRANSLATE("Texts", "the settings in \"%1\" could not be read; the defaults hold."),
        {data.Store.Path()});
    return told + u" " + UnreadStoreText(data.StoreRead, words);
}

Text RemovedLeftOver(TextView path, const Language& words) {
    return Refusal(
        words(PLM_TRANSLATE("Texts", "left behind by a run that was ended, and removed: %1"),
              {BlankControlCharacters(Text(path))}));
}

Text Count(std::size_t count) { return NumberText(static_cast<long long>(count)); }

/// What a batch run has to tell beyond its status.
void TellBatch(const BatchResult& result, std::size_t files, const Surroundings& surroundings) {
    for (const NamelessFile& failure : result.Nameless)
        Print(surroundings.Errors, Nameless(failure));
    if (result.NotBegun > 0)
        Print(surroundings.Errors,
              Refusal(surroundings.Words(PLM_TRANSLATE("Texts", "stopped before %1 of %2 files."),
                                         {Count(result.NotBegun), Count(files)})));
}

int RunBatchMode(BatchJob job, const Surroundings& surroundings) {
    const Language& words = surroundings.Words;
    if (job.Paths.empty())
        return Refuse(surroundings.Errors,
                      Refusal(words(PLM_TRANSLATE("Texts", "there is no file to rename."))));
    const StartData data = LoadStartData(surroundings.Folders);
    if (!data.StoreRead.Ok())
        Print(surroundings.Errors, Refusal(UnreadSettingsText(data, surroundings.Words)));
    StartPrompts prompts(surroundings);
    if (!SettleExtension(job, prompts))
        return Refuse(surroundings.Errors,
                      Refusal(words(PLM_TRANSLATE("Texts", "there is no extension to give."))));
    LeftOvers leftOvers;
    TidyDisk disk(leftOvers);
    const NamingContext context{data.Values, data.Replacements, data.Values.InPattern};
    const BatchResult result = RunBatch(job, context, disk, {words, surroundings.ShouldStop});
    for (const Text& path : leftOvers.TakeRemoved())
        Print(surroundings.Errors, RemovedLeftOver(path, words));
    TellBatch(result, job.Paths.size(), surroundings);
    return result.ExitStatus();
}

int RunWindow(const std::vector<Text>& listPaths, const Surroundings& surroundings) {
    if (!surroundings.HasDisplay)
        return Refuse(surroundings.Errors, NoDisplayText(surroundings.Words));
    StartData data = LoadStartData(surroundings.Folders);
    return surroundings.OpenWindow(data, listPaths);
}

Text UsageText(const Language& words) {
    return words(PLM_TRANSLATE(
        "Texts",
        "  pellmore                              opens the window\n"
        "  pellmore +list PATH...                opens the window with these files, folders,\n"
        "                                        sorting lists and playlists in its list\n"
        "  pellmore +rename=\"PATTERN\" FILE...    gives the files new names, without a window\n"
        "  pellmore +ext=\"EXTENSION\" FILE...     gives the files another extension, without\n"
        "                                        a window; +ext=\"\" asks for it\n"
        "  pellmore --help                       prints this\n"
        "  pellmore --version                    prints the version\n"));
}

Text MisuseText(const Language& words) {
    const Text reason =
        words(PLM_TRANSLATE("Texts", "a command line begins with one of its switches."));
    return Refusal(reason) + u"\n" + UsageText(words);
}

// What is listed is found again from anywhere, and an input pattern with folders finds them.
void MakeWhole(std::vector<Text>& paths) {
    for (Text& path : paths) path = AbsolutePath(path);
}

bool IsSet(const char* value) { return value != nullptr && *value != '\0'; }

}  // namespace

StartFolders SystemFolders() {
    return {SettingsStore::DefaultPath(), ProgramFolder(), DataFolder()};
}

StartData LoadStartData(const StartFolders& folders) {
    StartData data{SettingsStore(folders.SettingsFile), {}, {}, folders.Program, {}, {}};
    data.StoreRead = data.Store.Load();
    data.Values = LoadSettings(data.Store, data.ProgramFolder);
    data.ListsFolder = UserListsFolder(folders.Program, folders.Data);
    data.Replacements = LoadReplacements(data.ListsFolder);
    return data;
}

bool HasDisplay(const Environment& environment) {
#if defined(_WIN32) || defined(__APPLE__)
    return true;
#else
    if (const char* platform = environment("QT_QPA_PLATFORM"); IsSet(platform)) {
        constexpr std::array<BytesView, 2> served = {"xcb", "wayland"};
        const bool needsDisplay =
            std::any_of(served.begin(), served.end(), [platform](BytesView name) {
                return BytesView(platform).substr(0, name.size()) == name;
            });
        if (!needsDisplay) return true;
    }
    return IsSet(environment("WAYLAND_DISPLAY")) || IsSet(environment("DISPLAY"));
#endif
}

int RunProgram(const std::vector<Text>& arguments, const Surroundings& surroundings) {
    StartRequest request = ParseArguments(arguments);
    MakeWhole(request.ListPaths);
    MakeWhole(request.Job.Paths);
    switch (request.Kind) {
        case StartKind::Help:
            return Print(surroundings.Out, HelpText(surroundings.Words));
        case StartKind::Version:
            return Print(surroundings.Out, VersionText());
        case StartKind::Misuse:
            return Refuse(surroundings.Errors, MisuseText(surroundings.Words));
        case StartKind::Batch:
            return RunBatchMode(std::move(request.Job), surroundings);
        case StartKind::Window:
        case StartKind::List:
            return RunWindow(request.ListPaths, surroundings);
    }
    return ExitNothingDone;
}

Text HelpText(const Language& words) {
    const Text purpose =
        words(PLM_TRANSLATE("Texts", "Pellmore puts a personal MP3 collection in order."));
    const Text details = words(PLM_TRANSLATE(
        "Texts",
        "A pattern is a name with placeholders: %artist, %title, %album, %track, %year,\n"
        "%genre and %comment. They are filled from a file's ID3 tags or from its old name,\n"
        "and the name is cleaned, both as the settings say that the window keeps.\n"
        "\n"
        "  pellmore +rename=\"%track - %artist - %title.mp3\" *.mp3\n"
        "\n"
        "Exit status without a window: 0 every file has its new name, 1 some could not be\n"
        "renamed (they stay as they are), 2 there was nothing that could be done.\n"));
    return purpose + u"\n\n" + UsageText(words) + u"\n" + details;
}

Text VersionText() {
    return u"Pellmore " + NumberText(static_cast<long long>(PLM_VERSION_MAJOR)) + u"." +
           NumberText(static_cast<long long>(PLM_VERSION_MINOR)) + u"\n";
}

Text NoDisplayText(const Language& words) {
    return Refusal(words(PLM_TRANSLATE(
               "Texts",
               "the window needs a graphical display (X11 or Wayland), and there is none\n"
               "that can be reached: DISPLAY or WAYLAND_DISPLAY names it.\n"
               "Without a display files can be renamed in batch mode:"))) +
           u"\n" + UsageText(words);
}

}  // namespace mdlPLM
