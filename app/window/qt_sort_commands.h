// The selected files are sorted: the choices, the run, and the window that shows it.
#pragma once

#include <QElapsedTimer>
#include <QPointer>

#include "app/sort/sort_engine.h"
#include "app/window/announced_prompts.h"
#include "app/window/qt_shown_file.h"

namespace mdlPLM {

class frmSorting;

class SortCommands : public QObject {
    Q_OBJECT

public:
    /// The controls show the settings already.
    SortCommands(const WindowParts& parts, ShownFile& shown);

    /// The progress window of a run that was cancelled stays until its button is pressed.
    void HideProgress();

private:
    void ConnectControls();
    void optMethod_Click(int index);
    void ShowTargetDir();
    void cmdTargetDir_Click();
    void txtTargetDir_Change(const QString& text);
    [[nodiscard]] SortChoices Choices() const;
    void StartSort(SortStart start);
    void OpenSorting();
    void frmSorting_Ended();
    void Sort_Progressed();
    void ShowSorting();
    void Sort_Done();
    void SelectNext();
    void CloseSorting(bool cancelled);
    void Report(std::shared_ptr<const RunReport> report);

    WindowParts parts_;
    ShownFile& shown_;
    QPointer<frmSorting> sorting_;
    QPointer<QWidget> focusBefore_;
    AnnouncedPrompts ask_{parts_.Context.Ask, [this] { ShowSorting(); }};
    SortRun* sort_ = nullptr;  ///< owned by the work queue, there while a sort is under way
    QElapsedTimer labelsShown_;
    QElapsedTimer removalsShown_;
};

}  // namespace mdlPLM
