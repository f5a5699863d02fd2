#include "tools/framework/text_grid.h"

#include "tools/framework/cell_editor.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <algorithm>

namespace vellum {

TextGrid::TextGrid(const GridParts& parts, QWidget* parent)
    : QWidget(parent), grid_(new QTableWidget(0, static_cast<int>(parts.titles.size()))) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(grid_, 1);
    SetUpGrid(parts);
    column->addLayout(MakeRowButtons(parts));
    const auto tell = [this] { emit Changed(Rows()); };
    for (const auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(grid_->model(), changed, this, tell);
    }
    connect(grid_->model(), &QAbstractItemModel::dataChanged, this, tell);
}

void TextGrid::SetUpGrid(const GridParts& parts) {
    constexpr int gridWidth = 52;  // in characters
    constexpr int shownRows = 7;   // with the header
    grid_->setObjectName(parts.grid);
    grid_->setAccessibleName(parts.titles.join(QStringLiteral(", ")));
    grid_->setHorizontalHeaderLabels(parts.titles);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->verticalHeader()->hide();
    const auto* const editor = new CellEditor(grid_, parts.editor);
    QHeaderView* const header = grid_->horizontalHeader();
    header->setDefaultSectionSize(gridWidth * fontMetrics().averageCharWidth() / grid_->columnCount());
    header->setStretchLastSection(true);
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    const int lineHeight = editor->sizeHint().height();
    grid_->setMinimumSize(grid_->columnCount() * header->defaultSectionSize() + lineHeight, shownRows * lineHeight);
    setFocusProxy(grid_);
}

QLayout* TextGrid::MakeRowButtons(const GridParts& parts) {
    auto* const row = new QHBoxLayout;
    auto* const caption = new QLabel(QStringLiteral("Number Of Rows"));
    auto* const count = new QLabel;
    count->setObjectName(parts.rows);
    row->addWidget(caption);
    row->addWidget(count);
    const auto add = [&](const QString& name, const QString& text, const QString& purpose, int step) {
        auto* const button = new QPushButton(text);
        button->setObjectName(name);
        button->setToolTip(purpose);
        button->setAccessibleName(purpose);
        connect(button, &QPushButton::clicked, this,
                [this, step] { grid_->setRowCount(std::max(grid_->rowCount() + step, 1)); });
        row->addWidget(button);
        return button;
    };
    caption->setBuddy(add(parts.plus, QStringLiteral("+"), tr("Adds a row"), 1));
    add(parts.minus, QStringLiteral("-"), tr("Takes the last row away"), -1);
    row->addStretch();
    connect(this, &TextGrid::Changed, count, [this, count] { count->setNum(grid_->rowCount()); });
    return row;
}

GridRows TextGrid::Rows() const {
    GridRows rows(static_cast<std::size_t>(grid_->rowCount()));
    const QAbstractItemModel* const cells = grid_->model();
    for (int row = 0; row < cells->rowCount(); ++row) {
        for (int column = 0; column < cells->columnCount(); ++column) {
            rows[static_cast<std::size_t>(row)] << cells->index(row, column).data().toString();
        }
    }
    return rows;
}

void TextGrid::SetRows(const GridRows& rows) {
    grid_->setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; const QStringList& texts : rows) {
        for (int column = 0; const QString& text : texts) grid_->setItem(row, column++, new QTableWidgetItem(text));
        ++row;
    }
}

}  // namespace vellum
