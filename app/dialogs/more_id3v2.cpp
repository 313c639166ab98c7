#include "app/dialogs/more_id3v2.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <utility>

#include "core/tags/id3v2.h"
#include "core/tags/id3v2_writer.h"
#include "core/text/code_page.h"

namespace mdlPLM {

constexpr std::array<ListedFrame, 81> ListedFrames = {{
    {"AENC", "Audio encryption"},
    {"APIC", "Attached picture"},
    {"ASPI", "Audio seek point index"},
    {"COMR", "Commercial offer"},
    {"ENCR", "Encryption method"},
    {"EQU2", "Equalisation"},
    {"ETCO", "Event timing codes"},
    {"GEOB", "Attached file"},
    {"GRID", "Group identification"},
    {"LINK", "Linked information"},
    {"MCDI", "Music CD identifier"},
    {"MLLT", "Location lookup table"},
    {"OWNE", "Ownership"},
    {"PRIV", "Private data of a program"},
    {"PCNT", "Play counter"},
    {"POPM", "Popularity (rating)"},
    {"POSS", "Position synchronisation"},
    {"RBUF", "Recommended buffer size"},
    {"RVA2", "Relative volume adjustment"},
    {"RVRB", "Reverb"},
    {"SEEK", "Place of the next tag"},
    {"SIGN", "Signature"},
    {"SYLT", "Synchronised lyrics"},
    {"SYTC", "Synchronised tempo codes"},
    {"TALB", "Album"},
    {"TBPM", "Beats per minute"},
    {"TCOM", "Composer"},
    {"TCON", "Genre"},
    {"TCOP", "Copyright message"},
    {"TDEN", "Encoding time"},
    {"TDLY", "Playlist delay"},
    {"TDOR", "Original release time"},
    {"TDRC", "Recording time"},
    {"TDRL", "Release time"},
    {"TDTG", "Tagging time"},
    {"TENC", "Encoded by"},
    {"TEXT", "Lyricist"},
    {"TFLT", "File type"},
    {"TIPL", "Involved people"},
    {"TIT1", "Content group"},
    {"TIT2", "Title"},
    {"TIT3", "Subtitle"},
    {"TKEY", "Initial key"},
    {"TLAN", "Language"},
    {"TLEN", "Length in milliseconds"},
    {"TMCL", "Musicians"},
    {"TMED", "Media type"},
    {"TMOO", "Mood"},
    {"TOAL", "Original album"},
    {"TOFN", "Original file name"},
    {"TOLY", "Original lyricist"},
    {"TOWN", "Owner of the file"},
    {"TPE1", "Artist"},
    {"TPE2", "Band or orchestra"},
    {"TPE3", "Conductor"},
    {"TPE4", "Remixed by"},
    {"TPOS", "Part of a set"},
    {"TPRO", "Production notice"},
    {"TPUB", "Publisher"},
    {"TRCK", "Track"},
    {"TRSN", "Internet radio station"},
    {"TRSO", "Owner of the radio station"},
    {"TSOA", "Sort order of the album"},
    {"TSOP", "Sort order of the artist"},
    {"TSOT", "Sort order of the title"},
    {"TSRC", "International recording code"},
    {"TSSE", "Encoding software and settings"},
    {"TSST", "Set subtitle"},
    {"TXXX", "Text of the user's own"},
    {"UFID", "Unique file identifier"},
    {"USER", "Terms of use"},
    {"USLT", "Lyrics"},
    {"WCOM", "Web page: commercial information"},
    {"WCOP", "Web page: copyright"},
    {"WOAF", "Web page of the file"},
    {"WOAR", "Web page of the artist"},
    {"WOAS", "Web page of the source"},
    {"WORS", "Web page of the radio station"},
    {"WPAY", "Web page: payment"},
    {"WPUB", "Web page of the publisher"},
    {"WXXX", "Web page of the user's own"},
}};

namespace {

constexpr std::size_t IdentifierSize = 4;

/// For each byte, at which places of an identifier it can stand: nearly every place of a picture's
/// bytes is ruled out by one look.
using Places = std::array<std::uint8_t, 256>;

Places PlacesOfLetters() {
    Places places{};
    for (const ListedFrame& kind : ListedFrames) {
        for (std::size_t i = 0; i < IdentifierSize; ++i)
            places[static_cast<unsigned char>(kind.Identifier[i])] |=
                static_cast<std::uint8_t>(1U << i);
    }
    return places;
}

bool CanBeIdentifier(const Places& places, BytesView text, std::size_t at) {
    for (std::size_t i = 0; i < IdentifierSize; ++i) {
        if ((places[static_cast<unsigned char>(text[at + i])] & (1U << i)) == 0) return false;
    }
    return true;
}

/// Control characters have no look of their own; U+2400 and on are their pictures.
char16_t Visible(char16_t c) {
    if (c == u'\n' || c == u'\t' || c >= 0x20) return c == 0x7F ? u'\u2421' : c;
    return static_cast<char16_t>(0x2400 + c);
}

Text ForBox(BytesView content) {
    Text text = Replace(Replace(FromCodePage(content), CrLf, u"\n"), u"\r", u"\n");
    std::transform(text.begin(), text.end(), text.begin(), Visible);
    return text;
}

}  // namespace

// One pass over the text however many identifiers there are: it may hold a whole album of pictures.
std::vector<BytesView> FramesIn(BytesView otherFrames) {
    const Places places = PlacesOfLetters();
    std::set<BytesView> found;
    for (std::size_t at = 0; at + IdentifierSize <= otherFrames.size(); ++at) {
        if (CanBeIdentifier(places, otherFrames, at))
            found.insert(otherFrames.substr(at, IdentifierSize));
    }
    std::vector<BytesView> identifiers;
    for (const ListedFrame& kind : ListedFrames) {
        if (found.count(kind.Identifier) != 0) identifiers.push_back(kind.Identifier);
    }
    return identifiers;
}

AddResult AddFrame(OtherFramesText& frames, BytesView identifier, BytesView content) {
    if (identifier.size() != IdentifierSize) return AddResult::NoIdentifier;
    if (content.empty()) return AddResult::NoContent;
    frames.SetOtherFrames(frames.OtherFrames() + BuildFrame(identifier, content));
    return AddResult::Added;
}

void RemoveFrameAt(OtherFramesText& frames, BytesView identifier) {
    frames.SetOtherFrames(RemoveFrame(frames.OtherFrames(), identifier));
}

Bytes ContentToSave(BytesView otherFrames, BytesView identifier) {
    constexpr BytesView Bitmap = "image/bmp";
    Bytes content = GetFrameText(otherFrames, identifier);
    if (content.compare(0, Bitmap.size(), Bitmap) == 0) content.erase(0, Bitmap.size());
    return content;
}

ShownContent::ShownContent(Bytes content)
    : content_(std::move(content)), shown_(ForBox(BytesView(content_).substr(0, MostShown))) {}

Bytes ShownContent::ContentOf(TextView box) const {
    return box == shown_ ? content_ : ToCodePage(box);
}

}  // namespace mdlPLM
