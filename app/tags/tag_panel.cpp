#include "app/tags/tag_panel.h"

#include <algorithm>
#include <utility>

#include "app/tags/tag_fix.h"
#include "app/tags/tag_orders.h"
#include "core/names/fixing_rules.h"
#include "core/tags/tag_file.h"

namespace mdlPLM {

namespace {

constexpr int StepsAtOnce = 16;

bool IsSameFile(const FileTags& a, const FileTags& b) {
    return a.FileSize == b.FileSize && RenderID3v1(a.V1) == RenderID3v1(b.V1) &&
           a.V1.Present() == b.V1.Present() && a.V2Length == b.V2Length &&
           a.V2Header == b.V2Header && a.V2Text == b.V2Text;
}

}  // namespace

TagPanel::TagPanel(const Settings& settings, const ReplacementList& replacements, Language words)
    : settings_(settings), replacements_(replacements), words_(std::move(words)) {}

void TagPanel::Clear() {
    state_ = State::Nothing;
    path_.clear();
    Show({});
}

void TagPanel::ShowFile(TextView path, ErrorSink& errors) {
    state_ = State::OneFile;
    path_ = path;
    const auto file = std::make_shared<File>();
    bool exists = false;
    const Status opened = OpenForTags(path_, *file, exists);
    if (!opened.Ok()) errors.Report(opened.Number(), path_);
    if (!exists || !opened.Ok()) {
        FileTags none;
        NoteUnreadable(none, opened);
        return Show(std::move(none));
    }
    Show(ReadFileTags(*file, path_, ID3v2Parts::FieldsAndText, errors));
    SearchStreamOf(file);
}

// The header of almost every file is found before this returns.
void TagPanel::SearchStreamOf(std::shared_ptr<const File> file) {
    search_.emplace(SearchStream(std::move(file), tags_));
    for (int steps = 0; steps < StepsAtOnce && SearchStreamOn(); ++steps) {
    }
}

bool TagPanel::SearchStreamOn() {
    if (!search_) return false;
    if (search_->Step()) return true;
    if (const std::optional<FoundHeader>& found = search_->Found())
        stream_ = DescribeStream(tags_, found->Header);
    search_.reset();
    return false;
}

int TagPanel::SearchedPercent() const {
    if (!search_ || search_->Total() == 0) return 0;
    return static_cast<int>(100 * search_->Done() / search_->Total());
}

void TagPanel::ShowBatch() {
    Clear();
    state_ = State::Batch;
    canCopyFromV1_ = canCopyToV1_ = true;
}

void TagPanel::Show(FileTags tags) {
    tags_ = std::move(tags);
    search_.reset();
    stream_ = DescribeStream(tags_, std::nullopt);
    shownOptimized_ = settings_.bOptimizedID3v1;
    shown_ = ShowBoxes(tags_, shownOptimized_);
    boxes_ = shown_;
    held_ = HoldFrames({tags_.V2Header, tags_.V2Text}, HandOn::NotWholeNoName);
    framesEdited_ = false;
    canCopyFromV1_ = boxes_.chkID3v1;
    canCopyToV1_ = boxes_.chkID3v2;
}

bool TagPanel::IsEdited() const {
    const BoxChanges changes = ChangesBetween(shown_, boxes_);
    return framesEdited_ || boxes_.chkID3v1 != shown_.chkID3v1 ||
           boxes_.chkID3v2 != shown_.chkID3v2 || boxes_.chkID3v1Rem || boxes_.chkID3v2Rem ||
           std::any_of(changes.begin(), changes.end(), [](const auto& c) { return c.has_value(); });
}

const Text& TagPanel::Enter(TagBox box, TextView text) {
    Text& held = boxes_.*RowOf(box).Value;
    const Text taken = TextForBox(text, AllowedCharacters(box));
    held = Left(taken, std::max(Pos{Limit(box)}, static_cast<Pos>(held.size())));
    return held;
}

TextView TagPanel::AllowedCharacters(TagBox box) const {
    return state_ == State::Batch ? RowOf(box).KeptInBatch : RowOf(box).KeptForOne;
}

int TagPanel::Limit(TagBox box) const {
    if (!settings_.bOptimizedID3v1) return NoLimit;
    if (box == TagBox::txtArtist) return OptimizedArtistLimit(boxes_.txtAlbum.size());
    if (box == TagBox::txtTitle)
        return OptimizedTitleLimit(boxes_.txtComments.size(), !boxes_.txtTrackNr.empty());
    return NoLimit;
}

void TagPanel::TickID3v1(bool on) {
    boxes_.chkID3v1 = on;
    canCopyFromV1_ = canCopyFromV1_ || on;
}

void TagPanel::TickID3v2(bool on) {
    boxes_.chkID3v2 = on;
    canCopyToV1_ = canCopyToV1_ || on;
}

void TagPanel::CopyFromV1() {
    CopyBoxesFromV1(boxes_);
    canCopyToV1_ = true;
}

void TagPanel::CopyToV1() {
    CopyBoxesToV1(boxes_);
    canCopyFromV1_ = true;
}

void TagPanel::Reduce(TextView TagBoxRow::*kept) {
    for (const TagBoxRow& row : TagBoxTable)
        if (!(row.*kept).empty())
            boxes_.*row.Value = RemoveChars(boxes_.*row.Value, row.*kept, RemoveMode::KeepOnly);
}

TagChange TagPanel::ChangeOfShownFile() const {
    // After a change of the layout the texts that are shown are not those of the fields any more.
    const UnchangedFields unchanged = shownOptimized_ == settings_.bOptimizedID3v1
                                          ? UnchangedFields::LayOutAnew
                                          : UnchangedFields::KeepBytes;
    const BoxChanges changes = ChangesBetween(shown_, boxes_);
    TagChange change;
    change.Modes = {WriteIf(boxes_.chkID3v1), WriteIf(boxes_.chkID3v2)};
    change.V1 = EditedV1(tags_.V1, changes, {settings_.bOptimizedID3v1, unchanged});
    change.V2 = EditedV2(tags_.V2, held_, changes, HiddenFramesIn(settings_));
    return change;
}

PanelSave TagPanel::Write(const TagChange& change) const {
    SaveGroup group;
    File file;
    FileTags now;
    const SaveResult opened = OpenForChange(group, path_, file, now);
    if (opened.Outcome == SaveOutcome::Failed)
        return {SaveOutcome::Failed, SaveMessage(opened, words_)};
    if (!IsSameFile(now, tags_))
        return {SaveOutcome::Failed,
                words_(PLM_TRANSLATE(
                    "Texts", "The file has changed since it was shown. It was not saved."))};
    const SaveResult result = SaveTags({path_, file, &now}, change);
    const bool failed = result.Outcome == SaveOutcome::Failed;
    return {result.Outcome, failed ? SaveMessage(result, words_) : Text()};
}

PanelSave TagPanel::SaveID3() {
    if (state_ != State::OneFile) return {};
    // Before the reduction to digits: a track that holds "*" is no track.
    if (boxes_.txtTrackNr.find(u'*') != Text::npos) boxes_.txtTrackNr.clear();
    Reduce(&TagBoxRow::KeptForOne);
    const TagChange change = ChangeOfShownFile();
    if (change.Modes.V1 == TagMode::Leave && change.Modes.V2 == TagMode::Leave) return {};
    PanelSave saved = Write(change);
    if (saved.Outcome == SaveOutcome::Failed) return saved;
    SilentErrors silent;
    ShowFile(Text(path_), silent);
    return saved;
}

std::array<bool, TagBoxCount> TagPanel::UntouchableBoxes() const {
    std::array<bool, TagBoxCount> boxes = FieldsNotShown(tags_, held_.Kinds);
    const BoxChanges changes = ChangesBetween(shown_, boxes_);
    for (std::size_t i = 0; i < TagBoxCount; ++i) boxes[i] = boxes[i] && !changes[i];
    return boxes;
}

PanelSave TagPanel::FixID3(TextView inPattern) {
    if (state_ != State::OneFile) return {};
    const FixScope scope{path_, boxes_.chkID3v1, boxes_.chkID3v2, UntouchableBoxes()};
    boxes_ = FixedBoxes(boxes_, scope, {settings_, replacements_, inPattern});
    return SaveID3();
}

Text TagPanel::ConfirmationText() const { return mdlPLM::ConfirmationText(boxes_); }

TagRun TagPanel::SaveAll(std::vector<Text> paths) {
    Reduce(&TagBoxRow::KeptInBatch);
    return {std::move(paths), BatchEdit(boxes_, settings_)};
}

TagRun TagPanel::FixAll(std::vector<Text> paths, TextView inPattern) const {
    return {std::move(paths), FixEdit({settings_, replacements_, inPattern})};
}

void TagPanel::SetOtherFrames(Bytes frames) {
    if (frames == held_.OtherFrames) return;
    framesEdited_ = true;
    // Without its tick the tag would not be written.
    TickID3v2(true);
    held_.OtherFrames = std::move(frames);
}

}  // namespace mdlPLM
