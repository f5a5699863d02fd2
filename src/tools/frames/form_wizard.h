// Frame Builder: asks which way the frames are divided first, then lays them out on a page of the Frame Wizard.
#pragma once

#include "tools/frames/frame_layout.h"
#include "tools/framework/tool_dialog.h"

#include <optional>

class QRadioButton;

namespace vellum {

class FormWizard : public ToolDialog {
    Q_OBJECT
public:
    explicit FormWizard(Workbench& bench);

    // What "Next" was pressed with; nothing after Cancel.
    [[nodiscard]] std::optional<FrameDirection> Direction() const { return direction_; }

private:
    QRadioButton* optRows;
    QRadioButton* optColumns;
    std::optional<FrameDirection> direction_;
};

// From the first question to the markup in the active document. Each form is gone before the next one comes.
void ShowFrameBuilder(Workbench& bench);

}  // namespace vellum
