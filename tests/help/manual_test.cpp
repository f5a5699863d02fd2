#include "help/manual.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(ManualTest, BeginsWithItsTitleAndStyles) {
    EXPECT_TRUE(ManualPage().startsWith(
        "<html>\r\n<head>\r\n<title>Vellumcraft Manual</title>\r\n<style type=\"text/css\">\r\n<!--\r\n"
        "A:hover {color: #F08C30}\r\n"
        "body { font-family: Arial; font-size: 10pt; line-height: 14pt; text-align: justify; }\r\n"
        "font.header { font-size: 16pt }\r\n"
        "font.headerMain { font-size: 24pt; lihe-height: 28pt;}\r\n"
        "td { line-height: 1pt; }\r\n"
        "-->\r\n</style>\r\n</head>\r\n"
        "<body bgcolor=\"#FFFFFF\" link=\"#0000B0\" vlink=\"#0000B0\" alink=\"#FF0000\" text=\"#000000\">\r\n"));
}

TEST(ManualTest, EndsEveryLineInCrLf) {
    QString page = ManualPage();
    EXPECT_TRUE(page.endsWith("</html>\r\n"));
    page.remove("\r\n");
    EXPECT_FALSE(page.contains(QRegularExpression("[\r\n]")));
}

TEST(ManualTest, IsWellFormed) {
    QXmlStreamReader reader(ManualPage());
    while (!reader.atEnd()) reader.readNext();
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << " in line " << reader.lineNumber();
}

TEST(ManualTest, ShowsTheGradientTwice) {
    const QString page = ManualPage();
    for (const char* cell : {"<td width=\"20%\" bgcolor=\"#ff0000\">\r\n<font color=\"#FF0000\">.</font></td>",
                             "<td width=\"20%\" bgcolor=\"#3300cc\">\r\n<font color=\"#3300CC\">.</font></td>"})
        EXPECT_EQ(page.count(cell), 2) << cell;
}

TEST(ManualTest, TellsANewUserHowToBegin) {
    const QString page = ManualPage();
    for (const char* word : {"File menu", "left", "right", "Preview", "website panel"})
        EXPECT_TRUE(page.contains(word)) << word;
}

}  // namespace
}  // namespace vellum
