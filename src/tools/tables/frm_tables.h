// The Table Builder: a small spreadsheet whose cells and settings become the markup of a table.
#pragma once

#include "import/delimited_text.h"
#include "tools/framework/tool_dialog.h"
#include "tools/tables/table_markup.h"

class QComboBox;
class QHBoxLayout;
class QLabel;

namespace vellum {

class TableGrid;

class frmTables : public ToolDialog {
    Q_OBJECT
public:
    explicit frmTables(Workbench& bench);

    // Whether it stays loaded, hidden, when it closes.
    [[nodiscard]] bool Retains() const { return retains_; }

    // Puts the cells of a file into the grid, in place of what it holds; the settings stay.
    void Fill(const DelimitedText& table);
    // Forgets all images, and counts rows and columns anew.
    void CheckArrays();
    // Follows when Cancel has hidden the tool.
    virtual void Hidden();

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void AddCellsPane();
    void AddCounter(QHBoxLayout& row, const QString& caption, const QString& label, const QString& button, int rows,
                    int columns);
    void AddCellFormat(QHBoxLayout& row);
    void AddTableSettings();
    void AddCellSettings();
    void AddColorButton(QString& field, const QString& name);

    void ShowCounts();
    void ShowFontSize();
    void AddLines(int rows, int columns);
    void PickTextColor();
    void PickBackColor();
    void PickImage();
    void FollowColorSettings();
    [[nodiscard]] std::optional<QString> Build();

    TableSettings settings_;
    bool retains_ = true;
    TableGrid* grid_ = nullptr;
    QComboBox* fontSize_ = nullptr;
};

// Opens the Table Builder, with what it held when it was closed, if it stays loaded. It belongs to the main window.
void ShowTableBuilder(Workbench& bench);
// The same with the cells of a file in its grid.
void ShowTableBuilder(Workbench& bench, const DelimitedText& table);

}  // namespace vellum
