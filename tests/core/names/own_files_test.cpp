#include "core/names/own_files.h"

#include <gtest/gtest.h>

#include "tests/support/recording_disk.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

TEST(OwnFiles, AreKnownByTheirNamesInAnyLetterCase) {
    MemoryDisk disk;
    OwnFiles files;
    EXPECT_FALSE(files.Contains(u"/a/One.mp3", disk));
    files.Add(u"/a/One.mp3", disk);
    EXPECT_TRUE(files.Contains(u"/a/One.mp3", disk));
    EXPECT_TRUE(files.Contains(u"/a/oNE.mp3", disk));
    EXPECT_FALSE(files.Contains(u"/b/One.mp3", disk));
}

TEST(OwnFiles, AreKnownByAnyWayThatLeadsToThem) {
    const TempFolder folder;
    SystemDisk disk;
    OwnFiles files;
    files.Add(folder.File(u"real/one.mp3"), disk);
    const Text link = folder.Link(u"linked", u"real");
    EXPECT_TRUE(files.Contains(link + u"/one.mp3", disk));
    EXPECT_TRUE(files.Contains(folder / u"real//one.mp3", disk));
    static_cast<void>(folder.File(u"real/two.mp3"));
    EXPECT_FALSE(files.Contains(link + u"/two.mp3", disk));
}

}  // namespace
}  // namespace mdlPLM
