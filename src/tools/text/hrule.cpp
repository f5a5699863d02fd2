#include "tools/text/hrule.h"

#include "tools/framework/attributes.h"
#include "tools/framework/values.h"

namespace vellum {

QString HRuleMarkup(const HRuleFields& fields) {
    QString markup = "<hr";
    markup += AttributeIfAny("color", fields.color);
    markup += AttributeIfAny("size", fields.height);
    markup += AttributeIfAny("width", fields.width);
    if (fields.noShade) markup += " noshade=\"noshade\"";
    if (fields.raised) markup += " invertborder=\"invertborder\"";
    return markup + " />";
}

HRule::HRule(Workbench& bench) : ToolDialog(bench, "HRule", "Horizontal Rule") {
    const HRuleFields defaults;
    cboColor = AddColor("cboColor", "Color", "Set Color");
    cboHeight = AddCombo("cboHeight", "Height (Pixels)", Numbers(1, 10), defaults.height);
    cboWidth = AddCombo("cboWidth", "Width", Numbers(10, 100, 10, "%"), defaults.width);
    chkNoshade = AddCheck("chkNoshade", "Not Shaded");
    BeginFrame("WebTV");
    chkTVRaised = AddCheck("chkTVRaised", "Raised Horizontal Divider");
    EndFrame();
    Finish([this] { return HRuleMarkup(Fields()); });
}

HRuleFields HRule::Fields() const {
    return {cboColor->currentText(), cboHeight->currentText(), cboWidth->currentText(), chkNoshade->isChecked(),
            chkTVRaised->isChecked()};
}

}  // namespace vellum
