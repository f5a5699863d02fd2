#include "website/website_panel.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace vellum {
namespace {

constexpr int patience = 30000;  // milliseconds until a condition counts as never met

void Touch(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
}

class Panel : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        ASSERT_TRUE(QDir(folder_.path()).mkpath("site/images"));
        Touch(Place("site/index.htm"));
        Touch(Place("site/About us.htm"));
        Touch(Place("site/images/logo.gif"));
    }
    [[nodiscard]] QString Place(const QString& name) const { return folder_.filePath(name); }
    static bool Lists(const WebsitePanel& panel, const QStringList& names) {
        return QTest::qWaitFor([&] { return panel.File2->Names() == names; }, patience);
    }

    QTemporaryDir folder_;
};

TEST_F(Panel, ControlsBearTheirNames) {
    WebsitePanel panel;
    EXPECT_EQ(panel.objectName(), "Picture11");
    for (const char* name : {"Picture2", "Drive1", "Dir1", "File2", "TreeView1"}) {
        const auto* control = panel.findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
        ASSERT_NE(control, nullptr) << name;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << name;
    }
    EXPECT_EQ(panel.TreeView1->model()->rowCount(), 0);
}

TEST_F(Panel, DirectoryMovesTheFiles) {
    WebsitePanel panel;
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    EXPECT_EQ(panel.FilePath(), Place("site"));
    ASSERT_TRUE(Lists(panel, {"About us.htm", "index.htm"}));
    ASSERT_TRUE(panel.SetDirectory(Place("site/images")));
    ASSERT_TRUE(Lists(panel, {"logo.gif"}));
}

TEST_F(Panel, DriveMovesDirectoryAndFiles) {
    WebsitePanel panel;
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    ASSERT_TRUE(panel.SetDrive(QDir::homePath()));
    EXPECT_EQ(panel.Drive(), QDir::homePath());
    EXPECT_EQ(panel.Directory(), QDir::homePath());
    EXPECT_EQ(panel.FilePath(), QDir::homePath());
}

TEST_F(Panel, ADriveThatIsPickedMovesDirectoryAndFiles) {
    WebsitePanel panel;
    panel.show();
    ASSERT_TRUE(panel.SetDrive(QDir::homePath()));
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    panel.Drive1->setFocus();
    QTest::keyClick(panel.Drive1, Qt::Key_Up);
    EXPECT_EQ(panel.Directory(), "/");
    EXPECT_EQ(panel.FilePath(), "/");
}

TEST_F(Panel, PickingTheSameDriveComesBackToIt) {
    WebsitePanel panel;
    panel.show();
    ASSERT_TRUE(panel.SetDrive("/"));
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    panel.Drive1->showPopup();
    QTest::keyClick(panel.Drive1->view(), Qt::Key_Return);
    EXPECT_EQ(panel.Drive(), "/");
    EXPECT_EQ(panel.Directory(), "/");
}

TEST_F(Panel, FilesMayShowAnotherDirectory) {
    WebsitePanel panel;
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    ASSERT_TRUE(panel.SetFilePath(Place("site/images")));
    EXPECT_EQ(panel.Directory(), Place("site"));
    ASSERT_TRUE(Lists(panel, {"logo.gif"}));
}

TEST_F(Panel, MissingPathsLeaveEverythingAsItWas) {
    WebsitePanel panel;
    ASSERT_TRUE(panel.SetDrive("/"));
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    ASSERT_TRUE(Lists(panel, {"About us.htm", "index.htm"}));
    EXPECT_FALSE(panel.SetDrive(Place("gone")));
    EXPECT_FALSE(panel.SetDirectory(Place("gone")));
    EXPECT_FALSE(panel.SetFilePath(Place("gone")));
    EXPECT_FALSE(panel.SetFilePath(Place("site/index.htm"))) << "a file is no directory";
    EXPECT_FALSE(panel.SetFilePath(""));
    EXPECT_EQ(panel.Drive(), "/");
    EXPECT_EQ(panel.Directory(), Place("site"));
    EXPECT_EQ(panel.FilePath(), Place("site"));
    EXPECT_EQ(panel.File2->Names(), QStringList({"About us.htm", "index.htm"}));
}

