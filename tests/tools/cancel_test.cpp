// What Cancel leaves behind, over all tools.
#include "tests/tools/tool_fixture.h"
#include "tools/forms/frm_forms.h"
#include "tools/forms/frm_input.h"
#include "tools/forms/frm_search_engines.h"
#include "tools/frames/form_wizard.h"
#include "tools/frames/frame_page.h"
#include "tools/frames/frm_iframe.h"
#include "tools/links/frm_anchors.h"
#include "tools/lists/frm_lists.h"
#include "tools/media/frm_graphics.h"
#include "tools/media/frm_sound.h"
#include "tools/pages/frm_quick_start.h"
#include "tools/scripts/asp.h"
#include "tools/scripts/frm_applet.h"
#include "tools/scripts/frm_controls.h"
#include "tools/scripts/frm_insert_script.h"
#include "tools/scripts/frm_param.h"
#include "tools/scripts/frm_script_wizard.h"
#include "tools/scripts/in_script.h"
#include "tools/styles/css.h"
#include "tools/tables/frm_tables.h"
#include "tools/text/cstuff.h"
#include "tools/text/frm_fonts.h"
#include "tools/text/frm_paragraphs.h"
#include "tools/text/hrule.h"

namespace vellum::test {
namespace {

struct Leaving {
    const char* form;
    void (*open)(Workbench& bench);
    bool focusesText;  // else the keyboard stays where it was
    const char* cancel = "cmdCancel";
};

constexpr Leaving tools[] = {
    {"frmAnchors", ShowTool<frmAnchors>, true},
    {"frmApplet", ShowTool<frmApplet>, false},
    {"frmSound", ShowTool<frmSound>, false},
    {"frmFonts", ShowTool<frmFonts>, true},
    {"frmIFrame", ShowTool<frmIFrame>, false},
    {"HRule", ShowTool<HRule>, false},
    {"frmParam", ShowTool<frmParam>, false},
    {"ASP", ShowTool<ASP>, false},
    {"frmGraphics", ShowTool<frmGraphics>, false},
    {"FormWizard", ShowTool<FormWizard>, false},
    {"frmLists", ShowTool<frmLists>, false},
    {"frmParagraphs", ShowTool<frmParagraphs>, true},
    {"frmQuickStart", ShowTool<frmQuickStart>, false},
    {"FormWizard2", ShowTool<FormWizard2>, true},
    {"FormWizard3", ShowTool<FormWizard3>, true},
    {"frmScriptWizard", ShowTool<frmScriptWizard>, true},
    {"frmInsertScript", ShowTool<frmInsertScript>, true},
    {"InScript", ShowInScript, false},
    {"frmControls", ShowTool<frmControls>, false},
    {"frmTables", ShowTableBuilder, true, "Command4"},
    {"CSS", ShowTool<CSS>, false},
    {"CSS", ShowInTagStyle, false},
    {"CStuff", ShowTool<CStuff>, false},
    {"frmForms", ShowTool<frmForms>, false},
    {"frmInput", ShowTool<frmInput>, false},
    {"frmSearchEngines", ShowTool<frmSearchEngines>, false},
};

class CancelledTools : public ToolFixture {};

TEST_F(CancelledTools, WriteNothingAndGiveTheMainWindowBack) {
    document.Text1->SetText("a word.");
    QLineEdit elsewhere(&window);
    elsewhere.show();
    for (const Leaving& leaving : tools) {
        elsewhere.setFocus();
        InModal<ToolDialog>([&] { leaving.open(bench); },
                            [&](ToolDialog& tool) {
                                EXPECT_EQ(tool.objectName(), leaving.form);
                                QTest::keyClicks(tool.focusWidget(), "1");
                                window.setEnabled(false);
                                tool.setEnabled(true);
                                Click(tool, leaving.cancel);
                                EXPECT_FALSE(tool.isVisible()) << leaving.form;
                            });
        EXPECT_EQ(Text(), "a word.") << leaving.form;
        EXPECT_TRUE(window.isEnabled()) << leaving.form;
        EXPECT_EQ(window.focusWidget() == document.Text1, leaving.focusesText) << leaving.form;
    }
}

}  // namespace
}  // namespace vellum::test
