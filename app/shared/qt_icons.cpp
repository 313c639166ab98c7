#include "app/shared/qt_icons.h"

#include <array>

// Outside the namespace, as the resource compiler wants it; a static library's resources are
// linked in only when they are asked for by name.
static void LinkIcons() { Q_INIT_RESOURCE(icons); }

namespace mdlPLM {

namespace {

struct IconRow {
    IconName Name;
    const char* Theme;  ///< name in the desktop's theme; empty: always our own
    const char* File;
};

constexpr std::array Icons{
    IconRow{IconName::Program, "pellmore", "pellmore"},
    IconRow{IconName::About, "help-about", "about"},
    IconRow{IconName::AddFiles, "list-add", "add-files"},
    IconRow{IconName::AddFolder, "folder-new", "add-folder"},
    IconRow{IconName::BrowseFolder, "folder-open", "browse-folder"},
    IconRow{IconName::ClearList, "edit-clear-list", "clear-list"},
    IconRow{IconName::Delete, "edit-delete", "delete"},
    IconRow{IconName::Edit, "document-edit", "edit"},
    IconRow{IconName::Exit, "application-exit", "exit"},
    IconRow{IconName::FixTags, "tools-wizard", "fix-tags"},
    IconRow{IconName::Help, "help-contents", "help"},
    IconRow{IconName::More, "view-more", "more"},
    IconRow{IconName::NameFromText, "", "name-from-text"},
    IconRow{IconName::OpenList, "document-open", "open-list"},
    IconRow{IconName::Options, "configure", "options"},
    IconRow{IconName::Pause, "media-playback-pause", "pause"},
    IconRow{IconName::Play, "media-playback-start", "play"},
    IconRow{IconName::Preview, "", "preview"},
    IconRow{IconName::Remove, "list-remove", "remove"},
    IconRow{IconName::SaveList, "document-save", "save-list"},
    IconRow{IconName::SaveTags, "document-save", "save-tags"},
    IconRow{IconName::SelectAll, "edit-select-all", "select-all"},
    IconRow{IconName::SelectInvert, "edit-select-invert", "select-invert"},
    IconRow{IconName::SelectNone, "edit-select-none", "select-none"},
    IconRow{IconName::Sort, "", "sort"},
    IconRow{IconName::SortOne, "", "sort-one"},
    IconRow{IconName::Stop, "media-playback-stop", "stop"},
};

constexpr bool RowsFollowTheEnum() {
    for (std::size_t i = 0; i < Icons.size(); ++i)
        if (static_cast<std::size_t>(Icons[i].Name) != i) return false;
    return true;
}
static_assert(RowsFollowTheEnum());

}  // namespace

QIcon Icon(IconName name) {
    LinkIcons();
    const IconRow& row = Icons[static_cast<std::size_t>(name)];
    const QIcon own(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(row.File)));
    return *row.Theme == '\0' ? own : QIcon::fromTheme(QLatin1String(row.Theme), own);
}

}  // namespace mdlPLM
