#include "tools/lists/frm_lists.h"

#include "tools/framework/attributes.h"
#include "values/color_hex.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <iterator>

namespace vellum {
namespace {

struct NumberType {
    const char* name;
    const char* code;
};

constexpr NumberType numberTypes[] = {{"Large Letters", "A"},
                                      {"Small Letters", "a"},
                                      {"Large Roman Numerals", "I"},
                                      {"Small Roman Numerals", "i"},
                                      {"Regular Numbers", "1"}};

QString TypeCode(const QString& name) {
    const auto* const type = std::find_if(std::begin(numberTypes), std::end(numberTypes),
                                          [&](const NumberType& row) { return name == QLatin1String(row.name); });
    return type == std::end(numberTypes) ? QString() : QString(type->code);
}

QString TagName(ListKind kind) {
    switch (kind) {
        case ListKind::Definition:
            return "dl";
        case ListKind::Ordered:
            return "ol";
        case ListKind::Unordered:
            return "ul";
        case ListKind::Itemized:
            return "menu";
        case ListKind::Directory:
            return "dir";
    }
    return {};
}

QString Entry(const ListFields& fields, std::size_t row, int column, const QString& tag) {
    QString text = fields.rows.at(row).at(column);
    if (fields.colorsSet) {
        const QString color = ColorToHex(fields.colors.at(row).at(static_cast<std::size_t>(column)));
        text = "<span style=\"color:" + color + "\">" + text + "</span>";
    }
    return '<' + tag + '>' + text + "</" + tag + ">\r\n";
}

}  // namespace

QString ListMarkup(const ListFields& fields) {
    const QString tag = TagName(fields.kind);
    QString markup = "<!-- Begin List -->\r\n<" + tag;
    if (fields.kind == ListKind::Ordered) {
        markup += AttributeIfAny("start", fields.start) + Attribute("type", TypeCode(fields.type));
    }
    markup += ">\r\n";
    for (std::size_t row = 0; row < fields.rows.size(); ++row) {
        if (fields.kind == ListKind::Definition) {
            markup += Entry(fields, row, 0, "dt") + Entry(fields, row, 1, "dd");
        } else {
            markup += Entry(fields, row, 0, "li");
        }
    }
    return markup + "</" + tag + ">\r\n<!-- End List -->";
}

frmLists::frmLists(Workbench& bench) : ToolDialog(bench, "frmLists", "List Builder") {
    grid_ = AddGrid(fields_.rows, {.titles = {"List Item"}, .several = true});
    AddColor();
    NextColumn(0);
    AddFrame("Kind", [this] { AddKinds(); });
    QWidget* const numbering = AddFrame("Numbering", [this] { AddNumbering(); });
    numbering->setObjectName("Picture1");
    ShowWhile(numbering, [this] { return fields_.kind == ListKind::Ordered; });
    Finish([this] {
        fields_.colors = grid_->Colors();
        return ListMarkup(fields_);
    });
}

void frmLists::AddColor() {
    QPushButton* const button = AddButton("Command3", "Text Color", [this] { PickColor(); });
    button->setToolTip(tr("Gives the selected rows a color"));
    auto* const state = new QLabel;
    state->setObjectName("Label5");
    Beside();
    AddField({}, state);
    Follow([this, state] { state->setText(fields_.colorsSet ? "Using Selected Colors" : "No Colors Set"); });
}

void frmLists::AddKinds() {
    const QRadioButton* const definition = AddOption(fields_.kind, ListKind::Definition, "Option1", "Definition List");
    connect(definition, &QRadioButton::toggled, this, &frmLists::ShowColumns);
    AddOption(fields_.kind, ListKind::Ordered, "Option2", "Ordered List");
    AddOption(fields_.kind, ListKind::Unordered, "Option3", "UnOrdered List");
    AddOption(fields_.kind, ListKind::Itemized, "Option4", "Itemized List");
    AddOption(fields_.kind, ListKind::Directory, "Option5", "Directory List");
}

void frmLists::AddNumbering() {
    auto* const types = new QListWidget;
    types->setObjectName("List1");
    for (const NumberType& type : numberTypes) types->addItem(type.name);
    types->setCurrentRow(4);
    const int rows = types->count();
    const int frame = 2 * types->frameWidth();
    types->setFixedHeight(rows * types->sizeHintForRow(0) + frame);
    types->setMinimumWidth(types->sizeHintForColumn(0) + frame);
    types->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    types->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    AddField("Type", types);
    auto* const chosen = new QLabel;
    chosen->setObjectName("Label4");
    AddField({}, chosen);
    connect(types, &QListWidget::currentTextChanged, this, [this](const QString& type) {
        fields_.type = type;
        emit Changed();
    });
    Follow([this, chosen] { chosen->setText(fields_.type); });
    SetFieldWidth(AddText(fields_.start, "Text3", "Starting Number"), 6);
}

void frmLists::ShowColumns(bool definitions) {
    if (definitions) {
        grid_->SetColumns({"Term", "Definition"}, {1310, 2550});
    } else {
        grid_->SetColumns({"List Item"}, {3860});
    }
}

void frmLists::PickColor() {
    const auto color = bench_.Ask().PickColor(this, grid_->CurrentColor());
    if (!color) return;
    grid_->ColorSelection(*color);
    fields_.colorsSet = true;
    emit Changed();
}

}  // namespace vellum
