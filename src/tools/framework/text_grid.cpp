#include "tools/framework/text_grid.h"

#include "tools/framework/cell_editor.h"
#include "tools/framework/paper.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>

#include <algorithm>
#include <numeric>

namespace vellum {
namespace {

constexpr int gridWidth = 52;  // in characters

// Shades selected cells, so that their colours show through.
class ShadedSelection : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        painter->fillRect(option.rect, option.palette.base());  // the grid has filled it as selected
        QStyleOptionViewItem unselected = option;
        unselected.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        QStyledItemDelegate::paint(painter, unselected, index);
        if ((option.state & QStyle::State_Selected) == 0) return;
        constexpr int opacity = 90;
        QColor shade = option.palette.color(QPalette::Highlight);
        shade.setAlpha(opacity);
        painter->fillRect(option.rect, shade);
    }
};

ColorNumber ColorOf(const QModelIndex& cell) {
    const QVariant color = cell.data(Qt::ForegroundRole);
    return color.isValid() ? NumberFromColor(color.value<QBrush>().color()) : 0;
}

// In any theme, as the page has no other colours than those that the author picks.
void TakePageColors(QWidget& grid) {
    QPalette page = grid.palette();
    page.setColor(QPalette::Base, Qt::white);
    page.setColor(QPalette::Text, Qt::black);
    grid.setPalette(page);
}

}  // namespace

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
    constexpr int shownRows = 7;  // with the header
    grid_->setObjectName(parts.grid);
    grid_->setAccessibleName(parts.titles.join(QStringLiteral(", ")));
    grid_->setHorizontalHeaderLabels(parts.titles);
    grid_->setSelectionMode(parts.several ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
    if (parts.several) grid_->setItemDelegate(new ShadedSelection(grid_));
    grid_->verticalHeader()->hide();
    editor_ = new CellEditor(grid_, parts.editor);
    QHeaderView* const header = grid_->horizontalHeader();
    header->setDefaultSectionSize(gridWidth * fontMetrics().averageCharWidth() / grid_->columnCount());
    header->setStretchLastSection(true);
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    const int lineHeight = editor_->sizeHint().height();
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

void TextGrid::SetColumns(const QStringList& titles, const QList<int>& shares) {
    grid_->setColumnCount(static_cast<int>(titles.size()));
    grid_->setHorizontalHeaderLabels(titles);
    grid_->setAccessibleName(titles.join(QStringLiteral(", ")));
    const int whole = std::max(std::accumulate(shares.begin(), shares.end(), 0), 1);
    for (int column = 0; const int share : shares) {
        grid_->setColumnWidth(column++, gridWidth * fontMetrics().averageCharWidth() * share / whole);
    }
    emit Changed(Rows());
}

GridColors TextGrid::Colors() const {
    GridColors colors(static_cast<std::size_t>(grid_->rowCount()));
    const QAbstractItemModel* const cells = grid_->model();
    for (int row = 0; std::vector<ColorNumber> & line : colors) {
        for (int column = 0; column < cells->columnCount(); ++column)
            line.push_back(ColorOf(cells->index(row, column)));
        ++row;
    }
    return colors;
}

ColorNumber TextGrid::CurrentColor() const {
    return ColorOf(grid_->currentIndex());
}

void TextGrid::ColorSelection(ColorNumber color) {
    TakePageColors(*grid_);
    const QBrush text = ColorFromNumber(color);
    const QBrush paper = ColorFromNumber(PaperFor(color));
    QModelIndexList cells = grid_->selectionModel()->selectedIndexes();
    if (cells.isEmpty()) cells << grid_->currentIndex();
    for (const QModelIndex& cell : cells) {
        grid_->model()->setData(cell, text, Qt::ForegroundRole);
        grid_->model()->setData(cell, paper, Qt::BackgroundRole);
    }
    editor_->ShowColors();
}

}  // namespace vellum
