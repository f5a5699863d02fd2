#include "import/rich_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class RichFile : public testing::Test {
protected:
    std::optional<RichText> Load(const QByteArray& bytes) {
        QFile file(folder.filePath("a.txt"));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        file.close();
        return LoadRichFile(file.fileName(), "Courier New", 8.5);
    }

    QTemporaryDir folder;
};

TEST_F(RichFile, IsToldByItsFirstBytes) {
    const auto rich = Load(R"({\rtf1{\fonttbl{\f0 Arial;}}\b a\par})");
    ASSERT_TRUE(rich);
    EXPECT_EQ(rich->text, "a");
    EXPECT_EQ(rich->fonts, QStringList("Arial"));
    EXPECT_TRUE(rich->runs.front().format.bold);
}

TEST_F(RichFile, IsPlainTextOtherwise) {
    EXPECT_EQ(Load("a\nb\r\nc\rd"), PlainRichText("a\r\nb\r\nc\r\nd", "Courier New", 8.5));
    EXPECT_EQ(Load(" {\\rtf1 a}"), PlainRichText(" {\\rtf1 a}", "Courier New", 8.5));
    EXPECT_EQ(Load(""), PlainRichText("", "Courier New", 8.5));
}

TEST_F(RichFile, MayHaveAnyEncoding) {
    const auto text = [this](const QByteArray& bytes) { return Load(bytes).value_or(RichText()).text; };
    EXPECT_EQ(text("\xC3\xA4\xE2\x82\xAC"), u"ä€");
    EXPECT_EQ(text("\xEF\xBB\xBF\xC3\xA4"), u"ä");
    EXPECT_EQ(text("\xE4 \x80"), u"ä €");
    EXPECT_EQ(text(QByteArray("\xFF\xFE\xE4\x00\x0A\x00z\x00", 8)), u"ä\r\nz");
    EXPECT_EQ(text("<meta charset=\"windows-1251\">\xE8"), u"<meta charset=\"windows-1251\">и");
}

TEST_F(RichFile, HasAMarkWhereABadByteWas) {
    EXPECT_EQ(Load("\xC3\xA4\xC3\xB6\xC3\xBC\xFFz").value_or(RichText()).text, u"äöü\uFFFDz");
}

TEST_F(RichFile, IsNothingWhenItCanNotBeRead) {
    EXPECT_FALSE(LoadRichFile(folder.filePath("none.rtf"), "Arial", 12));
    EXPECT_FALSE(LoadRichFile(folder.path(), "Arial", 12));
}

}  // namespace
}  // namespace vellum
