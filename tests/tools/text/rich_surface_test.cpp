#include "tools/text/rich_surface.h"

#include "import/rtf_reader.h"
#include "import/rtf_writer.h"
#include "tests/import/random_rich_text.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

class RichSurfaces : public testing::Test {
protected:
    void SetUp() override {
        surface.resize(400, 200);
        surface.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&surface));
    }

    void Select(int start, int end) {
        QTextCursor cursor = surface.textCursor();
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        surface.setTextCursor(cursor);
    }

    void Type(const QString& text) { QTest::keyClicks(&surface, text); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&surface, key, modifiers); }

    // Content of these words, which alternate between plain and bold.
    void SetWords(const QStringList& words) {
        RichTextBuilder builder;
        bool bold = false;
        for (const QString& word : words) {
            builder.AddText(word, {.font = builder.FontNumber("Arial"), .bold = bold});
            bold = !bold;
        }
        builder.EndParagraph({}, {});
        surface.SetContent(builder.Take());
    }

    RichSurface surface;
};

TEST_F(RichSurfaces, StartEmptyInTheStandardFormat) {
    EXPECT_EQ(surface.Content(), RichText());
    EXPECT_EQ(surface.SelFontName(), "Times New Roman");
    EXPECT_EQ(surface.SelFontSize(), 12);
    EXPECT_EQ(surface.SelColor(), 0U);
    EXPECT_EQ(surface.SelStyle(&RichFormat::bold), false);
    EXPECT_EQ(surface.SelAlignment(), RichAlignment::Left);
    EXPECT_EQ(surface.SelBullet(), false);
}

