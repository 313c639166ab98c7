// Names and genre folders come from where the disk has a file's contents, which a disk that only
// pretends to have renamed something tells.
#include <gtest/gtest.h>

#include <map>

#include "app/sort/sort_engine.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/tag_bytes.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

class ElsewhereDisk final : public SystemDisk {
public:
    Text ContentsAt(TextView path) override {
        if (path != At) return Text(path);
        ++TimesAsked;
        return Contents;
    }
    Text At;
    Text Contents;
    int TimesAsked = 0;
};

TEST(SortContents, TagsAreReadWhereTheDiskHasThem) {
    const TempFolder folder;
    const Text path = folder.File(u"in/old - name.mp3", test::Noise(200));
    ElsewhereDisk disk;
    disk.At = path;
    disk.Contents = folder.File(u"elsewhere", test::WholeTag(test::TextFrame("TPE1", "Abba") +
                                                             test::TextFrame("TIT2", "Waterloo")) +
                                                  test::Noise(200) + test::Trailer("x"));
    Settings values;
    const ReplacementList replacements;
    FileList list;
    list.Append({path});
    list.SelectAll();
    SortChoices choices;
    choices.Method = SortMethod::Copy;
    choices.txtTargetDir = folder.Folder(u"out");
    choices.chkGenre = true;
    choices.OutPattern = u"%artist - %title.mp3";
    ScriptedPrompts prompts;
    const NamingContext naming{values, replacements, values.InPattern};
    SortRun run(list, choices, SortStart::All, naming, disk, prompts);
    while (run.Step()) {
    }
    EXPECT_EQ(ListTree(choices.txtTargetDir),
              (std::vector<Bytes>{"Rock/", "Rock/Abba - Waterloo.mp3"}));
    // Once for the name and the genre together.
    EXPECT_EQ(disk.TimesAsked, 1);
}

}  // namespace
}  // namespace mdlPLM
