#include "core/settings/settings_store.h"

#include <algorithm>
#include <utility>

#include "core/platform/disk.h"
#include "core/platform/path.h"
#include "core/text/code_page.h"
#include "core/text/letter_case.h"
#include "core/text/surrogates.h"

namespace mdlPLM {

namespace {

constexpr TextView Blanks = u" \t\r";
constexpr TextView HexDigits = u"0123456789ABCDEF";
constexpr std::size_t EscapeLength = 6;  // \uXXXX

TextView Stripped(TextView text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == TextView::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

bool NeedsEscape(TextView text, std::size_t i) {
    const char16_t c = text[i];
    if (IsHighSurrogate(c)) return !IsPairAt(text, i);
    if (IsLowSurrogate(c)) return i == 0 || !IsPairAt(text, i - 1);
    return c < 0x20;
}

bool NeedsQuotes(TextView value) {
    if (value.empty()) return false;
    if (value.front() == u'"' || Stripped(value).size() != value.size()) return true;
    for (std::size_t i = 0; i < value.size(); ++i)
        if (NeedsEscape(value, i)) return true;
    return false;
}

Text Escape(char16_t c) {
    Text escape = u"\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        escape.push_back(HexDigits[static_cast<std::size_t>((c >> shift) & 0xF)]);
    return escape;
}

Text RenderValue(TextView value) {
    if (!NeedsQuotes(value)) return Text(value);
    Text quoted = u"\"";
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char16_t c = value[i];
        if (NeedsEscape(value, i)) {
            quoted += Escape(c);
        } else {
            if (c == u'"' || c == u'\\') quoted.push_back(u'\\');
            quoted.push_back(c);
        }
    }
    quoted.push_back(u'"');
    return quoted;
}

// The character of a \uXXXX at the start of `text`; false when there is none.
bool ReadEscape(TextView text, char16_t& c) {
    if (text.size() < EscapeLength || text[1] != u'u') return false;
    unsigned value = 0;
    for (const char16_t digit : text.substr(2, EscapeLength - 2)) {
        const std::size_t found = HexDigits.find(UCase(digit));
        if (found == TextView::npos) return false;
        value = value * 16 + static_cast<unsigned>(found);
    }
    c = static_cast<char16_t>(value);
    return true;
}

Text Unescaped(TextView inner) {
    Text value;
    for (std::size_t i = 0; i < inner.size(); ++i) {
        char16_t c = inner[i];
        if (c == u'\\' && i + 1 < inner.size() && (inner[i + 1] == u'\\' || inner[i + 1] == u'"')) {
            c = inner[++i];
        } else if (c == u'\\' && ReadEscape(inner.substr(i), c)) {
            i += EscapeLength - 1;
        }
        value.push_back(c);
    }
    return value;
}

Text ParseValue(TextView text) {
    const bool quoted = text.size() >= 2 && text.front() == u'"' && text.back() == u'"';
    return quoted ? Unescaped(text.substr(1, text.size() - 2)) : Text(text);
}

StoreLine ParseLine(TextView raw, Text& section) {
    const TextView line = Stripped(StartsWith(raw, u"\uFEFF") ? raw.substr(1) : raw);
    StoreLine parsed = {section, {}, {}, Text(raw)};
    if (line.empty() || line.front() == u';' || line.front() == u'#') return parsed;
    if (line.front() == u'[' && line.back() == u']') {
        section = Stripped(line.substr(1, line.size() - 2));
        parsed.Section = section;
        return parsed;
    }
    const std::size_t equals = line.find(u'=');
    if (equals == TextView::npos) return parsed;
    parsed.Key = Stripped(line.substr(0, equals));
    parsed.Value = ParseValue(Stripped(line.substr(equals + 1)));
    return parsed;
}

bool IsHead(const StoreLine& line) {
    return line.Key.empty() && StartsWith(Stripped(line.Raw), u"[");
}

Text LineEnd(const std::vector<StoreLine>& lines) {
    return !lines.empty() && EndsWith(lines.front().Raw, u"\r") ? u"\r" : u"";
}

// Where a new key of the section goes: behind its last key, or its head; the end when it is new.
std::size_t PlaceForKey(std::vector<StoreLine>& lines, TextView section) {
    const Text end = LineEnd(lines);
    for (std::size_t i = lines.size(); i > 0; --i) {
        const StoreLine& line = lines[i - 1];
        if (EqualIgnoringCase(line.Section, section) && (!line.Key.empty() || IsHead(line)))
            return i;
    }
    if (!section.empty())
        lines.push_back({Text(section), {}, {}, u"[" + Text(section) + u"]" + end});
    return section.empty() ? 0 : lines.size();
}

template <class Lines>
auto FindKey(Lines& lines, TextView section, TextView key) {
    return std::find_if(lines.rbegin(), lines.rend(), [&](const StoreLine& line) {
        return EqualIgnoringCase(line.Key, key) && EqualIgnoringCase(line.Section, section);
    });
}

void PutValue(std::vector<StoreLine>& lines, const StoreLine& change) {
    const auto found = FindKey(lines, change.Section, change.Key);
    if (found != lines.rend() && found->Value == change.Value) return;
    StoreLine line = change;
    line.Raw = change.Key + u"=" + RenderValue(change.Value) + LineEnd(lines);
    if (found != lines.rend()) {
        *found = std::move(line);
        return;
    }
    const std::size_t place = PlaceForKey(lines, change.Section);
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place), std::move(line));
}