TEST_F(Panel, TwentyThousandFilesAreListedBehindTheWindow) {
    ASSERT_TRUE(QDir(folder_.path()).mkpath("big"));
    const int big = ::open(QFile::encodeName(Place("big")).constData(), O_RDONLY | O_DIRECTORY);
    ASSERT_GE(big, 0);
    for (int i = 0; i < 20000; ++i) {
        const int file = ::openat(big, QByteArray("page-" + QByteArray::number(100000 + i) + ".htm").constData(),
                                  O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
        ASSERT_GE(file, 0);
        ::close(file);
    }
    ::close(big);

    WebsitePanel panel;
    panel.show();
    ASSERT_TRUE(panel.SetFilePath(Place("big")));
    EXPECT_EQ(panel.File2->Names().size(), 0) << "the call comes back before the names are there";
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.File2->Names().size() == 20000; }, patience));
    EXPECT_EQ(panel.File2->Names().first(), "page-100000.htm");
    EXPECT_EQ(panel.File2->Names().last(), "page-119999.htm");

    Touch(Place("big/aa.htm"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.File2->Names().size() == 20001; }, patience));
    EXPECT_EQ(panel.File2->Names().first(), "aa.htm");
}

TEST_F(Panel, ChangesOnDiskShowWithoutAsking) {
    WebsitePanel panel;
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    ASSERT_TRUE(Lists(panel, {"About us.htm", "index.htm"}));
    Touch(Place("site/caching.htm"));
    ASSERT_TRUE(Lists(panel, {"About us.htm", "caching.htm", "index.htm"}));
}

TEST_F(Panel, RefreshReadsAgain) {
    WebsitePanel panel;
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    ASSERT_TRUE(Lists(panel, {"About us.htm", "index.htm"}));
    const QSignalSpy listed(panel.File2->findChild<FolderReader*>(), &FolderReader::Read);
    panel.Refresh();
    ASSERT_TRUE(QTest::qWaitFor([&] { return listed.count() > 0; }, patience));
    EXPECT_EQ(panel.File2->Names(), QStringList({"About us.htm", "index.htm"}));
}

TEST_F(Panel, ARemovedDirectoryEmptiesTheListAndCanBeLeft) {
    WebsitePanel panel;
    ASSERT_TRUE(panel.SetDirectory(Place("site/images")));
    ASSERT_TRUE(Lists(panel, {"logo.gif"}));
    ASSERT_TRUE(QDir(Place("site/images")).removeRecursively());
    ASSERT_TRUE(Lists(panel, {}));
    EXPECT_EQ(panel.FilePath(), Place("site/images"));
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    ASSERT_TRUE(Lists(panel, {"About us.htm", "index.htm"}));
}

TEST_F(Panel, DoubleClickAndEnterOpenAFile) {
    WebsitePanel panel;
    panel.show();
    ASSERT_TRUE(panel.SetDirectory(Place("site")));
    ASSERT_TRUE(Lists(panel, {"About us.htm", "index.htm"}));
    const QSignalSpy told(&panel, &WebsitePanel::FileActivated);
    const QPoint first = panel.File2->visualRect(panel.File2->model()->index(0, 0)).center();
    QTest::mouseClick(panel.File2->viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(panel.File2->viewport(), Qt::LeftButton, {}, first);
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told[0][0].toString(), Place("site/About us.htm"));
    QTest::keyClick(panel.File2, Qt::Key_Return);
    EXPECT_EQ(told.count(), 2);
}

TEST_F(Panel, PointerOverAListGivesItsHint) {
    WebsitePanel panel;
    panel.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
    QStringList hints;
    QObject::connect(&panel, &WebsitePanel::Hint, [&](const QString& text) { hints << text; });
    QTest::mouseMove(panel.Dir1->viewport(), {20, 20});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !hints.isEmpty(); }, patience));
    EXPECT_EQ(hints.last(), "The Directory Listbox");
    QTest::mouseMove(panel.File2->viewport(), {20, 20});
    ASSERT_TRUE(QTest::qWaitFor([&] { return hints.last() == "The files in the web site directory."; }, patience));
}

