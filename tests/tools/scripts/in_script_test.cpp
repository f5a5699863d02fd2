#include "tools/scripts/in_script.h"

#include "tests/tools/tool_fixture.h"

namespace vellum::test {
namespace {

TEST(EventAttributeOf, EveryField) {
    EXPECT_EQ(EventAttribute({.language = "VBS", .event = "onclick", .code = "MsgBox \"x\""}),
              " language=\"VBS\" onclick=\"MsgBox \"x\"\"");
}

TEST(EventAttributeOf, NoLanguageLeavesTwoBlanks) {
    EXPECT_EQ(EventAttribute({.language = "", .event = "onload", .code = "f()"}), "  onload=\"f()\"");
}

TEST(EventAttributeOf, NothingWithoutEventOrCode) {
    EXPECT_EQ(EventAttribute({.event = "", .code = "f()"}), std::nullopt);
    EXPECT_EQ(EventAttribute({.event = "onload", .code = ""}), std::nullopt);
    EXPECT_EQ(EventAttribute({}), std::nullopt);
}

class InScriptForm : public ToolFixture {
protected:
    void OpenTool(const std::function<void(InScript&)>& steps) {
        InModal<InScript>([this] { ShowInScript(bench); }, steps);
    }

    void PutCaretIntoATag() const {
        document.Text1->SetText("\t<p>x</p>");
        document.Text1->SetSelStart(3);
    }
};

TEST_F(InScriptForm, ShowsItsCaptionsAndValues) {
    OpenTool([](InScript& tool) {
        EXPECT_EQ(tool.windowTitle(), "In-tag Scripts");
        EXPECT_EQ(Caption(tool, "cboLanguage"), "Language");
        EXPECT_EQ(Caption(tool, "cboEvent"), "Event");
        EXPECT_EQ(Caption(tool, "txtString"), "Code");
        EXPECT_EQ(Values(tool, "cboLanguage"), (QStringList{"Javascript", "JScript", "VBS", "VBScript"}));
        EXPECT_EQ(Field(tool, "cboLanguage"), "Javascript");
        EXPECT_EQ(Field(tool, "cboEvent"), "");
        EXPECT_EQ(Field(tool, "txtString"), "");
        EXPECT_EQ(Values(tool, "cboEvent").join(' '),
                  "onabort onafterupdate onbeforeunload onbeforeupdate onblur onbounce onchange onclick "
                  "ondataavailable ondatasetchanged ondatasetcomplete ondblclick ondragstart onerror onerrorupdate "
                  "onfilterchange onfinish onfocus onhelp onkeydown onkeypress onkeyup onload onmousedown onmousemove "
                  "onmouseout onmouseover onmouseup onreadystatechange onreset onresize onrowenter onrowexit onscroll "
                  "onselect onselectstart onstart onsubmit onunload");
    });
}

TEST_F(InScriptForm, WritesIntoTheTagAsOneStepOfUndo) {
    PutCaretIntoATag();
    OpenTool([](InScript& tool) {
        Type(tool, "cboEvent", "onclick");
        Type(tool, "txtString", "f()");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "\t<p language=\"Javascript\" onclick=\"f()\">x</p>");
    EXPECT_FALSE(document.Saver());
    EXPECT_EQ(window.focusWidget(), document.Text1);
    document.HandleUndo();
    EXPECT_EQ(Text(), "\t<p>x</p>");
}

TEST_F(InScriptForm, ReplacesTheSelection) {
    document.Text1->SetText("<p >x</p>");
    document.Text1->SetSelStart(2);
    document.Text1->SetSelLength(1);
    OpenTool([](InScript& tool) {
        Type(tool, "cboLanguage", "");
        Type(tool, "cboEvent", "e");
        Type(tool, "txtString", "c");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<p  e=\"c\">x</p>");
}

TEST_F(InScriptForm, AsksForEventAndCode) {
    const QString message = "Please fill out both the Event box and the Code box.";
    PutCaretIntoATag();
    OpenTool([&](InScript& tool) {
        Click(tool, "cmdOK");
        EXPECT_EQ(bench.prompts.messages, QStringList{message});
        Type(tool, "cboEvent", "onclick");
        Click(tool, "cmdOK");
        EXPECT_EQ(bench.prompts.messages.size(), 2);
        Type(tool, "cboEvent", "");
        Type(tool, "txtString", "f()");
        Click(tool, "cmdOK");
        EXPECT_EQ(bench.prompts.messages, (QStringList{message, message, message}));
        EXPECT_TRUE(tool.isVisible());
    });
    EXPECT_EQ(Text(), "\t<p>x</p>");
}

TEST_F(InScriptForm, WritesNothingWithoutADocument) {
    OpenTool([this](InScript& tool) {
        Type(tool, "cboEvent", "onclick");
        Type(tool, "txtString", "f()");
        bench.active = nullptr;
        Click(tool, "cmdOK");
        EXPECT_FALSE(tool.isVisible());
    });
    EXPECT_EQ(Text(), "");
}

}  // namespace
}  // namespace vellum::test