Status ReadLines(TextView path, std::vector<StoreLine>& lines) {
    Bytes contents;
    const Status read = ReadWholeFile(path, LargestStore, contents);
    if (read.Number() == ErrorNumber::Overflow) contents.clear();
    lines = ParseStore(FromUtf8(contents));
    const bool missing = read.Number() == ErrorNumber::FileNotFound;
    return missing ? Status() : read;
}

}  // namespace

std::vector<StoreLine> ParseStore(TextView contents) {
    std::vector<StoreLine> lines;
    Text section;
    while (!contents.empty()) {
        const std::size_t end = std::min(contents.find(u'\n'), contents.size());
        lines.push_back(ParseLine(contents.substr(0, end), section));
        contents.remove_prefix(std::min(end + 1, contents.size()));
    }
    return lines;
}

Text RenderStore(const std::vector<StoreLine>& lines) {
    Text contents;
    for (const StoreLine& line : lines) contents.append(line.Raw).push_back(u'\n');
    return contents;
}

SettingsStore::SettingsStore(Text path) : path_(std::move(path)) {}

Text SettingsStore::DefaultPath() { return JoinPath(ConfigurationFolder(), u"PLM.ini"); }

Status SettingsStore::Load() {
    changes_.clear();
    loaded_ = ReadLines(path_, lines_);
    return loaded_;
}

Status SettingsStore::Save() {
    // What is in force came from no file that could be read: nobody chose it over what is there.
    if (!loaded_.Ok() && FileExists(path_)) return loaded_;
    std::vector<StoreLine> lines;
    if (const Status read = ReadLines(path_, lines); !read.Ok()) return read;
    for (const StoreLine& change : changes_) PutValue(lines, change);
    const Text folder = FolderOfPath(path_);
    const Status made = folder.empty() ? Status() : CreateFolders(folder);
    if (!made.Ok()) return made;
    const Status written = WriteWholeFile(path_, ToUtf8(RenderStore(lines)));
    if (!written.Ok()) return written;
    lines_ = std::move(lines);
    changes_.clear();
    return {};
}

Text SettingsStore::Get(TextView section, TextView key, TextView defaultValue) const {
    const auto found = FindKey(lines_, section, key);
    return found == lines_.rend() ? Text(defaultValue) : found->Value;
}

void SettingsStore::Set(TextView section, TextView key, TextView value) {
    const StoreLine change = {Text(section), Text(key), Text(value), {}};
    PutValue(lines_, change);
    const auto earlier = FindKey(changes_, section, key);
    if (earlier == changes_.rend())
        changes_.push_back(change);
    else
        *earlier = change;
}

Text UnreadStoreText(Status read, const Language& words) {
    if (read.Number() != ErrorNumber::Overflow) return words(Describe(read.Number()));
    return words(PLM_TRANSLATE("Texts",
                               "The file has more than a megabyte, so it is damaged. Move it away "
                               "or delete it."));
}

}  // namespace mdlPLM
