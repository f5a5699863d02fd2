// Files on their way through a document window: what is not edited keeps its bytes.
#include "tests/shell/main_window_fixture.h"

#include <QDir>

namespace vellum::test {
namespace {

struct FileKind {
    const char* name;
    QByteArray bytes;
};

void PrintTo(const FileKind& kind, std::ostream* out) {
    *out << kind.name;
}

QByteArray Utf16(const QString& text, bool bigEndian) {
    QByteArray bytes;
    for (const QChar unit : u'\uFEFF' + text) {
        const auto high = static_cast<char>(unit.row());
        const auto low = static_cast<char>(unit.cell());
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

QList<FileKind> FileKinds() {
    const QString text = u"<p>Gr\u00FC\u00DFe \u20AC \U0001F600</p>\r\n<p>2</p>\r\n"_qs;
    const QByteArray utf8 = text.toUtf8();
    return {{"Utf8", utf8},
            {"Utf8WithMark", "\xEF\xBB\xBF" + utf8},
            {"Utf16LittleEndian", Utf16(text, false)},
            {"Utf16BigEndian", Utf16(text, true)},
            {"Windows1252",
             "<p>Gr\xFC\xDF"
             "e \x80 \x93x\x94</p>\r\n"},
            {"BytesWithoutALetter", "<p>\x81\x8D\x8F\x90\x9D</p>\r\n"},
            {"Utf16WithoutAMark", Utf16(text, false).mid(2)},
            {"Utf16OfOddLength", Utf16(text, true) + 'x'},
            {"Utf8WithBadBytes", "<meta charset='utf-8'>\xE9" + utf8 + "\xFF"},
            {"CrLf", "<p>\r\n</p>\r\n\r\n"},
            {"Lf", "<p>\n</p>\n\n"},
            {"Cr", "<p>\r</p>\r\r"},
            {"MixedLineEnds", "<p>\r\n1\n2\r3\r\n\n\r</p>\n"},
            {"NoLastLineEnd", "<p>\r\n</p>"},
            {"NulBytes", QByteArray("<p>\0\r\n\0\0</p>\0", 13)},
            {"Empty", {}},
            {"LineEndOnly", "\n"},
            {"OneLongLine", QByteArray("<b>long</b> ").repeated((1 << 20) / 12)}};
}

class FileKindTest : public MainWindowFixture, public testing::WithParamInterface<FileKind> {};

TEST_P(FileKindTest, KeepsItsBytesThroughAnUneditedSave) {
    const QByteArray& bytes = GetParam().bytes;
    const QString path = MakeFile("page.htm", bytes);
    Open(false, path);
    ASSERT_EQ(Active().Caption(), path);
    ASSERT_EQ(Active().Text1->Length() == 0, bytes.isEmpty());
    ASSERT_TRUE(QFile::remove(path));
    prompts.choices = {"Save"};
    Trigger("mnuSaveregItem");
    EXPECT_TRUE(Bytes(path) == bytes);
    prompts.saveNames.push_back(SitePath("copy.htm"));
    Trigger("mnuSaveItem");
    EXPECT_TRUE(Bytes(SitePath("copy.htm")) == bytes) << "under another name too";
    EXPECT_TRUE(prompts.messages.isEmpty());
    EXPECT_TRUE(Active().Saver());
}

INSTANTIATE_TEST_SUITE_P(Files, FileKindTest, testing::ValuesIn(FileKinds()),
                         [](const auto& kind) { return kind.param.name; });

class FilesTest : public MainWindowFixture {
protected:
    // A save of the active document fails and leaves everything to try again with.
    void ExpectRefusedSave(const QString& text, const QString& caption) {
        prompts.choices = {"Save"};  // of a file that has gone
        Trigger("mnuSaveregItem");
        EXPECT_EQ(prompts.messages, QStringList{"Cannot save file.  It may be locked or read-only."});
        EXPECT_TRUE(prompts.requests.empty());
        EXPECT_FALSE(Active().Saver());
        EXPECT_EQ(Active().Text1->Text(), text);
        EXPECT_EQ(Active().Caption(), caption);
        EXPECT_FALSE(window->findChild<QAction*>("mnuRecentFile")->isEnabled());
    }
};

TEST_F(FilesTest, AVeryLargeFileKeepsItsBytesThroughAnUneditedSave) {
    const QByteArray line = "A plain line of text that is neither short nor long, the \xC3\xBC is two bytes.\n";
    const QByteArray bytes = line.repeated((50 << 20) / line.size() + 1);
    const QString path = MakeFile("large.txt", bytes);
    Open(false, path);
    ASSERT_EQ(Active().Caption(), path);
    ASSERT_TRUE(QFile::remove(path));
    prompts.choices = {"Save"};
    Trigger("mnuSaveregItem");
    EXPECT_TRUE(Bytes(path) == bytes);
    EXPECT_TRUE(prompts.messages.isEmpty());
    EXPECT_TRUE(Active().Saver());
}

TEST_F(FilesTest, LinesThatWereNotEditedEndAsTheyDid) {
    const QString path = MakeFile("mixed.htm", "one\r\ntwo\nthree\nfour\rfive");
    Open(false, path);
    QTest::keyClicks(Active().Text1, "x\r");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "x\none\r\ntwo\nthree\nfour\rfive");
    Trigger("mnuUndoItem");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "one\r\ntwo\nthree\nfour\rfive");
}

TEST_F(FilesTest, AnEditedFileKeepsItsEncodingAndMark) {
    const QString path = MakeFile("page.htm", Utf16(u"\u20AC\r\nend"_qs, true));
    Open(false, path);
    QTest::keyClicks(Active().Text1, "x");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), Utf16(u"x\u20AC\r\nend"_qs, true));
}

TEST_F(FilesTest, ASaveIntoAFolderThatHasGoneIsToldAndKeepsTheText) {
    ASSERT_TRUE(QDir(site.path()).mkdir("sub"));
    const QString path = MakeFile("sub/page.htm", "old");
    Open(false, path);
    QTest::keyClicks(Active().Text1, "x");
    ASSERT_TRUE(QDir(SitePath("sub")).removeRecursively());
    ExpectRefusedSave("xold", path);
}

TEST_F(FilesTest, ASaveOverAFolderIsToldAndSucceedsWhenTheFolderHasGone) {
    const QString path = MakeFile("page.htm", "old");
    Open(false, path);
    QTest::keyClicks(Active().Text1, "x");
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir(site.path()).mkdir("page.htm"));
    ExpectRefusedSave("xold", path);
    ASSERT_TRUE(QDir(site.path()).rmdir("page.htm"));
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "xold");
    EXPECT_TRUE(Active().Saver());
    EXPECT_EQ(prompts.messages.size(), 1);
}

}  // namespace
}  // namespace vellum::test
