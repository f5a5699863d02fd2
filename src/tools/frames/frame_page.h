// The pages of the Frame Wizard, on which frames are laid out: one with columns of stacked frames, one with rows of
// frames side by side.
#pragma once

#include "tools/frames/frame_layout.h"
#include "tools/framework/tool_dialog.h"

#include <array>
#include <optional>

class QFrame;
class QStackedWidget;

namespace vellum {

class FrameGrid;

// Both pages: how many lines, then the lines with their frames, and below them the fields of the one that was pressed.
class FramePage : public ToolDialog {
    Q_OBJECT
public:
    // The main window takes no input while the page is open.
    FramePage(Workbench& bench, const QString& name, FrameDirection direction);

private:
    // A line as it stands on the page, hidden up to the second step.
    struct Line {
        QWidget* panel = nullptr;  // with the label LabelRow, the grid and the buttons
        FrameGrid* Row1 = nullptr;
    };

    void AddNumberStep();
    void AddFrameStep();
    void AddDetails();
    [[nodiscard]] Line MakeLine(int line, QWidget* parent);
    [[nodiscard]] QPushButton* MakeCountButton(const QString& name, int line, QWidget* parent, bool adds);
    [[nodiscard]] QString LineName(int line) const;
    [[nodiscard]] FrameGrid& GridOf(int line) const { return *lines_.at(static_cast<std::size_t>(line)).Row1; }

    [[nodiscard]] std::optional<QString> Next();
    void ShowLines();
    void ChangeFrameCount(int line, bool adds);
    void Choose(FrameCell cell);
    void ChooseBeside(FrameCell cell, int step);
    void LoadDetails();
    void TakeDetails();
    void DrawLine(int line);

    // What picControl shows of the current frame.
    struct Details {
        QString name;
        QString source;
        QString width;
        QString height;
        bool scrollbars = false;
        bool border = false;
        bool resizable = false;
    };

    FrameLayout layout_;
    bool columnsFirst_;
    QString number_;  // of lines, as typed
    FrameCell current_;
    Details shown_;
    std::array<Line, mostFrames> lines_;

    QStackedWidget* steps_;    // Stepper(0) and Stepper(1)
    QStackedWidget* details_;  // picControl, or an empty place before a frame was pressed
    QPushButton* cmdNext;
    QFrame* picControl;
    QLineEdit* txtNumber;
};

// Starts with columns.
class FormWizard2 : public FramePage {
    Q_OBJECT
public:
    explicit FormWizard2(Workbench& bench);
};

// Starts with rows.
class FormWizard3 : public FramePage {
    Q_OBJECT
public:
    explicit FormWizard3(Workbench& bench);
};

}  // namespace vellum
