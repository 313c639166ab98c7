#include "app/window/frmSorting.h"

#include <QCloseEvent>
#include <algorithm>

#include "app/shared/qt_icons.h"
#include "app/shared/qt_text.h"
#include "core/platform/path.h"
#include "ui_frmSorting.h"

namespace mdlPLM {

namespace {

/// Copies below this are over before a bar of their own could be read.
constexpr std::int64_t LargeFile = std::int64_t{16} << 20;
constexpr int FileBarSteps = 1000;

void ShowPath(QLabel& label, const QString& path) {
    label.setToolTip(path);
    label.setText(label.fontMetrics().elidedText(path, Qt::ElideMiddle, label.width()));
}

}  // namespace

frmSorting::frmSorting(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmSorting>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui_->prgFile->setRange(0, FileBarSteps);
    ui_->prgFile->hide();
    ui_->cmdPause->setIcon(Icon(IconName::Pause));
    connect(ui_->cmdPause, &QPushButton::clicked, this, &frmSorting::cmdPause_Click);
}

frmSorting::~frmSorting() = default;

void frmSorting::ShowProgress(const RunProgress& progress) {
    ui_->lblMethod->setText(ToQt(progress.Each));
    ShowPath(*ui_->lblSource, ToQt(FileNameOfPath(progress.Source)));
    ShowPath(*ui_->lblTarget, ToQt(progress.Target));
    ui_->prgFiles->setRange(0, static_cast<int>(std::max<std::size_t>(progress.Total, 1)));
    ui_->prgFiles->setValue(static_cast<int>(progress.Done));
    ui_->prgFile->setVisible(progress.FileTotal >= LargeFile);
    if (progress.FileTotal > 0)
        ui_->prgFile->setValue(
            static_cast<int>(progress.FileDone * FileBarSteps / progress.FileTotal));
}

void frmSorting::ShowDone() {
    ui_->cmdPause->setText(tr("&Done!"));
    ui_->cmdPause->setIcon({});
    ui_->cmdPause->setToolTip({});
}

void frmSorting::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    for (QLabel* label : {ui_->lblSource, ui_->lblTarget}) ShowPath(*label, label->toolTip());
}

void frmSorting::reject() { cmdPause_Click(); }

void frmSorting::closeEvent(QCloseEvent* event) {
    event->accept();
    cmdPause_Click();
}

void frmSorting::cmdPause_Click() {
    if (std::exchange(ended_, true)) return;
    hide();
    emit Ended();
}

}  // namespace mdlPLM
