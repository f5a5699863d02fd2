#include "surface/edit_surface.h"

#include "tests/surface/surface_fixture.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextDocument>

#include <gtest/gtest.h>
#include <random>

namespace vellum {
namespace {

using test::blue;
using test::green;
using test::red;

using EditSurfaceTest = test::SurfaceFixture;

TEST_F(EditSurfaceTest, StartsEmptyWithTheCaretAtTheStart) {
    EXPECT_EQ(surface.Text(), QString());
    EXPECT_EQ(surface.Length(), 0);
    EXPECT_EQ(surface.SelStart(), 0);
    EXPECT_EQ(surface.accessibleName(), "Source text");
    EXPECT_FALSE(surface.isUndoRedoEnabled());
}

TEST_F(EditSurfaceTest, TakesEveryKindOfLineEndAndGivesCrLf) {
    surface.SetText("a\r\nb\nc\rd\n\r\n");
    EXPECT_EQ(surface.Text(), "a\r\nb\r\nc\r\nd\r\n\r\n");
    EXPECT_EQ(surface.RawText(), "a\nb\nc\nd\n\n");
    EXPECT_EQ(surface.Length(), surface.Text().size());
    surface.SetSelStart(1);
    surface.SetSelText("x\ry\nz\r\n");
    EXPECT_EQ(surface.RawText(), "ax\ny\nz\n\nb\nc\nd\n\n");
}

TEST_F(EditSurfaceTest, LosesNoCharacter) {
    QString all;
    for (int unit = 0; unit < 0x10000; ++unit) {
        if (unit != '\r' && unit != '\n') all += QChar(static_cast<char16_t>(unit));
        if (unit % 97 == 0) all += "\r\n";
    }
    surface.SetText(all);
    EXPECT_TRUE(surface.Text() == all);
    EXPECT_EQ(surface.Length(), all.size());
    surface.SetText({});
    surface.SetSelText(all);
    EXPECT_TRUE(surface.Text() == all);
}

TEST_F(EditSurfaceTest, AStandInKeepsItsCharacterThroughEdits) {
    const QString text =
        QString("a") + QChar(0x2029) + QChar(0xFFFD) + QChar(0xFDD0) + "b\r\n" + QChar(0xFDD1) + QChar(0);
    surface.SetText(text);
    surface.SetSelStart(2);
    QTest::keyClicks(&surface, "x");
    surface.SetSelText(QString(QChar(0xFFFD)) + QChar(0x2028) + QChar(0xA0));
    QString expected = text;
    expected.insert(2, QString("x") + QChar(0xFFFD) + QChar(0x2028) + QChar(0xA0));
    EXPECT_EQ(surface.Text(), expected);
    surface.SetText("plain");  // what is left of the old characters must not cling to the new ones
    surface.SetSelText(QString(QChar(0xFFFD)));
    EXPECT_EQ(surface.Text(), QString(QChar(0xFFFD)) + "plain");
    surface.SetText(QString(QChar(0x2029)));
    surface.SetText(QString(QChar(0xFFFD)));
    EXPECT_EQ(surface.Text(), QString(QChar(0xFFFD)));
}

TEST_F(EditSurfaceTest, RandomStringsComeBack) {
    std::mt19937 random(7);
    const QString special = QString("\r\n\t ab\r\n") + QChar(0) + QChar(0xA0) + QChar(0x2028) + QChar(0x2029) +
                            QChar(0xFDD0) + QChar(0xFDD1) + QChar(0xFFFC) + QChar(0xFFFD) + QChar(0xFFFE) +
                            QChar(0xD800) + QChar(0xDC00) + QChar(0xFEFF);
    for (int round = 0; round < 200; ++round) {
        QString text;
        for (unsigned length = random() % 60; length > 0; --length) {
            text += random() % 4 == 0 ? QChar(static_cast<char16_t>(random() & 0xFFFF))
                                      : special.at(random() % special.size());
        }
        QString expected = text;
        expected.replace("\r\n", "\n").replace('\r', '\n').replace("\n", "\r\n");
        surface.SetText(text);
        ASSERT_EQ(surface.Text(), expected) << "round " << round;
        ASSERT_EQ(surface.Length(), expected.size());
    }
}

TEST_F(EditSurfaceTest, OffsetsCountALineEndAsTwo) {
    const QString text = "ab\r\n\r\ncde\r\n";
    surface.SetText(text);
    for (int offset = -2; offset <= text.size() + 3; ++offset) {
        surface.SetSelStart(offset);
        int expected = std::clamp<int>(offset, 0, static_cast<int>(text.size()));
        const bool between = expected > 0 && expected < text.size() && text.at(expected) == '\n';
        if (between) --expected;
        EXPECT_EQ(surface.SelStart(), expected) << "offset " << offset;
        EXPECT_EQ(surface.SelLength(), 0);
        EXPECT_EQ(surface.GetLineFromChar(offset), text.left(expected).count('\n')) << "offset " << offset;
    }
}

TEST_F(EditSurfaceTest, SelectsEveryRange) {
    const QString text = "ab\r\n\r\ncde\r\n";
    const auto down = [&](int offset) { return offset < text.size() && text.at(offset) == '\n' ? offset - 1 : offset; };
    surface.SetText(text);
    for (int begin = 0; begin <= text.size(); ++begin) {
        for (int length = 0; length <= text.size() + 3 - begin; ++length) {
            surface.SetSelStart(begin);
            surface.SetSelLength(length);
            const int from = down(begin);
            const int to = down(std::min<int>(from + length, static_cast<int>(text.size())));
            EXPECT_EQ(surface.SelStart(), from);
            EXPECT_EQ(surface.SelLength(), to - from) << begin << " " << length;
            EXPECT_EQ(surface.SelText(), text.mid(from, to - from)) << begin << " " << length;
            EXPECT_EQ(surface.Mid(begin, length), text.mid(begin, length)) << begin << " " << length;
        }
    }
    surface.SetSelStart(1);
    surface.SetSelLength(std::numeric_limits<int>::max());
    EXPECT_EQ(surface.SelText(), text.mid(1));
    EXPECT_EQ(surface.Mid(2, std::numeric_limits<int>::max()), text.mid(2));
}

TEST_F(EditSurfaceTest, ReportsEachChangeOnce) {
    QSignalSpy changed(&surface, &EditSurface::Changed);
    QSignalSpy moved(&surface, &EditSurface::SelChanged);
    surface.SetText("abc\r\ndef");
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(moved.count(), 0);  // the caret was and is at the start
    surface.SetSelStart(2);
    EXPECT_EQ(moved.count(), 1);
    surface.SetSelLength(4);
    EXPECT_EQ(moved.count(), 2);
    surface.SetSelLength(4);
    EXPECT_EQ(moved.count(), 2);
    EXPECT_EQ(changed.count(), 1);
    surface.SetSelText("x\ny\nz");
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(moved.count(), 3);
    QTest::keyClicks(&surface, "k");
    EXPECT_EQ(changed.count(), 3);
    EXPECT_EQ(moved.count(), 4);
    surface.SetFormat({0, 3}, {red, true});
    surface.SetSelColor(blue);
    surface.viewport()->grab();
    EXPECT_EQ(changed.count(), 3);
    EXPECT_EQ(moved.count(), 4);
}

TEST_F(EditSurfaceTest, EveryChangeRaisesTheRevision) {
    const quint64 before = surface.Revision();
    surface.SetText("a");
    const quint64 afterSet = surface.Revision();
    EXPECT_GT(afterSet, before);
    QTest::keyClicks(&surface, "b");
    EXPECT_GT(surface.Revision(), afterSet);
    const quint64 afterKey = surface.Revision();
    surface.SetFormat({0, 1}, {red, true});
    surface.SetSelStart(1);
    EXPECT_EQ(surface.Revision(), afterKey);
}

TEST_F(EditSurfaceTest, TypedCharactersTakeTheInsertionFormat) {
    surface.SetForeColor(0x101010);
    surface.SetText("ab");
    EXPECT_EQ(surface.SelColor(), 0x101010U);
    EXPECT_EQ(surface.SelBold(), false);
    surface.SetSelStart(1);
    surface.SetSelColor(red);
    surface.SetSelBold(true);
    EXPECT_EQ(surface.SelColor(), red);
    EXPECT_EQ(surface.SelBold(), true);
    QTest::keyClicks(&surface, "xy");
    EXPECT_EQ(surface.Text(), "axyb");
    EXPECT_EQ(surface.FormatAt(0), CharFormat());
    EXPECT_EQ(surface.FormatAt(1), (CharFormat{red, true}));
    EXPECT_EQ(surface.FormatAt(2), (CharFormat{red, true}));
    EXPECT_EQ(surface.FormatAt(3), CharFormat());
    QTest::keyClick(&surface, Qt::Key_Return);
    QTest::keyClicks(&surface, "z");
    EXPECT_EQ(surface.SelColor(), red);  // a run goes on over its line end
    EXPECT_EQ(surface.FormatAt(5), (CharFormat{red, true}));
}

TEST_F(EditSurfaceTest, TheInsertionFormatEndsWhenTheCaretMoves) {
    surface.SetText("ab");
    surface.SetSelColor(red);
    EXPECT_EQ(surface.SelColor(), red);
    QTest::keyClick(&surface, Qt::Key_Right);
    QTest::keyClick(&surface, Qt::Key_Left);
    EXPECT_EQ(surface.SelColor(), surface.ForeColor());
    QTest::keyClicks(&surface, "x");
    EXPECT_EQ(surface.FormatAt(0), CharFormat());
}

TEST_F(EditSurfaceTest, ReadsTheFormatBeforeTheCaret) {
    surface.SetText("abc");
    surface.SetFormat({0, 2}, {red, true});
    surface.SetSelStart(0);
    EXPECT_EQ(surface.SelColor(), surface.ForeColor());
    surface.SetSelStart(2);
    EXPECT_EQ(surface.SelColor(), red);
    EXPECT_EQ(surface.SelBold(), true);
    surface.SetSelStart(3);
    EXPECT_EQ(surface.SelColor(), surface.ForeColor());
}

TEST_F(EditSurfaceTest, ColorsTheSelection) {
    surface.SetText("abcd\r\nefgh");
    surface.SetSelStart(1);
    surface.SetSelLength(6);
    surface.SetSelColor(red);
    EXPECT_EQ(surface.SelColor(), red);
    EXPECT_EQ(surface.FormatAt(0).color, std::nullopt);
    EXPECT_EQ(surface.FormatAt(1).color, red);
    EXPECT_EQ(surface.FormatAt(4).color, red);
    EXPECT_EQ(surface.FormatAt(6).color, red);
    EXPECT_EQ(surface.FormatAt(7).color, std::nullopt);
    surface.SetSelStart(0);
    surface.SetSelLength(3);
    EXPECT_EQ(surface.SelColor(), std::nullopt);
    EXPECT_EQ(surface.SelBold(), false);
    surface.SetSelLength(2);
    surface.SetSelBold(true);
    surface.SetSelLength(3);
    EXPECT_EQ(surface.SelBold(), std::nullopt);
    surface.selectAll();
    surface.SetSelColor(blue);
    EXPECT_EQ(surface.SelColor(), blue);
    EXPECT_EQ(surface.SelBold(), std::nullopt);
}

TEST_F(EditSurfaceTest, ReplacedTextTakesTheFormatOfTheSelection) {
    surface.SetText("abcd");
    surface.SetFormat({1, 2}, {red, false});
    surface.SetSelStart(1);
    surface.SetSelLength(2);
    surface.SetSelText("xyz");
    EXPECT_EQ(surface.Text(), "axyzd");
    EXPECT_EQ(surface.FormatAt(1).color, red);
    EXPECT_EQ(surface.FormatAt(3).color, red);
    EXPECT_EQ(surface.FormatAt(4).color, std::nullopt);
    EXPECT_EQ(surface.SelStart(), 4);
}

TEST_F(EditSurfaceTest, SetTextDropsAllFormats) {
    surface.SetText("abcd");
    surface.SetFormat({0, 4}, {red, true});
    surface.SetText("abcd");
    EXPECT_EQ(surface.FormatAt(0), CharFormat());
    surface.SetSelStart(1);
    EXPECT_EQ(surface.SelColor(), surface.ForeColor());
}

TEST_F(EditSurfaceTest, PaintsItsBackground) {
    surface.SetBackColor(0x204060);
    surface.SetRightMargin(TwipsFromPixels(200));
    QApplication::processEvents();
    const QImage image = surface.grab().toImage();
    const QColor back = ColorFromNumber(0x204060);
    EXPECT_EQ(image.pixelColor(100, 250), back);
    EXPECT_EQ(image.pixelColor(400, 250), back);  // the strip beyond the margin is part of the page
    EXPECT_EQ(image.pixelColor(480, 20), back);
    EXPECT_EQ(surface.BackColor(), 0x204060U);
}

TEST_F(EditSurfaceTest, KeepsTheSelectionVisible) {
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    surface.SetForeColor(0x00FFFF);
    surface.SetBackColor(NumberFromColor(highlight));
    EXPECT_NE(surface.palette().color(QPalette::Highlight), surface.palette().color(QPalette::Base));
    EXPECT_NE(surface.palette().color(QPalette::Highlight), surface.palette().color(QPalette::HighlightedText));
}

TEST_F(EditSurfaceTest, WrapsAtTheRightMargin) {
    surface.SetEditorFont("Liberation Mono", "10");
    surface.SetText(QString("word ").repeated(60));
    EXPECT_EQ(surface.RightMargin(), 1000000);
    QApplication::processEvents();
    const QTextBlock block = surface.document()->firstBlock();
    EXPECT_EQ(block.layout()->lineCount(), 1);
    surface.SetRightMargin(TwipsFromPixels(200));
    QApplication::processEvents();
    surface.grab();
    EXPECT_GT(block.layout()->lineCount(), 5);
    for (int line = 0; line < block.layout()->lineCount(); ++line) {
        EXPECT_LE(block.layout()->lineAt(line).naturalTextWidth(), 200);
    }
    EXPECT_NEAR(block.layout()->lineAt(0).width(), 200, 1);
    surface.SetRightMargin(1000000);
    surface.grab();
    EXPECT_EQ(block.layout()->lineCount(), 1);
    EXPECT_EQ(surface.viewport()->width(), surface.contentsRect().width());
}

TEST_F(EditSurfaceTest, WrapsAtAMarginThatWasSetBeforeItIsShown) {
    EditSurface hidden;
    hidden.SetText(QString("word ").repeated(60));
    hidden.SetRightMargin(TwipsFromPixels(350));
    hidden.resize(578, 200);
    hidden.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&hidden));
    const auto firstWidth = [&] {
        hidden.grab();
        return hidden.document()->firstBlock().layout()->lineAt(0).width();
    };
    EXPECT_NEAR(firstWidth(), 350, 1);
    hidden.resize(700, 200);
    EXPECT_NEAR(firstWidth(), 350, 1);
    hidden.SetText(QString("word ").repeated(60) + QString("\r\n").repeated(100));  // with a scroll bar
    EXPECT_NEAR(firstWidth(), 350, 1);
    hidden.SetRightMargin(TwipsFromPixels(500));
    EXPECT_NEAR(firstWidth(), 500, 1);
}

