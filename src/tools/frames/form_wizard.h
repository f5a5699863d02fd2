// Frame Builder: asks which way the frames are divided first, then lays them out on a page of the Frame Wizard.
#pragma once

#include "tools/frames/frame_layout.h"
#include "tools/framework/tool_dialog.h"

namespace vellum {

class FormWizard : public ToolDialog {
    Q_OBJECT
public:
    explicit FormWizard(Workbench& bench);

    [[nodiscard]] FrameDirection Direction() const { return direction_; }

private:
    FrameDirection direction_ = FrameDirection::RowsFirst;
};

// From the first question to the markup in the active document. Each form is gone before the next one comes.
void ShowFrameBuilder(Workbench& bench);

}  // namespace vellum
