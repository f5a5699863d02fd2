#include "widgets/file_lists.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>

namespace vellum {
namespace {

constexpr int patience = 20000;  // milliseconds until a condition counts as never met

void Touch(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
}

std::string Text(const QStringList& names) {
    return names.join('|').toStdString();
}

class FileLists : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(folder_.isValid()); }
    [[nodiscard]] QString At(const QString& name = {}) const {
        return name.isEmpty() ? folder_.path() : folder_.filePath(name);
    }
    void MakeFolder(const QString& name) const { ASSERT_TRUE(QDir(At()).mkpath(name)); }

    static bool Becomes(const FileList& list, const QStringList& names) {
        return QTest::qWaitFor([&] { return list.Names() == names; }, patience);
    }
    // The texts of the rows below the shown folder.
    static QStringList Below(const DirectoryList& list) {
        QStringList names;
        const auto parts = list.Path().split('/', Qt::SkipEmptyParts).size();
        for (int row = static_cast<int>(parts) + 1; row < list.count(); ++row) names << list.item(row)->text();
        return names;
    }
    static bool Becomes(const DirectoryList& list, const QStringList& names) {
        return QTest::qWaitFor([&] { return Below(list) == names; }, patience);
    }

    QTemporaryDir folder_;
};

TEST_F(FileLists, NamesAreSortedWithoutRegardToCase) {
    for (const char* name : {"b.htm", "A.htm", "a.htm", "C.htm", "10.htm", "9.htm"}) Touch(At(name));
    MakeFolder("aa");
    EXPECT_EQ(Text(NamesIn(At(), FolderContent::Files)), "10.htm|9.htm|A.htm|a.htm|b.htm|C.htm");
    EXPECT_EQ(Text(NamesIn(At(), FolderContent::Folders)), "aa");
}

TEST_F(FileLists, OddNamesAreListed) {
    const QStringList odd{".htaccess",
                          " leading",
                          "two words.htm",
                          "it's \"so\".htm",
                          "a#b%20?.htm",
                          "line\nend.htm",
                          "\u00fcber.htm",
                          "\u4e2d\u6587.htm",
                          QStringLiteral("\U0001F600.htm"),
                          "back\\slash.htm",
                          "-dash"};
    for (const QString& name : odd) Touch(At(name));
    QStringList expected = odd;
    std::sort(expected.begin(), expected.end(), NameBefore);
    EXPECT_EQ(Text(NamesIn(At(), FolderContent::Files)), Text(expected));
}

TEST_F(FileLists, LinksCountAsWhatTheyLeadTo) {
    Touch(At("page.htm"));
    MakeFolder("pages");
    ASSERT_TRUE(QFile::link(At("page.htm"), At("to-file")));
    ASSERT_TRUE(QFile::link(At("pages"), At("to-folder")));
    ASSERT_TRUE(QFile::link(At("missing"), At("to-nowhere")));
    EXPECT_EQ(Text(NamesIn(At(), FolderContent::Files)), "page.htm|to-file");
    EXPECT_EQ(Text(NamesIn(At(), FolderContent::Folders)), "pages|to-folder");
}

TEST_F(FileLists, NoNamesWhereThereIsNoFolder) {
    Touch(At("page.htm"));
    EXPECT_TRUE(NamesIn(At("missing"), FolderContent::Files).isEmpty());
    EXPECT_TRUE(NamesIn(At("page.htm"), FolderContent::Files).isEmpty());
    EXPECT_TRUE(NamesIn("", FolderContent::Files).isEmpty());
    EXPECT_FALSE(IsReadableFolder(""));
    EXPECT_FALSE(IsReadableFolder(At("page.htm")));
    EXPECT_FALSE(IsReadableFolder(At("missing")));
    EXPECT_TRUE(IsReadableFolder(At()));
}

