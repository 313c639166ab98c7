// The name-from-text window in a world of its own: folder, store, prompts, dialogs and host.
#pragma once

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <deque>

#include "app/namefromtext/frmNameFromFile.h"
#include "app/namefromtext/qt_paired_list_view.h"
#include "app/namefromtext/qt_source_box.h"
#include "app/shared/app_context.h"
#include "app/shared/file_dialogs.h"
#include "app/shared/name_from_text_host.h"
#include "app/shared/qt_text.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {

/// Answers file dialogs from a script and keeps what was asked.
struct AlbumDialogs : FileDialogs {
    std::deque<std::vector<Text>> Chosen;
    std::vector<FileDialogRequest> Requests;

    FileDialogResult OpenFiles(QWidget* /*parent*/, const FileDialogRequest& request) override {
        Requests.push_back(request);
        if (Chosen.empty()) return {};
        FileDialogResult result{Chosen.front(), 1};
        Chosen.pop_front();
        return result;
    }
    FileDialogResult SaveFile(QWidget* /*parent*/, const FileDialogRequest& /*request*/) override {
        throw std::logic_error("a dialog to save opened");
    }
    Text BrowseForFolder(QWidget* /*parent*/, TextView /*title*/, TextView /*folder*/) override {
        throw std::logic_error("a folder dialog opened");
    }
};

/// What the run showed; outlives its window.
struct ProgressLog {
    std::vector<Text> Shown;
    bool Open = false;
    bool Done = false;
    std::size_t StopAfter = 1000000;  ///< pairs after which the button is pressed
    std::size_t Asked = 0;            ///< how often, before each pair, the button was asked after
};

struct LoggedProgress : RunProgressWindow {
    explicit LoggedProgress(ProgressLog& log) : Log(log) { Log.Open = true; }
    ~LoggedProgress() override { Log.Open = false; }
    void ShowPair(TextView oldName, TextView newName, std::size_t number,
                  std::size_t total) override {
        Log.Shown.push_back(Text(oldName) + u" > " + Text(newName) + u" " +
                            NumberText(static_cast<long long>(number)) + u"/" +
                            NumberText(static_cast<long long>(total)));
    }
    [[nodiscard]] bool StopRequested() const override { return Log.Asked++ >= Log.StopAfter; }
    void ShowDone() override { Log.Done = true; }
    ProgressLog& Log;
};

/// Hands over what was dropped, one path per step.
struct PathByPath : FileGathering {
    explicit PathByPath(const std::vector<Text>& dropped) : Left(dropped.begin(), dropped.end()) {}
    bool Step(std::vector<Text>& paths) override {
        if (Left.empty()) return false;
        paths.push_back(Left.front());
        Left.pop_front();
        return true;
    }
    std::deque<Text> Left;
};

struct AlbumHost : NameFromTextHost {
    Text In = u"%track - %artist - %title.mp3";
    Text Out = u"%track - %artist - %title.mp3";
    bool Fix = false;
    IfExists Exists = IfExists::Prompt;
    std::optional<Text> Edited;
    std::vector<Text> Edits;
    ProgressLog Progress;
    Text SourceFolder;

    [[nodiscard]] Text InPattern() const override { return In; }
    [[nodiscard]] Text OutPattern() const override { return Out; }
    [[nodiscard]] bool chkConvert() const override { return Fix; }
    [[nodiscard]] IfExists ExistsChoice() const override { return Exists; }
    std::optional<Text> EditName(QWidget* /*parent*/, TextView name) override {
        Edits.emplace_back(name);
        return Edited;
    }
    std::unique_ptr<RunProgressWindow> OpenProgress(QWidget* /*parent*/) override {
        return std::make_unique<LoggedProgress>(Progress);
    }
    std::unique_ptr<FileGathering> GatherFiles(std::vector<Text> dropped) override {
        return std::make_unique<PathByPath>(std::move(dropped));
    }
    [[nodiscard]] Text LastSourceFolder() const override { return SourceFolder; }
    void SetLastSourceFolder(TextView folder) override { SourceFolder = Text(folder); }
};

