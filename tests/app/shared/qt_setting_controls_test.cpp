// Settings go into their controls and come back from them.
#include "app/shared/qt_setting_controls.h"

#include <QTest>

#include "app/shared/qt_text.h"

using namespace mdlPLM;

namespace {

/// Controls of each kind, as a form holds them.
struct Form {
    QCheckBox* chkID3;
    QCheckBox* chkGenre;
    QLineEdit* txtExtension;
    QLineEdit* txtSubFolder;
    QComboBox* cmbInPattern;
    QButtonGroup* optMove;
};

constexpr SettingControl<Form> Rows[] = {
    Bound<Form, &Form::chkID3, &Settings::bID3>(),
    Bound<Form, &Form::chkGenre, &Settings::Genre>(),
    Bound<Form, &Form::txtExtension, &Settings::Extension>(),
    Bound<Form, &Form::txtSubFolder, &Settings::txtSubFolder>(),
    Bound<Form, &Form::cmbInPattern, &Settings::InPattern>(),
    Bound<Form, &Form::optMove, &Settings::Move>(),
};
constexpr SettingControl<Form> RowsOfMainWindow[] = {
    Bound<Form, &Form::chkGenre, &Settings::Genre>(),
    Bound<Form, &Form::optMove, &Settings::Move>(),
};

}  // namespace

class SettingControlsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void EachValueIsShownAndComesBack();
    void ATextIsShownFromItsBeginning();
    void ANumberIsTakenAsFarAsItIsOne();
    void ANumberWithoutAButtonLeavesTheChoice();
    void WithoutAChoiceTheValueStays();
    void RowsKnowWhoSavesThem();

private:
    void Load() {
        for (const auto& row : Rows) row.Load(form_, values_);
    }
    [[nodiscard]] Settings Taken() const {
        Settings taken;
        for (const auto& row : Rows) row.Take(form_, taken);
        return taken;
    }

    std::unique_ptr<QWidget> window_;
    Form form_{};
    Settings values_;
};

void SettingControlsTest::init() {
    window_ = std::make_unique<QWidget>();
    form_ = {new QCheckBox(window_.get()), new QCheckBox(window_.get()),
             new QLineEdit(window_.get()), new QLineEdit(window_.get()),
             new QComboBox(window_.get()), new QButtonGroup(window_.get())};
    form_.cmbInPattern->setEditable(true);
    auto* first = new QCheckBox(window_.get());
    auto* second = new QCheckBox(window_.get());
    form_.optMove->addButton(first);
    form_.optMove->addButton(second);
    NumberButtons(*form_.optMove, {second, first});
    values_ = {};
}

void SettingControlsTest::EachValueIsShownAndComesBack() {
    values_.bID3 = false;
    values_.Genre = 1;
    values_.Extension = u"ogg";
    values_.txtSubFolder = 12;
    values_.InPattern = u"%title";
    values_.Move = 1;
    Load();
    QVERIFY(!form_.chkID3->isChecked());
    QVERIFY(form_.chkGenre->isChecked());
    QCOMPARE(form_.txtSubFolder->text(), QStringLiteral("12"));
    QCOMPARE(form_.cmbInPattern->currentText(), QStringLiteral("%title"));
    QCOMPARE(form_.optMove->checkedButton(), form_.optMove->buttons()[0]);
    const Settings taken = Taken();
    QCOMPARE(taken.bID3, false);
    QCOMPARE(taken.Genre, 1);
    QCOMPARE(taken.Extension, Text(u"ogg"));
    QCOMPARE(taken.txtSubFolder, 12LL);
    QCOMPARE(taken.InPattern, Text(u"%title"));
    QCOMPARE(taken.Move, 1);
}

void SettingControlsTest::ATextIsShownFromItsBeginning() {
    values_.Extension = u"a long one";
    values_.InPattern = u"%track - %title";
    Load();
    QCOMPARE(form_.txtExtension->cursorPosition(), 0);
    QCOMPARE(form_.cmbInPattern->lineEdit()->cursorPosition(), 0);
}

void SettingControlsTest::ANumberIsTakenAsFarAsItIsOne() {
    Load();
    form_.txtSubFolder->setText(QStringLiteral("7 files"));
    QCOMPARE(Taken().txtSubFolder, 7LL);
    form_.txtSubFolder->setText(QStringLiteral("many"));
    QCOMPARE(Taken().txtSubFolder, 0LL);
}

void SettingControlsTest::ANumberWithoutAButtonLeavesTheChoice() {
    values_.Move = 1;
    Load();
    values_.Move = 9;
    Load();
    QCOMPARE(Taken().Move, 1);
}

void SettingControlsTest::WithoutAChoiceTheValueStays() {
    values_.Move = 9;
    Load();
    QCOMPARE(Taken().Move, Settings().Move);
}

void SettingControlsTest::RowsKnowWhoSavesThem() {
    QVERIFY(AllWrittenBy(WrittenBy::MainWindow, RowsOfMainWindow));
    QVERIFY(!AllWrittenBy(WrittenBy::MainWindow, Rows));
    QVERIFY(!AllWrittenBy(WrittenBy::OptionsDialog, RowsOfMainWindow));
}

QTEST_MAIN(SettingControlsTest)
#include "qt_setting_controls_test.moc"
