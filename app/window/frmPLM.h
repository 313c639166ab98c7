// The main window: files come in, names are made, files are sorted, and beside them their tags.
#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <memory>

#include "app/dialogs/player.h"
#include "app/list/file_list.h"
#include "app/list/qt_file_list_model.h"
#include "app/list/qt_work_queue.h"
#include "app/shared/app_context.h"
#include "app/sort/sort_engine.h"
#include "app/tags/tag_panel.h"
#include "app/window/announced_prompts.h"

class QLabel;
class QProgressBar;
class QToolButton;

namespace mdlPLM {

namespace Ui {
class frmPLM;
}
class frmNameFromFile;
class frmPLM_tagpanel;
class frmSorting;
class SortRun;
class TextToolHost;

class frmPLM : public QMainWindow {
    Q_OBJECT

public:
    /// `player` is the window's own for as long as it lives.
    frmPLM(AppContext& context, MediaPlayer& player);
    ~frmPLM() override;

    /// Takes files into the list as a drop does: folders are walked, list files are read.
    void AddPaths(std::vector<Text> paths);

    /// Two or more entries are selected at this moment.
    [[nodiscard]] bool MultipleSelection() const { return list_.SelectedCount() >= 2; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // frmPLM.cpp: the window as a whole
    void SetUpStatusLine();
    void ConnectWindow();
    void LoadSettings();
    void TakeControls();
    void SaveOnClose();
    void RestoreLayout();
    /// What a run did, one line for each file, made when somebody asks.
    using Details = std::function<Text()>;
    void SetStatus(const QString& text, Details details = {});
    [[nodiscard]] static QString RunStatus(const QString& summary, bool stopped);
    void RestControls(bool rest);
    void Work_BusyChanged(bool busy);
    void Work_Progressed();
    void cmdDetails_Click();
    void cmdOptions_Click();

    // frmPLM_list.cpp: files come and go
    void SetUpLists();
    void ConnectList();
    void ConnectSelectionButtons();
    void StartAdding(AddRequest request);
    void cmdAddFiles_Click();
    void mnuAddFolder_Click();
    void cmdLoad_Click();
    void cmdSave_Click();
    void cmdClear_Click();
    void mnuRemFromList_Click();
    void mnuRemFromHD_Click();
    void mnuNonExistent_Click();
    void cmdSelectNone_Click();
    void SelectByTag(TagKind kind);
    void ResetFileView();
    void UpdateCounter();
    void CountSlice();

    // frmPLM_names.cpp: patterns, preview, the name boxes, the shown file
    void SetUpPatterns();
    void ConnectNames();
    [[nodiscard]] Text InPattern() const;
    [[nodiscard]] Text OutPattern() const;
    [[nodiscard]] bool PreviewShown() const;
    [[nodiscard]] NameMaker Maker() const;
    void ComputeNames(std::vector<FileList::Index> rows);
    /// The same for lines that were computed before; the name box of the shown file follows.
    void RecomputeNames(std::vector<FileList::Index> rows);
    void NamesComputed(bool stopped);
    void ShowPreviewList();
    void chkPreview_Click();
    void cmbOutPattern_Change();
    void cmbOutPattern_Validate();
    void AskToApplyPattern(std::vector<FileList::Index> rows);
    void Selection_Changed(bool byView);
    void List_Clicked();
    void ShowFile(FileList::Index row);
    /// The row of the shown file; -1 when none is shown.
    [[nodiscard]] int ShownRow() const;
    void ShowNameOf(FileList::Index row);
    /// The path of the current entry; empty when there is none.
    [[nodiscard]] Text CurrentPath() const;
    void BlankPanel();
    void ShowComputedName();
    void ShowNewName();
    void EditNewName(int row);

    // frmPLM_tags.cpp: the tag panel's buttons
    void SetUpTags();
    void ConnectTags();
    void cmdSaveID3_Click();
    void cmdFixID3_Click();
    void cmdMore_Click();
    [[nodiscard]] std::vector<Text> SelectedPaths() const;
    void SaveAllSelected();
    void OneFileSaved(const PanelSave& saved);
    void StartTagRun(const QString& what, TagRun run);
    void TagRun_Done(const RunReport& report, const std::vector<FileList::Index>& rows);
    void ShowTagsAfterRun(const RunReport& report);
    void RenewNames(std::vector<FileList::Index> rows);

    // frmPLM_player.cpp: playing, help and about
    void ConnectPlayer();
    void ConnectHelp();
    void PlayCurrentFile();
    void TellOfPlaying(const QString& text);
    void cmdOpenMP3_MouseMove();
    void Player_Started(TextView file);
    void Player_Ended();
    void Player_Failed(const PlayerFault& fault);
    void mnuHelpMe_Click();
    void mnuAbout_Click();

    // frmPLM_namefromtext.cpp: the name-from-text window
    void ConnectNameFromFile();
    void cmdNameFromFile_Click();
    void TextRun_Begins();
    void TextRun_Ends();

    // frmPLM_sort.cpp: the sort engine and its choices
    void ConnectSort();
    void optMethod_Click(int index);
    void ShowTargetDir();
    void cmdTargetDir_Click();
    [[nodiscard]] SortChoices Choices() const;
    void StartSort(SortStart start);
    void OpenSorting();
    void frmSorting_Ended();
    void Sort_Progressed();
    void ShowSorting();
    void Sort_Done();

    AppContext& context_;
    MediaPlayer& player_;
    std::unique_ptr<Ui::frmPLM> ui_;
    FileList list_;
    FileListModel model_;
    FileSelection selection_;
    WorkQueue work_;

    QLabel* lblStatus_ = nullptr;
    QProgressBar* prgWork_ = nullptr;
    QToolButton* cmdStop_ = nullptr;
    QToolButton* cmdDetails_ = nullptr;
    QString status_;  ///< what the status line says while no work is under way
    Details details_;
    QString toldOfPlaying_;  ///< what the player said last
    bool closeWhenDone_ = false;
    QPointer<QWidget> focusBeforeWork_;
    QPointer<QWidget> focusPassedOn_;

    QTimer counting_;
    FileList::Index counted_ = 0;

    Text shownPath_;  ///< the file that the name boxes and the tag panel show
    frmPLM_tagpanel* tags_ = nullptr;
    bool shownCurrent_ = false;  ///< the selection is what is shown
    bool outPatternEdited_ = false;

    Text targetDir_;  ///< the target folder, also while its box shows a file's own folder
    QPointer<frmSorting> sorting_;
    QPointer<QWidget> focusBeforeRun_;
    AnnouncedPrompts sortAsk_{context_.Ask, [this] { ShowSorting(); }};
    SortRun* sort_ = nullptr;  ///< owned by work_, there while a sort is under way
    QElapsedTimer labelsShown_;
    QElapsedTimer removalsShown_;

    std::unique_ptr<TextToolHost> textHost_;
    bool textRun_ = false;  ///< the name-from-text window renames files
    std::unique_ptr<frmNameFromFile> textTool_;
};

}  // namespace mdlPLM
