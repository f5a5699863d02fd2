#include "editor/document_file.h"

#include "surface/edit_surface.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class DocumentFileTest : public testing::Test {
protected:
    [[nodiscard]] QString Place(const QString& name) const { return folder.filePath(name); }
    [[nodiscard]] QString Make(const QString& name, const QByteArray& bytes) const {
        QFile made(Place(name));
        EXPECT_TRUE(made.open(QFile::WriteOnly));
        made.write(bytes);
        return made.fileName();
    }
    [[nodiscard]] QByteArray Bytes(const QString& name) const {
        QFile saved(Place(name));
        EXPECT_TRUE(saved.open(QFile::ReadOnly));
        return saved.readAll();
    }

    [[nodiscard]] bool Save(const QString& name) { return file.Save(Place(name), file.Encoded()); }

    QTemporaryDir folder;
    EditSurface surface;
    DocumentFile file{surface};
};

TEST_F(DocumentFileTest, StartsWithoutAFile) {
    EXPECT_EQ(file.Path(), "New");
    EXPECT_EQ(file.Format().Description(), "UTF-8");
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), "");
}

TEST_F(DocumentFileTest, SavesByteForByteWhatWasNotEdited) {
    const QByteArray bytes = "one\r\ntwo\r\nthree\nfour\xE9";
    ASSERT_TRUE(file.Load(Make("a.htm", bytes)));
    EXPECT_EQ(file.Path(), Place("a.htm"));
    EXPECT_EQ(surface.Text(), QString::fromLatin1("one\r\ntwo\r\nthree\r\nfour\xE9"));
    EXPECT_TRUE(file.Format().mixedLineEnds);
    ASSERT_TRUE(Save("b.htm"));
    EXPECT_EQ(file.Path(), Place("b.htm"));
    EXPECT_EQ(Bytes("b.htm"), bytes);
    ASSERT_TRUE(Save("c.htm"));
    EXPECT_EQ(Bytes("c.htm"), bytes) << "a second time too";
    EXPECT_TRUE(file.Format().mixedLineEnds);

    surface.SetSelStart(0);
    QTest::keyClicks(&surface, "X");
    QTest::keyClick(&surface, Qt::Key_Backspace);
    ASSERT_TRUE(Save("b.htm"));
    EXPECT_TRUE(file.Format().mixedLineEnds);
    EXPECT_EQ(Bytes("b.htm"), bytes) << "edited, and edited back";
}

TEST_F(DocumentFileTest, KeepsTheLineEndsOfLinesThatStay) {
    ASSERT_TRUE(file.Load(Make("a.htm", "one\r\ntwo\r\nthree\nfour\rfive")));
    surface.SetSelStart(surface.Length());
    QTest::keyClick(&surface, Qt::Key_Return);
    const auto withAll = surface.TakeSnapshot();
    surface.SetSelStart(0);
    surface.SetSelLength(10);
    QTest::keyClick(&surface, Qt::Key_Delete);
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), "three\nfour\rfive\r\n");
    EXPECT_TRUE(file.Format().mixedLineEnds);
    ASSERT_TRUE(surface.Restore(withAll));
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), "one\r\ntwo\r\nthree\nfour\rfive\r\n");
}

TEST_F(DocumentFileTest, GivesNewLinesTheEndThatIsLeft) {
    ASSERT_TRUE(file.Load(Make("a.htm", "one\ntwo\nthree\r\nfour")));
    surface.SetSelStart(0);
    surface.SetSelLength(10);
    QTest::keyClick(&surface, Qt::Key_Delete);
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(file.Format().Description(), "UTF-8");
    QTest::keyClick(&surface, Qt::Key_Return);
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), "\r\nthree\r\nfour");
}

TEST_F(DocumentFileTest, AFileThatCannotBeReadChangesNothing) {
    ASSERT_TRUE(file.Load(Make("a.htm", "one\xE9\n")));
    EXPECT_FALSE(file.Load(Place("missing.htm")));
    EXPECT_EQ(surface.Text(), QString::fromLatin1("one\xE9\r\n"));
    EXPECT_EQ(file.Path(), Place("a.htm"));
    EXPECT_EQ(file.Format().Description(), "Windows-1252, LF");
}

