// The colour bar: its boxes, and what a press on one, or on "Other!", writes.
#include "shell/color_bar.h"

#include "tests/shell/main_window_fixture.h"
#include "widgets/tab_strip.h"

#include <QHelpEvent>
#include <QToolTip>

namespace vellum::test {
namespace {

ColorNumber Rgb(int red, int green, int blue) {
    return NumberFromColor(QColor(red, green, blue));
}

TEST(ColorBoxes, RunInRampsOfFiveSteps) {
    const std::vector<ColorNumber>& boxes = ColorBoxes();
    ASSERT_EQ(boxes.size(), 76U);
    for (int step = 0; step < 5; ++step) {
        const int i = 45 * (step + 1);
        const ColorNumber expected[] = {Rgb(i, 0, 0), Rgb(255, i, i), Rgb(0, i, 0), Rgb(i, 255, i),
                                        Rgb(0, 0, i), Rgb(i, i, 255), Rgb(i, i, 0), Rgb(255, 255, i)};
        for (std::size_t ramp = 0; ramp < std::size(expected); ++ramp) {
            EXPECT_EQ(boxes.at(5 * ramp + step), expected[ramp]) << "ramp " << ramp << ", step " << step;
        }
    }
    EXPECT_EQ(boxes.at(0), 45U) << "red is in the low byte";
}

TEST(ColorBoxes, GoOnWithOrangeMagentaCyanAndGreyAndEndWhite) {
    const std::vector<ColorNumber>& boxes = ColorBoxes();
    for (std::size_t step = 0; step < 5; ++step) {
        const auto i = static_cast<int>(45 * (step + 1));
        const QColor orange = ColorFromNumber(boxes.at(40 + step));
        EXPECT_TRUE(orange.red() == i && orange.green() < i && orange.green() > 0 && orange.blue() == 0);
        const QColor bright = ColorFromNumber(boxes.at(45 + step));
        EXPECT_TRUE(bright.red() == 255 && bright.green() < 255 && bright.green() > i && bright.blue() == i);
        EXPECT_EQ(boxes.at(50 + step), Rgb(i, 0, i));
        EXPECT_EQ(boxes.at(55 + step), Rgb(255, i, 255));
        EXPECT_EQ(boxes.at(60 + step), Rgb(0, i, i));
        EXPECT_EQ(boxes.at(65 + step), Rgb(i, 255, 255));
        EXPECT_EQ(boxes.at(70 + step), Rgb(i, i, i));
    }
    EXPECT_EQ(boxes.back(), Rgb(255, 255, 255));
}

TEST(ColorBoxes, StandSideBySideWithoutGaps) {
    for (int box = 0; box < 76; ++box) EXPECT_EQ(ColorBoxRect(box), (TwipRect{105 * box, 30, 105, 210}));
}

TEST(ColorBoxes, AreFoundFromEdgeToEdge) {
    EXPECT_EQ(ColorBoxAt(0, 30), 0);
    EXPECT_EQ(ColorBoxAt(104, 239), 0);
    EXPECT_EQ(ColorBoxAt(105, 100), 1);
    EXPECT_EQ(ColorBoxAt(7979, 100), 75);
    EXPECT_EQ(ColorBoxAt(7980, 100), std::nullopt);
    EXPECT_EQ(ColorBoxAt(0, 29), std::nullopt);
    EXPECT_EQ(ColorBoxAt(0, 240), std::nullopt);
    EXPECT_EQ(ColorBoxAt(-1, 100), std::nullopt);
}

TEST(ColorBoxes, TheBarAnswersUpToItsLimitWithItsOwnColor) {
    EXPECT_EQ(ColorTakenAt(110, 100, 7), Rgb(90, 0, 0));
    EXPECT_EQ(ColorTakenAt(110, 10, 7), 7U);
    EXPECT_EQ(ColorTakenAt(8370, 100, 7), 7U);
    EXPECT_EQ(ColorTakenAt(8371, 100, 7), std::nullopt);
}

class ColorBarTest : public MainWindowFixture {
protected:
    void Press(int left, int top) const { QTest::mouseClick(window->Picture14, Qt::LeftButton, {}, {left, top}); }

    void ClickOther() const {
        QTest::mouseClick(window->clrbutton, Qt::LeftButton, {}, window->clrbutton->tabRect(0).center());
    }

