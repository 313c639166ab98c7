// The file that the main window shows: its old and its new name, and its tags.
#pragma once

#include <optional>

#include "app/window/qt_window_parts.h"
#include "app/window/shown_selection.h"

namespace mdlPLM {

class ShownFile : public QObject {
    Q_OBJECT

public:
    explicit ShownFile(const WindowParts& parts);

    /// Empty when no file is shown.
    [[nodiscard]] const Text& Path() const { return path_; }
    /// Its row, while it is the selected or current one.
    [[nodiscard]] std::optional<FileList::Index> Row() const;
    /// The path of the entry with the keyboard's cursor, shown or not; empty when there is none.
    [[nodiscard]] Text CurrentPath() const;

    /// Shows what is selected, and reads it again.
    void ShowSelection(ChangedBy by);
    void Blank();
    /// The new name of this row: the preview's, else one that is made from the boxes.
    void ShowNameOf(FileList::Index row);
    void ShowNewName();
    void ShowName(TextView name);
    /// While it rests, selections are not followed.
    void Rest(bool rest) { rests_ = rest; }

signals:
    /// Another file is shown, or none.
    void Changed();

private:
    void Selection_Changed(bool byView);
    void List_Clicked();
    void Tags_Edited();
    void ShowComputedName();
    void ShowFile(FileList::Index row);

    WindowParts parts_;
    Text path_;
    bool followsSelection_ = false;  ///< the selection is what is shown
    bool rests_ = false;
};

}  // namespace mdlPLM
