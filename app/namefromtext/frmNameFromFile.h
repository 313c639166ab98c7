// "Get MP3 info from File/Text": an album description becomes file names and tags.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "app/namefromtext/line_scan.h"
#include "app/namefromtext/name_pairs.h"
#include "app/namefromtext/rename_run.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace mdlPLM {

struct AppContext;
class FileGathering;
class NameFromTextHost;
class PairColumn;
class RunProgressWindow;
class SlicedWork;
namespace Ui {
class frmNameFromFile;
}

class frmNameFromFile : public QMainWindow {
    Q_OBJECT

public:
    /// `context` and `host` must outlive the window.
    frmNameFromFile(AppContext& context, NameFromTextHost& host, QWidget* parent = nullptr);
    ~frmNameFromFile() override;

    /// Renaming cannot be begun while the main window works: two runs could write into one file.
    void RestRenaming(bool rest);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void SetUpBoxes();
    void SetUpLists();
    void SetUpStatusLine();
    void ConnectText();
    void ConnectLists();
    void Form_Load();

    // The text and its scans.
    void cmdOpenSource_Click();
    void OpenSource(const Text& path);
    void ShowComingText(bool preScan);
    void cmdTakeLineEnds_Click();
    void PreScanText();
    void ShowLineEndOffer();
    void cmdScan_Click();
    [[nodiscard]] ScanChoices ReadScanChoices() const;
    void ScanChosenText(Text text, ScanChoices choices);
    void txtArtist_Change();
    void txtAlbum_Change();
    void WarnAboutLength(QLineEdit& box, const QString& plainTip, const QString& warning);

    // The lists.
    void cmdAddFiles_Click();
    void GatherDropped(std::vector<Text> dropped);
    void cmdRemoveFile_Click();
    void cmdRemoveNew_Click();
    void cmdClearOld_Click();
    void cmdClearNew_Click();
    void cmdMoveUp_Click();
    void cmdMoveDn_Click();
    void MoveSelected(NamePairs::Direction direction);
    void lstOldFileNames_Click();
    void lstOldFileNames_KeyDown();
    void lstNewFileNames_KeyDown();
    void lstNewFileNames_DblClick();
    void ShowOldCount();
    void ShowNewCount();

    // The run.
    void cmdRenameFiles_Click();
    [[nodiscard]] RunChoices ReadRunChoices() const;
    [[nodiscard]] std::vector<RenamePair> Pairs() const;
    bool RunPair();
    void ShowNextPair();
    void EndRun();
    void CloseRun();
    void ClearAfterRun();
    void cmdDetails_Click();

    // Work in slices.
    void ShowStatus(const QString& text);
    void BeginWork(const QString& what);
    void ShowWorkProgress();
    [[nodiscard]] int WorkPercent() const;
    void EndWork(const QString& said);
    void cmdStop_Click();
    void EnableControls(bool on);

    AppContext& context_;
    NameFromTextHost& host_;
    std::unique_ptr<Ui::frmNameFromFile> ui_;
    NamePairs lists_;
    PairColumn* oldFiles_;
    PairColumn* newNames_;

    SlicedWork* work_;
    QString workName_;
    std::unique_ptr<LineScan> scan_;
    std::unique_ptr<FileGathering> gathering_;
    std::vector<Text> coming_;  // names or files that the work under way has made so far
    std::unique_ptr<RenameRun> run_;
    std::unique_ptr<RunProgressWindow> progress_;
    std::vector<RunFailure> failures_;

    QLabel* lblWork_;
    QProgressBar* prgWork_;
    QPushButton* cmdStop_;
    QPushButton* cmdDetails_;
    QPointer<QWidget> focusBefore_;  // where the focus was when work began
    bool centred_ = false;
};

}  // namespace mdlPLM
