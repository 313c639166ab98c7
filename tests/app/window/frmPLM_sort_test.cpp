// The main job in the real window: a folder of badly named files becomes a sorted collection.
#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>

#include "app/window/frmSorting.h"
#include "core/platform/path.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/qt_modal.h"
#include "tests/support/real_mp3.h"

using namespace mdlPLM;

namespace {

using Tree = std::map<Bytes, Bytes>;

/// The folders that the files of a tree stand in, added to it as ReadTree tells them.
Tree WithFolders(Tree tree) {
    const Tree files = tree;
    for (const auto& [path, contents] : files) {
        for (std::size_t end = path.find('/'); end != Bytes::npos; end = path.find('/', end + 1))
            tree[path.substr(0, end + 1)] = {};
    }
    return tree;
}

QByteArray Shown(const Tree& tree) {
    QByteArray text;
    for (const auto& [path, contents] : tree)
        text += QByteArray::fromStdString(path) + ' ' +
                QByteArray::number(qHash(QByteArray::fromStdString(contents))) + '\n';
    return text;
}

const QString ReplaceQuestion =
    QStringLiteral("The file \"%1\" already exists!\r\nDo you want to replace it?");

}  // namespace

class FrmPLMSortTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { plm_.reset(); }

    void CopySortsIntoGenreLetterAndArtistFolders();
    void MoveSortsIntoGenreLetterAndArtistFolders();
    void RenameGivesEveryFileItsNewNameInPlace();
    void ExistingTarget_data();
    void ExistingTarget();
    void CancelInMidRunLeavesTheRest_data();
    void CancelInMidRunLeavesTheRest();
    void SettingsOfTheStartHoldToTheEnd();
    void ProgressWindowShowsTheFileThatIsAskedAbout();
    void WithoutFixFilenamesTheNameIsKept();
    void SortThisFileUsesTheNameInTheBox();
    void EmptyNameBoxMeansTheComputedName();
    void ManySelectedFilesIgnoreTheNameBox();
    void NothingSelectedSortsNothingAndSaysSo();
    void EmptyTargetIsRefused();
    void MissingTargetIsCreatedAfterYesOnly();
    void ProgressWindowShowsWhatIsDone();
    void PauseEndsTheRunBeforeTheNextFile_data();
    void PauseEndsTheRunBeforeTheNextFile();
    void ClosingTheMainWindowEndsTheRunFirst();
    void FailuresComeInOneMessageAtTheEnd();
    void MissingFileIsSkippedAndStays();
    void AfterTheRunTheNextEntryIsSelectedAndThePanelBlank();
    void ClickOnTheSelectedEntryShowsItAgain();
    void SortFromTheEditedPatternBoxAsksAfterTheRun();
    void WhatWasNotSortedStaysSelected();
    void RenameLocksTheTargetAndShowsTheFilesFolder();
    void OtherMethodBringsTheTargetBack();
    void BrowseChoosesTheTarget();
    void ChoicesAreLaidOutAsWorded();

