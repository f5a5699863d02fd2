#include "tools/tables/table_markup.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

// A cell between its row's tags, with the defaults around it.
QString CellTag(const QString& attributes, const QString& content = {}, const QString& style = "font-size: 12pt") {
    return "<td" + attributes + ">\r\n<span style=\"" + style + "\">\r\n" + content + "\r\n</span>\r\n</td>\r\n";
}

constexpr auto usual = " width=\"126.666666666667\" align=\"LEFT\" valign=\"TOP\"";

// Everything between the table's tag and its end, for one cell of a row.
QString OneCell(const QString& cell) {
    return "<tr>\r\n" + cell + "</tr>\r\n";
}

QString Whole(const QString& tag, const QString& rows) {
    return "\r\n<!-- Begin Table -->\r\n" + tag + "\r\n" + rows + "</table>\r\n<!-- End Table -->";
}

constexpr auto usualTag = "<table cellpadding=\"3\" cellspacing=\"2\">";

class TableMarkups : public testing::Test {
protected:
    TableMarkups() { cells.Resize(1, 1); }

    [[nodiscard]] QString Markup() const { return TableMarkup(cells, settings).value_or("too wide"); }

    // What the table's tag is with these settings, the cell being as usual.
    void ExpectTag(const QString& tag) const { EXPECT_EQ(Markup(), Whole(tag, OneCell(CellTag(usual)))); }
    // What the cell is, the table's tag being as usual.
    void ExpectCell(const QString& cell) const { EXPECT_EQ(Markup(), Whole(usualTag, OneCell(cell))); }

    TableCells cells;
    TableSettings settings;
};

TEST_F(TableMarkups, OfANewTable) {
    const QString row = "<tr>\r\n" + CellTag(usual) + CellTag(usual) + "</tr>\r\n";
    EXPECT_EQ(TableMarkup({}, {}), Whole(usualTag, row + row));
}

TEST_F(TableMarkups, AreEmptyOfWhatIsEmpty) {
    settings.cellPadding.clear();
    settings.cellSpacing.clear();
    settings.textAlignment.clear();
    settings.verticalAlignment.clear();
    EXPECT_EQ(Markup(), Whole("<table>", OneCell(CellTag(" width=\"126.666666666667\""))));
}

TEST_F(TableMarkups, OfEveryAttributeOfTheTable) {
    settings = {.alignment = "LEFT",
                .borderSize = "1",
                .borderColor = "RED",
                .cellPadding = "4",
                .cellSpacing = "5",
                .frame = "VOID",
                .rules = "ROWS",
                .gradientAngle = "-90",
                .gradientColor = "#112233",
                .transparency = "30"};
    ExpectTag(
        "<table align=LEFT border=\"1\" bordercolor=\"RED\" cellpadding=\"4\" cellspacing=\"5\" frame=\"VOID\" "
        "rules=\"ROWS\" gradangle=\"-90\" gradcolor=\"#112233\" transparency=\"30\">");
}

TEST_F(TableMarkups, OfEachAttributeAlone) {
    const std::pair<QString TableSettings::*, QString> attributes[] = {{&TableSettings::borderSize, "border"},
                                                                       {&TableSettings::borderColor, "bordercolor"},
                                                                       {&TableSettings::cellPadding, "cellpadding"},
                                                                       {&TableSettings::cellSpacing, "cellspacing"},
                                                                       {&TableSettings::frame, "frame"},
                                                                       {&TableSettings::rules, "rules"},
                                                                       {&TableSettings::gradientAngle, "gradangle"},
                                                                       {&TableSettings::gradientColor, "gradcolor"},
                                                                       {&TableSettings::transparency, "transparency"}};
    for (const auto& [field, name] : attributes) {
        settings = {};
        settings.cellPadding.clear();
        settings.cellSpacing.clear();
        settings.*field = "\"x\" & <y>";
        ExpectTag("<table " + name + "=\"\"x\" & <y>\">");
    }
}

TEST_F(TableMarkups, OpenCenterForEveryCaseAndCloseItForOne) {
    const QString row = OneCell(CellTag(usual));
    const auto expect = [&](const QString& before, const QString& alignment, const QString& after) {
        settings.alignment = alignment;
        EXPECT_EQ(Markup(), "\r\n<!-- Begin Table -->\r\n" + before + "<table align=" + alignment +
                                " cellpadding=\"3\" cellspacing=\"2\">\r\n" + row + "</table>\r\n" + after +
                                "<!-- End Table -->");
    };
    expect("<center>\r\n", "CENTER", "");
    expect("<center>\r\n", "Center", "");
    expect("<center>\r\n", "center", "</center>\r\n");
    expect("", "centre", "");
    expect("", "RIGHT", "");
}

