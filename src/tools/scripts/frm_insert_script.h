// Insert Script: an empty script element, with the comment that hides it from browsers without its language.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

struct InsertScriptFields {
    QString language = "Javascript";
    QString source;
};

// In a language that is neither a Javascript nor a VBScript the comment stays open.
[[nodiscard]] QString ScriptElement(const InsertScriptFields& fields);

class frmInsertScript : public ToolDialog {
    Q_OBJECT
public:
    explicit frmInsertScript(Workbench& bench);

private:
    InsertScriptFields fields_;
};

}  // namespace vellum