private:
    /// Four files as users have them; their new names under Pattern stand in the tests.
    void MakeCollection() {
        const TempFolder& folder = plm_->Folder;
        const Text waterloo = folder.File(u"in/01_WATERLOO.MP3", EncodedMp3(440));
        TagByPeer(waterloo, {"Abba", "Waterloo", "Waterloo", "1974", "1", 13});
        const Text sos = folder.File(u"in/deeper/track%2007.mp3", EncodedMp3(550));
        TagByPeer(sos, {"Abba", "SOS", "Abba", "1975", "7", 17}, PeerVersion::V1);
        const Text model = folder.File(u"in/model.mp3", EncodedMp3(660));
        TagByPeer(model, {"Kraftwerk", "Das Model", "", "", "", 52});
        static_cast<void>(folder.File(u"in/robyn - hang_with_me.mp3", EncodedMp3(770)));
    }
    /// Contents of the collection's files by the paths they are to have.
    [[nodiscard]] Tree CollectionAs(const std::vector<Bytes>& paths) const {
        const Tree before = ReadTree(plm_->Folder / u"in");
        return WithFolders({{paths[0], before.at("01_WATERLOO.MP3")},
                            {paths[1], before.at("deeper/track%2007.mp3")},
                            {paths[2], before.at("model.mp3")},
                            {paths[3], before.at("robyn - hang_with_me.mp3")}});
    }
    void Choose(const char* method, const char* exists = "optExists0") {
        plm_->Click(method);
        plm_->Click(exists);
        if (plm_->Get<QLineEdit>("txtTargetDir").isReadOnly()) return;
        plm_->SetText("txtTargetDir", ToQt(plm_->Folder.Folder(u"out")));
    }
    void ChooseAllFolders() {
        for (const char* box : {"chkGenre", "chkAlphabetical", "chkSubFolder"}) plm_->Click(box);
        plm_->SetText("txtSubFolder", QStringLiteral("2"));
    }
    void Sort(const char* button = "cmdSort") {
        plm_->Click(button);
        plm_->Settle();
    }
    /// "a - x.mp3" and so on with contents of their own, dropped and all selected.
    std::vector<Text> DropSimple(const std::vector<Text>& names) {
        std::vector<Text> paths;
        for (const Text& name : names)
            paths.push_back(plm_->Folder.File(u"in/" + name, Bytes(200, 'x') + NativePath(name)));
        plm_->Drop("lstFiles", paths);
        plm_->Click("cmdSelectAll");
        return paths;
    }
    [[nodiscard]] QByteArray OutTree() const { return Shown(ReadTree(plm_->Folder / u"out")); }
    [[nodiscard]] frmSorting* Progress() const { return plm_->Window().findChild<frmSorting*>(); }
    /// Calls `act` when the `nth` file (from 0) is begun.
    void OnFile(std::size_t nth, const std::function<void()>& act) {
        plm_->Disk.Inject = [nth, act, begun = std::size_t{0}](const DiskCall& call,
                                                               std::size_t) mutable {
            if (call.Operation == DiskOperation::BeginCopy && begun++ == nth) act();
            return Status();
        };
    }

    std::unique_ptr<MainWindow> plm_;
};

void FrmPLMSortTest::init() {
    plm_ = std::make_unique<MainWindow>();
    plm_->Context.Values.OutPattern = u"%artist - %title.mp3";
    plm_->Open();
}

void FrmPLMSortTest::CopySortsIntoGenreLetterAndArtistFolders() {
    MakeCollection();
    const Tree source = ReadTree(plm_->Folder / u"in");
    const Tree expected = CollectionAs(
        {"Pop/A/Abba/Abba - Waterloo.mp3", "Rock/A/Abba/Abba - Sos.mp3",
         "Electronic/K/Kraftwerk - Das Model.mp3", "Unknown/R/Robyn - Hang With Me.mp3"});
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    plm_->Click("chkPreview");
    plm_->Settle();
    QCOMPARE(plm_->Lines("lstPreview"),
             (QStringList{
                 QStringLiteral("Abba - Waterloo.mp3"), QStringLiteral("Kraftwerk - Das Model.mp3"),
                 QStringLiteral("Robyn - Hang With Me.mp3"), QStringLiteral("Abba - Sos.mp3")}));
    Choose("optMethod0");
    ChooseAllFolders();
    plm_->Click("cmdSelectAll");
    Sort();
    QCOMPARE(OutTree(), Shown(expected));
    QCOMPARE(Shown(ReadTree(plm_->Folder / u"in")), Shown(source));
    QCOMPARE(plm_->Lines("lstFiles"), QStringList());
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("4 done, 0 skipped, 0 failed"));
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
}

void FrmPLMSortTest::MoveSortsIntoGenreLetterAndArtistFolders() {
    MakeCollection();
    const Tree expected = CollectionAs(
        {"Pop/A/Abba/Abba - Waterloo.mp3", "Rock/A/Abba/Abba - Sos.mp3",
         "Electronic/K/Kraftwerk - Das Model.mp3", "Unknown/R/Robyn - Hang With Me.mp3"});
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    Choose("optMethod1");
    ChooseAllFolders();
    plm_->Click("cmdSelectAll");
    Sort();
    QCOMPARE(OutTree(), Shown(expected));
    QCOMPARE(Shown(ReadTree(plm_->Folder / u"in")), Shown(WithFolders({{"deeper/", {}}})));
    QCOMPARE(plm_->Lines("lstFiles"), QStringList());
}