    EditSurface& OpenText(const QString& text, int caret) {
        Open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        EditSurface& surface = *Active().Text1;
        surface.SetText(text);
        surface.SetSelStart(caret);
        surface.setFocus();
        Active().SetSaver(true);
        return surface;
    }
};

TEST_F(ColorBarTest, ShowsEachBoxAtItsPixels) {
    Open();
    const QImage bar = window->Picture14->grab().toImage();
    const auto at = [&](int left, int top) { return NumberFromColor(bar.pixelColor(left, top)); };
    for (int box = 0; box < 76; ++box) {
        for (const auto& [left, top] : {std::pair{7 * box, 2}, {7 * box + 6, 2}, {7 * box, 15}, {7 * box + 6, 15}}) {
            EXPECT_EQ(at(left, top), ColorBoxes().at(box)) << "box " << box;
        }
    }
}

TEST_F(ColorBarTest, APressWritesTheColorInPlaceOfTheSelection) {
    EditSurface& surface = OpenText("abc", 1);
    surface.SetSelLength(1);
    Press(0, 2);
    EXPECT_EQ(surface.Text(), "a#2D0000c");
    EXPECT_FALSE(Active().Saver());
    EXPECT_TRUE(surface.hasFocus());
    Press(5 * 7 + 6, 15);
    EXPECT_EQ(surface.Text(), "a#2D0000#FF2D2Dc");
    Press(75 * 7 + 3, 8);
    EXPECT_EQ(surface.Text(), "a#2D0000#FF2D2D#FFFFFFc");
}

TEST_F(ColorBarTest, APressBelowTheBoxesWritesTheBarsOwnColor) {
    EditSurface& surface = OpenText("", 0);
    Press(3, 16);
    EXPECT_EQ(surface.Text(), window->palette().color(QPalette::Window).name().toUpper());
}

TEST_F(ColorBarTest, OnlyTheLeftButtonTakesAColor) {
    const EditSurface& surface = OpenText("", 0);
    QTest::mouseClick(window->Picture14, Qt::RightButton, {}, {3, 8});
    EXPECT_EQ(surface.Text(), "");
}

TEST_F(ColorBarTest, APressIsAStepOfUndo) {
    EditSurface& surface = OpenText("", 0);
    QTest::keyClicks(&surface, "ab");
    Press(0, 8);
    Press(8, 8);
    QTest::keyClicks(&surface, "c");
    ASSERT_EQ(surface.Text(), "ab#2D0000#5A0000c");
    for (const char* text : {"ab#2D0000#5A0000", "ab#2D0000", "ab", ""}) {
        QTest::keyClick(&surface, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(surface.Text(), text);
    }
    QTest::keyClick(&surface, Qt::Key_R, Qt::ControlModifier);
    ASSERT_EQ(surface.Text(), "ab");
    Press(0, 8);
    QTest::keyClick(&surface, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(surface.Text(), "ab#2D0000") << "a press ends what can be redone";
}

TEST_F(ColorBarTest, OtherWritesTheChosenColorWithoutAStepOfItsOwn) {
    EditSurface& surface = OpenText("ab", 1);
    prompts.colors = {Rgb(1, 2, 255)};
    Press(0, 8);
    ClickOther();
    EXPECT_EQ(surface.Text(), "a#2D0000#0102FFb");
    EXPECT_TRUE(surface.hasFocus());
    EXPECT_FALSE(Active().Saver());
    QTest::keyClick(&surface, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(surface.Text(), "ab");
}

TEST_F(ColorBarTest, OtherWithoutAChoiceWritesNothing) {
    EditSurface& surface = OpenText("ab", 1);
    surface.SetSelLength(1);
    ClickOther();
    EXPECT_EQ(surface.Text(), "ab");
    EXPECT_TRUE(Active().Saver());
}

TEST_F(ColorBarTest, OtherStandsRightBehindTheBoxes) {
    Open();
    EXPECT_EQ(window->clrbutton->count(), 1);
    EXPECT_EQ(window->clrbutton->Caption(1), "Other!");
    EXPECT_EQ(window->clrbutton->tabToolTip(0), "Opens a Color Chooser Dialog Box.");
    EXPECT_GE(window->clrbutton->x(), 76 * 7);
    EXPECT_LE(window->clrbutton->x(), 76 * 7 + 4);
    EXPECT_EQ(window->Picture14->height(), std::max(18, window->clrbutton->sizeHint().height()));
}

TEST_F(ColorBarTest, WithoutADocumentNothingHappens) {
    Open();
    Trigger("mnuClose");
    ASSERT_FALSE(window->Picture14->isEnabled());
    EXPECT_FALSE(window->clrbutton->isEnabled());
    prompts.colors = {Rgb(1, 2, 3)};
    emit window->Picture14->ColorTaken(Rgb(1, 2, 3));
    emit window->clrbutton->TabClicked(1);
    EXPECT_EQ(prompts.colors.size(), 1U) << "no one is asked for a colour";
    EXPECT_EQ(window->OpenDocCount(), 0);
}

TEST_F(ColorBarTest, WorksByTheKeyboard) {
    EditSurface& surface = OpenText("", 0);
    ColorBar& bar = *window->Picture14;
    for (int step = 0; step < 10 && !bar.hasFocus(); ++step) QTest::keyClick(window->focusWidget(), Qt::Key_F6);
    ASSERT_TRUE(bar.hasFocus());
    EXPECT_FALSE(bar.accessibleName().isEmpty());
    QTest::keyClick(&bar, Qt::Key_Left);
    EXPECT_EQ(bar.accessibleDescription(), "#2D0000");
    QTest::keyClick(&bar, Qt::Key_Right);
    EXPECT_EQ(bar.accessibleDescription(), "#5A0000");
    QTest::keyClick(&bar, Qt::Key_Space);
    EXPECT_EQ(surface.Text(), "#5A0000");
    EXPECT_TRUE(surface.hasFocus());
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_Down);
    EXPECT_EQ(bar.accessibleDescription(), "#FF5A5A");
    QTest::keyClick(&bar, Qt::Key_End);
    QTest::keyClick(&bar, Qt::Key_Right);
    QTest::keyClick(&bar, Qt::Key_Return);
    EXPECT_EQ(surface.Text(), "#5A0000#FFFFFF");
}

TEST_F(ColorBarTest, ThePointerOverABoxShowsItsColor) {
    Open();
    const auto rest = [this](QPoint place) {
        QHelpEvent help(QEvent::ToolTip, place, window->Picture14->mapToGlobal(place));
        QApplication::sendEvent(window->Picture14, &help);
    };
    rest({7 * 5 + 3, 8});
    EXPECT_EQ(QToolTip::text(), "#FF2D2D");
    QToolTip::hideText();
}

}  // namespace
}  // namespace vellum::test
