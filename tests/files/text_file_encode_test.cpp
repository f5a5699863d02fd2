#include "tests/files/text_bytes.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

using Bytes = QByteArray;

TEST(EncodeText, MarksUtf16ThatWouldNotBeSeen) {
    LoadedText loaded = DecodeText(Utf16("<p>text</p>", false));
    EXPECT_EQ(Encode(u"\u65E5\u672C", loaded.format), Raw("\xFF\xFE\xE5\x65\x2C\x67"));
    EXPECT_TRUE(loaded.format.byteOrderMark);
}

TEST(EncodeText, TellsWhetherThereAreBadBytes) {
    LoadedText loaded = DecodeText("<meta charset=utf-8>\xE9");
    EXPECT_EQ(Encode(u"<meta charset=utf-8>", loaded.format), "<meta charset=utf-8>");
    EXPECT_EQ(loaded.format.Description(), "UTF-8");
    EXPECT_EQ(Encode(loaded.text, loaded.format), "<meta charset=utf-8>\xE9") << "undone";
    EXPECT_EQ(loaded.format.Description(), "UTF-8, bad bytes");
}

TEST(EncodeText, MarksUtf8WhoseBadBytesWouldHaveItMisread) {
    LoadedText loaded = DecodeText("\xC3\xA9\xC3\xA9\xE9");
    EXPECT_EQ(Encode(QString(QChar(0xDCE9)), loaded.format), "\xEF\xBB\xBF\xE9");
}

TEST(EncodeText, WritesNoByteForHalfAPairThatStandsForNone) {
    TextFormat format;
    EXPECT_EQ(Encode(QString(QChar(0xDCE9)), format), "\xEF\xBF\xBD");
    LoadedText loaded = DecodeText("<meta charset=utf-8>\xE9");
    EXPECT_EQ(Encode(u"<meta charset=utf-8>"_qs + QChar(0xD800) + QChar(0xDCE9), loaded.format),
              "<meta charset=utf-8>\xF0\x90\x83\xA9")
        << "a pair is a character";
    EXPECT_EQ(Encode(u"<meta charset=utf-8>"_qs + QChar(0xDC10), loaded.format), "<meta charset=utf-8>\xEF\xBF\xBD");
}

TEST(EncodeText, WritesEveryLineEndAsItIsTold) {
    LoadedText loaded = DecodeText("a\nb\r\nc\n");
    EXPECT_EQ(Encode(u"A\nb\nc\nd\n", loaded.format, loaded.otherLineEnds), "A\nb\r\nc\nd\n");
    EXPECT_TRUE(loaded.format.mixedLineEnds);
    EXPECT_EQ(Encode(u"a\nb\nc\n", loaded.format), "a\nb\nc\n");
    EXPECT_FALSE(loaded.format.mixedLineEnds);
}

TEST(EncodeText, TellsTheUsualLineEndByWhatIsThere) {
    LoadedText loaded = DecodeText("a\nb\nc\r\n");
    EXPECT_EQ(Encode(u"c\n", loaded.format, std::vector<OtherLineEnd>{{0, LineEnd::CrLf}}), "c\r\n");
    EXPECT_EQ(loaded.format.lineEnd, LineEnd::CrLf);
    EXPECT_FALSE(loaded.format.mixedLineEnds);

    loaded = DecodeText("a\nb\n");
    EXPECT_EQ(Encode(u"c", loaded.format), "c");
    EXPECT_EQ(loaded.format.lineEnd, LineEnd::Lf) << "none is no reason for another";
}

TEST(EncodeText, TakesStrayCarriageReturnsForLineEnds) {
    TextFormat format;
    EXPECT_EQ(Encode(u"a\r\nb\rc\n", format), "a\r\nb\r\nc\r\n");
}

TEST(EncodeText, WritesANewDocumentAsUtf8WithCrLf) {
    TextFormat format;
    EXPECT_EQ(Encode(u"\u20AC\n", format), "\xE2\x82\xAC\r\n");
    EXPECT_EQ(format.encoding, "UTF-8");
}

TEST(EncodeText, RefusesATextThatDoesNotFit) {
    LoadedText loaded = DecodeText("caf\xE9\n");
    ASSERT_EQ(loaded.format.encoding, "windows-1252");
    EncodedText encoded = EncodeText(u"caf\u00E9 \u65E5\n", {}, loaded.format);
    EXPECT_FALSE(encoded.bytes);
    EXPECT_EQ(encoded.format.encoding, "windows-1252");

    loaded = DecodeText("<meta charset=koi8-r>\xF0");
    encoded = EncodeText(loaded.text + u'\u65E5', {}, loaded.format);
    EXPECT_FALSE(encoded.bytes);
    EXPECT_EQ(encoded.format.encoding, "KOI8-R");
}

TEST(EncodeText, RefusesATextThatWouldBeMisread) {
    LoadedText loaded = DecodeText("<meta charset=koi8-r>\xF0");
    EXPECT_FALSE(EncodeText(u"\u041F", {}, loaded.format).bytes) << "nothing says what it is any more";
    loaded = DecodeText("caf\xE9");
    EXPECT_FALSE(EncodeText(u"\u00C3\u00A9", {}, loaded.format).bytes) << "which looks like UTF-8";
}