void FrmPLMSortTest::RenameGivesEveryFileItsNewNameInPlace() {
    MakeCollection();
    const Tree expected = CollectionAs({"Abba - Waterloo.mp3", "deeper/Abba - Sos.mp3",
                                        "Kraftwerk - Das Model.mp3", "Robyn - Hang With Me.mp3"});
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    Choose("optMethod2");
    plm_->Click("cmdSelectAll");
    Sort();
    QCOMPARE(Shown(ReadTree(plm_->Folder / u"in")), Shown(expected));
    QCOMPARE(plm_->Lines("lstFiles"), QStringList());
}

void FrmPLMSortTest::ExistingTarget_data() {
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("exists");
    QTest::addColumn<QList<int>>("answers");
    QTest::addColumn<bool>("replaced");
    QTest::addColumn<bool>("sourceStays");
    QTest::addColumn<bool>("entryStays");
    const QList<int> none;
    const QList<int> yes{static_cast<int>(Answer::Yes)};
    const QList<int> no{static_cast<int>(Answer::No)};
    const QList<int> cancel{static_cast<int>(Answer::Cancel)};
    const QByteArray prompt = "optExists0";
    const QByteArray skip = "optExists1";
    const QByteArray replace = "optExists2";
    const QByteArray copy = "optMethod0";
    const QByteArray move = "optMethod1";
    const QByteArray rename = "optMethod2";
    QTest::newRow("copy, yes") << copy << prompt << yes << true << true << false;
    QTest::newRow("copy, no") << copy << prompt << no << false << true << false;
    QTest::newRow("copy, cancel") << copy << prompt << cancel << false << true << true;
    QTest::newRow("copy, skip") << copy << skip << none << false << true << false;
    QTest::newRow("copy, replace") << copy << replace << none << true << true << false;
    QTest::newRow("move, yes") << move << prompt << yes << true << false << false;
    QTest::newRow("move, no") << move << prompt << no << false << true << false;
    QTest::newRow("move, cancel") << move << prompt << cancel << false << true << true;
    QTest::newRow("move, skip") << move << skip << none << false << true << false;
    QTest::newRow("move, replace") << move << replace << none << true << false << false;
    QTest::newRow("rename, yes") << rename << prompt << yes << true << false << false;
    QTest::newRow("rename, no") << rename << prompt << no << false << true << true;
    QTest::newRow("rename, cancel") << rename << prompt << cancel << false << true << true;
    QTest::newRow("rename, skip") << rename << skip << none << false << true << true;
    QTest::newRow("rename, replace") << rename << replace << none << true << false << false;
}

void FrmPLMSortTest::ExistingTarget() {
    QFETCH(QByteArray, method);
    QFETCH(QByteArray, exists);
    QFETCH(QList<int>, answers);
    QFETCH(bool, replaced);
    QFETCH(bool, sourceStays);
    QFETCH(bool, entryStays);
    const Text source = DropSimple({u"a_-_x.mp3"})[0];
    const Bytes contents = ReadFile(source);
    const bool rename = method == "optMethod2";
    const Text target = plm_->Folder.File(rename ? u"in/A - X.mp3" : u"out/A - X.mp3", "old");
    Choose(method.constData(), exists.constData());
    for (const int answer : answers) plm_->Ask.Answers.push_back(static_cast<Answer>(answer));
    Sort();
    QCOMPARE(ReadFile(target), replaced ? contents : Bytes("old"));
    QCOMPARE(IsThere(source), sourceStays);
    if (sourceStays) QCOMPARE(ReadFile(source), contents);
    QCOMPARE(plm_->Lines("lstFiles").size(), entryStays ? 1 : 0);
    QCOMPARE(plm_->Ask.Log.size(), static_cast<std::size_t>(answers.size()));
    if (answers.isEmpty()) return;
    QCOMPARE(plm_->Ask.Log[0].Kind, PromptKind::YesNoCancel);
    QCOMPARE(ToQt(plm_->Ask.Log[0].What.Body), ReplaceQuestion.arg(ToQt(target)));
}

