#include "core/names/fix_file_name.h"

#include <gtest/gtest.h>

#include "core/text/code_page.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

constexpr TextView Pattern = u"%track - %artist - %title.mp3";
constexpr TextView AllSeven = u"%artist|%title|%album|%track|%year|%genre|%comment";

// A file, its tags and the settings of one case; the pattern separates with what a name cannot
// hold, so the chain shows it as a blank.
struct Naming {
    Settings Values;
    ReplacementList Replacements;
    Text InPattern = u"%artist - %title.mp3";
    Text Path = u"/music/old artist - old title.mp3";
    FileTags Tags;
    TagBoxes Boxes;

    Naming() {
        Tags.Exists = true;
        Tags.V1.Genre = NoGenre;
    }
    [[nodiscard]] NamingContext Context() const { return {Values, Replacements, InPattern}; }
    [[nodiscard]] Text FromTags(TextView pattern) const {
        return FixFileName(Path, pattern, Tags, Context());
    }
    [[nodiscard]] Text FromBoxes(TextView pattern) const {
        return FixFileName2(Path, pattern, Boxes, Context());
    }
};

// Rules off, so that fields are seen as they were gathered.
Naming Bare() {
    Naming naming;
    Settings& values = naming.Values;
    values.bExtension = values.bLowExtension = values.bScoreToSpace = values.b20toSpace = false;
    values.bSpaces = values.bMisses = false;
    values.Change = 0;
    return naming;
}

Bytes Padded(BytesView text, int width) { return PadString(text, width, BytesView("\0", 1)); }

void GiveV1(Naming& naming) {
    ID3v1Tag& tag = naming.Tags.V1;
    tag.Tag = "TAG";
    tag.Artist = Padded("V1 Artist", 30);
    tag.Title = Padded("V1 Title", 30);
    tag.Album = Padded("V1 Album", 30);
    tag.Year = "1999";
    tag.Comment = Padded("V1 Comment", 30);
    tag.Track = 7;
    tag.Genre = 17;
}

void GiveV2(Naming& naming) {
    ID3v2Tag& tag = naming.Tags.V2;
    tag.ID = "ID3";
    tag.Artist = "V2 Artist";
    tag.Title = "V2 Title";
    tag.Album = "V2 Album";
    tag.Year = "2001";
    tag.Comments = "V2 Comment";
    tag.Track = "12";
    tag.Genre = "Pop";
}

TEST(FixFileName, FieldsOfTheSecondVersionComeFirst) {
    Naming naming = Bare();
    GiveV1(naming);
    GiveV2(naming);
    EXPECT_EQ(naming.FromTags(AllSeven), u"V2 Artist V2 Title V2 Album 12 2001 Pop V2 Comment");
    naming.Tags.V2.Album.clear();
    naming.Tags.V2.Track.clear();
    EXPECT_EQ(naming.FromTags(AllSeven), u"V2 Artist V2 Title V1 Album 07 2001 Pop V2 Comment");
}

TEST(FixFileName, FieldsOfTheFirstVersion) {
    Naming naming = Bare();
    GiveV1(naming);
    EXPECT_EQ(naming.FromTags(AllSeven), u"V1 Artist V1 Title V1 Album 07 1999 Rock V1 Comment");
}

TEST(FixFileName, FieldsThatNoTagHasComeFromTheOldName) {
    Naming naming = Bare();
    naming.InPattern = u"%track - %artist - %title (%year, %genre, %comment).mp3";
    naming.Path = u"/music/03 - Abba - Waterloo (1974, Pop, live).mp3";
    naming.Tags.V2.ID = "ID3";
    naming.Tags.V2.Genre = "Disco";
    EXPECT_EQ(naming.FromTags(u"%artist|%title|%track|%year|%genre|%comment"),
              u"Abba Waterloo 03 1974 Disco live");
}

TEST(FixFileName, AFileWithoutTagsIsNamedByItsOldName) {
    Naming naming = Bare();
    naming.Values.bMisses = true;
    naming.InPattern = u"%track - %title.mp3";
    naming.Path = u"/music/3 - Waterloo.mp3";
    // No zero in front of the track: that is for tags alone.
    EXPECT_EQ(naming.FromTags(u"%title %track.mp3"), u"Waterloo 3.mp3");
}

TEST(FixFileName, TagsAreLeftAloneWhenTheyAreNotWanted) {
    Naming naming = Bare();
    GiveV1(naming);
    naming.Values.bID3 = false;
    EXPECT_EQ(naming.FromTags(u"%artist|%title"), u"old artist old title");
    naming.Values.bID3 = true;
    EXPECT_EQ(naming.FromTags(u"%artist|%title"), u"V1 Artist V1 Title");
}

