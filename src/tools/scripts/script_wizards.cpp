#include "tools/scripts/script_wizards.h"

#include "tools/framework/color_ramp.h"
#include "tools/scripts/script_template.h"
#include "values/number_rules.h"

#include <cmath>

namespace vellum {
namespace {

constexpr auto popupImage = R"(<img width="%BEGIN%" id="%ID%" src="%IMAGE%" />
%HEAD%
function %ID%Script() {
if(%ID%.width < %END%)
{
%ID%.width = %ID%.width+10
setTimeout('%ID%Script()',50)
}
}
%ID%Script()
%TAIL%)";

constexpr auto randomColor = R"(<!-- Begin Random Background Color Script -->
<script language="VBScript">
<!--
Dim Random
Randomize
Random = Rnd * %COUNT%
%COLORS%-->
</script>
<!-- End Random Background Color Script -->
)";
constexpr auto randomColorRow = R"(If Random < %NEXT% AND Random > %INDEX% Then
window.document.bgColor = "%COLOR%"
End If
)";

constexpr auto randomText = R"(<!-- Begin Random Text Script -->
<script language="VBScript">
<!--
Dim RandomText
Randomize
RandomText = Rnd * %COUNT%
%TEXTS%-->
</script>
<!-- End Random Text Script -->
)";
constexpr auto randomTextRow = R"(If RandomText < %NEXT% AND Randomtext > %INDEX% Then
window.document.write("%TEXT%")
End If
)";

constexpr auto linkbox = R"js(<!--Begin LinkBox -->
<form name="%NAME%Form">
<select name="%NAME%" size="1" onchange="%NAME%Script(%NAME%Form)">
<option>%CAPTION%</option>
%LISTINGS%</select>
</form>
%HEAD%
function %NAME%Script(form)
{
%ADDRESSES%}
%TAIL%<!-- End LinkBox -->)js";
constexpr auto linkboxListing = R"(<option>%LISTING%</option>
)";
constexpr auto linkboxAddress = R"(if(form.%NAME%.selectedIndex==%NEXT%) location.href="%ADDRESS%"
)";

constexpr auto statusMessage = R"js(
%HEAD%
TheMessage = "%MESSAGE%      "
placer = 0
Scrollbar()
function Scrollbar() {
fronter = TheMessage.substring(placer,TheMessage.length)
backer = TheMessage.substring(0,placer)
window.status = fronter + backer
if (placer < TheMessage.length) {
placer++
}
else {
placer = 0
}
setTimeout("Scrollbar()",100)
}
%TAIL%)js";

constexpr auto rollover = R"(%HEAD%
%NAME%a = new Image
%NAME%b = new Image
%NAME%a.src = "%MAIN%"
%NAME%b.src = "%ROLL%"
%TAIL%<a href="%URL%" onmouseover="%NAME%.src=%NAME%b.src" onmouseout="%NAME%.src=%NAME%a.src">
<img border="0" name="%NAME%" src="%MAIN%" /></a>)";

constexpr auto fade = R"(<!-- Place this script right after the BODY tag -->
%HEAD%
var oldcolor = document.bgColor
%COLORS%document.bgColor=oldcolor
%TAIL%)";
constexpr auto fadeRow = R"(document.bgColor="%COLOR%"
)";

// A row of the template for each text, with INDEX from 0 and NEXT from 1.
QString Rows(const char* rowTemplate, const QString& name, const QStringList& texts, ScriptValues values = {}) {
    QString rows;
    for (int i = 0; const QString& text : texts) {
        values["INDEX"] = QString::number(i++);
        values["NEXT"] = QString::number(i);
        values[name] = text;
        rows += FillScript(rowTemplate, values);
    }
    return rows;
}

QStringList Column(const GridRows& rows, int column) {
    QStringList texts;
    for (const QStringList& row : rows) texts << row.at(column);
    return texts;
}

}  // namespace

std::optional<QString> PopupImageScript(const PopupImageFields& fields) {
    for (const QString& field : {fields.id, fields.image, fields.begin, fields.end}) {
        if (field.isEmpty()) return std::nullopt;
    }
    return FillScript(popupImage,
                      {{"BEGIN", fields.begin}, {"END", fields.end}, {"IMAGE", fields.image}, {"ID", fields.id}});
}

QString RandomColorScript(const QStringList& colors) {
    return FillScript(randomColor,
                      {{"COUNT", QString::number(colors.size())}, {"COLORS", Rows(randomColorRow, "COLOR", colors)}});
}

QString RandomTextScript(const GridRows& texts) {
    return FillScript(randomText, {{"COUNT", QString::number(texts.size())},
                                   {"TEXTS", Rows(randomTextRow, "TEXT", Column(texts, 0))}});
}

QString LinkboxScript(const LinkboxFields& fields) {
    const ScriptValues name{{"NAME", fields.name}};
    return FillScript(linkbox, {{"NAME", fields.name},
                                {"CAPTION", fields.caption},
                                {"LISTINGS", Rows(linkboxListing, "LISTING", Column(fields.links, 0))},
                                {"ADDRESSES", Rows(linkboxAddress, "ADDRESS", Column(fields.links, 1), name)}});
}

QString StatusMessageScript(const QString& message) {
    return FillScript(statusMessage, {{"MESSAGE", message}});
}

QString RolloverScript(const RolloverFields& fields, const QString& name) {
    return FillScript(rollover,
                      {{"NAME", name}, {"MAIN", fields.mainImage}, {"ROLL", fields.rollImage}, {"URL", fields.url}});
}

QString RolloverName(double first, double second) {
    constexpr double most = 1000 * 100;
    return "imgroll" + NumberText(RoundHalfEven(first * second * most));
}

QStringList FadeColors(const FadeFields& fields) {
    const double steps = LeadingNumber(fields.steps);
    const auto whole = ToInt16(steps);
    if (!IsNumeric(fields.steps) || steps < 1 || !whole) return {};
    // A part of a step makes the others smaller and comes to no colour itself.
    return ColorRamp(fields.first, fields.last, *whole).mid(0, static_cast<int>(std::floor(steps)));
}

QString FadeScript(const QStringList& colors) {
    return FillScript(fade, {{"COLORS", Rows(fadeRow, "COLOR", colors)}});
}

}  // namespace vellum
