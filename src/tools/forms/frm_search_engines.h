// Insert Internet Searches: a finished form that asks a search engine.
#pragma once

#include "tools/framework/tool_dialog.h"

class QListWidget;

namespace vellum {

class frmSearchEngines : public ToolDialog {
    Q_OBJECT
public:
    explicit frmSearchEngines(Workbench& bench);

private:
    QListWidget* List1;
};

}  // namespace vellum
