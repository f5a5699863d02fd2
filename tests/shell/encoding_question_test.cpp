// What is asked when a text doesn't fit its encoding any more, and what comes of each answer.
#include "tests/shell/main_window_fixture.h"
#include "tests/support/type_text.h"

#include <libxml/HTMLparser.h>
#include <libxml/parser.h>

namespace vellum::test {
namespace {

const QString utf8 = "Save as UTF-8";

class EncodingQuestionTest : public MainWindowFixture {
protected:
    void OpenPage(const QByteArray& bytes, const QString& name = "page.htm") {
        path = MakeFile(name, bytes);
        if (!window) Open();
        window->OpenInNewWindow(path, "unreadable");
        ASSERT_EQ(Active().Caption(), path);
    }
    [[nodiscard]] EditSurface& Surface() const { return *Active().Text1; }
    void TypeAt(const QString& before, const QString& text) const {
        Surface().SetSelStart(static_cast<int>(Surface().Text().indexOf(before)));
        TypeText(Surface(), text);
    }
    [[nodiscard]] QString Format() const { return Active().findChild<QLabel*>("lblFormat")->text(); }

    QString path;
};

const QByteArray russian = "<meta charset=koi8-r>\r\n<p>\xF0\xF2</p>\r\n";

TEST_F(EncodingQuestionTest, NamesTheFileTheEncodingTheCharacterAndItsLine) {
    OpenPage(russian);
    TypeAt("</p>", u"\u65E5\u672C"_qs);
    Trigger("mnuSaveregItem");
    ASSERT_EQ(prompts.questions.size(), 1);
    EXPECT_EQ(prompts.questions[0],
              u"Encoding|Line 2 of \"page.htm\" holds \"\u65E5\" (U+65E5), which KOI8-R, the encoding of the file, "
              u"doesn't have.\n\n"
              "Save as UTF-8, which has every character, and correct the encoding that the text declares? "
              "Or keep KOI8-R, and write what it doesn't have as references like &#26085;, in this window too?"_qs);
    EXPECT_EQ(prompts.captions, (QStringList{utf8, "Keep KOI8-R", "Cancel"}));
}

TEST_F(EncodingQuestionTest, CancelSavesNothingAndChangesNothing) {
    OpenPage(russian);
    TypeAt("</p>", u"\u65E5"_qs);
    const QString text = Surface().Text();
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), russian);
    EXPECT_EQ(Surface().Text(), text);
    EXPECT_FALSE(Active().Saver());
    EXPECT_EQ(Format(), "KOI8-R");
    prompts.saveNames.push_back(SitePath("other.htm"));
    Trigger("mnuSaveItem");
    EXPECT_EQ(prompts.questions.size(), 2) << "there is no answer yet";
    EXPECT_EQ(Active().Caption(), path);
    EXPECT_FALSE(QFile::exists(SitePath("other.htm")));
    EXPECT_TRUE(prompts.messages.isEmpty());
}

TEST_F(EncodingQuestionTest, Utf8CorrectsEveryDeclarationAsOneStep) {
    OpenPage(
        "<?xml version='1.0' encoding='windows-1251'?>\n<html><head>\n"
        "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=Windows-1251\" />\n"
        "<!-- <meta charset='windows-1251'> --><script>'<meta charset=\"koi8-r\">'</script></head>\n"
        "<body>\xCF\r\n</body></html>\n");
    TypeAt("</body>", u"\u65E5"_qs);
    const QString before = Surface().Text();
    Surface().SetSelStart(static_cast<int>(before.indexOf("</body>")));
    prompts.choices = {utf8};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path),
              "<?xml version='1.0' encoding='utf-8'?>\n<html><head>\n"
              "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\" />\n"
              "<!-- <meta charset='windows-1251'> --><script>'<meta charset=\"koi8-r\">'</script></head>\n"
              "<body>\xD0\x9F\r\n\xE6\x97\xA5</body></html>\n");
    EXPECT_EQ(Surface().Mid(Surface().SelStart(), 7), "</body>") << "the caret stays where it was";
    EXPECT_EQ(Format(), "UTF-8, mixed line ends");
    EXPECT_TRUE(Active().Saver());
    Trigger("mnuUndoItem");
    EXPECT_EQ(Surface().Text(), before);
    EXPECT_FALSE(Active().Saver());
}

