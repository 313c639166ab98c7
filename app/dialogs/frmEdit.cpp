#include "app/dialogs/frmEdit.h"

#include <QScreen>

#include "app/shared/qt_entry_filter.h"
#include "app/shared/qt_text.h"
#include "ui_frmEdit.h"

namespace mdlPLM {

frmEdit::frmEdit(TextView name, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmEdit>()) {
    ui_->setupUi(this);
    ui_->txtFixedName->setText(ToQt(name));
    for (QLineEdit* box : findChildren<QLineEdit*>()) FilterEntry(*box);
    ui_->txtReplace->installEventFilter(this);
    connect(ui_->cmdReplace, &QPushButton::clicked, this, &frmEdit::cmdReplace_Click);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmEdit::~frmEdit() = default;

std::optional<Text> frmEdit::EditName(QWidget* parent, TextView name) {
    frmEdit dialog(name, parent);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.FixedName();
}

Text frmEdit::FixedName() const { return FromQt(ui_->txtFixedName->text()); }

bool frmEdit::eventFilter(QObject* watched, QEvent* event) {
    // Afterwards, because the click that gives the focus also sets the cursor.
    if (watched == ui_->txtReplace && event->type() == QEvent::FocusIn)
        QMetaObject::invokeMethod(this, "txtReplace_GotFocus", Qt::QueuedConnection);
    return QDialog::eventFilter(watched, event);
}

void frmEdit::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const QRect room = screen()->availableGeometry();
    move(room.center() - rect().center());
}

void frmEdit::txtReplace_GotFocus() {
    const QString selected = ui_->txtFixedName->KeptSelection();
    if (selected.isEmpty()) return;
    ui_->txtReplace->setText(selected);
    ui_->txtReplace->selectAll();
}

void frmEdit::cmdReplace_Click() {
    const Text replaced =
        Replace(FixedName(), FromQt(ui_->txtReplace->text()), FromQt(ui_->txtWith->text()));
    ui_->txtFixedName->setText(ToQt(replaced));
}

}  // namespace mdlPLM
