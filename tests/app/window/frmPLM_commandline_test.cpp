// The same collection through the real window and through the real pellmore-cli: the same tree.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <QCheckBox>
#include <QCryptographicHash>
#include <QRadioButton>
#include <filesystem>

#include "app/cli/sample_collection.h"
#include "core/platform/path.h"
#include "core/settings/settings_table.h"
#include "core/settings/user_lists.h"
#include "core/text/code_page.h"
#include "tests/support/places.h"
#include "tests/support/qt_main_window.h"
#include "tests/support/real_mp3.h"
#include "tests/support/terminal_run.h"

using namespace mdlPLM;

namespace {

/// What is chosen in the window by hand and on the command line by options.
struct Choices {
    Bytes Method = "copy";
    Bytes Exists = "skip";
    bool Genre = false;
    bool Letter = false;
    Bytes Artist = {};  ///< threshold; empty: no artist folders
    bool KeepNames = false;
    std::vector<Bytes> Settings = {};  ///< KEY=VALUE
    Bytes Replaces = {};               ///< contents of a replacement list
    std::vector<Answer> Answers = {};  ///< to what is asked
};

const std::map<Bytes, const char*> MethodControls = {
    {"copy", "optMethod0"}, {"move", "optMethod1"}, {"rename", "optMethod2"}};
const std::map<Bytes, const char*> ExistsControls = {
    {"ask", "optExists0"}, {"skip", "optExists1"}, {"replace", "optExists2"}};

/// The options that say what the controls say; nothing is left to a default.
std::vector<Bytes> OptionsOf(const Choices& choices) {
    std::vector<Bytes> options = {"--method", choices.Method, "--if-exists", choices.Exists};
    options.emplace_back(choices.Genre ? "--genre" : "--no-genre");
    options.emplace_back(choices.Letter ? "--letter" : "--no-letter");
    options.emplace_back(choices.KeepNames ? "--keep-names" : "--fix-names");
    if (choices.Artist.empty()) options.emplace_back("--no-artist");
    if (!choices.Artist.empty()) options.insert(options.end(), {"--artist", choices.Artist});
    for (const Bytes& setting : choices.Settings)
        options.insert(options.end(), {"--setting", setting});
    return options;
}

enum class Times { Kept, New };

/// One line: kind, mode, time where it is kept, what a link leads to, DOS attributes, contents.
QByteArray Description(const Bytes& path, Times times) {
    struct stat data {};
    if (::lstat(path.c_str(), &data) != 0) throw std::runtime_error("cannot look at " + path);
    QByteArray line = S_ISDIR(data.st_mode) ? "folder" : S_ISLNK(data.st_mode) ? "link" : "file";
    line += " " + QByteArray::number(data.st_mode & 07777U, 8);
    if (S_ISDIR(data.st_mode)) return line;
    if (times == Times::Kept)
        line += " " + QByteArray::number(qint64{data.st_mtim.tv_sec}) + "." +
                QByteArray::number(qint64{data.st_mtim.tv_nsec});
    if (S_ISLNK(data.st_mode))
        return line + " " + QByteArray::fromStdString(std::filesystem::read_symlink(path).string());
    char attributes[64] = {};
    const auto length = ::lgetxattr(path.c_str(), "user.DOSATTRIB", attributes, sizeof attributes);
    if (length > 0) line += " " + QByteArray(attributes, length).toHex();
    const Bytes contents = ReadFile(PathFromNative(path));
    return line + " " + QByteArray::number(qint64(contents.size())) + " bytes " +
           QCryptographicHash::hash(QByteArray::fromStdString(contents), QCryptographicHash::Sha256)
               .toHex();
}

QByteArrayList Tree(const Text& folder, Times times = Times::Kept) {
    QByteArrayList lines;
    for (const Bytes& name : ListTree(folder))
        lines << QByteArray::fromStdString(name) + ": " +
                     Description(NativePath(folder) + name, times);
    return lines;
}

void SetUp(const Text& path, mode_t mode, long long second) {
    const timespec time = {static_cast<time_t>(second), static_cast<long>(second % 1000000007)};
    const timespec times[2] = {time, time};
    const Bytes native = NativePath(path);
    if (::utimensat(AT_FDCWD, native.c_str(), times, AT_SYMLINK_NOFOLLOW) != 0 ||
        ::fchmodat(AT_FDCWD, native.c_str(), mode, 0) != 0)
        throw std::runtime_error("cannot set up " + native);
}

/// Below "in": the sample collection, some of its files once more so that new names meet, files of
/// a real encoder and tagger, and a link; of several modes and ages. Below "out": what is there
/// already. Every call makes the same.
void MakeCollection(const TempFolder& folder) {
    const Text in = folder.Folder(u"in") + u"/";
    if (!cli::MakeSampleCollection(in).Ok()) throw std::runtime_error("no samples");
    WriteFile(in + PathFromNative("ivar strand - \xE5 i\xC3\xA9.mp3"), cli::SilentStream(1));
    for (const TextView name : {u"TRACK01.MP3", u"north-south.mp3", u"polska_(live).mp3"})
        WriteFile(in + u"twice/" + Text(name), ReadFile(in + Text(name)) + "again");
    TagByPeer(folder.File(u"in/01_WATERLOO.MP3", EncodedMp3(440)),
              {"Abba", "Waterloo", "Waterloo", "1974", "1", 13});
    TagByPeer(folder.File(u"in/deeper/still/track%2007.mp3", EncodedMp3(550)),
              {"Abba", "SOS", "Abba", "1975", "7", 17}, PeerVersion::V1);
    constexpr std::array<mode_t, 4> Modes = {0644, 0600, 0444, 0640};
    long long age = 1;
    for (const Bytes& name : ListTree(in)) {
        if (name.back() == '/') continue;
        SetUp(in + PathFromNative(name), Modes.at(static_cast<std::size_t>(age % 4)),
              age * 12345678);
        ++age;
    }
    const Text link = folder.Link(u"in/linked.mp3", u"just a tune.mp3");
    SetUp(link, 0644, 99999999);
    // Named like the new names of two files, the second one a folder.
    SetUp(folder.File(u"out/03 - Aurora Lane - First Snow.mp3", "old"), 0604, 7777);
    (void)folder.File(u"out/07 - The Paper Boats - Lighthouse.mp3/inside", "x");
    SetUp(folder / u"out/07 - The Paper Boats - Lighthouse.mp3/inside", 0644, 8888);
}

Bytes LastLine(Bytes text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text.substr(text.rfind('\n') + 1);
}

}  // namespace

