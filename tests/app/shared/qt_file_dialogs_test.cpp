#include "app/shared/qt_file_dialogs.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "app/shared/qt_text.h"
#include "tests/support/qt_modal.h"

using namespace mdlPLM;

namespace {

constexpr TextView AddFilter =
    u"MP3 Files (*.mp3;*.mp2)|*.mp3;*.mp2|Playlists (*.srt;*.m3u;*.pls)|*.srt;*.m3u;*.pls|"
    u"All Files (*.*)|*.*";
constexpr TextView SaveFilter = u"Sorting File (*.srt)|*.srt|M3U Playlist(*.m3u)|*.m3u";

void TypeName(QFileDialog& dialog, const QString& name) {
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
}

void ChooseFilter(QFileDialog& dialog, int index) {
    auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
    for (int i = 0; i < index; ++i) QTest::keyClick(types, Qt::Key_Down);
}

/// Presses the dialog's own button, so that its questions come.
void Accept(QFileDialog& dialog) {
    QMetaObject::invokeMethod(&dialog, "accept", Qt::DirectConnection);
}

}  // namespace

class QtFileDialogsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();
    void KeepsTheWordsOfFilters();
    void KnowsTheSuffixOfAFilter();
    void OpensSeveralFilesWithChosenFilter();
    void CancelledGivesNothing();
    void StartsInTheGivenFolder();
    void AsksBeforeAnExistingFileIsChosen();
    void GivesATypedNameTheExtensionOfTheFilter();
    void LeavesATypedExtensionAlone();

private:
    QString PathOf(const QString& name) const { return folder_->filePath(name); }
    FileDialogRequest Request(TextView filter) const;
    std::unique_ptr<QTemporaryDir> folder_;
};

void QtFileDialogsTest::init() {
    folder_ = std::make_unique<QTemporaryDir>();
    for (const char* name : {"a.mp3", "b.mp3", "list.m3u"}) {
        QFile file(PathOf(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

FileDialogRequest QtFileDialogsTest::Request(TextView filter) const {
    FileDialogRequest request;
    request.Title = u"Add files";
    request.InitialFolder = FromQt(folder_->path());
    request.Filter = Text(filter);
    request.Multiple = true;
    return request;
}

void QtFileDialogsTest::KeepsTheWordsOfFilters() {
    QCOMPARE(
        ToolkitFilters(AddFilter),
        (QStringList{"MP3 Files (*.mp3 *.mp2)", "Playlists (*.srt *.m3u *.pls)", "All Files (*)"}));
    QCOMPARE(ToolkitFilters(SaveFilter),
             (QStringList{"Sorting File (*.srt)", "M3U Playlist(*.m3u)"}));
}

void QtFileDialogsTest::KnowsTheSuffixOfAFilter() {
    QCOMPARE(SuffixOfFilter("Sorting File (*.srt)"), "srt");
    QCOMPARE(SuffixOfFilter("MP3 Files (*.mp3 *.mp2)"), "");
    QCOMPARE(SuffixOfFilter("All Files (*)"), "");
}

void QtFileDialogsTest::OpensSeveralFilesWithChosenFilter() {
    OnNextModal<QFileDialog>([](QFileDialog& dialog) {
        ChooseFilter(dialog, 2);
        TypeName(dialog, "\"a.mp3\" \"b.mp3\"");
        Accept(dialog);
    });
    const FileDialogResult result = QtFileDialogs().OpenFiles(nullptr, Request(AddFilter));
    QCOMPARE(result.FilterIndex, 3);
    QCOMPARE(result.Paths, (std::vector<Text>{FromQt(PathOf("a.mp3")), FromQt(PathOf("b.mp3"))}));
}

void QtFileDialogsTest::CancelledGivesNothing() {
    OnNextModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(QtFileDialogs().OpenFiles(nullptr, Request(AddFilter)).Paths.empty());
    OnNextModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(QtFileDialogs().BrowseForFolder(nullptr, u"Please select:", u"/").empty());
}

void QtFileDialogsTest::StartsInTheGivenFolder() {
    QString title;
    OnNextModal<QFileDialog>([&title](QFileDialog& dialog) {
        title = dialog.windowTitle();
        Accept(dialog);
    });
    const Text start = FromQt(folder_->path());
    const Text chosen =
        QtFileDialogs().BrowseForFolder(nullptr, u"Please select the target directory:", start);
    QCOMPARE(title, "Please select the target directory:");
    QCOMPARE(ToQt(chosen), folder_->path());
}

void QtFileDialogsTest::AsksBeforeAnExistingFileIsChosen() {
    bool asked = false;
    OnNextModal<QFileDialog>([&asked](QFileDialog& dialog) {
        ChooseFilter(dialog, 1);
        TypeName(dialog, "list.m3u");
        OnNextModal<QMessageBox>([&asked](QMessageBox& box) {
            asked = true;
            box.button(QMessageBox::No)->click();
        });
        Accept(dialog);
        dialog.reject();
    });
    QVERIFY(QtFileDialogs().SaveFile(nullptr, Request(SaveFilter)).Paths.empty());
    QVERIFY(asked);
}

void QtFileDialogsTest::GivesATypedNameTheExtensionOfTheFilter() {
    OnNextModal<QFileDialog>([](QFileDialog& dialog) {
        TypeName(dialog, "mine");
        Accept(dialog);
    });
    QCOMPARE(QtFileDialogs().SaveFile(nullptr, Request(SaveFilter)).Paths,
             std::vector<Text>{FromQt(PathOf("mine.srt"))});
    OnNextModal<QFileDialog>([](QFileDialog& dialog) {
        ChooseFilter(dialog, 1);
        TypeName(dialog, "mine");
        Accept(dialog);
    });
    const FileDialogResult second = QtFileDialogs().SaveFile(nullptr, Request(SaveFilter));
    QCOMPARE(second.FilterIndex, 2);
    QCOMPARE(second.Paths, std::vector<Text>{FromQt(PathOf("mine.m3u"))});
}

void QtFileDialogsTest::LeavesATypedExtensionAlone() {
    OnNextModal<QFileDialog>([](QFileDialog& dialog) {
        TypeName(dialog, "mine.txt");
        Accept(dialog);
    });
    const FileDialogResult result = QtFileDialogs().SaveFile(nullptr, Request(SaveFilter));
    QCOMPARE(result.FilterIndex, 1);
    QCOMPARE(result.Paths, std::vector<Text>{FromQt(PathOf("mine.txt"))});
}

QTEST_MAIN(QtFileDialogsTest)
#include "qt_file_dialogs_test.moc"
