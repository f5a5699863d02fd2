#include "surface/format_layouts.h"

#include "tests/surface/surface_fixture.h"

#include <QImage>
#include <QTextBlock>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace vellum {
namespace {

using test::blue;
using test::green;
using test::red;

using FormatLayoutsTest = test::SurfaceFixture;

TEST_F(FormatLayoutsTest, PaintsACharacterInItsColor) {
    surface.SetEditorFont("Liberation Mono", "20");
    surface.SetBackColor(0xFFFFFF);
    surface.SetForeColor(0x000000);
    surface.SetText("MMM MMM");
    surface.SetFormat({4, 3}, {red, false});
    const auto countOf = [&](const QColor& color, int fromOffset, int toOffset) {
        QTextCursor from(surface.document());
        from.setPosition(fromOffset);
        QTextCursor to(surface.document());
        to.setPosition(toOffset);
        const int left = surface.cursorRect(from).left();
        const int right = surface.cursorRect(to).left();
        const QImage image = surface.viewport()->grab().toImage();
        int found = 0;
        for (int y = 0; y < surface.cursorRect(from).bottom(); ++y) {
            for (int x = left + 2; x < right - 1; ++x) found += image.pixelColor(x, y) == color ? 1 : 0;
        }
        return found;
    };
    EXPECT_GT(countOf(Qt::red, 4, 7), 20);
    EXPECT_EQ(countOf(Qt::black, 4, 7), 0);
    EXPECT_GT(countOf(Qt::black, 0, 3), 20);
    EXPECT_EQ(countOf(Qt::red, 0, 3), 0);
    surface.SetSelStart(0);  // an edit before it moves the colour along
    QTest::keyClick(&surface, Qt::Key_I);
    EXPECT_GT(countOf(Qt::red, 5, 8), 20);
    EXPECT_EQ(countOf(Qt::red, 0, 4), 0);
    surface.SetForeColor(blue);
    EXPECT_GT(countOf(Qt::blue, 1, 4), 20);
    EXPECT_GT(countOf(Qt::red, 5, 8), 20);
    const std::vector<FormatRun> runs{{{0, 2}, {green, false}}};
    surface.SetAllFormats({}, runs);
    EXPECT_EQ(countOf(Qt::red, 5, 8), 0);
    EXPECT_GT(countOf(ColorFromNumber(green), 1, 2), 5);
}

TEST_F(FormatLayoutsTest, AnOverlongLineKeepsItsColors) {
    surface.SetEditorFont("Liberation Mono", "20");
    const QString filler = QString("<b>x</b>").repeated(3000);
    surface.SetText("first\r\n" + filler + "\r\nlast");
    surface.SetFormat({7, 3}, {red, false});
    surface.SetSelStart(7);
    QTest::keyClick(&surface, Qt::Key_I);
    EXPECT_EQ(surface.Text(), "first\r\ni" + filler + "\r\nlast");
    EXPECT_EQ(surface.FormatAt(7), CharFormat());
    EXPECT_EQ(surface.FormatAt(8), (CharFormat{red, false}));
    const QTextBlock block = surface.document()->findBlockByNumber(1);
    const QImage image = surface.viewport()->grab().toImage();
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + 1);
    const QRect from = surface.cursorRect(cursor);
    cursor.setPosition(block.position() + 4);
    const QRect to = surface.cursorRect(cursor);
    int found = 0;
    for (int y = from.top(); y < from.bottom(); ++y) {
        for (int x = from.left() + 2; x < to.left(); ++x) found += image.pixelColor(x, y) == Qt::red ? 1 : 0;
    }
    EXPECT_GT(found, 20);
    surface.SetSelStart(7);
    surface.SetSelLength(20000);
    QTest::keyClick(&surface, Qt::Key_Delete);
    surface.viewport()->grab();
    EXPECT_EQ(surface.Text(), "first\r\n" + ("i" + filler).mid(20000) + "\r\nlast");
}

TEST_F(FormatLayoutsTest, PaintingAsksForNoFurtherPainting) {
    surface.SetText("abc\r\ndef\r\nghi");
    surface.SetFormat({0, 13}, {red, true});
    QApplication::processEvents();
    struct Counter : QObject {
        int paints = 0;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } counter;
    surface.setCursorWidth(0);  // a blinking caret is painted for its own reasons
    QApplication::processEvents();
    surface.viewport()->installEventFilter(&counter);
    surface.SetFormat({1, 5}, {blue, false});
    for (int round = 0; round < 20; ++round) QApplication::processEvents();
    EXPECT_EQ(counter.paints, 1);
}

}  // namespace
}  // namespace vellum
