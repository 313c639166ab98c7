// A run whose disk and tag writer only pretend: the same pairs, read where the contents are.
#include <gtest/gtest.h>

#include "app/namefromtext/rename_run.h"
#include "core/text/code_page.h"
#include "tests/support/recording_disk.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

// Files that exist by name only; all of them have the contents of one real file.
class PretendedDisk final : public MemoryDisk {
public:
    Text ContentsAt(TextView /*path*/) override { return Contents; }
    Text Contents;
};

struct Saved {
    Text Path;
    Bytes V1Artist;
    Bytes V2Artist;
    SaveModes Modes;
};

class NotingWriter final : public TagWriter {
public:
    SaveResult Save(TextView path, const ID3v1Tag& v1, const ID3v2Tag& v2,
                    SaveModes modes) override {
        Calls.push_back({Text(path), FieldText(v1.Artist), v2.Artist, modes});
        return Result;
    }
    SaveResult SaveID3v1(TextView path, const ID3v1Tag& v1) override {
        return Save(path, v1, {}, {TagMode::Write, TagMode::Leave});
    }
    std::vector<Saved> Calls;
    SaveResult Result{SaveOutcome::Written, ErrorNumber::None};
};

struct Pretending {
    TempFolder Folder;
    Settings Values;
    RunChoices Choices;
    PretendedDisk Files;
    ScriptedPrompts Ask;
    NotingWriter Writer;

    Pretending() {
        Choices.chkSaveID3v1 = Choices.chkSaveID3v2 = true;
        Choices.Tags.OutPattern = u"%artist - %title.mp3";
        Files.Folders = {u"/m"};
        Files.Files = {u"/m/a.mp3"};
        Files.Contents =
            Folder.File(u"real", test::WholeTag(test::TextFrame("TPE1", "Own")) + test::Noise(200));
    }
    RenameReport Run() {
        RenameRun run({{u"/m/a.mp3", u"Abba - Waterloo.mp3"}}, Choices, Values, Files, Ask);
        run.WriteTagsThrough(Writer);
        while (run.Step()) {
        }
        return run.Report();
    }
};

TEST(RenameRunWriter, TagsGoToTheWriterUnderTheNewName) {
    Pretending pretending;
    const Bytes before = ReadFile(pretending.Files.Contents);
    EXPECT_EQ(pretending.Run().Renamed, 1U);
    ASSERT_EQ(pretending.Writer.Calls.size(), 2U);
    const Saved& v1 = pretending.Writer.Calls[0];
    EXPECT_EQ(v1.Path, u"/m/Abba - Waterloo.mp3");
    EXPECT_EQ(v1.V1Artist, "Abba");
    EXPECT_EQ(v1.Modes.V1, TagMode::Write);
    EXPECT_EQ(v1.Modes.V2, TagMode::Leave);
    const Saved& v2 = pretending.Writer.Calls[1];
    EXPECT_EQ(v2.V2Artist, "Own");
    EXPECT_EQ(v2.Modes.V1, TagMode::Leave);
    EXPECT_EQ(v2.Modes.V2, TagMode::Write);
    EXPECT_TRUE(ReadFile(pretending.Files.Contents) == before);
}

TEST(RenameRunWriter, WhatTheWriterCannotSaveIsAFailure) {
    Pretending pretending;
    pretending.Writer.Result = {SaveOutcome::Failed, ErrorNumber::PermissionDenied};
    const RenameReport report = pretending.Run();
    ASSERT_EQ(report.Failures.size(), 2U);
    EXPECT_EQ(report.Failures[0].Path, u"/m/Abba - Waterloo.mp3");
    EXPECT_EQ(report.Failures[0].Reason, ErrorMessage(ErrorNumber::PermissionDenied));
}

}  // namespace
}  // namespace mdlPLM
