// A run whose writer only pretends leaves the files alone and counts what the writer tells.
#include <gtest/gtest.h>

#include "app/tags/tag_run.h"
#include "tests/support/run_failures.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

class TellingWriter final : public TagWriter {
public:
    SaveResult Save(TextView path, const ID3v1Tag& v1, const ID3v2Tag& /*v2*/,
                    SaveModes modes) override {
        EXPECT_EQ(v1.Artist, "Given");
        EXPECT_EQ(modes.V1, TagMode::Write);
        Paths.emplace_back(path);
        return Results.at(Paths.size() - 1);
    }
    SaveResult SaveID3v1(TextView /*path*/, const ID3v1Tag& /*v1*/) override {
        ADD_FAILURE();
        return {};
    }
    std::vector<Text> Paths;
    std::vector<SaveResult> Results = {{SaveOutcome::Written, ErrorNumber::None},
                                       {SaveOutcome::NoWork, ErrorNumber::None},
                                       {SaveOutcome::Failed, ErrorNumber::PermissionDenied}};
};

TEST(TagRunWriter, TakesThePlaceOfTheFiles) {
    const TempFolder folder;
    std::vector<Text> paths;
    for (const TextView name : {u"a.mp3", u"b.mp3", u"c.mp3"})
        paths.push_back(folder.File(name, test::Noise(300)));
    TagRun run(paths, [](TextView, const FileTags&) {
        TagChange change;
        change.V1.Artist = "Given";
        change.Modes.V1 = TagMode::Write;
        return change;
    });
    TellingWriter writer;
    run.WriteThrough(writer);
    while (run.Step()) {
    }
    EXPECT_EQ(writer.Paths, paths);
    EXPECT_EQ(PlacesDone(run.Report()), std::vector<std::size_t>{0});
    EXPECT_EQ(run.Report().Count(FileFate::Unchanged), 1U);
    ASSERT_EQ(FailuresOf(run.Report()).size(), 1U);
    EXPECT_EQ(FailuresOf(run.Report())[0].Reason, u"Permission denied");
    for (const Text& path : paths) EXPECT_TRUE(ReadFile(path) == test::Noise(300));
}

}  // namespace
}  // namespace mdlPLM
