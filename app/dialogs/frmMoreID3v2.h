// "More ID3v2 frames": the frames of the shown file that the tag panel does not edit. Every change
// goes at once into the text that the tag panel holds; the file is written when the panel saves.
#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "app/dialogs/more_id3v2.h"
#include "app/dialogs/qt_decoded_picture.h"
#include "core/platform/prompts.h"

namespace mdlPLM {

namespace Ui {
class frmMoreID3v2;
}

class FileDialogs;

/// What the dialog works with.
struct MoreID3v2Context {
    OtherFramesText& Frames;
    Prompts& Ask;
    FileDialogs& Dialogs;
    Text FilePath;  ///< the shown file: named in the dialog, its folder is where saving begins
};

class frmMoreID3v2 : public QDialog {
    Q_OBJECT

public:
    explicit frmMoreID3v2(const MoreID3v2Context& context, QWidget* parent = nullptr);
    ~frmMoreID3v2() override;

private:
    void Form_Load();
    void lstID3v2Tags_Click();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdRemoveAll_Click();
    void cmdSaveToFile_Click();
    void cmdSavePicture_Click();

    void AddToList(BytesView identifier);
    [[nodiscard]] Bytes SelectedIdentifier() const;
    [[nodiscard]] Text BoxText() const;
    void ShowContent(Bytes content);
    void NoteEmptyContent();
    void ShowPicture(BytesView identifier);
    void HidePicture();
    void Note(const QString& text);
    void EnableButtons();
    void SaveBytes(const Text& filter, BytesView bytes);

    MoreID3v2Context context_;
    std::unique_ptr<Ui::frmMoreID3v2> ui_;
    ShownContent content_;
    Bytes pictureData_;
    Text pictureFilter_;
};

}  // namespace mdlPLM