struct NameFromFileWorld {
    TempFolder Folder;
    SettingsStore Store{Folder / u"settings/PLM.ini"};
    SystemDisk Disk;
    ScriptedPrompts Prompts;
    AlbumDialogs Dialogs;
    AppContext Context{{}, {}, Store, Disk, Prompts, Dialogs, Folder.Path(), Folder.Path(), false};
    AlbumHost Host;
};

/// What the tests of the window share.
class NameFromFileTest : public QObject {
protected:
    void Reset() {
        form_.reset();
        world_ = std::make_unique<NameFromFileWorld>();
    }
    void Open() {
        form_ = std::make_unique<frmNameFromFile>(world_->Context, world_->Host);
        form_->show();
        form_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    template <class Control>
    Control* Get(const char* name) {
        auto* control = form_->findChild<Control*>(QString::fromLatin1(name));
        if (control == nullptr) qFatal("no control %s", name);
        return control;
    }
    void Press(const char* button) { QTest::mouseClick(Get<QPushButton>(button), Qt::LeftButton); }
    void Tick(const char* box, bool on = true) { Get<QCheckBox>(box)->setChecked(on); }
    [[nodiscard]] bool IsTicked(const char* box) { return Get<QCheckBox>(box)->isChecked(); }
    void Enter(const char* box, const QString& text) { Get<QLineEdit>(box)->setText(text); }
    [[nodiscard]] QString Entered(const char* box) { return Get<QLineEdit>(box)->text(); }
    [[nodiscard]] QString Label(const char* name) { return Get<QLabel>(name)->text(); }
    SourceBox* Box() { return Get<SourceBox>("txtSourceText"); }
    PairedListView* OldList() { return Get<PairedListView>("lstOldFileNames"); }
    PairedListView* NewList() { return Get<PairedListView>("lstNewFileNames"); }
    static QStringList Rows(const PairedListView* list) {
        QStringList rows;
        for (int i = 0; i < list->model()->rowCount(); ++i)
            rows << list->model()->index(i, 0).data().toString();
        return rows;
    }
    static Text OfQt(const QString& text) { return FromQt(text); }
    /// Opens a file with these contents through the button.
    void OpenText(const Bytes& contents, TextView name = u"album.txt") {
        world_->Dialogs.Chosen.push_back({world_->Folder.File(name, contents)});
        Press("cmdOpenSource");
        QTRY_VERIFY(!Box()->isReadOnly());
    }
    void AddFiles(const std::vector<Text>& paths) {
        world_->Dialogs.Chosen.push_back(paths);
        Press("cmdAddFiles");
    }
    /// Selects lines of the box, 0-based, the break behind the last one left out.
    void SelectLines(int first, int last) {
        QTextCursor cursor(Box()->document()->findBlockByNumber(first));
        const QTextBlock end = Box()->document()->findBlockByNumber(last);
        cursor.setPosition(end.position() + end.length() - 1, QTextCursor::KeepAnchor);
        Box()->setTextCursor(cursor);
    }

    /// A drop of files with Shift held, which a file manager reads as "move"; the action taken.
    static Qt::DropAction DropOn(QWidget& target, const std::vector<Text>& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const Text& path : paths) urls << QUrl::fromLocalFile(ToQt(path));
        data.setUrls(urls);
        constexpr Qt::DropActions any = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(QPoint(5, 5), any, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&target, &enter);
        QDragMoveEvent move(QPoint(5, 5), any, &data, Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(&target, &move);
        QDropEvent drop(QPointF(5, 5), any, &data, Qt::LeftButton, Qt::ShiftModifier);
        drop.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(&target, &drop);
        return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
    }

    std::unique_ptr<NameFromFileWorld> world_;
    std::unique_ptr<frmNameFromFile> form_;
};

}  // namespace mdlPLM
