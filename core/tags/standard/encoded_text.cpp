#include "core/tags/standard/encoded_text.h"

#include <algorithm>

#include "core/text/code_page.h"

namespace mdlPLM::standard {

namespace {

constexpr BytesView LittleMark = "\xFF\xFE";
constexpr BytesView BigMark = "\xFE\xFF";
constexpr BytesView Utf8Mark = "\xEF\xBB\xBF";
constexpr char LittleEndian = '\xFF';
constexpr char BigEndian = '\xFE';
constexpr char16_t ByteOrderMark = 0xFEFF;
constexpr char16_t Replacement = 0xFFFD;
constexpr TextView Separator = u"; ";

bool IsHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }
bool IsPlain(char c) { return c >= 0x20 && c <= 0x7E; }

bool HasWideMark(BytesView bytes) {
    const BytesView mark = bytes.substr(0, LittleMark.size());
    return mark == LittleMark || mark == BigMark;
}

std::size_t FindWideNul(BytesView bytes) {
    std::size_t at = bytes.find('\0');
    while (at != BytesView::npos && at + 1 < bytes.size()) {
        if (at % 2 == 0 && bytes[at + 1] == '\0') return at;
        at = bytes.find('\0', at % 2 == 0 ? at + 2 : at + 1);
    }
    return BytesView::npos;
}

char16_t UnitAt(BytesView bytes, std::size_t at, char order) {
    const unsigned first = static_cast<unsigned char>(bytes[at]);
    const unsigned second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char16_t>(order == LittleEndian ? second << 8U | first
                                                       : first << 8U | second);
}

// Text has few scripts in a row, so its units share their high bytes; and it holds no control
// characters or code points that are none.
int Plausibility(BytesView bytes, char order) {
    constexpr unsigned noByte = 0x100;
    int score = 0;
    unsigned lastHigh = noByte;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const char16_t unit = UnitAt(bytes, at, order);
        const unsigned high = static_cast<unsigned>(unit) >> 8U;
        const bool control = unit < 0x20 && unit != u'\n' && unit != u'\r' && unit != u'\t';
        const bool none = unit >= 0xFFFE || (unit >= 0xE000 && unit < 0xF900);
        if (control || none) score -= 4;
        if (high == 0) score += 1;
        if (high == lastHigh) score += 1;
        lastHigh = high;
    }
    return score;
}

// `usual` where either is as good.
char MorePlausibleOrder(BytesView bytes, char usual) {
    const int little = Plausibility(bytes, LittleEndian);
    const int big = Plausibility(bytes, BigEndian);
    if (little == big) return usual;
    return little > big ? LittleEndian : BigEndian;
}

// True for nothing but letters of Latin-1 the other way round.
bool IsPlainlyLittleEndian(BytesView bytes) {
    if (bytes.size() < 4) return false;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        if (bytes[at] == '\0' || bytes[at + 1] != '\0') return false;
    return true;
}

// Letters of one byte each, ended by NULs or by the content.
bool AreSingleBytes(BytesView bytes) {
    if (bytes.size() < 2) return true;
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    return end >= 2 && std::all_of(bytes.begin(), bytes.begin() + static_cast<Pos>(end), IsPlain) &&
           bytes.find_first_not_of('\0', end) == BytesView::npos;
}

Text WellFormed(TextView text) {
    Text result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        const bool pair =
            IsHighSurrogate(result[i]) && i + 1 < result.size() && IsLowSurrogate(result[i + 1]);
        if (pair)
            ++i;
        else if (IsHighSurrogate(result[i]) || IsLowSurrogate(result[i]))
            result[i] = Replacement;
    }
    return result;
}

Text FromUtf16(BytesView bytes, char order) {
    Text text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        text.push_back(UnitAt(bytes, at, order));
    return WellFormed(text);
}

void AppendValue(Text& all, Text value) {
    if (value.empty()) return;
    if (all.empty())
        all = std::move(value);
    else
        all.append(Separator).append(value);
}

bool IsWide(Encoding encoding) {
    return encoding == Encoding::Utf16 || encoding == Encoding::Utf16BigEndian;
}

bool IsLatin1(TextView text) {
    return std::all_of(text.begin(), text.end(),
                       [](char16_t c) { return c < 0x80 || (c >= 0xA0 && c <= 0xFF); });
}

bool LooksMarked(BytesView bytes) {
    return HasWideMark(bytes) || bytes.substr(0, Utf8Mark.size()) == Utf8Mark;
}

}  // namespace

