// What a sample paints, by its pixels.
#include "tools/styles/style_sample.h"

#include <QImage>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

using Set = std::initializer_list<std::pair<const char*, const char*>>;

StyleValues With(const Set& set) {
    StyleValues values;
    for (const auto& [name, value] : set) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (QString(StyleProperties().at(i).name) == name) values.at(i) = value;
        }
    }
    return values;
}

class StyleSamples : public testing::Test {
protected:
    void SetUp() override { sample.resize(400, 300); }

    QImage Show(const Set& set, const QString& element = "p") {
        sample.Show(element, With(set));
        return sample.grab().toImage();
    }

    // The rectangle of the pixels in one color.
    static QRect Where(const QImage& image, const QColor& color) {
        QRect found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == color) found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }

    StyleSample sample;
};

TEST_F(StyleSamples, ABoxHasItsSizeItsMarginsAndItsPadding) {
    EXPECT_EQ(Where(Show({{"background-color", "RED"}, {"width", "100px"}, {"height", "50px"}}), Qt::red),
              QRect(8, 8, 100, 50));
    EXPECT_EQ(Where(Show({{"background-color", "RED"},
                          {"width", "100px"},
                          {"height", "50px"},
                          {"margin-left", "20px"},
                          {"margin-top", "10px"},
                          {"padding-left", "4px"},
                          {"padding-bottom", "1em"}}),
                    Qt::red),
              QRect(28, 18, 104, 66));
}

TEST_F(StyleSamples, SharesAreThoseOfTheRoom) {
    const Set half{{"background-color", "RED"}, {"width", "50%"}, {"height", "50%"}};
    const QRect box = Where(Show(half), Qt::red);
    EXPECT_EQ(box.width(), 192);
    EXPECT_LT(box.height(), 200) << "the room has no height of its own";
    sample.resize(216, 300);
    EXPECT_EQ(Where(sample.grab().toImage(), Qt::red).width(), 100);
}

TEST_F(StyleSamples, LengthsBeyondAllBoundsAreCut) {
    const StyleBox box = StyledBox("p",
                                   With({{"width", "999999999999px"},
                                         {"border-width", "1e9px"},
                                         {"margin-left", "-99999999px"},
                                         {"font-size", "99999999pt"}}),
                                   300);
    EXPECT_EQ(box.width, 4000);
    EXPECT_EQ(box.edges.front().width, 3) << "that is no length";
    EXPECT_EQ(box.margins.at(LeftSide), -4000);
    EXPECT_EQ(box.font.pixelSize(), 4000);
}

TEST_F(StyleSamples, AutoMarginsCenter) {
    EXPECT_EQ(Where(Show({{"background-color", "RED"},
                          {"width", "100px"},
                          {"height", "50px"},
                          {"margin-left", "auto"},
                          {"margin-right", "auto"}}),
                    Qt::red),
              QRect(150, 8, 100, 50));
}

TEST_F(StyleSamples, ABorderStandsOnItsSide) {
    const QImage image = Show({{"border-left-style", "solid"},
                               {"border-left-width", "thick"},
                               {"border-left-color", "BLUE"},
                               {"border-bottom-style", "solid"},
                               {"border-bottom-width", "10px"},
                               {"border-bottom-color", "LIME"},
                               {"width", "100px"},
                               {"height", "50px"}});
    EXPECT_EQ(image.pixelColor(10, 20), QColor(Qt::blue));
    EXPECT_NE(image.pixelColor(14, 20), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(60, 63), QColor(Qt::green));
    EXPECT_TRUE(Where(image, Qt::red).isNull());
}

TEST_F(StyleSamples, ABorderWithoutAStyleIsNone) {
    EXPECT_TRUE(Where(Show({{"border-width", "10px"}, {"border-color", "RED"}}), Qt::red).isNull());
}

