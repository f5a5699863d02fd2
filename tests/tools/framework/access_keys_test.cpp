#include "tools/framework/access_keys.h"

#include "tests/tools/tool_fixture.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace vellum::test {
namespace {

TEST(AccessKeys, AreTheFirstLettersOfWordsFirst) {
    EXPECT_EQ(WithAccessKeys({"Color", "Height (Pixels)", "Width"}),
              (QStringList{"&Color", "&Height (Pixels)", "&Width"}));
    EXPECT_EQ(WithAccessKeys({"Link Caption", "Link Target"}), (QStringList{"&Link Caption", "Link &Target"}));
}

TEST(AccessKeys, AreThenAnyLetter) {
    EXPECT_EQ(WithAccessKeys({"Color", "Color", "Color"}), (QStringList{"&Color", "C&olor", "Co&lor"}));
}

TEST(AccessKeys, StayWhereTheyAreWritten) {
    EXPECT_EQ(WithAccessKeys({"Cover", "&Cancel"}), (QStringList{"C&over", "&Cancel"}));
    EXPECT_EQ(WithAccessKeys({"Black && White"}), (QStringList{"&Black && White"}));
}

TEST(AccessKeys, KeepClearOfThoseThatAreTaken) {
    EXPECT_EQ(WithAccessKeys({"Color"}, "co"), (QStringList{"Co&lor"}));
}

TEST(AccessKeys, RunOut) {
    EXPECT_EQ(WithAccessKeys({"aa", "a", "..."}), (QStringList{"&aa", "a", "..."}));
}

// A frame with a letter of its own, and one without, whose fields want it too.
class FramedTool : public ToolDialog {
public:
    explicit FramedTool(Workbench& bench) : ToolDialog(bench, "FramedTool", "Frames") {
        AddFrame("&Lines", [this] { AddCheck(check_, "chkOne", "Lower"); });
        AddFrame("More", [this] { AddCheck(check_, "chkTwo", "Mixed"); });
        Finish([] { return QString(); });
    }

private:
    bool check_ = false;
};

TEST_F(ToolFixture, AFrameKeepsItsLetterForItself) {
    const FramedTool tool(bench);
    EXPECT_EQ(Get<QCheckBox>(tool, "chkOne").text(), "Lo&wer");
    EXPECT_EQ(Get<QCheckBox>(tool, "chkTwo").text(), "&Mixed");
    QStringList titles;
    for (const QGroupBox* frame : tool.findChildren<QGroupBox*>()) titles << frame->title();
    EXPECT_EQ(titles, (QStringList{"&Lines", "More"}));
}

// Two panes with a field each.
class PanedTool : public ToolDialog {
public:
    explicit PanedTool(Workbench& bench) : ToolDialog(bench, "PanedTool", "Panes") {
        AddPane("First");
        AddText(text_, "txtOne", "Name");
        AddPane("Second");
        AddText(text_, "txtTwo", "Name");
        AddCheck(check_, "chkTwo", "Nothing");
        Finish([] { return QString(); });
    }

private:
    QString text_;
    bool check_ = false;
};

TEST_F(ToolFixture, EachPaneHasTheLettersForItself) {
    const PanedTool tool(bench);
    const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
    EXPECT_EQ(tabs.tabText(0), "&First");
    EXPECT_EQ(tabs.tabText(1), "&Second");
    QStringList labels;
    for (const QLabel* label : tool.findChildren<QLabel*>()) {
        if (label->buddy()) labels << label->text();
    }
    EXPECT_EQ(labels, (QStringList{"&Name", "&Name"}));
    EXPECT_EQ(Get<QCheckBox>(tool, "chkTwo").text(), "No&thing") << "s and the like are of the tabs and the buttons";
    EXPECT_EQ(Get<QPushButton>(tool, "cmdOK").text(), "&OK");
}

// Two panes that take turns, with a field each.
class StackedTool : public ToolDialog {
public:
    explicit StackedTool(Workbench& bench) : ToolDialog(bench, "StackedTool", "Panes") {
        AddText(text_, "txtOutside", "Place");
        AddStack("picPane", {[this] { AddText(text_, "txtOne", "Name"); },
                             [this] {
                                 AddText(text_, "txtTwo", "Name");
                                 AddText(text_, "txtThree", "Part");
                             }});
        Finish([] { return QString(); });
    }

private:
    QString text_;
};

TEST_F(ToolFixture, PanesThatTakeTurnsHaveTheLettersForThemselves) {
    const StackedTool tool(bench);
    QStringList labels;
    for (const QLabel* label : tool.findChildren<QLabel*>()) {
        if (label->buddy()) labels << label->text();
    }
    labels.sort();
    EXPECT_EQ(labels, (QStringList{"&Name", "&Name", "&Place", "P&art"}));
}

}  // namespace
}  // namespace vellum::test
