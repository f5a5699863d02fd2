#include "tools/frames/frame_page.h"

#include "tools/frames/frame_grid.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace vellum {
namespace {

constexpr QSize roomy(680, 520);  // pixels, as the page opens where its fonts need no more

// In characters.
constexpr int numberWidth = 6;
constexpr int sizeWidth = 9;
constexpr int textWidth = 16;

QString SizeCaption(const QString& width, const QString& height) {
    return QStringLiteral("%1 × %2").arg(width, height);
}

}  // namespace

FramePage::FramePage(Workbench& bench, const QString& name, FrameDirection direction)
    : ToolDialog(bench, name, "Frame Wizard"),
      layout_(direction),
      columnsFirst_(direction == FrameDirection::ColumnsFirst),
      steps_(new QStackedWidget) {
    if (QWidget* const window = bench.Window()) window->setEnabled(false);
    setEnabled(true);  // the main window's children go with it, a dialog among them
    AddGrowing(steps_);
    AddNumberStep();
    AddFrameStep();
    connect(this, &FieldForm::Changed, this, &FramePage::TakeDetails);
    // Both captions of the button keep their letters to themselves: "N" is taken only on the step that has no fields.
    cmdNext = Finish([this] { return Next(); }, OnCancel::FocusText, {"cmdNext", "&Finish"});
    cmdNext->setText("&Next");
    resize(sizeHint().expandedTo(roomy));
}

void FramePage::AddNumberStep() {
    auto* const step = new QWidget(steps_);
    step->setObjectName("Stepper(0)");
    steps_->addWidget(step);
    auto* const question = new QWidget(step);
    (new QVBoxLayout(step))->addWidget(question, 0, Qt::AlignCenter);
    Begin(question);
    txtNumber = AddText(number_, "txtNumber", columnsFirst_ ? "Number &Of Columns (1 - 4)" : "Number &Of Rows (1 - 4)");
    SetFieldWidth(txtNumber, numberWidth, numberWidth);
    End();
}