TEST_F(StyleSamples, LaterPropertiesWinOverEarlierOnes) {
    const QImage image = Show({{"border-style", "solid"},
                               {"border-width", "6px"},
                               {"border-bottom-color", "RED"},
                               {"border-color", "BLUE"},
                               {"border-top-color", "LIME"}});
    EXPECT_TRUE(Where(image, Qt::red).isNull()) << "the color of all sides is written after that of the bottom";
    EXPECT_FALSE(Where(image, Qt::green).isNull());
}

TEST_F(StyleSamples, EveryBorderStyleLooksDifferent) {
    QList<QImage> seen;
    for (const char* style : {"none", "dotted", "dashed", "solid", "double", "groove", "ridge", "inset", "outset"}) {
        const QImage image = Show({{"border-style", style}, {"border-width", "9px"}, {"border-color", "#8080C0"}});
        EXPECT_FALSE(seen.contains(image)) << style;
        seen << image;
    }
}

TEST_F(StyleSamples, TextHasItsColorItsPlaceAndItsFont) {
    const QRect left = Where(Show({{"color", "RED"}, {"font-size", "40px"}}), Qt::red);
    EXPECT_LT(left.left(), 30);
    EXPECT_GT(left.height(), 60) << "it takes several lines";
    const QImage plain = Show({});
    for (const auto& [name, value] : Set{{"font-family", "monospace"},
                                         {"font-style", "italic"},
                                         {"font-variant", "small-caps"},
                                         {"font-weight", "bold"},
                                         {"line-height", "24pt"},
                                         {"letter-spacing", "4pt"},
                                         {"text-align", "right"},
                                         {"text-align", "justify"},
                                         {"text-decoration", "underline"},
                                         {"text-decoration", "overline"},
                                         {"text-decoration", "line-through"},
                                         {"text-indent", "24pt"},
                                         {"text-transform", "uppercase"},
                                         {"text-transform", "lowercase"},
                                         {"text-transform", "capitalize"},
                                         {"vertical-align", "super"},
                                         {"direction", "rtl"},
                                         {"font-size", "x-large"}}) {
        EXPECT_NE(Show({{name, value}}), plain) << name << ": " << value;
    }
}

TEST_F(StyleSamples, WhatMakesNoSenseIsLeftOut) {
    const QImage plain = Show({});
    for (const auto& [name, value] : Set{{"font-size", "large one"},
                                         {"font-size", "-4px"},
                                         {"color", "reddish"},
                                         {"padding-left", "-9px"},
                                         {"margin-left", "wide"},
                                         {"border-style", "wavy"},
                                         {"width", "10"},
                                         {"font-weight", "fat"},
                                         {"line-height", "high"},
                                         {"text-align", "top"},
                                         {"direction", "down"}}) {
        EXPECT_EQ(Show({{name, value}}), plain) << name << ": " << value;
    }
}

TEST_F(StyleSamples, AnElementLooksAsBrowsersShowIt) {
    const QImage plain = Show({}, "p");
    EXPECT_EQ(Show({}, "div"), plain);
    for (const char* element : {"h1", "h6", "B", "a:hover", "li", "code.small", "blockquote"}) {
        EXPECT_NE(Show({}, element), plain) << element;
    }
    EXPECT_EQ(Show({{"font-weight", "normal"}, {"display", "block"}}, "b"), plain);
}

TEST_F(StyleSamples, ABodyColorsThePaper) {
    EXPECT_EQ(Show({{"background-color", "#FFEE00"}}, "body").pixelColor(1, 299), QColor(0xFF, 0xEE, 0));
    EXPECT_EQ(Show({{"background-color", "#FFEE00"}}, "p").pixelColor(1, 299), QColor(Qt::white));
}

TEST_F(StyleSamples, ElementsCanBeGoneOrUnseen) {
    const QColor gone = Qt::red;
    const QImage shown = Show({{"background-color", "RED"}});
    const QImage hidden = Show({{"background-color", "RED"}, {"visibility", "hidden"}});
    const QImage none = Show({{"background-color", "RED"}, {"display", "none"}});
    EXPECT_FALSE(Where(shown, gone).isNull());
    EXPECT_TRUE(Where(hidden, gone).isNull());
    EXPECT_TRUE(Where(none, gone).isNull());
    EXPECT_NE(hidden, none) << "what is only unseen keeps its room";
}

