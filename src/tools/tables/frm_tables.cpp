#include "tools/tables/frm_tables.h"

#include "files/picture.h"
#include "tools/framework/values.h"
#include "tools/tables/table_grid.h"
#include "tools/tables/table_pane.h"
#include "values/color_hex.h"
#include "values/number_rules.h"
#include "widgets/wait_pointer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace vellum {
namespace {

const QStringList& Alignments() {
    static const QStringList alignments{"LEFT", "CENTER", "RIGHT"};
    return alignments;
}

const QStringList& Gaps() {
    static const QStringList gaps = Numbers(0, 10) + QStringList{"20", "30", "50", "100"};
    return gaps;
}

// As large as it is, or as a screen needs it.
QImage ForGrid(const QImage& picture) {
    constexpr QSize largest(800, 600);
    if (picture.width() <= largest.width() && picture.height() <= largest.height()) return picture;
    return picture.scaled(largest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

frmTables& Loaded(Workbench& bench) {
    QWidget* const window = bench.Window();
    auto* const loaded = window ? window->findChild<frmTables*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    return loaded ? *loaded : *new frmTables(bench);
}

void Run(Workbench& bench, frmTables& tool) {
    tool.exec();
    const std::optional<QString> markup = tool.Markup();
    const OnCancel onCancel = tool.AfterCancel();
    const bool stays = tool.Retains() && tool.parent();
    if (!stays) delete &tool;
    const WaitPointer wait;  // a large table takes its time to be laid out in the document
    CloseTool(bench, markup, onCancel);
}

}  // namespace

frmTables::frmTables(Workbench& bench) : ToolDialog(bench, "frmTables", "The Table Builder") {
    AddPane("Grid Cells");
    tabs_->widget(0)->setObjectName("Picture4");
    AddCellsPane();
    AddPane("Table Settings");
    tabs_->widget(1)->setObjectName("Picture5");
    AddTableSettings();
    NextColumn();
    AddCellSettings();
    Finish([this] { return Build(); }, OnCancel::FocusText)->setToolTip(tr("Ctrl+Enter in the grid"));
    findChild<QPushButton*>("cmdCancel")->setObjectName("Command4");
    // After the kit, which would go to the first button.
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int pane) {
        if (pane == 0 && !tabs_->tabBar()->hasFocus()) grid_->setFocus();
    });
    Follow([this] { FollowColorSettings(); });
}

void frmTables::AddCellsPane() {
    auto* const pane = new TablePane;
    grid_ = pane->Grid1;
    auto* const tools = new QWidget;
    auto* const row = new QHBoxLayout(tools);
    row->setContentsMargins(0, 0, 0, 0);
    AddCounter(*row, "Rows", "Label14", "cmdRow", 1, 0);
    AddCounter(*row, "Columns", "Label15", "cmdCol", 0, 1);
    AddCellFormat(*row);
    row->addStretch();
    AddField({}, tools);
    constexpr int shownWidth = 640;
    constexpr int shownHeight = 260;
    pane->setMinimumSize(shownWidth, shownHeight);
    AddGrowing(pane);
    AddCheck(retains_, "Check1", "Retain Info On Exit");
    connect(grid_, &TableGrid::SizesChanged, this, &frmTables::ShowCounts);
    connect(grid_, &TableGrid::ActiveChanged, this, &frmTables::ShowFontSize);
    ShowCounts();
    ShowFontSize();
}

void frmTables::AddCounter(QHBoxLayout& row, const QString& caption, const QString& label, const QString& button,
                           int rows, int columns) {
    auto* const name = new QLabel(caption);
    auto* const count = new QLabel;
    count->setObjectName(label);
    count->setMinimumWidth(fontMetrics().horizontalAdvance("000"));
    count->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.addWidget(name);
    row.addWidget(count);
    const bool isRow = rows != 0;
    const auto add = [&](const QString& kind, const QString& sign, const QString& purpose, int step) {
        auto* const one = new QPushButton(sign);
        one->setObjectName(button + kind);
        one->setToolTip(purpose);
        one->setAccessibleName(purpose);
        one->setAutoDefault(false);
        one->setFixedWidth(one->sizeHint().height());
        connect(one, &QPushButton::clicked, this, [=, this] { AddLines(rows * step, columns * step); });
        row.addWidget(one);
        return one;
    };
    name->setBuddy(add("Plus", "+", isRow ? tr("Adds a row") : tr("Adds a column"), 1));
    add("Minus", "-", isRow ? tr("Takes the last row away") : tr("Takes the last column away"), -1);
    row.addSpacing(fontMetrics().averageCharWidth() * 2);
}