TEST(FixFileName, ABlankExtensionMeansThatTagsAreIgnored) {
    Naming naming = Bare();
    GiveV2(naming);
    for (const TextView extension : {TextView(u""), TextView(u"  ")}) {
        naming.Values.Extension = extension;
        EXPECT_EQ(naming.FromTags(u"%artist|%title"), u"old artist old title");
    }
}

TEST(FixFileName, NoGenreIsUnknownWhenTagsAreUsed) {
    Naming naming = Bare();
    naming.InPattern = u"%genre - %title.mp3";
    naming.Path = u"/music/Pop - Waterloo.mp3";
    naming.Tags.V2.ID = "ID3";
    EXPECT_EQ(naming.FromTags(u"%genre %title"), u"Unknown Waterloo");
    naming.Tags.V2.ID = Bytes(3, '\0');
    EXPECT_EQ(naming.FromTags(u"%genre %title"), u"Pop Waterloo");
}

TEST(FixFileName, AFieldOfBlanksCountsInTheSecondVersionOnly) {
    Naming naming = Bare();
    naming.Tags.V1.Tag = "TAG";
    naming.Tags.V1.Artist = Bytes(30, ' ');
    EXPECT_EQ(naming.FromTags(u"[%artist]"), u"[old artist]");
    naming.Tags.V2.Artist = "  ";
    EXPECT_EQ(naming.FromTags(u"[%artist]x%title"), u"[  ]xold title");
}

TEST(FixFileName, FieldsOfTheFirstVersionKeepTheirBlanksUnlessMistakesAreFixed) {
    Naming naming = Bare();
    naming.Tags.V1.Tag = "TAG";
    naming.Tags.V1.Artist = "Abba                          ";
    naming.Tags.V1.Title = Padded("Waterloo ", 30);
    EXPECT_EQ(naming.FromTags(u"%title[%artist]"), u"Waterloo [Abba                          ]");
    naming.Values.bMisses = true;
    EXPECT_EQ(naming.FromTags(u"%title[%artist]"), u"Waterloo[Abba]");
}

TEST(FixFileName, AFieldOfTheFirstVersionEndsAtItsFirstNul) {
    Naming naming = Bare();
    naming.Tags.V1.Tag = "TAG";
    naming.Tags.V1.Title = Padded(BytesView("Ab\0cd", 5), 30);
    naming.Tags.V1.Artist = Bytes(30, 'x');
    EXPECT_EQ(naming.FromTags(u"%title-%artist"), u"Ab-" + Text(30, u'x'));
}

TEST(FixFileName, ContinuationsCountInTheOptimizedLayout) {
    Naming naming = Bare();
    LayOutID3v1(naming.Tags.V1,
                {u"A title of more than thirty characters", u"An artist of more than thirty, too",
                 u"Album", u"2001", u"Comment"},
                true);
    naming.Tags.V1.Tag = "TAG";
    EXPECT_EQ(naming.FromTags(u"%artist|%title|%album|%comment"),
              u"An artist of more than thirty, A title of more than thirty ch Album Comment");
    naming.Values.bOptimizedID3v1 = true;
    EXPECT_EQ(naming.FromTags(u"%artist|%title|%album|%comment"),
              u"An artist of more than thirty, too A title of more than thirty characters "
              u"Album Comment");
}

struct TrackCase {
    const char* V2;
    int V1;
    TextView Expected;
};

class TrackOfTags : public testing::TestWithParam<TrackCase> {};

TEST_P(TrackOfTags, HasTwoDigits) {
    Naming naming = Bare();
    naming.Tags.V2.ID = "ID3";
    naming.Tags.V2.Track = GetParam().V2;
    naming.Tags.V1.Track = static_cast<char>(GetParam().V1);
    EXPECT_EQ(naming.FromTags(u"%track.%title"), Text(GetParam().Expected) + u".old title");
}

INSTANTIATE_TEST_SUITE_P(Tracks, TrackOfTags,
                         testing::Values(TrackCase{"1", 0, u"01"}, TrackCase{"12", 0, u"12"},
                                         TrackCase{"0", 0, u"0"}, TrackCase{"3/12", 0, u"3 12"},
                                         TrackCase{"a", 0, u"0a"}, TrackCase{" ", 0, u""},
                                         TrackCase{"  ", 0, u"  "}, TrackCase{"", 9, u"09"},
                                         TrackCase{"", 255, u"255"}, TrackCase{"", 0, u""}));

