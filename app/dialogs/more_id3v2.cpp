#include "app/dialogs/more_id3v2.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <utility>

#include "core/tags/id3v2.h"
#include "core/tags/id3v2_writer.h"
#include "core/text/code_page.h"
#include "core/text/language.h"

namespace mdlPLM {

constexpr std::array<ListedFrame, 81> ListedFrames = {{
    {"AENC", PLM_TRANSLATE("ListedFrames", "Audio encryption")},
    {"APIC", PLM_TRANSLATE("ListedFrames", "Attached picture")},
    {"ASPI", PLM_TRANSLATE("ListedFrames", "Audio seek point index")},
    {"COMR", PLM_TRANSLATE("ListedFrames", "Commercial offer")},
    {"ENCR", PLM_TRANSLATE("ListedFrames", "Encryption method")},
    {"EQU2", PLM_TRANSLATE("ListedFrames", "Equalisation")},
    {"ETCO", PLM_TRANSLATE("ListedFrames", "Event timing codes")},
    {"GEOB", PLM_TRANSLATE("ListedFrames", "Attached file")},
    {"GRID", PLM_TRANSLATE("ListedFrames", "Group identification")},
    {"LINK", PLM_TRANSLATE("ListedFrames", "Linked information")},
    {"MCDI", PLM_TRANSLATE("ListedFrames", "Music CD identifier")},
    {"MLLT", PLM_TRANSLATE("ListedFrames", "Location lookup table")},
    {"OWNE", PLM_TRANSLATE("ListedFrames", "Ownership")},
    {"PRIV", PLM_TRANSLATE("ListedFrames", "Private data of a program")},
    {"PCNT", PLM_TRANSLATE("ListedFrames", "Play counter")},
    {"POPM", PLM_TRANSLATE("ListedFrames", "Popularity (rating)")},
    {"POSS", PLM_TRANSLATE("ListedFrames", "Position synchronisation")},
    {"RBUF", PLM_TRANSLATE("ListedFrames", "Recommended buffer size")},
    {"RVA2", PLM_TRANSLATE("ListedFrames", "Relative volume adjustment")},
    {"RVRB", PLM_TRANSLATE("ListedFrames", "Reverb")},
    {"SEEK", PLM_TRANSLATE("ListedFrames", "Place of the next tag")},
    {"SIGN", PLM_TRANSLATE("ListedFrames", "Signature")},
    {"SYLT", PLM_TRANSLATE("ListedFrames", "Synchronised lyrics")},
    {"SYTC", PLM_TRANSLATE("ListedFrames", "Synchronised tempo codes")},
    {"TALB", PLM_TRANSLATE("ListedFrames", "Album")},
    {"TBPM", PLM_TRANSLATE("ListedFrames", "Beats per minute")},
    {"TCOM", PLM_TRANSLATE("ListedFrames", "Composer")},
    {"TCON", PLM_TRANSLATE("ListedFrames", "Genre")},
    {"TCOP", PLM_TRANSLATE("ListedFrames", "Copyright message")},
    {"TDEN", PLM_TRANSLATE("ListedFrames", "Encoding time")},
    {"TDLY", PLM_TRANSLATE("ListedFrames", "Playlist delay")},
    {"TDOR", PLM_TRANSLATE("ListedFrames", "Original release time")},
    {"TDRC", PLM_TRANSLATE("ListedFrames", "Recording time")},
    {"TDRL", PLM_TRANSLATE("ListedFrames", "Release time")},
    {"TDTG", PLM_TRANSLATE("ListedFrames", "Tagging time")},
    {"TENC", PLM_TRANSLATE("ListedFrames", "Encoded by")},
    {"TEXT", PLM_TRANSLATE("ListedFrames", "Lyricist")},
    {"TFLT", PLM_TRANSLATE("ListedFrames", "File type")},
    {"TIPL", PLM_TRANSLATE("ListedFrames", "Involved people")},
    {"TIT1", PLM_TRANSLATE("ListedFrames", "Content group")},
    {"TIT2", PLM_TRANSLATE("ListedFrames", "Title")},
    {"TIT3", PLM_TRANSLATE("ListedFrames", "Subtitle")},
    {"TKEY", PLM_TRANSLATE("ListedFrames", "Initial key")},
    {"TLAN", PLM_TRANSLATE("ListedFrames", "Language")},
    {"TLEN", PLM_TRANSLATE("ListedFrames", "Length in milliseconds")},
    {"TMCL", PLM_TRANSLATE("ListedFrames", "Musicians")},
    {"TMED", PLM_TRANSLATE("ListedFrames", "Media type")},
    {"TMOO", PLM_TRANSLATE("ListedFrames", "Mood")},
    {"TOAL", PLM_TRANSLATE("ListedFrames", "Original album")},
    {"TOFN", PLM_TRANSLATE("ListedFrames", "Original file name")},
    {"TOLY", PLM_TRANSLATE("ListedFrames", "Original lyricist")},
    {"TOWN", PLM_TRANSLATE("ListedFrames", "Owner of the file")},
    {"TPE1", PLM_TRANSLATE("ListedFrames", "Artist")},
    {"TPE2", PLM_TRANSLATE("ListedFrames", "Band or orchestra")},
    {"TPE3", PLM_TRANSLATE("ListedFrames", "Conductor")},
    {"TPE4", PLM_TRANSLATE("ListedFrames", "Remixed by")},
    {"TPOS", PLM_TRANSLATE("ListedFrames", "Part of a set")},
    {"TPRO", PLM_TRANSLATE("ListedFrames", "Production notice")},
    {"TPUB", PLM_TRANSLATE("ListedFrames", "Publisher")},
    {"TRCK", PLM_TRANSLATE("ListedFrames", "Track")},
    {"TRSN", PLM_TRANSLATE("ListedFrames", "Internet radio station")},
    {"TRSO", PLM_TRANSLATE("ListedFrames", "Owner of the radio station")},
    {"TSOA", PLM_TRANSLATE("ListedFrames", "Sort order of the album")},
    {"TSOP", PLM_TRANSLATE("ListedFrames", "Sort order of the artist")},
    {"TSOT", PLM_TRANSLATE("ListedFrames", "Sort order of the title")},
    {"TSRC", PLM_TRANSLATE("ListedFrames", "International recording code")},
    {"TSSE", PLM_TRANSLATE("ListedFrames", "Encoding software and settings")},
    {"TSST", PLM_TRANSLATE("ListedFrames", "Set subtitle")},
    {"TXXX", PLM_TRANSLATE("ListedFrames", "Text of the user's own")},
    {"UFID", PLM_TRANSLATE("ListedFrames", "Unique file identifier")},
    {"USER", PLM_TRANSLATE("ListedFrames", "Terms of use")},
    {"USLT", PLM_TRANSLATE("ListedFrames", "Lyrics")},
    {"WCOM", PLM_TRANSLATE("ListedFrames", "Web page: commercial information")},
    {"WCOP", PLM_TRANSLATE("ListedFrames", "Web page: copyright")},
    {"WOAF", PLM_TRANSLATE("ListedFrames", "Web page of the file")},
    {"WOAR", PLM_TRANSLATE("ListedFrames", "Web page of the artist")},
    {"WOAS", PLM_TRANSLATE("ListedFrames", "Web page of the source")},
    {"WORS", PLM_TRANSLATE("ListedFrames", "Web page of the radio station")},
    {"WPAY", PLM_TRANSLATE("ListedFrames", "Web page: payment")},
    {"WPUB", PLM_TRANSLATE("ListedFrames", "Web page of the publisher")},
    {"WXXX", PLM_TRANSLATE("ListedFrames", "Web page of the user's own")},
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
    // Padding ends the other frames; behind it no other program looks for one.
    frames.SetOtherFrames(BuildFrame(identifier, content) + frames.OtherFrames());
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
