#include "tools/scripts/frm_insert_script.h"

#include "tests/tools/tool_fixture.h"

namespace vellum::test {
namespace {

constexpr auto javascript = "<!--\r\n// <![CDATA[\r\n\r\n\r\n// ]]>\r\n// -->\r\n</script>";
constexpr auto vbScript = "<!--\r\n' <![CDATA[\r\n\r\n\r\n' ]]>\r\n-->\r\n</script>";

TEST(ScriptElementOf, TheDefaults) {
    EXPECT_EQ(ScriptElement({}), QString("<script language=\"Javascript\">\r\n") + javascript);
}

TEST(ScriptElementOf, ASource) {
    EXPECT_EQ(ScriptElement({.source = "a\".js"}),
              QString("<script language=\"Javascript\" src=\"a\".js\">\r\n") + javascript);
    EXPECT_EQ(ScriptElement({.language = "", .source = "a.js"}), QString("<script src=\"a.js\">\r\n") + javascript);
}

TEST(ScriptElementOf, EveryKindOfLanguage) {
    const std::pair<const char*, const char*> fences[] = {{"Javascript", javascript}, {"JScript", javascript},
                                                          {"j", javascript},          {"VBScript", vbScript},
                                                          {"VBS", vbScript},          {"vb", vbScript}};
    for (const auto& [language, fence] : fences) {
        EXPECT_EQ(ScriptElement({.language = language}),
                  QString("<script language=\"%1\">\r\n%2").arg(language, fence));
    }
    EXPECT_EQ(ScriptElement({.language = ""}), QString("<script>\r\n") + javascript);
}

TEST(ScriptElementOf, AnotherLanguageLeavesTheCommentOpen) {
    for (const char* language : {"PerlScript", "v", "V", " Javascript"}) {
        EXPECT_EQ(ScriptElement({.language = language}),
                  QString("<script language=\"%1\">\r\n<!--\r\n</script>").arg(language));
    }
}

class InsertScriptForm : public ToolFixture {};

TEST_F(InsertScriptForm, ShowsItsCaptionsAndValues) {
    Open<frmInsertScript>([](frmInsertScript& tool) {
        EXPECT_EQ(tool.windowTitle(), "Insert Script");
        EXPECT_EQ(Caption(tool, "cboScript"), "Language");
        EXPECT_EQ(Caption(tool, "txtSource"), "Source");
        EXPECT_EQ(Values(tool, "cboScript"), (QStringList{"Javascript", "JScript", "VBScript", "VBS"}));
        EXPECT_EQ(Field(tool, "cboScript"), "Javascript");
        EXPECT_EQ(Field(tool, "txtSource"), "");
    });
}

TEST_F(InsertScriptForm, WritesWhatWasTyped) {
    Open<frmInsertScript>([](frmInsertScript& tool) {
        QTest::keyClicks(tool.focusWidget(), "VBS");
        Type(tool, "txtSource", "a.vbs");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), QString("<script language=\"VBS\" src=\"a.vbs\">\r\n") + vbScript);
}

}  // namespace
}  // namespace vellum::test
