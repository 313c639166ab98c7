#include "app/dialogs/frmMoreID3v2.h"

#include <QCoreApplication>

#include "app/shared/file_dialogs.h"
#include "app/shared/qt_text.h"
#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/tags/id3v2.h"
#include "core/text/code_page.h"
#include "ui_frmMoreID3v2.h"

namespace mdlPLM {
namespace {

QString MeaningOf(BytesView identifier) {
    for (const ListedFrame& kind : ListedFrames) {
        if (kind.Identifier == identifier)
            return QCoreApplication::translate("ListedFrames", kind.Meaning);
    }
    return {};
}

Text PictureFilter(const QString& format) {
    const QString extension =
        format == QLatin1String("JPEG") ? QStringLiteral("jpg") : format.toLower();
    return FromQt(QStringLiteral("%1 (*.%2)|*.%2").arg(format, extension));
}

}  // namespace

frmMoreID3v2::frmMoreID3v2(const MoreID3v2Context& context, QWidget* parent)
    : QDialog(parent), context_(context), ui_(std::make_unique<Ui::frmMoreID3v2>()) {
    ui_->setupUi(this);
    Form_Load();
    connect(ui_->lstID3v2Tags, &QListWidget::itemSelectionChanged, this,
            &frmMoreID3v2::lstID3v2Tags_Click);
    // A click on the selected frame shows it again after its text was typed over.
    connect(ui_->lstID3v2Tags, &QListWidget::itemClicked, this, [this] {
        if (BoxText() != content_.Shown()) lstID3v2Tags_Click();
    });
    connect(ui_->cmdAdd, &QPushButton::clicked, this, &frmMoreID3v2::cmdAdd_Click);
    connect(ui_->cmdRemove, &QPushButton::clicked, this, &frmMoreID3v2::cmdRemove_Click);
    connect(ui_->cmdRemoveAll, &QPushButton::clicked, this, &frmMoreID3v2::cmdRemoveAll_Click);
    connect(ui_->cmdSaveToFile, &QPushButton::clicked, this, &frmMoreID3v2::cmdSaveToFile_Click);
    connect(ui_->cmdSavePicture, &QPushButton::clicked, this, &frmMoreID3v2::cmdSavePicture_Click);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::close);
}

frmMoreID3v2::~frmMoreID3v2() = default;

void frmMoreID3v2::Form_Load() {
    ui_->lblFile->setText(ToQt(FileNameOfPath(context_.FilePath)));
    ui_->lblFile->setToolTip(ToQt(context_.FilePath));
    // What is typed counts as it is typed, so nothing completes it.
    ui_->cmbV2Frames->setCompleter(nullptr);
    for (const ListedFrame& kind : ListedFrames) {
        ui_->cmbV2Frames->addItem(ToQt(FromAscii(kind.Identifier)));
        ui_->cmbV2Frames->setItemData(ui_->cmbV2Frames->count() - 1, MeaningOf(kind.Identifier),
                                      Qt::ToolTipRole);
    }
    ui_->cmbV2Frames->setCurrentIndex(-1);
    for (BytesView identifier : FramesIn(context_.Frames.OtherFrames())) AddToList(identifier);
    HidePicture();
    EnableButtons();
}

void frmMoreID3v2::AddToList(BytesView identifier) {
    auto* item = new QListWidgetItem(ToQt(FromCodePage(identifier)), ui_->lstID3v2Tags);
    item->setToolTip(MeaningOf(identifier));
    item->setData(Qt::AccessibleDescriptionRole, MeaningOf(identifier));
}

Bytes frmMoreID3v2::SelectedIdentifier() const {
    const QList<QListWidgetItem*> selected = ui_->lstID3v2Tags->selectedItems();
    return selected.isEmpty() ? Bytes() : ToCodePage(FromQt(selected.first()->text()));
}

void frmMoreID3v2::lstID3v2Tags_Click() {
    const Bytes identifier = SelectedIdentifier();
    EnableButtons();
    if (identifier.empty()) return;
    ShowContent(GetFrameText(context_.Frames.OtherFrames(), identifier));
    ShowPicture(identifier);
    NoteEmptyContent();
}

void frmMoreID3v2::ShowContent(Bytes content) {
    content_ = ShownContent(std::move(content));
    ui_->txtTagContent->setPlainText(ToQt(content_.Shown()));
    HidePicture();
    Note(content_.IsCut() ? tr("The beginning of %L1 characters is shown.")
                                .arg(static_cast<qulonglong>(content_.Length()))
                          : QString());
}

