#include "app/list/list_texts.h"

#include <gtest/gtest.h>

using namespace mdlPLM;

namespace {

using Finding = ListScan::Finding;

/// A finished scan of a list that found this.
class Found {
public:
    explicit Found(std::vector<Finding> findings)
        : findings_(std::move(findings)),
          scan_(list_, [this](FileList::Index row) { return findings_[row]; }) {
        list_.Append(std::vector<Text>(findings_.size(), u"/m/a.mp3"));
        scan_.Step(findings_.size());
    }
    [[nodiscard]] const ListScan& Scan() const { return scan_; }

private:
    std::vector<Finding> findings_;
    FileList list_;
    ListScan scan_;
};

}  // namespace

TEST(ListTexts, OneFileIsNotFiles) {
    EXPECT_EQ(CountOfFiles(0), u"0 files");
    EXPECT_EQ(CountOfFiles(1), u"1 file");
    EXPECT_EQ(CountOfFiles(1200), u"1200 files");
}

TEST(ListTexts, AStoppedRunSaysSoInFrontOfWhatItDid) {
    EXPECT_EQ(RunStatus(u"2 done", CommandEnd::Reached), u"2 done");
    EXPECT_EQ(RunStatus(u"2 done", CommandEnd::Stopped), u"Stopped. 2 done");
}

TEST(ListTexts, SaysHowManyCameAndWent) {
    EXPECT_EQ(AddedText(1, CommandEnd::Reached), u"1 file added.");
    EXPECT_EQ(AddedText(7, CommandEnd::Stopped), u"Stopped. 7 files added.");
    EXPECT_EQ(RemovedText(3), u"3 files taken out of the list.");
    EXPECT_EQ(SavedListText(2, u"/m/100 %1.m3u"), u"2 files saved to /m/100 %1.m3u");
}

TEST(ListTexts, TellsDeletedFilesFromThoseThatWouldNotGo) {
    const Found found({Finding::Gone, Finding::Match, Finding::Other, Finding::Gone});
    EXPECT_EQ(DeletedText(found.Scan()), u"2 files deleted, 1 could not be deleted.");
}

TEST(ListTexts, CountsMissingFiles) {
    const Found found({Finding::Gone, Finding::Other});
    EXPECT_EQ(MissingText(found.Scan()), u"1 file taken out of the list because they are missing.");
}

TEST(ListTexts, AStoppedSearchForTagsSelectsNothing) {
    const Found found({Finding::Match, Finding::Gone, Finding::Match});
    EXPECT_EQ(SelectedByTagText(found.Scan(), CommandEnd::Reached), u"2 files selected.");
    EXPECT_EQ(SelectedByTagText(found.Scan(), CommandEnd::Stopped),
              u"Stopped. The selection is as it was.");
}
