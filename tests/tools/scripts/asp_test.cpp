#include "tools/scripts/asp.h"

#include "tests/tools/tool_fixture.h"

#include <QPushButton>

namespace vellum::test {
namespace {

TEST(AspMarkupOf, AVariable) {
    EXPECT_EQ(ServerVariableMarkup("QUERY_STRING"), "<%= Request.ServerVariables(\"QUERY_STRING\") %>");
    EXPECT_EQ(ServerVariableMarkup("<\"&"), "<%= Request.ServerVariables(\"<\"&\") %>");
}

TEST(AspMarkupOf, AConditional) {
    EXPECT_EQ(ConditionalMarkup("End If"), "<%= End If %>");
    EXPECT_EQ(ConditionalMarkup("If x < \"1\" Then"), "<%= If x < \"1\" Then %>");
}

class AspForm : public ToolFixture {};

TEST_F(AspForm, ShowsItsCaptionsAndValues) {
    Open<ASP>([](ASP& tool) {
        EXPECT_EQ(tool.windowTitle(), "ASP");
        EXPECT_EQ(Caption(tool, "cboServer"), "Server Variables");
        EXPECT_EQ(Caption(tool, "cboConditional"), "Conditionals");
        EXPECT_EQ(Shown(Get<QPushButton>(tool, "cmdServerOK").text()), "OK");
        EXPECT_EQ(Shown(Get<QPushButton>(tool, "cmdConditionalOK").text()), "OK");
        EXPECT_EQ(Values(tool, "cboServer"),
                  (QStringList{"ALL_HTTP",     "AUTH_PASS",         "AUTH_TYPE",       "CONTENT_LENGTH",
                               "CONTENT_TYPE", "GATEWAY_INTERFACE", "PATH_INFO",       "PATH_TRANSLATED",
                               "QUERY_STRING", "REMOTE_ADDR",       "REMOTE_HOST",     "REMOTE_IDENT",
                               "REMOTE_USER",  "REQUEST_BODY",      "REQUEST_METHOD",  "SCRIPT_NAME",
                               "SERVER_NAME",  "SERVER_PORT",       "SERVER_PROTOCOL", "SERVER_SOFTWARE"}));
        EXPECT_EQ(Values(tool, "cboConditional"), (QStringList{"Else", "End If", "If"}));
    });
}

TEST_F(AspForm, TellsItsButtonsApartToAScreenReader) {
    const ASP tool(bench);
    EXPECT_EQ(Get<QPushButton>(tool, "cmdServerOK").accessibleName(), "OK, Server Variables");
    EXPECT_EQ(Get<QPushButton>(tool, "cmdConditionalOK").accessibleName(), "OK, Conditionals");
}

TEST_F(AspForm, StartsEmptyEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<ASP>([](ASP& tool) {
            for (const char* field : {"cboServer", "cboConditional"}) {
                EXPECT_EQ(Get<QComboBox>(tool, field).currentText(), "") << field;
                Type(tool, field, "If");
            }
            Click(tool, "cmdCancel");
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(AspForm, EachButtonWritesItsOwnHalf) {
    Open<ASP>([](ASP& tool) {
        Type(tool, "cboServer", "REMOTE_USER");
        Type(tool, "cboConditional", "Else");
        Click(tool, "cmdServerOK");
    });
    EXPECT_EQ(Text(), "<%= Request.ServerVariables(\"REMOTE_USER\") %>");
    document.Text1->SetText("");
    Open<ASP>([](ASP& tool) {
        Type(tool, "cboServer", "REMOTE_USER");
        Type(tool, "cboConditional", "Else");
        Click(tool, "cmdConditionalOK");
    });
    EXPECT_EQ(Text(), "<%= Else %>");
}

TEST_F(AspForm, EnterInABoxIsTheOkOfItsHalf) {
    Open<ASP>([](ASP& tool) {
        EXPECT_EQ(tool.focusWidget()->objectName(), "cboServer");
        EXPECT_TRUE(Get<QPushButton>(tool, "cmdServerOK").isDefault());
        Type(tool, "cboConditional", "If");
        EXPECT_TRUE(Get<QPushButton>(tool, "cmdConditionalOK").isDefault());
        Type(tool, "cboServer", "QUERY_STRING");
        EXPECT_FALSE(Get<QPushButton>(tool, "cmdConditionalOK").isDefault());
        QTest::keyClick(tool.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<%= Request.ServerVariables(\"QUERY_STRING\") %>");
    document.Text1->SetText("");
    Open<ASP>([](ASP& tool) {
        Type(tool, "cboServer", "QUERY_STRING");
        Type(tool, "cboConditional", "If");
        QTest::keyClick(tool.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<%= If %>");
}

TEST_F(AspForm, AnEmptyBoxKeepsItOpen) {
    Open<ASP>([](ASP& tool) {
        Type(tool, "cboConditional", "If");
        Click(tool, "cmdServerOK");
        EXPECT_TRUE(tool.isVisible());
        EXPECT_FALSE(tool.Markup());
        Type(tool, "cboServer", "");
        QTest::keyClick(tool.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(tool.isVisible());
        Type(tool, "cboServer", "QUERY_STRING");
        Type(tool, "cboConditional", "");
        Click(tool, "cmdConditionalOK");
        QTest::keyClick(tool.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(tool.isVisible());
        EXPECT_FALSE(tool.Markup());
        QTest::keyClick(tool.focusWidget(), Qt::Key_Escape);
    });
    EXPECT_EQ(Text(), "");
}

}  // namespace
}  // namespace vellum::test
