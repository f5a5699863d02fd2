// The reference tree in the main window: built at the start and with each change of its settings.
#include "tests/shell/main_window_fixture.h"
#include "website/website_panel.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

class ReferencePanelTest : public MainWindowFixture {
protected:
    [[nodiscard]] QStringList ShownRoots() const {
        const QAbstractItemModel& model = *window->Picture11->TreeView1->model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) texts << model.index(row, 0).data().toString();
        return texts;
    }
};

TEST_F(ReferencePanelTest, ShowsTheShippedDocumentTypesFromTheStart) {
    Open();
    EXPECT_EQ(ShownRoots().first(), "XHTML1 Transitional");
    EXPECT_TRUE(ShownRoots().contains("SMIL 1.0"));
    EXPECT_GT(window->References().Node(1).children.size(), 80U);
    EXPECT_EQ(window->Picture11->TreeView1->currentIndex().data().toString(), "XHTML1 Transitional");
    EXPECT_NE(window->windowTitle(), "ga");
}

TEST_F(ReferencePanelTest, FollowsTheSettings) {
    Open();
    WriteSetting(settings, keys::dtdXhtml, "1");
    WriteSetting(settings, keys::dtdSmil, "0");
    window->AddTags();
    EXPECT_EQ(ShownRoots().first(), "XHTML1 Strict");
    EXPECT_FALSE(ShownRoots().contains("SMIL 1.0"));
}

}  // namespace
}  // namespace vellum::test