void FrmPLMSortTest::CancelInMidRunLeavesTheRest_data() {
    QTest::addColumn<QByteArray>("method");
    QTest::newRow("copy") << QByteArray("optMethod0");
    QTest::newRow("move") << QByteArray("optMethod1");
    QTest::newRow("rename") << QByteArray("optMethod2");
}

void FrmPLMSortTest::CancelInMidRunLeavesTheRest() {
    QFETCH(QByteArray, method);
    const bool rename = method == "optMethod2";
    DropSimple({u"a_-_x.mp3", u"b_-_y.mp3", u"c_-_z.mp3"});
    const Text second = plm_->Folder.File(rename ? u"in/B - Y.mp3" : u"out/B - Y.mp3", "old");
    Choose(method.constData());
    plm_->Ask.Answers = {Answer::Cancel};
    Sort();
    const Text results = plm_->Folder / (rename ? u"in/" : u"out/");
    QVERIFY(IsThere(results + u"A - X.mp3"));
    QCOMPARE(ReadFile(second), Bytes("old"));
    QVERIFY(!IsThere(results + u"C - Z.mp3"));
    QVERIFY(IsThere(plm_->Folder / u"in/b_-_y.mp3"));
    QVERIFY(IsThere(plm_->Folder / u"in/c_-_z.mp3"));
    QCOMPARE(plm_->Lines("lstFiles").size(), 2);
    // The window is free again, the progress window says "Done!" and waits to be closed.
    QVERIFY(plm_->Window().isEnabled());
    QVERIFY(Progress() != nullptr && Progress()->isVisible());
    auto* button = Progress()->findChild<QAbstractButton*>(QStringLiteral("cmdPause"));
    QCOMPARE(button->text().remove(u'&'), QStringLiteral("Done!"));
    button->click();
    QVERIFY(Progress() == nullptr || !Progress()->isVisible());
    QVERIFY(plm_->TextOf("lblFiles").startsWith(QLatin1String("2 files (")));
}

void FrmPLMSortTest::SettingsOfTheStartHoldToTheEnd() {
    DropSimple({u"a_-_x.mp3", u"b_-_y.mp3"});
    Choose("optMethod0");
    OnFile(0, [this] {
        plm_->Context.Values.Change = static_cast<int>(CaseOption::Lower);
        plm_->Context.Values.bSetAttributes = true;
        plm_->Context.Values.bReadOnly = true;
        plm_->Context.Values.bReplace = true;
        plm_->Context.Replacements = {{u"y", u"other"}};
    });
    Sort();
    QCOMPARE(ListTree(plm_->Folder / u"out"), (std::vector<Bytes>{"A - X.mp3", "B - Y.mp3"}));
    QCOMPARE(GetAttributes(plm_->Folder / u"out/B - Y.mp3") & ReadOnly, 0);
}

void FrmPLMSortTest::ProgressWindowShowsTheFileThatIsAskedAbout() {
    DropSimple({u"a_-_x.mp3", u"b_-_y.mp3"});
    static_cast<void>(plm_->Folder.File(u"out/A - X.mp3", "old"));
    static_cast<void>(plm_->Folder.File(u"out/B - Y.mp3", "old"));
    Choose("optMethod0");
    plm_->Ask.Answers = {Answer::No, Answer::Cancel};
    const auto shown = [this](const char* label) {
        return Progress()->findChild<QLabel*>(QLatin1String(label))->text();
    };
    QStringList files;
    plm_->Ask.OnAsked = [&](const Asked&) { files << shown("lblMethod") << shown("lblSource"); };
    Sort();
    const QString copying = QStringLiteral("Copying file:");
    QCOMPARE(files, (QStringList{copying, QStringLiteral("a_-_x.mp3"), copying,
                                 QStringLiteral("b_-_y.mp3")}));
    // It still says where the run was cancelled.
    QCOMPARE(shown("lblSource"), QStringLiteral("b_-_y.mp3"));
}

