#include "widgets/color_swatch.h"

#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum {
namespace {

QColor MiddleOf(ColorSwatch& swatch) {
    return swatch.grab().toImage().pixelColor(swatch.rect().center());
}

TEST(ColorSwatch, StartsBlack) {
    ColorSwatch swatch;
    EXPECT_EQ(swatch.Color(), 0U);
    EXPECT_EQ(MiddleOf(swatch), QColor(0, 0, 0));
}

TEST(ColorSwatch, ShowsAndTellsItsColor) {
    ColorSwatch swatch;
    swatch.SetColor(0x0000FF);  // red stands in the low byte
    EXPECT_EQ(swatch.Color(), 0x0000FFU);
    EXPECT_EQ(MiddleOf(swatch), QColor(255, 0, 0));
    EXPECT_EQ(swatch.toolTip(), "#FF0000");
    EXPECT_EQ(swatch.accessibleDescription(), "#FF0000");
    swatch.SetColor(0xFFFFFF);
    EXPECT_EQ(MiddleOf(swatch), QColor(255, 255, 255));
}

TEST(ColorSwatch, IsPressedByTheKeyboard) {
    ColorSwatch swatch;
    swatch.show();
    const QSignalSpy clicks(&swatch, &QPushButton::clicked);
    QTest::keyClick(&swatch, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
}

}  // namespace
}  // namespace vellum
