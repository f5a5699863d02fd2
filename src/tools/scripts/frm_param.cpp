#include "tools/scripts/frm_param.h"

#include "tools/framework/attributes.h"
#include "tools/framework/cell_editor.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <algorithm>

namespace vellum {
namespace {

enum Column { NameColumn, ValueColumn };

}  // namespace

QString ParamMarkup(const std::vector<Parameter>& parameters) {
    QString markup;
    for (const auto& [name, value] : parameters) {
        markup += "<param" + Attribute("name", name) + Attribute("value", value);
        markup += " />\r\n";
    }
    return markup;
}

frmParam::frmParam(Workbench& bench) : ToolDialog(bench, "frmParam", "Insert Parameters") {
    AddGrid();
    AddRowButtons();
    SetRows(1);
    Text1->Enter(0, NameColumn);
    Finish([this] { return ParamMarkup(Fields()); });
}

void frmParam::AddGrid() {
    constexpr int columnWidth = 26;  // in characters
    constexpr int shownRows = 7;     // with the header
    Grid1 = new QTableWidget(0, 2, Parent());
    Grid1->setObjectName("Grid1");
    Grid1->setAccessibleName(windowTitle());
    Grid1->setHorizontalHeaderLabels({"Parameter Name", "Parameter Value"});
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->verticalHeader()->hide();
    QHeaderView* const header = Grid1->horizontalHeader();
    header->setDefaultSectionSize(columnWidth * fontMetrics().averageCharWidth());
    header->setStretchLastSection(true);
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    Text1 = new CellEditor(Grid1, "Text1");
    Grid1->setMinimumSize(2 * header->defaultSectionSize() + Text1->sizeHint().height(),
                          shownRows * Text1->sizeHint().height());
    AddGrowing(Grid1);
}

void frmParam::AddRowButtons() {
    auto* row = new QWidget(Parent());
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    lblRows = new QLabel(row);
    lblRows->setObjectName("lblRows");
    layout->addWidget(lblRows);
    const auto add = [&](const QString& name, const QString& caption, const QString& purpose, int step) {
        auto* button = new QPushButton(caption, row);
        button->setObjectName(name);
        button->setToolTip(purpose);
        button->setAccessibleName(purpose);
        connect(button, &QPushButton::clicked, this, [this, step] { SetRows(Grid1->rowCount() + step); });
        layout->addWidget(button);
        return button;
    };
    QPushButton* const plus = add("cmdPlus", "+", tr("Adds a row"), 1);
    add("cmdMinus", "-", tr("Takes the last row away"), -1);
    row->setFocusPolicy(Qt::StrongFocus);
    row->setFocusProxy(plus);  // where the access key of the caption leads
    layout->addStretch();
    AddField("Number Of Rows", row);
}

void frmParam::SetRows(int rows) {
    Grid1->setRowCount(std::max(rows, 1));
    lblRows->setNum(Grid1->rowCount());
}

std::vector<Parameter> frmParam::Fields() const {
    std::vector<Parameter> parameters;
    parameters.reserve(static_cast<std::size_t>(Grid1->rowCount()));
    const QAbstractItemModel* const cells = Grid1->model();
    for (int row = 0; row < Grid1->rowCount(); ++row) {
        parameters.push_back(
            {cells->index(row, NameColumn).data().toString(), cells->index(row, ValueColumn).data().toString()});
    }
    return parameters;
}

}  // namespace vellum