Q_DECLARE_METATYPE(Choices)

class FrmPLMCommandLineTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void SortsAlike_data();
    void SortsAlike();
    void SortsByWhatTheWindowStored();
    void AsksAlike();
    void NamesAlike();
    void TagsAlike_data();
    void TagsAlike();
    void TheWindowReadsWhatTheCommandLineStored();

private:
    void OpenWindow(const Choices& choices);
    void SortInWindow(const Choices& choices);
    [[nodiscard]] test::ProgramCall Call(const std::vector<Bytes>& arguments) const;
    [[nodiscard]] test::ProgramCall SortCall(const Choices& choices) const;
    void CompareTrees(Times times = Times::Kept);

    std::unique_ptr<MainWindow> plm_;
    std::unique_ptr<TempFolder> there_;  ///< the folder of the command line
};

void FrmPLMCommandLineTest::init() {
    plm_ = std::make_unique<MainWindow>();
    there_ = std::make_unique<TempFolder>();
    MakeCollection(plm_->Folder);
    MakeCollection(*there_);
}

void FrmPLMCommandLineTest::OpenWindow(const Choices& choices) {
    for (const Bytes& setting : choices.Settings) {
        const std::size_t equals = setting.find('=');
        QVERIFY(SetSettingFromText(plm_->Context.Values, FromUtf8(setting.substr(0, equals)),
                                   FromUtf8(setting.substr(equals + 1))));
    }
    if (!choices.Replaces.empty()) {
        plm_->Context.Values.bReplace = true;
        plm_->Context.Replacements = ParseReplacements(FromUtf8(choices.Replaces));
    }
    plm_->Ask.Answers.assign(choices.Answers.begin(), choices.Answers.end());
    plm_->Open();
    const auto tick = [this](const char* name, bool on) {
        if (plm_->Get<QCheckBox>(name).isChecked() != on) plm_->Click(name);
        QCOMPARE(plm_->Get<QCheckBox>(name).isChecked(), on);
    };
    plm_->Click("optMethod0");
    tick("chkGenre", choices.Genre);
    tick("chkAlphabetical", choices.Letter);
    tick("chkSubFolder", !choices.Artist.empty());
    if (!choices.Artist.empty())
        plm_->SetText("txtSubFolder", QString::fromStdString(choices.Artist));
    tick("chkConvert", !choices.KeepNames);
    plm_->SetText("txtTargetDir", ToQt(plm_->Folder / u"out"));
    plm_->Click(MethodControls.at(choices.Method));
    plm_->Click(ExistsControls.at(choices.Exists));
}

