#include "tests/files/text_bytes.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

namespace vellum::test {
namespace {

using Bytes = QByteArray;

// What a file gives back when it is written anew: its own bytes.
void ExpectUnchanged(const Bytes& bytes) {
    const LoadedText loaded = DecodeText(bytes);
    EXPECT_FALSE(loaded.text.contains(u'\r'));
    EXPECT_EQ(loaded.bytes, bytes);
    const EncodedText again = EncodeText(loaded.text, loaded.otherLineEnds, loaded.format);
    EXPECT_EQ(again.bytes, bytes) << bytes.first(qMin(bytes.size(), 80)).toHex(' ').data();
    EXPECT_EQ(again.format.Description(), loaded.format.Description());
}

TEST(DecodeText, TakesPlainBytesForUtf8) {
    const LoadedText loaded = DecodeText("gr\xC3\xBC\xC3\x9F \xE2\x82\xAC \xF0\x9F\x98\x80\r\n");
    EXPECT_EQ(loaded.text, u"gr\u00FC\u00DF \u20AC \U0001F600\n"_qs);
    EXPECT_EQ(loaded.format.encoding, "UTF-8");
    EXPECT_FALSE(loaded.format.byteOrderMark);
}

TEST(DecodeText, LeavesAnEmptyFileUtf8WithCrLf) {
    LoadedText loaded = DecodeText("");
    EXPECT_TRUE(loaded.text.isEmpty());
    EXPECT_EQ(loaded.format.encoding, "UTF-8");
    EXPECT_EQ(loaded.format.lineEnd, LineEnd::CrLf);
    EXPECT_EQ(Encode(loaded.text, loaded.format), "");
    EXPECT_EQ(Encode(u"a\nb", loaded.format), "a\r\nb");
}

TEST(DecodeText, TakesTheMarkOffAndPutsItBack) {
    LoadedText loaded = DecodeText(
        "\xEF\xBB\xBF"
        "a\xC3\xA9\n");
    EXPECT_EQ(loaded.text, u"a\u00E9\n"_qs);
    EXPECT_TRUE(loaded.format.byteOrderMark);
    EXPECT_EQ(Encode(u"b\n", loaded.format),
              "\xEF\xBB\xBF"
              "b\n");
    ExpectUnchanged("\xEF\xBB\xBF");
    ExpectUnchanged("\xEF\xBB\xBF\xEF\xBB\xBFx");
}

TEST(DecodeText, ReadsUtf16OfBothOrders) {
    LoadedText little = DecodeText(Raw("\xFF\xFE\x41\x00\xAC\x20\x0D\x00\x0A\x00"));
    EXPECT_EQ(little.text, u"A\u20AC\n"_qs);
    EXPECT_EQ(little.format.encoding, "UTF-16LE");
    EXPECT_EQ(little.format.lineEnd, LineEnd::CrLf);
    EXPECT_EQ(Encode(u"\u20AC", little.format), Raw("\xFF\xFE\xAC\x20"));

    LoadedText big = DecodeText(Raw("\xFE\xFF\x00\x41\x20\xAC\x00\x0A"));
    EXPECT_EQ(big.text, u"A\u20AC\n"_qs);
    EXPECT_EQ(big.format.encoding, "UTF-16BE");
    EXPECT_EQ(big.format.lineEnd, LineEnd::Lf);
    EXPECT_EQ(Encode(u"\u20AC\n", big.format), Raw("\xFE\xFF\x20\xAC\x00\x0A"));
}

TEST(DecodeText, KeepsHalfASurrogatePairInUtf16) {
    const LoadedText loaded = DecodeText(Raw("\xFF\xFE\x00\xD8\x41\x00\x00\xDC"));
    ASSERT_EQ(loaded.text.size(), 3);
    EXPECT_EQ(loaded.text[0].unicode(), 0xD800);
    EXPECT_EQ(loaded.text[2].unicode(), 0xDC00);
    ExpectUnchanged(Raw("\xFF\xFE\x00\xD8\x41\x00\x00\xDC"));
    ExpectUnchanged(Raw("\xFE\xFF\xD8\x00\x00\x41\xDC\x00"));
}

TEST(DecodeText, KeepsTheLastByteOfUtf16OfOddLength) {
    LoadedText loaded = DecodeText(Raw("\xFF\xFE\x41\x00\x42"));
    EXPECT_EQ(loaded.text, "A");
    EXPECT_EQ(loaded.format.Description(), "UTF-16 LE, bad bytes");
    EXPECT_EQ(Encode(u"AC", loaded.format), Raw("\xFF\xFE\x41\x00\x43\x00\x42"));
    ExpectUnchanged(Raw("\xFF\xFE\x41\x00\x42"));
    ExpectUnchanged(Raw("\xFE\xFF\x00\x41\x00"));
    ExpectUnchanged(Raw("\xFF\xFE\x41"));
}

TEST(DecodeText, SeesUtf16WithoutAMark) {
    const QString page = u"<p>Gr\u00FC\u00DFe \u20AC</p>\r\n"_qs;
    const QString japanese = "<p>" + QString(20, u'\u65E5') + "</p>";
    for (const bool bigEndian : {false, true}) {
        for (const QString& text : {page, japanese, u"plain text"_qs}) {
            LoadedText loaded = DecodeText(Utf16(text, bigEndian));
            EXPECT_EQ(loaded.format.encoding, bigEndian ? "UTF-16BE" : "UTF-16LE");
            EXPECT_FALSE(loaded.format.byteOrderMark);
            EXPECT_EQ(loaded.text, QString(text).replace("\r\n", "\n"));
            EXPECT_EQ(Encode("x" + loaded.text, loaded.format), Utf16("x" + text, bigEndian));
            EXPECT_FALSE(loaded.format.byteOrderMark);
            ExpectUnchanged(Utf16(text, bigEndian));
            ExpectUnchanged(Utf16(text, bigEndian) + 'x');
        }
    }
}

TEST(DecodeText, TakesFewNulsForUtf8) {
    for (const Bytes& bytes : {Raw("<p>\0</p>"), Raw("a\0"), Raw("a\0\0\0b\0\0\0"), Raw("\0\0\0\0"),
                               Raw("one\0two\0three\0"), Raw("a\0\1\0b\0c\0")}) {
        EXPECT_EQ(DecodeText(bytes).format.encoding, "UTF-8") << bytes.toHex(' ').data();
        ExpectUnchanged(bytes);
    }
}

TEST(DecodeText, TakesWhatIsNoUtf8ForWindows1252) {
    LoadedText loaded = DecodeText("\x93gr\xFC\xDF\x94 \x80\n");
    EXPECT_EQ(loaded.text, u"\u201Cgr\u00FC\u00DF\u201D \u20AC\n"_qs);
    EXPECT_EQ(loaded.format.encoding, "windows-1252");
    EXPECT_EQ(Encode(u"\u2013\u0178", loaded.format), "\x96\x9F");
}

TEST(DecodeText, GivesUndefinedBytesOfWindows1252AControlCharacter) {
    EXPECT_EQ(DecodeText("\x81\x8D\x8F\x90\x9D").text, u"\u0081\u008D\u008F\u0090\u009D"_qs);
    ExpectUnchanged("\x81\x8D\x8F\x90\x9D");
    Bytes all;
    for (int byte = 0; byte < 256; ++byte) all.append(static_cast<char>(byte));
    ExpectUnchanged(all);
}

// Flaws of UTF-8 that a lenient reader would let pass and write back in another way.
TEST(DecodeText, IsStrictAboutUtf8) {
    for (const char* flawed : {"\xC0\x80", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "a\xC3", "\xE2\x82",
                               "\xF8\x88\x80\x80\x80", "\x80"}) {
        const Bytes bytes(flawed);
        EXPECT_EQ(DecodeText(bytes).format.encoding, "windows-1252") << bytes.toHex(' ').data();
        ExpectUnchanged(bytes);
    }
}

TEST(DecodeText, FollowsTheDeclaredEncoding) {
    LoadedText loaded = DecodeText("<meta charset=windows-1251>\xCF\xF0\xE8\xE2\xE5\xF2");
    EXPECT_TRUE(loaded.text.endsWith(u"\u041F\u0440\u0438\u0432\u0435\u0442"));
    EXPECT_EQ(loaded.format.encoding, "windows-1251");
    EXPECT_EQ(Encode(u"<meta charset=windows-1251>\u0416", loaded.format), "<meta charset=windows-1251>\xC6");

    const LoadedText japanese = DecodeText("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\x93\xFA\x96\x7B");
    EXPECT_TRUE(japanese.text.endsWith(u"\u65E5\u672C"));
    EXPECT_EQ(japanese.format.Description(), "Shift_JIS");
    EXPECT_TRUE(DecodeText("@charset \"GB2312\";/*\xC4\xE3*/").text.endsWith(u"/*\u4F60*/"));
}

TEST(DecodeText, ReadsLatin1AsTheWebDoes) {
    for (const Bytes label : {"iso-8859-1", "ISO-8859-1", "latin1", "us-ascii", "windows-1252"}) {
        const LoadedText loaded = DecodeText("<meta charset=\"" + label + "\">\x93\xC3\xA9\x94");
        EXPECT_EQ(loaded.format.encoding, "windows-1252") << label.data();
        EXPECT_TRUE(loaded.text.endsWith(u"\u201C\u00C3\u00A9\u201D")) << label.data();
    }
}

TEST(LoadedText, IsReadableWithReplacementCharactersForBadBytes) {
    EXPECT_EQ(DecodeText("\xC3\xA4\xC3\xB6\xFFz\n").ReadableText(), u"\u00E4\u00F6\uFFFDz\n"_qs);
    EXPECT_EQ(DecodeText("plain").ReadableText(), "plain");
}

// Each bad byte is half a surrogate pair in the text, and goes back.
TEST(DecodeText, KeepsTheBadBytesOfUtf8) {
    const Bytes mark = "\xEF\xBB\xBF";
    for (const Bytes& before : {mark, Bytes("<meta charset=utf-8>"), Bytes("<?xml version='1.0' encoding='UTF-8'?>"),
                                Bytes("\xC3\xA9\xE2\x82\xAC")}) {
        LoadedText loaded = DecodeText(before + "a\xE9z");
        EXPECT_EQ(loaded.format.encoding, "UTF-8") << before.data();
        EXPECT_TRUE(loaded.text.endsWith("a" + QString(QChar(0xDCE9)) + "z")) << before.data();
        EXPECT_TRUE(loaded.format.Description().contains("UTF-8")) << before.data();
        EXPECT_TRUE(loaded.format.Description().contains(", bad bytes")) << before.data();
        EXPECT_EQ(Encode(loaded.text + u'\u20AC', loaded.format), before + "a\xE9z\xE2\x82\xAC");
        ExpectUnchanged(before + "a\xE9z");
        ExpectUnchanged(before + "\xC0\x80\xED\xA0\x80\xF4\x90\x80\x80\xE2\x82" + before.repeated(12));
    }
}

TEST(DecodeText, TakesUndeclaredBytesForUtf8WhenMoreAreGoodThanBad) {
    EXPECT_EQ(DecodeText("\xC3\xA9\xC3\xA9\xE9").format.encoding, "UTF-8");
    EXPECT_EQ(DecodeText("\xC3\xA9\xE9").format.encoding, "windows-1252");
    EXPECT_EQ(DecodeText("caf\xE9").format.encoding, "windows-1252");
    EXPECT_EQ(DecodeText("\xC3\xA9\xE2\x82").format.encoding, "windows-1252") << "two bad bytes";
    EXPECT_EQ(DecodeText("<meta charset=iso-8859-1>\xC3\xA9\xC3\xA9\xE9").format.encoding, "windows-1252");
    EXPECT_EQ(DecodeText("<meta charset=koi8-r>\xC3\xA9\xC3\xA9\xE9").format.encoding, "KOI8-R");
}

TEST(DecodeText, PassesOverADeclarationThatDoesNotFit) {
    // No such encoding, one that would spell the markup itself in another way, and a text with a flaw.
    EXPECT_EQ(DecodeText("<meta charset=nonsense>\xC3\xA9").format.encoding, "UTF-8");
    EXPECT_EQ(DecodeText("<meta charset=ibm037>\xC3\xA9").format.encoding, "UTF-8");
    EXPECT_EQ(DecodeText("<meta charset=shift_jis>\x93").format.encoding, "windows-1252");
    EXPECT_EQ(DecodeText("<meta charset=\"\">\xC3\xA9").format.encoding, "UTF-8");
}

TEST(DecodeText, PassesOnToADeclarationThatItKnows) {
    EXPECT_EQ(DecodeText("<meta charset=nonsense><meta charset=koi8-r>\xF0").format.encoding, "KOI8-R");
}

TEST(DecodeText, BelievesTheMarkRatherThanTheDeclaration) {
    EXPECT_EQ(DecodeText("\xEF\xBB\xBF<meta charset=windows-1251>\xC3\xA9").format.encoding, "UTF-8");
}

TEST(TextFile, GivesEveryEncodingBackUnchanged) {
    for (const Bytes& bytes :
         {Bytes("<meta charset=shift_jis>\x93\xFA\x96\x7B\x5C\r\n"), Bytes("<meta charset=euc-jp>\xC6\xFC\xCB\xDC\n"),
          Bytes("<meta charset=sjis>\x87\x40"), Bytes("<meta charset=iso-2022-jp>\x1B$BF|K\\\x1B(B"),
          Bytes("<meta charset=iso-2022-jp>\x1B(B\x1B(B a"), Bytes("<meta charset=gb18030>\xC4\xE3\x81\x30\x81\x30"),
          Bytes("<meta charset=gbk>\xC4\xE3\x80"), Bytes("<meta charset=big5>\xA4\xA4\xA4\xE5"),
          Bytes("<meta charset=euc-kr>\xC7\xD1"), Bytes("<meta charset=koi8-r>\xF0\xD2"),
          Bytes("<meta charset=koi8-u>\xF0\xD2\xA4"), Bytes("<meta charset=iso-8859-2>\xB1\xE6\x80"),
          Bytes("<meta charset=iso-8859-15>\xA4"), Bytes("<meta charset=windows-1250>\xB9\x81"),
          Bytes("<meta charset=windows-1254>\xFE\x81"), Bytes("<meta charset=utf-7>+AOk-"),
          Bytes("<meta charset=hz-gb-2312>~{Dc~}"), Bytes("<meta charset=tis-620>\xA1")}) {
        ExpectUnchanged(bytes);
    }
}

TEST(TextFile, GivesRandomBytesBackUnchanged) {
    const Bytes prefixes[] = {"",
                              "\xEF\xBB\xBF",
                              "\xFF\xFE",
                              "\xFE\xFF",
                              "<meta charset=utf-8>",
                              "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9",
                              "<meta charset=gbk>",
                              "<meta charset=big5>",
                              "<meta charset=euc-kr>",
                              "<meta charset=koi8-u>",
                              "<meta charset=iso-8859-16>",
                              "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>",
                              "<meta charset=windows-1251>",
                              "<meta charset=shift_jis>",
                              "<meta charset=iso-2022-jp>",
                              "<meta charset=gb18030>",
                              "<meta charset=iso-8859-1>",
                              "<meta charset=utf-7>",
                              "<?xml version=\"1.0\" encoding=\"big5\"?>",
                              "@charset \"windows-1254\";"};
    std::mt19937 random(20020311);  // fixed, so that a failure comes back
    const char likely[] = "\r\n\r\n aA\x00<>&\xC3\xA9\xE2\x82\xAC\x1B~{$(B+-";
    for (const Bytes& prefix : prefixes) {
        for (int round = 0; round < 400; ++round) {
            Bytes bytes = prefix;
            const int length = static_cast<int>(random() % 40);
            for (int i = 0; i < length; ++i) {
                const bool any = random() % 3 == 0;
                bytes += any ? static_cast<char>(random() % 256) : likely[random() % (sizeof(likely) - 1)];
            }
            ExpectUnchanged(bytes);
        }
    }
}

TEST(TextFile, GivesLineEndsOfEveryKindBackUnchanged) {
    for (const Bytes& bytes :
         {Bytes("a\r\nb\r\n"), Bytes("a\nb\n"), Bytes("a\rb\r"), Bytes("a\r\nb"), Bytes("a"), Bytes("\n"), Bytes("\r"),
          Bytes("\r\n"), Bytes("a\nb\r\nc\rd"), Bytes("\r\r\n\n"), Bytes("\n\r"), Bytes("\r\n\r"), Raw("a\0b\r\n\0")}) {
        ExpectUnchanged(bytes);
    }
}

TEST(DecodeText, MakesEveryLineEndOneCharacter) {
    const LoadedText loaded = DecodeText("a\nb\r\nc\rd\n\ne");
    EXPECT_EQ(loaded.text, "a\nb\nc\nd\n\ne");
    EXPECT_TRUE(loaded.format.mixedLineEnds);
    EXPECT_EQ(loaded.format.lineEnd, LineEnd::Lf);
}

TEST(DecodeText, PrefersCrLfThenLfAmongEquallyFrequentLineEnds) {
    EXPECT_EQ(DecodeText("a\nb\rc\r\n").format.lineEnd, LineEnd::CrLf);
    EXPECT_EQ(DecodeText("a\rb\n").format.lineEnd, LineEnd::Lf);
    EXPECT_EQ(DecodeText("a\rb\r\rc\n").format.lineEnd, LineEnd::Cr);
    EXPECT_FALSE(DecodeText("a\rb\r").format.mixedLineEnds);
    EXPECT_EQ(DecodeText("a\rb\r").format.lineEnd, LineEnd::Cr);
    EXPECT_EQ(DecodeText("one line").format.lineEnd, LineEnd::CrLf);
}

TEST(DecodeText, TellsTheLineEndsThatDiffer) {
    EXPECT_EQ(DecodeText("a\nb\r\nc\rd\n\ne").otherLineEnds,
              (std::vector<OtherLineEnd>{{1, LineEnd::CrLf}, {2, LineEnd::Cr}}));
    EXPECT_TRUE(DecodeText("a\nb\n").otherLineEnds.empty());
}

TEST(TextFormat, DescribesItselfToAPerson) {
    TextFormat format;
    EXPECT_EQ(format.Description(), "UTF-8");
    format.lineEnd = LineEnd::Lf;
    EXPECT_EQ(format.Description(), "UTF-8, LF");
    format.encoding = "UTF-16LE";
    format.byteOrderMark = true;
    EXPECT_EQ(format.Description(), "UTF-16 LE, LF");
    EXPECT_EQ(DecodeText("\x93\nb\r\n").format.Description(), "Windows-1252, mixed line ends");
    EXPECT_EQ(DecodeText("\xEF\xBB\xBF"
                         "a\rb")
                  .format.Description(),
              "UTF-8 with byte order mark, CR");
}

TEST(TextFile, TakesLargeFilesAndLongLines) {
    Bytes large;
    large.reserve(9'000'000);
    while (large.size() < 8'000'000) large += "<p class=\"a\">gr\xC3\xBC\xC3\x9F dich</p>\r\n";
    ExpectUnchanged(large);
    ExpectUnchanged(Bytes(1'000'000, 'x'));
    ExpectUnchanged(Bytes(1'000'000, '\xE9'));
}

TEST(ReadTextFile, RefusesWhatIsNoFile) {
    const QTemporaryDir folder;
    QString error;
    EXPECT_FALSE(ReadTextFile(folder.path(), &error));
    EXPECT_TRUE(error.contains(folder.path()));
    error.clear();
    EXPECT_FALSE(ReadTextFile(folder.filePath("missing"), &error));
    EXPECT_FALSE(error.isEmpty());
    error.clear();
    EXPECT_FALSE(ReadTextFile("/dev/zero", &error));
    EXPECT_FALSE(error.isEmpty());
    error.clear();
    const QString pipe = folder.filePath("pipe");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(ReadTextFile(pipe, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(ReadTextFile({}));
}

TEST(ReadTextFile, RefusesAFileThatIsTooLarge) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("large"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    if (!file.resize(qint64{1} << 30)) GTEST_SKIP() << "no sparse files here";
    QString error;
    EXPECT_FALSE(ReadTextFile(file.fileName(), &error));
    EXPECT_TRUE(error.contains("too large"));
}

}  // namespace
}  // namespace vellum::test
