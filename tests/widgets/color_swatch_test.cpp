#include "widgets/color_swatch.h"

#include "tests/support/scripted_prompts.h"

#include <QImage>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

class ColorSwatches : public testing::Test {
protected:
    [[nodiscard]] QColor Middle() { return swatch.grab().toImage().pixelColor(swatch.rect().center()); }

    ScriptedPrompts prompts;
    ColorSwatch swatch{prompts};
};

TEST_F(ColorSwatches, StartBlack) {
    EXPECT_EQ(swatch.Color(), 0U);
    EXPECT_EQ(Middle(), QColor(0, 0, 0));
}

TEST_F(ColorSwatches, ShowAndTellTheirColor) {
    swatch.SetColor(0x0000FF);  // red stands in the low byte
    EXPECT_EQ(swatch.Color(), 0x0000FFU);
    EXPECT_EQ(Middle(), QColor(255, 0, 0));
    EXPECT_EQ(swatch.toolTip(), "#FF0000");
    EXPECT_EQ(swatch.accessibleDescription(), "#FF0000");
    swatch.SetColor(0xFFFFFF);
    EXPECT_EQ(Middle(), QColor(255, 255, 255));
}

TEST_F(ColorSwatches, ShowThatThereIsNone) {
    const QImage black = swatch.grab().toImage();
    swatch.SetNone();
    EXPECT_EQ(swatch.toolTip(), "No color");
    EXPECT_EQ(swatch.accessibleDescription(), "No color");
    EXPECT_NE(swatch.grab().toImage(), black);
    swatch.SetColor(0);
    EXPECT_EQ(swatch.grab().toImage(), black);
}

TEST_F(ColorSwatches, AskForAnotherColorFromTheirOwnOn) {
    std::vector<ColorNumber> told;
    QObject::connect(&swatch, &ColorSwatch::ColorChanged, [&](ColorNumber color) { told.push_back(color); });
    prompts.colors = {0x00FF00, 0x123456};
    swatch.show();
    QTest::mouseClick(&swatch, Qt::LeftButton);
    EXPECT_EQ(swatch.Color(), 0x00FF00U);
    QTest::keyClick(&swatch, Qt::Key_Space);
    EXPECT_EQ(swatch.Color(), 0x123456U);
    QTest::mouseClick(&swatch, Qt::LeftButton);  // cancelled
    EXPECT_EQ(swatch.Color(), 0x123456U);
    EXPECT_EQ(prompts.firstColors, (std::vector<ColorNumber>{0, 0x00FF00, 0x123456}));
    EXPECT_EQ(told, (std::vector<ColorNumber>{0x00FF00, 0x123456}));
}

}  // namespace
}  // namespace vellum::test