TEST_F(FileLists, PlacesAreTheRootTheHomeAndMedia) {
    const QByteArray table =
        "/dev/sda1 / ext4 rw 0 0\n"
        "proc /proc proc rw 0 0\n"
        "/dev/sdc1 /media/me/stick vfat rw 0 0\n"
        "/dev/sdb1 /run/media/me/My\\040Disk vfat rw 0 0\n"
        "/dev/sdb1 /run/media/me/My\\040Disk vfat rw 0 0\n"
        "systemd-1 /mnt/auto autofs rw 0 0\n"
        "broken\n";
    const std::vector<Place> expected{
        {"File System", "/"}, {"Home", "/home/me"}, {"My Disk", "/run/media/me/My Disk"}, {"stick", "/media/me/stick"}};
    EXPECT_EQ(PlacesFrom(table, "/home/me"), expected);
    EXPECT_EQ(PlacesFrom("", "/"), (std::vector<Place>{{"File System", "/"}}));
}

TEST_F(FileLists, ThePlaceOfAPathIsTheClosest) {
    const std::vector<Place> places{{"File System", "/"}, {"Home", "/home/me"}, {"Stick", "/media/me/stick"}};
    EXPECT_EQ(PlaceHolding(places, "/"), 0);
    EXPECT_EQ(PlaceHolding(places, "/home"), 0);
    EXPECT_EQ(PlaceHolding(places, "/home/me"), 1);
    EXPECT_EQ(PlaceHolding(places, "/home/me/site"), 1);
    EXPECT_EQ(PlaceHolding(places, "/home/meg/site"), 0);
    EXPECT_EQ(PlaceHolding(places, "/media/me/stick/site"), 2);
    EXPECT_EQ(PlaceHolding(places, "relative"), -1);
}

TEST_F(FileLists, DriveListChoosesAndTells) {
    DriveList list;
    EXPECT_EQ(list.Drive(), "/");
    const QSignalSpy told(&list, &DriveList::DriveChanged);
    ASSERT_TRUE(list.SetDrive(QDir::homePath()));
    EXPECT_EQ(list.Drive(), QDir::homePath());
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told.first().first().toString(), QDir::homePath());
    EXPECT_FALSE(list.SetDrive("/no/such/drive"));
    EXPECT_FALSE(list.SetDrive(""));
    EXPECT_EQ(list.Drive(), QDir::homePath());
    EXPECT_EQ(told.count(), 1);
    list.Refresh();
    EXPECT_EQ(list.Drive(), QDir::homePath());
}

TEST_F(FileLists, DriveListIsWalkedByKeys) {
    DriveList list;
    list.show();
    const QSignalSpy told(&list, &DriveList::DriveChanged);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.Drive(), QDir::homePath());
    EXPECT_EQ(told.count(), 1);
}

TEST_F(FileLists, DirectoryListShowsAncestorsAndFolders) {
    MakeFolder("site/Images");
    MakeFolder("site/css");
    MakeFolder("site/.well-known");
    Touch(At("site/page.htm"));
    DirectoryList list;
    ASSERT_TRUE(list.SetPath(At("site")));
    ASSERT_TRUE(Becomes(list, {".well-known", "css", "Images"}));
    const QStringList above = At("site").split('/', Qt::SkipEmptyParts);
    EXPECT_EQ(list.item(0)->text(), "/");
    for (int i = 0; i < above.size(); ++i) EXPECT_EQ(list.item(i + 1)->text(), above[i]);
    EXPECT_EQ(list.currentItem()->text(), "site");
}