TEST_F(Panel, ListsFitTheHeightWithAMarginOfOnePixel) {
    WebsitePanel panel;
    panel.show();
    panel.ApplyLists({3, 7, 180, 24}, {3, 32, 180, 10}, {186, 7, 153, 10}, {342, 7, 200, 10});
    for (const int height : {300, 100}) {
        panel.resize(600, height);
        EXPECT_EQ(panel.Dir1->geometry(), QRect(3, 32, 180, height - 32 - 1));
        EXPECT_EQ(panel.File2->geometry(), QRect(186, 7, 153, height - 7 - 1));
        EXPECT_EQ(panel.TreeView1->geometry(), QRect(342, 7, 200, height - 7 - 1));
        EXPECT_EQ(panel.Drive1->geometry(), QRect(3, 7, 180, 24));
    }
    panel.resize(600, 7);
    EXPECT_EQ(panel.Dir1->height(), 0);
}

TEST_F(Panel, ListsStandSideBySideFromTheStart) {
    const WebsitePanel panel;
    EXPECT_EQ(panel.Drive1->width(), 180);
    EXPECT_EQ(panel.Dir1->width(), 180);
    EXPECT_EQ(panel.File2->width(), 153);
    EXPECT_EQ(panel.File2->x(), panel.Dir1->x() + 180 + 3);
    EXPECT_EQ(panel.TreeView1->x(), panel.File2->x() + 153 + 3);
    EXPECT_GE(panel.Dir1->y(), panel.Drive1->y() + panel.Drive1->height());
    EXPECT_GE(panel.Drive1->y(), panel.Picture2->y() + panel.Picture2->height());
}

TEST_F(Panel, DragBarTellsWhereThePointerIs) {
    WebsitePanel panel;
    panel.show();
    const QSignalSpy dragged(panel.Picture2, &DragBar::Dragged);
    const QSignalSpy released(panel.Picture2, &DragBar::Released);
    EXPECT_EQ(panel.Picture2->cursor().shape(), Qt::SplitVCursor);

    const auto send = [&](QEvent::Type type, int y, Qt::MouseButton button, Qt::MouseButtons buttons) {
        const QPointF at(50, y);
        QMouseEvent event(type, at, panel.Picture2->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(panel.Picture2, &event);
    };
    send(QEvent::MouseMove, 2, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(dragged.count(), 0) << "a pointer that only passes drags nothing";
    send(QEvent::MouseButtonPress, 2, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, -40, Qt::NoButton, Qt::LeftButton);
    ASSERT_EQ(dragged.count(), 1);
    EXPECT_EQ(dragged[0][0].toInt(), -40);
    send(QEvent::MouseButtonRelease, -41, Qt::LeftButton, Qt::NoButton);
    ASSERT_EQ(released.count(), 1);
    EXPECT_EQ(released[0][0].toInt(), -41);

    send(QEvent::MouseButtonPress, 2, Qt::RightButton, Qt::RightButton);
    send(QEvent::MouseMove, 90, Qt::NoButton, Qt::RightButton);
    send(QEvent::MouseButtonRelease, 90, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(dragged.count(), 1);
    EXPECT_EQ(released.count(), 1);
}

TEST_F(Panel, DragBarMovesByKeys) {
    WebsitePanel panel;
    panel.show();
    const QSignalSpy released(panel.Picture2, &DragBar::Released);
    QTest::keyClick(panel.Picture2, Qt::Key_Up);
    QTest::keyClick(panel.Picture2, Qt::Key_Down);
    QTest::keyClick(panel.Picture2, Qt::Key_Left);
    ASSERT_EQ(released.count(), 2);
    // A release makes the panel higher by half the bar less the position: up by a step, then down by one.
    const int half = panel.Picture2->height() / 2;
    EXPECT_EQ(half - released[0][0].toInt(), DragBar::keyStep);
    EXPECT_EQ(half - released[1][0].toInt(), -DragBar::keyStep);
}

}  // namespace
}  // namespace vellum
