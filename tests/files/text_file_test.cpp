#include "files/text_file.h"

#include "files/declared_encoding.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

namespace vellum {
namespace {

using Bytes = QByteArray;

// Bytes of a literal that may hold NULs.
template <size_t size>
Bytes Raw(const char (&literal)[size]) {
    return Bytes(literal, size - 1);
}

// What a file gives back when it is written anew: its own bytes, but for line ends that were mixed.
void ExpectUnchanged(const Bytes& bytes) {
    LoadedText loaded = DecodeText(bytes);
    EXPECT_FALSE(loaded.text.contains(u'\r'));
    EXPECT_EQ(loaded.bytes, bytes);
    const bool mixed = loaded.format.mixedLineEnds;
    const Bytes again = EncodeText(loaded.text, loaded.format);
    const auto shown = bytes.first(qMin(bytes.size(), 80)).toHex(' ');
    if (!mixed) {
        EXPECT_EQ(again, bytes) << shown.data();
    } else {
        EXPECT_EQ(DecodeText(again).text, loaded.text) << shown.data();
    }
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
    EXPECT_EQ(EncodeText(loaded.text, loaded.format), "");
    EXPECT_EQ(EncodeText(u"a\nb", loaded.format), "a\r\nb");
}

TEST(DecodeText, TakesTheMarkOffAndPutsItBack) {
    LoadedText loaded = DecodeText(
        "\xEF\xBB\xBF"
        "a\xC3\xA9\n");
    EXPECT_EQ(loaded.text, u"a\u00E9\n"_qs);
    EXPECT_TRUE(loaded.format.byteOrderMark);
    EXPECT_EQ(EncodeText(u"b\n", loaded.format),
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
    EXPECT_EQ(EncodeText(u"\u20AC", little.format), Raw("\xFF\xFE\xAC\x20"));

    LoadedText big = DecodeText(Raw("\xFE\xFF\x00\x41\x20\xAC\x00\x0A"));
    EXPECT_EQ(big.text, u"A\u20AC\n"_qs);
    EXPECT_EQ(big.format.encoding, "UTF-16BE");
    EXPECT_EQ(big.format.lineEnd, LineEnd::Lf);
    EXPECT_EQ(EncodeText(u"\u20AC\n", big.format), Raw("\xFE\xFF\x20\xAC\x00\x0A"));
}

TEST(DecodeText, KeepsHalfASurrogatePairInUtf16) {
    const LoadedText loaded = DecodeText(Raw("\xFF\xFE\x00\xD8\x41\x00\x00\xDC"));
    ASSERT_EQ(loaded.text.size(), 3);
    EXPECT_EQ(loaded.text[0].unicode(), 0xD800);
    EXPECT_EQ(loaded.text[2].unicode(), 0xDC00);
    ExpectUnchanged(Raw("\xFF\xFE\x00\xD8\x41\x00\x00\xDC"));
    ExpectUnchanged(Raw("\xFE\xFF\xD8\x00\x00\x41\xDC\x00"));
}

TEST(DecodeText, ReadsUtf16OfOddLengthAsWindows1252) {
    const Bytes odd = Raw("\xFF\xFE\x41\x00\x42");
    EXPECT_EQ(DecodeText(odd).format.encoding, "windows-1252");
    ExpectUnchanged(odd);
}

TEST(DecodeText, TakesWhatIsNoUtf8ForWindows1252) {
    LoadedText loaded = DecodeText("\x93gr\xFC\xDF\x94 \x80\n");
    EXPECT_EQ(loaded.text, u"\u201Cgr\u00FC\u00DF\u201D \u20AC\n"_qs);
    EXPECT_EQ(loaded.format.encoding, "windows-1252");
    EXPECT_EQ(EncodeText(u"\u2013\u0178", loaded.format), "\x96\x9F");
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
                               "\xEF\xBB\xBF\xFF", "\xF8\x88\x80\x80\x80", "\x80"}) {
        const Bytes bytes(flawed);
        EXPECT_EQ(DecodeText(bytes).format.encoding, "windows-1252") << bytes.toHex(' ').data();
        ExpectUnchanged(bytes);
    }
}

TEST(DeclaredEncoding, IsFoundWhereDocumentsSayIt) {
    EXPECT_EQ(DeclaredEncoding("<?xml version=\"1.0\" encoding=\"windows-1251\"?>"), "windows-1251");
    EXPECT_EQ(DeclaredEncoding("<?xml version='1.0' encoding='koi8-r' standalone='yes'?>"), "koi8-r");
    EXPECT_EQ(DeclaredEncoding("<html><head><META charset=Shift_JIS>"), "Shift_JIS");
    EXPECT_EQ(DeclaredEncoding("<meta charset = 'big5'/>"), "big5");
    EXPECT_EQ(DeclaredEncoding("<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-2\" />"),
              "iso-8859-2");
    EXPECT_EQ(DeclaredEncoding("<meta content='text/html;charset=iso-8859-5' http-equiv=content-type>"), "iso-8859-5");
    EXPECT_EQ(DeclaredEncoding("@charset \"iso-8859-15\";\nbody {}"), "iso-8859-15");
}

TEST(DeclaredEncoding, IsNotFoundElsewhere) {
    EXPECT_EQ(DeclaredEncoding(""), "");
    EXPECT_EQ(DeclaredEncoding("<p>charset=big5</p>"), "");
    EXPECT_EQ(DeclaredEncoding("<!-- <meta charset=big5> --><p>"), "");
    EXPECT_EQ(DeclaredEncoding("<!-- <meta charset=big5> --><meta charset=koi8-r>"), "koi8-r");
    EXPECT_EQ(DeclaredEncoding("<meta name=\"description\" content=\"how to write charset=big5\">"), "");
    EXPECT_EQ(DeclaredEncoding("body {} @charset \"big5\";"), "");
    EXPECT_EQ(DeclaredEncoding(Bytes(1020, ' ') + "<meta charset=big5>"), "");
}

TEST(DecodeText, FollowsTheDeclaredEncoding) {
    LoadedText loaded = DecodeText("<meta charset=windows-1251>\xCF\xF0\xE8\xE2\xE5\xF2");
    EXPECT_TRUE(loaded.text.endsWith(u"\u041F\u0440\u0438\u0432\u0435\u0442"));
    EXPECT_EQ(loaded.format.encoding, "windows-1251");
    EXPECT_EQ(EncodeText(u"<meta charset=windows-1251>\u0416", loaded.format), "<meta charset=windows-1251>\xC6");

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

TEST(DecodeText, TakesWhatIsDeclaredUtf8AndIsNotForWindows1252) {
    const LoadedText loaded = DecodeText("<meta charset=utf-8>\xE9");
    EXPECT_EQ(loaded.format.encoding, "windows-1252");
    EXPECT_TRUE(loaded.text.endsWith(u'\u00E9'));
}

TEST(DecodeText, PassesOverADeclarationThatDoesNotFit) {
    // No such encoding, one that would spell the markup itself in another way, and a text with a flaw.
    EXPECT_EQ(DecodeText("<meta charset=nonsense>\xC3\xA9").format.encoding, "UTF-8");
    EXPECT_EQ(DecodeText("<meta charset=utf-16>\xC3\xA9").format.encoding, "UTF-8");
    EXPECT_EQ(DecodeText("<meta charset=ibm037>\xC3\xA9").format.encoding, "UTF-8");
    EXPECT_EQ(DecodeText("<meta charset=shift_jis>\x93").format.encoding, "windows-1252");
    EXPECT_EQ(DecodeText("<meta charset=\"\">\xC3\xA9").format.encoding, "UTF-8");
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

TEST(EncodeText, GivesAnEditedFileOneLineEnd) {
    LoadedText loaded = DecodeText("a\nb\r\nc\n");
    EXPECT_EQ(EncodeText(u"a\nb\nc\nd\n", loaded.format), "a\nb\nc\nd\n");
    EXPECT_FALSE(loaded.format.mixedLineEnds);

    loaded = DecodeText("a\r\nb\r\nc\r");
    EXPECT_EQ(EncodeText(u"A\nb\nc\n", loaded.format), "A\r\nb\r\nc\r\n");
}

TEST(EncodeText, TakesStrayCarriageReturnsForLineEnds) {
    TextFormat format;
    EXPECT_EQ(EncodeText(u"a\r\nb\rc\n", format), "a\r\nb\r\nc\r\n");
}

TEST(EncodeText, WritesANewDocumentAsUtf8WithCrLf) {
    TextFormat format;
    EXPECT_EQ(EncodeText(u"\u20AC\n", format), "\xE2\x82\xAC\r\n");
    EXPECT_EQ(format.encoding, "UTF-8");
}

TEST(EncodeText, TurnsToUtf8WhenTheTextNoLongerFits) {
    LoadedText loaded = DecodeText("caf\xE9\n");
    ASSERT_EQ(loaded.format.encoding, "windows-1252");
    EXPECT_EQ(EncodeText(u"caf\u00E9 \u65E5\n", loaded.format), "caf\xC3\xA9 \xE6\x97\xA5\n");
    EXPECT_EQ(loaded.format.encoding, "UTF-8");
    EXPECT_FALSE(loaded.format.byteOrderMark);

    loaded = DecodeText("<meta charset=koi8-r>\xF0");
    EXPECT_TRUE(EncodeText(loaded.text + u'\u65E5', loaded.format).endsWith("\xD0\x9F\xE6\x97\xA5"));
    EXPECT_EQ(loaded.format.encoding, "UTF-8");
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
            const Bytes bytes = EncodeText(text, format);
            const LoadedText again = DecodeText(bytes);
            EXPECT_TRUE(again.text == text) << encoding.data() << ": " << qPrintable(text);
        }
    }
}

TEST(EncodeText, MarksNoPlainAsciiWhateverItDeclares) {
    for (const Bytes text : {"<meta charset=koi8-r>a", "<meta charset=iso-8859-1>a", "<meta charset=iso-2022-jp>a"}) {
        TextFormat format;
        EXPECT_EQ(EncodeText(QString::fromLatin1(text), format), text);
        EXPECT_EQ(format.encoding, "UTF-8");
    }
}

TEST(EncodeText, WritesAReplacementCharacterForHalfASurrogatePair) {
    TextFormat format;
    EXPECT_EQ(EncodeText(QString(QChar(0xD800)), format), "\xEF\xBF\xBD");
    EXPECT_FALSE(format.byteOrderMark);
}

TEST(EncodeText, MarksUtf8ThatADeclarationWouldHaveMisread) {
    LoadedText loaded = DecodeText("<meta charset=iso-8859-1>caf\xE9");
    EXPECT_EQ(EncodeText(u"<meta charset=iso-8859-1>\u65E5", loaded.format),
              "\xEF\xBB\xBF<meta charset=iso-8859-1>\xE6\x97\xA5");
    EXPECT_TRUE(loaded.format.byteOrderMark);
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
}  // namespace vellum
