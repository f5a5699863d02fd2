// The Table Builder over a document, driven by real events.
#pragma once

#include "tests/tools/tables/table_fixture.h"
#include "tests/tools/tool_fixture.h"
#include "tools/tables/frm_tables.h"

#include <QImage>

namespace vellum::test {

class BuilderFixture : public ToolFixture {
protected:
    void Open(const std::function<void(frmTables&)>& steps) {
        InModal<frmTables>([this] { ShowTableBuilder(bench); }, steps);
    }

    // What OK writes after the steps.
    QString Written(const std::function<void(frmTables&)>& steps) {
        document.Text1->SetText({});
        Open([&](frmTables& tool) {
            steps(tool);
            Click(tool, "cmdOK");
        });
        return Text();
    }

    static TableGrid& Grid(const QWidget& tool) { return Get<TableGrid>(tool, "Grid1"); }
    static TableCellEditor& Editor(const QWidget& tool) { return Get<TableCellEditor>(tool, "Text1"); }
    static bool Enabled(const QWidget& tool, const char* name) { return Get<QWidget>(tool, name).isEnabled(); }

    static void TypeIn(const QWidget& tool, int row, int column, const QString& text) {
        ClickCell(Grid(tool), row, column);
        QTest::keyClicks(tool.focusWidget(), text);
    }

    static void ChooseSize(const QWidget& tool, const QString& size) {
        auto& box = Get<QComboBox>(tool, "Combo2");
        box.setFocus();
        while (box.currentText() != size) {
            const bool up = box.currentText().toInt() > size.toInt();
            QTest::keyClick(&box, up ? Qt::Key_Up : Qt::Key_Down);
        }
    }

    static const TableCell& Cell(const QWidget& tool, int row, int column) {
        return Grid(tool).Cells().At(row, column);
    }

    QString MakePicture(const QString& name) const {
        QImage picture(30, 20, QImage::Format_RGB32);
        picture.fill(Qt::green);
        EXPECT_TRUE(picture.save(folder.filePath(name), "PNG"));
        return folder.filePath(name);
    }
};

}  // namespace vellum::test
