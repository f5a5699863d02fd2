// A modal form whose fields are bound to values: a widget starts with what its field holds, and keeps it up to date.
#pragma once

#include "editor/workbench.h"
#include "tools/framework/entry_lists.h"
#include "tools/framework/field_layout.h"
#include "tools/framework/text_grid.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace vellum {

class ColorSwatch;

// Where the colour dialog starts.
enum class ColorStart { Black, Field };

// Fields are added in the order of the Tab key, one line each: the value that is edited, the object name, the caption.
// The values are members of the form. What is returned is for what only one tool does with its widget.
class FieldForm : public QDialog, protected FieldLayout {
    Q_OBJECT
signals:
    // The author, or code, has edited a field, or code has changed some and shown them.
    void Changed();

protected:
    FieldForm(Workbench& bench, const QString& name, const QString& caption);

    // Before the first pane: the tabs will stand one below the other, as their captions are too long for a row.
    void PutTabsAside() { tabsAside_ = true; }
    // A tab of TabStrip1 and its pane picOption(n); what is added next stands on it. Ctrl+Tab and Ctrl+Page Down turn
    // the panes wherever the keyboard is, with Shift and by Page Up the other way.
    void AddPane(const QString& caption, const QString& toolTip = {});

    QLineEdit* AddText(QString& field, const QString& name, const QString& caption = {});
    // An editable box: takes any text beside its values.
    QComboBox* AddCombo(QString& field, const QString& name, const QString& caption, const QStringList& values);
    // A box of the colour names with a button, named `cmd` instead of `cbo` or before it, that fills it by the colour
    // dialog. `chosen` gets the dialog's colour afterwards.
    QComboBox* AddColor(QString& field, const QString& name, const QString& caption, const QString& button,
                        ColorStart start = ColorStart::Black,
                        const std::function<void(ColorNumber color)>& chosen = {});
    // A text with a button, named `cmd` instead of `txt` or before it, that puts the bare name of a picked file into
    // it. `chosen` gets the full path afterwards.
    QLineEdit* AddFile(QString& field, const QString& name, const QString& caption, const QString& button,
                       const QString& filter, const std::function<void(const QString& path)>& chosen = {});
    QCheckBox* AddCheck(bool& field, const QString& name, const QString& caption);
    // One of several options of a field, on while it holds `value`. All of them stand on one pane or frame, and those
    // of another field on another.
    template <typename Value>
    QRadioButton* AddOption(Value& field, Value value, const QString& name, const QString& caption) {
        return AddOption(
            name, caption, [&field, value] { return field == value; }, [&field, value] { field = value; });
    }
    ColorSwatch* AddSwatch(ColorNumber& field, const QString& name, const QString& caption = {});
    TextGrid* AddGrid(GridRows& field, const GridParts& parts);
    EntryLists* AddLists(const EntryParts& parts);
    QPushButton* AddButton(const QString& name, const QString& caption, const std::function<void()>& pressed);
    // The last row of the form: a default button, unless it has no name, and Cancel. `before` stands at its left end.
    QPushButton* AddClosingRow(const Captioned& button, const std::function<void()>& pressed,
                               QWidget* before = nullptr);

    // Keeps a check box alike with its field, as AddCheck does, for one that stands elsewhere.
    void Bind(bool& field, QCheckBox* check);
    // Shows what the fields hold, after code has changed them.
    void ShowFields();
    // Runs now and after each change of a field.
    void Follow(const std::function<void()>& react);
    // Shows a part of the form while a condition on its fields holds; the form grows and shrinks by it.
    void ShowWhile(QWidget* part, const std::function<bool()>& condition);
    // The full path of a file of the website; empty when cancelled.
    [[nodiscard]] QString PickFile(const QString& filter);

    Workbench& bench_;
    QTabWidget* tabs_ = nullptr;  // made with the first pane

private:
    QRadioButton* AddOption(const QString& name, const QString& caption, const std::function<bool()>& isChosen,
                            const std::function<void()>& choose);
    void AddTabs();
    void ShowPart(QWidget* part, bool on);
    // Shows a field now and by ShowFields.
    void Keep(const std::function<void()>& show);
    // What the widgets tell goes into the fields, but not while these are being shown.
    template <typename Value>
    void Take(Value& field, const Value& value) {
        if (showing_) return;
        field = value;
        emit Changed();
    }

    std::vector<std::function<void()>> shows_;
    bool showing_ = false;
    bool tabsAside_ = false;
};

}  // namespace vellum
