// frmPLM: the tags of the selected files are edited, cleaned and saved.
#include <QAbstractButton>
#include <algorithm>

#include "app/dialogs/frmMoreID3v2.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"
#include "app/tags/frmPLM_tagpanel.h"
#include "app/window/frmPLM.h"
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

}  // namespace

void frmPLM::SetUpTags() {
    tags_ = new frmPLM_tagpanel(context_.Values, context_.Replacements);
    ui_->scrTags->setWidget(tags_);
}

void frmPLM::ConnectTags() {
    connect(tags_, &frmPLM_tagpanel::Edited, this, [this] {
        if (!shownPath_.empty()) ShowNewName();
    });
    connect(tags_, &frmPLM_tagpanel::SaveClicked, this, &frmPLM::cmdSaveID3_Click);
    connect(tags_, &frmPLM_tagpanel::FixClicked, this, &frmPLM::cmdFixID3_Click);
    connect(tags_, &frmPLM_tagpanel::MoreClicked, this, &frmPLM::cmdMore_Click);
    connect(ui_->mnuSaveID3, &QAction::triggered, this, &frmPLM::cmdSaveID3_Click);
    connect(ui_->mnuFixID3, &QAction::triggered, this, &frmPLM::cmdFixID3_Click);
    const auto press = [this](QAction* entry, const char* button) {
        auto* pressed = tags_->findChild<QAbstractButton*>(QLatin1String(button));
        connect(entry, &QAction::triggered, pressed, &QAbstractButton::click);
        connect(ui_->mnuTags, &QMenu::aboutToShow, entry,
                [entry, pressed] { entry->setEnabled(pressed->isEnabled()); });
    };
    press(ui_->mnuCopyFromV1, "cmdCopyFromV1");
    press(ui_->mnuCopyToV1, "cmdCopyToV1");
    press(ui_->mnuMore, "cmdMore");
}

void frmPLM::cmdMore_Click() {
    PanelFrames frames(*tags_);
    frmMoreID3v2({frames, context_.Ask, context_.Dialogs, shownPath_}, this).exec();
}

void frmPLM::cmdSaveID3_Click() {
    if (work_.Busy()) return;
    switch (tags_->Panel().Now()) {
        case TagPanel::State::Nothing:
            return SetStatus(tr("No file is selected."));
        case TagPanel::State::OneFile:
            player_.Release(shownPath_);
            return OneFileSaved(tags_->SaveID3());
        case TagPanel::State::Batch:
            return SaveAllSelected();
    }
}

void frmPLM::cmdFixID3_Click() {
    if (work_.Busy()) return;
    switch (tags_->Panel().Now()) {
        case TagPanel::State::Nothing:
            return SetStatus(tr("No file is selected."));
        case TagPanel::State::OneFile:
            player_.Release(shownPath_);
            return OneFileSaved(tags_->FixID3(InPattern()));
        case TagPanel::State::Batch:
            return StartTagRun(tr("Cleaning tags"), tags_->FixAll(SelectedPaths(), InPattern()));
    }
}

std::vector<Text> frmPLM::SelectedPaths() const {
    std::vector<Text> paths;
    for (const FileList::Index row : list_.SelectedRows()) paths.push_back(list_.Path(row));
    return paths;
}

void frmPLM::SaveAllSelected() {
    const Message question{{}, tags_->Panel().ConfirmationText(), {}};
    if (context_.Ask.AskYesNo(question) != Answer::Yes) return;
    StartTagRun(tr("Saving tags"), tags_->SaveAll(SelectedPaths()));
}

void frmPLM::OneFileSaved(const PanelSave& saved) {
    switch (saved.Outcome) {
        case SaveOutcome::Failed:
            return context_.Ask.Critical({{}, saved.Reason, shownPath_});
        case SaveOutcome::NoWork:
            return SetStatus(tr("There was nothing to save."));
        case SaveOutcome::Written:
            SetStatus(tr("The tags were saved."));
    }
    UpdateCounter();
    const int row = ShownRow();
    if (row < 0) return;
    RenewNames({static_cast<FileList::Index>(row)});
    ShowNameOf(static_cast<FileList::Index>(row));
}

void frmPLM::StartTagRun(const QString& what, TagRun run) {
    player_.Stop();
    run.SetName(FromQt(what));
    auto work = std::make_unique<TagRun>(std::move(run));
    const TagRun& underWay = *work;
    work_.Start(std::move(work), [this, &underWay, rows = list_.SelectedRows()](bool /*stopped*/) {
        TagRun_Done(underWay.Report(), rows);
    });
}

void frmPLM::TagRun_Done(const RunReport& report, const std::vector<FileList::Index>& rows) {
    ShowTagsAfterRun(report);
    UpdateCounter();
    std::vector<FileList::Index> written;
    for (std::size_t i = 0; i < report.Files.size(); ++i)
        if (report.Files[i].What == FileFate::Done) written.push_back(rows[i]);
    RenewNames(std::move(written));
    const Language words = UserLanguage();
    SetStatus(RunStatus(ToQt(SummaryText(report, TagWording, words)), report.Stopped),
              [whole = report, words] { return DetailsText(whole, TagWording, words); });
    const Text failures = FailureText(report, TagWording, words);
    if (!failures.empty()) context_.Ask.Critical({{}, failures, {}});
}

void frmPLM::ShowTagsAfterRun(const RunReport& report) {
    const TagPanel& panel = tags_->Panel();
    if (panel.Now() != TagPanel::State::Batch) {
        // Another file was selected meanwhile; it may have been shown before it was written.
        if (!panel.IsEdited()) Selection_Changed(true);
    } else if (report.Count(FileFate::Failed) == 0 && !report.Stopped) {
        tags_->ShowBatch();
    }
    // What could not be saved stays in the boxes for another try.
}

void frmPLM::RenewNames(std::vector<FileList::Index> rows) {
    if (!PreviewShown()) return;
    const auto stays = [this](FileList::Index row) {
        return list_.NewNameEdited(row) || list_.NewName(row).empty();
    };
    rows.erase(std::remove_if(rows.begin(), rows.end(), stays), rows.end());
    RecomputeNames(std::move(rows));
}

}  // namespace mdlPLM
