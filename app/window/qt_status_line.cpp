#include "app/window/qt_status_line.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/shared/qt_elided_label.h"
#include "app/shared/qt_icons.h"
#include "app/shared/qt_left_overs_text.h"
#include "app/shared/qt_text.h"

namespace mdlPLM {

StatusLine::StatusLine(AppContext& context, QStatusBar& bar, int indent)
    : context_(context),
      bar_(bar),
      lblStatus_(new ElidedLabel(&bar)),
      prgWork_(new QProgressBar(&bar)),
      cmdStop_(new QToolButton(&bar)),
      cmdDetails_(new QToolButton(&bar)) {
    lblStatus_->setIndent(indent);
    SetUpControls();
    connect(cmdStop_, &QToolButton::clicked, this, &StatusLine::StopClicked);
    connect(cmdDetails_, &QToolButton::clicked, this, &StatusLine::cmdDetails_Click);
}

void StatusLine::SetUpControls() {
    lblStatus_->setObjectName(QStringLiteral("lblStatus"));
    cmdDetails_->setObjectName(QStringLiteral("cmdDetails"));
    cmdDetails_->setText(tr("Details..."));
    prgWork_->setObjectName(QStringLiteral("prgWork"));
    prgWork_->setMaximumWidth(220);
    prgWork_->setAccessibleName(tr("Progress"));
    prgWork_->setFormat(tr("%v of %m"));
    cmdStop_->setObjectName(QStringLiteral("cmdStop"));
    cmdStop_->setText(tr("Stop"));
    cmdStop_->setIcon(Icon(IconName::Stop));
    cmdStop_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar_.addWidget(lblStatus_, 1);
    AddToBar(*cmdDetails_);
    AddToBar(*prgWork_);
    AddToBar(*cmdStop_);
}

void StatusLine::AddToBar(QWidget& control) {
    bar_.addPermanentWidget(&control);
    // The lists above must not jump when long work begins.
    lblStatus_->setMinimumHeight(qMax(lblStatus_->minimumHeight(), control.sizeHint().height()));
    control.hide();
}

void StatusLine::Say(const QString& text, Details details) {
    Put(text.isEmpty() ? text : WithRemovedLeftOvers(text, context_), std::move(details));
}

void StatusLine::SayRemovedLeftOvers() { Put(WithRemovedLeftOvers({}, context_), {}); }

void StatusLine::Put(const QString& text, Details details) {
    said_ = text;
    lblStatus_->setText(text);
    lblStatus_->setToolTip(text);
    details_ = std::move(details);
    cmdDetails_->setVisible(details_ != nullptr);
}

void StatusLine::ShowProgress(const RunProgress& progress) {
    lblStatus_->setText(ToQt(progress.What));
    // A bar without a total says that work goes on.
    prgWork_->setRange(0, static_cast<int>(progress.Total));
    prgWork_->setValue(static_cast<int>(progress.Done));
    prgWork_->show();
    cmdStop_->show();
}

void StatusLine::EndProgress() {
    lblStatus_->setText(said_);
    prgWork_->hide();
    cmdStop_->hide();
}

void StatusLine::cmdDetails_Click() {
    QDialog dialog(bar_.window());
    dialog.setObjectName(QStringLiteral("dlgDetails"));
    dialog.setWindowTitle(lblStatus_->text());
    dialog.resize(640, 360);
    auto* text = new QPlainTextEdit(ToQt(details_()), &dialog);
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setAccessibleName(tr("Details"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    dialog.exec();
}

}  // namespace mdlPLM
