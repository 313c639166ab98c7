#include "core/tags/save_tags.h"

#include "core/platform/rewrite.h"
#include "core/tags/open_save.h"
#include "core/tags/patches.h"
#include "core/tags/save_group.h"
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

Status ApplyPlan(const OpenTags& opened, const SavePlan& plan) {
    const std::vector<Patch> patches = PatchesOf(plan);
    if (opened.Tags == nullptr) return ApplyPatches(opened.Source, patches);
    return ApplyPatches(opened.Source, patches, [&] { return BytesBefore(plan, *opened.Tags); });
}

// A row of the enum each; the first has no text of its own.
constexpr const char* ObstacleTexts[] = {
    nullptr,
    PLM_TRANSLATE(
        "Texts",
        "Another program is writing to this file. Nothing was written; save it again when "
        "that program is done."),
    PLM_TRANSLATE("Texts",
                  "Another program changed, moved or removed this file meanwhile. Nothing was "
                  "written; look at the file and save it again."),
    PLM_TRANSLATE("Texts", "The work was stopped before this file was written. It is as it was."),
};

Text ObstacleText(SaveObstacle obstacle, const Language& words) {
    return words(ObstacleTexts[static_cast<std::size_t>(obstacle)]);
}

bool IsAnythingAsked(SaveModes modes) {
    return modes.V1 != TagMode::Leave || modes.V2 != TagMode::Leave;
}

SaveResult ResultOfLook(Status looked) { return looked.Ok() ? SaveResult() : FailedSave(looked); }

// Opens the file as for writing and works out what would be done with it.
SaveResult Try(TextView path, const TagChange& change, SavePlan& plan) {
    File file;
    const Status opened = file.Open(path, File::Mode::ReadWrite);
    if (!opened.Ok()) return FailedSave(opened);
    if (file.IsLockedByAnother())
        return FailedSave(ErrorNumber::FileAlreadyOpen, SaveObstacle::InUse);
    Status status = PlanOpenSave({path, file}, change, plan);
    if (status.Ok() && plan.Way == SaveWay::Rewrite)
        status = Rewrite::Check(path, file, plan.NewSize);
    return SavedBy(status);
}

}  // namespace

SaveResult FailedSave(Status status, SaveObstacle obstacle) {
    return {SaveOutcome::Failed, status.Number(), obstacle};
}

SaveResult ChangedSave() { return FailedSave(ErrorNumber::PathFileAccess, SaveObstacle::Changed); }

SaveResult LookBeforeWriting(const File& file) {
    bool unchanged = false;
    const Status looked = file.Compare(unchanged);
    return looked.Ok() && !unchanged ? ChangedSave() : ResultOfLook(looked);
}

SaveResult LookBeforeNaming(const File& file, TextView path) {
    bool unchanged = false;
    const Status looked = file.CompareAt(path, unchanged);
    return looked.Ok() && !unchanged ? ChangedSave() : ResultOfLook(looked);
}

SaveResult SavedBy(Status status) {
    return status.Ok() ? SaveResult{SaveOutcome::Written} : FailedSave(status);
}

Text ReasonOf(const SaveResult& result, const Language& words) {
    return result.Obstacle == SaveObstacle::None ? words(Describe(result.Error))
                                                 : ObstacleText(result.Obstacle, words);
}

Text SaveMessage(const SaveResult& result, const Language& words) {
    return result.Obstacle == SaveObstacle::None ? ErrorMessage(result.Error)
                                                 : ObstacleText(result.Obstacle, words);
}

Status PlanOpenSave(const OpenTags& opened, const TagChange& change, SavePlan& plan) {
    OldFile old;
    if (const FileTags* const tags = opened.Tags) {
        old = {tags->FileSize, tags->V1.Present(), tags->V2.Present(), tags->V2Length};
    } else if (const Status status = LookAt(opened.Source, old); !status.Ok()) {
        return status;
    }
    plan = PlanSave(old, change.V1, change.V2, change.Modes);
    return plan.Error;
}

SaveResult SaveInPlace(const OpenTags& opened, const SavePlan& plan) {
    if (plan.Way == SaveWay::NoWork) return {};
    const SaveResult looked = LookBeforeWriting(opened.Source);
    if (looked.Outcome == SaveOutcome::Failed) return looked;
    Status status = plan.Way == SaveWay::Shorten ? opened.Source.SetSize(plan.NewSize)
                                                 : ApplyPlan(opened, plan);
    if (status.Ok()) status = opened.Source.Close();
    return SavedBy(status);
}

SaveResult SaveTags(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes) {
    if (!IsAnythingAsked(modes)) return {};
    SaveGroup group;
    File file;
    const SaveResult opened = group.Open(path, file);
    if (opened.Outcome == SaveOutcome::Failed) return opened;
    return SaveTags({path, file}, {v1, v2, modes});
}

SaveResult SaveTags(const OpenTags& opened, const TagChange& change) {
    SaveGroup group;
    group.Save(opened, change);
    group.Commit();
    SaveResult result;
    (void)group.Take(result);
    return result;
}

SaveResult TrySaveTags(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2, SaveModes modes) {
    if (!IsAnythingAsked(modes)) return {};
    SavePlan plan;
    const SaveResult tried = Try(path, {v1, v2, modes}, plan);
    return tried && plan.Way == SaveWay::NoWork ? SaveResult() : tried;
}

SaveResult TryWriteID3v1(TextView path) {
    File file;
    Bytes trailer;
    Status status = file.Open(path, File::Mode::ReadWrite);
    if (status.Ok() && file.IsLockedByAnother())
        return FailedSave(ErrorNumber::FileAlreadyOpen, SaveObstacle::InUse);
    if (status.Ok()) status = ReadTrailer(file, trailer);
    return SavedBy(status);
}

}  // namespace mdlPLM
