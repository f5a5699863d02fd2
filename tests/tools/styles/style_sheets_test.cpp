#include "tools/styles/style_sheets.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

struct Expected {
    const char* name;
    int page;
    const char* values;
};

constexpr Expected properties[] = {
    {"font-family", 0, ""},
    {"font-size", 0,
     "8pt,10pt,12pt,14pt,16pt,18pt,20pt,22pt,24pt,xx-small,x-small,small,medium,large,x-large,xx-large"},
    {"font-style", 0, "normal,italic,oblique"},
    {"font-variant", 0, "normal,small-caps"},
    {"font-weight", 0, "normal,bold,bolder,lighter,100,200,300,400,500,600,700,800,900"},
    {"line-height", 0, "normal,2pt,4pt,6pt,8pt,10pt,12pt,14pt,16pt,18pt,20pt,22pt,24pt"},
    {"letter-spacing", 0, "normal,2pt,4pt,6pt,8pt,10pt,12pt,14pt,16pt,18pt,20pt,22pt,24pt"},
    {"text-align", 0, "left,right,center,justify"},
    {"text-decoration", 0, "none,underline,overline,line-through,blink"},
    {"text-indent", 0, "2pt,4pt,6pt,8pt,10pt,12pt,14pt,16pt,18pt,20pt,22pt,24pt"},
    {"text-transform", 0, "none,capitalize,uppercase,lowercase"},
    {"vertical-align", 0, "baseline,sub,super,top,middle,bottom,text-top,text-bottom"},
    {"background-attachment", 1, "scroll,fixed"},
    {"background-color", 1,
     "transparent,AQUA,BLACK,BLUE,FUCHSIA,GRAY,GREEN,LIME,MAROON,NAVY,OLIVE,PURPLE,RED,SILVER,TEAL,WHITE,YELLOW"},
    {"background-image", 1, "none"},
    {"background-position", 1,
     "top left,top center,top right,center left,center center,center right,bottom left,bottom center,bottom right"},
    {"background-repeat", 1, "repeat,no-repeat,repeat-x,repeat-y"},
    {"color", 1, "AQUA,BLACK,BLUE,FUCHSIA,GRAY,GREEN,LIME,MAROON,NAVY,OLIVE,PURPLE,RED,SILVER,TEAL,WHITE,YELLOW"},
    {"border-bottom-color", 2,
     "AQUA,BLACK,BLUE,FUCHSIA,GRAY,GREEN,LIME,MAROON,NAVY,OLIVE,PURPLE,RED,SILVER,TEAL,WHITE,YELLOW"},
    {"border-bottom-style", 2, "none,dotted,dashed,solid,double,groove,ridge,inset,outset"},
    {"border-bottom-width", 2, "medium,thin,thick"},
    {"border-collapse", 2, "separate,collapse"},
    {"border-color", 2,
     "AQUA,BLACK,BLUE,FUCHSIA,GRAY,GREEN,LIME,MAROON,NAVY,OLIVE,PURPLE,RED,SILVER,TEAL,WHITE,YELLOW"},
    {"border-left-color", 2,
     "AQUA,BLACK,BLUE,FUCHSIA,GRAY,GREEN,LIME,MAROON,NAVY,OLIVE,PURPLE,RED,SILVER,TEAL,WHITE,YELLOW"},
    {"border-left-style", 2, "none,dotted,dashed,solid,double,groove,ridge,inset,outset"},
    {"border-left-width", 2, "medium,thin,thick"},
    {"border-right-color", 2,
     "AQUA,BLACK,BLUE,FUCHSIA,GRAY,GREEN,LIME,MAROON,NAVY,OLIVE,PURPLE,RED,SILVER,TEAL,WHITE,YELLOW"},
    {"border-right-style", 2, "none,dotted,dashed,solid,double,groove,ridge,inset,outset"},
    {"border-right-width", 2, "medium,thin,thick"},
    {"border-style", 2, "none,dotted,dashed,solid,double,groove,ridge,inset,outset"},
    {"border-top-color", 2,
     "AQUA,BLACK,BLUE,FUCHSIA,GRAY,GREEN,LIME,MAROON,NAVY,OLIVE,PURPLE,RED,SILVER,TEAL,WHITE,YELLOW"},
    {"border-top-style", 2, "none,dotted,dashed,solid,double,groove,ridge,inset,outset"},
    {"border-top-width", 2, "medium,thin,thick"},
    {"border-width", 2, "medium,thin,thick"},
    {"clear", 2, "none,left,right,both"},
    {"direction", 2, "ltr,rtl,inherit"},
    {"float", 2, "none,left,right"},
    {"margin-bottom", 2, "auto,2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px"},
    {"margin-left", 2, "auto,2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px"},
    {"margin-right", 2, "auto,2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px"},
    {"margin-top", 2, "auto,2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px"},
    {"padding-bottom", 2, "2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px"},
    {"padding-left", 2, "2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px"},
    {"padding-right", 2, "2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px"},
    {"padding-top", 2, "2px,4px,8px,10px,12px,14px,16px,18px,20px,22px,24px"},
    {"table-layout", 2, "auto,fixed"},
    {"display", 3, "block,none,inline,list-item"},
    {"list-style-image", 3, "none"},
    {"list-style-position", 3, "outside,inside"},
    {"list-style-type", 3, "disc,circle,square,decimal,lower-roman,upper-roman,lower-alpha,upper-alpha,none"},
    {"clip", 4, "auto,rect(top right bottom left)"},
    {"height", 4, "auto,50px,100px,150px,200px,250px,300px,350px,400px,450px,500px"},
    {"left", 4, "auto,10px,20px,30px,40px,50px"},
    {"overflow", 4, "visible,scroll,hidden,auto"},
    {"position", 4, "static,absolute,relative"},
    {"top", 4, "auto,10px,20px,30px,40px,50px"},
    {"visibility", 4, "inherit,visible,hidden"},
    {"width", 4, "auto,50px,100px,150px,200px,250px,300px,350px,400px,450px,500px"},
    {"z-index", 4, "auto"},
    {"page-break-after", 5, "auto,always,left,right"},
    {"page-break-before", 5, "auto,always,left,right"},
    {"cursor", 2,
     "auto,crosshair,default,hand,move,e-resize,ne-resize,nw-resize,n-resize,se-resize,sw-resize,s-resize,w-resize,"
     "text,wait,help"},
};