TEST_F(EncodingQuestionTest, IsAskedOnceForADocument) {
    OpenPage(russian);
    TypeAt("</p>", u"\u65E5"_qs);
    prompts.choices = {utf8};
    Trigger("mnuSaveregItem");
    Trigger("mnuUndoItem");  // the declaration says KOI8-R again
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 1);
    EXPECT_EQ(Bytes(path), "<meta charset=utf-8>\r\n<p>\xD0\x9F\xD0\xA0\xE6\x97\xA5</p>\r\n");
    Trigger("mnuUndoItem");
    Trigger("mnuUndoItem");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 1);
    EXPECT_EQ(Bytes(path), russian) << "the first text fits its first encoding";
}

TEST_F(EncodingQuestionTest, KeepWritesReferencesInTheTextToo) {
    OpenPage(russian);
    TypeAt("</p>", u"\u65E5\u672Cx"_qs);
    Surface().SetSelText(u"\U0001F600"_qs);
    prompts.choices = {"Keep KOI8-R"};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "<meta charset=koi8-r>\r\n<p>\xF0\xF2&#26085;&#26412;x&#128512;</p>\r\n");
    EXPECT_TRUE(Surface().Text().contains("&#26085;&#26412;x&#128512;</p>"));
    EXPECT_TRUE(Active().Saver());
    EXPECT_EQ(Format(), "KOI8-R");
    TypeAt("</p>", u"\u00E9"_qs);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 1) << "the answer holds";
    EXPECT_TRUE(Bytes(path).endsWith("&#233;</p>\r\n"));
    Trigger("mnuUndoItem");
    EXPECT_TRUE(Surface().Text().contains(u"x&#128512;\u00E9</p>"));
}

TEST_F(EncodingQuestionTest, ReferencesAreAStepBetweenTheOthers) {
    OpenPage(russian);
    TypeAt("</p>", u"\u65E5"_qs);
    QTest::keyClick(&Surface(), Qt::Key_Home);
    TypeText(Surface(), "gone");
    Trigger("mnuUndoItem");
    prompts.choices = {"Keep KOI8-R"};
    Trigger("mnuSaveregItem");
    const QString first = Surface().Text();
    ASSERT_TRUE(first.contains("&#26085;"));
    Trigger("mnuRedoItem");
    EXPECT_EQ(Surface().Text(), first) << "what was undone belongs to another text";

    TypeText(Surface(), u"\u672C"_qs);
    Trigger("mnuSaveregItem");
    const QString second = Surface().Text();
    ASSERT_TRUE(second.contains("&#26412;"));
    TypeText(Surface(), "x");
    Trigger("mnuUndoItem");
    EXPECT_EQ(Surface().Text(), second) << "a letter after them is a step of its own";
}

TEST_F(EncodingQuestionTest, ReferencesAreNotOfferedWhereNoneIsRead) {
    OpenPage("<meta charset=koi8-r>\n<p>a</p>\n<script>b</script>\n");
    TypeAt("b</script>", u"\u65E5"_qs);
    TypeAt("a</p>", u"\u672C"_qs);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.captions, (QStringList{utf8, "Cancel"}));
    EXPECT_TRUE(prompts.questions.constLast().contains(u"\u672C"));
    EXPECT_TRUE(prompts.questions.constLast().endsWith(
        "KOI8-R can't be kept with references in place of such characters: one stands in a script."));

    OpenPage("@charset \"koi8-r\";\np {}\n", "style.css");
    TypeAt("p {}", u"\u65E5"_qs);
    prompts.choices = {utf8};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.captions, (QStringList{utf8, "Cancel"}));
    EXPECT_TRUE(prompts.questions.constLast().endsWith("the file is no page."));
    EXPECT_EQ(Bytes(path), "@charset \"utf-8\";\n\xE6\x97\xA5p {}\n");

    OpenPage("write('<meta charset=koi8-r>');\n", "page.js");
    TypeAt("write", u"\u65E5"_qs);
    prompts.choices = {utf8};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "\xEF\xBB\xBF\xE6\x97\xA5write('<meta charset=koi8-r>');\n") << "a text of the script";
}

TEST_F(EncodingQuestionTest, ComesAgainWhenTheAnswerWillNotDo) {
    OpenPage("<meta charset=koi8-r>\n<p>a</p>\n<!-- b -->\n");
    TypeAt("a</p>", u"\u65E5"_qs);
    prompts.choices = {"Keep KOI8-R"};
    Trigger("mnuSaveregItem");
    TypeAt("b -->", u"\u65E5"_qs);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 2);
    EXPECT_EQ(prompts.captions, (QStringList{utf8, "Cancel"}));
    EXPECT_EQ(Bytes(path), "<meta charset=koi8-r>\n<p>&#26085;a</p>\n<!-- b -->\n");
}

