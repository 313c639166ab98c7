#include "app/window/qt_text_tool_host.h"

#include <optional>
#include <utility>

#include "app/dialogs/frmEdit.h"
#include "app/list/file_finder.h"
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

/// Dropped items as the main list takes them. As there, a list file that cannot be read is not
/// reported.
class DroppedFiles : public FileGathering {
public:
    /// The extension is that of this moment.
    DroppedFiles(std::vector<Text> dropped, AppContext& context)
        : dropped_(std::move(dropped)),
          prompts_(context.Ask),
          finder_(context.Values.Extension, prompts_, UserLanguage()) {}

    bool Step(std::vector<Text>& paths) override {
        FoundFiles found;
        if (finder_.Step(found)) {
            const std::vector<Text> more = PathsOf(std::move(found));
            paths.insert(paths.end(), more.begin(), more.end());
            return true;
        }
        if (!finder_.TooDeep().empty())
            prompts_.Critical(TooDeepMessage(finder_.TooDeep(), UserLanguage()));
        if (next_ >= dropped_.size()) return false;
        finder_.Begin(dropped_[next_++]);
        return true;
    }

private:
    std::vector<Text> dropped_;
    Prompts& prompts_;
    FileFinder finder_;
    std::size_t next_ = 0;
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
