#include "tools/styles/style_box.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace vellum {
namespace {

using Reader = void (*)(StyleBox& box, const QString& value);

constexpr int standardSize = 16;
constexpr double most = 4000;  // a length that is more than any sample shows

double Size(const StyleBox& box) {
    return box.font.pixelSize();
}

// In pixels; nothing when it is no length. A share in percent is one of `whole`.
std::optional<double> Length(const QString& text, double size, std::optional<double> whole = {}) {
    static const QMap<QString, double> units{{"px", 1},  {"pt", 96.0 / 72}, {"pc", 16},
                                             {"in", 96}, {"cm", 96 / 2.54}, {"mm", 96 / 25.4}};
    static const QRegularExpression pattern(R"(^([-+]?(?:\d+\.?\d*|\.\d+))([a-z]+|%)?$)");
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const double number = match.captured(1).toDouble();
    const QString unit = match.captured(2);
    const auto of = [number](double one) { return std::optional(std::clamp(number * one, -most, most)); };
    if (unit == "em") return of(size);
    if (unit == "ex") return of(size / 2);
    if (unit == "%") return whole ? of(*whole / 100) : std::nullopt;
    if (units.contains(unit)) return of(units.value(unit));
    return unit.isEmpty() && number == 0 ? std::optional(number) : std::nullopt;
}

// A length of what can't be less than nothing.
std::optional<double> Extent(const QString& text, double size, std::optional<double> whole = {}) {
    const std::optional<double> length = Length(text, size, whole);
    return length.value_or(-1) < 0 ? std::nullopt : length;
}

void ReadFamily(StyleBox& box, const QString& value) {
    QStringList families;
    for (QString family : value.split(u',')) families << family.remove(u'"').remove(u'\'').trimmed();
    box.font.setFamilies(families);
}

void ReadSize(StyleBox& box, const QString& value) {
    static const QMap<QString, int> sizes{{"xx-small", 9}, {"x-small", 10}, {"small", 13},   {"medium", 16},
                                          {"large", 18},   {"x-large", 24}, {"xx-large", 32}};
    const std::optional<double> length =
        sizes.contains(value) ? sizes.value(value) : Length(value, standardSize, standardSize);
    if (length && *length > 0) box.font.setPixelSize(std::max(1, static_cast<int>(*length + 0.5)));
}

void ReadWeight(StyleBox& box, const QString& value) {
    static const QMap<QString, int> weights{
        {"normal", QFont::Normal}, {"bold", QFont::Bold}, {"bolder", QFont::Bold}, {"lighter", QFont::Thin}};
    const int weight = weights.value(value, value.toInt());
    if (weight >= 1 && weight <= 1000) box.font.setWeight(static_cast<QFont::Weight>(weight));
}

void ReadStyle(StyleBox& box, const QString& value) {
    static const QMap<QString, QFont::Style> styles{
        {"normal", QFont::StyleNormal}, {"italic", QFont::StyleItalic}, {"oblique", QFont::StyleOblique}};
    box.font.setStyle(styles.value(value, box.font.style()));
}

void ReadCase(StyleBox& box, const QString& value) {
    static const QMap<QString, QFont::Capitalization> cases{{"small-caps", QFont::SmallCaps},
                                                            {"capitalize", QFont::Capitalize},
                                                            {"uppercase", QFont::AllUppercase},
                                                            {"lowercase", QFont::AllLowercase}};
    if (cases.contains(value)) box.font.setCapitalization(cases.value(value));
}

void ReadLineHeight(StyleBox& box, const QString& value) {
    bool isFactor = false;
    const double factor = value.toDouble(&isFactor);
    const QString text = isFactor ? QString::number(factor) + "em" : value;
    if (const auto height = Extent(text, Size(box), Size(box))) box.lineHeight = height;
    if (value == "normal") box.lineHeight.reset();
}

void ReadSpacing(StyleBox& box, const QString& value) {
    box.font.setLetterSpacing(QFont::AbsoluteSpacing, Length(value, Size(box)).value_or(0));
}

void ReadDecoration(StyleBox& box, const QString& value) {
    const QStringList lines = value.split(u' ');
    box.font.setUnderline(lines.contains("underline"));
    box.font.setOverline(lines.contains("overline"));
    box.font.setStrikeOut(lines.contains("line-through"));
}

void ReadAlignment(StyleBox& box, const QString& value) {
    static const QMap<QString, Qt::Alignment> sides{{"left", Qt::AlignLeft | Qt::AlignAbsolute},
                                                    {"right", Qt::AlignRight | Qt::AlignAbsolute},
                                                    {"center", Qt::AlignHCenter},
                                                    {"justify", Qt::AlignJustify}};
    box.alignment = sides.value(value, box.alignment);
}

void ReadVertical(StyleBox& box, const QString& value) {
    static const QMap<QString, QTextCharFormat::VerticalAlignment> places{{"sub", QTextCharFormat::AlignSubScript},
                                                                          {"super", QTextCharFormat::AlignSuperScript}};
    box.vertical = places.value(value, QTextCharFormat::AlignNormal);
}

void ReadColor(QColor& color, const QString& value) {
    if (const auto read = StyleColor(value)) color = *read;
}

void ReadEdgeWidth(StyleBox& box, StyleEdge& edge, const QString& value) {
    static const QMap<QString, double> widths{{"thin", 1}, {"medium", 3}, {"thick", 5}};
    const std::optional<double> width = widths.contains(value) ? widths.value(value) : Extent(value, Size(box));
    if (!width) return;
    edge.width = *width > 0 ? std::max(1.0, std::floor(*width)) : 0;  // of whole pixels, as browsers draw it
}

// "border-left-color", or for all sides "border-color".
void ReadBorder(StyleBox& box, const QString& name, const QString& value) {
    static const QStringList sides{"top", "right", "bottom", "left"};
    static const QStringList styles =
        OfferedValues({"", StylePage::Layout, "none,dotted,dashed,solid,double,groove,ridge,inset,outset"});
    const qsizetype side = sides.indexOf(name.section(u'-', 1, 1));
    const QString what = name.section(u'-', -1);
    for (qsizetype i = 0; i < sides.size(); ++i) {
        if (side >= 0 && i != side) continue;
        StyleEdge& edge = box.edges.at(static_cast<std::size_t>(i));
        if (what == "color") ReadColor(edge.color, value);
        if (what == "width") ReadEdgeWidth(box, edge, value);
        if (what == "style" && styles.contains(value)) edge.style = value;
    }
}

void ReadMargin(StyleBox& box, const QString& name, const QString& value) {
    static const QStringList sides{"top", "right", "bottom", "left"};
    const auto side = static_cast<std::size_t>(sides.indexOf(name.section(u'-', -1)));
    const std::optional<double> length = Length(value, Size(box), box.room);
    if (name.startsWith("padding")) {
        if (length && *length >= 0) box.padding.at(side) = *length;
    } else if (length || value == "auto") {
        box.margins.at(side) = length;
    }
}

const QMap<QString, Reader>& TextReaders() {
    static const QMap<QString, Reader> readers{
        {"font-family", ReadFamily},
        {"font-size", ReadSize},
        {"font-style", ReadStyle},
        {"font-variant", ReadCase},
        {"font-weight", ReadWeight},
        {"line-height", ReadLineHeight},
        {"letter-spacing", ReadSpacing},
        {"text-align", ReadAlignment},
        {"text-decoration", ReadDecoration},
        {"text-indent",
         [](StyleBox& b, const QString& v) { b.indent = Length(v, Size(b), b.room).value_or(b.indent); }},
        {"text-transform", ReadCase},
        {"vertical-align", ReadVertical},
        {"color", [](StyleBox& b, const QString& v) { ReadColor(b.color, v); }},
        {"direction",
         [](StyleBox& b, const QString& v) { b.direction = v == "rtl" ? Qt::RightToLeft : Qt::LeftToRight; }},
    };
    return readers;
}

const QMap<QString, Reader>& BoxReaders() {
    static const QMap<QString, Reader> readers{
        {"background-color", [](StyleBox& b, const QString& v) { ReadColor(b.background, v); }},
        {"float", [](StyleBox& b, const QString& v) { b.side = v; }},
        {"display", [](StyleBox& b, const QString& v) { b.display = v; }},
        {"list-style-position", [](StyleBox& b, const QString& v) { b.markerInside = v == "inside"; }},
        {"list-style-type", [](StyleBox& b, const QString& v) { b.marker = v; }},
        {"height", [](StyleBox& b, const QString& v) { b.height = Extent(v, Size(b)); }},
        {"width", [](StyleBox& b, const QString& v) { b.width = Extent(v, Size(b), b.room); }},
        {"left", [](StyleBox& b, const QString& v) { b.left = Length(v, Size(b), b.room).value_or(0); }},
        {"top", [](StyleBox& b, const QString& v) { b.top = Length(v, Size(b)).value_or(0); }},
        {"overflow", [](StyleBox& b, const QString& v) { b.clips = v == "hidden" || v == "scroll" || v == "auto"; }},
        {"position", [](StyleBox& b, const QString& v) { b.position = v; }},
        {"visibility", [](StyleBox& b, const QString& v) { b.hidden = v == "hidden"; }},
        {"cursor", [](StyleBox& b, const QString& v) { b.cursor = v; }},
    };
    return readers;
}

bool IsBorder(const QString& name) {
    return name.startsWith("border-") && name != "border-collapse";
}

bool IsSpace(const QString& name) {
    return name.startsWith("margin-") || name.startsWith("padding-");
}

void Read(StyleBox& box, const QString& name, const QString& text) {
    const QString value = name == "font-family" ? text : text.trimmed().toLower();
    if (IsBorder(name)) return ReadBorder(box, name, value);
    if (IsSpace(name)) return ReadMargin(box, name, value);
    if (const Reader reader = TextReaders().value(name)) return reader(box, value);
    if (const Reader reader = BoxReaders().value(name)) reader(box, value);
}

// What browsers give an element of themselves, as "name: value; name: value".
QString OwnStyle(const QString& element) {
    static const QMap<QString, QString> styles{
        {"h1", "font-size: 32px; font-weight: bold"},
        {"h2", "font-size: 24px; font-weight: bold"},
        {"h3", "font-size: 19px; font-weight: bold"},
        {"h4", "font-weight: bold"},
        {"h5", "font-size: 13px; font-weight: bold"},
        {"h6", "font-size: 11px; font-weight: bold"},
        {"a", "color: blue; text-decoration: underline; display: inline"},
        {"b", "font-weight: bold; display: inline"},
        {"strong", "font-weight: bold; display: inline"},
        {"i", "font-style: italic; display: inline"},
        {"em", "font-style: italic; display: inline"},
        {"u", "text-decoration: underline; display: inline"},
        {"span", "display: inline"},
        {"code", "font-family: monospace; font-size: 13px; display: inline"},
        {"pre", "font-family: monospace; font-size: 13px"},
        {"li", "display: list-item; margin-left: 40px"},
        {"blockquote", "margin-left: 40px; margin-right: 40px"},
        {"center", "text-align: center"},
        {"th", "font-weight: bold; text-align: center"},
    };
    // Of a selector as "h1.title" or "a:hover" the element counts.
    static const QRegularExpression name("^[a-z0-9]+");
    return styles.value(name.match(element.trimmed().toLower()).captured());
}

}  // namespace

