#include "tools/scripts/premade_scripts.h"

#include "tools/scripts/script_template.h"

#include <algorithm>
#include <span>

namespace vellum {
namespace {

struct Premade {
    const char* name;
    const char* lines;
    bool fenced = true;  // else the lines are all there is
};

constexpr Premade javascripts[] = {
    {"Autoscroll",
     R"(function Scroller() {
window.scrollBy(0,1)
setTimeout('Scroller()',50)
}
Scroller()
)"},
    {"Back to Previous Page Link", R"js(<a href="javascript:window.history.go(-1)">Back to Previous Page</a>)js",
     false},
    {"Back to Top of Page Link", R"js(<a href="javascript:window.scrollTo(0,0)">Back to Top of Page</a>)js", false},
    {"Browser Name Script",
     R"(document.write('You are running ' + navigator.appName)
)"},
    {"CPU Type Script",
     R"(document.write('Your processor is a ' + navigator.cpuClass)
)"},
    {"Current Color-Depth Script",
     R"(document.write('Your color depth is ' + screen.colorDepth+ ' bit')
)"},
    {"Current Date Script",
     R"(var Now = new Date
var CurMonth
CurMonth = Now.getMonth() + 1
document.write("Today is " + CurMonth + "/" + Now.getDate() + "/" + Now.getYear())
)"},
    {"Current Platform Script",
     R"(document.write('Your platform is ' + navigator.platform)
)"},
    {"Current Resolution Script",
     R"(document.write('Your resolution is ' + screen.width + ' by ' + screen.height)
)"},
    {"Current Time Script",
     R"(var Now = new Date
var CurSeconds
var CurHour
var PMAM
CurSeconds = "" + Now.getSeconds()
if (Now.getSeconds() < 10) {
CurSeconds = "0" + Now.getSeconds()
}
CurHour = Now.getHours()
PMAM = "AM"
if (Now.getHours() > 12) {
CurHour = Now.getHours() - 12
PMAM = "PM"
}
document.write("The Time is " + CurHour + ":" + Now.getMinutes() + ":" + CurSeconds + " " + PMAM)
)"},
    {"Current Weekday Script",
     R"(var DayTitle = new Array ("Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday")
var Now = new Date
document.write("Today is " + DayTitle[Now.getDay()])
)"},
    {"Frame Buster",
     R"(if (top.location != self.location) {
top.location = self.location
}
)"},
    {"Last Modified Script",
     R"(document.write('This document was last modified: ' + document.lastModified)
)"},
    {"View Source Code Script",
     R"(<a href="javascript:window.location='view-source:'+window.location">View Source Code For this Page</a>)",
     false},
};

constexpr Premade vbScripts[] = {
    {"Browser Name Script",
     R"(Document.write("You are using " & navigator.appname)
)"},
    {"Current Date Script",
     R"(Document.write("Today is " & Date)
)"},
    {"Current Time Script",
     R"(Document.write("The Time is " & Time)
)"},
    {"Current Weekday Script",
     R"(Dim DayNum, Daytext
DayNum = Weekday(Date, 0)
If DayNum = 1 Then Daytext = "Sunday"
If DayNum = 2 Then Daytext = "Monday"
If DayNum = 3 Then Daytext = "Tuesday"
If DayNum = 4 Then Daytext = "Wednesday"
If DayNum = 5 Then Daytext = "Thursday"
If DayNum = 6 Then Daytext = "Friday"
If DayNum = 7 Then Daytext = "Saturday"
Document.write("Today is " & Daytext)
)"},
    {"Good Morning, Afternoon, or Evening Script",
     R"(If Hour(Time) >= 17 And Hour(Time) < 24 Then
Document.Write("Good Evening")
End If
If Hour(Time) >= 12 And Hour(Time) < 17 Then
Document.Write("Good Afternoon")
End If
If Hour(Time) >= 0 And Hour(Time) < 12 Then
Document.Write("Good Morning")
End If
)"},
    {"Last Modified Script",
     R"(Document.write("This document was last modified: " & document.lastModified)
)"},
};

constexpr auto javascriptFence = "%HEAD%\n%LINES%%TAIL%";

constexpr auto vbScriptFence = R"(<script language="VBScript">
<!--
%LINES%-->
</script>
)";

std::span<const Premade> Scripts(ScriptLanguage language) {
    return language == ScriptLanguage::Javascript ? std::span<const Premade>(javascripts)
                                                  : std::span<const Premade>(vbScripts);
}

}  // namespace

QStringList PremadeNames(ScriptLanguage language) {
    QStringList names;
    for (const Premade& script : Scripts(language)) names << script.name;
    return names;
}

QString PremadeScript(ScriptLanguage language, const QString& name) {
    const auto scripts = Scripts(language);
    const auto script = std::find_if(scripts.begin(), scripts.end(),
                                     [&](const Premade& row) { return name == QLatin1String(row.name); });
    if (script == scripts.end()) return {};
    const QString lines = FillScript(script->lines);
    if (!script->fenced) return lines;
    return FillScript(language == ScriptLanguage::Javascript ? javascriptFence : vbScriptFence, {{"LINES", lines}});
}

}  // namespace vellum