TEST_F(EditSurfaceTest, TheFontIsMonospacedAndOfTheGivenSize) {
    surface.SetEditorFont("Courier New", "8.5");
    EXPECT_EQ(surface.SelFontName(), "Courier New");
    EXPECT_EQ(surface.SelFontSize(), "8.5");
    EXPECT_DOUBLE_EQ(surface.document()->defaultFont().pointSizeF(), 8.5);
    const QFontMetricsF metrics(surface.document()->defaultFont());
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance('i'), metrics.horizontalAdvance('W'));
    EXPECT_NEAR(surface.tabStopDistance(), 4 * metrics.horizontalAdvance(' '), 0.01);
}

TEST_F(EditSurfaceTest, SetsAllFormatsAtOnce) {
    surface.SetText("<b>\r\n<i>");
    const std::vector<FormatRun> runs{{{0, 3}, {red, false}}, {{4, 3}, {blue, true}}};  // a line end counts as one
    surface.SetAllFormats({green, false}, runs);
    EXPECT_EQ(surface.FormatAt(2), (CharFormat{red, false}));
    EXPECT_EQ(surface.FormatAt(3), (CharFormat{green, false}));
    EXPECT_EQ(surface.FormatAt(5), (CharFormat{blue, true}));
    EXPECT_EQ(surface.SelColor(), green);  // at offset 0 the base
}