TEST_F(RichSurfaces, HaveWhitePaperInAnyTheme) {
    EXPECT_EQ(surface.palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(surface.palette().color(QPalette::Text), QColor(Qt::black));
}

TEST_F(RichSurfaces, HoldWhatIsTyped) {
    Type("one");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    Type("two");
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Type("three");
    const RichText content = surface.Content();
    EXPECT_EQ(content.text, "one\r\n\r\ntwo\t\r\nthree");
    EXPECT_EQ(content.paragraphs.size(), 4U);
    EXPECT_EQ(content.runs, std::vector<RichRun>{RichRun{}});
}

TEST_F(RichSurfaces, GiveBackTheContentThatTheyGot) {
    RandomRichText random(20260521);
    for (int i = 0; i < 300; ++i) {
        const RichText rich = random.Make(40);
        surface.SetContent(rich);
        ASSERT_EQ(surface.Content(), rich) << "text " << i;
    }
}

TEST_F(RichSurfaces, HaveTheSameContentAfterAWayThroughRtf) {
    RandomRichText random(20260522);
    for (int i = 0; i < 100; ++i) {
        surface.SetContent(random.Make(40));
        const RichText written = surface.Content();
        surface.SetContent(ReadRtf(WriteRtf(written)));
        ASSERT_EQ(surface.Content(), written) << "text " << i;
    }
}

TEST_F(RichSurfaces, PutTheCaretToTheBeginningOfNewContentAndTakeItBackInOneStep) {
    Type("old");
    SetWords({"new", "content"});
    EXPECT_EQ(surface.textCursor().position(), 0);
    EXPECT_FALSE(surface.textCursor().hasSelection());
    surface.undo();
    EXPECT_EQ(surface.Content().text, "old");
}

TEST_F(RichSurfaces, TellWhatTheSelectionHasInCommon) {
    SetWords({"plain", "bold"});
    Select(0, 5);
    EXPECT_EQ(surface.SelStyle(&RichFormat::bold), false);
    EXPECT_EQ(surface.SelFontName(), "Arial");
    Select(5, 9);
    EXPECT_EQ(surface.SelStyle(&RichFormat::bold), true);
    Select(4, 6);
    EXPECT_EQ(surface.SelStyle(&RichFormat::bold), std::nullopt);
    EXPECT_EQ(surface.SelStyle(&RichFormat::italic), false);
    EXPECT_EQ(surface.SelFontSize(), 12);
}

TEST_F(RichSurfaces, FormatTheSelection) {
    Type("abc");
    Select(1, 2);
    for (const RichSurface::Style style :
         {&RichFormat::bold, &RichFormat::italic, &RichFormat::underline, &RichFormat::strike}) {
        surface.SetSelStyle(style, true);
        EXPECT_EQ(surface.SelStyle(style), true);
    }
    surface.SetSelFontName("Arial");
    surface.SetSelFontSize(24);
    surface.SetSelColor(0x0080FF);
    EXPECT_EQ(surface.SelFontName(), "Arial");
    EXPECT_EQ(surface.SelFontSize(), 24);
    EXPECT_EQ(surface.SelColor(), 0x0080FFU);
    const RichText content = surface.Content();
    EXPECT_EQ(content.fonts, (QStringList{"Times New Roman", "Arial"}));
    EXPECT_EQ(content.runs, (std::vector<RichRun>{{},
                                                  {.offset = 1,
                                                   .format = {.font = 1,
                                                              .halfPoints = 48,
                                                              .color = 0x0080FF,
                                                              .bold = true,
                                                              .italic = true,
                                                              .underline = true,
                                                              .strike = true}},
                                                  {.offset = 2}}));
    Select(0, 3);
    EXPECT_EQ(surface.SelColor(), std::nullopt);
    EXPECT_EQ(surface.SelFontName(), std::nullopt);
    EXPECT_EQ(surface.SelFontSize(), std::nullopt);
    surface.SetSelStyle(&RichFormat::bold, false);
    EXPECT_EQ(surface.SelStyle(&RichFormat::bold), false);
}

TEST_F(RichSurfaces, FormatWhatIsTypedNext) {
    Type("a");
    surface.SetSelStyle(&RichFormat::bold, true);
    surface.SetSelFontSize(10);
    EXPECT_EQ(surface.SelStyle(&RichFormat::bold), true);
    Type("b");
    EXPECT_EQ(surface.Content().runs,
              (std::vector<RichRun>{{}, {.offset = 1, .format = {.halfPoints = 20, .bold = true}}}));
}

TEST_F(RichSurfaces, FormatAnEmptyLineItself) {
    surface.SetSelStyle(&RichFormat::italic, true);
    EXPECT_EQ(surface.Content().runs, (std::vector<RichRun>{{.offset = 0, .format = {.italic = true}}}));
    Type("a");
    Press(Qt::Key_Return);
    EXPECT_EQ(surface.Content().runs, (std::vector<RichRun>{{.offset = 0, .format = {.italic = true}}}));
}

TEST_F(RichSurfaces, AlignTheSelectedLines) {
    Type("a");
    Press(Qt::Key_Return);
    Type("b");
    surface.SetSelAlignment(RichAlignment::Right);
    EXPECT_EQ(surface.SelAlignment(), RichAlignment::Right);
    Select(0, 0);
    EXPECT_EQ(surface.SelAlignment(), RichAlignment::Left);
    Select(0, 3);
    EXPECT_EQ(surface.SelAlignment(), std::nullopt);
    surface.SetSelAlignment(RichAlignment::Center);
    EXPECT_EQ(surface.Content().paragraphs,
              (std::vector<RichParagraph>{{.alignment = RichAlignment::Center}, {.alignment = RichAlignment::Center}}));
}

TEST_F(RichSurfaces, GiveBulletsAndTakeThem) {
    Type("a");
    Press(Qt::Key_Return);
    Type("b");
    Press(Qt::Key_Return);
    Type("c");
    Select(0, 3);
    surface.SetSelBullet(true);
    EXPECT_EQ(surface.SelBullet(), true);
    EXPECT_EQ(surface.Content().paragraphs, (std::vector<RichParagraph>{{.bullet = true}, {.bullet = true}, {}}));
    Select(2, 5);
    EXPECT_EQ(surface.SelBullet(), std::nullopt);
    surface.SetSelBullet(false);
    EXPECT_EQ(surface.Content().paragraphs, (std::vector<RichParagraph>{{.bullet = true}, {}, {}}));
    EXPECT_EQ(surface.document()->findBlockByNumber(1).blockFormat().indent(), 0);
}

TEST_F(RichSurfaces, CopyTheTextAloneAndPasteItInTheFormatOfItsPlace) {
    SetWords({"plain", "bold"});
    Select(5, 9);
    surface.copy();
    const QMimeData& copied = *QApplication::clipboard()->mimeData();
    EXPECT_EQ(copied.text(), "bold");
    EXPECT_FALSE(copied.hasHtml());
    auto* const other = new QMimeData;
    other->setHtml("<b>from</b> elsewhere");
    other->setText("x\ny");
    QApplication::clipboard()->setMimeData(other);
    Select(2, 3);
    surface.paste();
    EXPECT_EQ(surface.Content().text, "plx\r\nyinbold");
    EXPECT_EQ(surface.Content().runs.size(), 2U);
}

}  // namespace
}  // namespace vellum::test
