// The grid of a table on a form, with the keyboard in its first cell.
#pragma once

#include "tests/tools/tables/table_fixture.h"

#include <QDialog>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace vellum::test {

// A grid of three rows and columns, with a field before and a button after it.
class GridFixture : public testing::Test {
protected:
    void SetUp() override {
        auto* const layout = new QVBoxLayout(&form);
        layout->addWidget(before);
        layout->addWidget(grid);
        layout->addWidget(after);
        layout->addWidget(ok);
        ok->setDefault(true);
        QObject::connect(ok, &QPushButton::clicked, &form, [this] { ++confirmed; });
        grid->Resize(3, 3);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) grid->SetText(row, column, QString("%1%2").arg(row).arg(column));
        }
        form.resize(640, 400);
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        ClickCell(*grid, 0, 0);
    }

    [[nodiscard]] QString Cell(int row, int column) const { return grid->Cells().At(row, column).text; }
    [[nodiscard]] QPoint Place() const { return {grid->Active().column(), grid->Active().row()}; }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(form.focusWidget(), key, modifiers); }
    void Type(const QString& text) { QTest::keyClicks(form.focusWidget(), text); }

    // The field stands over a cell, at rest, with the keyboard.
    void ExpectIn(int row, int column) const {
        EXPECT_EQ(Place(), QPoint(column, row));
        EXPECT_EQ(form.focusWidget(), editor);
        EXPECT_EQ(editor->toPlainText(), Cell(row, column));
        EXPECT_EQ(editor->textCursor().selectedText(), Cell(row, column));
        const QRect cell = grid->visualRect(grid->model()->index(row, column));
        EXPECT_EQ(editor->pos(), cell.topLeft());
        EXPECT_EQ(editor->width(), cell.width() + 280 / 15);
        EXPECT_EQ(editor->height(), cell.height());
        EXPECT_EQ(editor->mask().boundingRect().size(), cell.size()) << "the next cell shows beside it";
    }

    // All texts, row by row.
    [[nodiscard]] QString Texts() const {
        QStringList rows;
        for (int row = 0; row < grid->Cells().Rows(); ++row) {
            QStringList cells;
            for (int column = 0; column < grid->Cells().Columns(); ++column) cells << Cell(row, column);
            rows << cells.join(',');
        }
        return rows.join('|');
    }

    QDialog form;
    QLineEdit* before = new QLineEdit(&form);
    TableGrid* grid = new TableGrid(&form);
    QPushButton* after = new QPushButton("After", &form);
    QPushButton* ok = new QPushButton("OK", &form);
    TableCellEditor* editor = grid->findChild<TableCellEditor*>("Text1");
    int confirmed = 0;
};

}  // namespace vellum::test
