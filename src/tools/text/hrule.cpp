#include "tools/text/hrule.h"

#include "tools/framework/attributes.h"
#include "tools/framework/values.h"

namespace vellum {

QString HRuleMarkup(const HRuleFields& fields) {
    QString markup = "<hr";
    markup += AttributeIfAny("color", fields.color);
    markup += AttributeIfAny("size", fields.height);
    markup += AttributeIfAny("width", fields.width);
    if (fields.noShade) markup += Attribute("noshade", "noshade");
    if (fields.raised) markup += Attribute("invertborder", "invertborder");
    return markup + " />";
}

HRule::HRule(Workbench& bench) : ToolDialog(bench, "HRule", "Horizontal Rule") {
    AddColor(fields_.color, "cboColor", "Color", "Set Color");
    AddCombo(fields_.height, "cboHeight", "Height (Pixels)", Numbers(1, 10));
    AddCombo(fields_.width, "cboWidth", "Width", Numbers(10, 100, 10, "%"));
    AddCheck(fields_.noShade, "chkNoshade", "Not Shaded");
    AddFrame("WebTV", [this] { AddCheck(fields_.raised, "chkTVRaised", "Raised Horizontal Divider"); });
    Finish([this] { return HRuleMarkup(fields_); });
}

}  // namespace vellum
