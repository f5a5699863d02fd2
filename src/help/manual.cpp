#include "help/manual.h"

namespace vellum {
namespace {

class Page {
public:
    Page& operator<<(const char* line) {
        text_ += QLatin1String(line) + QLatin1String("\r\n");
        return *this;
    }
    Page& operator<<(const QString& line) {
        text_ += line + QLatin1String("\r\n");
        return *this;
    }
    [[nodiscard]] QString Text() const { return text_; }

private:
    QString text_;
};

void AddHead(Page& page) {
    page << "<html>"
         << "<head>"
         << "<title>Vellumcraft Manual</title>"
         << "<style type=\"text/css\">"
         << "<!--"
         << "A:hover {color: #F08C30}"
         << "body { font-family: Arial; font-size: 10pt; line-height: 14pt; text-align: justify; }"
         << "font.header { font-size: 16pt }"
         << "font.headerMain { font-size: 24pt; lihe-height: 28pt;}"
         << "td { line-height: 1pt; }"
         << "-->"
         << "</style>"
         << "</head>"
         << R"(<body bgcolor="#FFFFFF" link="#0000B0" vlink="#0000B0" alink="#FF0000" text="#000000">)";
}

void AddGradientCells(Page& page) {
    page << "<tr>";
    for (const char* color : {"#ff0000", "#cc0033", "#990066", "#660099", "#3300cc"}) {
        const QString lower = QString::fromLatin1(color);
        page << R"(<td width="20%" bgcolor=")" + lower + "\">"
             << "<font color=\"" + lower.toUpper() + "\">.</font></td>";
    }
    page << "</tr>"
         << "</table>";
}

void AddBanner(Page& page) {
    page << "<!-- Begin Gradient Divider -->"
         << R"(<table style="font-size: 1;" cellspacing="0" borderwidth="0" width="100%">)";
    AddGradientCells(page);
    page << "<font size=\"1\"><br /></font>"
         << "<!-- End Gradient Divider-->"
         << R"(<font class="headerMain" color="#FF0000">Vellumcraft</font>)"
         << "<!-- Begin Gradient Divider -->"
         << "<br />"
         << "<font size=\"1\"><br /></font>"
         << R"(<table style="font-size: 1; font-size: 5" cellspacing="0" borderwidth="0" width="100%">)";
    AddGradientCells(page);
    page << "<!-- End Gradient Divider-->";
}

void AddTopic(Page& page, const char* header, const char* prose) {
    page << "<font class=\"header\">" + QString::fromLatin1(header) + "</font><br />"
         << "<p>" + QString::fromLatin1(prose) + "</p>";
}

}  // namespace

QString ManualPage() {
    Page page;
    AddHead(page);
    page << "<div style=\"width: 400px\">"
         << "<center>";
    AddBanner(page);
    page << "<font size=\"4\">XHTML Authoring System (R2)</font></center><br />"
         << "<br />";
    AddTopic(page, "Begin a page",
             "Choose New from the File menu for a fresh page or for one that is half written already, and Open for a "
             "file of your own. Each file stands in a window of its own.");
    AddTopic(page, "Type on the left",
             "The editor on the left colors your tags as you write them. Type &lt; and it offers the elements, a blank "
             "after the name and it offers the attributes, &amp; and it offers the special characters; Enter takes "
             "the one that is marked. Fonts, colors and the typing aids are yours to choose under View, Settings; the "
             "handle above the panes changes how much room the editor gets.");
    AddTopic(page, "Look it up",
             "The reference tree at the lower right holds all that a page may be made of. Double-click an element, an "
             "attribute or a character there and it is written at the cursor.");
    AddTopic(
        page, "Look on the right",
        "This pane shows the page as a browser does. It follows your typing every few seconds while AutoPreview is "
        "checked. The first tab above it, Preview, shows the page at once.");
    AddTopic(
        page, "Keep your site together",
        "The website panel at the bottom shows the directory of your site. Choose the directory there first: a page "
        "that was never saved looks for its pictures and style sheets in it. Double-click a file to open it.");
    AddTopic(page, "Save your work",
             "Save on the File menu writes the page to its file. Ctrl+Z takes back what you did last, Ctrl+R does it "
             "again.");
    page << "</div>"
         << "</body>"
         << "</html>";
    return page.Text();
}

}  // namespace vellum
