#include "shell/recent_files.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(RecentFiles, PutsTheNewestInFrontAndDropsTheFifth) {
    RecentFileList list;
    EXPECT_EQ(list.Slot(0), "");
    for (const char* path : {"/a", "/b", "/c", "/d", "/e"}) EXPECT_TRUE(list.Add(path));
    EXPECT_EQ(list.Slot(0), "/e");
    EXPECT_EQ(list.Slot(1), "/d");
    EXPECT_EQ(list.Slot(2), "/c");
    EXPECT_EQ(list.Slot(3), "/b");
}

TEST(RecentFiles, KeepsTheOrderWhenAListedFileComesAgain) {
    RecentFileList list;
    for (const char* path : {"/a", "/b", "/c"}) list.Add(path);
    EXPECT_FALSE(list.Add("/a"));
    EXPECT_EQ(list.Slot(0), "/c");
    EXPECT_EQ(list.Slot(2), "/a");
}

TEST(RecentFiles, ComparesWithCase) {
    RecentFileList list;
    list.Add("/a.htm");
    EXPECT_TRUE(list.Add("/A.htm"));
    EXPECT_EQ(list.Slot(1), "/a.htm");
}

}  // namespace
}  // namespace vellum
