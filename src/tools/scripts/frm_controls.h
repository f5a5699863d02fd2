// Object Tags: the controls that are registered on this machine, as object elements.
#pragma once

#include "tools/framework/tool_dialog.h"
#include "tools/scripts/control_registry.h"

class QLabel;
class QListWidget;

namespace vellum {

// The controls come when the form has been shown.
class frmControls : public ToolDialog {
    Q_OBJECT
public:
    explicit frmControls(Workbench& bench);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void LoadControls();
    void CopyIt();
    void ShowOptions();
    void ShowMenu(QPoint place);
    [[nodiscard]] std::vector<Control> Chosen() const;

    std::vector<Control> controls_;
    QListWidget* list_ = nullptr;  // a row for each of them
    QLabel* none_ = nullptr;       // says that there are none
};

}  // namespace vellum
