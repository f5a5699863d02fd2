// In-tag Scripts: what a tag does at an event.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

struct InScriptFields {
    QString language = "Javascript";
    QString event;
    QString code;
};

// Attributes for the inside of a tag, with a blank before them; nothing without an event or without code.
[[nodiscard]] std::optional<QString> EventAttribute(const InScriptFields& fields);

class InScript : public ToolDialog {
    Q_OBJECT
public:
    explicit InScript(Workbench& bench);

private:
    [[nodiscard]] std::optional<QString> Build();

    InScriptFields fields_;
};

// Opens it. What it makes goes into the text as if it were typed: the middle of a tag has no use for an indentation.
void ShowInScript(Workbench& bench);

}  // namespace vellum