void FrmPLMSortTest::WithoutFixFilenamesTheNameIsKept() {
    DropSimple({u"a - x.mp3", u"b_-_y.MP3"});
    Choose("optMethod0");
    plm_->Click("chkConvert");
    Sort();
    QCOMPARE(ListTree(plm_->Folder / u"out"), (std::vector<Bytes>{"a - x.mp3", "b_-_y.MP3"}));
}

void FrmPLMSortTest::SortThisFileUsesTheNameInTheBox() {
    DropSimple({u"a - x.mp3", u"b - y.mp3"});
    Choose("optMethod0");
    plm_->ClickLine("lstFiles", 1);
    plm_->SetText("txtNewName", QStringLiteral("by hand.mp3"));
    Sort("cmdSortThisFile");
    QCOMPARE(ListTree(plm_->Folder / u"out"), std::vector<Bytes>{"by hand.mp3"});
    QCOMPARE(plm_->Lines("lstFiles").size(), 1);
}

void FrmPLMSortTest::EmptyNameBoxMeansTheComputedName() {
    DropSimple({u"a - x.mp3"});
    Choose("optMethod0");
    plm_->SetText("txtNewName", {});
    Sort("cmdSortThisFile");
    QCOMPARE(ListTree(plm_->Folder / u"out"), std::vector<Bytes>{"A - X.mp3"});
}

void FrmPLMSortTest::ManySelectedFilesIgnoreTheNameBox() {
    DropSimple({u"a - x.mp3", u"b - y.mp3"});
    Choose("optMethod0");
    plm_->SetText("txtNewName", QStringLiteral("by hand.mp3"));
    Sort("cmdSortThisFile");
    QCOMPARE(ListTree(plm_->Folder / u"out"), (std::vector<Bytes>{"A - X.mp3", "B - Y.mp3"}));
}

void FrmPLMSortTest::NothingSelectedSortsNothingAndSaysSo() {
    DropSimple({u"a - x.mp3"});
    Choose("optMethod0");
    plm_->SetText("txtTargetDir", ToQt(plm_->Folder / u"not there"));
    plm_->Click("cmdSelectNone");
    Sort();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
    QCOMPARE(plm_->TextOf("lblStatus"),
             QStringLiteral("No file is selected, so there is nothing to sort."));
    QVERIFY(Progress() == nullptr);
}

void FrmPLMSortTest::EmptyTargetIsRefused() {
    DropSimple({u"a - x.mp3"});
    Choose("optMethod0");
    plm_->SetText("txtTargetDir", {});
    Sort();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->Ask.Log[0].Kind, PromptKind::Inform);
    QCOMPARE(ToQt(plm_->Ask.Log[0].What.Title), QStringLiteral("PLM"));
    QCOMPARE(ToQt(plm_->Ask.Log[0].What.Body),
             QStringLiteral("You must choose a target directory first!"));
    QCOMPARE(plm_->Lines("lstFiles").size(), 1);
    QVERIFY(plm_->Window().isEnabled());
}

void FrmPLMSortTest::MissingTargetIsCreatedAfterYesOnly() {
    DropSimple({u"a - x.mp3"});
    Choose("optMethod1");
    const Text target = plm_->Folder / u"new";
    plm_->SetText("txtTargetDir", ToQt(target));
    plm_->Ask.Answers = {Answer::No, Answer::Yes};
    Sort();
    QVERIFY(!IsThere(target));
    QCOMPARE(plm_->Lines("lstFiles").size(), 1);
    Sort();
    QCOMPARE(ListTree(target), std::vector<Bytes>{"A - X.mp3"});
    const Message& asked = plm_->Ask.Log.at(0).What;
    QCOMPARE(ToQt(asked.Title), QStringLiteral("PLM"));
    QVERIFY(
        ToQt(asked.Body)
            .startsWith(
                QStringLiteral("The target directory \"%1\" does not exist!").arg(ToQt(target))));
    QVERIFY(ToQt(asked.Body).endsWith(QLatin1String("Would you like to create it?")));
}