TEST(FixFileName, AllValuesAreTrimmedWhenMistakesAreFixed) {
    Naming naming = Bare();
    GiveV2(naming);
    naming.Values.bMisses = true;
    naming.Tags.V2.Artist = " Abba ";
    naming.Tags.V2.Title = "  Waterloo";
    naming.Tags.V2.Track = " 5";  // two characters when the zero would be put
    EXPECT_EQ(naming.FromTags(u"%track - %artist - %title.mp3"), u"5 - Abba - Waterloo.mp3");
}

struct TitleCase {
    const char* Artist;
    TextView OldName;
    TextView Expected;
};

class TitleOfOldName : public testing::TestWithParam<TitleCase> {};

// The in-pattern takes the whole name as the title.
TEST_P(TitleOfOldName, LosesItsArtist) {
    Naming naming = Bare();
    naming.Values.bMisses = true;
    naming.InPattern = u"%title.mp3";
    naming.Path = GetParam().OldName;
    naming.Tags.V2.ID = "ID3";
    naming.Tags.V2.Artist = GetParam().Artist;
    EXPECT_EQ(naming.FromTags(u"[%artist][%title].mp3"), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Titles, TitleOfOldName,
    testing::Values(TitleCase{"Abba", u"Abba - Waterloo.mp3", u"[Abba][Waterloo].mp3"},
                    TitleCase{"ABBA", u"abba - Waterloo.mp3", u"[ABBA][Waterloo].mp3"},
                    TitleCase{"", u"Abba - Waterloo.mp3", u"[Abba][Waterloo].mp3"},
                    TitleCase{"Kim", u"Abba - Waterloo.mp3", u"[Kim][Abba - Waterloo].mp3"},
                    TitleCase{"", u"Abba - a.mp3", u"[][Abba - a].mp3"},
                    TitleCase{"", u"Abba - ab.mp3", u"[Abba][ab].mp3"},
                    TitleCase{"Abba", u"Abba -.mp3", u"[Abba][].mp3"},
                    TitleCase{"Abba", u"Waterloo.mp3", u"[Abba][Waterloo].mp3"}));

TEST(FixFileName, ATitleOfTheTagKeepsItsArtist) {
    Naming naming = Bare();
    naming.Values.bMisses = true;
    naming.Tags.V2.ID = "ID3";
    naming.Tags.V2.Artist = "Abba";
    naming.Tags.V2.Title = "Abba - Waterloo";
    EXPECT_EQ(naming.FromTags(u"[%artist][%title].mp3"), u"[Abba][Abba - Waterloo].mp3");
}

TEST(FixFileName, ATitleOfTheOldNameKeepsItsArtistUnlessMistakesAreFixed) {
    Naming naming = Bare();
    naming.InPattern = u"%title.mp3";
    naming.Path = u"/music/Abba - Waterloo.mp3";
    naming.Tags.V2.ID = "ID3";
    EXPECT_EQ(naming.FromTags(u"[%artist][%title].mp3"), u"[][Abba - Waterloo].mp3");
}

TEST(FixFileName, FirstLettersOfArtistTitleAndAlbum) {
    Naming naming = Bare();
    GiveV2(naming);
    naming.Tags.V2.Artist = "the WHO";
    naming.Tags.V2.Title = "\xE5 song";
    naming.Tags.V2.Album = "tHE ALBUM";
    naming.Values.Change = 2;
    EXPECT_EQ(naming.FromTags(u"%artist|%title|%album|%comment.MP3"),
              u"The who \u00C5 song The album V2 Comment.MP3");
    naming.Values.bID3 = false;
    EXPECT_EQ(naming.FromTags(u"%artist|%title"), u"Old artist Old title");
}

TEST(FixFileName, FieldsThatAreAllEmptyGiveTheOldNameCleaned) {
    Naming naming;
    naming.InPattern = u"%album.mp3";
    naming.Path = u"/music/old_name--x.MP3";
    EXPECT_EQ(naming.FromTags(u"%artist - %title.mp3"), u"Old Name - X.mp3");
}

TEST(FixFileName, APatternWithoutPlaceholdersGivesTheOldNameCleaned) {
    Naming naming;
    naming.Path = u"/music/a_b.mp3";
    EXPECT_EQ(naming.FromTags(u"same for all.mp3"), u"A B.mp3");
}

TEST(FixFileName, TheUsualSettingsMakeAUsualName) {
    Naming naming;
    naming.Tags.V2.ID = "ID3";
    naming.Tags.V2.Artist = "Abba";
    naming.Tags.V2.Title = "Waterloo";
    naming.Tags.V2.Track = "1";
    naming.Values.Change = 1;
    naming.Values.bLowExtension = true;
    EXPECT_EQ(naming.FromTags(Pattern), u"01 - Abba - Waterloo.mp3");
}

TEST(FixFileName, TextsOfTagsCannotLeaveTheFolder) {
    Naming naming;
    GiveV2(naming);
    naming.Tags.V2.Artist = "../AC/DC";
    naming.Tags.V2.Title = "..\\What?";
    EXPECT_EQ(naming.FromTags(Pattern).find_first_of(u"/\\?"), Text::npos);
}

TEST(FixFileName, LineBreaksOfTagsDoNotGetIntoNames) {
    Naming naming;
    naming.Tags.V2.ID = "ID3";
    naming.Tags.V2.Artist = "Ab\r\nba";
    naming.Tags.V2.Title = "\x01Water\tloo\x7F!";
    naming.Tags.V2.Track = "1";
    EXPECT_EQ(naming.FromTags(Pattern), u"01 - Ab ba - Water loo !.mp3");
    naming.Boxes.chkID3v2 = true;
    naming.Boxes.txtV2Artist = u"Ab\r\nba";
    naming.Boxes.txtV2Title = u"\x01Water\tloo\x7F!";
    naming.Boxes.txtV2Track = u"1";
    EXPECT_EQ(naming.FromBoxes(Pattern), u"01 - Ab ba - Water loo !.mp3");
}

// Five blanks and a parenthesis separate name and folder in a line of the list; here they are part
// of a name, and the folders behind them are no part of the new one.
TEST(FixFileName, ANameThatHoldsTheMarkOfAListLineIsTakenFromItsPath) {
    Naming naming = Bare();
    naming.Values.bID3 = false;
    naming.Path = u"/music (old)/abba - song     (live).mp3";
    EXPECT_EQ(naming.FromTags(u"%title.mp3"), u"song     (live).mp3");
    EXPECT_EQ(naming.FromBoxes(u"%title.mp3"), u"song     (live).mp3");
    naming.Path = u"/music     (x)/abba - song.mp3";
    EXPECT_EQ(naming.FromTags(u"%title - %artist.mp3"), u"song - abba.mp3");
    naming.InPattern = u"%album.txt";
    EXPECT_EQ(naming.FromTags(u"same for all.mp3"), u"abba - song.mp3");
    naming.Path = u"/music/a     (b).mp3";
    EXPECT_EQ(naming.FromTags(u"same for all.mp3"), u"a     (b).mp3");
    EXPECT_EQ(naming.FromBoxes(u"same for all.mp3"), u"a     (b).mp3");
}

TEST(FixFileName, AFileThatCannotBeReadHasNoName) {
    Naming naming;
    naming.Tags.Unreadable = ErrorNumber::PermissionDenied;
    EXPECT_EQ(naming.FromTags(Pattern), u"");
    EXPECT_EQ(ReadingFault(naming.Tags, naming.Values).Number(), ErrorNumber::PermissionDenied);
}

TEST(FixFileName, AFileThatCannotBeReadHasItsNameWhereNoTagIsAsked) {
    Naming naming;
    naming.Tags.Unreadable = ErrorNumber::DeviceIo;
    naming.Values.bID3 = false;
    EXPECT_TRUE(ReadingFault(naming.Tags, naming.Values).Ok());
    EXPECT_EQ(naming.FromTags(u"%title.mp3"), u"Old Title.mp3");
    naming.Values.bID3 = true;
    naming.Values.Extension = u" ";
    EXPECT_TRUE(ReadingFault(naming.Tags, naming.Values).Ok());
}

TEST(FixFileName, AMissingFileHasNoName) {
    Naming naming;
    naming.Tags = FileTags();
    EXPECT_EQ(naming.FromTags(Pattern), u"");
    EXPECT_EQ(FixFileName(u"/no/such/file.mp3", Pattern, naming.Context()), u"");
}

TEST(FixFileName2, BoxesOfTheSecondVersionComeFirst) {
    Naming naming = Bare();
    TagBoxes& boxes = naming.Boxes;
    boxes.chkID3v1 = true;
    boxes.txtArtist = u"Artist 1";
    boxes.txtTitle = u"Title 1";
    boxes.txtAlbum = u"Album 1";
    boxes.txtTrackNr = u"7";
    boxes.txtYear = u"1999";
    boxes.cmbGenre = u"Rock";
    boxes.txtComments = u"Comment 1";
    EXPECT_EQ(naming.FromBoxes(AllSeven), u"Artist 1 Title 1 Album 1 07 1999 Rock Comment 1");
    boxes.txtV2Artist = u"Artist 2";
    boxes.txtV2Title = u"Title 2";
    boxes.txtV2Album = u"Album 2";
    boxes.txtV2Track = u"8";
    boxes.txtV2Year = u"2001";
    boxes.cmbV2Genre = u"Pop";
    boxes.txtV2Comments = u"Comment 2";
    EXPECT_EQ(naming.FromBoxes(AllSeven), u"Artist 2 Title 2 Album 2 08 2001 Pop Comment 2");
}

TEST(FixFileName2, WithNeitherTagTickedTheOldNameCounts) {
    Naming naming = Bare();
    naming.Boxes.txtV2Artist = u"Artist 2";
    EXPECT_EQ(naming.FromBoxes(u"%artist|%title"), u"old artist old title");
    naming.Boxes.chkID3v2 = true;
    EXPECT_EQ(naming.FromBoxes(u"%artist|%title"), u"Artist 2 old title");
}

TEST(FixFileName2, TheCommentAloneDoesNotFallBackToTheOldName) {
    Naming naming = Bare();
    naming.InPattern = u"%title (%comment - %genre).mp3";
    naming.Path = u"/music/Waterloo (live - Pop).mp3";
    naming.Boxes.chkID3v2 = true;
    EXPECT_EQ(naming.FromBoxes(u"%title|%genre|%comment"), u"Waterloo Pop ");
    naming.Boxes.chkID3v2 = false;
    EXPECT_EQ(naming.FromBoxes(u"%title|%genre|%comment"), u"Waterloo Pop live");
}

TEST(FixFileName2, EmptyGenreBoxesAreNotUnknown) {
    Naming naming = Bare();
    naming.Boxes.chkID3v1 = true;
    EXPECT_EQ(naming.FromBoxes(u"%artist [%genre]"), u"old artist []");
}

TEST(FixFileName2, NeedsNoFile) {
    Naming naming;
    naming.Path = u"/no/such/file - here.mp3";
    EXPECT_EQ(naming.FromBoxes(u"%title - %artist.mp3"), u"Here - File.mp3");
}

TEST(FixFileName2, ABoxOfBlanksCounts) {
    Naming naming = Bare();
    naming.Boxes.chkID3v1 = true;
    naming.Boxes.txtArtist = u" ";
    EXPECT_EQ(naming.FromBoxes(u"[%artist]%title"), u"[ ]old title");
}

// --- files on disk ---

struct NamedFile {
    TempFolder Folder;
    Naming Case;
    [[nodiscard]] Text Name(TextView fileName, const Bytes& contents, TextView pattern) const {
        return FixFileName(Folder.File(fileName, contents), pattern, Case.Context());
    }
};

TEST(FixFileName, ReadsBothTagsOfAFile) {
    const NamedFile file;
    const Bytes tag =
        test::WholeTag(test::TextFrame("TIT2", "Waterloo") + test::TextFrame("TCON", "(17)") +
                       test::TextFrame("TRCK", "1"));
    EXPECT_EQ(file.Name(u"x.MP3", tag + test::Noise(400) + test::Trailer("Other"),
                        u"%track - %artist - %title (%genre).mp3"),
              u"01 - An Artist - Waterloo (Rock).mp3");
}

TEST(FixFileName, ReadsATrailerAlone) {
    const NamedFile file;
    EXPECT_EQ(file.Name(u"x.mp3", test::Noise(400) + test::Trailer("Waterloo", 7), Pattern),
              u"07 - An Artist - Waterloo.mp3");
}

TEST(FixFileName, ATagThatCannotBeReadLeavesTheOldNameSilently) {
    const NamedFile file;
    for (const Bytes& contents :
         {Bytes("ID3"), test::TagHeader(1000000) + test::Noise(50), Bytes(), test::Noise(127),
          Bytes("TAG"), test::TagHeader(5) + Bytes(3, '\xFF')})
        EXPECT_EQ(file.Name(u"abba - waterloo.mp3", contents, u"%artist - %title.mp3"),
                  u"Abba - Waterloo.mp3");
}

TEST(FixFileName, AFolderIsNamedByItsName) {
    const NamedFile file;
    const Text folder = file.Folder.Folder(u"abba - gold.mp3");
    EXPECT_EQ(FixFileName(folder, Pattern, file.Case.Context()), u"Abba - Gold.mp3");
}

TEST(FixFileName, ANameInNoEncodingIsNamedByItsTags) {
    const NamedFile file;
    EXPECT_EQ(file.Name(FromUtf8("caf\xE9.mp3"), test::WholeTag(test::TextFrame("TIT2", "Caf\xE9")),
                        u"%title.mp3"),
              u"Caf\u00E9.mp3");
}

}  // namespace
}  // namespace mdlPLM
