#include "import/rtf_writer.h"

#include "import/rtf_reader.h"
#include "tests/import/random_rich_text.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

TEST(RtfWriter, WritesAnEmptyText) {
    EXPECT_EQ(WriteRtf({}),
              "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fnil Times New Roman;}}\r\n"
              "{\\colortbl;}\r\n"
              "\\pard \\plain\\f0\\fs24 \\par\r\n}\r\n");
}

TEST(RtfWriter, WritesFormatsAndParagraphs) {
    RichTextBuilder builder;
    const std::uint16_t font = builder.FontNumber("Arial");
    builder.AddText(u"a", {.font = font});
    builder.AddText(u"b", {.font = font,
                           .halfPoints = 21,
                           .color = 0xFF8000,
                           .bold = true,
                           .italic = true,
                           .underline = true,
                           .strike = true});
    builder.EndParagraph({.alignment = RichAlignment::Center}, {});
    builder.AddText(u"c", {.font = font});
    builder.EndParagraph({.alignment = RichAlignment::Right, .bullet = true}, {});
    EXPECT_EQ(WriteRtf(builder.Take()),
              "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil\\fcharset2 Symbol;}}\r\n"
              "{\\colortbl;\\red0\\green128\\blue255;}\r\n"
              "\\pard\\qc \\plain\\f0\\fs24 a\\plain\\f0\\fs21\\cf1\\b\\i\\ul\\strike b\\par\r\n"
              "\\pard\\qr{\\pntext\\f1\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'b7}}\\fi-200\\li200 "
              "\\plain\\f0\\fs24 c\\par\r\n}\r\n");
}

TEST(RtfWriter, WritesSevenBits) {
    const QByteArray rtf = WriteRtf(PlainRichText(QStringLiteral("{\\}\tä\u00A0€😀"), "Ärial;", 12));
    EXPECT_TRUE(rtf.contains("\\fnil \\u196?rial\\'3b;}")) << rtf.toStdString();
    EXPECT_TRUE(rtf.contains(" \\{\\\\\\}\\tab \\u228?\\~\\u8364?\\u-10179?\\u-8704?\\par")) << rtf.toStdString();
}

TEST(RtfWriter, WritesWhatTheReaderReads) {
    const auto comesBack = [](const RichText& rich) { return ReadRtf(WriteRtf(rich)) == rich; };
    EXPECT_TRUE(comesBack({}));
    EXPECT_TRUE(comesBack(PlainRichText("a\r\n", "Courier New", 8.5)));
    EXPECT_TRUE(comesBack(PlainRichText("\r\n\r\n", "A {strange}; \\name", 8.5)));
    EXPECT_TRUE(comesBack(PlainRichText(QStringLiteral("\u00A0\u00AD\u2011\u2022\uFFFD\uF0B7"), "Symbol", 72)));
    RandomRichText random(19990501);
    for (int i = 0; i < 3000; ++i) {
        const RichText rich = random.Make(i % 60);
        const QByteArray rtf = WriteRtf(rich);
        ASSERT_EQ(ReadRtf(rtf), rich) << i << ": " << rtf.toStdString();
    }
}

}  // namespace
}  // namespace vellum::test