TEST_F(FileLists, DirectoryListOpensByDoubleClickAndEnter) {
    MakeFolder("site/Images/small");
    DirectoryList list;
    list.resize(300, 400);
    list.show();
    ASSERT_TRUE(list.SetPath(At("site")));
    ASSERT_TRUE(Becomes(list, {"Images"}));
    const QSignalSpy told(&list, &DirectoryList::PathChanged);

    const QPoint images = list.visualItemRect(list.item(list.count() - 1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, images);
    EXPECT_EQ(list.Path(), At("site")) << "one click only selects";
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, images);
    EXPECT_EQ(list.Path(), At("site/Images"));
    ASSERT_TRUE(Becomes(list, {"small"}));

    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(list.Path(), At("site/Images/small"));
    QTest::keyClick(&list, Qt::Key_Up);
    QTest::keyClick(&list, Qt::Key_Up);
    QTest::keyClick(&list, Qt::Key_Enter);
    EXPECT_EQ(list.Path(), At("site"));
    QTest::keyClick(&list, Qt::Key_Backspace);
    EXPECT_EQ(list.Path(), At());
    EXPECT_EQ(told.count(), 4);
}

TEST_F(FileLists, DirectoryListStaysWhereAFolderIsMissing) {
    MakeFolder("site");
    DirectoryList list;
    ASSERT_TRUE(list.SetPath(At("site")));
    const QSignalSpy told(&list, &DirectoryList::PathChanged);
    EXPECT_FALSE(list.SetPath(At("missing")));
    EXPECT_FALSE(list.SetPath(""));
    EXPECT_EQ(list.Path(), At("site"));
    EXPECT_EQ(list.currentItem()->text(), "site");
    EXPECT_EQ(told.count(), 0);
}

TEST_F(FileLists, DirectoryListShowsTheRootOnce) {
    DirectoryList list;
    ASSERT_TRUE(list.SetPath("/"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.count() > 1; }, patience));
    EXPECT_EQ(list.item(0)->text(), "/");
    EXPECT_NE(list.item(1)->text(), "/");
    QTest::keyClick(&list, Qt::Key_Backspace);
    EXPECT_EQ(list.Path(), "/");
}

TEST_F(FileLists, DirectoryListFollowsTheDiskAndKeepsTheChosenRow) {
    MakeFolder("b");
    DirectoryList list;
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(Becomes(list, {"b"}));
    list.setCurrentRow(list.count() - 1);
    MakeFolder("a");
    ASSERT_TRUE(Becomes(list, {"a", "b"}));
    EXPECT_EQ(list.currentItem()->text(), "b");
}

TEST_F(FileLists, FileListTakesPathsWithATrailingSeparator) {
    FileList list;
    ASSERT_TRUE(list.SetPath(At() + "/"));
    EXPECT_EQ(list.Path(), At());
    ASSERT_TRUE(list.SetPath("/"));
    EXPECT_EQ(list.Path(), "/");
}

TEST_F(FileLists, FileListFollowsTheDisk) {
    Touch(At("b.htm"));
    FileList list;
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(Becomes(list, {"b.htm"}));
    Touch(At("A.htm"));
    ASSERT_TRUE(Becomes(list, {"A.htm", "b.htm"}));
    ASSERT_TRUE(QFile::rename(At("b.htm"), At("c.htm")));
    ASSERT_TRUE(Becomes(list, {"A.htm", "c.htm"}));
    ASSERT_TRUE(QFile::remove(At("A.htm")));
    ASSERT_TRUE(Becomes(list, {"c.htm"}));
}

TEST_F(FileLists, FileListKeepsTheSelectionOverChanges) {
    for (const char* name : {"b.htm", "d.htm"}) Touch(At(name));
    FileList list;
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(Becomes(list, {"b.htm", "d.htm"}));
    EXPECT_EQ(list.FileName(), QString());
    ASSERT_TRUE(list.SelectFile("d.htm"));
    EXPECT_FALSE(list.SelectFile("D.htm"));
    Touch(At("a.htm"));
    ASSERT_TRUE(Becomes(list, {"a.htm", "b.htm", "d.htm"}));
    EXPECT_EQ(list.FileName(), "d.htm");
    EXPECT_EQ(list.currentIndex().row(), 2);
    ASSERT_TRUE(QFile::remove(At("d.htm")));
    ASSERT_TRUE(Becomes(list, {"a.htm", "b.htm"}));
    EXPECT_EQ(list.FileName(), QString());
}