// Values by the indexes of their properties.
StyleValues With(std::initializer_list<std::pair<int, const char*>> set) {
    StyleValues values;
    for (const auto& [index, value] : set) values.at(static_cast<std::size_t>(index)) = value;
    return values;
}

TEST(StyleProperty, EveryOneStandsInItsPlaceWithItsValues) {
    ASSERT_EQ(StyleProperties().size(), std::size(properties));
    for (std::size_t i = 0; i < std::size(properties); ++i) {
        const StyleProperty& property = StyleProperties().at(i);
        EXPECT_EQ(QString(property.name), properties[i].name);
        EXPECT_EQ(static_cast<int>(property.page), properties[i].page) << property.name;
        EXPECT_EQ(OfferedValues(property).join(','), properties[i].values) << property.name;
    }
}

TEST(StyleProperty, SevenHaveAColorButton) {
    QStringList colored;
    for (const StyleProperty& property : StyleProperties()) {
        if (property.hasColorButton) colored << property.name;
    }
    EXPECT_EQ(colored, (QStringList{"background-color", "color", "border-bottom-color", "border-color",
                                    "border-left-color", "border-right-color", "border-top-color"}));
}

TEST(StyleProperty, ThePagesHaveNames) {
    EXPECT_EQ(StylePageNames(),
              (QStringList{"Font and Text Properties", "Color and Background Properties", "Layout Properties",
                           "Classification Properties", "Positioning Properties", "Printing Properties"}));
}