void FrmPLMCommandLineTest::SortInWindow(const Choices& choices) {
    OpenWindow(choices);
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    plm_->Click("cmdSelectAll");
    plm_->Click("cmdSort");
    plm_->Settle();
}

test::ProgramCall FrmPLMCommandLineTest::Call(const std::vector<Bytes>& arguments) const {
    const std::map<Bytes, Bytes> environment = {
        {"HOME", NativePath(*there_ / u"home")},
        {"XDG_CONFIG_HOME", NativePath(*there_ / u"config")},
        {"XDG_DATA_HOME", NativePath(*there_ / u"data")},
        {"TERM", "xterm"}};
    return {PathFromNative(test::CommandLineFile()), arguments, environment, {}, there_->Path()};
}

test::ProgramCall FrmPLMCommandLineTest::SortCall(const Choices& choices) const {
    std::vector<Bytes> arguments = {"sort", "--no-user-settings"};
    const std::vector<Bytes> options = OptionsOf(choices);
    arguments.insert(arguments.end(), options.begin(), options.end());
    if (!choices.Replaces.empty())
        arguments.insert(arguments.end(),
                         {"--replaces", NativePath(there_->File(u"list.txt", choices.Replaces))});
    arguments.insert(arguments.end(), {"--to", "out", "in"});
    return Call(arguments);
}

void FrmPLMCommandLineTest::CompareTrees(Times times) {
    for (const TextView part : {u"in", u"out"})
        QCOMPARE(Tree(*there_ / part + u"/", times), Tree(plm_->Folder / part + u"/", times));
}

