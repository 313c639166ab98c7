// "Get MP3 info from File/Text": an album description becomes file names and tags.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "app/list/qt_work_queue.h"
#include "app/namefromtext/line_scan.h"
#include "app/namefromtext/rename_run.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace mdlPLM {

struct AppContext;
class NameFromTextHost;
class PairLists;
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
    void SetUpStatusLine();
    void ConnectText();
    void ConnectButtons();
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

    void GatherDropped(std::vector<Text> dropped);

    // The run.
    void cmdRenameFiles_Click();
    [[nodiscard]] RunChoices ReadRunChoices() const;
    [[nodiscard]] std::vector<RenamePair> Pairs() const;
    void EndRun(const RenameReport& report);
    void ClearAfterRun();
    void cmdDetails_Click();

    // Long work.
    void ShowStatus(const QString& text);
    void BeginWork();
    void ShowWorkProgress();
    void EndWork(const QString& said);
    void EnableControls(bool on);

    AppContext& context_;
    NameFromTextHost& host_;
    std::unique_ptr<Ui::frmNameFromFile> ui_;
    PairLists* lists_ = nullptr;
    std::vector<RunFailure> failures_;
    bool renaming_ = false;  ///< a run is under way: its own window shows how far it is

    QLabel* lblWork_;
    QProgressBar* prgWork_;
    QPushButton* cmdStop_;
    QPushButton* cmdDetails_;
    QPointer<QWidget> focusBefore_;  // where the focus was when work began
    bool centred_ = false;

    WorkQueue work_{this};  // last: work under way ends with the window
};

}  // namespace mdlPLM
