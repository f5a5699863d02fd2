// Insert Parameters: the parameters of an applet or object, one a row.
#pragma once

#include "tools/framework/tool_dialog.h"

#include <vector>

class QLabel;
class QTableWidget;

namespace vellum {

class CellEditor;

struct Parameter {
    QString name;
    QString value;
};

// A line for each, also for an empty one.
[[nodiscard]] QString ParamMarkup(const std::vector<Parameter>& parameters);

class frmParam : public ToolDialog {
    Q_OBJECT
public:
    explicit frmParam(Workbench& bench);
    [[nodiscard]] std::vector<Parameter> Fields() const;

private:
    void AddGrid();
    void AddRowButtons();
    void SetRows(int rows);  // without the header

    QTableWidget* Grid1;
    CellEditor* Text1;
    QLabel* lblRows;
};

}  // namespace vellum