void frmTables::AddCellFormat(QHBoxLayout& row) {
    fontSize_ = new QComboBox;
    fontSize_->setObjectName("Combo2");
    for (const FontSizeChoice& size : fontSizes) fontSize_->addItem(size.caption);
    auto* const caption = new QLabel("Font Size");
    caption->setBuddy(fontSize_);
    row.addWidget(caption);
    row.addWidget(fontSize_);
    connect(fontSize_, &QComboBox::activated, this, [this](int index) {
        grid_->ChangeSelected([index](TableCell& cell) { cell.fontSize = fontSizes[index].points; });
    });
    const auto add = [&](const QString& name, const QString& text, const QString& purpose, void (frmTables::*pick)()) {
        auto* const button = new QPushButton(text);
        button->setObjectName(name);
        button->setToolTip(purpose);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, pick);
        row.addWidget(button);
    };
    add("Command1", "Text Color", tr("Colors the text of the selected cells"), &frmTables::PickTextColor);
    add("Command6", "Back Color", tr("Colors the background of the selected cells"), &frmTables::PickBackColor);
    add("Command2", "Image", tr("Puts an image into the cell"), &frmTables::PickImage);
}

void frmTables::AddTableSettings() {
    AddCombo(settings_.alignment, "Combo1", "Alignment", Alignments());
    AddCombo(settings_.borderSize, "Combo8", "Border Size", Numbers(0, 9));
    AddCombo(settings_.borderColor, "Combo3", "Border Color", ColorNames());
    AddColorButton(settings_.borderColor, "Command5");
    AddCombo(settings_.cellPadding, "Combo10", "Cell Padding", Gaps());
    AddCombo(settings_.cellSpacing, "Combo9", "Cell Spacing", Gaps());
    AddCombo(settings_.frame, "Combo4", "Frame",
             {"VOID", "ABOVE", "BELOW", "HSIDES", "LHS", "RHS", "VSIDES", "BOX", "BORDER"});
    AddCombo(settings_.rules, "Combo6", "Rules", {"NONE", "GROUPS", "ROWS", "COLS", "ALL"});
    AddText(settings_.title, "Text9", "Table Title");
}

void frmTables::AddCellSettings() {
    AddCombo(settings_.textAlignment, "Combo5", "Text Alignment", Alignments());
    AddCombo(settings_.verticalAlignment, "Combo7", "Text Vertical Alignment", {"TOP", "MIDDLE", "BOTTOM", "BASELINE"});
    AddCheck(settings_.percentWidth, "Check3", "Percentage Width");
    Beside();
    AddCombo(settings_.width, "Combo11", {}, Numbers(10, 120, 10, "%"));
    AddCheck(settings_.textColors, "Check4", "Text Color");
    AddCheck(settings_.clearBackgrounds, "Check2", "Transparent Cell Backgrounds");
    AddCheck(settings_.cellHeights, "chkRowHeight", "Include Cell Height Information");
    AddFrame("WebTV", [this] {
        AddCombo(settings_.gradientAngle, "txtTVAngle", "Gradient Angle", Numbers(-90, 90, 10));
        SetFieldWidth(AddText(settings_.gradientColor, "txtTVColor", "Gradient Color"), 0);
        AddColorButton(settings_.gradientColor, "Command7");
        AddCombo(settings_.transparency, "cboTVTrans", "Transparency", Numbers(0, 100, 10));
    });
}

void frmTables::AddColorButton(QString& field, const QString& name) {
    Beside();
    const auto pick = [this, &field] {
        const auto color = bench_.Ask().PickColor(this, ColorFromText(field).value_or(0));
        if (!color) return;
        field = ColorToHex(*color);
        ShowFields();
    };
    AddButton(name, "Set Color", pick)->setToolTip(tr("Opens the color dialog"));
}

void frmTables::ShowCounts() {
    findChild<QLabel*>("Label14")->setNum(grid_->Cells().Rows());
    findChild<QLabel*>("Label15")->setNum(grid_->Cells().Columns());
}

