// Icons for buttons and menus: those of the user's theme, with our own behind them.
#pragma once

#include <QIcon>

namespace mdlPLM {

enum class IconName {
    Program,
    About,
    AddFiles,
    AddFolder,
    BrowseFolder,
    ClearList,
    Delete,
    Edit,
    Exit,
    FixTags,
    Help,
    More,
    NameFromText,
    OpenList,
    Options,
    Pause,
    Play,
    Preview,
    Remove,
    SaveList,
    SaveTags,
    SelectAll,
    SelectInvert,
    SelectNone,
    Sort,
    SortOne,
    Stop,
};

QIcon Icon(IconName name);

}  // namespace mdlPLM
