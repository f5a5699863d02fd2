// Font Wizard: a font for what is selected.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

struct FontFields {
    QString size;
    QString color;
    QString primary;    // a font's name
    QString secondary;  // the one to fall back on
    QString effect;     // this and the next are of the television browser
    QString transparency;
};

// The tags with `selection` between them.
[[nodiscard]] QString FontMarkup(const FontFields& fields, const QString& selection);

class frmFonts : public ToolDialog {
    Q_OBJECT
public:
    explicit frmFonts(Workbench& bench);

private:
    FontFields fields_;
};

}  // namespace vellum
