#include "tools/framework/side_tabs.h"

#include "tests/tools/tool_fixture.h"

namespace vellum::test {
namespace {

// Three panes, with a field on the last.
class AsideTool : public ToolDialog {
public:
    explicit AsideTool(Workbench& bench) : ToolDialog(bench, "AsideTool", "Aside") {
        PutTabsAside();
        AddPane("A caption that is rather long");
        AddPane("Another one that is long too");
        AddPane("Short");
        AddText(text_, "txtThree", "Name");
        Finish([this] { return text_; });
    }

private:
    QString text_;
};

class SideTabs : public ToolFixture {
protected:
    static QTabBar& Bar(const QWidget& form) { return *Get<QTabWidget>(form, "TabStrip1").tabBar(); }
};

TEST_F(SideTabs, StandOneBelowTheOther) {
    Open<AsideTool>([](AsideTool& tool) {
        const QTabBar& bar = Bar(tool);
        for (int i = 0; i < 3; ++i) {
            EXPECT_GE(bar.tabRect(i).width(), bar.fontMetrics().horizontalAdvance("A caption that is rather long"));
            EXPECT_LT(bar.tabRect(i).height(), bar.tabRect(i).width() / 2);
            EXPECT_GE(bar.tabRect(i).top(), i == 0 ? 0 : bar.tabRect(i - 1).bottom());
        }
        EXPECT_LT(tool.width(), 3 * bar.width()) << "the form is not as wide as all captions in a row";
    });
}

// In the middle of a long caption there are letters, as there are none beside a turned one.
TEST_F(SideTabs, ReadFromLeftToRight) {
    Open<AsideTool>([](AsideTool& tool) {
        QTabBar& bar = Bar(tool);
        const QImage picture = bar.grab(bar.tabRect(1)).toImage();
        const int margin = 12;
        int inked = 0;
        for (int x = margin; x < picture.width() - margin; ++x) {
            bool ink = false;
            for (int y = 4; y < picture.height() - 4; ++y) ink = ink || qGray(picture.pixel(x, y)) < 100;
            if (ink) ++inked;
        }
        EXPECT_GT(inked, (picture.width() - 2 * margin) / 2);
    });
}

TEST_F(SideTabs, AreWalkedByTheArrowKeys) {
    Open<AsideTool>([](AsideTool& tool) {
        QTabBar& bar = Bar(tool);
        bar.setFocus();
        const std::pair<Qt::Key, int> keys[] = {{Qt::Key_Up, 0},   {Qt::Key_Down, 1}, {Qt::Key_Down, 2},
                                                {Qt::Key_Down, 2}, {Qt::Key_Left, 1}, {Qt::Key_Up, 0}};
        for (const auto& [key, index] : keys) {
            QTest::keyClick(&bar, key);
            EXPECT_EQ(bar.currentIndex(), index);
            EXPECT_TRUE(bar.hasFocus());
        }
        Tab(tool, 2);
        Type(tool, "txtThree", "x");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "x");
}

}  // namespace
}  // namespace vellum::test