void FrmPLMSortTest::ProgressWindowShowsWhatIsDone() {
    DropSimple({u"a - x.mp3", u"b - y.mp3", u"c - z.mp3"});
    Choose("optMethod0");
    bool looked = false;
    OnFile(1, [&] {
        looked = true;
        frmSorting* progress = Progress();
        QVERIFY(progress != nullptr && progress->isVisible() && progress->isEnabled());
        QCOMPARE(progress->windowTitle(), QStringLiteral("PLM - Sorting..."));
        QVERIFY(!plm_->Window().isEnabled());
        const auto* button = progress->findChild<QAbstractButton*>(QStringLiteral("cmdPause"));
        QCOMPARE(button->text().remove(u'&'), QStringLiteral("Pause"));
        QVERIFY(button->isEnabled());
    });
    Sort();
    QVERIFY(looked);
    QVERIFY(Progress() == nullptr || !Progress()->isVisible());
    QVERIFY(plm_->Window().isEnabled());
}

void FrmPLMSortTest::PauseEndsTheRunBeforeTheNextFile_data() {
    QTest::addColumn<bool>("byButton");
    QTest::newRow("button") << true;
    QTest::newRow("closed by other means") << false;
}

void FrmPLMSortTest::PauseEndsTheRunBeforeTheNextFile() {
    QFETCH(bool, byButton);
    DropSimple({u"a - x.mp3", u"b - y.mp3", u"c - z.mp3"});
    Choose("optMethod0");
    QString counter;
    OnFile(1, [&] {
        QMetaObject::invokeMethod(
            this,
            [&, byButton] {
                if (byButton)
                    Progress()->findChild<QAbstractButton*>(QStringLiteral("cmdPause"))->click();
                else
                    Progress()->close();
                QVERIFY(plm_->Window().isEnabled());
                QVERIFY(!Progress()->isVisible());
                counter = plm_->TextOf("lblFiles");
            },
            Qt::QueuedConnection);
    });
    Sort();
    // The file that was begun is finished, and "0 files" stands until the run is over.
    QCOMPARE(ListTree(plm_->Folder / u"out"), (std::vector<Bytes>{"A - X.mp3", "B - Y.mp3"}));
    QCOMPARE(counter, QStringLiteral("0 files"));
    QCOMPARE(plm_->Lines("lstFiles").size(), 1);
    QVERIFY(plm_->TextOf("lblFiles").startsWith(QLatin1String("1 files (")));
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("Stopped. 2 done, 0 skipped, 0 failed"));
}

void FrmPLMSortTest::ClosingTheMainWindowEndsTheRunFirst() {
    DropSimple({u"a - x.mp3", u"b - y.mp3", u"c - z.mp3"});
    Choose("optMethod0");
    OnFile(0, [&] {
        QMetaObject::invokeMethod(&plm_->Window(), &QWidget::close, Qt::QueuedConnection);
    });
    plm_->Click("cmdSort");
    QTRY_VERIFY(!plm_->Window().isVisible());
    QCOMPARE(ListTree(plm_->Folder / u"out"), std::vector<Bytes>{"A - X.mp3"});
    QVERIFY(Progress() == nullptr || !Progress()->isVisible());
    QVERIFY(IsThere(plm_->Folder / u"PLM.ini"));
}

void FrmPLMSortTest::FailuresComeInOneMessageAtTheEnd() {
    DropSimple({u"a - x.mp3", u"b - y.mp3", u"c - z.mp3"});
    Choose("optMethod0");
    plm_->Disk.Inject = [](const DiskCall& call, std::size_t) {
        const bool fails =
            call.Operation == DiskOperation::BeginCopy && FileNameOfPath(call.Path) != u"b - y.mp3";
        return fails ? Status(ErrorNumber::DiskFull) : Status();
    };
    Sort();
    QCOMPARE(ListTree(plm_->Folder / u"out"), std::vector<Bytes>{"B - Y.mp3"});
    QCOMPARE(plm_->Lines("lstFiles").size(), 2);
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->Ask.Log[0].Kind, PromptKind::Critical);
    const QString body = ToQt(plm_->Ask.Log[0].What.Body);
    for (const char* part : {"a - x.mp3", "c - z.mp3", "Disk full"})
        QVERIFY2(body.contains(QLatin1String(part)), part);
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("1 done, 0 skipped, 2 failed"));
    QVERIFY(plm_->Get<QWidget>("cmdDetails").isVisible());
    QString details;
    OnNextModal<QDialog>([&details](QDialog& dialog) {
        details = dialog.findChild<QPlainTextEdit*>()->toPlainText();
        dialog.reject();
    });
    plm_->Click("cmdDetails");
    const QStringList lines = details.trimmed().split(u'\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines[0].startsWith(QLatin1String("Failed: ")));
    QVERIFY(lines[1].startsWith(QLatin1String("Done: ")));
}

