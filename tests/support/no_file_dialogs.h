// File dialogs for a test in which none may open.
#pragma once

#include <stdexcept>

#include "app/shared/file_dialogs.h"

namespace mdlPLM {

class NoFileDialogs : public FileDialogs {
public:
    FileDialogResult OpenFiles(QWidget* /*parent*/, const FileDialogRequest& /*request*/) override {
        throw std::logic_error("a file dialog opened");
    }
    FileDialogResult SaveFile(QWidget* /*parent*/, const FileDialogRequest& /*request*/) override {
        throw std::logic_error("a file dialog opened");
    }
    Text BrowseForFolder(QWidget* /*parent*/, TextView /*title*/, TextView /*folder*/) override {
        throw std::logic_error("a folder dialog opened");
    }
};

}  // namespace mdlPLM