TEST_F(EncodingQuestionTest, ComesAgainWhenReferencesWereChosenAndTheDeclarationIsGone) {
    OpenPage(russian);
    TypeAt("</p>", u"\u65E5"_qs);
    prompts.choices = {"Keep KOI8-R"};
    Trigger("mnuSaveregItem");
    Surface().ReplaceRange({0, static_cast<int>(Surface().RawText().indexOf("<p>"))}, QString());
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 2);
    EXPECT_EQ(prompts.captions, (QStringList{utf8, "Cancel"}));
}

TEST_F(EncodingQuestionTest, APageThatDeclaresNothingGetsAMarkThatBrowsersBelieve) {
    prompts.choices = {utf8, utf8, utf8, utf8};
    OpenPage("<p>caf\xE9</p>");
    TypeAt("</p>", u"\u65E5"_qs);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "\xEF\xBB\xBF<p>caf\xC3\xA9\xE6\x97\xA5</p>");
    OpenPage("caf\xE9", "notes.txt");
    TypeAt("caf", u"\u65E5"_qs);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path),
              "\xE6\x97\xA5"
              "caf\xC3\xA9");
    OpenPage("<p>caf\xE9<?php echo 1 ?></p>", "page.php");
    TypeAt("</p>", u"\u65E5"_qs);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "<p>caf\xC3\xA9<?php echo 1 ?>\xE6\x97\xA5</p>") << "a server would send the mark ahead";
    OpenPage("<a>caf\xE9</a>", "feed.xml");
    TypeAt("</a>", u"\u65E5"_qs);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "<a>caf\xC3\xA9\xE6\x97\xA5</a>");
    EXPECT_EQ(prompts.questions.size(), 4);
    EXPECT_FALSE(prompts.questions.constLast().contains("declares"));
}

TEST_F(EncodingQuestionTest, IsAskedWhenNothingSaysTheEncodingAnyMore) {
    OpenPage(russian);
    Surface().SetSelStart(0);
    Surface().SetSelLength(static_cast<int>(Surface().Text().indexOf("<p>")));
    QTest::keyClick(&Surface(), Qt::Key_Delete);
    Trigger("mnuSaveregItem");
    ASSERT_EQ(prompts.questions.size(), 1);
    EXPECT_TRUE(prompts.questions[0].contains("can't be saved in its encoding, KOI8-R"));
    EXPECT_EQ(prompts.captions, (QStringList{utf8, "Cancel"}));
    EXPECT_EQ(Bytes(path), russian);
    prompts.choices = {utf8};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "\xEF\xBB\xBF<p>\xD0\x9F\xD0\xA0</p>\r\n");
}

TEST_F(EncodingQuestionTest, FollowsADeclarationThatTheAuthorChangesWithoutAQuestion) {
    OpenPage(russian);
    Surface().ReplaceRange({14, 6}, "utf-8");
    Trigger("mnuSaveregItem");
    EXPECT_TRUE(prompts.questions.isEmpty());
    EXPECT_EQ(Bytes(path), "<meta charset=utf-8>\r\n<p>\xD0\x9F\xD0\xA0</p>\r\n");
    EXPECT_EQ(Format(), "UTF-8");
}

TEST_F(EncodingQuestionTest, ACloseWithYesGoesTheSameWay) {
    OpenPage(russian);
    TypeAt("</p>", u"\u65E5"_qs);
    const int count = window->OpenDocCount();
    prompts.answers = {Answer::Yes, Answer::Yes};
    Trigger("mnuClose");
    EXPECT_EQ(window->OpenDocCount(), count) << "cancelled, so it stays open";
    EXPECT_EQ(Active().Caption(), path);
    EXPECT_EQ(Bytes(path), russian);
    prompts.choices = {utf8};
    Trigger("mnuClose");
    EXPECT_EQ(window->OpenDocCount(), count - 1);
    EXPECT_TRUE(Bytes(path).contains("charset=utf-8"));
}

TEST_F(EncodingQuestionTest, ACancelledOneEndsACloseOfAll) {
    OpenPage(russian);
    OpenPage(russian, "second.htm");
    TypeAt("</p>", u"\u65E5"_qs);
    prompts.answers = {Answer::Yes};
    Trigger("mnuCloseAll");
    EXPECT_EQ(Active().Caption(), path);
    EXPECT_EQ(prompts.questions.size(), 2);
}

