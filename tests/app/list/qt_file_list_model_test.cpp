// The file list as the two views see it.
#include "app/list/qt_file_list_model.h"

#include <QAbstractItemModelTester>
#include <QListView>
#include <QSignalSpy>
#include <QTest>

#include "app/list/qt_file_list_view.h"
#include "app/shared/qt_text.h"

using namespace mdlPLM;

class FileListModelTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ShowsEntriesAndNewNames();
    void KeepsTheRulesOfModels();
    void EveryChangeOfRowsIsOneReset();
    void NewNamesAreShownAtOnce();
    void SelectingOneCellSelectsTheRow();
    void ViewTellsTheListAndSaysThatItWasTheView();
    void ListTellsTheViews();
    void SelectionAndCursorSurviveAddedRows();
    void RemovingSelectedRowsIsTold();
    void CursorStaysInTheListWhenItShrinks();
    void CursorComesToTheListThatHasTheFocus();
    void ScatteredSelectionsStayQuick();

private:
    [[nodiscard]] QList<int> Selected() const {
        QList<int> rows;
        for (const FileList::Index row : list_->SelectedRows()) rows << static_cast<int>(row);
        return rows;
    }
    [[nodiscard]] QList<int> SelectedInView() const {
        QList<int> rows;
        for (int row = 0; row < model_->rowCount(); ++row) {
            const bool both = selection_->isSelected(model_->index(row, 0)) &&
                              selection_->isSelected(model_->index(row, 1));
            if (both) rows << row;
        }
        return rows;
    }

    std::unique_ptr<FileList> list_;
    std::unique_ptr<FileListModel> model_;
    std::unique_ptr<FileSelection> selection_;
};

void FileListModelTest::init() {
    list_ = std::make_unique<FileList>();
    model_ = std::make_unique<FileListModel>(*list_);
    selection_ = std::make_unique<FileSelection>(*list_, *model_);
    list_->Append({u"/m/a.mp3", u"/m/b.mp3", u"/m/c.mp3", u"/m/d.mp3"}, {u"A.mp3", u"B.mp3"});
}

void FileListModelTest::cleanup() {
    selection_.reset();
    model_.reset();
    list_.reset();
}

void FileListModelTest::ShowsEntriesAndNewNames() {
    QCOMPARE(model_->rowCount(), 4);
    QCOMPARE(model_->columnCount(), 2);
    QCOMPARE(model_->index(1, 0).data().toString(), QStringLiteral("b.mp3     (/m/)"));
    QCOMPARE(model_->index(1, 1).data().toString(), QStringLiteral("B.mp3"));
    QCOMPARE(model_->index(2, 1).data().toString(), QString());
    QCOMPARE(model_->index(1, 0).data(Qt::ToolTipRole).toString(),
             QStringLiteral("b.mp3     (/m/)"));
}