TEST_F(FileLists, FileListSurvivesARemovedFolderAndItsReturn) {
    MakeFolder("up/site");
    Touch(At("up/site/page.htm"));
    FileList list;
    ASSERT_TRUE(list.SetPath(At("up/site")));
    ASSERT_TRUE(Becomes(list, {"page.htm"}));
    ASSERT_TRUE(QDir(At("up")).removeRecursively());
    ASSERT_TRUE(Becomes(list, {}));
    EXPECT_EQ(list.Path(), At("up/site"));
    MakeFolder("up/site");
    Touch(At("up/site/new.htm"));
    ASSERT_TRUE(Becomes(list, {"new.htm"}));
    Touch(At("up/site/newer.htm"));
    ASSERT_TRUE(Becomes(list, {"new.htm", "newer.htm"}));
}

TEST_F(FileLists, FileListSeesItsFolderRenamedAway) {
    MakeFolder("site");
    Touch(At("site/page.htm"));
    FileList list;
    ASSERT_TRUE(list.SetPath(At("site")));
    ASSERT_TRUE(Becomes(list, {"page.htm"}));
    ASSERT_TRUE(QDir(At()).rename("site", "old"));
    ASSERT_TRUE(Becomes(list, {}));
}

TEST_F(FileLists, FileListReadsTheLastFolderThatWasAskedFor) {
    MakeFolder("many");
    MakeFolder("few");
    for (int i = 0; i < 2000; ++i) Touch(At(QString("many/%1.htm").arg(i)));
    Touch(At("few/one.htm"));
    FileList list;
    QStringList seen;
    QObject::connect(list.findChild<FolderReader*>(), &FolderReader::Read, [&] { seen << list.Names(); });
    ASSERT_TRUE(list.SetPath(At("many")));
    ASSERT_TRUE(list.SetPath(At("few")));
    ASSERT_TRUE(Becomes(list, {"one.htm"}));
    EXPECT_EQ(Text(seen), "one.htm") << "names of the first folder never stand under the second";
}

TEST_F(FileLists, FileListOpensByDoubleClickAndEnter) {
    for (const char* name : {"a b.htm", "c.htm"}) Touch(At(name));
    FileList list;
    list.resize(200, 200);
    list.show();
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(Becomes(list, {"a b.htm", "c.htm"}));
    const QSignalSpy told(&list, &FileList::FileActivated);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(told.count(), 0) << "nothing is selected yet";
    const QPoint first = list.visualRect(list.model()->index(0, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, first);
    EXPECT_EQ(told.count(), 0);
    EXPECT_EQ(list.FileName(), "a b.htm");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, first);
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told[0][0].toString(), At("a b.htm"));
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Enter);
    ASSERT_EQ(told.count(), 2);
    EXPECT_EQ(told[1][0].toString(), At("c.htm"));
}

TEST_F(FileLists, AnAwaitedFileIsSelectedWhenItComes) {
    Touch(At("a.htm"));
    FileList list;
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(Becomes(list, {"a.htm"}));
    list.SelectWhenListed("a.htm");
    EXPECT_EQ(list.FileName(), "a.htm");
    list.SelectWhenListed("b.htm");
    Touch(At("b.htm"));
    ASSERT_TRUE(Becomes(list, {"a.htm", "b.htm"}));
    EXPECT_EQ(list.FileName(), "b.htm");
    ASSERT_TRUE(list.SelectFile("a.htm"));
    Touch(At("c.htm"));
    ASSERT_TRUE(Becomes(list, {"a.htm", "b.htm", "c.htm"}));
    EXPECT_EQ(list.FileName(), "a.htm") << "it is awaited once";
}

