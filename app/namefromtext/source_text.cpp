#include "app/namefromtext/source_text.h"

#include <algorithm>

#include "core/names/fixing_rules.h"
#include "core/platform/disk.h"
#include "core/text/code_page.h"
#include "core/text/surrogates.h"

namespace mdlPLM {

namespace {

constexpr char16_t Damaged = 0xFFFD;

// Marks for breaks. CR LF is the separator that text boxes use themselves; the last one is a
// noncharacter, and breaks a line in the box only.
constexpr char16_t CrLfMark = 0x2029;
constexpr char16_t LfMark = u'\n';
constexpr char16_t CrMark = u'\r';
constexpr char16_t ShownBreak = 0xFDD2;

constexpr bool IsMark(char16_t c) {
    return c == CrLfMark || c == LfMark || c == CrMark || c == ShownBreak;
}
constexpr bool IsNoncharacter(char16_t c) { return c >= 0xFDD0 && c <= 0xFDEF; }

Text DecodeUtf16(BytesView bytes, bool bigEndian) {
    Text text;
    text.reserve(bytes.size() / 2 + 1);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text.push_back(
            static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first));
    }
    if (bytes.size() % 2 != 0) text.push_back(Damaged);
    return text;
}

Text DecodeUtf8(BytesView bytes) {
    Text text = FromUtf8(bytes);
    for (std::size_t i = 0; i < text.size(); ++i)
        if (IsHeldByteAt(text, i)) text[i] = Damaged;
    return text;
}

bool HasBytesBeyondAscii(BytesView bytes) {
    return std::any_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

// One mark per line end of any kind, `crLf` for CR LF, `cr` and `lf` for the single ones.
Text MarkLineEnds(TextView text, char16_t crLf, char16_t cr, char16_t lf) {
    Text places;
    places.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        const bool pair = c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if (pair) ++i;
        if (pair || c == CrLfMark)
            places.push_back(crLf);
        else if (c == u'\r')
            places.push_back(cr);
        else if (c == u'\n')
            places.push_back(lf);
        else
            places.push_back(IsNoncharacter(c) ? Damaged : c);
    }
    return places;
}

Text BreakLongLines(const Text& places) {
    Text broken;
    broken.reserve(places.size());
    std::size_t length = 0;
    for (const char16_t c : places) {
        if (IsMark(c)) {
            length = 0;
        } else if (length++ == SourceText::LongestShownLine) {
            broken.push_back(ShownBreak);
            length = 1;
        }
        broken.push_back(c);
    }
    return broken;
}

Text ShownOf(Text places) {
    std::replace_if(places.begin(), places.end(), IsMark, u'\n');
    return places;
}

}  // namespace

Text DecodeSourceFile(BytesView contents) {
    const auto startsWith = [&](BytesView mark) { return contents.substr(0, mark.size()) == mark; };
    if (startsWith("\xEF\xBB\xBF")) return DecodeUtf8(contents.substr(3));
    if (startsWith("\xFF\xFE")) return DecodeUtf16(contents.substr(2), false);
    if (startsWith("\xFE\xFF")) return DecodeUtf16(contents.substr(2), true);
    const bool unicode = HasBytesBeyondAscii(contents) && IsValidUtf8(contents);
    return unicode ? FromUtf8(contents) : FromCodePage(contents);
}

Text PrepareLoadedText(TextView text, const Settings& settings) {
    return Trim(RemoveChars(text, settings.strSettings, RemoveMode::Remove));
}

bool MayReadSource(const Text& path, Prompts& ask, const Language& words) {
    const std::int64_t size = FileLength(path);
    if (size < LargeSource) return true;
    const Text question = words(
        PLM_TRANSLATE("Texts",
                      "The file \"%1\" has %2 megabytes.\nRead it as an album text all the same?"),
        {path, NumberText(size >> 20)});
    return ask.AskYesNo({{}, Replace(question, u"\n", CrLf), {}}) == Answer::Yes;
}

Status ReadSourceFile(TextView path, const Settings& settings, Text& text) {
    Bytes contents;
    const Status status = ReadWholeFile(path, contents);
    if (status.Ok()) text = PrepareLoadedText(DecodeSourceFile(contents), settings);
    return status;
}

void SourceText::Load(TextView text) {
    places_ = BreakLongLines(MarkLineEnds(text, CrLfMark, CrMark, LfMark));
    withoutCrLf_ = places_.find(CrLfMark) == Text::npos;
}

Text SourceText::Shown() const { return ShownOf(places_); }

void SourceText::Edit(std::size_t position, std::size_t removed, TextView added) {
    const Text marked = MarkLineEnds(added, CrLfMark, CrLfMark, CrLfMark);
    if (position > places_.size()) return;
    if (marked.size() == removed && ShownOf(places_.substr(position, removed)) == ShownOf(marked))
        return;
    PutAt(position, removed, marked);
}

Text SourceText::Paste(std::size_t position, std::size_t removed, TextView added) {
    const Text marked = BreakLongLines(MarkLineEnds(added, CrLfMark, CrLfMark, CrLfMark));
    PutAt(std::min(position, places_.size()), removed, marked);
    return ShownOf(marked);
}

void SourceText::PutAt(std::size_t position, std::size_t removed, const Text& marked) {
    places_.replace(position, removed, marked);
    if (places_.empty()) withoutCrLf_ = false;
}

Text SourceText::Whole() const { return Range(0, places_.size()); }

Text SourceText::Range(std::size_t begin, std::size_t end) const {
    Text text;
    end = std::min(end, places_.size());
    text.reserve(end - std::min(begin, end));
    for (std::size_t i = begin; i < end; ++i) {
        if (places_[i] == CrLfMark)
            text.append(CrLf);
        else if (places_[i] != ShownBreak)
            text.push_back(places_[i]);
    }
    return text;
}

bool SourceText::OffersLineEnds() const {
    return withoutCrLf_ && places_.find_first_of(Text{CrMark, LfMark}) != Text::npos;
}

void SourceText::TakeLineEndsAsCrLf() {
    std::replace_if(
        places_.begin(), places_.end(), [](char16_t c) { return c == LfMark || c == CrMark; },
        CrLfMark);
}

}  // namespace mdlPLM