TEST(EncodeText, FollowsTheDeclarationThatTheAuthorChanges) {
    LoadedText loaded = DecodeText("<meta charset=koi8-r>\xF0");
    EXPECT_EQ(Encode(u"<meta charset=windows-1251>\u041F", loaded.format), "<meta charset=windows-1251>\xCF");
    EXPECT_EQ(loaded.format.encoding, "windows-1251");
    EXPECT_EQ(Encode(u"<meta charset=utf-8>\u041F", loaded.format), "<meta charset=utf-8>\xD0\x9F");
    EXPECT_EQ(loaded.format.encoding, "UTF-8");
    EXPECT_EQ(Encode(u"<meta charset=koi8-r>\u041F", loaded.format), "<meta charset=koi8-r>\xF0");

    const EncodedText encoded = EncodeText(u"<meta charset=koi8-r>\u65E5", {}, TextFormat());
    EXPECT_FALSE(encoded.bytes);
    EXPECT_EQ(encoded.format.encoding, "KOI8-R") << "the encoding that it doesn't fit";
}

TEST(EncodeText, LeavesAFileThatDeclaresWhatItIsNotAsItIs) {
    LoadedText loaded = DecodeText("<meta charset=iso-2022-jp>\xC3\xA9");
    ASSERT_EQ(loaded.format.encoding, "UTF-8");
    EXPECT_EQ(Encode(loaded.text + u'\u00E8', loaded.format), "<meta charset=iso-2022-jp>\xC3\xA9\xC3\xA8");
    loaded = DecodeText("<meta charset=iso-2022-jp>\xE9");
    ASSERT_EQ(loaded.format.encoding, "windows-1252");
    EXPECT_EQ(Encode(loaded.text + u'\u00E8', loaded.format), "<meta charset=iso-2022-jp>\xE9\xE8");
}

TEST(EncodeText, WritesNoUtf8UnderAnotherLabel) {
    TextFormat format;
    EXPECT_EQ(Encode(u"<meta charset=shift_jis>\u65E5", format), "<meta charset=shift_jis>\x93\xFA");
    format = {};
    EXPECT_FALSE(EncodeText(u"<meta charset=shift_jis>\u00E9", {}, format).bytes);
    format.encoding = "windows-1252";
    EXPECT_FALSE(EncodeText(u"<meta charset=shift_jis>\u00E9", {}, format).bytes);
}

TEST(EncodeAsUtf8, TakesEveryText) {
    const LoadedText loaded = DecodeText("caf\xE9\n");
    const EncodedText encoded = EncodeAsUtf8(u"caf\u00E9 \u65E5\n", {}, loaded.format);
    EXPECT_EQ(encoded.bytes, "caf\xC3\xA9 \xE6\x97\xA5\n");
    EXPECT_EQ(encoded.format.Description(), "UTF-8, LF");
}

TEST(EncodeAsUtf8, LeavesOutHalfAUnitOfUtf16) {
    TextFormat format;
    format.encoding = "UTF-16LE";
    format.oddByte = "x";
    EXPECT_EQ(EncodeAsUtf8(u"a\u00E9", {}, format).bytes, "a\xC3\xA9");
}

// Whatever a person writes into a document, what was saved is what is read again.
TEST(EncodeText, WritesWhatIsReadBackAsTheSameText) {
    const QString texts[] = {u"<meta charset=iso-8859-1>\u00E9\u65E5"_qs,
                             u"<meta charset=iso-8859-1>\u00E9"_qs,
                             u"<meta charset=shift_jis>\u65E5\u00E9"_qs,
                             u"<meta charset=utf-8>\u00C3\u00A9"_qs,
                             u"\u00C3\u00A9"_qs,
                             u"<meta charset=utf-7>+AOk-"_qs,
                             u"\uFEFFa"_qs,
                             u"\u00EF\u00BB\u00BFa"_qs,
                             u"\u00FF\u00FEab"_qs,
                             u"<meta charset=iso-2022-jp>\u001B$B"_qs};
    for (const Bytes encoding :
         {"UTF-8", "windows-1252", "Shift_JIS", "UTF-16LE", "UTF-16BE", "iso-8859-2", "unknown"}) {
        for (const QString& text : texts) {
            TextFormat format;
            format.encoding = encoding;
            for (const EncodedText& encoded : {EncodeText(text, {}, format), EncodeAsUtf8(text, {}, format)}) {
                const LoadedText again = DecodeText(encoded.bytes.value_or(Bytes()));
                EXPECT_TRUE(!encoded.bytes || again.text == text) << encoding.data() << ": " << qPrintable(text);
            }
            EXPECT_TRUE(EncodeAsUtf8(text, {}, format).bytes);
        }
    }
}

TEST(EncodeText, MarksNoPlainAsciiWhateverItDeclares) {
    for (const Bytes text : {"<meta charset=koi8-r>a", "<meta charset=iso-8859-1>a", "<meta charset=iso-2022-jp>a"}) {
        TextFormat format;
        EXPECT_EQ(Encode(QString::fromLatin1(text), format), text);
        EXPECT_EQ(format.encoding, "UTF-8");
    }
}

TEST(EncodeText, WritesAReplacementCharacterForHalfASurrogatePair) {
    TextFormat format;
    EXPECT_EQ(Encode(QString(QChar(0xD800)), format), "\xEF\xBF\xBD");
    EXPECT_FALSE(format.byteOrderMark);
}

TEST(EncodeAsUtf8, MarksWhatADeclarationWouldHaveMisread) {
    const LoadedText loaded = DecodeText("<meta charset=iso-8859-1>caf\xE9");
    const EncodedText encoded = EncodeAsUtf8(u"<meta charset=iso-8859-1>\u65E5", {}, loaded.format);
    EXPECT_EQ(encoded.bytes, "\xEF\xBB\xBF<meta charset=iso-8859-1>\xE6\x97\xA5");
    EXPECT_TRUE(encoded.format.byteOrderMark);
}

}  // namespace
}  // namespace vellum::test