void FrmPLMSortTest::MissingFileIsSkippedAndStays() {
    const std::vector<Text> paths = DropSimple({u"a - x.mp3", u"b - y.mp3"});
    QVERIFY(plm_->Disk.DeleteFile(paths[0]).Ok());
    Choose("optMethod0");
    Sort();
    QCOMPARE(plm_->Lines("lstFiles").size(), 1);
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
    QCOMPARE(plm_->TextOf("lblStatus"), QStringLiteral("1 done, 1 skipped, 0 failed"));
}

void FrmPLMSortTest::AfterTheRunTheNextEntryIsSelectedAndThePanelBlank() {
    DropSimple({u"a - x.mp3", u"b - y.mp3", u"c - z.mp3"});
    Choose("optMethod0");
    plm_->ClickLine("lstFiles", 1);
    Sort("cmdSortThisFile");
    QCOMPARE(plm_->SelectedRows(), QList<int>{1});
    QVERIFY(plm_->Lines("lstFiles").at(1).startsWith(QLatin1String("c - z.mp3")));
    QCOMPARE(plm_->TextOf("txtOldName"), QString());
    QCOMPARE(plm_->TextOf("txtNewName"), QString());
    // The next press sorts that entry, under the name that is computed for it.
    Sort("cmdSortThisFile");
    QCOMPARE(ListTree(plm_->Folder / u"out"), (std::vector<Bytes>{"B - Y.mp3", "C - Z.mp3"}));
}

void FrmPLMSortTest::ClickOnTheSelectedEntryShowsItAgain() {
    DropSimple({u"a - x.mp3", u"b - y.mp3"});
    Choose("optMethod0");
    plm_->ClickLine("lstFiles", 0);
    Sort("cmdSortThisFile");
    QCOMPARE(plm_->SelectedRows(), QList<int>{0});
    plm_->ClickLine("lstFiles", 0);
    QCOMPARE(plm_->TextOf("txtOldName"), QStringLiteral("b - y.mp3"));
}

void FrmPLMSortTest::SortFromTheEditedPatternBoxAsksAfterTheRun() {
    DropSimple({u"a - x.mp3", u"b - y.mp3", u"c - z.mp3"});
    Choose("optMethod0");
    plm_->Click("chkPreview");
    plm_->Settle();
    plm_->ClickLine("lstFiles", 0);
    plm_->ClickLine("lstFiles", 1, Qt::ControlModifier);
    plm_->SetText("cmbOutPattern", QStringLiteral("%title.mp3"));
    // The window is disabled during the run, which takes the focus out of the box.
    plm_->Key("cmbOutPattern", Qt::Key_Return, Qt::ControlModifier);
    plm_->Settle();
    QCOMPARE(ListTree(plm_->Folder / u"out"), (std::vector<Bytes>{"X.mp3", "Y.mp3"}));
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{0});
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&plm_->Window()));
    QCOMPARE(QApplication::focusWidget(), &plm_->Get<QWidget>("cmbOutPattern"));
    plm_->Get<QWidget>("txtNewName").setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    plm_->Settle();
    QCOMPARE(plm_->Ask.Log.size(), std::size_t{1});
    QCOMPARE(plm_->Lines("lstPreview"), QStringList{QStringLiteral("Z.mp3")});
}

void FrmPLMSortTest::WhatWasNotSortedStaysSelected() {
    const std::vector<Text> paths = DropSimple({u"a - x.mp3", u"b - y.mp3", u"c - z.mp3"});
    QVERIFY(plm_->Disk.DeleteFile(paths[1]).Ok());
    Choose("optMethod0");
    plm_->ClickLine("lstFiles", 0);
    plm_->ClickLine("lstFiles", 1, Qt::ControlModifier);
    Sort();
    QCOMPARE(plm_->SelectedRows(), QList<int>{0});
    QVERIFY(plm_->Lines("lstFiles").at(0).startsWith(QLatin1String("b - y.mp3")));
}

