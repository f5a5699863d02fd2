#include "tools/scripts/frm_applet.h"

#include "tests/tools/tool_fixture.h"

namespace vellum::test {
namespace {

// Fields that are all empty, also those with a default.
AppletFields Nothing() {
    return {.width = "", .height = "", .hSpace = "", .vSpace = ""};
}

TEST(AppletMarkupOf, TheDefaults) {
    EXPECT_EQ(AppletMarkup({}),
              "<applet name=\"\" codebase=\"\" code=\"\" width=\"100\" height=\"100\" hspace=\"100\" vspace=\"100\">"
              "</applet>");
}

TEST(AppletMarkupOf, EmptyFields) {
    EXPECT_EQ(AppletMarkup(Nothing()), "<applet name=\"\" codebase=\"\" code=\"\"></applet>");
}

TEST(AppletMarkupOf, EveryField) {
    EXPECT_EQ(AppletMarkup({.fileName = "Clock.class",
                            .urlDirectory = "java/",
                            .name = "clock",
                            .alignment = "LEFT",
                            .width = "50",
                            .height = "60",
                            .hSpace = "7",
                            .vSpace = "8",
                            .alternateText = "A \"clock\""}),
              "<applet name=\"clock\" align=\"LEFT\" alt=\"A \"clock\"\" codebase=\"java/\" code=\"Clock.class\" "
              "width=\"50\" height=\"60\" hspace=\"7\" vspace=\"8\"></applet>");
}

TEST(AppletMarkupOf, EachFieldAlone) {
    const auto with = [](QString AppletFields::*field, const QString& text) {
        AppletFields fields = Nothing();
        fields.*field = text;
        return AppletMarkup(fields);
    };
    EXPECT_EQ(with(&AppletFields::fileName, "a"), "<applet name=\"\" codebase=\"\" code=\"a\"></applet>");
    EXPECT_EQ(with(&AppletFields::urlDirectory, "a"), "<applet name=\"\" codebase=\"a\" code=\"\"></applet>");
    EXPECT_EQ(with(&AppletFields::name, "a"), "<applet name=\"a\" codebase=\"\" code=\"\"></applet>");
    EXPECT_EQ(with(&AppletFields::alignment, "a"), "<applet name=\"\" align=\"a\" codebase=\"\" code=\"\"></applet>");
    EXPECT_EQ(with(&AppletFields::alternateText, "a"), "<applet name=\"\" alt=\"a\" codebase=\"\" code=\"\"></applet>");
    EXPECT_EQ(with(&AppletFields::width, "5"), "<applet name=\"\" codebase=\"\" code=\"\" width=\"5\"></applet>");
    EXPECT_EQ(with(&AppletFields::height, "5"), "<applet name=\"\" codebase=\"\" code=\"\" height=\"5\"></applet>");
    EXPECT_EQ(with(&AppletFields::hSpace, "5"), "<applet name=\"\" codebase=\"\" code=\"\" hspace=\"5\"></applet>");
    EXPECT_EQ(with(&AppletFields::vSpace, "5"), "<applet name=\"\" codebase=\"\" code=\"\" vspace=\"5\"></applet>");
}

class AppletForm : public ToolFixture {};

TEST_F(AppletForm, ShowsItsCaptionsAndValues) {
    Open<frmApplet>([](frmApplet& tool) {
        EXPECT_EQ(tool.windowTitle(), "Java Applet");
        const std::vector<std::pair<const char*, const char*>> captions{{"txtFilename", "Filename of Applet"},
                                                                        {"txtURLDirectory", "URL Directory of Applet"},
                                                                        {"txtName", "Name Used In HTML Code"},
                                                                        {"cboAlignment", "Alignment"},
                                                                        {"cboWidth", "Width"},
                                                                        {"cboHeight", "Height"},
                                                                        {"cboHSpace", "HSpace"},
                                                                        {"cboVSpace", "VSpace"},
                                                                        {"txtAlternate", "Alternate Text"}};
        for (const auto& [field, caption] : captions) EXPECT_EQ(Caption(tool, field), caption) << field;
        EXPECT_EQ(Values(tool, "cboAlignment"), (QStringList{"LEFT", "CENTER", "RIGHT"}));
        for (const char* box : {"cboWidth", "cboHeight", "cboHSpace", "cboVSpace"}) {
            EXPECT_EQ(Values(tool, box).join(' '), "50 100 150 200 250 300 350 400 450 500") << box;
        }
    });
}

TEST_F(AppletForm, StartsWithItsDefaultsEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<frmApplet>([](frmApplet& tool) {
            for (const char* field : {"txtFilename", "txtURLDirectory", "txtName", "txtAlternate"}) {
                EXPECT_EQ(Get<QLineEdit>(tool, field).text(), "") << field;
                Type(tool, field, "x");
            }
            EXPECT_EQ(Get<QComboBox>(tool, "cboAlignment").currentText(), "");
            for (const char* box : {"cboWidth", "cboHeight", "cboHSpace", "cboVSpace"}) {
                EXPECT_EQ(Get<QComboBox>(tool, box).currentText(), "100") << box;
                Type(tool, box, "7");
            }
            QTest::keyClick(tool.focusWidget(), Qt::Key_Escape);
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(AppletForm, WritesWhatWasTyped) {
    document.Text1->SetText("ab");
    document.Text1->SetSelStart(1);
    Open<frmApplet>([](frmApplet& tool) {
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtFilename");
        QTest::keyClicks(tool.focusWidget(), "Clock.class");
        Type(tool, "txtURLDirectory", "java/");
        Type(tool, "txtName", "clock");
        Type(tool, "cboAlignment", "left");
        Type(tool, "cboWidth", "5");
        Type(tool, "cboHeight", "50%");
        Type(tool, "cboHSpace", "");
        auto& vSpace = Get<QComboBox>(tool, "cboVSpace");
        vSpace.setFocus();
        QTest::keyClick(&vSpace, Qt::Key_Down);
        Type(tool, "txtAlternate", "A clock");
        QTest::keyClick(tool.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Text(),
              "a<applet name=\"clock\" align=\"left\" alt=\"A clock\" codebase=\"java/\" code=\"Clock.class\" "
              "width=\"5\" height=\"50%\" vspace=\"150\"></applet>b");
}

}  // namespace
}  // namespace vellum::test