void FileListModelTest::KeepsTheRulesOfModels() {
    const QAbstractItemModelTester tester(model_.get(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    list_->Append({u"/m/e.mp3"});
    list_->SetNewName(2, u"C.mp3");
    list_->RemoveListItem(0);
    list_->Clear();
}

void FileListModelTest::EveryChangeOfRowsIsOneReset() {
    const QSignalSpy resets(model_.get(), &QAbstractItemModel::modelReset);
    list_->SelectAll();
    list_->RemoveSelected();
    QCOMPARE(resets.count(), 1);
    QCOMPARE(model_->rowCount(), 0);
    list_->Append(std::vector<Text>(1000, u"/m/x.mp3"));
    QCOMPARE(resets.count(), 2);
}

void FileListModelTest::NewNamesAreShownAtOnce() {
    QSignalSpy changes(model_.get(), &QAbstractItemModel::dataChanged);
    list_->SetNewNames(1, {u"x", u"y"});
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toModelIndex().row(), 1);
    QCOMPARE(changes[0][1].toModelIndex().row(), 2);
}

void FileListModelTest::SelectingOneCellSelectsTheRow() {
    selection_->select(model_->index(2, 1), QItemSelectionModel::Select);
    QCOMPARE(Selected(), QList<int>{2});
    QCOMPARE(SelectedInView(), QList<int>{2});
}

void FileListModelTest::ViewTellsTheListAndSaysThatItWasTheView() {
    QSignalSpy changes(selection_.get(), &FileSelection::Changed);
    selection_->select(QItemSelection(model_->index(1, 0), model_->index(3, 0)),
                       QItemSelectionModel::ClearAndSelect);
    QCOMPARE(Selected(), (QList<int>{1, 2, 3}));
    selection_->select(model_->index(2, 0), QItemSelectionModel::Deselect);
    QCOMPARE(Selected(), (QList<int>{1, 3}));
    selection_->select(model_->index(0, 0), QItemSelectionModel::ClearAndSelect);
    QCOMPARE(Selected(), QList<int>{0});
    QCOMPARE(changes.count(), 3);
    QCOMPARE(changes[0][0].toBool(), true);
}

void FileListModelTest::ListTellsTheViews() {
    QSignalSpy changes(selection_.get(), &FileSelection::Changed);
    list_->SelectWhere([](FileList::Index row) { return row % 2 == 1; });
    QCOMPARE(SelectedInView(), (QList<int>{1, 3}));
    list_->InvertSelection();
    QCOMPARE(SelectedInView(), (QList<int>{0, 2}));
    list_->SelectNone();
    QCOMPARE(SelectedInView(), QList<int>());
    QCOMPARE(changes.count(), 3);
    QCOMPARE(changes[0][0].toBool(), false);
}

void FileListModelTest::SelectionAndCursorSurviveAddedRows() {
    list_->SelectWhere([](FileList::Index row) { return row != 1; });
    selection_->SetCurrentRow(2);
    QSignalSpy changes(selection_.get(), &FileSelection::Changed);
    list_->Append({u"/m/e.mp3"});
    QCOMPARE(SelectedInView(), (QList<int>{0, 2, 3}));
    QCOMPARE(selection_->CurrentRow(), 2);
    QCOMPARE(changes.count(), 0);
}

void FileListModelTest::RemovingSelectedRowsIsTold() {
    list_->Select(1, true);
    QSignalSpy changes(selection_.get(), &FileSelection::Changed);
    list_->RemoveSelected();
    QCOMPARE(SelectedInView(), QList<int>());
    QCOMPARE(changes.count(), 1);
}

void FileListModelTest::CursorStaysInTheListWhenItShrinks() {
    selection_->SetCurrentRow(3);
    list_->RemoveListItem(3);
    QCOMPARE(selection_->CurrentRow(), 2);
    list_->Clear();
    QCOMPARE(selection_->CurrentRow(), -1);
    selection_->SetCurrentRow(0);
    QCOMPARE(selection_->CurrentRow(), -1);
}

void FileListModelTest::CursorComesToTheListThatHasTheFocus() {
    QWidget window;
    FileListView view(&window);
    view.setModel(model_.get());
    view.setModelColumn(FileListModel::NewNameColumn);
    view.setSelectionModel(selection_.get());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    view.clearFocus();
    selection_->setCurrentIndex(model_->index(1, 0), QItemSelectionModel::ClearAndSelect);
    view.setFocus();
    QCOMPARE(selection_->currentIndex(), model_->index(1, 1));
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(Selected(), QList<int>{2});
}

void FileListModelTest::ScatteredSelectionsStayQuick() {
    constexpr int Count = 40000;
    list_->Clear();
    list_->Append(std::vector<Text>(Count, u"/m/x.mp3"));
    QElapsedTimer clock;
    clock.start();
    list_->SelectWhere([](FileList::Index row) { return row % 2 == 0; });
    list_->InvertSelection();
    QItemSelection rows;
    for (int row = 0; row < Count; row += 2)
        rows.append(QItemSelectionRange(model_->index(row, 0), model_->index(row, 1)));
    selection_->select(rows, QItemSelectionModel::Clear);
    selection_->select(rows, QItemSelectionModel::Select);
    list_->RemoveSelected();
    // Linear work takes a fraction of a second; quadratic work a hundred times that.
    QVERIFY(clock.elapsed() < 8000);
    QCOMPARE(model_->rowCount(), Count / 2);
}

QTEST_MAIN(FileListModelTest)
#include "qt_file_list_model_test.moc"
