#include "app/window/qt_tag_commands.h"

#include <QMenu>

#include "app/dialogs/frmMoreID3v2.h"
#include "app/list/list_texts.h"
#include "app/shared/qt_language.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "ui_frmPLM.h"

namespace mdlPLM {

namespace {

/// The further frames of the shown file, which the panel holds until it saves.
class PanelFrames : public OtherFramesText {
public:
    explicit PanelFrames(frmPLM_tagpanel& tags) : tags_(tags) {}
    [[nodiscard]] const Bytes& OtherFrames() const override { return tags_.Panel().OtherFrames(); }
    void SetOtherFrames(Bytes text) override { tags_.SetOtherFrames(std::move(text)); }

private:
    frmPLM_tagpanel& tags_;
};

/// A menu entry that is a button of the panel: it can be used when the button can.
struct PanelEntry {
    QAction* Ui::frmPLM::*Entry;
    QAbstractButton& (frmPLM_tagpanel::*Button)() const;
};

constexpr PanelEntry PanelEntries[] = {
    {&Ui::frmPLM::mnuCopyFromV1, &frmPLM_tagpanel::CopyFromV1Button},
    {&Ui::frmPLM::mnuCopyToV1, &frmPLM_tagpanel::CopyToV1Button},
    {&Ui::frmPLM::mnuMore, &frmPLM_tagpanel::MoreButton},
};

}  // namespace

TagCommands::TagCommands(const WindowParts& parts, ShownFile& shown, Preview& preview,
                         MediaPlayer& player)
    : parts_(parts), shown_(shown), preview_(preview), player_(player) {
    connect(&parts_.Tags, &frmPLM_tagpanel::SaveClicked, this, &TagCommands::cmdSaveID3_Click);
    connect(&parts_.Tags, &frmPLM_tagpanel::FixClicked, this, &TagCommands::cmdFixID3_Click);
    connect(&parts_.Tags, &frmPLM_tagpanel::MoreClicked, this, &TagCommands::cmdMore_Click);
    ConnectMenu();
}

void TagCommands::ConnectMenu() {
    const Ui::frmPLM& controls = parts_.Controls;
    connect(controls.mnuSaveID3, &QAction::triggered, this, &TagCommands::cmdSaveID3_Click);
    connect(controls.mnuFixID3, &QAction::triggered, this, &TagCommands::cmdFixID3_Click);
    for (const PanelEntry& row : PanelEntries) {
        QAction* const entry = controls.*row.Entry;
        QAbstractButton* const button = &(parts_.Tags.*row.Button)();
        connect(entry, &QAction::triggered, button, &QAbstractButton::click);
        connect(controls.mnuTags, &QMenu::aboutToShow, entry,
                [entry, button] { entry->setEnabled(button->isEnabled()); });
    }
}

void TagCommands::cmdMore_Click() {
    PanelFrames frames(parts_.Tags);
    const AppContext& context = parts_.Context;
    frmMoreID3v2({frames, context.Ask, context.Dialogs, shown_.Path()}, &parts_.Window).exec();
}

void TagCommands::cmdSaveID3_Click() {
    if (parts_.Work.Busy()) return;
    switch (parts_.Tags.Panel().Now()) {
        case TagPanel::State::Nothing:
            return parts_.Status.Say(tr("No file is selected."));
        case TagPanel::State::OneFile:
            BeginSaving();
            return OneFileSaved(parts_.Tags.SaveID3());
        case TagPanel::State::Batch:
            return SaveAllSelected();
    }
}

void TagCommands::cmdFixID3_Click() {
    if (parts_.Work.Busy()) return;
    const Text inPattern = parts_.Names.InPattern();
    switch (parts_.Tags.Panel().Now()) {
        case TagPanel::State::Nothing:
            return parts_.Status.Say(tr("No file is selected."));
        case TagPanel::State::OneFile:
            BeginSaving();
            return OneFileSaved(parts_.Tags.FixID3(inPattern));
        case TagPanel::State::Batch:
            return StartTagRun(tr("Cleaning tags"), parts_.Tags.FixAll(SelectedPaths(), inPattern));
    }
}

// The one file that is shown.
void TagCommands::BeginSaving() {
    player_.Release(shown_.Path());
    LeftOvers* const leftOvers = parts_.Context.LeftBehind;
    if (leftOvers != nullptr) leftOvers->LookBeside(shown_.Path());
}

std::vector<Text> TagCommands::SelectedPaths() const {
    std::vector<Text> paths;
    for (const FileList::Index row : parts_.List.SelectedRows())
        paths.push_back(parts_.List.Path(row));
    return paths;
}

void TagCommands::SaveAllSelected() {
    const Message question{{}, parts_.Tags.Panel().ConfirmationText(), {}};
    if (parts_.Context.Ask.AskYesNo(question) != Answer::Yes) return;
    StartTagRun(tr("Saving tags"), parts_.Tags.SaveAll(SelectedPaths()));
}

void TagCommands::OneFileSaved(const PanelSave& saved) {
    switch (saved.Outcome) {
        case SaveOutcome::Failed:
            return parts_.Context.Ask.Critical({{}, saved.Reason, shown_.Path()});
        case SaveOutcome::NoWork:
            return parts_.Status.Say(tr("There was nothing to save."));
        case SaveOutcome::Written:
            parts_.Status.Say(tr("The tags were saved."));
    }
    parts_.Counter.Update();
    const std::optional<FileList::Index> row = shown_.Row();
    if (!row) return;
    preview_.Renew({*row});
    shown_.ShowNameOf(*row);
}

void TagCommands::StartTagRun(const QString& what, TagRun run) {
    player_.Stop();
    run.SetName(FromQt(what));
    if (parts_.Context.LeftBehind != nullptr) run.Tidy(*parts_.Context.LeftBehind);
    auto work = std::make_unique<TagRun>(std::move(run));
    const TagRun& underWay = *work;
    parts_.Work.Start(std::move(work),
                      [this, &underWay, rows = parts_.List.SelectedRows()](bool /*stopped*/) {
                          TagRun_Done(underWay.Report(), rows);
                      });
}

void TagCommands::TagRun_Done(const RunReport& report, const std::vector<FileList::Index>& rows) {
    ShowTagsAfterRun(report);
    parts_.Counter.Update();
    std::vector<FileList::Index> written;
    for (std::size_t i = 0; i < report.Files.size(); ++i)
        if (report.Files[i].What == FileFate::Done) written.push_back(rows[i]);
    preview_.Renew(std::move(written));
    const Language words = UserLanguage();
    const CommandEnd end = report.Stopped ? CommandEnd::Stopped : CommandEnd::Reached;
    parts_.Status.Say(ToQt(RunStatus(SummaryText(report, TagWording, words), end, words)),
                      [whole = report, words] { return DetailsText(whole, TagWording, words); });
    const Text failures = FailureText(report, TagWording, words);
    if (!failures.empty()) parts_.Context.Ask.Critical({{}, failures, {}});
}

void TagCommands::ShowTagsAfterRun(const RunReport& report) {
    const TagPanel& panel = parts_.Tags.Panel();
    const bool allSaved = report.Count(FileFate::Failed) == 0 && !report.Stopped;
    switch (WhatPanelShowsAfter({panel.Now(), panel.IsEdited(), allSaved})) {
        case PanelAfterRun::StaysAsItIs:
            return;
        case PanelAfterRun::ShowsSelection:
            return shown_.ShowSelection(ChangedBy::User);
        case PanelAfterRun::IsEmptied:
            return parts_.Tags.ShowBatch();
    }
}

}  // namespace mdlPLM
