#include "core/tags/standard/frame_content.h"

#include <algorithm>

#include "core/text/code_page.h"

namespace mdlPLM::standard {

namespace {

constexpr std::size_t LanguageSize = 3;
constexpr std::size_t FormatSize = 3;  // of a picture in ID3v2.2

constexpr BytesView ImageStarts[] = {"\xFF\xD8\xFF", "\x89PNG", "GIF8", "BM", "RIFF"};
constexpr std::size_t NoTexts = 2;  // of them, these are not the beginning of a description

bool StartsImage(BytesView data, std::size_t kinds = std::size(ImageStarts)) {
    return std::any_of(ImageStarts, ImageStarts + kinds,
                       [data](BytesView start) { return data.substr(0, start.size()) == start; });
}

// A reader of what follows the encoding byte and `skipped` bytes behind it.
TextReader TextsBehind(BytesView content, std::size_t skipped) {
    TextReader reader(content);
    reader.Skip(std::min(skipped, reader.Rest().size()));
    return reader;
}

bool IsPlain(char c) { return c >= 0x20 && c <= 0x7E; }

// An empty description of UTF-16 that ends in one NUL instead of two.
bool IsHalfEnded(const TextReader& reader) {
    const BytesView texts = reader.Rest();
    if (reader.Kind() != Encoding::Utf16 || texts.size() < 3 || texts[0] != '\0') return false;
    const BytesView mark = texts.substr(1, 2);
    return mark == "\xFF\xFE" || mark == "\xFE\xFF" || (IsPlain(mark[0]) && IsPlain(mark[1]));
}

Text TakeDescription(TextReader& reader) {
    Text description;
    if (IsHalfEnded(reader))
        reader.Skip(1);
    else if (reader.HasEnd())
        reader.Next(description);
    return description;
}

Text UrlText(BytesView bytes) {
    TextReader reader(Encoding::Latin1, bytes);
    Text url;
    while (url.empty() && reader.Next(url)) {
    }
    return url;
}

Text WithDescription(const DescribedText& text) {
    if (text.Description.empty()) return text.Value;
    return text.Description + u": " + text.Value;
}

// In UTF-16 a description that lacks half of its end, or all, would swallow the picture.
Text TakePictureDescription(TextReader& reader) {
    const BytesView rest = reader.Rest();
    if (!rest.empty() && rest.front() == '\0' && StartsImage(rest.substr(1))) {
        reader.Skip(1);
        return {};
    }
    Text description;
    if (!StartsImage(rest, NoTexts)) reader.Next(description);
    return description;
}

Bytes UrlBytes(TextView url) {
    constexpr BytesView hexDigits = "0123456789ABCDEF";
    Bytes bytes;
    const Text written = Writable(url);
    for (std::size_t i = 0; i < written.size(); ++i) {
        const bool latin1 = written[i] < 0x80 || (written[i] >= 0xA0 && written[i] <= 0xFF);
        if (latin1) {
            bytes.push_back(static_cast<char>(written[i]));
            continue;
        }
        const bool pair = written[i] >= 0xD800 && written[i] <= 0xDBFF;
        for (const char byte : ToUtf8(TextView(written).substr(i, pair ? 2 : 1))) {
            const auto value = static_cast<unsigned char>(byte);
            bytes.append({'%', hexDigits[value >> 4U], hexDigits[value & 15U]});
        }
        if (pair) ++i;
    }
    return bytes;
}

// Renders the parts of one frame in one encoding.
class ContentWriter {
public:
    ContentWriter(const NewFrame& frame, TagForm form)
        : frame_(frame),
          kind_(KindOf(frame.Id)),
          encoding_(EncodingFor(form == TagForm::V24, EncodedTexts())) {}

    Bytes Run() {
        if (kind_ == FrameKind::Other) return frame_.Data;
        if (kind_ == FrameKind::Url) return UrlBytes(Value());
        bytes_.push_back(static_cast<char>(encoding_));
        if (kind_ == FrameKind::Text) {
            AppendValues();
            return std::move(bytes_);
        }
        AppendFixedParts();
        AppendText(bytes_, encoding_, frame_.Description);
        AppendEnd(bytes_, encoding_);
        AppendLast();
        return std::move(bytes_);
    }

private:
    [[nodiscard]] Text Value() const { return frame_.Values.empty() ? Text() : frame_.Values[0]; }