TEST_F(TableMarkups, HaveATitleInAHeadAndTheRowsInABody) {
    cells.Resize(1, 2);
    settings.title = "A <b> & \"c\"";
    EXPECT_EQ(
        Markup(),
        Whole(usualTag, "<thead>\r\n<tr>\r\n<th colspan=\"2\">A <b> & \"c\"</th>\r\n</tr>\r\n</thead>\r\n<tbody>\r\n" +
                            OneCell(CellTag(usual) + CellTag(usual)) + "</tbody>\r\n"));
}

TEST_F(TableMarkups, TellWidthsInPixelsWithFifteenDigits) {
    cells.SetColumnWidth(0, 1905);
    ExpectCell(CellTag(" width=\"127\" align=\"LEFT\" valign=\"TOP\""));
    cells.SetColumnWidth(0, 100);
    ExpectCell(CellTag(" width=\"6.66666666666667\" align=\"LEFT\" valign=\"TOP\""));
    cells.SetColumnWidth(0, 0);
    ExpectCell(CellTag(" width=\"0\" align=\"LEFT\" valign=\"TOP\""));
}

TEST_F(TableMarkups, TellWidthsAsShares) {
    cells.Resize(1, 2);
    settings.percentWidth = true;
    const QString half = CellTag(" width=\"50%\" align=\"LEFT\" valign=\"TOP\"");
    EXPECT_EQ(Markup(), Whole("<table cellpadding=\"3\" cellspacing=\"2\" width=\"100%\">", OneCell(half + half)));
    settings.width.clear();
    EXPECT_EQ(Markup(), Whole("<table cellpadding=\"3\" cellspacing=\"2\" width=\"\">", OneCell(half + half)))
        << "the width stands there for its check alone";
}

TEST_F(TableMarkups, CutSharesToWholeOnes) {
    cells.Resize(1, 3);
    settings.percentWidth = true;
    settings.width = "80%";
    const QString third = CellTag(" width=\"33%\" align=\"LEFT\" valign=\"TOP\"");
    EXPECT_EQ(Markup(),
              Whole("<table cellpadding=\"3\" cellspacing=\"2\" width=\"80%\">", OneCell(third + third + third)));
}

TEST_F(TableMarkups, ShareByTheRoundedWidthOfTheTable) {
    const std::pair<int, int> pixels[] = {{22, 1}, {23, 2}, {7, 0}, {8, 1}, {3800, 253}, {32767, 2184}};
    for (const auto& [twips, expected] : pixels) {
        cells.SetColumnWidth(0, twips);
        EXPECT_EQ(TablePixels(cells), expected) << twips;
    }
    settings.percentWidth = true;
    cells.SetColumnWidth(0, 22);
    EXPECT_TRUE(Markup().contains("<td width=\"146%\"")) << "22 twips are a pixel and a half, and are rounded to one";
    cells.SetColumnWidth(0, 7);
    EXPECT_EQ(TableMarkup(cells, settings), std::nullopt) << "no share of no pixel";
}

TEST_F(TableMarkups, AreNoneOfATableThatIsTooWide) {
    cells.Resize(1, 17);
    EXPECT_NE(TableMarkup(cells, settings), std::nullopt);
    cells.Resize(1, 18);
    EXPECT_EQ(TableMarkup(cells, settings), std::nullopt);
    cells.Resize(1, 2);
    cells.SetColumnWidth(0, 30867);
    EXPECT_EQ(TablePixels(cells), 2184);
    cells.SetColumnWidth(0, 30868);
    EXPECT_EQ(TablePixels(cells), std::nullopt);
    EXPECT_EQ(TableMarkup(cells, settings), std::nullopt);
}

TEST_F(TableMarkups, TellHeightsWhenTheyAreWanted) {
    settings.cellHeights = true;
    ExpectCell(CellTag(" width=\"126.666666666667\" height=\"21\" align=\"LEFT\" valign=\"TOP\""));
    cells.SetRowHeight(0, 310);
    ExpectCell(CellTag(" width=\"126.666666666667\" height=\"20.6666666666667\" align=\"LEFT\" valign=\"TOP\""));
}

