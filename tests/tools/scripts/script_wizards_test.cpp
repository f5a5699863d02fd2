#include "tools/scripts/script_wizards.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

const QString head = "<script language=\"Javascript\">\r\n<!--\r\n// <![CDATA[\r\n";
const QString tail = "\r\n// ]]>\r\n// -->\r\n</script>";

TEST(PopupImageScriptOf, EveryField) {
    EXPECT_EQ(PopupImageScript({.begin = "5", .end = "200", .image = "a.gif", .id = "Pic"}),
              "<img width=\"5\" id=\"Pic\" src=\"a.gif\" />\r\n" + head +
                  "function PicScript() {\r\n"
                  "if(Pic.width < 200)\r\n"
                  "{\r\n"
                  "Pic.width = Pic.width+10\r\n"
                  "setTimeout('PicScript()',50)\r\n"
                  "}\r\n"
                  "}\r\n"
                  "PicScript()\r\n" +
                  tail);
}

TEST(PopupImageScriptOf, NothingWhileAFieldIsEmpty) {
    const PopupImageFields full{.begin = "5", .end = "200", .image = "a.gif", .id = "Pic"};
    for (const auto field :
         {&PopupImageFields::begin, &PopupImageFields::end, &PopupImageFields::image, &PopupImageFields::id}) {
        PopupImageFields fields = full;
        fields.*field = "";
        EXPECT_EQ(PopupImageScript(fields), std::nullopt);
        fields.*field = " ";
        EXPECT_NE(PopupImageScript(fields), std::nullopt);
    }
}

TEST(RandomColorScriptOf, NoColors) {
    EXPECT_EQ(RandomColorScript({}),
              "<!-- Begin Random Background Color Script -->\r\n"
              "<script language=\"VBScript\">\r\n"
              "<!--\r\n"
              "Dim Random\r\n"
              "Randomize\r\n"
              "Random = Rnd * 0\r\n"
              "-->\r\n"
              "</script>\r\n"
              "<!-- End Random Background Color Script -->\r\n");
}

TEST(RandomColorScriptOf, TwoColors) {
    EXPECT_EQ(RandomColorScript({"#FF8000", "#000000"}),
              "<!-- Begin Random Background Color Script -->\r\n"
              "<script language=\"VBScript\">\r\n"
              "<!--\r\n"
              "Dim Random\r\n"
              "Randomize\r\n"
              "Random = Rnd * 2\r\n"
              "If Random < 1 AND Random > 0 Then\r\n"
              "window.document.bgColor = \"#FF8000\"\r\n"
              "End If\r\n"
              "If Random < 2 AND Random > 1 Then\r\n"
              "window.document.bgColor = \"#000000\"\r\n"
              "End If\r\n"
              "-->\r\n"
              "</script>\r\n"
              "<!-- End Random Background Color Script -->\r\n");
}

TEST(RandomTextScriptOf, TwoTextsOneOfThemEmpty) {
    EXPECT_EQ(RandomTextScript({{"say \"hi\""}, {""}}),
              "<!-- Begin Random Text Script -->\r\n"
              "<script language=\"VBScript\">\r\n"
              "<!--\r\n"
              "Dim RandomText\r\n"
              "Randomize\r\n"
              "RandomText = Rnd * 2\r\n"
              "If RandomText < 1 AND Randomtext > 0 Then\r\n"
              "window.document.write(\"say \"hi\"\")\r\n"
              "End If\r\n"
              "If RandomText < 2 AND Randomtext > 1 Then\r\n"
              "window.document.write(\"\")\r\n"
              "End If\r\n"
              "-->\r\n"
              "</script>\r\n"
              "<!-- End Random Text Script -->\r\n");
}

TEST(LinkboxScriptOf, EveryField) {
    EXPECT_EQ(LinkboxScript({.name = "Go", .caption = "Where to?", .links = {{"A", "a.htm"}, {"B", "b\".htm"}}}),
              "<!--Begin LinkBox -->\r\n"
              "<form name=\"GoForm\">\r\n"
              "<select name=\"Go\" size=\"1\" onchange=\"GoScript(GoForm)\">\r\n"
              "<option>Where to?</option>\r\n"
              "<option>A</option>\r\n"
              "<option>B</option>\r\n"
              "</select>\r\n"
              "</form>\r\n" +
                  head +
                  "function GoScript(form)\r\n"
                  "{\r\n"
                  "if(form.Go.selectedIndex==1) location.href=\"a.htm\"\r\n"
                  "if(form.Go.selectedIndex==2) location.href=\"b\".htm\"\r\n"
                  "}\r\n" +
                  tail + "<!-- End LinkBox -->");
}

TEST(LinkboxScriptOf, NoName) {
    EXPECT_EQ(LinkboxScript({.name = ""}),
              "<!--Begin LinkBox -->\r\n"
              "<form name=\"Form\">\r\n"
              "<select name=\"\" size=\"1\" onchange=\"Script(Form)\">\r\n"
              "<option></option>\r\n"
              "<option></option>\r\n"
              "</select>\r\n"
              "</form>\r\n" +
                  head +
                  "function Script(form)\r\n"
                  "{\r\n"
                  "if(form..selectedIndex==1) location.href=\"\"\r\n"
                  "}\r\n" +
                  tail + "<!-- End LinkBox -->");
}

