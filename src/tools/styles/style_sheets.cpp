#include "tools/styles/style_sheets.h"

#include "tools/framework/attributes.h"

namespace vellum {
namespace {

using enum StylePage;

constexpr auto colors = "AQUA,BLACK,BLUE,FUCHSIA,GRAY,GREEN,LIME,MAROON,NAVY,OLIVE,PURPLE,RED,SILVER,TEAL,WHITE,YELLOW";
constexpr auto points = "2pt,4pt,6pt,8pt,10pt,12pt,14pt,16pt,18pt,20pt,22pt,24pt";
constexpr auto pixels = "2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px";
constexpr auto borderStyles = "none,dotted,dashed,solid,double,groove,ridge,inset,outset";
constexpr auto borderWidths = "medium,thin,thick";
constexpr auto sizes = "auto,50px,100px,150px,200px,250px,300px,350px,400px,450px,500px";
constexpr auto offsets = "auto,10px,20px,30px,40px,50px";
constexpr auto pageBreaks = "auto,always,left,right";

constexpr std::array<StyleProperty, stylePropertyCount> table{{
    {"font-family", Text, ""},  // the machine's fonts
    {"font-size", Text,
     "8pt,10pt,12pt,14pt,16pt,18pt,20pt,22pt,24pt,xx-small,x-small,small,medium,large,x-large,xx-large"},
    {"font-style", Text, "normal,italic,oblique"},
    {"font-variant", Text, "normal,small-caps"},
    {"font-weight", Text, "normal,bold,bolder,lighter,100,200,300,400,500,600,700,800,900"},
    {"line-height", Text, "normal", points},
    {"letter-spacing", Text, "normal", points},
    {"text-align", Text, "left,right,center,justify"},
    {"text-decoration", Text, "none,underline,overline,line-through,blink"},
    {"text-indent", Text, "", points},
    {"text-transform", Text, "none,capitalize,uppercase,lowercase"},
    {"vertical-align", Text, "baseline,sub,super,top,middle,bottom,text-top,text-bottom"},
    {"background-attachment", Color, "scroll,fixed"},
    {"background-color", Color, "transparent", colors, true},
    {"background-image", Color, "none"},
    {"background-position", Color,
     "top left,top center,top right,center left,center center,center right,bottom left,bottom center,bottom right"},
    {"background-repeat", Color, "repeat,no-repeat,repeat-x,repeat-y"},
    {"color", Color, "", colors, true},
    {"border-bottom-color", Layout, "", colors, true},
    {"border-bottom-style", Layout, "", borderStyles},
    {"border-bottom-width", Layout, "", borderWidths},
    {"border-collapse", Layout, "separate,collapse"},
    {"border-color", Layout, "", colors, true},
    {"border-left-color", Layout, "", colors, true},
    {"border-left-style", Layout, "", borderStyles},
    {"border-left-width", Layout, "", borderWidths},
    {"border-right-color", Layout, "", colors, true},
    {"border-right-style", Layout, "", borderStyles},
    {"border-right-width", Layout, "", borderWidths},
    {"border-style", Layout, "", borderStyles},
    {"border-top-color", Layout, "", colors, true},
    {"border-top-style", Layout, "", borderStyles},
    {"border-top-width", Layout, "", borderWidths},
    {"border-width", Layout, "", borderWidths},
    {"clear", Layout, "none,left,right,both"},
    {"direction", Layout, "ltr,rtl,inherit"},
    {"float", Layout, "none,left,right"},
    {"margin-bottom", Layout, "auto", pixels},
    {"margin-left", Layout, "auto", pixels},
    {"margin-right", Layout, "auto", pixels},
    {"margin-top", Layout, "auto", pixels},
    {"padding-bottom", Layout, "", pixels},
    {"padding-left", Layout, "", pixels},
    {"padding-right", Layout, "", pixels},
    {"padding-top", Layout, "", pixels},
    {"table-layout", Layout, "auto,fixed"},
    {"display", Classification, "block,none,inline,list-item"},
    {"list-style-image", Classification, "none"},
    {"list-style-position", Classification, "outside,inside"},
    {"list-style-type", Classification,
     "disc,circle,square,decimal,lower-roman,upper-roman,lower-alpha,upper-alpha,none"},
    {"clip", Positioning, "auto,rect(top right bottom left)"},
    {"height", Positioning, "", sizes},
    {"left", Positioning, "", offsets},
    {"overflow", Positioning, "visible,scroll,hidden,auto"},
    {"position", Positioning, "static,absolute,relative"},
    {"top", Positioning, "", offsets},
    {"visibility", Positioning, "inherit,visible,hidden"},
    {"width", Positioning, "", sizes},
    {"z-index", Positioning, "auto"},
    {"page-break-after", Printing, "", pageBreaks},
    {"page-break-before", Printing, "", pageBreaks},
    {"cursor", Layout,
     "auto,crosshair,default,hand,move,e-resize,ne-resize,nw-resize,n-resize,se-resize,sw-resize,s-resize,w-resize,"
     "text,wait,help"},
}};

// Every set property, after a blank and with a semicolon, then `end`.
QString Declarations(const StyleValues& values, const QString& end) {
    QString text;
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (values.at(i).isEmpty()) continue;
        text += u' ' + QString(table.at(i).name) + QLatin1String(": ") + values.at(i) + u';' + end;
    }
    return text;
}

// As it is typed: in another case, a name is another element.
bool IsEmptyElement(const QString& element) {
    static const QStringList empty{"area", "base",  "bgsound", "basefont", "br",   "col",   "frame",  "hr",
                                   "img",  "input", "isindex", "link",     "meta", "param", "!-- --", "!DOCTYPE"};
    return empty.contains(element);
}

}  // namespace

const QStringList& StylePageNames() {
    static const QStringList names{"Font and Text Properties", "Color and Background Properties",
                                   "Layout Properties",        "Classification Properties",
                                   "Positioning Properties",   "Printing Properties"};
    return names;
}

const std::array<StyleProperty, stylePropertyCount>& StyleProperties() {
    return table;
}

QStringList OfferedValues(const StyleProperty& property) {
    return QString(property.values).split(u',', Qt::SkipEmptyParts) +
           QString(property.common).split(u',', Qt::SkipEmptyParts);
}

QString StyleSheetText(const std::vector<StyleRule>& rules, bool withTags) {
    QString text;
    if (withTags) text += "<style type=\"text/css\">\r\n<!--\r\n/* <![CDATA[ */\r\n\r\n";
    for (const StyleRule& rule : rules) {
        text += rule.element + " {\r\n" + Declarations(rule.values, "\r\n") + "}\r\n\r\n";
    }
    if (withTags) text += "/* ]]> */\r\n-->\r\n</style>";
    return text;
}

QString InlineStyle(const QString& element, const StyleValues& values, const QString& selection) {
    const QString start = '<' + element + InTagStyle(values);
    if (IsEmptyElement(element)) return start + " />";
    return start + ">\r\n" + selection + "\r\n</" + element + '>';
}

QString InTagStyle(const StyleValues& values) {
    return Attribute("style", Declarations(values, {}));
}

}  // namespace vellum
