#include "app/cli/session.h"

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/settings/settings_store.h"
#include "core/settings/user_lists.h"
#include "core/text/code_page.h"

namespace mdlPLM::cli {

namespace {

Text Quoted(const Bytes& text) { return u"\"" + FromUtf8(text) + u"\""; }

bool LoadUserSettings(Session& session) {
    SettingsStore store(SettingsStore::DefaultPath());
    const Status read = store.Load();
    session.Values = LoadSettings(store, ProgramFolder());
    if (!read.Ok()) session.Results.Fail(store.Path(), UnreadStoreText(read));
    return read.Ok();
}

bool TakeReplacesFile(Session& session) {
    const std::optional<Bytes>& file = session.Asked.Common.ReplacesFile;
    if (!file) return true;
    const Text path = FromUtf8(*file);
    Bytes contents;
    const Status read = ReadWholeFile(path, contents);
    if (!read.Ok()) {
        session.Results.Misuse(path + u": " + Text(Describe(read.Number())));
        return false;
    }
    session.Replacements = ParseReplacements(FromTextFile(contents));
    session.Values.bReplace = true;
    return true;
}

bool TakeSetting(Session& session, const Bytes& setting) {
    const std::size_t equals = setting.find('=');
    if (equals != Bytes::npos &&
        SetSettingFromText(session.Values, FromUtf8(setting.substr(0, equals)),
                           FromUtf8(setting.substr(equals + 1)))) {
        return true;
    }
    session.Results.Misuse(u"--setting: " + Quoted(setting) +
                           u" is no setting with a value that it can have");
    return false;
}

bool TakeEachSetting(Session& session) {
    bool good = true;
    for (const Bytes& setting : session.Asked.Common.Settings)
        good = TakeSetting(session, setting) && good;
    return good;
}

// The user's list is read, and made, only where it is applied.
void LoadUserReplacements(Session& session) {
    const CommonOptions& common = session.Asked.Common;
    if (common.NoUserSettings || common.ReplacesFile || !session.Values.bReplace) return;
    session.Replacements = LoadReplacements(UserListsFolder(ProgramFolder(), DataFolder()));
}

}  // namespace

bool TakeSettings(Session& session) {
    const CommonOptions& common = session.Asked.Common;
    if (!common.NoUserSettings && !LoadUserSettings(session)) return false;
    if (common.InPattern) session.Values.InPattern = FromUtf8(*common.InPattern);
    if (common.OutPattern) session.Values.OutPattern = FromUtf8(*common.OutPattern);
    if (!TakeReplacesFile(session) || !TakeEachSetting(session)) return false;
    LoadUserReplacements(session);
    return true;
}

std::optional<IfExists> ExistsChoice(Session& session, std::optional<IfExists> given) {
    const bool canAsk = session.Streams.Kinds().Ask;
    if (!given) return canAsk ? static_cast<IfExists>(session.Values.FileExists) : IfExists::Skip;
    // A plan asks nobody; it shows the question.
    if (*given != IfExists::Prompt || canAsk || session.Results.DryRun()) return given;
    session.Results.Misuse(u"--if-exists ask: there is no terminal to ask at");
    return std::nullopt;
}

}  // namespace mdlPLM::cli
