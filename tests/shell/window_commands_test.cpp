// The window menu, the hint line and the panel of the main window.
#include "shell/toolbar.h"
#include "tests/shell/main_window_fixture.h"
#include "website/website_panel.h"

#include <QToolButton>

#include <algorithm>

namespace vellum::test {
namespace {

class WindowCommandsTest : public MainWindowFixture {
protected:
    // A main window of 1000 by 800 pixels with so many documents.
    void OpenDocuments(int count) {
        WriteSetting(settings, keys::windowState, "0");
        WriteSetting(settings, keys::windowTop, "0");
        WriteSetting(settings, keys::windowLeft, "0");
        WriteSetting(settings, keys::windowWidth, "15000");
        WriteSetting(settings, keys::windowHeight, "12000");
        Open();
        for (int i = 1; i < count; ++i) window->NewForm();
        ASSERT_EQ(Children().size(), count);
    }

    [[nodiscard]] QList<QMdiSubWindow*> Children() const { return window->area->subWindowList(); }
    [[nodiscard]] QRect Room() const { return window->area->viewport()->rect(); }

    // Where the children that are not minimised stand, from the top left on.
    [[nodiscard]] QList<QRect> Places() const {
        QList<QRect> places;
        for (const QMdiSubWindow* child : Children()) {
            EXPECT_TRUE(child->isVisible());
            EXPECT_FALSE(child->isMaximized());
            if (!child->isMinimized()) places << child->geometry();
        }
        std::sort(places.begin(), places.end(), [](const QRect& left, const QRect& right) {
            return std::pair(left.top(), left.left()) < std::pair(right.top(), right.left());
        });
        return places;
    }
};

TEST_F(WindowCommandsTest, TilesHorizontallyOneBelowTheOther) {
    OpenDocuments(3);
    ASSERT_TRUE(window->area->currentSubWindow()->isMaximized());
    Trigger("mnuWindowItem(1)");
    const QList<QRect> places = Places();
    ASSERT_EQ(places.size(), 3);
    int top = 0;
    for (const QRect& place : places) {
        EXPECT_EQ(place.left(), 0);
        EXPECT_EQ(place.width(), Room().width());
        EXPECT_EQ(place.top(), top) << "neither a gap nor an overlap";
        EXPECT_NEAR(place.height(), Room().height() / 3.0, 1);
        top = place.bottom() + 1;
    }
    EXPECT_EQ(top, Room().height());
}

TEST_F(WindowCommandsTest, TilesVerticallySideBySide) {
    OpenDocuments(3);
    Trigger("mnuWindowItem(2)");
    const QList<QRect> places = Places();
    ASSERT_EQ(places.size(), 3);
    int left = 0;
    for (const QRect& place : places) {
        EXPECT_EQ(place.top(), 0);
        EXPECT_EQ(place.height(), Room().height());
        EXPECT_EQ(place.left(), left) << "neither a gap nor an overlap";
        EXPECT_NEAR(place.width(), Room().width() / 3.0, 1);
        left = place.right() + 1;
    }
    EXPECT_EQ(left, Room().width());
}

TEST_F(WindowCommandsTest, TilesLeaveMinimisedDocumentsAlone) {
    OpenDocuments(3);
    Trigger("mnuWindowItem(2)");
    Children().constFirst()->showMinimized();
    ASSERT_TRUE(Children().constFirst()->isMinimized());
    Trigger("mnuWindowItem(1)");
    EXPECT_TRUE(Children().constFirst()->isMinimized());
    const QList<QRect> places = Places();
    ASSERT_EQ(places.size(), 2);
    EXPECT_EQ(places[0].height() + places[1].height(), Room().height());
}

TEST_F(WindowCommandsTest, CascadesEveryDocumentWithItsTitleInView) {
    OpenDocuments(3);
    Trigger("mnuWindowItem(0)");
    const QList<QRect> places = Places();
    ASSERT_EQ(places.size(), 3);
    for (const QRect& place : places) EXPECT_TRUE(Room().contains(place.topLeft()));
    for (int i = 1; i < 3; ++i) {
        EXPECT_GT(places[i].top(), places[i - 1].top());
        EXPECT_GT(places[i].left(), places[i - 1].left());
    }
}

TEST_F(WindowCommandsTest, ArrangesMinimisedDocumentsInARowAtTheBottom) {
    OpenDocuments(4);
    Trigger("mnuWindowItem(1)");
    const QList<QMdiSubWindow*> children = Children();
    const QRect open = children[3]->geometry();
    for (int i = 0; i < 3; ++i) {
        children[i]->showMinimized();
        children[i]->move(30 + i, 50 * i);
    }
    Trigger("mnuWindowItem(3)");
    int left = 0;
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(children[i]->isMinimized());
        EXPECT_EQ(children[i]->geometry().bottom(), Room().bottom());
        EXPECT_EQ(children[i]->x(), left);
        left += children[i]->width();
    }
    EXPECT_EQ(children[3]->geometry(), open);
}

TEST_F(WindowCommandsTest, ThePointerOverTheBackgroundClearsTheHint) {
    Open();
    Trigger("mnuClose");
    ASSERT_TRUE(Children().isEmpty());
    window->SetHint("something");
    ASSERT_EQ(Panel(3), "something");
    QTest::mouseMove(window->area->viewport(), {20, 20});
    QTest::mouseMove(window->area->viewport(), {24, 24});
    EXPECT_EQ(Panel(3), "");
}

struct Tip {
    ButtonArray array;
    int index;
    const char* toolTip;
    const char* hint;
};

TEST_F(WindowCommandsTest, EveryToolbarButtonHasItsTipAndItsHint) {
    using enum ButtonArray;
    constexpr auto browserTip = "Previews The Document In An External Browser";
    constexpr auto before = "before";
    const Tip tips[] = {
        {Command44, 0, "Creates a New Document", "Creates a new document"},
        {Command44, 1, "Opens an existing file", "Opens an existing XHTML or TXT file"},
        {Command44, 2, "Saves the Current Document", "Saves the document"},
        {Command44, 3, "Saves the Current Document With a Choice of a New Name", "Saves the document"},
        {Command44, 4, "Prints the Current Document", "Prints the document"},
        {Command44, 5, browserTip, "Previews the document in external browser"},
        {Command44, 6, "Closes the Current Document", "Closes the current document"},
        {Command44, 7, "Personal Scheduler", "Opens the personal information manager"},
        {Command44, 8, "Color-Codes  XHTML Syntax", "Color codes the XHTML code"},
        {Command44, 9, browserTip, before},
        {Command44, 10, browserTip, before},
        {Command93, 0, "Retrieves Files From Other Directories", "Copies files to website directory"},
        {Command93, 1, "Thumbnail Viewer", "Browses the images in the Website Directory"},
        {Command93, 2, "FTP File Transfer", "Transfers Files to an FTP Directory"},
        {Command93, 3, "Font Browser", "Previews all the fonts installed on the PC"},
    };
    Open();
    for (const auto& [array, index, toolTip, hint] : tips) {
        QToolButton* button = window->Picture1->Button(array, index);
        ASSERT_NE(button, nullptr) << toolTip;
        EXPECT_EQ(button->toolTip(), toolTip);
        window->SetHint(before);
        QTest::mouseMove(button, {3, 3});
        QTest::mouseMove(button, {6, 6});
        EXPECT_EQ(Panel(3), hint) << toolTip << " at " << index;
    }
    EXPECT_EQ(window->Picture1->findChildren<QToolButton*>().size(), static_cast<qsizetype>(std::size(tips)));
}

TEST_F(WindowCommandsTest, AHiddenPanelStaysHidden) {
    WriteSetting(settings, keys::picture11, "False");
    Open();
    EXPECT_FALSE(window->Picture11->isVisible());
    EXPECT_FALSE(window->findChild<QAction*>("mnuViewItem(3)")->isChecked());
    Trigger("mnuExitItem");
    EXPECT_EQ(ReadSetting(settings, keys::picture11), "False");
}

TEST_F(WindowCommandsTest, ThePanelKeepsItsHeight) {
    WriteSetting(settings, keys::pic11Height, "3300");
    OpenDocuments(1);
    EXPECT_EQ(window->Picture11->height(), 220);
    Trigger("mnuExitItem");
    EXPECT_EQ(ReadSetting(settings, keys::pic11Height), "3300");
}

TEST_F(WindowCommandsTest, ADraggedPanelHeightIsWritten) {
    OpenDocuments(1);
    DragBar* bar = window->Picture11->Picture2;
    QTest::mousePress(bar, Qt::LeftButton, {}, {40, 2});
    QTest::mouseMove(bar, {40, -28});
    QTest::mouseRelease(bar, Qt::LeftButton, {}, {40, 0});
    const int height = window->Picture11->height();
    ASSERT_GT(height, 2600 / 15);
    Trigger("mnuExitItem");
    EXPECT_EQ(ReadSetting(settings, keys::pic11Height).toInt() / 15, height);
}

}  // namespace
}  // namespace vellum::test
