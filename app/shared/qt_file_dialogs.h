// File and folder dialogs of the toolkit, or of the desktop where it has its own.
#pragma once

#include <QString>
#include <QStringList>

#include "app/shared/file_dialogs.h"

namespace mdlPLM {

class QtFileDialogs : public FileDialogs {
public:
    FileDialogResult OpenFiles(QWidget* parent, const FileDialogRequest& request) override;
    FileDialogResult SaveFile(QWidget* parent, const FileDialogRequest& request) override;
    Text BrowseForFolder(QWidget* parent, TextView title, TextView initialFolder) override;
};

/// "Music (*.a;*.b)|*.a;*.b|All Files (*.*)|*.*" as the toolkit writes it: "Music (*.a *.b)",
/// "All Files (*)". The words stay; "*.*" means every file, with or without a dot.
QStringList ToolkitFilters(TextView filter);

/// The extension that a filter of one plain pattern stands for: "srt" of "List (*.srt)", else
/// empty.
QString SuffixOfFilter(const QString& toolkitFilter);

}  // namespace mdlPLM
