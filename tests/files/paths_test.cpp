#include "files/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(Paths, JoinGivesTheRootNoSecondSeparator) {
    EXPECT_EQ(JoinPath("/", "caching.htm"), "/caching.htm");
    EXPECT_EQ(JoinPath("/home/me/site", "caching.htm"), "/home/me/site/caching.htm");
    EXPECT_EQ(JoinPath("/home/me/site/", "caching.htm"), "/home/me/site/caching.htm");
    EXPECT_EQ(JoinPath("", "caching.htm"), "caching.htm");
}

TEST(Paths, OwnDirectoryIsMade) {
    const QString own = OwnDirectory();
    EXPECT_EQ(own, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Vellumcraft");
    EXPECT_TRUE(QDir(own).exists());
    EXPECT_EQ(OwnDirectory(), own);
}

TEST(Paths, DataLiesBesideTheBinaryInShareOrInTheSources) {
    const QTemporaryDir folder;
    const auto put = [&](const QString& relative) {
        QDir(folder.path()).mkpath(QFileInfo(relative).path());
        ASSERT_TRUE(QFile(folder.filePath(relative)).open(QIODevice::WriteOnly));
    };
    const QString program = folder.filePath("build/dev/bin");
    QDir().mkpath(program);
    put("data/Dtd/svg.dtd");
    EXPECT_EQ(DataPathFrom(program, "Dtd/svg.dtd"), QString()) << "not a source tree without its build file";
    put("CMakePresets.json");
    EXPECT_EQ(DataPathFrom(program, "Dtd/svg.dtd"), folder.filePath("data/Dtd/svg.dtd"));
    EXPECT_EQ(DataPathFrom(program, "Dtd"), folder.filePath("data/Dtd"));
    put("build/dev/share/vellumcraft/Dtd/svg.dtd");
    EXPECT_EQ(DataPathFrom(program, "Dtd/svg.dtd"), folder.filePath("build/dev/share/vellumcraft/Dtd/svg.dtd"));
    put("build/dev/bin/Dtd/svg.dtd");
    EXPECT_EQ(DataPathFrom(program, "Dtd/svg.dtd"), folder.filePath("build/dev/bin/Dtd/svg.dtd"));
    EXPECT_EQ(DataPathFrom(program, "Dtd/missing.dtd"), QString());
    EXPECT_EQ(DataPathFrom(program, ""), QString());
}

TEST(Paths, DataOfTheRunningProgram) {
    EXPECT_EQ(DataPath("no/such/data"), QString());
    EXPECT_EQ(DataPath(QFileInfo(QCoreApplication::applicationFilePath()).fileName()),
              QCoreApplication::applicationFilePath());
}

}  // namespace
}  // namespace vellum
