#include "tools/scripts/premade_scripts.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

// What stands between the fences of a Javascript and of a VBScript.
QString Javascript(const QString& lines) {
    return "<script language=\"Javascript\">\r\n<!--\r\n// <![CDATA[\r\n" + lines + "\r\n// ]]>\r\n// -->\r\n</script>";
}
QString VBScript(const QString& lines) {
    return "<script language=\"VBScript\">\r\n<!--\r\n" + lines + "-->\r\n</script>\r\n";
}

QString Js(const QString& name) {
    return PremadeScript(ScriptLanguage::Javascript, name);
}
QString Vb(const QString& name) {
    return PremadeScript(ScriptLanguage::VBScript, name);
}

TEST(PremadeScripts, StandInTheirOrder) {
    EXPECT_EQ(
        PremadeNames(ScriptLanguage::Javascript),
        (QStringList{"Autoscroll", "Back to Previous Page Link", "Back to Top of Page Link", "Browser Name Script",
                     "CPU Type Script", "Current Color-Depth Script", "Current Date Script", "Current Platform Script",
                     "Current Resolution Script", "Current Time Script", "Current Weekday Script", "Frame Buster",
                     "Last Modified Script", "View Source Code Script"}));
    EXPECT_EQ(
        PremadeNames(ScriptLanguage::VBScript),
        (QStringList{"Browser Name Script", "Current Date Script", "Current Time Script", "Current Weekday Script",
                     "Good Morning, Afternoon, or Evening Script", "Last Modified Script"}));
}

TEST(PremadeScripts, AreNothingForAnotherName) {
    EXPECT_EQ(Js(""), "");
    EXPECT_EQ(Js("Good Morning, Afternoon, or Evening Script"), "");
    EXPECT_EQ(Vb("Autoscroll"), "");
    EXPECT_EQ(Vb("autoscroll"), "");
}

TEST(PremadeScripts, JavascriptsThatWrite) {
    EXPECT_EQ(Js("Browser Name Script"), Javascript("document.write('You are running ' + navigator.appName)\r\n"));
    EXPECT_EQ(Js("CPU Type Script"), Javascript("document.write('Your processor is a ' + navigator.cpuClass)\r\n"));
    EXPECT_EQ(Js("Current Color-Depth Script"),
              Javascript("document.write('Your color depth is ' + screen.colorDepth+ ' bit')\r\n"));
    EXPECT_EQ(Js("Current Platform Script"),
              Javascript("document.write('Your platform is ' + navigator.platform)\r\n"));
    EXPECT_EQ(Js("Current Resolution Script"),
              Javascript("document.write('Your resolution is ' + screen.width + ' by ' + screen.height)\r\n"));
    EXPECT_EQ(Js("Last Modified Script"),
              Javascript("document.write('This document was last modified: ' + document.lastModified)\r\n"));
}

TEST(PremadeScripts, JavascriptsOfDateAndTime) {
    EXPECT_EQ(Js("Current Date Script"),
              Javascript("var Now = new Date\r\n"
                         "var CurMonth\r\n"
                         "CurMonth = Now.getMonth() + 1\r\n"
                         "document.write(\"Today is \" + CurMonth + \"/\" + Now.getDate() + \"/\" + "
                         "Now.getYear())\r\n"));
    EXPECT_EQ(Js("Current Time Script"),
              Javascript("var Now = new Date\r\n"
                         "var CurSeconds\r\n"
                         "var CurHour\r\n"
                         "var PMAM\r\n"
                         "CurSeconds = \"\" + Now.getSeconds()\r\n"
                         "if (Now.getSeconds() < 10) {\r\n"
                         "CurSeconds = \"0\" + Now.getSeconds()\r\n"
                         "}\r\n"
                         "CurHour = Now.getHours()\r\n"
                         "PMAM = \"AM\"\r\n"
                         "if (Now.getHours() > 12) {\r\n"
                         "CurHour = Now.getHours() - 12\r\n"
                         "PMAM = \"PM\"\r\n"
                         "}\r\n"
                         "document.write(\"The Time is \" + CurHour + \":\" + Now.getMinutes() + \":\" + "
                         "CurSeconds + \" \" + PMAM)\r\n"));
    EXPECT_EQ(Js("Current Weekday Script"),
              Javascript("var DayTitle = new Array (\"Sunday\", \"Monday\", \"Tuesday\", \"Wednesday\", "
                         "\"Thursday\", \"Friday\", \"Saturday\")\r\n"
                         "var Now = new Date\r\n"
                         "document.write(\"Today is \" + DayTitle[Now.getDay()])\r\n"));
}

