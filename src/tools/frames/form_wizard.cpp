#include "tools/frames/form_wizard.h"

#include "tools/frames/frame_page.h"

#include <QPushButton>
#include <QRadioButton>

namespace vellum {
namespace {

constexpr int leastWidth = 40;  // in characters, so that the window's caption is seen whole

std::optional<FrameDirection> AskDirection(Workbench& bench) {
    FormWizard wizard(bench);
    wizard.exec();
    return wizard.Direction();
}

}  // namespace

FormWizard::FormWizard(Workbench& bench) : ToolDialog(bench, "FormWizard", "Frame Builder") {
    BeginFrame("Step 1");
    optRows = new QRadioButton("Start With &Rows", Parent());
    optRows->setObjectName("optRows");
    optRows->setChecked(true);
    optRows->setMinimumWidth(fontMetrics().averageCharWidth() * leastWidth);
    AddField({}, optRows);
    optColumns = new QRadioButton("Start With C&olumns", Parent());
    optColumns->setObjectName("optColumns");
    AddField({}, optColumns);
    EndFrame();
    const QPushButton* const next = FinishWithButton("cmdNext", "&Next");
    connect(next, &QPushButton::clicked, this, [this] {
        direction_ = optRows->isChecked() ? FrameDirection::RowsFirst : FrameDirection::ColumnsFirst;
        accept();
    });
}

void ShowFrameBuilder(Workbench& bench) {
    const std::optional<FrameDirection> direction = AskDirection(bench);
    if (direction == FrameDirection::RowsFirst) ShowTool<FormWizard3>(bench);
    if (direction == FrameDirection::ColumnsFirst) ShowTool<FormWizard2>(bench);
}

}  // namespace vellum
