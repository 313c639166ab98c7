#include "core/tags/standard/frame_table.h"

#include <algorithm>

namespace mdlPLM::standard {

namespace {

struct Row {
    FrameId Id;
    char ThreeLetters[4];  // of ID3v2.2; empty: it had none
    FrameKind Kind;
};

constexpr auto Text = FrameKind::Text;
constexpr auto Url = FrameKind::Url;
constexpr auto Other = FrameKind::Other;

// In alphabetical order. GRP1, MVIN, MVNM, PCST, TCAT, TCMP, TDES, TGID, TKWD, TSO2, TSOC and WFED
// are of no standard but common.
// clang-format off
constexpr Row Rows[] = {
    {"AENC", "CRA", Other},
    {"APIC", "PIC", FrameKind::Picture},
    {"ASPI", "", Other},
    {"COMM", "COM", FrameKind::Comment},
    {"COMR", "", Other},
    {"ENCR", "", Other},
    {"EQU2", "", Other},
    {"EQUA", "EQU", Other},
    {"ETCO", "ETC", Other},
    {"GEOB", "GEO", Other},
    {"GRID", "", Other},
    {"GRP1", "GP1", Text},
    {"IPLS", "IPL", Text},
    {"LINK", "LNK", Other},
    {"MCDI", "MCI", Other},
    {"MLLT", "MLL", Other},
    {"MVIN", "MVI", Text},
    {"MVNM", "MVN", Text},
    {"OWNE", "", Other},
    {"PCNT", "CNT", Other},
    {"PCST", "PCS", Other},
    {"POPM", "POP", Other},
    {"POSS", "", Other},
    {"PRIV", "", Other},
    {"RBUF", "BUF", Other},
    {"RVA2", "", Other},
    {"RVAD", "RVA", Other},
    {"RVRB", "REV", Other},
    {"SEEK", "", Other},
    {"SIGN", "", Other},
    {"SYLT", "SLT", Other},
    {"SYTC", "STC", Other},
    {"TALB", "TAL", Text},
    {"TBPM", "TBP", Text},
    {"TCAT", "TCT", Text},
    {"TCMP", "TCP", Text},
    {"TCOM", "TCM", Text},
    {"TCON", "TCO", Text},
    {"TCOP", "TCR", Text},
    {"TDAT", "TDA", Text},
    {"TDEN", "", Text},
    {"TDES", "TDS", Text},
    {"TDLY", "TDY", Text},
    {"TDOR", "", Text},
    {"TDRC", "", Text},
    {"TDRL", "TDR", Text},
    {"TDTG", "", Text},
    {"TENC", "TEN", Text},
    {"TEXT", "TXT", Text},
    {"TFLT", "TFT", Text},
    {"TGID", "TID", Text},
    {"TIME", "TIM", Text},
    {"TIPL", "", Text},
    {"TIT1", "TT1", Text},
    {"TIT2", "TT2", Text},
    {"TIT3", "TT3", Text},
    {"TKEY", "TKE", Text},
    {"TKWD", "TKW", Text},
    {"TLAN", "TLA", Text},
    {"TLEN", "TLE", Text},
    {"TMCL", "", Text},
    {"TMED", "TMT", Text},
    {"TMOO", "", Text},
    {"TOAL", "TOT", Text},
    {"TOFN", "TOF", Text},
    {"TOLY", "TOL", Text},
    {"TOPE", "TOA", Text},
    {"TORY", "TOR", Text},
    {"TOWN", "", Text},
    {"TPE1", "TP1", Text},
    {"TPE2", "TP2", Text},
    {"TPE3", "TP3", Text},
    {"TPE4", "TP4", Text},
    {"TPOS", "TPA", Text},
    {"TPRO", "", Text},
    {"TPUB", "TPB", Text},
    {"TRCK", "TRK", Text},
    {"TRDA", "TRD", Text},
    {"TRSN", "", Text},
    {"TRSO", "", Text},
    {"TSIZ", "TSI", Text},
    {"TSO2", "TS2", Text},
    {"TSOA", "TSA", Text},
    {"TSOC", "TSC", Text},
    {"TSOP", "TSP", Text},
    {"TSOT", "TST", Text},
    {"TSRC", "TRC", Text},
    {"TSSE", "TSS", Text},
    {"TSST", "", Text},
    {"TXXX", "TXX", FrameKind::UserText},
    {"TYER", "TYE", Text},
    {"UFID", "UFI", Other},
    {"USER", "", Other},
    {"USLT", "ULT", FrameKind::Comment},
    {"WCOM", "WCM", Url},
    {"WCOP", "WCP", Url},
    {"WFED", "WFD", Url},
    {"WOAF", "WAF", Url},
    {"WOAR", "WAR", Url},
    {"WOAS", "WAS", Url},
    {"WORS", "", Url},
    {"WPAY", "", Url},
    {"WPUB", "WPB", Url},
    {"WXXX", "WXX", FrameKind::UserUrl},
};
// clang-format on

struct ImageFormat {
    BytesView ThreeLetters;
    BytesView Mime;
};
constexpr ImageFormat ImageFormats[] = {
    {"JPG", "image/jpeg"}, {"PNG", "image/png"}, {"-->", "-->"}};

struct ShortRow {
    std::uint32_t Code = 0;  // of the three letters
    FrameId Id;
};

constexpr std::uint32_t CodeOf(BytesView threeLetters) { return FrameId(threeLetters).Code(); }

// By their three letters, those without any first.
constexpr auto ShortRows = [] {
    std::array<ShortRow, std::size(Rows)> rows{};
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = {CodeOf(Rows[i].ThreeLetters), Rows[i].Id};
    std::sort(rows.begin(), rows.end(),
              [](const ShortRow& a, const ShortRow& b) { return a.Code < b.Code; });
    return rows;
}();

const Row* RowOf(const FrameId& id) {
    const auto* const row = std::lower_bound(
        std::begin(Rows), std::end(Rows), id.Code(),
        [](const Row& candidate, std::uint32_t code) { return candidate.Id.Code() < code; });
    return row != std::end(Rows) && row->Id == id ? row : nullptr;
}

}  // namespace

FrameKind KindOf(const FrameId& id) {
    if (const Row* row = RowOf(id)) return row->Kind;
    if (id.View().front() == 'T') return FrameKind::Text;
    return id.View().front() == 'W' ? FrameKind::Url : FrameKind::Other;
}

bool IsKnown(const FrameId& id) { return RowOf(id) != nullptr; }

std::optional<FrameId> FromThreeLetters(BytesView threeLetters) {
    const std::uint32_t code = CodeOf(threeLetters.substr(0, 3));
    const auto* const row = std::lower_bound(
        ShortRows.begin(), ShortRows.end(), code,
        [](const ShortRow& candidate, std::uint32_t wanted) { return candidate.Code < wanted; });
    if (code != 0 && row != ShortRows.end() && row->Code == code) return row->Id;
    return std::nullopt;
}

FrameId IdOfThreeLetters(BytesView threeLetters) {
    const std::optional<FrameId> known = FromThreeLetters(threeLetters);
    return known ? *known : FrameId(Bytes("X").append(threeLetters));
}

Bytes MimeOfFormat(BytesView threeLetters) {
    for (const ImageFormat& format : ImageFormats)
        if (format.ThreeLetters == threeLetters) return Bytes(format.Mime);
    Bytes mime = "image/";
    for (const char letter : threeLetters) {
        const bool upper = letter >= 'A' && letter <= 'Z';
        if (IsIdCharacter(letter)) mime.push_back(static_cast<char>(letter + (upper ? 0x20 : 0)));
    }
    return mime;
}

}  // namespace mdlPLM::standard
