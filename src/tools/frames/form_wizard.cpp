#include "tools/frames/form_wizard.h"

#include "tools/frames/frame_page.h"

#include <QRadioButton>

#include <optional>

namespace vellum {
namespace {

std::optional<FrameDirection> AskDirection(Workbench& bench) {
    FormWizard wizard(bench);
    if (wizard.exec() != QDialog::Accepted) return std::nullopt;
    return wizard.Direction();
}

}  // namespace

FormWizard::FormWizard(Workbench& bench) : ToolDialog(bench, "FormWizard", "Frame Builder") {
    constexpr int leastWidth = 40;  // in characters, so that the window's caption is seen whole
    AddFrame("Step 1", [this] {
        SetFieldWidth(AddOption(direction_, FrameDirection::RowsFirst, "optRows", "Start With &Rows"), leastWidth);
        AddOption(direction_, FrameDirection::ColumnsFirst, "optColumns", "Start With C&olumns");
    });
    Finish([] { return QString(); }, OnCancel::Leave, {"cmdNext", "&Next"});
}

void ShowFrameBuilder(Workbench& bench) {
    const std::optional<FrameDirection> direction = AskDirection(bench);
    if (direction == FrameDirection::RowsFirst) ShowTool<FormWizard3>(bench);
    if (direction == FrameDirection::ColumnsFirst) ShowTool<FormWizard2>(bench);
}

}  // namespace vellum
