#include "app/tags/frmPLM_tagpanel.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QEvent>
#include <QLineEdit>
#include <QStyle>

#include "app/shared/qt_box_text.h"
#include "app/shared/qt_enable_with_reason.h"
#include "app/shared/qt_icons.h"
#include "app/shared/qt_language.h"
#include "app/shared/qt_text.h"
#include "core/tags/genres.h"
#include "core/text/code_page.h"
#include "ui_frmPLM_tagpanel.h"

namespace mdlPLM {

namespace {

/// How long the header of the sound is searched for in one turn of the event loop (milliseconds).
constexpr qint64 SearchingTime = 15;

struct TextBox {
    TagBox Box;
    QLineEdit* Ui::frmPLM_tagpanel::*Control;
};

constexpr TextBox TextBoxes[] = {
    {TagBox::txtTitle, &Ui::frmPLM_tagpanel::txtTitle},
    {TagBox::txtArtist, &Ui::frmPLM_tagpanel::txtArtist},
    {TagBox::txtAlbum, &Ui::frmPLM_tagpanel::txtAlbum},
    {TagBox::txtYear, &Ui::frmPLM_tagpanel::txtYear},
    {TagBox::txtTrackNr, &Ui::frmPLM_tagpanel::txtTrackNr},
    {TagBox::txtComments, &Ui::frmPLM_tagpanel::txtComments},
    {TagBox::txtV2Title, &Ui::frmPLM_tagpanel::txtV2Title},
    {TagBox::txtV2Artist, &Ui::frmPLM_tagpanel::txtV2Artist},
    {TagBox::txtV2Album, &Ui::frmPLM_tagpanel::txtV2Album},
    {TagBox::txtV2Year, &Ui::frmPLM_tagpanel::txtV2Year},
    {TagBox::txtV2Track, &Ui::frmPLM_tagpanel::txtV2Track},
    {TagBox::txtV2Comments, &Ui::frmPLM_tagpanel::txtV2Comments},
    {TagBox::txtV2Composer, &Ui::frmPLM_tagpanel::txtV2Composer},
    {TagBox::txtV2OrigArtist, &Ui::frmPLM_tagpanel::txtV2OrigArtist},
    {TagBox::txtV2Copyright, &Ui::frmPLM_tagpanel::txtV2Copyright},
    {TagBox::txtV2Encoder, &Ui::frmPLM_tagpanel::txtV2Encoder},
    {TagBox::txtV2URL, &Ui::frmPLM_tagpanel::txtV2URL},
};

/// A box that takes any text too, and offers the genres.
struct GenreBox {
    TagBox Box;
    QComboBox* Ui::frmPLM_tagpanel::*Control;
    bool V2Spelling;
};

constexpr GenreBox GenreBoxes[] = {
    {TagBox::cmbGenre, &Ui::frmPLM_tagpanel::cmbGenre, false},
    {TagBox::cmbV2Genre, &Ui::frmPLM_tagpanel::cmbV2Genre, true},
};
static_assert(std::size(TextBoxes) + std::size(GenreBoxes) == TagBoxCount);

struct StreamLabel {
    QLabel* Ui::frmPLM_tagpanel::*Label;
    Text StreamLines::*Line;
};

constexpr StreamLabel StreamLabels[] = {
    {&Ui::frmPLM_tagpanel::txtfVersion, &StreamLines::Version},
    {&Ui::frmPLM_tagpanel::txtfLayer, &StreamLines::Layer},
    {&Ui::frmPLM_tagpanel::txtfBitrate, &StreamLines::Bitrate},
    {&Ui::frmPLM_tagpanel::txtfFrequency, &StreamLines::Frequency},
    {&Ui::frmPLM_tagpanel::txtfCopyright, &StreamLines::Copyright},
    {&Ui::frmPLM_tagpanel::txtfOriginal, &StreamLines::Original},
    {&Ui::frmPLM_tagpanel::txtfProtection, &StreamLines::Protection},
    {&Ui::frmPLM_tagpanel::txtfEmphasis, &StreamLines::Emphasis},
    {&Ui::frmPLM_tagpanel::txtfHeader, &StreamLines::Header},
    {&Ui::frmPLM_tagpanel::txtfID3v1, &StreamLines::ID3v1},
    {&Ui::frmPLM_tagpanel::txtfID3v2, &StreamLines::ID3v2},
    {&Ui::frmPLM_tagpanel::txtfSize, &StreamLines::Size},
    {&Ui::frmPLM_tagpanel::txtfLength, &StreamLines::Length},
};

}  // namespace

frmPLM_tagpanel::frmPLM_tagpanel(const Settings& settings, const ReplacementList& replacements,
                                 QWidget* parent)
    : QWidget(parent),
      panel_(settings, replacements, UserLanguage()),
      ui_(std::make_unique<Ui::frmPLM_tagpanel>()) {
    ui_->setupUi(this);
    for (const GenreBox& row : GenreBoxes) SetUpGenres(*(ui_.get()->*row.Control), row.V2Spelling);
    SetUpBoxes();
    ConnectButtons();
    searching_.setInterval(0);
    connect(&searching_, &QTimer::timeout, this, &frmPLM_tagpanel::SearchStream);
    ShowPlayed({});
    Show();
}

frmPLM_tagpanel::~frmPLM_tagpanel() = default;

void frmPLM_tagpanel::SetUpGenres(QComboBox& box, bool v2Spelling) {
    box.addItem({});  // no genre
    for (const Bytes& name : SortedGenreNames(v2Spelling)) box.addItem(ToQt(FromCodePage(name)));
    box.installEventFilter(this);
}

void frmPLM_tagpanel::SetUpBoxes() {
    for (const TextBox& row : TextBoxes) boxes_[IndexOf(row.Box)] = ui_.get()->*row.Control;
    for (const GenreBox& row : GenreBoxes)
        boxes_[IndexOf(row.Box)] = (ui_.get()->*row.Control)->lineEdit();
    for (const TagBoxRow& row : TagBoxTable) {
        QLineEdit* const box = boxes_[IndexOf(row.Box)];
        box->installEventFilter(this);
        connect(box, &QLineEdit::textChanged, this,
                [this, which = row.Box](const QString& text) { Box_Change(which, text); });
    }
}

void frmPLM_tagpanel::ConnectButtons() {
    ui_->cmdFixID3->setIcon(Icon(IconName::FixTags));
    ui_->cmdSaveID3->setIcon(Icon(IconName::SaveTags));
    ui_->cmdMore->setIcon(Icon(IconName::More));
    const auto tick = [this](QCheckBox* box, void (TagPanel::*ticked)(bool)) {
        connect(box, &QCheckBox::toggled, this, [this, ticked](bool on) {
            if (showing_) return;
            (panel_.*ticked)(on);
            Show();
            emit Edited();
        });
    };
    tick(ui_->chkID3v1, &TagPanel::TickID3v1);
    tick(ui_->chkID3v2, &TagPanel::TickID3v2);
    tick(ui_->chkID3v1Rem, &TagPanel::TickID3v1Rem);
    tick(ui_->chkID3v2Rem, &TagPanel::TickID3v2Rem);
    connect(ui_->cmdCopyFromV1, &QPushButton::clicked, this, &frmPLM_tagpanel::CopyFromV1);
    connect(ui_->cmdCopyToV1, &QPushButton::clicked, this, &frmPLM_tagpanel::CopyToV1);
    connect(ui_->cmdSaveID3, &QPushButton::clicked, this, &frmPLM_tagpanel::SaveClicked);
    connect(ui_->cmdFixID3, &QPushButton::clicked, this, &frmPLM_tagpanel::FixClicked);
    connect(ui_->cmdMore, &QPushButton::clicked, this, &frmPLM_tagpanel::MoreClicked);
}

bool frmPLM_tagpanel::eventFilter(QObject* watched, QEvent* event) {
    auto* text = qobject_cast<QLineEdit*>(watched);
    if (event->type() == QEvent::Enter && text != nullptr) ShowWholeTextAsTip(*text);
    // A wheel that scrolls the panel must not change a genre on its way.
    const auto* box = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Wheel && box != nullptr && !box->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmPLM_tagpanel::Clear() {
    panel_.Clear();
    Show();
}

void frmPLM_tagpanel::ShowFile(TextView path, ErrorSink& errors) {
    panel_.ShowFile(path, errors);
    Show();
}

void frmPLM_tagpanel::ShowBatch() {
    panel_.ShowBatch();
    Show();
}

void frmPLM_tagpanel::ShowPlayed(const QString& toolTip) {
    const QIcon::Mode mode = toolTip.isEmpty() ? QIcon::Disabled : QIcon::Normal;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    ui_->picTab->setPixmap(
        Icon(IconName::Play).pixmap(QSize(size, size), devicePixelRatio(), mode));
    ui_->picTab->setToolTip(toolTip);
    ui_->picTab->setAccessibleDescription(toolTip);
}

QAbstractButton& frmPLM_tagpanel::CopyFromV1Button() const { return *ui_->cmdCopyFromV1; }

QAbstractButton& frmPLM_tagpanel::CopyToV1Button() const { return *ui_->cmdCopyToV1; }

QAbstractButton& frmPLM_tagpanel::MoreButton() const { return *ui_->cmdMore; }

void frmPLM_tagpanel::CopyFromV1() {
    panel_.CopyFromV1();
    Show();
    emit Edited();
}

void frmPLM_tagpanel::CopyToV1() {
    panel_.CopyToV1();
    Show();
    emit Edited();
}

PanelSave frmPLM_tagpanel::SaveID3() {
    PanelSave saved = panel_.SaveID3();
    Show();
    return saved;
}

PanelSave frmPLM_tagpanel::FixID3(TextView inPattern) {
    PanelSave saved = panel_.FixID3(inPattern);
    Show();
    return saved;
}

TagRun frmPLM_tagpanel::SaveAll(std::vector<Text> paths) {
    TagRun run = panel_.SaveAll(std::move(paths));
    Show();
    return run;
}

TagRun frmPLM_tagpanel::FixAll(std::vector<Text> paths, TextView inPattern) const {
    return panel_.FixAll(std::move(paths), inPattern);
}

void frmPLM_tagpanel::SetOtherFrames(Bytes frames) {
    panel_.SetOtherFrames(std::move(frames));
    Show();
    emit Edited();
}

void frmPLM_tagpanel::Box_Change(TagBox box, const QString& text) {
    if (showing_) return;
    panel_.Enter(box, FromQt(text));
    Show();
    emit Edited();
}

void frmPLM_tagpanel::Show() {
    showing_ = true;
    const TagBoxes& boxes = panel_.Boxes();
    for (const TagBoxRow& row : TagBoxTable)
        SetBoxText(*boxes_[IndexOf(row.Box)], ToQt(boxes.*row.Value));
    ui_->chkID3v1->setChecked(boxes.chkID3v1);
    ui_->chkID3v2->setChecked(boxes.chkID3v2);
    ui_->chkID3v1Rem->setChecked(boxes.chkID3v1Rem);
    ui_->chkID3v2Rem->setChecked(boxes.chkID3v2Rem);
    ui_->chkID3v1Rem->setVisible(panel_.ShowsRemoveBoxes());
    ui_->chkID3v2Rem->setVisible(panel_.ShowsRemoveBoxes());
    EnableWithReason(*ui_->cmdCopyFromV1, panel_.CanCopyFromV1(), tr("There is no ID3v1 tag."));
    EnableWithReason(*ui_->cmdCopyToV1, panel_.CanCopyToV1(), tr("There is no ID3v2 tag."));
    EnableWithReason(*ui_->cmdMore, panel_.Now() == TagPanel::State::OneFile,
                     tr("Select one file first."));
    ShowStream();
    showing_ = false;
}

void frmPLM_tagpanel::ShowStream() {
    for (const auto& [label, line] : StreamLabels)
        (ui_.get()->*label)->setText(ToQt(panel_.Stream().*line));
    ui_->txtfHeader->setToolTip(ui_->txtfHeader->text());
    if (!panel_.SearchesStream()) return searching_.stop();
    ui_->txtfVersion->setText(tr("Searching: %1 %").arg(panel_.SearchedPercent()));
    if (!searchRests_) searching_.start();
}

void frmPLM_tagpanel::SearchStream() {
    QElapsedTimer clock;
    clock.start();
    while (panel_.SearchStreamOn() && clock.elapsed() < SearchingTime) {
    }
    ShowStream();
}

void frmPLM_tagpanel::Rest(bool rest) {
    ui_->cmdSaveID3->setEnabled(!rest);
    ui_->cmdFixID3->setEnabled(!rest);
    searchRests_ = rest;
    if (rest)
        searching_.stop();
    else
        ShowStream();
}

}  // namespace mdlPLM
