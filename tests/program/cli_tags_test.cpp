#include "core/platform/file.h"
#include "core/tags/id3v1.h"
#include "core/tags/id3v2.h"
#include "tests/program/cli_fixture.h"
#include "tests/support/collected_errors.h"

namespace mdlPLM::test {
namespace {

class CliTags : public CliTest {
protected:
    Text MakeTagged(TextView name = u"a.mp3") const {
        return Folder.File(name,
                           WholeTag(TextFrame("TIT2", "Waterloo") + TextFrame("TPE1", "Abba") +
                                        TextFrame("APIC", "picture"),
                                    100) +
                               Noise(300) + Trailer("Waterloo", 3));
    }
    [[nodiscard]] ID3v1Tag V1Of(TextView name) const {
        CollectedErrors errors;
        return ReadID3v1(Folder / name, errors);
    }
    [[nodiscard]] ID3v2Tag V2Of(TextView name) const {
        CollectedErrors errors;
        return ReadID3v2(Folder / name, errors);
    }
};

TEST_F(CliTags, ShowsBothTagsByTheLabelsOfTheirBoxes) {
    (void)MakeTagged();
    (void)Folder.File(u"none.mp3", Noise(200));
    ExpectPrints({"tags", "a.mp3", "none.mp3"},
                 "a.mp3\n"
                 "    ID3v1\n"
                 "        Title: Waterloo\n"
                 "        Artist: An artist\n"
                 "        Album: An album\n"
                 "        Year: 1999\n"
                 "        Genre: Rock\n"
                 "        Track: 3\n"
                 "        Comments: A comment\n"
                 "    ID3v2\n"
                 "        Title: Waterloo\n"
                 "        Artist: Abba\n"
                 "none.mp3\n");
}

TEST_F(CliTags, JsonHasEveryFieldOfATagAndNullWithoutOne) {
    (void)MakeTagged();
    (void)Folder.File(u"none.mp3", Noise(200));
    const ProgramResult result = Cli({"tags", "--json", "a.mp3", "none.mp3", "gone.mp3"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, "pellmore-cli: gone.mp3: File not found\n");
    EXPECT_EQ(Objects(result), (std::vector<Json>{{{"path", "a.mp3"},
                                                   {"v1",
                                                    {{"title", "Waterloo"},
                                                     {"artist", "An artist"},
                                                     {"album", "An album"},
                                                     {"year", "1999"},
                                                     {"genre", "Rock"},
                                                     {"track", "3"},
                                                     {"comment", "A comment"}}},
                                                   {"v2",
                                                    {{"title", "Waterloo"},
                                                     {"artist", "Abba"},
                                                     {"album", ""},
                                                     {"year", ""},
                                                     {"genre", ""},
                                                     {"track", ""},
                                                     {"comment", ""},
                                                     {"composer", ""},
                                                     {"original-artist", ""},
                                                     {"copyright", ""},
                                                     {"encoder", ""},
                                                     {"url", ""}}},
                                                   {"outcome", "read"},
                                                   {"reason", nullptr}},
                                                  {{"path", "none.mp3"},
                                                   {"v1", nullptr},
                                                   {"v2", nullptr},
                                                   {"outcome", "read"},
                                                   {"reason", nullptr}},
                                                  {{"path", "gone.mp3"},
                                                   {"v1", nullptr},
                                                   {"v2", nullptr},
                                                   {"outcome", "failed"},
                                                   {"reason", "File not found"}}}));
}

TEST_F(CliTags, SetsAFieldInBothTagsAndKeepsTheRest) {
    (void)MakeTagged();
    ExpectPrints({"tags", "--set", "title=SOS", "--set", "composer=Björn", "a.mp3"},
                 "written a.mp3\n1 done, 0 skipped, 0 failed\n");
    EXPECT_EQ(FieldText(V1Of(u"a.mp3").Title), "SOS");
    EXPECT_EQ(FieldText(V1Of(u"a.mp3").Artist), "An artist");
    EXPECT_EQ(V1Of(u"a.mp3").Track, 3);
    const ID3v2Tag v2 = V2Of(u"a.mp3");
    EXPECT_EQ(v2.Title, "SOS");
    EXPECT_EQ(v2.Artist, "Abba");
    EXPECT_EQ(v2.Composer, "Bj\xF6rn");
    EXPECT_NE(v2.OtherFrames.find("picture"), Bytes::npos);
}

TEST_F(CliTags, SetsInTheChosenTagOnly) {
    (void)MakeTagged();
    EXPECT_EQ(Cli({"tags", "--set", "title=One", "--v1", "a.mp3"}).Status, 0);
    EXPECT_EQ(Cli({"tags", "--set", "album=Two", "--v2", "a.mp3"}).Status, 0);
    EXPECT_EQ(FieldText(V1Of(u"a.mp3").Title), "One");
    EXPECT_EQ(V2Of(u"a.mp3").Title, "Waterloo");
    EXPECT_EQ(FieldText(V1Of(u"a.mp3").Album), "An album");
    EXPECT_EQ(V2Of(u"a.mp3").Album, "Two");
}

TEST_F(CliTags, AnEmptyTextClearsAField) {
    (void)MakeTagged();
    EXPECT_EQ(
        Cli({"tags", "--set", "artist=", "--set", "track=", "--set", "year=", "a.mp3"}).Status, 0);
    const ID3v1Tag v1 = V1Of(u"a.mp3");
    EXPECT_EQ(FieldText(v1.Artist), "");
    EXPECT_EQ(FieldText(v1.Year), "");
    EXPECT_EQ(v1.Track, 0);
    EXPECT_EQ(V2Of(u"a.mp3").Artist, "");
    EXPECT_EQ(FieldText(v1.Title), "Waterloo");
}

TEST_F(CliTags, ATagThatIsNotThereIsAdded) {
    (void)Folder.File(u"none.mp3", Noise(200));
    EXPECT_EQ(Cli({"tags", "--set", "title=New", "none.mp3"}).Status, 0);
    EXPECT_EQ(FieldText(V1Of(u"none.mp3").Title), "New");
    EXPECT_EQ(V1Of(u"none.mp3").Genre, NoGenre);
    EXPECT_EQ(V2Of(u"none.mp3").Title, "New");
}

TEST_F(CliTags, RemovesTags) {
    const Text path = MakeTagged();
    EXPECT_EQ(Cli({"tags", "--remove", "v1", "a.mp3"}).Status, 0);
    EXPECT_FALSE(V1Of(u"a.mp3").Present());
    EXPECT_TRUE(V2Of(u"a.mp3").Present());
    EXPECT_EQ(Cli({"tags", "--remove", "v2", "--remove", "v1", "a.mp3"}).Status, 0);
    EXPECT_EQ(ReadFile(path), Noise(300));
    ExpectPrints({"tags", "--remove", "v2", "a.mp3"},
                 "unchanged a.mp3\n0 done, 1 skipped, 0 failed\n");
}

TEST_F(CliTags, CopiesBetweenTheVersions) {
    (void)MakeTagged();
    EXPECT_EQ(Cli({"tags", "--copy", "v1-to-v2", "--remove", "v1", "a.mp3"}).Status, 0);
    const ID3v2Tag v2 = V2Of(u"a.mp3");
    EXPECT_EQ(v2.Artist, "An artist");
    EXPECT_EQ(v2.Track, "3");
    EXPECT_FALSE(V1Of(u"a.mp3").Present());
    EXPECT_EQ(Cli({"tags", "--set", "title=" + Bytes(40, 'x'), "--v2", "a.mp3"}).Status, 0);
    EXPECT_EQ(Cli({"tags", "--copy", "v2-to-v1", "a.mp3"}).Status, 0);
    EXPECT_EQ(V1Of(u"a.mp3").Title, Bytes(30, 'x'));
}

TEST_F(CliTags, CleansTagsAndCompletesThemFromTheName) {
    (void)Folder.File(u"abba - sos.mp3", WholeTag(TextFrame("TIT2", "s_o_s  live")) + Noise(300));
    EXPECT_EQ(Cli({"tags", "--fix", "abba - sos.mp3"}).Status, 0);
    const ID3v2Tag v2 = V2Of(u"abba - sos.mp3");
    EXPECT_EQ(v2.Title, "S O S Live");
    EXPECT_EQ(v2.Artist, "abba");
    EXPECT_FALSE(V1Of(u"abba - sos.mp3").Present());
}

TEST_F(CliTags, APlanWritesNothingAndTellsWhatWouldBeWritten) {
    const Text path = MakeTagged();
    const Bytes before = ReadFile(path);
    ExpectPrints({"tags", "-n", "--set", "title=New", "a.mp3"},
                 "would write a.mp3\nwould be: 1 done, 0 skipped, 0 failed\n");
    const std::vector<Json> objects = Objects(
        Cli({"tags", "-n", "--json", "--set", "title=New", "--v2", "--remove", "v1", "a.mp3"}));
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0]["v1"], nullptr);
    EXPECT_EQ(objects[0]["v2"]["title"], "New");
    EXPECT_EQ(objects[0]["outcome"], "written");
    EXPECT_EQ(objects[0]["dry_run"], true);
    EXPECT_EQ(ReadFile(path), before);
}

TEST_F(CliTags, AFileThatCannotBeWrittenIsNamedAndTheOthersAreDone) {
    (void)MakeTagged();
    (void)Folder.File(u"short.mp3", "x");
    ExpectResult(Cli({"tags", "--set", "title=N", "short.mp3", "a.mp3", "gone.mp3"}), 1,
                 "written a.mp3\n1 done, 0 skipped, 2 failed\n",
                 "pellmore-cli: short.mp3: Bad record number\n"
                 "pellmore-cli: gone.mp3: File not found\n");
    EXPECT_EQ(ReadFile(Folder / u"short.mp3"), "x");
}

TEST_F(CliTags, FilesThatAreWrittenAnewAreToldInTheirOrderWithTheirOwnTags) {
    (void)Folder.File(u"a.mp3", Noise(200));
    (void)MakeTagged(u"b.mp3");
    (void)Folder.File(u"d.mp3", Noise(300));
    const ProgramResult result = Cli({"tags", "--json", "--v2", "--fix", "--set", "album=Arrival",
                                      "a.mp3", "b.mp3", "gone.mp3", "d.mp3"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, "pellmore-cli: gone.mp3: File not found\n");
    std::vector<std::pair<Json, Json>> told;
    for (const Json& object : Objects(result))
        told.emplace_back(object.at("path"), object.at("outcome"));
    EXPECT_EQ(told, (std::vector<std::pair<Json, Json>>{{"a.mp3", "written"},
                                                        {"b.mp3", "written"},
                                                        {"gone.mp3", "failed"},
                                                        {"d.mp3", "written"}}));
    EXPECT_EQ(Objects(result)[1].at("v2").at("title"), "Waterloo");
    EXPECT_EQ(Objects(result)[3].at("v2").at("album"), "Arrival");
    EXPECT_EQ(V2Of(u"b.mp3").Title, "Waterloo");
    EXPECT_EQ(V2Of(u"d.mp3").Album, "Arrival");
    EXPECT_EQ(ListTree(Folder.Path()), (std::vector<Bytes>{"a.mp3", "b.mp3", "d.mp3"}));
}

TEST_F(CliTags, AFileThatAnotherProgramWritesToIsNamedInAPlanToo) {
    File other;
    ASSERT_TRUE(other.Open(MakeTagged(), File::Mode::ReadWrite).Ok());
    ASSERT_TRUE(other.Lock().Ok());
    const Bytes before = ReadFile(Folder / u"a.mp3");
    for (const char* more : {"--v2", "--dry-run"}) {
        const ProgramResult result = Cli({"tags", "--set", "title=New", more, "a.mp3"});
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Errors,
                  "pellmore-cli: a.mp3: Another program is writing to this file. Nothing was "
                  "written; save it again when that program is done.\n");
    }
    EXPECT_TRUE(ReadFile(Folder / u"a.mp3") == before);
}

TEST_F(CliTags, ManyFilesAreAskedForAtATerminalWithThePanelsQuestion) {
    (void)MakeTagged(u"a.mp3");
    (void)MakeTagged(u"b.mp3");
    const ProgramCall call =
        Call({"tags", "--set", "title=New", "--remove", "v2", "a.mp3", "b.mp3"});
    const Bytes question =
        "The following attributes will be changed for ALL selected files:\r\n\r\n"
        "ID3v1 (ID3v1 will be added if nonexistent):\r\nTitle: New\r\n\r\n"
        "ID3v2 tags will be REMOVED! [Yes/No] ";
    EXPECT_EQ(RunAtTerminal(call, {{question, "\n"}}).Status, 1);
    EXPECT_EQ(FieldText(V1Of(u"b.mp3").Title), "Waterloo");
    EXPECT_EQ(RunAtTerminal(call, {{question, "yes\n"}}).Status, 0);
    EXPECT_EQ(FieldText(V1Of(u"b.mp3").Title), "New");
    EXPECT_FALSE(V2Of(u"a.mp3").Present());
}

TEST_F(CliTags, InAPipeTheCommandIsTheAnswer) {
    (void)MakeTagged(u"a.mp3");
    (void)MakeTagged(u"b.mp3");
    ExpectPrints({"tags", "--set", "title=New", "."},
                 "written ./a.mp3\nwritten ./b.mp3\n2 done, 0 skipped, 0 failed\n");
}

TEST_F(CliTags, WrongWishesAreMisuse) {
    for (const char* setting : {"name=x", "title", "Title=x", "=x"})
        ExpectResult(
            Cli({"tags", "--set", setting, "x"}), 2, "",
            Bytes("pellmore-cli: --set: \"") + setting + "\" is no FIELD=TEXT of that tag\n");
    ExpectResult(Cli({"tags", "--v1", "--set", "url=x", "x"}), 2, "",
                 "pellmore-cli: --set: \"url=x\" is no FIELD=TEXT of that tag\n");
    ExpectResult(Cli({"tags", "--v2", "x"}), 2, "",
                 "pellmore-cli: --v1 and --v2 choose the tag for --set\n");
}

TEST_F(CliTags, SettingsOfTheTagsHold) {
    (void)MakeTagged();
    EXPECT_EQ(Cli({"tags", "--set", "title=X", "--setting", "bRemHiddenID3=True", "a.mp3"}).Status,
              0);
    EXPECT_EQ(V2Of(u"a.mp3").OtherFrames.find("picture"), Bytes::npos);
    EXPECT_EQ(Cli({"tags", "--v1", "--set", "title=" + Bytes(40, 't'), "--set",
                   "comment=", "--setting", "bOptimizedID3v1=True", "a.mp3"})
                  .Status,
              0);
    EXPECT_EQ(V1Of(u"a.mp3").Comment.substr(0, 11), Bytes(1, '\0') + Bytes(10, 't'));
}

}  // namespace
}  // namespace mdlPLM::test