TEST_F(StyleSamples, PositionsAndFloatsMoveTheBox) {
    const Set box{{"background-color", "RED"}, {"width", "100px"}, {"height", "50px"}};
    EXPECT_EQ(Where(Show(box), Qt::red).topLeft(), QPoint(8, 8));
    EXPECT_EQ(Where(Show({{"background-color", "RED"}, {"width", "100px"}, {"left", "10px"}, {"top", "20px"}}), Qt::red)
                  .topLeft(),
              QPoint(8, 8))
        << "only a position makes something of them";
    EXPECT_EQ(Where(Show({{"background-color", "RED"},
                          {"width", "100px"},
                          {"left", "10px"},
                          {"top", "20px"},
                          {"position", "relative"}}),
                    Qt::red)
                  .topLeft(),
              QPoint(18, 28));
    EXPECT_EQ(Where(Show({{"background-color", "RED"}, {"width", "100px"}, {"float", "right"}}), Qt::red).right(), 391);
}

TEST_F(StyleSamples, AListItemHasItsMarker) {
    QList<QImage> seen{Show({{"margin-left", "40px"}})};
    for (const char* type :
         {"disc", "circle", "square", "decimal", "lower-roman", "upper-roman", "lower-alpha", "upper-alpha"}) {
        const QImage image = Show({{"list-style-type", type}}, "li");
        EXPECT_FALSE(seen.contains(image)) << type;
        seen << image;
    }
    EXPECT_EQ(Show({{"list-style-type", "none"}}, "li"), seen.first());
    EXPECT_NE(Show({{"list-style-position", "inside"}}, "li"), seen.at(1));
}

TEST_F(StyleSamples, HaveTheCursorAndTheSizeOfTheirElement) {
    Show({{"cursor", "hand"}, {"height", "500px"}, {"width", "450px"}});
    EXPECT_EQ(sample.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_GE(sample.minimumHeight(), 516);
    EXPECT_EQ(sample.minimumWidth(), 466);
    Show({});
    EXPECT_EQ(sample.cursor().shape(), Qt::ArrowCursor);
    EXPECT_LT(sample.minimumHeight(), 200);
}

TEST_F(StyleSamples, ClipWhatFlowsOver) {
    const QImage over = Show({{"color", "RED"}, {"font-size", "40px"}, {"height", "30px"}});
    const QImage clipped = Show({{"color", "RED"}, {"font-size", "40px"}, {"height", "30px"}, {"overflow", "hidden"}});
    EXPECT_GT(Where(over, Qt::red).bottom(), 60);
    EXPECT_LT(Where(clipped, Qt::red).bottom(), 38);
}

TEST(UnseenPropertiesOf, AreThoseThatTakeAWholePage) {
    StyleValues all;
    all.fill("x");
    EXPECT_EQ(UnseenProperties(all),
              (QStringList{"background-attachment", "background-image", "background-position", "background-repeat",
                           "border-collapse", "clear", "table-layout", "list-style-image", "clip", "z-index",
                           "page-break-after", "page-break-before"}));
    EXPECT_EQ(UnseenProperties({}), QStringList());
}

TEST(StyleColorOf, NamesAndNumbers) {
    EXPECT_EQ(StyleColor("ORANGE"), QColor(255, 165, 0));
    EXPECT_EQ(StyleColor("#F80"), QColor(255, 136, 0));
    EXPECT_EQ(StyleColor(" rgb(1, 20,300) "), QColor(1, 20, 255));
    EXPECT_EQ(StyleColor("reddish"), std::nullopt);
    EXPECT_EQ(StyleColor(""), std::nullopt);
}

}  // namespace
}  // namespace vellum::test
