#include "files/encodings.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

using Bytes = QByteArray;

TEST(Encodings, AreStrictBothWays) {
    EXPECT_EQ(DecodeBytes("\xA4\xA4\xA4\xE5", "Big5"), u"\u4E2D\u6587"_qs);
    EXPECT_EQ(EncodeUnits(u"\u4E2D\u6587", "Big5"), Bytes("\xA4\xA4\xA4\xE5"));
    EXPECT_EQ(DecodeBytes("\xA4", "Big5"), std::nullopt);
    EXPECT_EQ(EncodeUnits(u"\u00E9", "Shift_JIS"), std::nullopt);
    EXPECT_EQ(DecodeBytes("\x1B(B\x1B(B a", "ISO-2022-JP"), std::nullopt) << "it would come back shorter";
    EXPECT_EQ(DecodeBytes("a", "no such encoding"), std::nullopt);
    EXPECT_EQ(EncodeUnits(u"a", "no such encoding"), std::nullopt);
}

TEST(Encodings, GiveEveryByteOfWindows1252ACharacter) {
    Bytes all;
    for (int byte = 0; byte < 256; ++byte) all.append(static_cast<char>(byte));
    const std::optional<QString> text = DecodeBytes(all, windows1252Name);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->at(0x80), u'\u20AC');
    EXPECT_EQ(text->at(0x81), u'\u0081');
    EXPECT_EQ(text->at(0x9F), u'\u0178');
    EXPECT_EQ(EncodeUnits(*text, windows1252Name), all);
}

// By such a name goes what browsers and XML parsers read alike.
TEST(Encodings, WriteWhatIsReadAlikeByName) {
    EXPECT_EQ(EncodeUnits(u"\u4F60", "GBK"), Bytes("\xC4\xE3"));
    EXPECT_EQ(EncodeUnits(u"\u00DF", "GBK"), std::nullopt) << "four bytes in GB 18030";
    EXPECT_EQ(EncodeUnits(u"\u01F9", "GBK"), std::nullopt) << "a private character to some";
    EXPECT_EQ(EncodeUnits(u"\u43F0", "Big5"), std::nullopt) << "of Hong Kong";
    EXPECT_EQ(EncodeUnits(u"\u43F0", "Big5-HKSCS"), Bytes("\x87\x40"));
    EXPECT_EQ(EncodeUnits(u"\uAC02", "EUC-KR"), std::nullopt) << "of Windows-949";
    EXPECT_EQ(EncodeUnits(u"\uAC00", "EUC-KR"), Bytes("\xB0\xA1"));
    EXPECT_EQ(EncodeUnits(u"\u20AC", "ISO-8859-1"), std::nullopt);
    EXPECT_EQ(EncodeUnits(u"\u0080", "ISO-8859-1"), std::nullopt);
    EXPECT_EQ(EncodeUnits(u"\u00E9", "ISO-8859-1"), Bytes("\xE9"));
    EXPECT_EQ(EncodeUnits(u"\u00E9", "US-ASCII"), std::nullopt);
}

TEST(Misfits, AreTheRunsThatAnEncodingCannotHold) {
    using Ranges = std::vector<TextRange>;
    EXPECT_EQ(FindMisfits(u"a\u00E9\n\u20AC", windows1252Name), Ranges{});
    EXPECT_EQ(FindMisfits(u"\u65E5\u672Ca\U0001F600\u00E9\u65E5", windows1252Name), (Ranges{{0, 2}, {3, 2}, {6, 1}}));
    EXPECT_EQ(FindMisfits(u"\u65E5\u00E9\u672C", "ISO-2022-JP"), (Ranges{{1, 1}}));
    EXPECT_EQ(FindMisfits(u"a\uFF71", "ISO-2022-JP"), (Ranges{{1, 1}})) << "half a width, which would come back whole";
    EXPECT_EQ(FindMisfits(QString("a") + QChar(0xD800) + "b", "KOI8-R"), (Ranges{{1, 1}}));
    EXPECT_EQ(FindMisfits(u"a\u20AC", "no such encoding"), (Ranges{{1, 1}}));
}

}  // namespace
}  // namespace vellum