TextReader::TextReader(BytesView content) : rest_(content) {
    if (content.empty()) return;
    const auto first = static_cast<unsigned char>(content.front());
    const bool isEncoding = first <= static_cast<unsigned char>(Encoding::Utf8);
    if (isEncoding) encoding_ = static_cast<Encoding>(first);
    const bool isText = first >= 0x20;
    if (!isText) rest_.remove_prefix(1);
}

bool TextReader::HasEnd() const {
    if (IsWide(encoding_) || HasWideMark(rest_)) return FindWideNul(rest_) != BytesView::npos;
    return rest_.find('\0') != BytesView::npos;
}

bool TextReader::Next(Text& text) {
    if (rest_.empty()) return false;
    if (HasWideMark(rest_)) {
        text = NextWide(LittleMark.size());
    } else if (rest_.substr(0, Utf8Mark.size()) == Utf8Mark) {
        rest_.remove_prefix(Utf8Mark.size());
        text = NextNarrow(true);
    } else if (IsWide(encoding_) && !(encoding_ == Encoding::Utf16 && AreSingleBytes(rest_))) {
        text = NextWide(0);
    } else {
        text = NextNarrow(encoding_ == Encoding::Utf8);
    }
    return true;
}

std::vector<Text> TextReader::Values() {
    std::vector<Text> values;
    Text value;
    while (Next(value))
        if (!value.empty()) values.push_back(std::move(value));
    return values;
}

Text TextReader::AllJoined() {
    Text all;
    Text value;
    while (Next(value)) AppendValue(all, std::move(value));
    return all;
}

// Cuts the bytes up to the next end off, which is `width` NULs.
BytesView TextReader::Piece(std::size_t width) {
    const std::size_t found = width == 1 ? rest_.find('\0') : FindWideNul(rest_);
    const std::size_t end = std::min(found, rest_.size());
    const BytesView piece = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + width, rest_.size()));
    return piece;
}

Text TextReader::NextWide(std::size_t mark) {
    if (mark > 0) order_ = rest_.front();
    rest_.remove_prefix(mark);
    const BytesView piece = Piece(2);
    if (mark > 0) return FromUtf16(piece, order_);
    if (order_ != '\0') return FromUtf16(piece, order_);
    if (encoding_ == Encoding::Utf16BigEndian)
        return FromUtf16(piece, IsPlainlyLittleEndian(piece) ? LittleEndian : BigEndian);
    return FromUtf16(piece, MorePlausibleOrder(piece, LittleEndian));
}

Text TextReader::NextNarrow(bool utf8) {
    const BytesView piece = Piece(1);
    return utf8 && IsValidUtf8(piece) ? FromUtf8(piece) : FromCodePage(piece);
}

Text Joined(const std::vector<Text>& values) {
    Text joined;
    for (const Text& value : values) AppendValue(joined, value);
    return joined;
}

Text Writable(TextView text) {
    Text result = WellFormed(text);
    result.erase(std::remove(result.begin(), result.end(), u'\0'), result.end());
    const std::size_t start = result.find_first_not_of(ByteOrderMark);
    return result.substr(std::min(start, result.size()));
}

Encoding EncodingFor(bool v24, const std::vector<Text>& texts) {
    if (v24) return Encoding::Utf8;
    for (const Text& text : texts) {
        // A reader would take some beginnings for a mark.
        if (!IsLatin1(text) || LooksMarked(ToCodePage(text))) return Encoding::Utf16;
    }
    return Encoding::Latin1;
}

void AppendText(Bytes& bytes, Encoding encoding, TextView text) {
    const Text written = Writable(text);
    if (encoding == Encoding::Latin1) bytes.append(ToCodePage(written));
    if (encoding == Encoding::Utf8) bytes.append(ToUtf8(written));
    if (!IsWide(encoding)) return;
    if (encoding == Encoding::Utf16) bytes.append(LittleMark);
    for (const char16_t unit : written) {
        const auto low = static_cast<char>(unit & 0xFFU);
        const auto high = static_cast<char>(unit >> 8U);
        const bool little = encoding == Encoding::Utf16;
        bytes.push_back(little ? low : high);
        bytes.push_back(little ? high : low);
    }
}

void AppendEnd(Bytes& bytes, Encoding encoding) { bytes.append(IsWide(encoding) ? 2 : 1, '\0'); }

}  // namespace mdlPLM::standard
