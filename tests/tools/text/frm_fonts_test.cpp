#include "tools/text/frm_fonts.h"

#include "tests/tools/tool_fixture.h"

#include <QGroupBox>

namespace vellum::test {
namespace {

TEST(FontMarkupOf, EmptyFields) {
    EXPECT_EQ(FontMarkup({}, ""), "<font></font>");
    EXPECT_EQ(FontMarkup({}, "a & b"), "<font>a & b</font>");
}

TEST(FontMarkupOf, EveryField) {
    EXPECT_EQ(FontMarkup({.size = "5",
                          .color = "#FF8000",
                          .primary = "Verdana",
                          .secondary = "Courier New",
                          .effect = "relief",
                          .transparency = "50"},
                         "word"),
              "<font face=\"Verdana,Courier New\" size=\"5\" color=\"#FF8000\" effect=\"relief\" "
              "transparency=\"50\">word</font>");
}

TEST(FontMarkupOf, EachFieldAlone) {
    const std::vector<std::pair<QString FontFields::*, QString>> attributes{
        {&FontFields::primary, "face"}, {&FontFields::secondary, "face"}, {&FontFields::size, "size"},
        {&FontFields::color, "color"},  {&FontFields::effect, "effect"},  {&FontFields::transparency, "transparency"}};
    for (const auto& [field, attribute] : attributes) {
        FontFields fields;
        fields.*field = "<\"&";
        EXPECT_EQ(FontMarkup(fields, "x"), "<font " + attribute + "=\"<\"&\">x</font>");
    }
}

class FontForm : public ToolFixture {
protected:
    void SetUp() override {
        ToolFixture::SetUp();
        bench.fontNames = {"Verdana", "Zapf", "Arial"};
    }
};

TEST_F(FontForm, ShowsItsCaptionsAndValues) {
    Open<frmFonts>([](frmFonts& tool) {
        EXPECT_EQ(tool.windowTitle(), "Font Wizard");
        const std::vector<std::pair<const char*, const char*>> captions{{"cboSize", "Font Size"},
                                                                        {"cboColor", "Font Color"},
                                                                        {"cboPrimary", "Primary Font Name"},
                                                                        {"cboSecondary", "Secondary Font Name"},
                                                                        {"cboEffect", "Effect"},
                                                                        {"cboTransparency", "Transparency"}};
        for (const auto& [field, caption] : captions) EXPECT_EQ(Caption(tool, field), caption) << field;
        EXPECT_EQ(Shown(Get<QAbstractButton>(tool, "cmdColor").text()), "Choose");
        auto* const frame = tool.findChild<QGroupBox*>();
        ASSERT_TRUE(frame);
        EXPECT_EQ(Shown(frame->title()), "WebTV");
        for (const char* field : {"cboEffect", "cboTransparency"}) EXPECT_TRUE(frame->findChild<QComboBox*>(field));
        EXPECT_EQ(Values(tool, "cboSize"), QString("1 2 3 4 5 6 7").split(' '));
        EXPECT_EQ(Values(tool, "cboColor").size(), 16);
        EXPECT_EQ(Values(tool, "cboEffect"), (QStringList{"emboss", "relief", "shadow"}));
        EXPECT_EQ(Values(tool, "cboTransparency"), QString("0 10 20 30 40 50 60 70 80 90 100").split(' '));
    });
}

TEST_F(FontForm, OffersTheFontsInTheirOrder) {
    Open<frmFonts>([](frmFonts& tool) {
        for (const char* field : {"cboPrimary", "cboSecondary"}) {
            EXPECT_EQ(Values(tool, field), (QStringList{"Verdana", "Zapf", "Arial"})) << field;
        }
    });
}

TEST_F(FontForm, StartsEmptyEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<frmFonts>([](frmFonts& tool) {
            for (const char* field :
                 {"cboSize", "cboColor", "cboPrimary", "cboSecondary", "cboEffect", "cboTransparency"}) {
                EXPECT_EQ(Get<QComboBox>(tool, field).currentText(), "") << field;
                Type(tool, field, "other");
            }
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(FontForm, StandsAroundTheSelection) {
    document.Text1->SetText("a word.");
    document.Text1->SetSelStart(2);
    document.Text1->SetSelLength(4);
    Open<frmFonts>([](frmFonts& tool) {
        Type(tool, "cboSize", "+1");
        Type(tool, "cboPrimary", "Times New Roman");
        QTest::keyClick(&Get<QComboBox>(tool, "cboSecondary"), Qt::Key_Down);
        Type(tool, "cboEffect", "shadow");
        Type(tool, "cboTransparency", "15");
        QTest::keyClick(tool.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Text(),
              "a <font face=\"Times New Roman,Verdana\" size=\"+1\" effect=\"shadow\" "
              "transparency=\"15\">word</font>.");
}

TEST_F(FontForm, TakesASecondaryNameAlone) {
    Open<frmFonts>([](frmFonts& tool) {
        Type(tool, "cboSecondary", "Arial");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<font face=\"Arial\"></font>");
}

TEST_F(FontForm, ChoosesAColorFromTheOneThatStandsThere) {
    bench.prompts.colors = {0x0080FF};
    Open<frmFonts>([this](frmFonts& tool) {
        Type(tool, "cboColor", "#102030");
        Click(tool, "cmdColor");
        EXPECT_EQ(bench.prompts.firstColors, std::vector<ColorNumber>{0x302010});
        EXPECT_EQ(Get<QComboBox>(tool, "cboColor").currentText(), "#FF8000");
        Click(tool, "cmdColor");
        EXPECT_EQ(Get<QComboBox>(tool, "cboColor").currentText(), "#FF8000") << "the dialog was cancelled";
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<font color=\"#FF8000\"></font>");
}

}  // namespace
}  // namespace vellum::test
