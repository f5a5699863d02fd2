// Every encoding with every kind of line ends through every kind of edit: the file holds what a plain model says.
#include "editor/text_commands.h"
#include "tests/support/test_workbench.h"
#include "tests/support/wait_for.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>
#include <iconv.h>
#include <span>

namespace vellum::test {
namespace {

constexpr char16_t badByte = 0xF8FF;  // stands for the byte 0xE9 in the model

struct Encoding {
    const char* name;
    const char* iconvName;
    QByteArray mark;
    QString head;
    QString sample;
    QByteArray oddByte = {};
};

QList<Encoding> Encodings() {
    const QByteArray utf8Mark = "\xEF\xBB\xBF";
    const QString latin = u"Gr\u00FC\u00DFe"_qs;
    const QString russian = u"\u041F\u0440\u0438\u0432\u0435\u0442"_qs;
    const QString japanese = u"\u65E5\u672C\u8A9E"_qs;
    const QString any = latin + russian + japanese + u"\u20AC\U0001F600"_qs;
    const auto meta = [](const char* label) { return QString("<meta charset=\"%1\">").arg(label); };
    return {{"Utf8", "UTF-8", {}, meta("utf-8"), any},
            {"Utf8Undeclared", "UTF-8", {}, "<title>", any},
            {"Utf8WithMark", "UTF-8", utf8Mark, "<title>", any},
            {"Utf8WithBadBytes", "UTF-8", {}, meta("utf-8"), any + QChar(badByte)},
            {"Utf8WithMarkAndBadBytes", "UTF-8", utf8Mark, "<title>", any + QChar(badByte)},
            {"Utf16Little", "UTF-16LE", "\xFF\xFE", "<title>", any},
            {"Utf16Big", "UTF-16BE", "\xFE\xFF", "<title>", any},
            {"Utf16LittleWithoutMark", "UTF-16LE", {}, "<title>", any},
            {"Utf16BigWithoutMark", "UTF-16BE", {}, "<title>", any},
            {"Utf16Odd", "UTF-16LE", "\xFF\xFE", "<title>", any, "x"},
            {"Utf16OddWithoutMark", "UTF-16BE", {}, "<title>", any, QByteArray(1, '\0')},
            {"Windows1252Undeclared", "WINDOWS-1252", {}, "<title>", latin + u'\u20AC'},
            {"Latin1", "ISO-8859-1", {}, meta("iso-8859-1"), latin},
            {"Latin1Xml", "ISO-8859-1", {}, "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>", latin},
            {"Latin2", "ISO-8859-2", {}, meta("iso-8859-2"), u"\u0141\u00F3d\u017A"_qs},
            {"Latin5", "ISO-8859-9", {}, meta("latin5"), u"\u0130\u015F"_qs},
            {"Latin9", "ISO-8859-15", {}, meta("iso-8859-15"), latin + u'\u20AC'},
            {"Latin10", "ISO-8859-16", {}, meta("iso-8859-16"), u"\u0218\u021B\u20AC"_qs},
            {"Windows1251", "WINDOWS-1251", {}, meta("windows-1251"), russian},
            {"Koi8R", "KOI8-R", {}, meta("koi8-r"), russian},
            {"ShiftJis", "SHIFT_JIS", {}, meta("shift_jis"), japanese},
            {"EucJp", "EUC-JP", {}, meta("euc-jp"), japanese},
            {"Iso2022Jp", "ISO-2022-JP", {}, meta("iso-2022-jp"), japanese},
            {"Gb2312", "GB2312", {}, meta("gb2312"), u"\u4F60\u597D"_qs},
            {"Gbk", "GBK", {}, meta("gbk"), u"\u4F60\u9555"_qs},
            {"Gb18030", "GB18030", {}, meta("gb18030"), u"\u4F60\u9555\u00DF\U0001F600"_qs},
            {"Big5", "BIG5", {}, meta("big5"), u"\u4E2D\u6587"_qs},
            {"EucKr", "EUC-KR", {}, meta("euc-kr"), u"\uD55C\uAE00"_qs}};
}

// By the system's own tables, which the program doesn't use.
QByteArray Converted(const QString& text, const char* encoding) {
    const iconv_t converter = ::iconv_open(encoding, "UTF-8");
    EXPECT_NE(converter, reinterpret_cast<iconv_t>(-1)) << encoding;
    QByteArray in = text.toUtf8();
    QByteArray out(in.size() * 4 + 16, '\0');
    char* from = in.data();
    char* to = out.data();
    auto left = static_cast<std::size_t>(in.size());
    auto room = static_cast<std::size_t>(out.size());
    EXPECT_EQ(::iconv(converter, &from, &left, &to, &room), 0U) << encoding;
    ::iconv(converter, nullptr, nullptr, &to, &room);
    ::iconv_close(converter);
    return out.first(to - out.data());
}

QByteArray FileOf(const Encoding& encoding, const QString& text) {
    QByteArrayList pieces;
    for (const QString& piece : text.split(QChar(badByte))) pieces << Converted(piece, encoding.iconvName);
    return encoding.mark + pieces.join('\xE9') + encoding.oddByte;
}

struct LineEndKind {
    const char* name;
    QStringList ends;  // of the lines, one after the other
    QString usual;
};

QList<LineEndKind> LineEndKinds() {
    return {{"CrLf", QStringList(5, "\r\n"), "\r\n"},
            {"Lf", QStringList(5, "\n"), "\n"},
            {"Cr", QStringList(5, "\r"), "\r"},
            {"Mixed", {"\n", "\r\n", "\n", "\r", "\n"}, "\n"},
            {"MixedCr", {"\r", "\r", "\r\n", "\n", "\r"}, "\r"}};
}

class FileDocument : public PlainDocument {
public:
    using PlainDocument::PlainDocument;
    [[nodiscard]] DocumentFile& OwnFile() { return file_; }
};

// What is done in the window, and what the model makes of the text.
struct Edit {
    const char* name;
    std::function<void(Workbench&, EditSurface&)> work;
    std::function<QString(QString, const QString& usual)> expected;
};

void PutCaret(EditSurface& surface, const QString& before) {
    QTextCursor cursor = surface.textCursor();
    cursor.setPosition(static_cast<int>(surface.RawText().indexOf(before)));
    surface.setTextCursor(cursor);
}

void SelectLine(EditSurface& surface, const QString& start) {
    PutCaret(surface, start);
    QTextCursor cursor = surface.textCursor();
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    surface.setTextCursor(cursor);
}

QString Same(QString text, const QString& /*usual*/) {
    return text;
}

void Paste(Workbench& bench, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    ASSERT_TRUE(WaitFor([&] { return QGuiApplication::clipboard()->text() == text; }));
    PasteText(bench);
}

std::vector<Edit> Edits() {
    return {{"None", [](Workbench&, EditSurface&) {}, Same},
            {"KeyAtStart", [](Workbench&, EditSurface& surface) { QTest::keyClicks(&surface, "x"); },
             [](const QString& text, const QString&) { return 'x' + text; }},
            {"KeyInTheMiddle",
             [](Workbench&, EditSurface& surface) {
                 PutCaret(surface, "middle");
                 QTest::keyClick(&surface, Qt::Key_Return);
             },
             [](QString text, const QString& usual) { return text.replace("middle", usual + "middle"); }},
            {"KeyAtEnd",
             [](Workbench&, EditSurface& surface) {
                 surface.SetSelStart(surface.Length());
                 QTest::keyClick(&surface, Qt::Key_Return);
                 QTest::keyClicks(&surface, "x");
             },
             [](const QString& text, const QString& usual) { return text + usual + 'x'; }},
            {"DeletedLine",
             [](Workbench&, EditSurface& surface) {
                 SelectLine(surface, "<p>two");
                 QTest::keyClick(&surface, Qt::Key_Delete);
             },
             [](QString text, const QString&) {
                 const auto begin = text.indexOf("<p>two");
                 return text.remove(begin, text.indexOf("middle") - begin);
             }},
            {"Paste",
             [](Workbench& bench, EditSurface& surface) {
                 PutCaret(surface, "middle");
                 Paste(bench, "a\r\nb\nc");
             },
             [](QString text, const QString& usual) {
                 return text.replace("middle", "a" + usual + "b" + usual + "cmiddle");
             }},
            {"UpperCase", [](Workbench& bench, EditSurface&) { UpperCaseMarkup(bench); },
             [](QString text, const QString&) {
                 return text.replace("<p", "<P")
                     .replace("</p", "</P")
                     .replace("<title", "<TITLE")
                     .replace("<meta charset", "<META CHARSET");
             }},
            {"Undone",
             [](Workbench& bench, EditSurface& surface) {
                 surface.SetSelStart(0);
                 SelectLine(surface, "<p>two");
                 Paste(bench, "x");
                 UpperCaseMarkup(bench);
                 UndoText(bench);
                 UndoText(bench);
             },
             Same}};
}

class EncodingMatrix : public testing::TestWithParam<std::tuple<Encoding, LineEndKind>> {};

TEST_P(EncodingMatrix, IsWrittenAsTheModelSays) {
    const auto& [encoding, kind] = GetParam();
    QString text;
    const QStringList lines{encoding.head, "<p>one " + encoding.sample + "</p>", "<p>two</p>", "middle", "<p>end</p>"};
    for (qsizetype line = 0; line < lines.size(); ++line) text += lines[line] + kind.ends[line];
    const QTemporaryDir folder;
    const QString path = folder.filePath("page.htm");
    for (const Edit& edit : Edits()) {
        const bool xml = encoding.head.startsWith("<?");
        if (xml && (edit.name == std::string("KeyAtStart") || edit.name == std::string("UpperCase"))) continue;
        {
            QFile file(path);
            ASSERT_TRUE(file.open(QFile::WriteOnly));
            file.write(FileOf(encoding, text));
        }
        TestWorkbench workbench;
        FileDocument document(workbench);
        workbench.active = &document;
        ASSERT_TRUE(document.OwnFile().Load(path));
        const QString description = document.OwnFile().Format().Description();
        edit.work(workbench, *document.Text1);
        ASSERT_TRUE(document.OwnFile().Save(path, document.OwnFile().Encoded())) << edit.name;
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        EXPECT_EQ(file.readAll(), FileOf(encoding, edit.expected(text, kind.usual))) << edit.name;
        EXPECT_EQ(document.OwnFile().Format().Description(), description) << edit.name;
        FileDocument again(workbench);
        ASSERT_TRUE(again.OwnFile().Load(path));
        EXPECT_EQ(again.Text1->Text(), document.Text1->Text()) << edit.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, EncodingMatrix,
                         testing::Combine(testing::ValuesIn(Encodings()), testing::ValuesIn(LineEndKinds())),
                         [](const auto& test) {
                             return std::string(std::get<0>(test.param).name) + std::get<1>(test.param).name;
                         });

}  // namespace
}  // namespace vellum::test