    [[nodiscard]] std::vector<Text> EncodedTexts() const {
        std::vector<Text> texts{Writable(frame_.Description)};
        const bool encoded = kind_ != FrameKind::UserUrl && kind_ != FrameKind::Picture;
        if (!encoded) return texts;
        for (const Text& value : frame_.Values) texts.push_back(Writable(value));
        return texts;
    }

    void AppendValues() {
        for (std::size_t i = 0; i < frame_.Values.size(); ++i) {
            if (i > 0) AppendEnd(bytes_, encoding_);
            AppendText(bytes_, encoding_, frame_.Values[i]);
        }
    }

    void AppendFixedParts() {
        if (kind_ == FrameKind::Comment) {
            Bytes language = frame_.Language;
            language.resize(LanguageSize, ' ');
            bytes_.append(language);
        }
        if (kind_ != FrameKind::Picture) return;
        bytes_.append(frame_.Mime).push_back('\0');
        bytes_.push_back(static_cast<char>(frame_.Type));
    }

    void AppendLast() {
        if (kind_ == FrameKind::Picture)
            bytes_.append(frame_.Data);
        else if (kind_ == FrameKind::UserUrl)
            bytes_.append(UrlBytes(Value()));
        else
            AppendValues();
    }

    const NewFrame& frame_;
    FrameKind kind_;
    Encoding encoding_;
    Bytes bytes_;
};

}  // namespace

std::vector<Text> ParseTexts(const Frame& frame) {
    return TextReader(ContentOf(frame).View).Values();
}

Text ParseFirstText(const Frame& frame) {
    const Content content = ContentOf(frame);
    TextReader reader(content.View);
    Text text;
    while (text.empty() && reader.Next(text)) {
    }
    return text;
}

DescribedText ParseDescribed(const Frame& frame) {
    const Content content = ContentOf(frame);
    const bool hasLanguage = frame.Id == FrameId("COMM") || frame.Id == FrameId("USLT");
    const std::size_t before = hasLanguage ? LanguageSize : 0;
    TextReader reader = TextsBehind(content.View, before);
    DescribedText text;
    if (before > 0 && content.View.size() > before) text.Language = content.View.substr(1, before);
    text.Description = TakeDescription(reader);
    text.Value = frame.Id == FrameId("WXXX") ? UrlText(reader.Rest()) : reader.AllJoined();
    return text;
}

Text ParseUrl(const Frame& frame) { return UrlText(ContentOf(frame).View); }

std::optional<Picture> ParsePicture(const Frame& frame) {
    const Content content = ContentOf(frame);
    if (!content.Readable || content.View.size() < 2) return std::nullopt;
    Picture picture;
    const BytesView format = content.View.substr(1);
    std::size_t at = FormatSize;
    if (frame.Form == TagForm::V22) {
        picture.Mime = MimeOfFormat(format.substr(0, FormatSize));
    } else {
        at = std::min(format.find('\0'), format.size());
        picture.Mime = format.substr(0, at);
        ++at;
    }
    if (at >= format.size()) return std::nullopt;
    picture.Type = static_cast<unsigned char>(format[at]);
    TextReader reader = TextsBehind(content.View, at + 1);
    picture.Description = TakePictureDescription(reader);
    picture.Data = reader.Rest();
    picture.Own = content.Own;
    return picture;
}

Text ParseShown(const Frame& frame) {
    switch (KindOf(frame.Id)) {
        case FrameKind::Text:
            return Joined(ParseTexts(frame));
        case FrameKind::UserText:
        case FrameKind::UserUrl:
        case FrameKind::Comment:
            return WithDescription(ParseDescribed(frame));
        case FrameKind::Url:
            return ParseUrl(frame);
        case FrameKind::Picture:
            if (const std::optional<Picture> picture = ParsePicture(frame))
                return picture->Description;
            return {};
        case FrameKind::Other:
            break;
    }
    return {};
}

Bytes RenderContent(const NewFrame& frame, TagForm form) {
    return ContentWriter(frame, form).Run();
}

}  // namespace mdlPLM::standard
