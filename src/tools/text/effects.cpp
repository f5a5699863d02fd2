#include "tools/text/effects.h"

#include "tools/framework/attributes.h"
#include "tools/framework/color_ramp.h"
#include "values/color_hex.h"
#include "values/number_rules.h"

namespace vellum {
namespace {

QString Layer(const LayeredText& fields, const QString& margins, ColorNumber color) {
    const QString size = NumberText(LeadingNumber(fields.size));
    return "<div style=\"" + margins + " font-family: " + fields.font + "; font-size: " + size +
           "pt; fontsize: " + size + "pt; font-weight: medium; font-style: normal; color: " + ColorToHex(color) +
           ";\">\r\n" + fields.text + "\r\n</div>\r\n";
}

}  // namespace

double LayerMargin(double size) {
    constexpr double smallSize = 20;
    return -(size + size / 2) - 3 + (size <= smallSize ? 1 : 0);
}

QString LayeredTextMarkup(const LayeredText& fields) {
    const QString margin = NumberText(LayerMargin(LeadingNumber(fields.size)));
    return "<!-- Begin 3D Text -->\r\n" + Layer(fields, "margin-left: 0px; margin-top: 0px;", fields.back) +
           Layer(fields, "margin-left: 2px; margin-top: " + margin + "px ;", fields.front) + "<!-- End 3D Text -->";
}

std::vector<SlopedCharacter> SlopedCharacters(const SlopedText& fields) {
    const QStringList characters = CharactersOf(fields.text);
    const int rise = fields.largest - fields.smallest;
    std::vector<SlopedCharacter> wave;
    qsizetype at = 0;
    while (at < characters.size()) {
        for (int k = 0; k <= rise; ++k) wave.push_back({characters.value(at++), fields.smallest + k});
        for (int k = rise - 1; k >= 1; --k) wave.push_back({characters.value(at++), fields.smallest + k});
    }
    return wave;
}

QString SlopedTextMarkup(const SlopedText& fields) {
    QString markup;
    for (const auto& [character, size] : SlopedCharacters(fields)) {
        markup += "<font" + Attribute("size", QString::number(size)) + '>' + character + "</font>";
    }
    return markup;
}

int DividerSteps(const GradientDivider& fields) {
    return ToInt16(LeadingNumber(fields.steps)).value_or(0);
}

QString GradientDividerMarkup(const GradientDivider& fields) {
    const int steps = DividerSteps(fields);
    QString markup = "<!-- Begin Gradient Divider -->\r\n<table style=\"font-size: " + fields.height +
                     "; fontsize: " + fields.height + "\" cellspacing=\"0\" border\"=0\" width=\"100%\">\r\n<tr>\r\n";
    const QString width = NumberText(100.0 / steps) + '%';
    for (const QString& color : ColorRamp(fields.first, fields.last, steps)) {
        markup += "<td" + Attribute("width", width) + Attribute("bgcolor", color) + ">&nbsp;</td>\r\n";
    }
    return markup + "</tr>\r\n</table>\r\n<!-- End Gradient Divider-->";
}

QString GradientTextMarkup(const GradientText& fields) {
    const QStringList characters = CharactersOf(fields.text);
    QString markup = "<!-- Begin Gradient Text -->\r\n";
    if (!fields.size.isEmpty()) {
        const bool hasUnit = fields.size.contains(QLatin1String("pt"), Qt::CaseInsensitive);
        markup += "<span" + Attribute("style", "font-size: " + fields.size + (hasUnit ? "" : "pt")) + ">\r\n";
    }
    for (qsizetype i = 0;
         const QString& color : ColorRamp(fields.first, fields.last, static_cast<int>(characters.size()))) {
        markup += "<span" + Attribute("style", "color: " + color) + '>' + characters.at(i++) + "</span>";
    }
    return markup + "</span>\r\n<!-- End Gradient Text -->";
}

QStringList CharactersOf(const QString& text) {
    QStringList characters;
    for (qsizetype i = 0; i < text.size();) {
        const bool isPair = i + 1 < text.size() && text[i].isHighSurrogate() && text[i + 1].isLowSurrogate();
        const qsizetype length = isPair ? 2 : 1;
        characters << text.mid(i, length);
        i += length;
    }
    return characters;
}

}  // namespace vellum