void FramePage::AddFrameStep() {
    auto* const step = new QWidget(steps_);
    step->setObjectName("Stepper(1)");
    steps_->addWidget(step);
    auto* const parts = new QVBoxLayout(step);
    parts->setContentsMargins(0, 0, 0, 0);
    auto* const lines = new QBoxLayout(columnsFirst_ ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    parts->addLayout(lines, 1);
    for (int line = 0; line < mostFrames; ++line) {
        lines_.at(static_cast<std::size_t>(line)) = MakeLine(line, step);
        lines->addWidget(lines_.at(static_cast<std::size_t>(line)).panel, 1);
    }
    details_ = new QStackedWidget(step);
    details_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    parts->addWidget(details_);
    auto* const hint = new QLabel(tr("Select a frame to edit it."), details_);
    hint->setAlignment(Qt::AlignCenter);
    hint->setWordWrap(true);
    details_->addWidget(hint);
    AddDetails();
    details_->addWidget(picControl);
}

void FramePage::AddDetails() {
    picControl = new QFrame(details_);
    picControl->setObjectName("picControl");
    picControl->setFrameShape(QFrame::StyledPanel);
    Begin(picControl);
    SetFieldWidth(AddText(shown_.name, "txtName", "Frame Name"), textWidth);
    SetFieldWidth(AddFile(shown_.source, "txtSource", "Frame Source", "Find", {}), textWidth);
    NextColumn();
    SetFieldWidth(AddText(shown_.width, "txtWidth", "Frame Width"), sizeWidth);
    SetFieldWidth(AddText(shown_.height, "txtHeight", "Frame Height"), sizeWidth);
    NextColumn(0);
    AddCheck(shown_.scrollbars, "chkScrollbars", "Scrollbars");
    AddCheck(shown_.border, "chkBorder", "Frame Border");
    AddCheck(shown_.resizable, "chkResize", "Resizable");
    End();
}

QString FramePage::LineName(int line) const {
    return QStringLiteral("%1 %2").arg(columnsFirst_ ? "Column" : "Row").arg(line + 1);
}

FramePage::Line FramePage::MakeLine(int line, QWidget* parent) {
    Line made{new QWidget(parent), nullptr};
    auto* const parts = new QBoxLayout(columnsFirst_ ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, made.panel);
    parts->setContentsMargins(0, 0, 0, 0);
    auto* const label = new QLabel(LineName(line).replace(u' ', QLatin1String(" &")), made.panel);
    label->setObjectName(Indexed("LabelRow", line));
    parts->addWidget(label, 0, columnsFirst_ ? Qt::AlignHCenter : Qt::AlignVCenter);

    made.Row1 = new FrameGrid(columnsFirst_ ? Qt::Vertical : Qt::Horizontal, made.panel);
    made.Row1->setObjectName(Indexed("Row1", line));
    made.Row1->setAccessibleName(LineName(line));
    label->setBuddy(made.Row1);
    parts->addWidget(made.Row1, 1);
    connect(made.Row1, &FrameGrid::Chosen, this, [this, line](int frame) { Choose({frame, line}); });
    connect(made.Row1, &FrameGrid::LeftFor, this, [this, line](int step, int frame) {
        ChooseBeside({frame, line}, step);
    });

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(MakeCountButton(columnsFirst_ ? "cndPlus" : "cmdPlus", line, made.panel, true));
    buttons->addWidget(MakeCountButton("cmdMinus", line, made.panel, false));
    buttons->addStretch();
    parts->addLayout(buttons);
    made.panel->hide();
    return made;
}

QPushButton* FramePage::MakeCountButton(const QString& name, int line, QWidget* parent, bool adds) {
    auto* const button = new QPushButton(adds ? "+" : "-", parent);
    button->setObjectName(Indexed(name, line));
    button->setFixedWidth(button->sizeHint().height());
    button->setToolTip(adds ? tr("Adds a frame") : tr("Removes the last frame"));
    button->setAccessibleName(button->toolTip() + QStringLiteral(", ") + LineName(line));
    connect(button, &QPushButton::clicked, this, [this, line, adds] { ChangeFrameCount(line, adds); });
    return button;
}

std::optional<QString> FramePage::Next() {
    if (steps_->currentIndex() != 0) return layout_.Markup();
    if (layout_.SetLineCount(number_)) {
        ShowLines();
        return std::nullopt;
    }
    bench_.Ask().Message(this, "Invalid Value");
    txtNumber->setFocus();
    txtNumber->selectAll();
    return std::nullopt;
}

void FramePage::ShowLines() {
    for (int line = 0; line <= layout_.LineCount(); ++line) {
        DrawLine(line);
        lines_.at(static_cast<std::size_t>(line)).panel->show();
    }
    steps_->setCurrentIndex(1);
    cmdNext->setText("&Finish");
    GridOf(0).setFocus();
}

void FramePage::ChangeFrameCount(int line, bool adds) {
    if (!(adds ? layout_.AddFrame(line) : layout_.DropFrame(line))) return;
    GridOf(line).Divide(layout_.FrameCount(line));
    DrawLine(line);
    if (!adds) {
        details_->setCurrentIndex(0);
        GridOf(current_.line).ClearMark();
    } else {
        LoadDetails();
    }
}

void FramePage::Choose(FrameCell cell) {
    GridOf(current_.line).ClearMark();
    current_ = cell;
    GridOf(cell.line).Mark(cell.frame);
    LoadDetails();
    details_->setCurrentWidget(picControl);
}

void FramePage::ChooseBeside(FrameCell cell, int step) {
    const int line = std::clamp(cell.line + step, 0, static_cast<int>(layout_.LineCount()));
    GridOf(line).setFocus(Qt::TabFocusReason);
    Choose({std::min(cell.frame, layout_.FrameCount(line) - 1), line});
}

void FramePage::LoadDetails() {
    shown_ = {.name = layout_.FrameNames[current_],
              .source = layout_.FrameSources[current_],
              .width = layout_.FrameWidths[current_],
              .height = layout_.FrameHeights[current_],
              .scrollbars = layout_.FrameScroll[current_] != 0,
              .border = layout_.FrameBorder[current_] != 0,
              .resizable = layout_.FrameResize[current_] != 0};
    ShowFields();
}

// A size that the line shares goes to all its frames, so that only an edited one is taken.
void FramePage::TakeDetails() {
    if (details_->currentWidget() != picControl) return;
    layout_.FrameNames[current_] = shown_.name;
    layout_.FrameSources[current_] = shown_.source;
    if (shown_.width != layout_.FrameWidths[current_]) layout_.SetFrameWidth(current_, shown_.width);
    if (shown_.height != layout_.FrameHeights[current_]) layout_.SetFrameHeight(current_, shown_.height);
    layout_.FrameScroll[current_] = static_cast<std::int16_t>(shown_.scrollbars);
    layout_.FrameBorder[current_] = static_cast<std::int16_t>(shown_.border);
    layout_.FrameResize[current_] = static_cast<std::int16_t>(shown_.resizable);
    DrawLine(current_.line);
}

void FramePage::DrawLine(int line) {
    for (int frame = 0; frame < layout_.FrameCount(line); ++frame) {
        const FrameCell cell{frame, line};
        GridOf(line).SetCaption(frame, layout_.FrameNames[cell] + u'\n' +
                                           SizeCaption(layout_.FrameWidths[cell], layout_.FrameHeights[cell]));
    }
}

FormWizard2::FormWizard2(Workbench& bench) : FramePage(bench, "FormWizard2", FrameDirection::ColumnsFirst) {}

FormWizard3::FormWizard3(Workbench& bench) : FramePage(bench, "FormWizard3", FrameDirection::RowsFirst) {}

}  // namespace vellum
