// File and folder dialogs as an interface, so that a test can answer them from a script.
#pragma once

#include <vector>

#include "core/text/text.h"

class QWidget;

namespace mdlPLM {

struct FileDialogRequest {
    Text Title;
    Text InitialFolder;
    /// Filters as the rules word them: "MP3 Files (*.mp3;*.mp2)|*.mp3;*.mp2|All Files (*.*)|*.*".
    Text Filter;
    bool Multiple = false;
};

struct FileDialogResult {
    std::vector<Text> Paths;  ///< empty: cancelled
    int FilterIndex = 1;      ///< 1-based index of the chosen filter
};

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    virtual FileDialogResult OpenFiles(QWidget* parent, const FileDialogRequest& request) = 0;
    /// Asks before an existing file is chosen.
    virtual FileDialogResult SaveFile(QWidget* parent, const FileDialogRequest& request) = 0;
    /// Empty when cancelled.
    virtual Text BrowseForFolder(QWidget* parent, TextView title, TextView initialFolder) = 0;
};

}  // namespace mdlPLM