TEST_F(DocumentFileTest, AFileThatCannotBeWrittenChangesNothing) {
    ASSERT_TRUE(file.Load(Make("a.htm", "one\xE9\n")));
    surface.SetSelText(u"\u0416"_qs);  // which that encoding can't hold
    EXPECT_FALSE(file.Save(Place("missing/b.htm"), file.EncodedAsUtf8(false)));
    EXPECT_EQ(file.Path(), Place("a.htm"));
    EXPECT_EQ(file.Format().Description(), "Windows-1252, LF");
    EXPECT_EQ(Bytes("a.htm"), "one\xE9\n");

    ASSERT_TRUE(file.Save(Place("a.htm"), file.EncodedAsUtf8(false)));
    EXPECT_EQ(file.Format().Description(), "UTF-8, LF");
    EXPECT_EQ(Bytes("a.htm"), "\xD0\x96one\xC3\xA9\n");
}

TEST_F(DocumentFileTest, ATextThatDoesNotFitIsNotWritten) {
    ASSERT_TRUE(file.Load(Make("a.htm", "one\xE9\n")));
    surface.SetSelText(u"\u0416"_qs);
    EXPECT_FALSE(file.Encoded().bytes);
    EXPECT_FALSE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), "one\xE9\n");
    EXPECT_EQ(file.EncodedAsUtf8(true).bytes, "\xEF\xBB\xBF\xD0\x96one\xC3\xA9\n");
}

TEST_F(DocumentFileTest, KeepsBadBytes) {
    ASSERT_TRUE(file.Load(Make("a.htm", "<meta charset=utf-8>\xE9\n\xC3\xA9")));
    EXPECT_EQ(file.Format().Description(), "UTF-8, bad bytes, LF");
    const auto loaded = surface.TakeSnapshot();
    surface.SetSelStart(20);
    QTest::keyClick(&surface, Qt::Key_X);
    QTest::keyClick(&surface, Qt::Key_Delete);
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), "<meta charset=utf-8>x\n\xC3\xA9");
    EXPECT_EQ(file.Format().Description(), "UTF-8, LF");
    ASSERT_TRUE(surface.Restore(loaded));
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), "<meta charset=utf-8>\xE9\n\xC3\xA9");
}

// As when something else has changed the file, and undo brings back what the window showed before.
TEST_F(DocumentFileTest, WritesWhatItHeldBeforeTheFileWasTakenAnew) {
    const QByteArray bytes = "<meta charset=utf-8>\xE9\rone\ntwo\n";
    ASSERT_TRUE(file.Load(Make("a.htm", bytes)));
    const auto loaded = surface.TakeSnapshot();
    FileLook look;
    look.found = DecodeText("<meta charset=utf-8>e\r\none\r\ntwo\r\n");
    file.Take(look);
    EXPECT_EQ(file.Format().Description(), "UTF-8");
    ASSERT_TRUE(surface.Restore(loaded));
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), bytes);
    EXPECT_EQ(file.Format().Description(), "UTF-8, bad bytes, mixed line ends");
}

TEST_F(DocumentFileTest, SavesWhatWasRestored) {
    ASSERT_TRUE(file.Load(Make("a.htm", "one\ntwo\r\n")));
    const auto loaded = surface.TakeSnapshot();
    surface.SetSelText("x");
    const auto edited = surface.TakeSnapshot();
    ASSERT_TRUE(Save("a.htm"));
    ASSERT_TRUE(surface.Restore(loaded));
    ASSERT_TRUE(Save("a.htm"));
    ASSERT_TRUE(file.Load(Place("a.htm")));
    EXPECT_EQ(surface.Text(), "one\r\ntwo\r\n");
    ASSERT_TRUE(surface.Restore(edited));
    EXPECT_EQ(surface.Text(), "xone\r\ntwo\r\n");
}

TEST_F(DocumentFileTest, ARecoveredTextIsWrittenInTheFormatOfItsFile) {
    TextFormat format;
    format.encoding = "windows-1252";
    format.lineEnd = LineEnd::Lf;
    file.Recover(u"lost\n\u00E9\n"_qs, format, std::vector<OtherLineEnd>{{1, LineEnd::Cr}});
    EXPECT_EQ(surface.Text(), u"lost\r\n\u00E9\r\n"_qs);
    EXPECT_EQ(file.Path(), "New");
    EXPECT_EQ(file.Format().Description(), "Windows-1252, LF");
    ASSERT_TRUE(Save("a.htm"));
    EXPECT_EQ(Bytes("a.htm"), "lost\n\xE9\r");
}

}  // namespace
}  // namespace vellum