TEST_F(FileLists, WhatThePersonDoesEndsTheWaiting) {
    Touch(At("a.htm"));
    FileList list;
    list.resize(200, 200);
    list.show();
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(Becomes(list, {"a.htm"}));
    list.SelectWhenListed("b.htm");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(0, 0)).center());
    Touch(At("b.htm"));
    ASSERT_TRUE(Becomes(list, {"a.htm", "b.htm"}));
    EXPECT_EQ(list.FileName(), "a.htm");
    list.SelectWhenListed("c.htm");
    QTest::keyClick(&list, Qt::Key_Down);
    Touch(At("c.htm"));
    ASSERT_TRUE(Becomes(list, {"a.htm", "b.htm", "c.htm"}));
    EXPECT_EQ(list.FileName(), "b.htm");
}

TEST_F(FileLists, DownGoesOnWhereAFileHasGone) {
    for (const char* name : {"a.htm", "b.htm", "c.htm", "d.htm"}) Touch(At(name));
    FileList list;
    list.resize(200, 200);
    list.show();
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(Becomes(list, {"a.htm", "b.htm", "c.htm", "d.htm"}));
    ASSERT_TRUE(list.SelectFile("c.htm"));
    ASSERT_TRUE(QFile::remove(At("c.htm")));
    ASSERT_TRUE(Becomes(list, {"a.htm", "b.htm", "d.htm"}));
    EXPECT_EQ(list.FileName(), "");
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.FileName(), "d.htm");
}

TEST_F(FileLists, ToolTipsTakeNoNameForMarkup) {
    MakeFolder("<i>x");
    Touch(At("<b>bold.htm"));
    FileList files;
    ASSERT_TRUE(files.SetPath(At()));
    ASSERT_TRUE(Becomes(files, {"<b>bold.htm"}));
    const QModelIndex row = files.model()->index(0, 0);
    EXPECT_EQ(row.data(Qt::ToolTipRole).toString(), "<p style='white-space:pre'>&lt;b&gt;bold.htm</p>");
    DirectoryList folders;
    ASSERT_TRUE(folders.SetPath(At()));
    ASSERT_TRUE(Becomes(folders, {"<i>x"}));
    EXPECT_TRUE(folders.item(folders.count() - 1)->toolTip().endsWith("/&lt;i&gt;x</p>"));
}

TEST_F(FileLists, ALineEndInANameShowsInItsRowAndStaysInTheName) {
    Touch(At("two\nlines.htm"));
    FileList list;
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.SelectFile("two\nlines.htm"); }));
    EXPECT_EQ(list.currentIndex().data().toString(), QString("two%1lines.htm").arg(QChar(0x2424)));
    EXPECT_EQ(list.FileName(), "two\nlines.htm");
    const QSignalSpy activated(&list, &FileList::FileActivated);
    QTest::keyClick(&list, Qt::Key_Return);
    ASSERT_EQ(activated.size(), 1);
    EXPECT_EQ(activated[0][0].toString(), At("two\nlines.htm"));
}

TEST_F(FileLists, AFolderWithALineEndInItsNameOpensFromItsRow) {
    MakeFolder("two\nlines");
    DirectoryList list;
    ASSERT_TRUE(list.SetPath(At()));
    ASSERT_TRUE(Becomes(list, {QString("two%1lines").arg(QChar(0x2424))}));
    list.setCurrentRow(list.count() - 1);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(list.Path(), At("two\nlines"));
}

TEST_F(FileLists, FileInTheRootHasNoDoubledSeparator) {
    // Whatever files a machine has in its root, the path of one starts with a single separator.
    FileList list;
    QString opened;
    QObject::connect(&list, &FileList::FileActivated, [&](const QString& path) { opened = path; });
    const QStringList files = NamesIn("/", FolderContent::Files);
    if (files.isEmpty()) GTEST_SKIP() << "no file stands in the root here";
    ASSERT_TRUE(list.SetPath("/"));
    ASSERT_TRUE(Becomes(list, files));
    ASSERT_TRUE(list.SelectFile(files.first()));
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(opened, "/" + files.first());
}

}  // namespace
}  // namespace vellum
