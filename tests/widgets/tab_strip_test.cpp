#include "widgets/tab_strip.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class TabStripTest : public testing::Test {
protected:
    TabStripTest() {
        strip.AddTab("Preview", "Previews the HTML Document");
        strip.AddTab("Multi");
        strip.AddTab("Visual");
        strip.resize(400, 40);
        strip.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&strip));
    }

    [[nodiscard]] QPoint CenterOf(int index) const { return strip.tabRect(index - 1).center(); }

    TabStrip strip;
    QSignalSpy clicked{&strip, &TabStrip::TabClicked};
};

TEST_F(TabStripTest, CountsTabsFromOne) {
    EXPECT_EQ(strip.AddTab("Split", "Shifts"), 4);
    EXPECT_EQ(strip.Caption(1), "Preview");
    EXPECT_EQ(strip.Caption(4), "Split");
    EXPECT_EQ(strip.tabToolTip(3), "Shifts");
    strip.SetCaption(2, "Many");
    EXPECT_EQ(strip.Caption(2), "Many");
    EXPECT_EQ(strip.Caption(9), QString());
}

TEST_F(TabStripTest, AnAmpersandShowsAndTakesNoLetter) {
    strip.SetCaption(2, "&nbsp; && R&D");
    EXPECT_EQ(strip.Caption(2), "&nbsp; && R&D");
    EXPECT_EQ(strip.tabText(1), "&&nbsp; &&&& R&&D");
    EXPECT_EQ(strip.Caption(strip.AddTab("&File")), "&File");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&strip));
    QTest::keyClick(&strip, Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(strip.currentIndex(), 0);
}

TEST_F(TabStripTest, AClickOnAnyTabIsReported) {
    QTest::mouseClick(&strip, Qt::LeftButton, {}, CenterOf(2));
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.takeFirst().at(0).toInt(), 2);
    QTest::mouseClick(&strip, Qt::LeftButton, {}, CenterOf(2));  // the same again, now the current one
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.takeFirst().at(0).toInt(), 2);
    QTest::mouseClick(&strip, Qt::LeftButton, {}, CenterOf(1));
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.takeFirst().at(0).toInt(), 1);
}

TEST_F(TabStripTest, ReleasingElsewhereReportsNothing) {
    QTest::mousePress(&strip, Qt::LeftButton, {}, CenterOf(1));
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, CenterOf(3));
    QTest::mouseClick(&strip, Qt::RightButton, {}, CenterOf(2));
    QTest::mouseClick(&strip, Qt::LeftButton, {}, QPoint(395, 5));  // beside the tabs
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(TabStripTest, KeysReportTheTabWithTheFocus) {
    strip.setFocus();
    QTest::keyClick(&strip, Qt::Key_Right);
    EXPECT_EQ(clicked.count(), 0);  // moving alone runs no command
    QTest::keyClick(&strip, Qt::Key_Return);
    QTest::keyClick(&strip, Qt::Key_Space);
    ASSERT_EQ(clicked.count(), 2);
    EXPECT_EQ(clicked.at(0).at(0).toInt(), 2);
    EXPECT_EQ(clicked.at(1).at(0).toInt(), 2);
}

TEST_F(TabStripTest, NoTabLooksSelectedAndTheFocusShows) {
    strip.clearFocus();
    const auto imageOf = [&](int index) { return strip.grab(strip.tabRect(index - 1)).toImage(); };
    strip.setCurrentIndex(0);
    const QImage current = imageOf(1);
    strip.setCurrentIndex(2);
    EXPECT_EQ(imageOf(1), current);
    strip.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&strip));
    strip.setCurrentIndex(0);
    strip.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(strip.hasFocus());
    EXPECT_NE(imageOf(1), current);
}

}  // namespace
}  // namespace vellum
