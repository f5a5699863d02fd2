// Floating Frame: another page inside the page.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

// Sizes and margins are in pixels.
struct IFrameFields {
    QString alignment = "TOP";
    QString name;
    QString id;
    QString source;
    QString width;
    QString height;
    QString marginHeight;
    QString marginWidth;
    bool frameBorder = false;
    bool scrollBars = false;
};

// Opens in upper case and closes in lower case.
[[nodiscard]] QString IFrameMarkup(const IFrameFields& fields);

class frmIFrame : public ToolDialog {
    Q_OBJECT
public:
    explicit frmIFrame(Workbench& bench);

private:
    IFrameFields fields_;
};

}  // namespace vellum
