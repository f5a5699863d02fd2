// Many changes of formats at once do what they do one by one.
#include "surface/edit_surface.h"
#include "tests/support/color_of.h"

#include <gtest/gtest.h>
#include <random>

namespace vellum {
namespace {

std::vector<CharFormat> FormatsOf(const EditSurface& surface) {
    std::vector<CharFormat> formats;
    for (int offset = 0; offset < surface.Length(); ++offset) formats.push_back(surface.FormatAt(offset));
    return formats;
}

FormatStep Colored(int offset, int length, ColorNumber color, bool ofOneColor = false) {
    return {.range = {offset, length}, .change = {.color = color, .bold = {}}, .ofOneColor = ofOneColor};
}

TEST(ApplyFormats, StepsBuildOnOneAnother) {
    EditSurface surface;
    surface.SetText("abc\r\ndef");
    const std::vector<FormatStep> steps{
        Colored(1, 6, 1),        // over the line end
        Colored(5, 1, 2),        //
        Colored(0, 1, 3),        // back in the first line
        Colored(5, 2, 4, true),  // of two colours by then
        Colored(1, 4, 5, true), {.range = {2, 1}, .change = {.color = {}, .bold = true}, .ofOneColor = false},
    };
    surface.ApplyFormats(steps);
    EXPECT_EQ(test::ColorOf(surface, {0, 1}), 3U);
    EXPECT_EQ(test::ColorOf(surface, {1, 4}), 5U);
    EXPECT_EQ(test::ColorOf(surface, {5, 1}), 2U);
    EXPECT_EQ(test::ColorOf(surface, {6, 1}), 1U);
    EXPECT_EQ(test::ColorOf(surface, {7, 1}), surface.ForeColor());
    EXPECT_FALSE(surface.FormatAt(1).bold);
    EXPECT_TRUE(surface.FormatAt(2).bold);
}

TEST(ApplyFormats, WithoutStepsNothingHappens) {
    EditSurface surface;
    surface.SetText("abc");
    surface.ApplyFormats({});
    EXPECT_EQ(FormatsOf(surface), std::vector<CharFormat>(3));
}

TEST(ApplyFormats, AgreesWithChangesOneByOne) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        QString text;
        for (unsigned pieces = random() % 30; pieces > 0; --pieces) text += random() % 3 == 0 ? "\r\n" : "ab ";
        EditSurface fast;
        EditSurface slow;
        fast.SetText(text);
        slow.SetText(text);
        std::vector<FormatStep> steps;
        for (unsigned count = random() % 8; count > 0; --count) {
            const int offset = static_cast<int>(random() % static_cast<unsigned>(text.size() + 1));
            const int length = static_cast<int>(random() % static_cast<unsigned>(text.size() - offset + 1));
            steps.push_back(Colored(offset, length, random() % 4, random() % 2 == 0));
        }
        fast.ApplyFormats(steps);
        for (const FormatStep& step : steps) {
            if (step.ofOneColor && !test::ColorOf(slow, step.range)) continue;
            slow.SetFormat(step.range, {.color = step.change.color->value(), .bold = {}});
        }
        ASSERT_EQ(FormatsOf(fast), FormatsOf(slow)) << "round " << round;
    }
}

TEST(ApplyFormats, ShowsAtOnce) {
    EditSurface surface;
    surface.resize(300, 100);
    surface.SetText("<b>\r\n" + QString("word ").repeated(20));
    surface.SetBackColor(0xFFFFFF);
    surface.grab();
    surface.ApplyFormats(std::vector{Colored(0, 3, 0x0000FF)});
    const QImage shown = surface.grab().toImage();
    bool red = false;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const QColor color = shown.pixelColor(x, y);
            red |= color.red() > 200 && color.green() < 100 && color.blue() < 100;
        }
    }
    EXPECT_TRUE(red);
}

}  // namespace
}  // namespace vellum
