// Links out of a page: they open outside after a click on them, and never by a script alone.
#include "tests/browser/browser_fixture.h"

namespace vellum {
namespace {

const QByteArray block = " style=\"display:block;height:100px;background:#0f0\">x</a>";

class LinksTest : public test::BrowserFixture {
protected:
    // Shows a page whose body is done once the block at its top is painted.
    void ShowBlock(const QByteArray& body) {
        Show(Write("a.html", Page("a", body)));
        ASSERT_TRUE(WaitForPixel(200, 50, QColor(0, 255, 0)));
        ASSERT_TRUE(test::WaitFor([&] { return !CurtainDown(); }));
    }

    bool WaitForAddress(const QString& address) {
        return test::WaitFor([&] { return opened_.addresses == QStringList{address}; });
    }

    // Clicks the block, whose script then tries something and makes the title "done".
    void ExpectNothingFrom(const QByteArray& script) {
        ShowBlock("<div onclick=\"" + script + ";setTimeout(function(){document.title='done'},300)\"" +
                  QByteArray(block).replace("</a>", "</div>") + "<a id=\"l\" href=\"https://example.org/l\">y</a>" +
                  "<form id=\"f\" action=\"https://example.org/f\"></form>");
        Click(200, 50);
        EXPECT_TRUE(WaitForTitle("done")) << script.toStdString();
        EXPECT_EQ(opened_.addresses, QStringList()) << script.toStdString();
    }
};

TEST_F(LinksTest, AScriptThatRunsOnAClickOpensNothing) {
    for (const char* script :
         {"location.href='https://example.org/'", "window.open('https://example.org/')",
          "document.getElementById('l').click()", "document.getElementById('f').submit()",
          "location.href='mailto:a@example.org'", "location.href='file:///etc/passwd'",
          "setTimeout(function(){location.href='https://example.org/'},100)", "location.href='tel:1'"})
        ExpectNothingFrom(script);
}

TEST_F(LinksTest, AnotherAddressThanThatOfTheLinkIsNotOpened) {
    ShowBlock("<a href=\"https://example.org/\" onclick=\"location.href='https://example.com/?words';return false\"" +
              block);
    Click(200, 50);
    const QString answer = "waited";
    test::PageOf(surface_)->runJavaScript("setTimeout(function(){document.title='waited'},300)");
    EXPECT_TRUE(WaitForTitle(answer));
    EXPECT_EQ(opened_.addresses, QStringList());
}

TEST_F(LinksTest, OneClickOpensOneAddress) {
    ShowBlock(
        "<a id=\"l\" href=\"https://example.org/\" onclick=\"setTimeout(function(){"
        "document.getElementById('l').click();setTimeout(function(){document.title='done'},300)},100)\"" +
        block);
    Click(200, 50);
    EXPECT_TRUE(WaitForTitle("done"));
    EXPECT_EQ(opened_.addresses, QStringList{"https://example.org/"});
}

TEST_F(LinksTest, LinksInFramesOpenOutside) {
    Write("frame.html",
          QByteArray("<body style=\"margin:0\"><a href=\"https://example.org/frame\"") + block + "</body>");
    ShowBlock("<iframe src=\"frame.html\" style=\"border:0\"></iframe>");
    Click(200, 50);
    EXPECT_TRUE(WaitForAddress("https://example.org/frame"));
    EXPECT_EQ(surface_.Title(), "a");
}

TEST_F(LinksTest, LinksOfImageMapsAndByKeyOpenOutside) {
    ShowBlock(
        "<map name=\"m\"><area shape=\"rect\" coords=\"0,0,400,100\" href=\"https://example.org/area\"/></map>"
        "<img usemap=\"#m\" style=\"display:block;width:400px;height:100px;background:#0f0\"/>");
    Click(200, 50);
    EXPECT_TRUE(WaitForAddress("https://example.org/area"));
    opened_.addresses.clear();
    ShowBlock("<a id=\"l\" href=\"https://example.org/key\"" + block);
    Click(200, 200);
    ASSERT_TRUE(test::WaitFor([&] { return surface_.HasKeyboard(); }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(WaitForAddress("https://example.org/key"));
}

TEST_F(LinksTest, LinksOfADocumentThatWasWrittenAnewOpenOutside) {
    Show(Write("a.html",
               Page("a",
                    "<script>addEventListener('load',function(){setTimeout(function(){document.open();"
                    "document.write('<title>anew</title><body style=\"margin:0\"><a href=\"https://example.org/"
                    "anew\"" +
                        block + "');document.close()},20)})</script>")));
    ASSERT_TRUE(WaitForTitle("anew"));
    ASSERT_TRUE(WaitForPixel(200, 50, QColor(0, 255, 0)));
    Click(200, 50);
    EXPECT_TRUE(WaitForAddress("https://example.org/anew"));
}

TEST_F(LinksTest, LocalLinksToNewWindowsTakeThePlaceOfThePage) {
    Write("b.html", Page("linked", "x"));
    ShowBlock("<a href=\"b.html\" target=\"_blank\"" + block);
    Click(200, 50);
    EXPECT_TRUE(WaitForTitle("linked"));
    EXPECT_EQ(opened_.addresses, QStringList());
}

TEST_F(LinksTest, OtherSchemesAndSystemFilesAreNeverOpened) {
    for (const char* address :
         {"file:///etc/passwd", "mailto:a@example.org", "ftp://example.org/", "tel:1", "news:x", "."}) {
        ShowBlock(QByteArray("<a onclick=\"setTimeout(function(){document.title='done'},300)\" href=\"") + address +
                  '"' + block);
        Click(200, 50);
        EXPECT_TRUE(WaitForTitle("done")) << address;
        EXPECT_EQ(opened_.addresses, QStringList()) << address;
    }
}

}  // namespace
}  // namespace vellum
