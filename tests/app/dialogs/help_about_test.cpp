#include <gtest/gtest.h>

#include "app/dialogs/about.h"
#include "app/dialogs/help.h"
#include "core/platform/path.h"
#include "tests/support/temp_folder.h"

namespace mdlPLM {
namespace {

TEST(AboutMessage, NamesProgramVersionAndTerms) {
    const Message about = AboutMessage(1, 0);
    EXPECT_EQ(about.Title, u"Pellmore");
    EXPECT_EQ(about.Body, u"Pellmore\r\nVersion: 1.0\r\nThis is FREEWARE! NO WARRANTY!");
    EXPECT_EQ(about.Detail, u"");
    EXPECT_EQ(AboutMessage(12, 345).Body,
              u"Pellmore\r\nVersion: 12.345\r\nThis is FREEWARE! NO WARRANTY!");
}

TEST(HelpFilePath, IsBesideTheProgramFirst) {
    TempFolder folder;
    SystemDisk disk;
    const Text program = folder.Folder(u"bin") + Separator;
    EXPECT_EQ(HelpFilePath(program, disk), folder / u"bin/plm.txt");
    const Text installed = folder.File(u"share/pellmore/plm.txt");
    EXPECT_TRUE(IsSameFile(HelpFilePath(program, disk), installed));
    const Text beside = folder.File(u"bin/plm.txt");
    EXPECT_EQ(HelpFilePath(program, disk), beside);
}

}  // namespace
}  // namespace mdlPLM