// What a parser reads in the elements of a file.
QString ParsedText(const QString& path, bool asXml) {
    const QByteArray name = QFile::encodeName(path);
    const int quiet = asXml ? XML_PARSE_NOERROR | XML_PARSE_NOWARNING : HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING;
    xmlDoc* const document =
        asXml ? xmlReadFile(name.constData(), nullptr, quiet) : htmlReadFile(name.constData(), nullptr, quiet);
    if (!document) return "unreadable";
    xmlChar* const content = xmlNodeGetContent(xmlDocGetRootElement(document));
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(content));
    xmlFree(content);
    xmlFreeDoc(document);
    return text;
}

struct Label {
    const char* name;
    QString text;   // that the encoding has
    QString typed;  // and what it hasn't
};

void PrintTo(const Label& label, std::ostream* out) {
    *out << label.name;
}

class ParserReading : public EncodingQuestionTest, public testing::WithParamInterface<std::tuple<Label, bool>> {};

TEST_P(ParserReading, IsWhatTheWindowShows) {
    const auto& [label, asXml] = GetParam();
    const QString declaration =
        asXml ? QString("<?xml version=\"1.0\" encoding=\"%1\"?>\n").arg(label.name) : QString();
    const QString meta =
        QString("<meta http-equiv=\"Content-Type\" content=\"text/html; charset=%1\" />").arg(label.name);
    const QString page =
        declaration + "<html><head>" + meta + "<title>t</title></head><body><p>" + label.text + "</p></body></html>\n";
    TextFormat format;
    format.lineEnd = LineEnd::Lf;
    const EncodedText encoded = EncodeText(page, {}, format);
    ASSERT_TRUE(encoded.bytes);
    ASSERT_NE(encoded.format.encoding, "UTF-8");
    for (const bool keep : {false, true}) {
        OpenPage(*encoded.bytes);
        TypeAt("</p>", label.typed);
        Trigger("mnuSaveregItem");  // to see the captions
        prompts.choices = {keep ? prompts.captions.value(1) : utf8};
        Trigger("mnuSaveregItem");
        ASSERT_TRUE(Active().Saver());
        EXPECT_EQ(ParsedText(path, asXml).trimmed(), "t" + label.text + label.typed);
        EXPECT_EQ(DecodeText(Bytes(path)).text, Surface().RawText());
        EXPECT_EQ(Bytes(path).contains("utf-8"), !keep);
    }
}

INSTANTIATE_TEST_SUITE_P(Labels, ParserReading,
                         testing::Combine(testing::Values(Label{"iso-8859-1", u"Gr\u00FC\u00DFe"_qs, u"\u65E5"_qs},
                                                          Label{"windows-1251", u"\u041F\u0440"_qs, u"\u00E9"_qs},
                                                          Label{"koi8-r", u"\u041F\u0440"_qs, u"\u20AC"_qs},
                                                          Label{"iso-8859-2", u"\u0141\u00F3d\u017A"_qs, u"\u20AC"_qs},
                                                          Label{"shift_jis", u"\u65E5\u672C\u8A9E"_qs, u"\u00E9"_qs},
                                                          Label{"euc-jp", u"\u65E5\u672C\u8A9E"_qs, u"\u20AC"_qs},
                                                          Label{"iso-2022-jp", u"\u65E5\u672C\u8A9E"_qs, u"\u20AC"_qs},
                                                          Label{"gbk", u"\u4F60\u9555"_qs, u"\u00DF"_qs},
                                                          Label{"gb2312", u"\u4F60\u597D"_qs, u"\u00DF"_qs},
                                                          Label{"big5", u"\u4E2D\u6587"_qs, u"\u43F0"_qs},
                                                          Label{"euc-kr", u"\uD55C\uAE00"_qs, u"\uAC02"_qs}),
                                          testing::Bool()));

// By their own label, which means more to browsers.
TEST_F(EncodingQuestionTest, AnXmlPageHoldsWhatItsLabelSaysToAParser) {
    OpenPage("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\n<p>caf\xE9</p>");
    TypeAt("</p>", u"\u20AC"_qs);
    prompts.choices = {"Keep ISO-8859-1"};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 1);
    EXPECT_EQ(ParsedText(path, true), u"caf\u00E9\u20AC"_qs);

    OpenPage("<meta charset=\"iso-8859-1\">\n<p>caf\xE9</p>");
    TypeAt("</p>", u"\u20AC"_qs);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 1) << "a page has the euro for all its readers";
    EXPECT_TRUE(Bytes(path).endsWith("caf\xE9\x80</p>"));
}

}  // namespace
}  // namespace vellum::test
