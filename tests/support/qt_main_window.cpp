#include "tests/support/qt_main_window.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <stdexcept>

#include "core/platform/path.h"

namespace mdlPLM {

namespace {

QByteArray UriList(const std::vector<Text>& paths) {
    QByteArray list;
    for (const Text& path : paths)
        list +=
            "file://" + QByteArray::fromStdString(NativePath(path)).toPercentEncoding("/") + "\r\n";
    return list;
}

}  // namespace

FileDialogResult ScriptedDialogs::Next(const FileDialogRequest& request) {
    Requests.push_back(request);
    if (Results.empty()) throw std::logic_error("a file dialog that nobody expected");
    FileDialogResult result = Results.front();
    Results.pop_front();
    return result;
}

FileDialogResult ScriptedDialogs::OpenFiles(QWidget* /*parent*/, const FileDialogRequest& request) {
    return Next(request);
}

FileDialogResult ScriptedDialogs::SaveFile(QWidget* /*parent*/, const FileDialogRequest& request) {
    return Next(request);
}

Text ScriptedDialogs::BrowseForFolder(QWidget* /*parent*/, TextView title, TextView initialFolder) {
    Requests.push_back({Text(title), Text(initialFolder), {}, false});
    if (Folders.empty()) throw std::logic_error("a folder dialog that nobody expected");
    Text folder = Folders.front();
    Folders.pop_front();
    return folder;
}

MainWindow::MainWindow()
    : Store(Folder / u"PLM.ini"),
      Context{LoadSettings(Store, Folder / u"program/"),
              {},
              Store,
              Files,
              Ask,
              Dialogs,
              Folder.Folder(u"program") + u"/",
              Folder / u"program/"} {}

MainWindow::~MainWindow() = default;

void MainWindow::Open() {
    window_ = std::make_unique<frmPLM>(Context, Player);
    window_->show();
    window_->activateWindow();
    if (!QTest::qWaitForWindowActive(window_.get()))
        throw std::runtime_error("the window does not become active");
    QCoreApplication::processEvents();
}

void MainWindow::Reopen() {
    window_->close();
    window_.reset();
    SettingsStore stored(Folder / u"PLM.ini");
    if (!stored.Load().Ok()) throw std::runtime_error("the store cannot be read");
    Store = stored;
    Context.Values = LoadSettings(Store, Folder / u"program/");
    Open();
}

QString MainWindow::TextOf(const char* name) {
    auto* control = window_->findChild<QObject*>(QLatin1String(name));
    if (auto* box = qobject_cast<QComboBox*>(control)) return box->currentText();
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    QString text = control->property("text").toString();
    if (qobject_cast<QLineEdit*>(control) == nullptr) text.remove(u'&');
    return text;
}

void MainWindow::SetText(const char* name, const QString& text) {
    auto* control = window_->findChild<QWidget*>(QLatin1String(name));
    auto* combo = qobject_cast<QComboBox*>(control);
    QLineEdit* box = combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(control);
    if (box == nullptr) throw std::runtime_error(std::string("no text box ") + name);
    control->setFocus();
    box->selectAll();
    QTest::keyClick(control, Qt::Key_Delete);
    QTest::keyClicks(control, text);
}

void MainWindow::Click(const char* button) {
    QTest::mouseClick(&Get<QAbstractButton>(button), Qt::LeftButton);
}

void MainWindow::Trigger(const char* menuEntry) { Get<QAction>(menuEntry).trigger(); }

QStringList MainWindow::Lines(const char* list) {
    const auto& view = Get<QListView>(list);
    QStringList lines;
    for (int row = 0; row < view.model()->rowCount(); ++row)
        lines << view.model()->index(row, view.modelColumn()).data().toString();
    return lines;
}

QList<int> MainWindow::SelectedRows() {
    QList<int> rows;
    for (const QModelIndex& index : Get<QListView>("lstFiles").selectionModel()->selectedRows())
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

void MainWindow::ClickLine(const char* list, int row, Qt::KeyboardModifiers modifiers) {
    auto& view = Get<QListView>(list);
    const QModelIndex index = view.model()->index(row, view.modelColumn());
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, view.visualRect(index).center());
}

void MainWindow::Key(const char* widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    auto& target = Get<QWidget>(widget);
    target.setFocus();
    QTest::keyClick(&target, key, modifiers);
}

void MainWindow::Drop(const char* list, const std::vector<Text>& paths) {
    DropList(list, UriList(paths));
}

void MainWindow::DropList(const char* list, const QByteArray& uriList) {
    QWidget* target = Get<QListView>(list).viewport();
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), uriList);
    const QPoint place(5, 5);
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &enter);
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &drop);
    QCoreApplication::processEvents();
    Settle();
}

void MainWindow::WorkStepByStep() { window_->findChild<WorkQueue*>()->SetSliceLength(0); }

bool MainWindow::Busy() { return !Get<QWidget>("cmdAddFiles").isEnabledTo(window_.get()); }

void MainWindow::Settle() {
    QCoreApplication::processEvents();
    if (!QTest::qWaitFor([this] { return !Busy(); }, 20000))
        throw std::runtime_error("the work does not end");
    QCoreApplication::processEvents();
}

}  // namespace mdlPLM
