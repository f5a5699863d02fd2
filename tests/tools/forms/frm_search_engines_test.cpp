#include "tools/forms/frm_search_engines.h"

#include "tests/tools/tool_fixture.h"
#include "tools/forms/search_forms.h"

#include <QListWidget>

namespace vellum::test {
namespace {

class SearchForm : public ToolFixture {
protected:
    static QPoint PlaceOf(const QListWidget& list, int row) { return list.visualItemRect(list.item(row)).center(); }
};

TEST_F(SearchForm, ListsTheEngines) {
    Open<frmSearchEngines>([](frmSearchEngines& tool) {
        EXPECT_EQ(tool.windowTitle(), "Insert Internet Searches");
        const auto& list = Get<QListWidget>(tool, "List1");
        QStringList shown;
        for (int row = 0; row < list.count(); ++row) {
            shown << list.item(row)->text();
            EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.item(row)))) << row;
        }
        EXPECT_EQ(shown, SearchEngineNames());
        EXPECT_EQ(list.currentRow(), 0);
        EXPECT_EQ(tool.focusWidget(), &list);
    });
}

TEST_F(SearchForm, WritesTheFormOfTheEngineThatIsClicked) {
    const QStringList names = SearchEngineNames();
    for (int row = 0; row < names.size(); ++row) {
        document.Text1->SetText("ab");
        document.Text1->SetSelStart(1);
        Open<frmSearchEngines>([row](frmSearchEngines& tool) {
            const auto& list = Get<QListWidget>(tool, "List1");
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, PlaceOf(list, row));
            Click(tool, "cmdOK");
        });
        EXPECT_EQ(Text(), 'a' + SearchMarkup(names[row]) + 'b');
    }
}

TEST_F(SearchForm, WritesTheFormOfAnEngineByKeysAlone) {
    Open<frmSearchEngines>([](frmSearchEngines& tool) {
        Press(tool, Qt::Key_Down);
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), SearchMarkup("Excite"));
}

TEST_F(SearchForm, TakesADoubleClickForOk) {
    Open<frmSearchEngines>([](frmSearchEngines& tool) {
        const auto& list = Get<QListWidget>(tool, "List1");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, PlaceOf(list, 4));
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, PlaceOf(list, 4));
        EXPECT_FALSE(tool.isVisible());
    });
    EXPECT_EQ(Text(), SearchMarkup("Webcrawler"));
}

}  // namespace
}  // namespace vellum::test
