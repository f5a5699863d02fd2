#include "import/import_commands.h"

#include "import/rich_text.h"
#include "import/text_import.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class ImportedMarkupOf : public testing::Test {
protected:
    std::optional<QString> Import(const QString& name, const QByteArray& bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        file.close();
        return ImportedMarkup(file.fileName(), "Arial", 10.5);
    }

    QTemporaryDir folder;
};

TEST_F(ImportedMarkupOf, GoesByTheEndOfTheName) {
    const QString plain = "a&nbsp;&lt;b<br />\r\nc";
    const QString rich = ConvertRichText(PlainRichText("a  <b\r\nc", "Arial", 10.5));
    const QByteArray bytes = "a  <b\nc";
    EXPECT_EQ(Import("a.txt", bytes), plain);
    EXPECT_EQ(Import("a.TXT", bytes), plain);
    EXPECT_EQ(Import("a.rtf.Txt", bytes), plain);
    EXPECT_EQ(Import("atxt", bytes), plain);
    EXPECT_EQ(Import("a.rtf", bytes), rich);
    EXPECT_EQ(Import("a.RTF", bytes), rich);
    EXPECT_EQ(Import("a.doc", bytes), QString());
    EXPECT_EQ(Import("a", bytes), QString());
}

TEST_F(ImportedMarkupOf, TakesRichTextForWhatItIs) {
    const QByteArray bytes = R"({\rtf1{\fonttbl{\f0 Times;}}a\tab\b b\par c})";
    EXPECT_EQ(Import("a.txt", bytes), "a\tb<br />\r\nc") << "its text alone";
    const auto markup = Import("a.rtf", bytes);
    ASSERT_TRUE(markup);
    EXPECT_TRUE(markup->contains("font-family: Times;")) << markup->toStdString();
}

TEST_F(ImportedMarkupOf, IsNothingOfAFileThatCanNotBeRead) {
    EXPECT_EQ(ImportedMarkup(folder.filePath("none.txt"), "Arial", 12), std::nullopt);
    EXPECT_EQ(ImportedMarkup(folder.filePath("none.rtf"), "Arial", 12), std::nullopt);
    EXPECT_EQ(ImportedMarkup(folder.filePath("none.doc"), "Arial", 12), QString()) << "nobody looks at it";
}

TEST(ImportedPageOf, IsAPageAroundIt) {
    EXPECT_EQ(ImportedPage("x\r\ny"),
              "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" \"DTD/xhtml1-transitional.dtd\">\r\n"
              "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
              "<head>\r\n"
              "<title>Imported Page</title>\r\n"
              "</head>\r\n"
              "<body>\r\n"
              "x\r\ny\r\n"
              "</body>\r\n"
              "</html>");
}

}  // namespace
}  // namespace vellum