void FrmPLMSortTest::RenameLocksTheTargetAndShowsTheFilesFolder() {
    DropSimple({u"a - x.mp3"});
    Choose("optMethod0");
    plm_->Click("optMethod2");
    for (const char* control : {"chkGenre", "chkAlphabetical", "chkSubFolder", "txtSubFolder",
                                "cmdTargetDir", "lblSubFolder", "lblSubFolderArtist"})
        QVERIFY2(!plm_->Get<QWidget>(control).isEnabled(), control);
    QCOMPARE(plm_->Get<QWidget>("chkAlphabetical").toolTip(),
             QStringLiteral("Sort in folders in alphabetical order. "
                            "Not used while files are renamed."));
    QCOMPARE(plm_->TextOf("lblTargetDir"), QStringLiteral("File location:"));
    QVERIFY(plm_->Get<QLineEdit>("txtTargetDir").isReadOnly());
    QCOMPARE(plm_->TextOf("txtTargetDir"), ToQt(plm_->Folder / u"in/"));
    plm_->Click("cmdSelectNone");
    QCOMPARE(plm_->TextOf("txtTargetDir"), QString());
}

void FrmPLMSortTest::OtherMethodBringsTheTargetBack() {
    DropSimple({u"a - x.mp3"});
    Choose("optMethod0");
    const QString target = plm_->TextOf("txtTargetDir");
    plm_->Click("optMethod2");
    plm_->Click("optMethod1");
    for (const char* control : {"chkGenre", "chkAlphabetical", "chkSubFolder", "txtSubFolder",
                                "cmdTargetDir", "lblSubFolder", "lblSubFolderArtist"})
        QVERIFY2(plm_->Get<QWidget>(control).isEnabled(), control);
    QCOMPARE(plm_->TextOf("lblTargetDir"), QStringLiteral("Target folder:"));
    const auto& box = plm_->Get<QLineEdit>("txtTargetDir");
    QVERIFY(!box.isReadOnly());
    QCOMPARE(box.text(), target);
    QCOMPARE(box.selectedText(), target);
}

void FrmPLMSortTest::BrowseChoosesTheTarget() {
    Choose("optMethod0");
    plm_->Dialogs.Folders = {u"/some/where", u""};
    plm_->Click("cmdTargetDir");
    QCOMPARE(ToQt(plm_->Dialogs.Requests.at(0).Title),
             QStringLiteral("Please select the target directory:"));
    QCOMPARE(plm_->TextOf("txtTargetDir"), QStringLiteral("/some/where"));
    plm_->Click("cmdTargetDir");
    QCOMPARE(plm_->TextOf("txtTargetDir"), QStringLiteral("/some/where"));
}

void FrmPLMSortTest::ChoicesAreLaidOutAsWorded() {
    plm_->Click("optMethod0");
    const QList<QPair<const char*, const char*>> captions{
        {"optMethod0", "Copy"},          {"optMethod1", "Move"},
        {"optMethod2", "Rename"},        {"optExists0", "Prompt"},
        {"optExists1", "Skip"},          {"optExists2", "Replace"},
        {"chkConvert", "Fix Filenames"}, {"chkSubFolder", "Create subfolder if"},
        {"cmdSort", "Sort All Now!"},
    };
    for (const auto& [name, caption] : captions)
        QCOMPARE(plm_->TextOf(name), QString::fromLatin1(caption));
    const QList<QPair<const char*, const char*>> tips{
        {"optExists1", "Do not replace existing files."},
        {"optExists2", "Replace existing files."},
        {"chkAlphabetical", "Sort in folders in alphabetical order."},
        {"txtSubFolder",
         "A subfolder with the artists name will be created if there are at least X songs from "
         "the same artist in the files list."},
    };
    for (const auto& [name, tip] : tips)
        QCOMPARE(plm_->Get<QWidget>(name).toolTip(), QString::fromLatin1(tip));
}

QTEST_MAIN(FrmPLMSortTest)
#include "frmPLM_sort_test.moc"
