#include "tools/tables/table_importer.h"

#include "tests/tools/tables/table_fixture.h"
#include "tests/tools/tool_fixture.h"
#include "tools/tables/frm_tables.h"

#include <QFile>
#include <QTimer>

namespace vellum::test {
namespace {

class TableImports : public ToolFixture {
protected:
    [[nodiscard]] QString MakeFile(const QByteArray& bytes) const {
        QFile file(folder.filePath("cells.txt"));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    // From the file dialog to the grid, by way of a separator.
    void Import(const QByteArray& bytes, const QString& separator, const std::function<void(frmTables&)>& steps) {
        bench.prompts.openNames = {MakeFile(bytes)};
        InModal<frmTables>(
            [&] {
                InModal<TableImporter>([this] { ImportTable(bench); },
                                       [&](TableImporter& form) {
                                           Get<QComboBox>(form, "cboDelimiter").setCurrentText(separator);
                                           Click(form, "cmdOK");
                                       });
            },
            steps);
    }

    static const TableCells& Cells(const QWidget& tool) { return Get<TableGrid>(tool, "Grid1").Cells(); }

    // All texts, row by row.
    static QString Texts(const QWidget& tool) {
        QStringList rows;
        for (int row = 0; row < Cells(tool).Rows(); ++row) {
            QStringList texts;
            for (int column = 0; column < Cells(tool).Columns(); ++column) texts << Cells(tool).At(row, column).text;
            rows << texts.join('^');
        }
        return rows.join('|');
    }

    QString Imported(const QByteArray& bytes, const QString& separator) {
        QString texts;
        Import(bytes, separator, [&](frmTables& tool) { texts = Texts(tool); });
        return texts;
    }
};

TEST_F(TableImports, AskForTheFileAndItsSeparator) {
    const QString path = MakeFile("a\tb\r\n");
    bench.prompts.openNames = {path};
    InModal<TableImporter>(
        [this] { ImportTable(bench); },
        [&](TableImporter& form) {
            EXPECT_EQ(form.windowTitle(), "Delimited Text Table Importer");
            EXPECT_EQ(Get<QLabel>(form, "lblFilename").text(), path);
            EXPECT_EQ(Values(form, "cboDelimiter"), QStringList({"Tab", "Semicolon", "Comma", "Space"}));
            EXPECT_EQ(Get<QComboBox>(form, "cboDelimiter").currentText(), "Tab");
            EXPECT_FALSE(Get<QComboBox>(form, "cboDelimiter").isEditable());
            EXPECT_EQ(Caption(form, "cboDelimiter"), "Cell Separator");
            EXPECT_EQ(Get<QAbstractButton>(form, "cmdCancel").text(), "&Cancel");
            Click(form, "cmdCancel");
        });
    EXPECT_EQ(bench.prompts.requests.back().filter, "Delimited Text Files (*.txt)|*.txt");
    EXPECT_EQ(bench.prompts.requests.back().directory, folder.path());
    EXPECT_EQ(window.findChild<frmTables*>(), nullptr) << "Cancel goes no further";
}

TEST_F(TableImports, EndWithTheFileDialog) {
    ImportTable(bench);
    EXPECT_EQ(bench.prompts.requests.size(), 1U);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(TableImports, FillTheGridAndLeaveTheRestToTheBuilder) {
    Import("a\tb\r\nc\td\r\n", "Tab", [](frmTables& tool) {
        EXPECT_EQ(Texts(tool), "a^b|c^d|^");
        EXPECT_EQ(Get<QLabel>(tool, "Label14").text(), "3");
        EXPECT_EQ(Get<QLabel>(tool, "Label15").text(), "2");
        Click(tool, "cmdRowMinus");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text().count("<td "), 4);
    EXPECT_TRUE(Text().contains("12pt\">\r\nd\r\n</span>"));
}

TEST_F(TableImports, SplitAtEachSeparator) {
    EXPECT_EQ(Imported("\"a,b\",c\n", "Comma"), "\"a^b\"^c|^^");
    EXPECT_EQ(Imported("a b,c\nd", "Space"), "a^b,c|d^");
    EXPECT_EQ(Imported("a;b:c\nd;e\n", "Semicolon"), "a;b:c|d;e|");
}

TEST_F(TableImports, LeaveShortLinesShort) {
    EXPECT_EQ(Imported("a,b,c\nd\n,e\n", "Comma"), "a^b^c|d^^|^e^|^^");
}

TEST_F(TableImports, LoseWhatStandsBeyondTheLastColumn) {
    EXPECT_EQ(Imported("a,b\nc,d,e,f", "Comma"), "a^b|c^d");
    EXPECT_EQ(Imported("a,b,c", "Comma"), "a");
    EXPECT_EQ(Imported("", "Comma"), "");
}

TEST_F(TableImports, ReadFilesInTheirOwnEncoding) {
    EXPECT_EQ(Imported("\xEF\xBB\xBF\xC3\xA4,b\n", "Comma"), QString::fromUtf8("\xC3\xA4^b|^"));
    EXPECT_EQ(Imported("\xE4,b\n", "Comma"), QString::fromUtf8("\xC3\xA4^b|^"));
}

TEST_F(TableImports, ShowBytesThatAreNoText) {
    EXPECT_EQ(Imported("\xC3\xA4\t\xC3\xB6\xFF\n", "Tab"), u"\u00E4^\u00F6\uFFFD|^"_qs);
}

TEST_F(TableImports, TakeThePlaceOfWhatAHiddenBuilderKept) {
    QImage picture(3, 3, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(folder.filePath("a.gif"), "PNG"));
    bench.prompts.openNames = {folder.filePath("a.gif")};
    InModal<frmTables>([this] { ShowTableBuilder(bench); },
                       [](frmTables& tool) {
                           Click(tool, "Command2");
                           ClickCell(Get<TableGrid>(tool, "Grid1"), 0, 1);
                           QTest::keyClicks(tool.focusWidget(), "old");
                           Tab(tool, 1);
                           Type(tool, "Text9", "Title");
                       });
    Import("a\n", "Comma", [](frmTables& tool) {
        EXPECT_EQ(Texts(tool), "a|");
        EXPECT_EQ(Cells(tool).At(0, 0).image, "");
        EXPECT_EQ(Field(tool, "Text9"), "Title");
        EXPECT_EQ(Get<TableGrid>(tool, "Grid1").Active(), Get<TableGrid>(tool, "Grid1").model()->index(0, 0));
    });
}

TEST_F(TableImports, TellWhenTheFileCantBeRead) {
    bench.prompts.openNames = {folder.filePath("missing.txt")};
    InModal<TableImporter>([this] { ImportTable(bench); },
                           [this](TableImporter& form) {
                               Click(form, "cmdOK");
                               EXPECT_EQ(bench.prompts.messages.size(), 1);
                               EXPECT_TRUE(form.isVisible());
                           });
    EXPECT_EQ(window.findChild<frmTables*>(), nullptr);
}

}  // namespace
}  // namespace vellum::test
