// What every tool is: a modal form whose fields become one piece of markup.
#pragma once

#include "editor/workbench.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

class QBoxLayout;
class QFormLayout;
class QPushButton;
class QTabWidget;

namespace vellum {

// Whether Cancel gives the keyboard to the document's text.
enum class OnCancel { Leave, FocusText };

// Where the colour dialog starts.
enum class ColorStart { Black, Field };

// A tool derives from this, adds its fields in the order of the Tab key, one line each, and ends with Finish. Every
// field goes below the one before, into the pane and the frame that were begun last. Captions become labels; access
// keys are handed out at the end.
class ToolDialog : public QDialog {
    Q_OBJECT
public:
    // What OK came to; nothing while the tool is open and after Cancel.
    [[nodiscard]] const std::optional<QString>& Markup() const { return markup_; }
    [[nodiscard]] OnCancel AfterCancel() const { return onCancel_; }

    // Also gives the main window back to the author.
    void done(int result) override;

protected:
    // Ctrl+Tab turns the panes from the buttons too.
    void keyPressEvent(QKeyEvent* event) override;

    ToolDialog(Workbench& bench, const QString& name, const QString& caption);

    // A tab of TabStrip1 and its pane picOption(n); what is added next stands on it. Returns its index from 0.
    int AddPane(const QString& caption, const QString& toolTip = {});
    [[nodiscard]] int VisiblePane() const;  // from 0; -1 without panes
    // A frame with a caption, up to EndFrame.
    void BeginFrame(const QString& caption);
    // The same on a widget of the tool's own, which gets a layout by it.
    void BeginPanel(QWidget* panel);
    void EndFrame();
    // What is added next stands in a column to the right of what the pane holds so far.
    void NextColumn();

    QLineEdit* AddText(const QString& name, const QString& caption, const QString& initial = {});
    // An editable box: takes any text beside its values.
    QComboBox* AddCombo(const QString& name, const QString& caption, const QStringList& values,
                        const QString& initial = {});
    // A box of the colour names with a button, named `cmd` instead of `cbo`, that fills it by the colour dialog.
    QComboBox* AddColor(const QString& name, const QString& caption, const QString& button,
                        ColorStart start = ColorStart::Black);
    // A text with a button, named `cmd` instead of `txt`, that puts the bare name of a picked file into it. `chosen`
    // gets the full path afterwards.
    QLineEdit* AddFile(const QString& name, const QString& caption, const QString& button, const QString& filter,
                       const std::function<void(const QString& path)>& chosen = {});
    QCheckBox* AddCheck(const QString& name, const QString& caption, bool on = false);
    // Any widget as a field; with an empty caption it takes the whole row.
    void AddField(const QString& caption, QWidget* field);
    void AddField(const QString& caption, QWidget* field, QWidget* beside);
    // A widget that takes the whole width, and the height that a larger form has to spare.
    void AddGrowing(QWidget* field);
    // Where widgets for AddField belong, and the usual ones, which the calls above add themselves.
    [[nodiscard]] QWidget* Parent() const;
    [[nodiscard]] QLineEdit* MakeText(const QString& name, const QString& initial = {});
    [[nodiscard]] QComboBox* MakeCombo(const QString& name, const QStringList& values, const QString& initial = {});
    // Named `cmd` instead of the field's first three letters.
    [[nodiscard]] QPushButton* MakeFieldButton(const QString& fieldName, const QString& caption,
                                               const QString& fieldCaption);
    // A line below the field that was added last, which a screen reader tells with `field`.
    void AddNote(QWidget* field, const QString& text);

    // OK, which hands over what `build` gives, and Cancel. The last call of a constructor.
    void Finish(const std::function<QString()>& build, OnCancel onCancel = OnCancel::Leave);
    // The same with Cancel alone, for tools whose fields have OK buttons of their own.
    void FinishWithCancel(OnCancel onCancel = OnCancel::Leave);
    // The same with a button of the tool's own in the place of OK: the tool connects what it does.
    QPushButton* FinishWithButton(const QString& name, const QString& caption, OnCancel onCancel = OnCancel::Leave);
    // Closes the tool and leaves the text to whoever opened it.
    void HandOver(const QString& markup);

    Workbench& bench_;

private:
    // Where the next field goes.
    struct Place {
        QWidget* parent = nullptr;
        QBoxLayout* columns = nullptr;
        QBoxLayout* column = nullptr;
        QFormLayout* form = nullptr;  // made with the first field
    };

    static Place PlaceIn(QWidget* parent);
    void AddRow(const QString& caption, QWidget* buddy, QWidget* beside);
    void FocusFirstField();  // of the pane that shows, or of the form
    void AddButtonRow(std::initializer_list<QPushButton*> buttons);

    QBoxLayout* outer_;
    QTabWidget* tabs_ = nullptr;
    std::vector<Place> places_;  // the last is the innermost
    std::optional<QString> markup_;
    OnCancel onCancel_ = OnCancel::Leave;
};

// The text that is selected in the active document; empty without one.
[[nodiscard]] QString SelectedText(const Workbench& bench);

// What follows when a tool has closed: its markup goes into the document, or the keyboard to the text.
void CloseTool(Workbench& bench, std::optional<QString> markup, OnCancel onCancel);

// Opens a tool, with its fields at their defaults or as `prepare` sets them. The tool is gone before its markup goes
// into the document.
template <typename Tool>
void ShowPreparedTool(Workbench& bench, const std::function<void(Tool&)>& prepare) {
    std::optional<QString> markup;
    OnCancel onCancel{};
    {
        Tool tool(bench);
        if (prepare) prepare(tool);
        tool.exec();
        markup = tool.Markup();
        onCancel = tool.AfterCancel();
    }
    CloseTool(bench, std::move(markup), onCancel);
}

template <typename Tool>
void ShowTool(Workbench& bench) {
    ShowPreparedTool<Tool>(bench, {});
}

}  // namespace vellum
