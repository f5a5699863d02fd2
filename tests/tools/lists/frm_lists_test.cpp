#include "tools/lists/frm_lists.h"

#include "tests/tools/tool_fixture.h"

#include <QListWidget>
#include <QTableWidget>

namespace vellum::test {
namespace {

TEST(ListMarkupOf, TheDefaults) {
    EXPECT_EQ(ListMarkup({.rows = {{"a"}}}),
              "<!-- Begin List -->\r\n"
              "<ol start=\"1\" type=\"1\">\r\n"
              "<li>a</li>\r\n"
              "</ol>\r\n"
              "<!-- End List -->");
}

TEST(ListMarkupOf, EveryNumberType) {
    const std::pair<const char*, const char*> codes[] = {{"Regular Numbers", "1"},
                                                         {"Large Letters", "A"},
                                                         {"Small Letters", "a"},
                                                         {"Large Roman Numerals", "I"},
                                                         {"Small Roman Numerals", "i"}};
    for (const auto& [type, code] : codes) {
        EXPECT_EQ(
            ListMarkup({.rows = {}, .type = type}),
            QString("<!-- Begin List -->\r\n<ol start=\"1\" type=\"%1\">\r\n</ol>\r\n<!-- End List -->").arg(code));
    }
}

TEST(ListMarkupOf, AStartThatIsOtherOrEmpty) {
    EXPECT_EQ(ListMarkup({.rows = {}, .type = "Small Letters", .start = "x\""}),
              "<!-- Begin List -->\r\n<ol start=\"x\"\" type=\"a\">\r\n</ol>\r\n<!-- End List -->");
    EXPECT_EQ(ListMarkup({.rows = {{""}}, .start = ""}),
              "<!-- Begin List -->\r\n<ol type=\"1\">\r\n<li></li>\r\n</ol>\r\n<!-- End List -->");
}

TEST(ListMarkupOf, EveryOtherKindWithoutNumbers) {
    const std::pair<ListKind, const char*> kinds[] = {
        {ListKind::Unordered, "ul"}, {ListKind::Itemized, "menu"}, {ListKind::Directory, "dir"}};
    for (const auto& [kind, tag] : kinds) {
        EXPECT_EQ(ListMarkup({.kind = kind, .rows = {{"a"}, {""}, {"<b>&"}}, .type = "Large Letters", .start = "5"}),
                  QString("<!-- Begin List -->\r\n"
                          "<%1>\r\n"
                          "<li>a</li>\r\n"
                          "<li></li>\r\n"
                          "<li><b>&</li>\r\n"
                          "</%1>\r\n"
                          "<!-- End List -->")
                      .arg(tag));
    }
}

TEST(ListMarkupOf, TermsAndDefinitions) {
    EXPECT_EQ(ListMarkup({.kind = ListKind::Definition, .rows = {{"calf", "young cow"}, {"", ""}}}),
              "<!-- Begin List -->\r\n"
              "<dl>\r\n"
              "<dt>calf</dt>\r\n"
              "<dd>young cow</dd>\r\n"
              "<dt></dt>\r\n"
              "<dd></dd>\r\n"
              "</dl>\r\n"
              "<!-- End List -->");
}

TEST(ListMarkupOf, ColorsOnceOneIsSet) {
    EXPECT_EQ(
        ListMarkup(
            {.kind = ListKind::Unordered, .rows = {{"a"}, {"b"}}, .colors = {{0x0000FF}, {0}}, .colorsSet = true}),
        "<!-- Begin List -->\r\n"
        "<ul>\r\n"
        "<li><span style=\"color:#FF0000\">a</span></li>\r\n"
        "<li><span style=\"color:#000000\">b</span></li>\r\n"
        "</ul>\r\n"
        "<!-- End List -->");
    EXPECT_EQ(ListMarkup({.kind = ListKind::Unordered, .rows = {{"a"}}, .colors = {{0x0000FF}}}),
              "<!-- Begin List -->\r\n<ul>\r\n<li>a</li>\r\n</ul>\r\n<!-- End List -->");
}

TEST(ListMarkupOf, TermsAndDefinitionsEachInTheirColor) {
    EXPECT_EQ(
        ListMarkup(
            {.kind = ListKind::Definition, .rows = {{"t", "d"}}, .colors = {{0xFF0000, 0x008000}}, .colorsSet = true}),
        "<!-- Begin List -->\r\n"
        "<dl>\r\n"
        "<dt><span style=\"color:#0000FF\">t</span></dt>\r\n"
        "<dd><span style=\"color:#008000\">d</span></dd>\r\n"
        "</dl>\r\n"
        "<!-- End List -->");
}

class ListForm : public ToolFixture {
protected:
    static void Keys(const QWidget& form, const QString& text) { QTest::keyClicks(form.focusWidget(), text); }