QString StatusMessage(const QString& message) {
    return "\r\n" + head + "TheMessage = \"" + message +
           "      \"\r\n"
           "placer = 0\r\n"
           "Scrollbar()\r\n"
           "function Scrollbar() {\r\n"
           "fronter = TheMessage.substring(placer,TheMessage.length)\r\n"
           "backer = TheMessage.substring(0,placer)\r\n"
           "window.status = fronter + backer\r\n"
           "if (placer < TheMessage.length) {\r\n"
           "placer++\r\n"
           "}\r\n"
           "else {\r\n"
           "placer = 0\r\n"
           "}\r\n"
           "setTimeout(\"Scrollbar()\",100)\r\n"
           "}\r\n" +
           tail;
}

TEST(StatusMessageScriptOf, AnyMessage) {
    for (const char* message : {"Hello", "", "100 %NAME% \"x\""}) {
        EXPECT_EQ(StatusMessageScript(message), StatusMessage(message));
    }
}

TEST(RolloverScriptOf, EveryFieldAndNone) {
    EXPECT_EQ(RolloverScript({.mainImage = "a.gif", .rollImage = "b.gif", .url = "c.htm"}, "imgroll7"),
              head +
                  "imgroll7a = new Image\r\n"
                  "imgroll7b = new Image\r\n"
                  "imgroll7a.src = \"a.gif\"\r\n"
                  "imgroll7b.src = \"b.gif\"\r\n" +
                  tail +
                  "<a href=\"c.htm\" onmouseover=\"imgroll7.src=imgroll7b.src\" "
                  "onmouseout=\"imgroll7.src=imgroll7a.src\">\r\n"
                  "<img border=\"0\" name=\"imgroll7\" src=\"a.gif\" /></a>");
    EXPECT_EQ(RolloverScript({}, "n"), head +
                                           "na = new Image\r\n"
                                           "nb = new Image\r\n"
                                           "na.src = \"\"\r\n"
                                           "nb.src = \"\"\r\n" +
                                           tail +
                                           "<a href=\"\" onmouseover=\"n.src=nb.src\" onmouseout=\"n.src=na.src\">\r\n"
                                           "<img border=\"0\" name=\"n\" src=\"\" /></a>");
}

TEST(RolloverNameOf, TwoDraws) {
    EXPECT_EQ(RolloverName(0, 0.5), "imgroll0");
    EXPECT_EQ(RolloverName(1, 1), "imgroll100000");
    EXPECT_EQ(RolloverName(0.25, 0.5), "imgroll12500");
    EXPECT_EQ(RolloverName(0.123456, 0.5), "imgroll6173") << "6172.8";
}

TEST(FadeColorsOf, ThreeSteps) {
    EXPECT_EQ(FadeColors({.first = 0, .last = 0xFFFFFF, .steps = "3"}), (QStringList{"#000000", "#555555", "#AAAAAA"}));
}

TEST(FadeColorsOf, ColorsThatFall) {
    EXPECT_EQ(FadeColors({.first = 0x0010FF, .last = 0x640000, .steps = "4"}),
              (QStringList{"#FF1000", "#C00C19", "#810832", "#42044B"}))
        << "-255, -16 and 100 in four parts are -63, -4 and 25";
    const QStringList colors = FadeColors({.first = 0xFFFFFF, .last = 0, .steps = "7"});
    EXPECT_EQ(colors.first(), "#FFFFFF");
    EXPECT_EQ(colors.last(), "#272727");
    EXPECT_EQ(colors.size(), 7);
}

TEST(FadeColorsOf, StepsThatAreNoNumberFromOneOn) {
    for (const char* steps : {"0", "abc", "", "-3", "0.9", "3x", "40000"}) {
        EXPECT_TRUE(FadeColors({.last = 0xFFFFFF, .steps = steps}).isEmpty()) << steps;
    }
    EXPECT_EQ(FadeColors({.last = 0xFFFFFF, .steps = "1"}), QStringList{"#000000"});
    EXPECT_EQ(FadeColors({.last = 0xFFFFFF, .steps = " 2 "}), (QStringList{"#000000", "#7F7F7F"}));
    EXPECT_EQ(FadeColors({.last = 0xFFFFFF, .steps = "2.6"}), (QStringList{"#000000", "#555555"}))
        << "thirds, two of which fit";
}

TEST(FadeScriptOf, Colors) {
    EXPECT_EQ(FadeScript({"#000000", "#0A0B0C"}), "<!-- Place this script right after the BODY tag -->\r\n" + head +
                                                      "var oldcolor = document.bgColor\r\n"
                                                      "document.bgColor=\"#000000\"\r\n"
                                                      "document.bgColor=\"#0A0B0C\"\r\n"
                                                      "document.bgColor=oldcolor\r\n" +
                                                      tail);
}

}  // namespace
}  // namespace vellum::test