void FrmPLMCommandLineTest::SortsAlike_data() {
    QTest::addColumn<Choices>("choices");
    QTest::addColumn<QByteArray>("summary");
    const auto row = [](const char* name, Choices choices, const char* summary) {
        QTest::newRow(name) << std::move(choices) << QByteArray(summary);
    };
    row("copied into genre, letter and artist folders",
        {.Method = "copy", .Genre = true, .Letter = true, .Artist = "2"},
        "13 done, 8 skipped, 0 failed");
    row("moved into genre, letter and artist folders",
        {.Method = "move", .Genre = true, .Letter = true, .Artist = "2"},
        "13 done, 8 skipped, 0 failed");
    row("copied, what is there stays", {.Method = "copy"}, "16 done, 5 skipped, 0 failed");
    // What one file of the run would take from another is asked about; without a terminal the
    // answer is No.
    row("copied, what is there is replaced",
        {.Method = "copy", .Exists = "replace", .Answers = {Answer::No, Answer::No, Answer::No}},
        "17 done, 3 skipped, 1 failed");
    // The link is moved behind what it leads to, which is no longer there then.
    row("moved, what is there is replaced",
        {.Method = "move", .Exists = "replace", .Answers = {Answer::No, Answer::No, Answer::No}},
        "16 done, 4 skipped, 1 failed");
    row("renamed", {.Method = "rename"}, "20 done, 1 skipped, 0 failed");
    row("moved under the old names", {.Method = "move", .Genre = true, .KeepNames = true},
        "20 done, 1 skipped, 0 failed");
    row("folders for every artist, another pattern, other rules",
        {.Method = "copy",
         .Letter = true,
         .Artist = "0",
         .Settings = {"OutPattern=%artist - %title (%year).mp3", "Change=3", "bParentheses=True",
                      "bRemoveChars=True"}},
        "12 done, 9 skipped, 0 failed");
    row("without tags, with a replacement list and attributes",
        {.Method = "move",
         .Genre = true,
         .Letter = true,
         .Settings = {"bID3=False", "bSetAttributes=True", "bReadOnly=True", "bHidden=True",
                      "bArhive=True"},
         .Replaces = "aurora\nBorealis\nlane\nStreet\n"},
        "20 done, 1 skipped, 0 failed");
}

void FrmPLMCommandLineTest::SortsAlike() {
    QFETCH(Choices, choices);
    QFETCH(QByteArray, summary);
    const QByteArrayList before = Tree(plm_->Folder.Path() + u"in/");
    QCOMPARE(before, Tree(there_->Path() + u"in/"));
    SortInWindow(choices);
    QCOMPARE(plm_->Ask.Answers.size(), std::size_t{0});
    const test::ProgramResult result = test::RunToEnd(SortCall(choices));
    CompareTrees();
    QCOMPARE(plm_->TextOf("lblStatus"), QString::fromLatin1(summary));
    QCOMPARE(QByteArray::fromStdString(LastLine(result.Out)), summary);
    QCOMPARE(result.Status, result.Errors.empty() ? 0 : 1);
}

// The command line is told nothing but the files: all choices come from the window's store.
void FrmPLMCommandLineTest::SortsByWhatTheWindowStored() {
    const Choices choices{.Method = "move",
                          .Genre = true,
                          .Letter = true,
                          .Artist = "2",
                          .Settings = {"OutPattern=%artist - %title (%album).mp3"}};
    SortInWindow(choices);
    plm_->Window().close();
    (void)there_->File(u"config/PLM/PLM.ini", ReadFile(plm_->Folder / u"PLM.ini"));
    QCOMPARE(test::RunToEnd(Call({"sort", "--to", "out", "in"})).Errors, Bytes());
    CompareTrees();
}

void FrmPLMCommandLineTest::AsksAlike() {
    const Choices choices{.Method = "move",
                          .Exists = "ask",
                          .Answers = {Answer::Yes, Answer::No, Answer::Yes, Answer::Cancel}};
    SortInWindow(choices);
    QCOMPARE(plm_->Ask.Answers.size(), std::size_t{0});
    std::vector<test::TerminalStep> steps;
    const std::vector<Bytes> typed = {"yes\n", "n\n", "y\n", "c\n"};
    const Bytes folder = NativePath(plm_->Folder.Path());
    for (const Asked& asked : plm_->Ask.Log) {
        Bytes body = NativePath(asked.What.Body);
        const std::size_t at = body.find(folder);
        QVERIFY(at != Bytes::npos);
        body.replace(at, folder.size(), NativePath(there_->Path()));
        QVERIFY(steps.size() < typed.size());
        steps.push_back({body + " [Yes/No/Cancel] ", typed[steps.size()]});
    }
    const test::ProgramResult result = test::RunAtTerminal(SortCall(choices), steps);
    CompareTrees();
    QCOMPARE(result.Status, 1);
}