TEST(PremadeScripts, JavascriptsThatMove) {
    EXPECT_EQ(Js("Autoscroll"), Javascript("function Scroller() {\r\n"
                                           "window.scrollBy(0,1)\r\n"
                                           "setTimeout('Scroller()',50)\r\n"
                                           "}\r\n"
                                           "Scroller()\r\n"));
    EXPECT_EQ(Js("Frame Buster"), Javascript("if (top.location != self.location) {\r\n"
                                             "top.location = self.location\r\n"
                                             "}\r\n"));
}

TEST(PremadeScripts, LinksHaveNoFence) {
    EXPECT_EQ(Js("Back to Previous Page Link"),
              "<a href=\"javascript:window.history.go(-1)\">Back to Previous Page</a>");
    EXPECT_EQ(Js("Back to Top of Page Link"), "<a href=\"javascript:window.scrollTo(0,0)\">Back to Top of Page</a>");
    EXPECT_EQ(Js("View Source Code Script"),
              "<a href=\"javascript:window.location='view-source:'+window.location\">"
              "View Source Code For this Page</a>");
}

TEST(PremadeScripts, VBScripts) {
    EXPECT_EQ(Vb("Browser Name Script"), VBScript("Document.write(\"You are using \" & navigator.appname)\r\n"));
    EXPECT_EQ(Vb("Current Date Script"), VBScript("Document.write(\"Today is \" & Date)\r\n"));
    EXPECT_EQ(Vb("Current Time Script"), VBScript("Document.write(\"The Time is \" & Time)\r\n"));
    EXPECT_EQ(Vb("Last Modified Script"),
              VBScript("Document.write(\"This document was last modified: \" & document.lastModified)\r\n"));
    EXPECT_EQ(Vb("Current Weekday Script"), VBScript("Dim DayNum, Daytext\r\n"
                                                     "DayNum = Weekday(Date, 0)\r\n"
                                                     "If DayNum = 1 Then Daytext = \"Sunday\"\r\n"
                                                     "If DayNum = 2 Then Daytext = \"Monday\"\r\n"
                                                     "If DayNum = 3 Then Daytext = \"Tuesday\"\r\n"
                                                     "If DayNum = 4 Then Daytext = \"Wednesday\"\r\n"
                                                     "If DayNum = 5 Then Daytext = \"Thursday\"\r\n"
                                                     "If DayNum = 6 Then Daytext = \"Friday\"\r\n"
                                                     "If DayNum = 7 Then Daytext = \"Saturday\"\r\n"
                                                     "Document.write(\"Today is \" & Daytext)\r\n"));
    EXPECT_EQ(Vb("Good Morning, Afternoon, or Evening Script"),
              VBScript("If Hour(Time) >= 17 And Hour(Time) < 24 Then\r\n"
                       "Document.Write(\"Good Evening\")\r\n"
                       "End If\r\n"
                       "If Hour(Time) >= 12 And Hour(Time) < 17 Then\r\n"
                       "Document.Write(\"Good Afternoon\")\r\n"
                       "End If\r\n"
                       "If Hour(Time) >= 0 And Hour(Time) < 12 Then\r\n"
                       "Document.Write(\"Good Morning\")\r\n"
                       "End If\r\n"));
}

}  // namespace
}  // namespace vellum::test