TEST(StyleSheetTextOf, NoValuesAreAnEmptyRuleBetweenTheFences) {
    EXPECT_EQ(StyleSheetText({{"body", {}}}, true),
              "<style type=\"text/css\">\r\n<!--\r\n/* <![CDATA[ */\r\n\r\n"
              "body {\r\n}\r\n\r\n"
              "/* ]]> */\r\n-->\r\n</style>");
}

TEST(StyleSheetTextOf, NoElementsAreTheFencesAlone) {
    EXPECT_EQ(StyleSheetText({}, true),
              "<style type=\"text/css\">\r\n<!--\r\n/* <![CDATA[ */\r\n\r\n/* ]]> */\r\n-->\r\n</style>");
    EXPECT_EQ(StyleSheetText({}, false), "");
}

TEST(StyleSheetTextOf, RulesAloneWithoutTags) {
    EXPECT_EQ(
        StyleSheetText(
            {{"body", With({{17, "RED"}, {1, "8pt"}, {61, "help"}})}, {"", {}}, {"a:hover", With({{60, "left"}})}},
            false),
        "body {\r\n font-size: 8pt;\r\n color: RED;\r\n cursor: help;\r\n}\r\n\r\n"
        " {\r\n}\r\n\r\n"
        "a:hover {\r\n page-break-before: left;\r\n}\r\n\r\n");
}

TEST(StyleSheetTextOf, EveryPropertyInOrder) {
    StyleValues all;
    QString expected = "p {\r\n";
    for (std::size_t i = 0; i < all.size(); ++i) {
        all.at(i) = QString::number(i);
        expected += QString(" %1: %2;\r\n").arg(properties[i].name).arg(i);
    }
    EXPECT_EQ(StyleSheetText({{"p", all}}, false), expected + "}\r\n\r\n");
}

TEST(StyleSheetTextOf, WhatWasTypedGoesOutAsItStands) {
    EXPECT_EQ(StyleSheetText({{"p > \"b\"", With({{14, "url(\"a&b<c>.gif\"); x: y"}, {17, " "}})}}, false),
              "p > \"b\" {\r\n background-image: url(\"a&b<c>.gif\"); x: y;\r\n color:  ;\r\n}\r\n\r\n");
}

TEST(InlineStyleOf, AnElementStandsAroundTheSelection) {
    EXPECT_EQ(InlineStyle("div", With({{17, "RED"}, {0, "Arial"}}), "a\r\nb"),
              "<div style=\" font-family: Arial; color: RED;\">\r\na\r\nb\r\n</div>");
    EXPECT_EQ(InlineStyle("div", {}, {}), "<div style=\"\">\r\n\r\n</div>");
    EXPECT_EQ(InlineStyle("", {}, "x"), "< style=\"\">\r\nx\r\n</>");
}

TEST(InlineStyleOf, AnEmptyElementIsOneTag) {
    for (const char* name : {"area", "base", "bgsound", "basefont", "br", "col", "frame", "hr", "img", "input",
                             "isindex", "link", "meta", "param", "!-- --", "!DOCTYPE"}) {
        EXPECT_EQ(InlineStyle(name, With({{17, "RED"}}), "x"), QString("<%1 style=\" color: RED;\" />").arg(name));
    }
}

TEST(InlineStyleOf, AnEmptyElementIsToldByItsCase) {
    EXPECT_EQ(InlineStyle("BR", With({{17, "RED"}}), "x"), "<BR style=\" color: RED;\">\r\nx\r\n</BR>");
    EXPECT_EQ(InlineStyle("!doctype", {}, "x"), "<!doctype style=\"\">\r\nx\r\n</!doctype>");
    EXPECT_EQ(InlineStyle("br ", {}, "x"), "<br  style=\"\">\r\nx\r\n</br >");
}

TEST(InTagStyleOf, TheAttributeAlone) {
    EXPECT_EQ(InTagStyle({}), " style=\"\"");
    EXPECT_EQ(InTagStyle(With({{61, "hand"}, {40, "4px"}})), " style=\" margin-top: 4px; cursor: hand;\"");
}

}  // namespace
}  // namespace vellum
