#include "core/tags/save_tags.h"

#include <exception>

#include "core/platform/delete_and_write.h"
#include "core/tags/patches.h"
#include "core/tags/tag_file.h"

namespace mdlPLM {

namespace {

Status LookAt(const File& file, OldFile& old) {
    old.Size = file.Size();
    Bytes trailer;
    if (const Status status = ReadTrailer(file, trailer); !status.Ok()) return status;
    old.HasV1 = trailer.substr(0, 3) == "TAG";
    Bytes header;
    if (const Status status = file.ReadAt(0, ID3v2HeaderSize, header); !status.Ok()) return status;
    // The file has become shorter since it was opened.
    if (header.size() < ID3v2HeaderSize) return ErrorNumber::InputPastEnd;
    old.HasV2 = header.substr(0, 3) == "ID3";
    const std::int64_t declared = DecodeSize(BytesView(header).substr(6));
    if (old.HasV2) old.V2Length = declared + static_cast<std::int64_t>(ID3v2HeaderSize);
    return {};
}

// The trailer first: only what lies behind the old end can find the disk full.
std::vector<Patch> PatchesOf(const SavePlan& plan) {
    std::vector<Patch> patches;
    if (!plan.Trailer.empty()) patches.push_back({plan.TrailerPlace, plan.Trailer});
    if (!plan.Head.empty()) patches.push_back({0, plan.Head});
    return patches;
}

// What stands where these patches go.
std::vector<Bytes> BytesBefore(const SavePlan& plan, const FileTags& tags) {
    std::vector<Bytes> old;
    if (!plan.Trailer.empty()) old.push_back(tags.V1Bytes);
    if (!plan.Head.empty())
        old.push_back(tags.V2Header + tags.V2Text.substr(0, plan.Head.size() - ID3v2HeaderSize));
    return old;
}

// The whole new file. A file that has become shorter than the plan knows it is an error.
Status NewContents(const File& file, const SavePlan& plan, Bytes& contents) {
    const auto carried = static_cast<std::size_t>(plan.CarriedLength);
    try {
        contents.reserve(static_cast<std::size_t>(plan.NewSize));
        contents.append(plan.Head).resize(plan.Head.size() + carried);
        std::size_t got = 0;
        char* const place = contents.data() + plan.Head.size();
        const Status status = file.ReadAt(plan.CarriedFrom, carried, place, got);
        if (!status.Ok()) return status;
        if (got < carried) return ErrorNumber::InputPastEnd;
        contents.append(plan.Trailer);
    } catch (const std::exception&) {
        return ErrorNumber::OutOfMemory;
    }
    return {};
}

// All of the old file is carried over, so that it can be put back when the write fails.
Status WriteOver(File& file, const SavePlan& plan, BytesView contents) {
    const Status status = file.WriteAt(0, contents);
    if (status.Ok()) return status;
    const auto length = static_cast<std::size_t>(plan.CarriedLength);
    (void)file.WriteAt(0, contents.substr(plan.Head.size(), length));
    (void)file.SetSize(plan.CarriedLength);
    return status;
}

Status WriteAnew(TextView path, File& file, const SavePlan& plan) {
    Bytes contents;
    if (const Status status = NewContents(file, plan, contents); !status.Ok()) return status;
    return plan.Way == SaveWay::Over ? WriteOver(file, plan, contents)
                                     : DeleteAndWrite(path, file, contents);
}

// `known` is what was read from this file; null: it has to be looked at.
Status Perform(TextView path, File& file, const SavePlan& plan, const FileTags* known) {
    switch (plan.Way) {
        case SaveWay::InPlace:
            if (known == nullptr) return ApplyPatches(file, PatchesOf(plan));
            return ApplyPatches(file, PatchesOf(plan), [&] { return BytesBefore(plan, *known); });
        case SaveWay::Shorten:
            return file.SetSize(plan.NewSize);
        case SaveWay::Rewrite:
        case SaveWay::Over:
            return WriteAnew(path, file, plan);
        case SaveWay::Refused:
        case SaveWay::NoWork:
            break;
    }
    return plan.Error;
}

SaveResult ResultOf(Status status) {
    if (status.Ok()) return {SaveOutcome::Written, ErrorNumber::None};
    return {SaveOutcome::Failed, status.Number()};
}

// What is asked of one file.
struct Wish {
    TextView Path;
    const ID3v1Tag& V1;
    const ID3v2Tag& V2;
    SaveModes Modes;
};

// Opens the file as for writing and works out what is to be done with it; nothing is changed yet.
Status Prepare(const Wish& wish, File& file, SavePlan& plan) {
    if (wish.Modes.V1 == TagMode::Leave && wish.Modes.V2 == TagMode::Leave) return {};
    OldFile old;
    Status status = file.Open(wish.Path, File::Mode::ReadWrite);
    if (status.Ok()) status = LookAt(file, old);
    if (status.Ok()) plan = PlanSave(old, wish.V1, wish.V2, wish.Modes);
    return status.Ok() ? plan.Error : status;
}

}  // namespace

SaveResult SaveTags(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes) {
    File file;
    SavePlan plan;
    Status status = Prepare({path, v1, v2, modes}, file, plan);
    if (status.Ok() && plan.Way == SaveWay::NoWork) return {};
    if (status.Ok()) status = Perform(path, file, plan, nullptr);
    if (status.Ok()) status = file.Close();
    return ResultOf(status);
}

SaveResult SaveTags(const OpenTags& opened, const TagChange& change) {
    const FileTags& tags = opened.Tags;
    const OldFile old{tags.FileSize, tags.V1.Present(), tags.V2.Present(), tags.V2Length};
    const SavePlan plan = PlanSave(old, change.V1, change.V2, change.Modes);
    if (plan.Way == SaveWay::NoWork) return {};
    Status status = Perform(opened.Path, opened.Source, plan, &tags);
    if (status.Ok()) status = opened.Source.Close();
    return ResultOf(status);
}

SaveResult TrySaveTags(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes) {
    File file;
    SavePlan plan;
    const Status status = Prepare({path, v1, v2, modes}, file, plan);
    if (status.Ok() && plan.Way == SaveWay::NoWork) return {};
    return ResultOf(status);
}

SaveResult TryWriteID3v1(TextView path) {
    File file;
    Bytes trailer;
    Status status = file.Open(path, File::Mode::ReadWrite);
    if (status.Ok()) status = ReadTrailer(file, trailer);
    return ResultOf(status);
}

}  // namespace mdlPLM
