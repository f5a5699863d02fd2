#include "tools/forms/frm_input.h"

#include "surface/document_text.h"
#include "tools/framework/ok_keys.h"
#include "tools/framework/values.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

#include <algorithm>
#include <iterator>

namespace vellum {
namespace {

constexpr int halfWidth = 16;  // in characters, of a field that shares its row
constexpr int numberWidth = 8;

struct KindOption {
    InputKind kind;
    const char* name;
    const char* caption;
    int pane;  // in the order of AddPanes
};

constexpr KindOption kinds[] = {
    {InputKind::Checkbox, "Option1", "&Checkbox", 0}, {InputKind::Hidden, "Option2", "&Hidden", 1},
    {InputKind::Image, "Option3", "&Image", 2},       {InputKind::Password, "Option4", "&Password", 3},
    {InputKind::Radio, "Option5", "&Radio", 4},       {InputKind::Reset, "Option6", "R&eset", 5},
    {InputKind::Submit, "Option7", "&Submit", 5},     {InputKind::Text, "Option8", "&Text", 3},
    {InputKind::Textbox, "Option9", "Textbo&x", 6},   {InputKind::Listbox, "Option10", "&Listbox", 7},
    {InputKind::Button, "Option11", "Button", 5},     {InputKind::FileSearch, "Option12", "File Search", 3},
};

const KindOption& OptionOf(InputKind kind) {
    return *std::find_if(std::begin(kinds), std::end(kinds), [&](const KindOption& row) { return row.kind == kind; });
}

qsizetype FirstCharacter(const QString& text) {
    return text.front().isHighSurrogate() ? 2 : 1;
}

}  // namespace

frmInput::frmInput(Workbench& bench) : ToolDialog(bench, "frmInput", "Form Input") {
    AddFrame("Input", [this] { AddKinds(); })->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    NextColumn();
    AddFrame({}, [this] { AddCommon(); });
    auto* const own = qobject_cast<QGroupBox*>(AddFrame("Own", [this] { AddPanes(); }));
    Follow([this, own] { own->setTitle(QString(OptionOf(fields_.kind).caption).remove(u'&')); });
    QPushButton* const ok = Finish([this] { return InputMarkup(fields_); });
    // Its letter belongs to the check box, and Esc is its key.
    findChild<QPushButton*>("cmdCancel")->setText("Cancel");
    PressByCtrlEnter(*ok);
}

void frmInput::AddKinds() {
    for (const KindOption& row : kinds) AddOption(fields_.kind, row.kind, row.name, row.caption);
}

void frmInput::AddCommon() {
    SetFieldWidth(AddText(fields_.name, "txtName", "Name"), halfWidth);
    SetFieldWidth(AddText(fields_.id, "txtID", "ID"), halfWidth);
    SetFieldWidth(AddText(fields_.className, "txtClass", "Class"), halfWidth);
    NextColumn();
    SetFieldWidth(AddText(fields_.title, "txtTitle", "Title"), halfWidth);
    AddAccessKey();
    AddCheck(fields_.disabled, "chkDisabled", "Input Disabled");
}

void frmInput::AddAccessKey() {
    constexpr int width = 4;
    QLineEdit* const line = AddText(fields_.accessKey, "txtAccess", "Access Key");
    SetFieldWidth(line, width, width);
    connect(line, &QLineEdit::textChanged, this, [line](const QString& text) {
        if (!text.isEmpty() && text.size() > FirstCharacter(text)) line->setText(text.left(FirstCharacter(text)));
    });
}

void frmInput::AddPanes() {
    QStackedWidget* const panes =
        AddStack("picInput", {[this] { AddCheckbox(); }, [this] { AddText(fields_.hiddenValue, "Text4", "Value"); },
                              [this] { AddImage(); }, [this] { AddLine(); }, [this] { AddRadio(); },
                              [this] { AddText(fields_.label, "Text15", "Button Label"); }, [this] { AddTextbox(); },
                              [this] { AddListbox(); }});
    Follow([this, panes] { panes->setCurrentIndex(OptionOf(fields_.kind).pane); });
}

void frmInput::AddCheckbox() {
    AddText(fields_.checkboxValue, "Text2", "Value");
    AddCheck(fields_.checked, "Check1", "Checked");
}

void frmInput::AddImage() {
    AddCombo(fields_.alignment, "Combo1", "Alignment", {"TOP", "MIDDLE", "BOTTOM"});
    AddText(fields_.source, "Text6", "Image Source");
}

// A file has the width alone.
void frmInput::AddLine() {
    SetFieldWidth(AddText(fields_.width, "Text19", "Width (In Spaces)"), numberWidth);
    const std::initializer_list<QWidget*> others{AddText(fields_.maxLength, "Text20", "Maximum Length"),
                                                 AddText(fields_.lineValue, "Text21", "Value")};
    const auto isText = [this] { return fields_.kind != InputKind::FileSearch; };
    for (QWidget* other : others) {
        ShowWhile(other, isText);
        for (QLabel* label : other->parentWidget()->findChildren<QLabel*>()) {
            if (label->buddy() == other) ShowWhile(label, isText);
        }
    }
}

void frmInput::AddRadio() {
    AddText(fields_.radioValue, "Text12", "Value");
    AddText(fields_.radioText, "Text13", "Text Displayed");
}

void frmInput::AddTextbox() {
    SetFieldWidth(AddText(fields_.columns, "Text23", "Width (In Characters)"), numberWidth);
    Beside();
    SetFieldWidth(AddText(fields_.rows, "Text24", "Height (In Characters)"), numberWidth);
    auto* const contents = new QPlainTextEdit;
    contents->setObjectName("Text26");
    contents->setTabChangesFocus(true);
    connect(contents, &QPlainTextEdit::textChanged, this, [this, contents] {
        fields_.contents = WithCrLf(contents->toPlainText());
        emit Changed();
    });
    AddGrowing(contents, "Contents");
}

void frmInput::AddListbox() {
    AddGrid(fields_.entries, {.titles = {"Value", "Text"}, .plus = "cmdListPlus", .minus = "cmdListMinus"});
    SetFieldWidth(AddCombo(fields_.listSize, "cboListSize", "List Size", Numbers(1, 10)), numberWidth);
    Beside();
    AddCheck(fields_.multiple, "chkMultiple", "Allow Multiple Selections");
}

}  // namespace vellum
