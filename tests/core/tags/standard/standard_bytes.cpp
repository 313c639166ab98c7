#include "tests/core/tags/standard/standard_bytes.h"

#include <zlib.h>

#include <stdexcept>

#include "core/tags/standard/sizes.h"

namespace mdlPLM::standard::test {

Bytes Plain(std::size_t number) {
    Bytes bytes;
    AppendPlainNumber(bytes, number);
    return bytes;
}

Bytes SevenBit(std::size_t number) {
    Bytes bytes;
    AppendSevenBitNumber(bytes, number);
    return bytes;
}

Bytes Frame22(BytesView id, const Bytes& content) {
    return Bytes(id) + Plain(content.size()).substr(1) + content;
}

Bytes Frame23(BytesView id, const Bytes& content, const Bytes& flags) {
    return Bytes(id) + Plain(content.size()) + flags + content;
}

Bytes Frame24(BytesView id, const Bytes& content, const Bytes& flags) {
    return Bytes(id) + SevenBit(content.size()) + flags + content;
}

Bytes SevenBitFrame(BytesView id, const Bytes& content) { return Frame24(id, content); }

Bytes Text23(BytesView id, BytesView text) { return Frame23(id, B("\0") + Bytes(text)); }

Bytes Text24(BytesView id, BytesView text) { return Frame24(id, B("\0") + Bytes(text)); }

Bytes TagOf(const Bytes& frames, const TagParts& parts) {
    const auto size = static_cast<std::int64_t>(frames.size() + parts.Padding) + parts.SizeError;
    return "ID3" + Bytes(1, static_cast<char>(parts.Major)) + B("\0") +
           Bytes(1, static_cast<char>(parts.Flags)) + SevenBit(static_cast<std::size_t>(size)) +
           frames + Bytes(parts.Padding, '\0');
}

Bytes Unsynchronised(BytesView bytes) {
    Bytes result;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        result.push_back(bytes[i]);
        if (bytes[i] != '\xFF') continue;
        const bool last = i + 1 == bytes.size();
        const auto next = last ? 0U : static_cast<unsigned char>(bytes[i + 1]);
        if (last || next == 0 || next >= 0xE0) result.push_back('\0');
    }
    return result;
}

Bytes Deflated(BytesView bytes) {
    Bytes result(compressBound(bytes.size()), '\0');
    uLongf size = result.size();
    const int outcome = compress(reinterpret_cast<Bytef*>(result.data()), &size,
                                 reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
    if (outcome != Z_OK) throw std::runtime_error("cannot compress");
    result.resize(size);
    return result;
}

Bytes Little(TextView text) {
    Bytes bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<char>(unit & 0xFFU));
        bytes.push_back(static_cast<char>(unit >> 8U));
    }
    return bytes;
}

Bytes Big(TextView text) {
    Bytes bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<char>(unit >> 8U));
        bytes.push_back(static_cast<char>(unit & 0xFFU));
    }
    return bytes;
}

Bytes Audio(std::size_t count) {
    Bytes audio;
    for (std::size_t i = 0; i < count; ++i) {
        audio += "\xFF\xFB\x90\x64";
        audio += Bytes(AudioFrameSize - 4, static_cast<char>('a' + i % 20));
    }
    return audio;
}

ReadBytes Reader(const Bytes& file) {
    return [&file](std::int64_t offset, std::size_t count) {
        return file.substr(static_cast<std::size_t>(offset), count);
    };
}

FileLayout LayoutOf(const Bytes& file) {
    return FindLayout(Reader(file), static_cast<std::int64_t>(file.size()), ParseTag(file));
}

Bytes Ids(const Tag& tag) {
    Bytes ids;
    for (const Frame& frame : tag.Frames) ids += (ids.empty() ? "" : " ") + Bytes(frame.Id.View());
    return ids;
}

TagEdit Edit(Field field, TextView text) {
    TagEdit edit;
    edit.Fields[field] = Text(text);
    return edit;
}

Bytes Performed(const Bytes& file, const SavePlan& plan) {
    Bytes result = file;
    switch (plan.Way) {
        case SaveWay::NoWork:
        case SaveWay::Refused:
            return result;
        case SaveWay::InPlace:
            result.replace(0, plan.Head.size(), plan.Head);
            result.resize(static_cast<std::size_t>(std::max(plan.NewSize, plan.TrailerPlace)));
            result.replace(static_cast<std::size_t>(plan.TrailerPlace), plan.Trailer.size(),
                           plan.Trailer);
            break;
        case SaveWay::Shorten:
            break;
        default:
            result = plan.Head +
                     file.substr(static_cast<std::size_t>(plan.CarriedFrom),
                                 static_cast<std::size_t>(plan.CarriedLength)) +
                     plan.Trailer;
    }
    result.resize(static_cast<std::size_t>(plan.NewSize));
    return result;
}

Bytes SavedFile(const Bytes& file, const TagEdit& edit, const TrailerEdit& trailer) {
    const Tag tag = ParseTag(file);
    return Performed(file, PlanSave(LayoutOf(file), EditTag(tag, edit), trailer));
}

Bytes Saved(const Bytes& file, const TagEdit& edit) {
    const Tag tag = ParseTag(file);
    const EditedTag edited = EditTag(tag, edit);
    return edited.Changed ? RenderTagHeader(edited.Header) + edited.Frames : file;
}

}  // namespace mdlPLM::standard::test