// Without a signal that would write the size back.
void frmTables::ShowFontSize() {
    const int index = FontSizeIndex(grid_->ActiveCell().fontSize);
    if (index >= 0) fontSize_->setCurrentIndex(index);
}

void frmTables::AddLines(int rows, int columns) {
    const int rowsThen = grid_->Cells().Rows() + rows;
    const int columnsThen = grid_->Cells().Columns() + columns;
    if (rowsThen < 1 || columnsThen < 1) return;
    grid_->Resize(rowsThen, columnsThen);
    grid_->HideEditor();
}

void frmTables::PickTextColor() {
    const auto color = bench_.Ask().PickColor(this, grid_->ActiveCell().color);
    if (color) grid_->ChangeSelected([color](TableCell& cell) { cell.color = *color; });
    grid_->setFocus();
}

void frmTables::PickBackColor() {
    constexpr ColorNumber white = 0xFFFFFF;
    const ColorNumber first = grid_->ActiveCell().backColor;
    const auto color = bench_.Ask().PickColor(this, first == 0 ? white : first);
    if (color) grid_->ChangeSelected([color](TableCell& cell) { cell.backColor = std::max(*color, ColorNumber{1}); });
    grid_->setFocus();
}

// A file that is no picture leaves the cell as it was.
void frmTables::PickImage() {
    const QString path = PickFile("Image Files (*.GIF;*.JPG;*.BMP)|*.GIF;*.JPG;*.BMP");
    const QImage picture = path.isEmpty() ? QImage() : ReadPicture(path).image;
    if (!picture.isNull()) {
        grid_->ChangeActive([&](TableCell& cell) {
            cell.text.clear();
            cell.image = QFileInfo(path).fileName();
            cell.picture = ForGrid(picture);
        });
    }
    grid_->setFocus();
}

void frmTables::FollowColorSettings() {
    const auto enable = [this](const char* name, bool on) { findChild<QPushButton*>(name)->setEnabled(on); };
    enable("Command1", settings_.textColors);
    enable("Command6", !settings_.clearBackgrounds);
    const CellLook look{settings_.textColors, !settings_.clearBackgrounds};
    if (look == grid_->Look()) return;
    const bool forgetsColors = grid_->Look().textColors && !look.textColors;
    grid_->SetLook(look);
    if (!forgetsColors) return;
    grid_->ChangeAll([](TableCell& cell) { cell.color = 0; });
    grid_->HideEditor();
}

std::optional<QString> frmTables::Build() {
    if (TablePixels(grid_->Cells())) {
        const WaitPointer wait;
        return TableMarkup(grid_->Cells(), settings_);
    }
    long long twips = 0;
    for (const int width : grid_->Cells().ColumnWidths()) twips += width;
    bench_.Ask().Message(this, tr("The table is too wide: its columns come to %1 pixels, and %2 is the most. Make "
                                  "columns narrower, or take some away.")
                                   .arg(twips / twipsPerPixel)
                                   .arg(widestTable / twipsPerPixel));
    return std::nullopt;
}

void frmTables::Fill(const DelimitedText& table) {
    TableCells cells = grid_->Cells();
    cells.Clear();
    cells.Resize(table.rows, table.columns);
    for (int row = 0; const QStringList& texts : table.cells) {
        for (int column = 0; const QString& text : texts) {
            if (!text.isEmpty()) cells.Cell(row, column).text = text;
            ++column;
        }
        ++row;
    }
    grid_->SetCells(std::move(cells));
    CheckArrays();
}

void frmTables::CheckArrays() {
    grid_->ChangeAll([](TableCell& cell) {
        cell.image.clear();
        cell.picture = {};
    });
    ShowCounts();
}

void frmTables::Hidden() {}

void frmTables::done(int result) {
    ToolDialog::done(result);
    if (result == Rejected && retains_) Hidden();
}

void frmTables::showEvent(QShowEvent* event) {
    ToolDialog::showEvent(event);
    if (tabs_->currentIndex() == 0) grid_->setFocus();
}

void ShowTableBuilder(Workbench& bench) {
    Run(bench, Loaded(bench));
}

void ShowTableBuilder(Workbench& bench, const DelimitedText& table) {
    frmTables& tool = Loaded(bench);
    tool.Fill(table);
    Run(bench, tool);
}

}  // namespace vellum
