#include "system/file_search.h"

#include "tests/system/script_folder.h"

namespace vellum {
namespace {

class FileSearch : public test::ScriptFolder {};

TEST_F(FileSearch, EachProgramIsToldTheFolderInItsOwnWay) {
    EXPECT_EQ(FileSearchCommand("/media/my disk"), QStringList());
    const auto bin = [this](const QString& name) { return folder.filePath("bin/" + name); };
    AddScript("pcmanfm");
    EXPECT_EQ(FileSearchCommand("/media/my disk"), QStringList({bin("pcmanfm"), "--find-files", "/media/my disk"}));
    AddScript("mate-search-tool");
    EXPECT_EQ(FileSearchCommand("/media/my disk"), QStringList({bin("mate-search-tool"), "--path=/media/my disk"}));
    AddScript("kfind");
    EXPECT_EQ(FileSearchCommand("/media/my disk"), QStringList({bin("kfind"), "/media/my disk"}));
    AddScript("catfish");
    EXPECT_EQ(FileSearchCommand("/media/my disk"), QStringList({bin("catfish"), "--path=/media/my disk"}));
}

TEST_F(FileSearch, StartsTheProgram) {
    AddScript("xdg-open");
    AddScript("kfind");
    EXPECT_TRUE(StartFileSearch(folder.path()));
    EXPECT_EQ(TakeNote().mid(1), QStringList({"1", folder.path()}));
}

TEST_F(FileSearch, OpensTheFolderWhereThereIsNoSearch) {
    EXPECT_FALSE(StartFileSearch(folder.filePath("gone")));
    AddScript("xdg-open");
    EXPECT_TRUE(StartFileSearch(folder.path()));
    EXPECT_EQ(TakeNote().mid(1), QStringList({"1", folder.path()}));
}

}  // namespace
}  // namespace vellum
