#include "app/window/qt_text_tool_host.h"

#include <optional>
#include <utility>

#include "app/dialogs/frmEdit.h"
#include "app/list/folder_walk.h"
#include "app/list/list_file_reader.h"
#include "app/shared/qt_language.h"
#include "app/window/frmSorting.h"

namespace mdlPLM {

namespace {

class RunWindow : public RunProgressWindow {
public:
    RunWindow(QWidget* parent, std::function<void()> ended)
        : ended_(std::move(ended)), window_(parent) {
        QObject::connect(&window_, &frmSorting::Ended, &window_, [this] { stop_ = true; });
        window_.show();
    }
    ~RunWindow() override { ended_(); }
    RunWindow(const RunWindow&) = delete;
    RunWindow& operator=(const RunWindow&) = delete;

    void ShowPair(TextView oldName, TextView newName, std::size_t number,
                  std::size_t total) override {
        RunProgress progress;
        progress.Each = UserLanguage()(PLM_TRANSLATE("Texts", "Renaming file:"));
        progress.Source = oldName;
        progress.Target = newName;
        progress.Done = number;
        progress.Total = total;
        window_.ShowProgress(progress);
    }
    [[nodiscard]] bool StopRequested() const override { return stop_; }
    void ShowDone() override { window_.ShowDone(); }

private:
    std::function<void()> ended_;
    frmSorting window_;
    bool stop_ = false;
};

/// Dropped items as the main list takes them: a folder is walked, a list file is read.
class DroppedFiles : public FileGathering {
public:
    /// The extension is that of this moment.
    DroppedFiles(std::vector<Text> dropped, AppContext& context)
        : dropped_(std::move(dropped)),
          extension_(context.Values.Extension),
          prompts_(context.Ask) {}

    bool Step(std::vector<Text>& paths) override {
        if (walk_ && !walk_->Finished()) {
            walk_->Step(paths);
            if (walk_->Finished() && !walk_->TooDeep().empty())
                prompts_.Critical(TooDeepMessage(walk_->TooDeep(), UserLanguage()));
        } else if (reading_) {
            ReadOn(paths);
        } else if (next_ < dropped_.size()) {
            Take(dropped_[next_++], paths);
        } else {
            return false;
        }
        return true;
    }

private:
    void Take(const Text& path, std::vector<Text>& paths) {
        switch (KindOfDropped(path)) {
            case DroppedKind::Folder:
                walk_.emplace(path, extension_);
                return;
            case DroppedKind::ListFile:
                reading_.emplace(path, prompts_, UserLanguage());
                return;
            case DroppedKind::SingleFile:
                return paths.push_back(path);
            case DroppedKind::Nothing:
                return;
        }
    }

    // As in the main list, a list file that cannot be read is not reported.
    void ReadOn(std::vector<Text>& paths) {
        std::vector<Text> names;
        const bool more = reading_->Step(names);
        FileList listed;
        AppendListed(listed, reading_->Kind(), names);
        for (FileList::Index row = 0; row < listed.Count(); ++row)
            paths.push_back(listed.Path(row));
        if (!more) reading_.reset();
    }

    std::vector<Text> dropped_;
    Text extension_;
    Prompts& prompts_;
    std::size_t next_ = 0;
    std::optional<FolderWalk> walk_;
    std::optional<ListFileReader> reading_;
};

}  // namespace

TextToolHost::TextToolHost(AppContext& context, Controls controls)
    : context_(context), controls_(std::move(controls)) {}

std::optional<Text> TextToolHost::EditName(QWidget* parent, TextView name) {
    return frmEdit::EditName(parent, name);
}

std::unique_ptr<RunProgressWindow> TextToolHost::OpenProgress(QWidget* parent) {
    controls_.RunBegins();
    return std::make_unique<RunWindow>(parent, controls_.RunEnds);
}

std::unique_ptr<FileGathering> TextToolHost::GatherFiles(std::vector<Text> dropped) {
    return std::make_unique<DroppedFiles>(std::move(dropped), context_);
}

}  // namespace mdlPLM