    static void ClickCell(const QWidget& form, int row, int column, Qt::KeyboardModifiers modifiers = {}) {
        auto& grid = Get<QTableWidget>(form, "Grid1");
        const QPoint center = grid.visualRect(grid.model()->index(row, column)).center();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, modifiers, center);
    }

    static QString Label(const QWidget& form, const QString& name) { return Get<QLabel>(form, name).text(); }

    // The color that a cell shows.
    static QString ColorAt(const QWidget& form, int row, int column) {
        const QVariant brush = Get<QTableWidget>(form, "Grid1").model()->index(row, column).data(Qt::ForegroundRole);
        return brush.isValid() ? brush.value<QBrush>().color().name() : QString();
    }
};

TEST_F(ListForm, StartsAsAnOrderedListOfOneRow) {
    Open<frmLists>([](frmLists& tool) {
        EXPECT_EQ(tool.windowTitle(), "List Builder");
        const auto& grid = Get<QTableWidget>(tool, "Grid1");
        EXPECT_EQ(grid.columnCount(), 1);
        EXPECT_EQ(grid.rowCount(), 1);
        EXPECT_EQ(tool.focusWidget()->objectName(), "Text1");
        const QStringList kinds{"Definition List", "Ordered List", "UnOrdered List", "Itemized List", "Directory List"};
        for (int i = 0; i < kinds.size(); ++i) {
            const auto& option = Get<QAbstractButton>(tool, QString("Option%1").arg(i + 1));
            EXPECT_EQ(Shown(option.text()), kinds[i]);
            EXPECT_EQ(option.isChecked(), i == 1) << i;
        }
        const auto& types = Get<QListWidget>(tool, "List1");
        QStringList offered;
        for (int i = 0; i < types.count(); ++i) offered << types.item(i)->text();
        EXPECT_EQ(offered, (QStringList{"Large Letters", "Small Letters", "Large Roman Numerals",
                                        "Small Roman Numerals", "Regular Numbers"}));
        EXPECT_EQ(types.currentRow(), 4);
        EXPECT_EQ(Label(tool, "Label4"), "Regular Numbers");
        EXPECT_EQ(Field(tool, "Text3"), "1");
        EXPECT_TRUE(Get<QWidget>(tool, "Picture1").isVisible());
        EXPECT_EQ(Label(tool, "Label5"), "No Colors Set");
        EXPECT_EQ(Caption(tool, "Text3"), "Starting Number");
        EXPECT_EQ(Label(tool, "lblRows"), "1");
    });
}

TEST_F(ListForm, WritesTheDefaultListByKeysAlone) {
    Open<frmLists>([](frmLists& tool) {
        Keys(tool, "a");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<!-- Begin List -->\r\n<ol start=\"1\" type=\"1\">\r\n<li>a</li>\r\n</ol>\r\n<!-- End List -->");
}

TEST_F(ListForm, TakesTypeStartAndRows) {
    Open<frmLists>([](frmLists& tool) {
        Keys(tool, "a");
        Click(tool, "cmdPlus");
        Click(tool, "cmdPlus");
        Click(tool, "cmdMinus");
        ClickCell(tool, 1, 0);
        Keys(tool, "b");
        auto& types = Get<QListWidget>(tool, "List1");
        QTest::mouseClick(types.viewport(), Qt::LeftButton, {}, types.visualItemRect(types.item(2)).center());
        EXPECT_EQ(Label(tool, "Label4"), "Large Roman Numerals");
        Type(tool, "Text3", "7");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              "<!-- Begin List -->\r\n"
              "<ol start=\"7\" type=\"I\">\r\n"
              "<li>a</li>\r\n"
              "<li>b</li>\r\n"
              "</ol>\r\n"
              "<!-- End List -->");
}

TEST_F(ListForm, AClearedStartLeavesTheType) {
    Open<frmLists>([](frmLists& tool) {
        Type(tool, "Text3", "");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<!-- Begin List -->\r\n<ol type=\"1\">\r\n<li></li>\r\n</ol>\r\n<!-- End List -->");
}

TEST_F(ListForm, OnlyAnOrderedListHasNumbers) {
    Open<frmLists>([](frmLists& tool) {
        const auto& numbers = Get<QWidget>(tool, "Picture1");
        for (const char* option : {"Option1", "Option3", "Option4", "Option5"}) {
            Click(tool, option);
            EXPECT_FALSE(numbers.isVisible()) << option;
        }
        Click(tool, "Option2");
        EXPECT_TRUE(numbers.isVisible());
        Click(tool, "Option4");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<!-- Begin List -->\r\n<menu>\r\n<li></li>\r\n</menu>\r\n<!-- End List -->");
}

TEST_F(ListForm, DefinitionsKeepTheFirstColumnAndStartTheSecondEmpty) {
    Open<frmLists>([](frmLists& tool) {
        const auto& grid = Get<QTableWidget>(tool, "Grid1");
        Keys(tool, "t");
        Click(tool, "Option1");
        ASSERT_EQ(grid.columnCount(), 2);
        EXPECT_LT(grid.columnWidth(0), grid.columnWidth(1));
        ClickCell(tool, 0, 1);
        Keys(tool, "gone");
        Click(tool, "Option3");
        EXPECT_EQ(grid.columnCount(), 1);
        Click(tool, "Option1");
        EXPECT_EQ(grid.model()->index(0, 1).data().toString(), "");
        ClickCell(tool, 0, 0);
        EXPECT_EQ(Get<QLineEdit>(tool, "Text1").text(), "t");
        Press(tool, Qt::Key_Tab);
        Keys(tool, "d");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<!-- Begin List -->\r\n<dl>\r\n<dt>t</dt>\r\n<dd>d</dd>\r\n</dl>\r\n<!-- End List -->");
}

TEST_F(ListForm, AColorForOneRowGivesEveryRowItsSpan) {
    bench.prompts.colors = {0x0000FF};
    Open<frmLists>([](frmLists& tool) {
        Click(tool, "cmdPlus");
        ClickCell(tool, 0, 0);
        Keys(tool, "a");
        Click(tool, "Command3");
        EXPECT_EQ(Label(tool, "Label5"), "Using Selected Colors");
        EXPECT_EQ(ColorAt(tool, 0, 0), "#ff0000");
        EXPECT_EQ(Get<QLineEdit>(tool, "Text1").palette().color(QPalette::Text), QColor("#ff0000"));
        ClickCell(tool, 1, 0);
        EXPECT_EQ(Get<QLineEdit>(tool, "Text1").palette().color(QPalette::Text), QColor(Qt::black));
        Keys(tool, "b");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              "<!-- Begin List -->\r\n"
              "<ol start=\"1\" type=\"1\">\r\n"
              "<li><span style=\"color:#FF0000\">a</span></li>\r\n"
              "<li><span style=\"color:#000000\">b</span></li>\r\n"
              "</ol>\r\n"
              "<!-- End List -->");
    EXPECT_EQ(bench.prompts.firstColors, (std::vector<ColorNumber>{0}));
}

TEST_F(ListForm, ColorsAndFillsTheSelectedRowsTogether) {
    bench.prompts.colors = {0x00FF00, 0x0000FF};
    Open<frmLists>([](frmLists& tool) {
        Click(tool, "Option3");
        for (int i = 0; i < 3; ++i) Click(tool, "cmdPlus");
        ClickCell(tool, 0, 0);
        ClickCell(tool, 2, 0, Qt::ShiftModifier);
        Keys(tool, "x");
        Click(tool, "Command3");
        ClickCell(tool, 1, 0);
        Keys(tool, "y");
        Click(tool, "Command3");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              "<!-- Begin List -->\r\n"
              "<ul>\r\n"
              "<li><span style=\"color:#00FF00\">x</span></li>\r\n"
              "<li><span style=\"color:#FF0000\">y</span></li>\r\n"
              "<li><span style=\"color:#00FF00\">x</span></li>\r\n"
              "<li><span style=\"color:#000000\"></span></li>\r\n"
              "</ul>\r\n"
              "<!-- End List -->");
    EXPECT_EQ(bench.prompts.firstColors, (std::vector<ColorNumber>{0, 0x00FF00})) << "that of the current cell";
}

TEST_F(ListForm, SelectsRowsByTheKeyboardToo) {
    bench.prompts.colors = {0x0000FF};
    Open<frmLists>([](frmLists& tool) {
        Click(tool, "Option3");
        Click(tool, "cmdPlus");
        Click(tool, "cmdPlus");
        ClickCell(tool, 0, 0);
        Press(tool, Qt::Key_Down, Qt::ShiftModifier);
        Keys(tool, "x");
        Press(tool, Qt::Key_T, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Label(tool, "Label5") == "Using Selected Colors"; }));
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              "<!-- Begin List -->\r\n"
              "<ul>\r\n"
              "<li><span style=\"color:#FF0000\">x</span></li>\r\n"
              "<li><span style=\"color:#FF0000\">x</span></li>\r\n"
              "<li><span style=\"color:#000000\"></span></li>\r\n"
              "</ul>\r\n"
              "<!-- End List -->");
}

TEST_F(ListForm, ACancelledColorChangesNothing) {
    bench.prompts.colors = {};
    Open<frmLists>([](frmLists& tool) {
        Keys(tool, "a");
        Click(tool, "Command3");
        EXPECT_EQ(Label(tool, "Label5"), "No Colors Set");
        EXPECT_EQ(ColorAt(tool, 0, 0), "");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<!-- Begin List -->\r\n<ol start=\"1\" type=\"1\">\r\n<li>a</li>\r\n</ol>\r\n<!-- End List -->");
}

TEST_F(ListForm, LightTextStandsOnADarkCell) {
    bench.prompts.colors = {0x00FFFF, 0x800000};
    Open<frmLists>([](frmLists& tool) {
        const auto background = [&] {
            return Get<QTableWidget>(tool, "Grid1").model()->index(0, 0).data(Qt::BackgroundRole);
        };
        Click(tool, "Command3");
        EXPECT_LT(background().value<QBrush>().color().lightness(), 80) << "yellow on white can't be read";
        EXPECT_LT(Get<QLineEdit>(tool, "Text1").palette().color(QPalette::Base).lightness(), 80);
        Click(tool, "Command3");
        EXPECT_EQ(background().value<QBrush>().color(), QColor(Qt::white));
        EXPECT_EQ(Get<QLineEdit>(tool, "Text1").palette().color(QPalette::Base), QColor(Qt::white));
    });
}

}  // namespace
}  // namespace vellum::test