void FrmPLMCommandLineTest::NamesAlike() {
    plm_->Open();
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    plm_->Click("chkPreview");
    plm_->Settle();
    const test::ProgramResult result = test::RunToEnd(Call({"names", "--no-user-settings", "in"}));
    QByteArrayList names;
    for (const QByteArray& line : QByteArray::fromStdString(result.Out).trimmed().split('\n'))
        names << line.mid(line.indexOf(" -> ") + 4);
    QByteArrayList previewed;
    for (const QString& line : plm_->Lines("lstPreview"))
        previewed << QByteArray::fromStdString(NativePath(FromQt(line)));
    QCOMPARE(names, previewed);
    QCOMPARE(names.size(), 21);
}

void FrmPLMCommandLineTest::TagsAlike_data() {
    QTest::addColumn<QStringList>("boxes");  // name and text, in turns
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("fields of both tags")
        << QStringList{"txtAlbum", "An album", "txtV2Album", "An album", "txtV2URL", "http://x"}
        << QByteArray("cmdSaveID3")
        << QStringList{"--set", "album=An album", "--set", "url=http://x"};
    QTest::newRow("cleaned") << QStringList() << QByteArray("cmdFixID3") << QStringList{"--fix"};
}

void FrmPLMCommandLineTest::TagsAlike() {
    QFETCH(QStringList, boxes);
    QFETCH(QByteArray, button);
    QFETCH(QStringList, options);
    plm_->Open();
    plm_->Drop("lstFiles", {plm_->Folder / u"in"});
    plm_->Click("cmdSelectAll");
    for (qsizetype i = 0; i < boxes.size(); i += 2)
        plm_->SetText(boxes[i].toLatin1().constData(), boxes[i + 1]);
    plm_->Ask.Answers = {Answer::Yes};
    plm_->Click(button.constData());
    plm_->Settle();
    std::vector<Bytes> arguments = {"tags", "--no-user-settings"};
    for (const QString& option : options) arguments.push_back(option.toStdString());
    arguments.emplace_back("in");
    const QByteArrayList before = Tree(*there_ / u"in/", Times::New);
    const test::ProgramResult result = test::RunToEnd(Call(arguments));
    QVERIFY(Tree(*there_ / u"in/", Times::New) != before);
    CompareTrees(Times::New);
    QCOMPARE(plm_->TextOf("lblStatus"), QString::fromStdString(LastLine(result.Out)));
}

void FrmPLMCommandLineTest::TheWindowReadsWhatTheCommandLineStored() {
    const test::ProgramResult stored = test::RunToEnd(
        Call({"settings", "Genre=1", "Alphabetical=0", "SubFolder=1", "txtSubFolder=7", "Move=1",
              "FileExists=2", "Convert=0", "OutPattern=%title by %artist.mp3"}));
    QCOMPARE(stored.Status, 0);
    WriteFile(plm_->Folder / u"PLM.ini", ReadFile(*there_ / u"config/PLM/PLM.ini"));
    QVERIFY(plm_->Store.Load().Ok());
    plm_->Context.Values = LoadSettings(plm_->Store, plm_->Context.ProgramFolder);
    plm_->Open();
    QVERIFY(plm_->Get<QCheckBox>("chkGenre").isChecked());
    QVERIFY(!plm_->Get<QCheckBox>("chkAlphabetical").isChecked());
    QVERIFY(plm_->Get<QCheckBox>("chkSubFolder").isChecked());
    QVERIFY(!plm_->Get<QCheckBox>("chkConvert").isChecked());
    QVERIFY(plm_->Get<QRadioButton>("optMethod1").isChecked());
    QVERIFY(plm_->Get<QRadioButton>("optExists2").isChecked());
    QCOMPARE(plm_->TextOf("txtSubFolder"), QStringLiteral("7"));
    QCOMPARE(plm_->TextOf("cmbOutPattern"), QStringLiteral("%title by %artist.mp3"));
}

QTEST_MAIN(FrmPLMCommandLineTest)
#include "frmPLM_commandline_test.moc"
