// Horizontal Rule: a rule across the page.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

struct HRuleFields {
    QString color;
    QString height = "4";  // pixels
    QString width = "100%";
    bool noShade = false;
    bool raised = false;  // a divider of the television browser
};

[[nodiscard]] QString HRuleMarkup(const HRuleFields& fields);

class HRule : public ToolDialog {
    Q_OBJECT
public:
    explicit HRule(Workbench& bench);

private:
    HRuleFields fields_;
};

}  // namespace vellum