double StyleBox::EdgeWidth(StyleSide edgeSide) const {
    const StyleEdge& edge = edges.at(edgeSide);
    return edge.style == "none" ? 0 : edge.width;
}

double StyleBox::Around(StyleSide edgeSide) const {
    return EdgeWidth(edgeSide) + padding.at(edgeSide);
}

StyleBox StyledBox(const QString& element, const StyleValues& values, double room) {
    StyleBox box;
    box.room = room;
    box.font.setFamilies({"Times New Roman", "serif"});
    box.font.setPixelSize(standardSize);
    for (const QString& declaration : OwnStyle(element).split(u';')) {
        Read(box, declaration.section(u':', 0, 0).trimmed(), declaration.section(u':', 1));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!values.at(i).isEmpty()) Read(box, StyleProperties().at(i).name, values.at(i));
    }
    return box;
}

QStringList UnseenProperties(const StyleValues& values) {
    QStringList names;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const QString name = StyleProperties().at(i).name;
        const bool seen =
            IsBorder(name) || IsSpace(name) || TextReaders().contains(name) || BoxReaders().contains(name);
        if (!values.at(i).isEmpty() && !seen) names << name;
    }
    return names;
}

std::optional<QColor> StyleColor(const QString& text) {
    const QString name = text.trimmed().toLower();
    static const QRegularExpression parts(R"(^rgb\(\s*(\d{1,3})\s*,\s*(\d{1,3})\s*,\s*(\d{1,3})\s*\)$)");
    if (const auto match = parts.match(name); match.hasMatch()) {
        const auto part = [&match](int i) { return std::min(match.captured(i).toInt(), 255); };
        return QColor(part(1), part(2), part(3));
    }
    if (!QColor::isValidColor(name)) return std::nullopt;
    return QColor(name);
}

}  // namespace vellum
