// Form Input: one control of a form, with the fields of the kind that is chosen.
#pragma once

#include "tools/forms/input_markup.h"
#include "tools/framework/tool_dialog.h"

namespace vellum {

class frmInput : public ToolDialog {
    Q_OBJECT
public:
    explicit frmInput(Workbench& bench);

private:
    void AddKinds();
    void AddCommon();
    void AddAccessKey();
    // The fields of one kind, or of several that share them.
    void AddPanes();
    void AddCheckbox();
    void AddImage();
    void AddLine();
    void AddRadio();
    void AddTextbox();
    void AddListbox();

    InputFields fields_;
};

}  // namespace vellum
