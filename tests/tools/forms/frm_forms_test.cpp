#include "tools/forms/frm_forms.h"

#include "tests/tools/tool_fixture.h"

namespace vellum::test {
namespace {

TEST(FormMarkupOf, NoFields) {
    EXPECT_EQ(FormMarkup({}), "<!-- Begin Form -->\r\n<form>\r\n\r\n\r\n</form>\r\n<!-- Form End -->");
}

TEST(FormMarkupOf, EveryField) {
    EXPECT_EQ(FormMarkup({.name = "order",
                          .id = "i",
                          .className = "c",
                          .title = "t",
                          .url = "/cgi-bin/order?a&b",
                          .method = "GET",
                          .target = "_top",
                          .encoding = "text/plain"}),
              "<!-- Begin Form -->\r\n"
              "<form name=\"order\" id=\"i\" class=\"c\" title=\"t\" action=\"/cgi-bin/order?a&b\" method=\"GET\""
              " target=\"_top\" enctype=\"text/plain\">\r\n\r\n\r\n"
              "</form>\r\n"
              "<!-- Form End -->");
}

TEST(FormMarkupOf, EachFieldByItself) {
    const std::pair<FormFields, const char*> fields[] = {
        {{.name = "x\""}, "name=\"x\"\""}, {{.id = "x"}, "id=\"x\""},           {{.className = "x"}, "class=\"x\""},
        {{.title = "x"}, "title=\"x\""},   {{.url = "x"}, "action=\"x\""},      {{.method = "x"}, "method=\"x\""},
        {{.target = "x"}, "target=\"x\""}, {{.encoding = "x"}, "enctype=\"x\""}};
    for (const auto& [field, attribute] : fields) {
        EXPECT_EQ(FormMarkup(field),
                  QString("<!-- Begin Form -->\r\n<form %1>\r\n\r\n\r\n</form>\r\n<!-- Form End -->").arg(attribute));
    }
}

TEST(FormsByMail, KeepWhatTheMailNeedsNothingOf) {
    const FormFields mail = WithMail({.name = "n",
                                      .id = "i",
                                      .className = "c",
                                      .title = "t",
                                      .url = "u",
                                      .method = "GET",
                                      .target = "_self",
                                      .encoding = "e"},
                                     "me@example.com");
    EXPECT_EQ(mail.url, "mailto:me@example.com?subject=Posted Data");
    EXPECT_EQ(mail.method, "POST");
    EXPECT_EQ(mail.encoding, "multipart/form-data");
    EXPECT_EQ(mail.name, "MailForm");
    EXPECT_EQ(mail.id, "i");
    EXPECT_EQ(mail.className, "c");
    EXPECT_EQ(mail.title, "t");
    EXPECT_EQ(mail.target, "_self");
}

class FormForm : public ToolFixture {};

TEST_F(FormForm, ShowsItsCaptionsAndChoices) {
    Open<frmForms>([](frmForms& tool) {
        EXPECT_EQ(tool.windowTitle(), "Form Builder");
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtName");
        const std::pair<const char*, const char*> captions[] = {
            {"txtName", "Name"},   {"txtID", "ID"},      {"txtClass", "Class"},
            {"txtTitle", "Title"}, {"Combo3", "Method"}, {"Text1", "URL which processes the actions of the form"},
            {"Combo1", "Target"},  {"Combo2", "EncType"}};
        for (const auto& [name, caption] : captions) {
            EXPECT_EQ(Caption(tool, name), caption);
            EXPECT_EQ(Field(tool, name), "") << name;
        }
        EXPECT_EQ(Values(tool, "Combo3"), (QStringList{"GET", "POST"}));
        EXPECT_EQ(Values(tool, "Combo1"), (QStringList{"_blank", "_parent", "_self", "_top"}));
        EXPECT_EQ(Values(tool, "Combo2"), (QStringList{"application/x-www-form-urlencoded", "multipart/form-data"}));
        EXPECT_EQ(Shown(Get<QAbstractButton>(tool, "cmdEmail").text()), "Use E-mail For Form Handling");
    });
}

TEST_F(FormForm, WritesWhatWasTypedAndGivesTheKeyboardToTheText) {
    document.Text1->SetText("ab");
    document.Text1->SetSelStart(1);
    Open<frmForms>([](frmForms& tool) {
        for (const char* name : {"txtName", "txtID", "txtClass", "txtTitle", "Text1", "Combo3", "Combo1", "Combo2"}) {
            Type(tool, name, name);
        }
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              "a<!-- Begin Form -->\r\n"
              "<form name=\"txtName\" id=\"txtID\" class=\"txtClass\" title=\"txtTitle\" action=\"Text1\""
              " method=\"Combo3\" target=\"Combo1\" enctype=\"Combo2\">\r\n\r\n\r\n"
              "</form>\r\n"
              "<!-- Form End -->b");
    EXPECT_EQ(window.focusWidget(), document.Text1);
}

TEST_F(FormForm, PicksMethodTargetAndEncodingByTheKeyboard) {
    Open<frmForms>([](frmForms& tool) {
        for (const char* name : {"Combo3", "Combo1", "Combo2"}) {
            Get<QComboBox>(tool, name).setFocus();
            Press(tool, Qt::Key_Down);
            Press(tool, Qt::Key_Down);
        }
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(),
              "<!-- Begin Form -->\r\n"
              "<form method=\"POST\" target=\"_parent\" enctype=\"multipart/form-data\">\r\n\r\n\r\n"
              "</form>\r\n"
              "<!-- Form End -->");
}

TEST_F(FormForm, FillsInAnEmailAddress) {
    bench.prompts.inputs = {"me@example.com"};
    Open<frmForms>([](frmForms& tool) {
        for (const char* name : {"txtName", "txtID", "txtClass", "txtTitle"}) Type(tool, name, name);
        Click(tool, "cmdEmail");
        EXPECT_EQ(Field(tool, "Text1"), "mailto:me@example.com?subject=Posted Data");
        EXPECT_EQ(Field(tool, "Combo3"), "POST");
        EXPECT_EQ(Field(tool, "Combo2"), "multipart/form-data");
        EXPECT_EQ(Field(tool, "txtName"), "MailForm");
        EXPECT_EQ(Field(tool, "txtTitle"), "txtTitle");
        EXPECT_EQ(Field(tool, "txtID"), "txtID");
        EXPECT_EQ(Field(tool, "txtClass"), "txtClass");
        Type(tool, "txtName", "mine");
        Type(tool, "Combo2", "");
        Click(tool, "cmdOK");
    });
    ASSERT_EQ(bench.prompts.questions.size(), 1);
    EXPECT_TRUE(bench.prompts.questions.front().startsWith("Enter E-mail address|"));
    EXPECT_EQ(Text(),
              "<!-- Begin Form -->\r\n"
              "<form name=\"mine\" id=\"txtID\" class=\"txtClass\" title=\"txtTitle\""
              " action=\"mailto:me@example.com?subject=Posted Data\" method=\"POST\">\r\n\r\n\r\n"
              "</form>\r\n"
              "<!-- Form End -->");
}

TEST_F(FormForm, LeavesTheFieldsWithoutAnAddress) {
    bench.prompts.inputs = {""};  // and the second box is cancelled
    Open<frmForms>([](frmForms& tool) {
        Type(tool, "txtName", "n");
        Type(tool, "Combo3", "GET");
        for (int i = 0; i < 2; ++i) {
            Click(tool, "cmdEmail");
            EXPECT_EQ(Field(tool, "Text1"), "");
            EXPECT_EQ(Field(tool, "Combo3"), "GET");
            EXPECT_EQ(Field(tool, "Combo2"), "");
            EXPECT_EQ(Field(tool, "txtName"), "n");
        }
    });
    EXPECT_EQ(bench.prompts.questions.size(), 2);
    EXPECT_EQ(Text(), "");
}

}  // namespace
}  // namespace vellum::test