struct Model {
    QString text;  // "\n" at line ends
    std::vector<CharFormat> formats;

    void Replace(qsizetype at, qsizetype length, const QString& with, const CharFormat& format) {
        text.replace(at, length, with);
        formats.erase(formats.begin() + at, formats.begin() + at + length);
        formats.insert(formats.begin() + at, static_cast<std::size_t>(with.size()), format);
    }
    [[nodiscard]] CharFormat Before(qsizetype at) const {
        return at == 0 ? CharFormat() : formats[static_cast<std::size_t>(at - 1)];
    }
    [[nodiscard]] int Offset(qsizetype at) const { return static_cast<int>(at + text.left(at).count('\n')); }
};

class EditSurfaceRandom : public EditSurfaceTest, public testing::WithParamInterface<unsigned> {};

TEST_P(EditSurfaceRandom, AgreesWithAPlainModel) {
    std::mt19937 random(GetParam());
    Model model;
    const std::vector<CharFormat> palette{{}, {red, false}, {blue, true}, {std::nullopt, true}};
    qsizetype caret = 0;
    const auto select = [&](qsizetype from, qsizetype length) {
        surface.SetSelStart(model.Offset(from));
        surface.SetSelLength(model.Offset(from + length) - model.Offset(from));
    };
    for (int round = 0; round < 400; ++round) {
        const qsizetype at = static_cast<qsizetype>(random() % static_cast<unsigned>(model.text.size() + 1));
        const qsizetype length = std::min<qsizetype>(random() % 5, model.text.size() - at);
        switch (random() % 9) {
            case 0: {
                const CharFormat format = length > 0 ? model.formats[static_cast<std::size_t>(at)] : model.Before(at);
                QString text;
                for (unsigned left = random() % 8; left > 0; --left) text += "ab\n<\t"[random() % 5];
                select(at, length);
                surface.SetSelText(text);
                model.Replace(at, length, text, format);
                caret = at + text.size();
                break;
            }
            case 1:
                surface.SetSelStart(model.Offset(caret));
                QTest::keyClicks(&surface, "k");
                model.Replace(caret, 0, "k", model.Before(caret));
                ++caret;
                break;
            case 2:
                surface.SetSelStart(model.Offset(caret));
                QTest::keyClick(&surface, Qt::Key_Return);
                model.Replace(caret, 0, "\n", model.Before(caret));
                ++caret;
                break;
            case 3:
                surface.SetSelStart(model.Offset(caret));
                QTest::keyClick(&surface, Qt::Key_Backspace);
                if (caret > 0) model.Replace(--caret, 1, {}, {});
                break;
            case 4:
                select(at, length);
                QTest::keyClick(&surface, Qt::Key_Delete);
                if (length > 0) {
                    model.Replace(at, length, {}, {});
                } else if (at < model.text.size()) {
                    model.Replace(at, 1, {}, {});
                }
                caret = at;
                break;
            case 5: {
                const CharFormat format = palette[random() % palette.size()];
                surface.SetFormat({model.Offset(at), model.Offset(at + length) - model.Offset(at)},
                                  {format.color, format.bold});
                std::fill_n(model.formats.begin() + at, length, format);
                break;
            }
            case 6: {
                surface.SetSelStart(model.Offset(at));
                surface.SetSelColor(red);
                surface.SetSelBold(true);
                QTest::keyClicks(&surface, "f");
                model.Replace(at, 0, "f", {red, true});
                caret = at + 1;
                break;
            }
            case 7:
                surface.SetSelStart(model.Offset(at));
                Commit(QString(QChar(0xE9)));
                model.Replace(at, 0, QString(QChar(0xE9)), model.Before(at));
                caret = at + 1;
                break;
            default:  // through the toolkit's own cursor, past the surface
                QTextCursor cursor(surface.document());
                cursor.setPosition(static_cast<int>(at));
                cursor.setPosition(static_cast<int>(at + length), QTextCursor::KeepAnchor);
                cursor.removeSelectedText();
                model.Replace(at, length, {}, {});
                caret = at;
        }
        QString expected = model.text;
        expected.replace("\n", "\r\n");
        ASSERT_EQ(surface.Text(), expected) << "round " << round;
        for (qsizetype index = 0; index < model.text.size(); ++index) {
            ASSERT_EQ(surface.FormatAt(model.Offset(index)), model.formats[static_cast<std::size_t>(index)])
                << "round " << round << " index " << index;
        }
        if (round % 40 == 0) surface.viewport()->grab();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditSurfaceRandom, testing::Values(1U, 2U, 3U, 4U));

}  // namespace
}  // namespace vellum
