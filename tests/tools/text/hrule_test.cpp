#include "tools/text/hrule.h"

#include "tests/tools/tool_fixture.h"

#include <QGroupBox>

namespace vellum::test {
namespace {

TEST(HRuleMarkupOf, TheDefaults) {
    EXPECT_EQ(HRuleMarkup({}), "<hr size=\"4\" width=\"100%\" />");
}

TEST(HRuleMarkupOf, EveryField) {
    EXPECT_EQ(HRuleMarkup({.color = "RED", .height = "2", .width = "50%", .noShade = true, .raised = true}),
              "<hr color=\"RED\" size=\"2\" width=\"50%\" noshade=\"noshade\" invertborder=\"invertborder\" />");
}

TEST(HRuleMarkupOf, EmptyFieldsAreLeftOut) {
    EXPECT_EQ(HRuleMarkup({.height = "", .width = ""}), "<hr />");
    EXPECT_EQ(HRuleMarkup({.height = "", .width = "", .raised = true}), "<hr invertborder=\"invertborder\" />");
}

class HRuleForm : public ToolFixture {};

TEST_F(HRuleForm, ShowsItsCaptions) {
    Open<HRule>([](HRule& tool) {
        EXPECT_EQ(Caption(tool, "cboColor"), "Color");
        EXPECT_EQ(Caption(tool, "cboHeight"), "Height (Pixels)");
        EXPECT_EQ(Caption(tool, "cboWidth"), "Width");
        EXPECT_EQ(Shown(Get<QAbstractButton>(tool, "cmdColor").text()), "Set Color");
        EXPECT_EQ(Shown(Get<QCheckBox>(tool, "chkNoshade").text()), "Not Shaded");
        const auto* const frame = tool.findChild<QGroupBox*>();
        ASSERT_TRUE(frame);
        EXPECT_EQ(Shown(frame->title()), "WebTV");
        EXPECT_EQ(Shown(Get<QCheckBox>(*frame, "chkTVRaised").text()), "Raised Horizontal Divider");
    });
}

TEST_F(HRuleForm, OffersItsValues) {
    Open<HRule>([](HRule& tool) {
        EXPECT_EQ(tool.windowTitle(), "Horizontal Rule");
        const auto values = [&](const char* name) { return Values(tool, name).join(' '); };
        EXPECT_EQ(values("cboColor"),
                  "AQUA BLACK BLUE FUCHSIA GRAY GREEN LIME MAROON NAVY OLIVE PURPLE RED SILVER TEAL WHITE YELLOW");
        EXPECT_EQ(values("cboHeight"), "1 2 3 4 5 6 7 8 9 10");
        EXPECT_EQ(values("cboWidth"), "10% 20% 30% 40% 50% 60% 70% 80% 90% 100%");
        EXPECT_EQ(Get<QComboBox>(tool, "cboColor").currentText(), "");
        EXPECT_EQ(Get<QComboBox>(tool, "cboHeight").currentText(), "4");
        EXPECT_EQ(Get<QComboBox>(tool, "cboWidth").currentText(), "100%");
    });
}

TEST_F(HRuleForm, WritesWhatWasTypedAndChecked) {
    bench.prompts.colors = {0x0080FF};
    Open<HRule>([](HRule& tool) {
        Click(tool, "cmdColor");
        Type(tool, "cboHeight", "3");
        Type(tool, "cboWidth", "5%");
        Click(tool, "chkNoshade");
        Click(tool, "chkTVRaised");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              "<hr color=\"#FF8000\" size=\"3\" width=\"5%\" noshade=\"noshade\" invertborder=\"invertborder\" />");
}

TEST_F(HRuleForm, EnterIsOkAndEscIsCancel) {
    Open<HRule>([](HRule& tool) { QTest::keyClick(&tool, Qt::Key_Escape); });
    EXPECT_EQ(Text(), "");
    Open<HRule>([](HRule& tool) { QTest::keyClick(tool.focusWidget(), Qt::Key_Return); });
    EXPECT_EQ(Text(), "<hr size=\"4\" width=\"100%\" />");
}

TEST_F(HRuleForm, StartsWithItsDefaultsEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<HRule>([](HRule& tool) {
            EXPECT_EQ(Field(tool, "cboColor") + ' ' + Field(tool, "cboHeight") + ' ' + Field(tool, "cboWidth"),
                      " 4 100%");
            EXPECT_FALSE(Get<QCheckBox>(tool, "chkNoshade").isChecked());
            EXPECT_FALSE(Get<QCheckBox>(tool, "chkTVRaised").isChecked());
            for (const char* box : {"cboColor", "cboHeight", "cboWidth"}) Type(tool, box, "x");
            Click(tool, "chkNoshade");
            Click(tool, "chkTVRaised");
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(HRuleForm, ChoosesAColorFromBlackOn) {
    bench.prompts.colors = {0x0080FF};
    Open<HRule>([this](HRule& tool) {
        Type(tool, "cboColor", "RED");
        Click(tool, "cmdColor");
        EXPECT_EQ(bench.prompts.firstColors, std::vector<ColorNumber>{0});
    });
}

}  // namespace
}  // namespace vellum::test
