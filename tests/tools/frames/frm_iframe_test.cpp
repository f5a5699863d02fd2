#include "tools/frames/frm_iframe.h"

#include "tests/tools/tool_fixture.h"

namespace vellum::test {
namespace {

// Fields that are all empty, also the alignment.
IFrameFields Nothing() {
    return {.alignment = ""};
}

TEST(IFrameMarkupOf, TheDefaults) {
    EXPECT_EQ(IFrameMarkup({}), "<IFRAME align=\"TOP\" frameborder=\"0\" scrolling=\"no\"></iframe>");
}

TEST(IFrameMarkupOf, EmptyFields) {
    EXPECT_EQ(IFrameMarkup(Nothing()), "<IFRAME frameborder=\"0\" scrolling=\"no\"></iframe>");
}

TEST(IFrameMarkupOf, EveryField) {
    EXPECT_EQ(IFrameMarkup({.alignment = "LEFT",
                            .name = "news",
                            .id = "n1",
                            .source = "news.htm",
                            .width = "300",
                            .height = "200",
                            .marginHeight = "5",
                            .marginWidth = "6",
                            .frameBorder = true,
                            .scrollBars = true}),
              "<IFRAME align=\"LEFT\" name=\"news\" src=\"news.htm\" id=\"n1\" height=\"200\" width=\"300\" "
              "marginheight=\"5\" marginwidth=\"6\" frameborder=\"1\" scrolling=\"yes\"></iframe>");
}

TEST(IFrameMarkupOf, EachFieldAlone) {
    const std::vector<std::pair<QString IFrameFields::*, QString>> attributes{
        {&IFrameFields::alignment, "align"},
        {&IFrameFields::name, "name"},
        {&IFrameFields::source, "src"},
        {&IFrameFields::id, "id"},
        {&IFrameFields::height, "height"},
        {&IFrameFields::width, "width"},
        {&IFrameFields::marginHeight, "marginheight"},
        {&IFrameFields::marginWidth, "marginwidth"}};
    for (const auto& [field, attribute] : attributes) {
        IFrameFields fields = Nothing();
        fields.*field = "<\"&";
        EXPECT_EQ(IFrameMarkup(fields),
                  "<IFRAME " + attribute + "=\"<\"&\" frameborder=\"0\" scrolling=\"no\"></iframe>");
    }
    EXPECT_EQ(IFrameMarkup({.alignment = "", .frameBorder = true}),
              "<IFRAME frameborder=\"1\" scrolling=\"no\"></iframe>");
    EXPECT_EQ(IFrameMarkup({.alignment = "", .scrollBars = true}),
              "<IFRAME frameborder=\"0\" scrolling=\"yes\"></iframe>");
}

class IFrameForm : public ToolFixture {};

TEST_F(IFrameForm, ShowsItsCaptionsAndValues) {
    Open<frmIFrame>([](frmIFrame& tool) {
        EXPECT_EQ(tool.windowTitle(), "Floating Frame");
        const std::vector<std::pair<const char*, const char*>> captions{
            {"cboAlignment", "Alignment"},
            {"txtName", "Name"},
            {"txtID", "ID"},
            {"txtHTMLFile", "HTML File"},
            {"txtWidth", "Width (In Pixels)"},
            {"txtHeight", "Height (in Pixels)"},
            {"txtMarginHeight", "Margin Height (In Pixels)"},
            {"txtMarginWidth", "Margin Width (In Pixels)"}};
        for (const auto& [field, caption] : captions) EXPECT_EQ(Caption(tool, field), caption) << field;
        EXPECT_EQ(Get<QAbstractButton>(tool, "cmdHTMLFile").text(), "&Find");
        EXPECT_EQ(Shown(Get<QCheckBox>(tool, "chkFrameBorder").text()), "Frame Border");
        EXPECT_EQ(Shown(Get<QCheckBox>(tool, "chkScrollBars").text()), "Scroll Bars");
        EXPECT_EQ(Values(tool, "cboAlignment"), (QStringList{"TOP", "MIDDLE", "BOTTOM", "LEFT", "RIGHT"}));
    });
}

TEST_F(IFrameForm, StartsWithItsDefaultsEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<frmIFrame>([](frmIFrame& tool) {
            EXPECT_EQ(Get<QComboBox>(tool, "cboAlignment").currentText(), "TOP");
            for (const char* field :
                 {"txtName", "txtID", "txtHTMLFile", "txtWidth", "txtHeight", "txtMarginHeight", "txtMarginWidth"}) {
                EXPECT_EQ(Get<QLineEdit>(tool, field).text(), "") << field;
                Type(tool, field, "x");
            }
            for (const char* check : {"chkFrameBorder", "chkScrollBars"}) {
                EXPECT_FALSE(Get<QCheckBox>(tool, check).isChecked()) << check;
                Click(tool, check);
            }
            Type(tool, "cboAlignment", "x");
            QTest::keyClick(tool.focusWidget(), Qt::Key_Escape);
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(IFrameForm, WritesWhatWasTypedAndChecked) {
    document.Text1->SetText("ab");
    document.Text1->SetSelStart(1);
    Open<frmIFrame>([](frmIFrame& tool) {
        Type(tool, "cboAlignment", "top");
        Type(tool, "txtName", "news");
        Type(tool, "txtID", "n1");
        Type(tool, "txtHTMLFile", "news.htm");
        Type(tool, "txtWidth", "300");
        Type(tool, "txtHeight", "200");
        Type(tool, "txtMarginHeight", "5");
        Type(tool, "txtMarginWidth", "6");
        Click(tool, "chkFrameBorder");
        Click(tool, "chkScrollBars");
        QTest::keyClick(&Get<QLineEdit>(tool, "txtName"), Qt::Key_Return);
    });
    EXPECT_EQ(Text(),
              "a<IFRAME align=\"top\" name=\"news\" src=\"news.htm\" id=\"n1\" height=\"200\" width=\"300\" "
              "marginheight=\"5\" marginwidth=\"6\" frameborder=\"1\" scrolling=\"yes\"></iframe>b");
}

TEST_F(IFrameForm, FindTakesTheBareNameAndACancelChangesNothing) {
    bench.prompts.openNames = {"/elsewhere/my \"page\".htm"};
    Open<frmIFrame>([this](frmIFrame& tool) {
        Click(tool, "cmdHTMLFile");
        EXPECT_EQ(Field(tool, "txtHTMLFile"), "my \"page\".htm");
        Click(tool, "cmdHTMLFile");
        ASSERT_EQ(bench.prompts.requests.size(), 2U);
        EXPECT_EQ(bench.prompts.requests[0].directory, folder.path());
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<IFRAME align=\"TOP\" src=\"my \"page\".htm\" frameborder=\"0\" scrolling=\"no\"></iframe>");
}

}  // namespace
}  // namespace vellum::test