TEST_F(TableMarkups, TellBackgroundsUnlessThePageShowsThrough) {
    cells.Cell(0, 0).backColor = 0x0080FF;
    ExpectCell(CellTag(usual));
    settings.clearBackgrounds = false;
    const std::pair<ColorNumber, QString> colors[] = {
        {0x0080FF, "#FF8000"}, {0, "#FFFFFF"}, {1, "#000000"}, {2, "#020000"}, {0x010000, "#000001"}};
    for (const auto& [color, hex] : colors) {
        cells.Cell(0, 0).backColor = color;
        ExpectCell(CellTag(" width=\"126.666666666667\" bgcolor=\"" + hex + "\" align=\"LEFT\" valign=\"TOP\""));
    }
}

TEST_F(TableMarkups, TellTextColorsWhenTheyAreWanted) {
    cells.Cell(0, 0).color = 0x0000FF;
    cells.Cell(0, 0).text = "a";
    ExpectCell(CellTag(usual, "a"));
    settings.textColors = true;
    ExpectCell(CellTag(usual, "a", "color: #FF0000; font-size: 12pt"));
    cells.Cell(0, 0).color = 0;
    ExpectCell(CellTag(usual, "a", "color: #000000; font-size: 12pt"));
}

TEST_F(TableMarkups, TellFontSizesAsTheyAreKept) {
    const QString kept[] = {"8", "9.75", "12", "14", "18", "24", "36"};
    for (int i = 0; i < 7; ++i) {
        cells.Cell(0, 0).fontSize = fontSizes[i].points;
        ExpectCell(CellTag(usual, {}, "font-size: " + kept[i] + "pt"));
    }
}

TEST_F(TableMarkups, HaveTextsAsMarkup) {
    const std::pair<QString, QString> texts[] = {
        {"a<b", "a&lt;b"},
        {"a>b", "a&gt;b"},
        {"a&b", "a&b"},
        {"a  b", "a&nbsp;b"},
        {"\"a\"", "&quot;a&quot;"},
        {"a\nb", "a<br />\r\nb"},
        {"a\r\nb\rc\n", "a<br />\r\nb<br />\r\nc<br />\r\n"},
    };
    for (const auto& [text, markup] : texts) {
        cells.Cell(0, 0).text = text;
        ExpectCell(CellTag(usual, markup));
    }
}

TEST_F(TableMarkups, HaveImagesBeforeTheText) {
    cells.Cell(0, 0).image = "a.gif";
    ExpectCell(CellTag(usual, "<img src=\"a.gif\">"));
    cells.Cell(0, 0).image = "a & \"b\".gif";
    cells.Cell(0, 0).text = "<";
    ExpectCell(CellTag(usual, "<img src=\"a & \"b\".gif\">&lt;"));
}

TEST_F(TableMarkups, TellEverythingOfACellInOneOrder) {
    settings = {.textAlignment = "RIGHT",
                .verticalAlignment = "BOTTOM",
                .percentWidth = true,
                .textColors = true,
                .clearBackgrounds = false,
                .cellHeights = true};
    cells.Cell(0, 0) = {
        .text = "x", .color = 0x00FF00, .backColor = 1, .fontSize = 36, .image = "i.gif", .picture = {}};
    EXPECT_EQ(
        Markup(),
        Whole("<table cellpadding=\"3\" cellspacing=\"2\" width=\"100%\">",
              OneCell(CellTag(" width=\"99%\" height=\"21\" bgcolor=\"#000000\" align=\"RIGHT\" valign=\"BOTTOM\"",
                              "<img src=\"i.gif\">x", "color: #00FF00; font-size: 36pt"))));
}

TEST_F(TableMarkups, GoRowByRow) {
    cells.Resize(2, 2);
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) cells.Cell(row, column).text = QString("%1%2").arg(row).arg(column);
    }
    cells.SetColumnWidth(1, 15);
    const QString narrow = " width=\"1\" align=\"LEFT\" valign=\"TOP\"";
    EXPECT_EQ(Markup(), Whole(usualTag, OneCell(CellTag(usual, "00") + CellTag(narrow, "01")) +
                                            OneCell(CellTag(usual, "10") + CellTag(narrow, "11"))));
}

}  // namespace
}  // namespace vellum
