#include "app/dialogs/frmEdit.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include "app/shared/qt_text.h"
#include "tests/support/qt_modal.h"

using namespace mdlPLM;

class frmEditTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void ShowsTheName();
    void OpensInTheMiddleOfTheScreen();
    void SelectionIsTakenWhenReplaceGetsTheFocus_data();
    void SelectionIsTakenWhenReplaceGetsTheFocus();
    void SelectionIsStillTakenAfterADetour();
    void NothingIsTakenWithoutSelection();
    void ReplacesEveryOccurrence_data();
    void ReplacesEveryOccurrence();
    void GivesBackTheEditedName();
    void CancelGivesNothing_data();
    void CancelGivesNothing();
    void EnterInABoxIsOK();
    void EveryControlHasAName();

private:
    QLineEdit* Box(const char* name) { return form_->findChild<QLineEdit*>(name); }
    QPushButton* Button(const char* name) { return form_->findChild<QPushButton*>(name); }
    std::unique_ptr<frmEdit> form_;
};

void frmEditTest::init() {
    form_ = std::make_unique<frmEdit>(u"abba - waterloo.mp3");
    form_->show();
    form_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form_.get()));
}

void frmEditTest::ShowsTheName() {
    QCOMPARE(form_->windowTitle(), "Edit Fixed Filename");
    QCOMPARE(Box("txtFixedName")->text(), "abba - waterloo.mp3");
    QCOMPARE(QApplication::focusWidget(), Box("txtFixedName"));
    QVERIFY(!Box("txtFixedName")->hasSelectedText());
}

void frmEditTest::OpensInTheMiddleOfTheScreen() {
    const QPoint offset =
        form_->geometry().center() - form_->screen()->availableGeometry().center();
    QVERIFY2(std::abs(offset.x()) <= 2 && std::abs(offset.y()) <= 2,
             qPrintable(QStringLiteral("%1, %2").arg(offset.x()).arg(offset.y())));
}

void frmEditTest::SelectionIsTakenWhenReplaceGetsTheFocus_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("Tab") << 0;
    QTest::newRow("mouse") << 1;
    QTest::newRow("mnemonic") << 2;
}

void frmEditTest::SelectionIsTakenWhenReplaceGetsTheFocus() {
    QFETCH(int, way);
    Box("txtReplace")->setText("something old");
    Box("txtFixedName")->setSelection(7, 8);
    if (way == 0) QTest::keyClick(Box("txtFixedName"), Qt::Key_Tab);
    if (way == 1) QTest::mouseClick(Box("txtReplace"), Qt::LeftButton);
    if (way == 2) QTest::keyClick(form_.get(), Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(Box("txtReplace")->selectedText(), "waterloo");
    QCOMPARE(Box("txtReplace")->text(), "waterloo");
    QCOMPARE(QApplication::focusWidget(), Box("txtReplace"));
}

void frmEditTest::SelectionIsStillTakenAfterADetour() {
    Box("txtFixedName")->setSelection(0, 4);
    Box("txtWith")->setFocus();
    Box("txtReplace")->setFocus();
    QTRY_COMPARE(Box("txtReplace")->selectedText(), "abba");
    QTest::keyClick(Box("txtReplace"), Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), Box("txtFixedName"));
    QCOMPARE(Box("txtFixedName")->selectedText(), "abba");
}

void frmEditTest::NothingIsTakenWithoutSelection() {
    Box("txtReplace")->setText("kept");
    QTest::keyClick(Box("txtFixedName"), Qt::Key_Tab);
    QCoreApplication::processEvents();
    QCOMPARE(QApplication::focusWidget(), Box("txtReplace"));
    QCOMPARE(Box("txtReplace")->text(), "kept");
    QTest::keyClick(Box("txtReplace"), Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!Box("txtFixedName")->hasSelectedText());
}

void frmEditTest::ReplacesEveryOccurrence_data() {
    QTest::addColumn<QString>("find");
    QTest::addColumn<QString>("put");
    QTest::addColumn<QString>("result");
    QTest::newRow("every one") << "b"
                               << "p"
                               << "appa - waterloo.mp3";
    QTest::newRow("longer text that holds it") << "a"
                                               << "aa"
                                               << "aabbaa - waaterloo.mp3";
    QTest::newRow("nothing to put") << "abba - "
                                    << ""
                                    << "waterloo.mp3";
    QTest::newRow("case counts") << "A"
                                 << "x"
                                 << "abba - waterloo.mp3";
    QTest::newRow("nothing to find") << ""
                                     << "x"
                                     << "abba - waterloo.mp3";
}

void frmEditTest::ReplacesEveryOccurrence() {
    QFETCH(QString, find);
    QFETCH(QString, put);
    Box("txtReplace")->setText(find);
    Box("txtWith")->setText(put);
    QTest::mouseClick(Button("cmdReplace"), Qt::LeftButton);
    QTEST(Box("txtFixedName")->text(), "result");
    QVERIFY(form_->isVisible());
}

void frmEditTest::GivesBackTheEditedName() {
    OnNextModal<frmEdit>([](frmEdit& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("txtFixedName");
        QTest::keyClick(name, Qt::Key_Home);
        QTest::keyClicks(name, "01 - ");
        QTest::mouseClick(dialog.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    QVERIFY(frmEdit::EditName(form_.get(), u"Abba.mp3") == Text(u"01 - Abba.mp3"));
}

void frmEditTest::CancelGivesNothing_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("closing") << 2;
}

void frmEditTest::CancelGivesNothing() {
    QFETCH(int, way);
    OnNextModal<frmEdit>([way](frmEdit& dialog) {
        dialog.findChild<QLineEdit*>("txtFixedName")->setText("other.mp3");
        if (way == 0)
            QTest::mouseClick(dialog.findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
        if (way == 1) QTest::keyClick(&dialog, Qt::Key_Escape);
        if (way == 2) dialog.close();
    });
    QVERIFY(!frmEdit::EditName(nullptr, u"Abba.mp3"));
}

void frmEditTest::EnterInABoxIsOK() {
    QTest::keyClick(Box("txtWith"), Qt::Key_Return);
    QCOMPARE(form_->result(), int(QDialog::Accepted));
    QVERIFY(!form_->isVisible());
}

void frmEditTest::EveryControlHasAName() {
    for (QWidget* control : form_->findChildren<QWidget*>()) {
        if (control->focusPolicy() == Qt::NoFocus || control->focusProxy() != nullptr) continue;
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
        QVERIFY2(accessible != nullptr && !accessible->text(QAccessible::Name).isEmpty(),
                 qPrintable(control->objectName()));
    }
}

QTEST_MAIN(frmEditTest)
#include "frmEdit_test.moc"
