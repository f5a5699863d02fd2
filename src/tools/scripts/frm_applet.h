// Java Applet: a small program inside the page.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

// Sizes and spaces are in pixels.
struct AppletFields {
    QString fileName;
    QString urlDirectory;
    QString name;
    QString alignment;
    QString width = "100";
    QString height = "100";
    QString hSpace = "100";
    QString vSpace = "100";
    QString alternateText;
};

[[nodiscard]] QString AppletMarkup(const AppletFields& fields);

class frmApplet : public ToolDialog {
    Q_OBJECT
public:
    explicit frmApplet(Workbench& bench);

private:
    AppletFields fields_;
};

}  // namespace vellum
