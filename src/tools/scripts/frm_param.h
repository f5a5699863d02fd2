// Insert Parameters: the parameters of an applet or object, one a row.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

// A line for each row of a name and a value, also for an empty one.
[[nodiscard]] QString ParamMarkup(const GridRows& parameters);

class frmParam : public ToolDialog {
    Q_OBJECT
public:
    explicit frmParam(Workbench& bench);

private:
    GridRows parameters_{{"", ""}};
};

}  // namespace vellum
