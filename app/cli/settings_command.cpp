#include <algorithm>
#include <set>

#include "app/cli/commands.h"
#include "core/platform/disk.h"
#include "core/settings/settings_table.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"

namespace mdlPLM::cli {

namespace {

const SettingRow* FindRow(TextView key) {
    const auto* found = std::find_if(SettingRows.begin(), SettingRows.end(), [&](const auto& row) {
        return EqualIgnoringCase(row.ReadKey, key) || EqualIgnoringCase(row.WrittenKey, key);
    });
    return found == SettingRows.end() ? nullptr : found;
}

/// "KEY" or "KEY=VALUE".
struct Wish {
    const SettingRow* Row = nullptr;
    std::optional<Text> Value;
};

bool ReadWish(Session& session, const Bytes& argument, Wish& wish) {
    const Text text = FromUtf8(argument);
    const std::size_t equals = std::min(text.find(u'='), text.size());
    wish.Row = FindRow(text.substr(0, equals));
    if (equals < text.size()) wish.Value = text.substr(equals + 1);
    Settings probe = session.Values;
    const bool good =
        wish.Row != nullptr && (!wish.Value || SetSetting(probe, *wish.Row, *wish.Value));
    if (!good)
        session.Results.Misuse(u"\"" + text + u"\" is no setting with a value that it can have");
    return good;
}

void PutSetting(Session& session, const SettingRow& row, const Settings& values) {
    Report& report = session.Results;
    const Text value = SettingText(values, row);
    if (report.Json()) {
        JsonObject object;
        report.Object(object.Put("key", row.ReadKey).Put("value", value));
    } else {
        report.Line(ToUtf8(row.ReadKey) + "=" + report.Shown(value));
    }
}

/// Each key goes with its group, as the window that owns it writes them.
void Store(Session& session, const std::vector<Wish>& wishes) {
    SettingsStore store(SettingsStore::DefaultPath());
    const Status read = store.Load();
    if (!read.Ok()) return session.Results.Fail(store.Path(), UnreadStoreText(read));
    Settings values = LoadSettings(store, ProgramFolder());
    std::set<WrittenBy> writers;
    for (const Wish& wish : wishes) {
        if (!wish.Value) continue;
        (void)SetSetting(values, *wish.Row, *wish.Value);
        writers.insert(wish.Row->Writer);
    }
    for (const WrittenBy writer : writers) StoreSettings(values, writer, store);
    const bool nothing = session.Results.DryRun() || writers.empty();
    if (!nothing) session.LeftBehind.LookBeside(store.Path());
    const Status saved = nothing ? Status() : store.Save();
    if (!saved.Ok()) return session.Results.Fail(store.Path(), Describe(saved.Number()));
    for (const Wish& wish : wishes) PutSetting(session, *wish.Row, values);
}

}  // namespace

void RunSettings(Session& session) {
    const CommonOptions& common = session.Asked.Common;
    std::vector<Wish> wishes;
    bool good = true;
    for (const Bytes& argument : common.Paths)
        good = ReadWish(session, argument, wishes.emplace_back()) && good;
    if (!good) return;
    const bool stores = std::any_of(wishes.begin(), wishes.end(),
                                    [](const Wish& wish) { return wish.Value.has_value(); });
    if (stores && common.NoUserSettings)
        return session.Results.Misuse(u"--no-user-settings: nothing can be stored");
    if (stores) return Store(session, wishes);
    for (const Wish& wish : wishes) PutSetting(session, *wish.Row, session.Values);
    if (!wishes.empty()) return;
    for (const SettingRow& row : SettingRows) PutSetting(session, row, session.Values);
}

}  // namespace mdlPLM::cli