// A frame whose text ends in a NUL, as many programs write it, is empty for the reader.
void frmMoreID3v2::NoteEmptyContent() {
    if (content_.Length() == 0 && ui_->fraPicture->isHidden() && ui_->lblNote->text().isEmpty())
        Note(tr("The frame has no text that can be shown."));
}

void frmMoreID3v2::ShowPicture(BytesView identifier) {
    if (identifier != "APIC") return;
    const std::vector<FramePicture> pictures = PicturesIn(context_.Frames.OtherFrames());
    if (pictures.empty()) return;
    const qreal ratio = devicePixelRatioF();
    const auto decoded = DecodePicture(pictures[0], ui_->lblPicture->maximumSize() * ratio);
    if (!decoded) {
        Note(tr("The picture cannot be shown."));
        return;
    }
    QPixmap pixmap = QPixmap::fromImage(decoded->Image);
    pixmap.setDevicePixelRatio(ratio);
    const QString description = DescribePicture(*decoded, pictures[0].Type);
    ui_->lblPicture->setPixmap(pixmap);
    ui_->lblPicture->setAccessibleDescription(description);
    ui_->lblPictureInfo->setText(pictures.size() == 1 ? description
                                                      : tr("%1\nThe first of %n pictures", "",
                                                           static_cast<int>(pictures.size()))
                                                            .arg(description));
    ui_->fraPicture->show();
    pictureData_ = Bytes(pictures[0].Data);
    pictureFilter_ = PictureFilter(decoded->Format);
}

void frmMoreID3v2::HidePicture() {
    ui_->fraPicture->hide();
    ui_->lblPicture->clear();
    pictureData_.clear();
}

void frmMoreID3v2::Note(const QString& text) { ui_->lblNote->setText(text); }

void frmMoreID3v2::EnableButtons() {
    ui_->cmdSaveToFile->setEnabled(!SelectedIdentifier().empty());
}

// The box's own plain text would turn non-breaking blanks into blanks.
Text frmMoreID3v2::BoxText() const {
    QString text = ui_->txtTagContent->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    return FromQt(text);
}

void frmMoreID3v2::cmdAdd_Click() {
    const Bytes identifier = ToCodePage(FromQt(ui_->cmbV2Frames->currentText()));
    switch (AddFrame(context_.Frames, identifier, content_.ContentOf(BoxText()))) {
        case AddResult::NoIdentifier:
            Note(tr("An identifier has four characters."));
            return;
        case AddResult::NoContent:
            Note(tr("The new frame has no content yet."));
            return;
        case AddResult::Added:
            break;
    }
    AddToList(identifier);
    ui_->cmbV2Frames->setCurrentIndex(-1);
    ui_->cmbV2Frames->clearEditText();
    ui_->lstID3v2Tags->clearSelection();
    ShowContent({});
    Note(tr("Added. The file is changed when its tags are saved."));
}

void frmMoreID3v2::cmdRemove_Click() {
    const Bytes identifier = SelectedIdentifier();
    if (identifier.empty()) return;
    RemoveFrameAt(context_.Frames, identifier);
    const int row = ui_->lstID3v2Tags->row(ui_->lstID3v2Tags->selectedItems().first());
    {
        // The neighbour is not to be shown in its place.
        const QSignalBlocker quiet(ui_->lstID3v2Tags);
        delete ui_->lstID3v2Tags->takeItem(row);
        ui_->lstID3v2Tags->clearSelection();
    }
    ShowContent({});
    EnableButtons();
    Note(tr("Removed. The file is changed when its tags are saved."));
}

void frmMoreID3v2::cmdRemoveAll_Click() {
    ui_->lstID3v2Tags->clear();
    ShowContent({});
    context_.Frames.SetOtherFrames({});
    EnableButtons();
    Note(tr("All removed. The file is changed when its tags are saved."));
}

void frmMoreID3v2::cmdSaveToFile_Click() {
    SaveBytes(Text(SaveFrameFilter),
              ContentToSave(context_.Frames.OtherFrames(), SelectedIdentifier()));
}

void frmMoreID3v2::cmdSavePicture_Click() { SaveBytes(pictureFilter_, pictureData_); }

void frmMoreID3v2::SaveBytes(const Text& filter, BytesView bytes) {
    FileDialogRequest request;
    request.Title = FromQt(windowTitle());
    request.InitialFolder = FolderOfPath(context_.FilePath);
    request.Filter = filter;
    const FileDialogResult chosen = context_.Dialogs.SaveFile(this, request);
    if (chosen.Paths.empty()) return;
    const Status written = WriteWholeFile(chosen.Paths.front(), bytes);
    if (written.Ok()) return Note(tr("Saved."));
    context_.Ask.Critical({{}, ErrorMessage(written.Number()), chosen.Paths.front()});
}

}  // namespace mdlPLM
