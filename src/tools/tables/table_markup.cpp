#include "tools/tables/table_markup.h"

#include "import/text_import.h"
#include "surface/document_text.h"
#include "tools/framework/attributes.h"
#include "values/color_hex.h"
#include "values/number_rules.h"

namespace vellum {
namespace {

constexpr QLatin1String lineEnd("\r\n");

QString Line(const QString& markup) {
    return markup + lineEnd;
}

double Pixels(int twips) {
    return static_cast<double>(twips) / twipsPerPixel;
}

QString TableTag(const TableSettings& settings) {
    QString tag = "<table";
    // The one attribute without quotes.
    if (!settings.alignment.isEmpty()) tag += " align=" + settings.alignment;
    tag += AttributeIfAny("border", settings.borderSize);
    tag += AttributeIfAny("bordercolor", settings.borderColor);
    tag += AttributeIfAny("cellpadding", settings.cellPadding);
    tag += AttributeIfAny("cellspacing", settings.cellSpacing);
    tag += AttributeIfAny("frame", settings.frame);
    tag += AttributeIfAny("rules", settings.rules);
    tag += AttributeIfAny("gradangle", settings.gradientAngle);
    tag += AttributeIfAny("gradcolor", settings.gradientColor);
    tag += AttributeIfAny("transparency", settings.transparency);
    if (settings.percentWidth) tag += Attribute("width", settings.width);
    return Line(tag + '>');
}

QString Head(const QString& title, int columns) {
    return Line("<thead>") + Line("<tr>") +
           Line("<th" + Attribute("colspan", QString::number(columns)) + '>' + title + "</th>") + Line("</tr>") +
           Line("</thead>");
}

QString BackColorOf(const TableCell& cell) {
    constexpr ColorNumber white = 0xFFFFFF;
    const QString hex = ColorToHex(cell.backColor == 0 ? white : cell.backColor);
    return hex == u"#010000" ? QStringLiteral("#000000") : hex;
}

// Writes the cells of a table, whose tags differ by little from one to the next.
class CellWriter {
public:
    CellWriter(const TableCells& cells, const TableSettings& settings, int tablePixels)
        : cells_(cells), settings_(settings) {
        afterColor_ = AttributeIfAny("align", settings.textAlignment) +
                      AttributeIfAny("valign", settings.verticalAlignment) + '>' + lineEnd + "<span style=\"";
        for (int column = 0; column < cells.Columns(); ++column) {
            const double pixels = Pixels(cells.ColumnWidth(column));
            const QString width = settings.percentWidth
                                      ? QString::number(static_cast<int>(pixels / tablePixels * 100)) + '%'
                                      : NumberText(pixels);
            openings_.push_back("<td" + Attribute("width", width));
        }
    }

    void AppendRow(QString& markup, int row) {
        const QString height =
            settings_.cellHeights ? Attribute("height", NumberText(Pixels(cells_.RowHeight(row)))) : QString();
        markup += Line("<tr>");
        for (int column = 0; column < cells_.Columns(); ++column) {
            markup += openings_.at(static_cast<std::size_t>(column));
            markup += height;
            AppendCell(markup, cells_.At(row, column));
        }
        markup += Line("</tr>");
    }

private:
    void AppendCell(QString& markup, const TableCell& cell) {
        if (!settings_.clearBackgrounds) markup += Attribute("bgcolor", BackColorOf(cell));
        markup += afterColor_;
        if (settings_.textColors) markup += "color: " + ColorToHex(cell.color) + "; ";
        markup += SizeOf(cell);
        if (!cell.image.isEmpty()) markup += "<img src=\"" + cell.image + "\">";
        if (!cell.text.isEmpty()) markup += ConvertPlainText(WithCrLf(WithLf(cell.text)));
        markup += QLatin1String("\r\n</span>\r\n</td>\r\n");
    }

    // The end of the style; most cells have the size of the one before.
    const QString& SizeOf(const TableCell& cell) {
        if (cell.fontSize != sizeWritten_) {
            sizeWritten_ = cell.fontSize;
            size_ = Line("font-size: " + NumberText(cell.fontSize) + "pt\">");
        }
        return size_;
    }

    const TableCells& cells_;
    const TableSettings& settings_;
    QString afterColor_;
    std::vector<QString> openings_;  // one a column
    float sizeWritten_ = -1;
    QString size_;
};

}  // namespace

std::optional<int> TablePixels(const TableCells& cells) {
    long long twips = 0;
    for (int column = 0; column < cells.Columns(); ++column) twips += cells.ColumnWidth(column);
    if (twips > widestTable) return std::nullopt;
    return static_cast<int>(RoundHalfEven(Pixels(static_cast<int>(twips))));
}

std::optional<QString> TableMarkup(const TableCells& cells, const TableSettings& settings) {
    const std::optional<int> pixels = TablePixels(cells);
    if (!pixels || (settings.percentWidth && *pixels == 0)) return std::nullopt;
    QString markup = lineEnd + "<!-- Begin Table -->" + lineEnd;
    if (settings.alignment.toLower() == u"center") markup += Line("<center>");
    markup += TableTag(settings);
    if (!settings.title.isEmpty()) markup += Head(settings.title, cells.Columns()) + Line("<tbody>");
    CellWriter writer(cells, settings, *pixels);
    for (int row = 0; row < cells.Rows(); ++row) writer.AppendRow(markup, row);
    if (!settings.title.isEmpty()) markup += Line("</tbody>");
    markup += Line("</table>");
    // Only a typed "center" is closed; the list's own word is in upper case.
    if (settings.alignment == u"center") markup += Line("</center>");
    return markup + "<!-- End Table -->";
}

}  // namespace vellum
