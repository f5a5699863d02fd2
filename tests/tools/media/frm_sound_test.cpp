#include "tools/media/frm_sound.h"

#include "tests/tools/tool_fixture.h"

namespace vellum::test {
namespace {

TEST(BackgroundSoundMarkupOf, EmptyAndFullFields) {
    EXPECT_EQ(BackgroundSoundMarkup({}), "<bgsound src=\"\" loop=\"INFINITE\">");
    EXPECT_EQ(BackgroundSoundMarkup({.loop = ""}), "<bgsound src=\"\">");
    EXPECT_EQ(BackgroundSoundMarkup({.source = "a.mid", .loop = ""}), "<bgsound src=\"a.mid\">");
    EXPECT_EQ(BackgroundSoundMarkup({.source = "a \"b\".mid", .loop = "3"}),
              "<bgsound src=\"a \"b\".mid\" loop=\"3\">");
}

TEST(EmbeddedSoundMarkupOf, EmptyAndFullFields) {
    EXPECT_EQ(EmbeddedSoundMarkup({}), "<embed src=\"\" autostart=\"false\" hidden=\"false\">");
    EXPECT_EQ(EmbeddedSoundMarkup({.autoStart = true}), "<embed src=\"\" autostart=\"true\" hidden=\"false\">");
    EXPECT_EQ(EmbeddedSoundMarkup({.hidden = true}), "<embed src=\"\" autostart=\"false\" hidden=\"true\">");
    EXPECT_EQ(EmbeddedSoundMarkup({.source = "a.wav", .autoStart = true, .hidden = true}),
              "<embed src=\"a.wav\" autostart=\"true\" hidden=\"true\">");
}

TEST(AudioscopeMarkupOf, EmptyFields) {
    EXPECT_EQ(AudioscopeMarkup({}), "<audioscope></audioscope>");
}

TEST(AudioscopeMarkupOf, EveryField) {
    EXPECT_EQ(AudioscopeMarkup({.alignment = "left",
                                .border = "2",
                                .width = "90",
                                .height = "40",
                                .leftColor = "RED",
                                .rightColor = "#0000FF"}),
              "<audioscope align=\"left\" border=\"2\" width=\"90\" height=\"40\" leftcolor=\"RED\" "
              "rightcolor=\"#0000FF\"></audioscope>");
}

TEST(AudioscopeMarkupOf, EachFieldAlone) {
    EXPECT_EQ(AudioscopeMarkup({.alignment = "left"}), "<audioscope align=\"left\"></audioscope>");
    EXPECT_EQ(AudioscopeMarkup({.border = "2"}), "<audioscope border=\"2\"></audioscope>");
    EXPECT_EQ(AudioscopeMarkup({.leftColor = "RED"}), "<audioscope leftcolor=\"RED\"></audioscope>");
    EXPECT_EQ(AudioscopeMarkup({.rightColor = "RED"}), "<audioscope rightcolor=\"RED\"></audioscope>");
}

TEST(AudioscopeMarkupOf, TheHeightGoesWithTheWidth) {
    EXPECT_EQ(AudioscopeMarkup({.height = "5"}), "<audioscope></audioscope>");
    EXPECT_EQ(AudioscopeMarkup({.width = "5"}), "<audioscope width=\"5\" height=\"\"></audioscope>");
}

class SoundForm : public ToolFixture {};

TEST_F(SoundForm, ShowsItsCaptionsAndValues) {
    Open<frmSound>([](frmSound& tool) {
        EXPECT_EQ(tool.windowTitle(), "Background Sounds");
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        ASSERT_EQ(tabs.count(), 3);
        EXPECT_EQ(Shown(tabs.tabText(0)), "    BGSOUND");
        EXPECT_EQ(Shown(tabs.tabText(1)), "      EMBED");
        EXPECT_EQ(Shown(tabs.tabText(2)), "AUDIOSCOPE (WebTV)");
        const std::vector<std::pair<const char*, const char*>> captions{{"txtSource", "Source"},
                                                                        {"cboLoop", "Loop"},
                                                                        {"txtEmbedSource", "Source"},
                                                                        {"cboAlignment", "Alignment"},
                                                                        {"cboBorder", "Border"},
                                                                        {"txtWidth", "Width (Pixels)"},
                                                                        {"txtHeight", "Height (Pixels)"},
                                                                        {"cboLeftColor", "Left Channel Color"},
                                                                        {"cboRightColor", "Right Channel Color"}};
        for (const auto& [field, caption] : captions) EXPECT_EQ(Caption(tool, field), caption) << field;
        const std::vector<std::pair<const char*, const char*>> buttons{{"cmdSource", "Find"},
                                                                       {"cmdEmbedSource", "Find"},
                                                                       {"cmdLeftColor", "Color"},
                                                                       {"cmdRightColor", "Color"},
                                                                       {"chkAutoStart", "Start music on page load"},
                                                                       {"chkHidden", "Controls Hidden"}};
        for (const auto& [field, caption] : buttons) {
            EXPECT_EQ(Shown(Get<QAbstractButton>(tool, field).text()), caption) << field;
        }
        EXPECT_EQ(Values(tool, "cboLoop").join(' '), "INFINITE 1 2 3 4 5 10 20 50 100");
        EXPECT_EQ(Values(tool, "cboAlignment").join(' '),
                  "absbottom absmiddle baseline bottom left middle right texttop top");
        EXPECT_EQ(Values(tool, "cboBorder").join(' '), "1 2 3 4 5 6 7 8 9 10");
        for (const char* box : {"cboLeftColor", "cboRightColor"}) {
            EXPECT_EQ(Values(tool, box).join(' '),
                      "AQUA BLACK BLUE FUCHSIA GRAY GREEN LIME MAROON NAVY OLIVE PURPLE RED SILVER TEAL WHITE YELLOW");
        }
    });
}

TEST_F(SoundForm, StartsWithItsDefaultsEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<frmSound>([](frmSound& tool) {
            EXPECT_EQ(Get<QTabWidget>(tool, "TabStrip1").currentIndex(), 0);
            EXPECT_EQ(tool.focusWidget()->objectName(), "txtSource");
            for (const QLineEdit* field : tool.findChildren<QLineEdit*>()) {
                const bool loop = field->parent()->objectName() == "cboLoop";
                EXPECT_EQ(field->text(), loop ? "INFINITE" : "") << field->objectName().toStdString();
            }
            EXPECT_FALSE(Get<QCheckBox>(tool, "chkAutoStart").isChecked());
            EXPECT_FALSE(Get<QCheckBox>(tool, "chkHidden").isChecked());
            Type(tool, "txtSource", "a.mid");
            Type(tool, "cboLoop", "2");
            Tab(tool, 1);
            Type(tool, "txtEmbedSource", "a.mid");
            Click(tool, "chkAutoStart");
            Click(tool, "chkHidden");
            Press(tool, Qt::Key_Escape);
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(SoundForm, WritesABackgroundSound) {
    Open<frmSound>([](frmSound& tool) {
        QTest::keyClicks(tool.focusWidget(), "a.mid");
        Type(tool, "cboLoop", "7");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<bgsound src=\"a.mid\" loop=\"7\">");
}

TEST_F(SoundForm, ABoxKeepsTheCaseThatIsTyped) {
    Open<frmSound>([](frmSound& tool) {
        Type(tool, "cboLoop", "infinite");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<bgsound src=\"\" loop=\"infinite\">");
}

TEST_F(SoundForm, WritesAnEmbeddedSoundAndNothingOfTheOtherPanes) {
    document.Text1->SetText("axb");
    document.Text1->SetSelStart(1);
    document.Text1->SetSelLength(1);
    Open<frmSound>([](frmSound& tool) {
        Type(tool, "txtSource", "other.mid");
        Tab(tool, 1);
        QTest::keyClicks(tool.focusWidget(), "a.wav");
        Click(tool, "chkAutoStart");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "a<embed src=\"a.wav\" autostart=\"true\" hidden=\"false\">b");
    document.Text1->SetText({});
    Open<frmSound>([](frmSound& tool) {
        Press(tool, Qt::Key_Tab, Qt::ControlModifier);
        Click(tool, "chkHidden");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<embed src=\"\" autostart=\"false\" hidden=\"true\">");
}

TEST_F(SoundForm, WritesAnAudioscope) {
    bench.prompts.colors = {0x0000FF, 0xFF0000};
    Open<frmSound>([](frmSound& tool) {
        Tab(tool, 2);
        EXPECT_EQ(tool.focusWidget()->objectName(), "cboAlignment");
        Type(tool, "cboAlignment", "top");
        Type(tool, "cboBorder", "11");
        Type(tool, "txtWidth", "90");
        Type(tool, "txtHeight", "40");
        Click(tool, "cmdLeftColor");
        Click(tool, "cmdRightColor");
        Click(tool, "cmdRightColor");  // cancelled: the colour stays
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              "<audioscope align=\"top\" border=\"11\" width=\"90\" height=\"40\" leftcolor=\"#FF0000\" "
              "rightcolor=\"#0000FF\"></audioscope>");
}

TEST_F(SoundForm, AHeightWithoutAWidthIsLeftOut) {
    Open<frmSound>([](frmSound& tool) {
        Tab(tool, 2);
        Type(tool, "txtHeight", "5");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<audioscope></audioscope>");
}

TEST_F(SoundForm, FindTakesTheBareNameAndACancelChangesNothing) {
    bench.prompts.openNames = {folder.filePath("sub/my song.mid"), "/elsewhere/.hidden.wav"};
    Open<frmSound>([this](frmSound& tool) {
        Click(tool, "cmdSource");
        Tab(tool, 1);
        EXPECT_EQ(Field(tool, "txtEmbedSource"), "");
        Click(tool, "cmdEmbedSource");
        Click(tool, "cmdEmbedSource");
        Tab(tool, 0);
        Click(tool, "cmdSource");
        EXPECT_EQ(Field(tool, "txtSource"), "my song.mid");
        EXPECT_EQ(Field(tool, "txtEmbedSource"), ".hidden.wav");
        ASSERT_EQ(bench.prompts.requests.size(), 4U);
        for (const FileRequest& request : bench.prompts.requests) {
            EXPECT_EQ(request.filter, "Sound Files (*.AU;*.MID;*.RMI;*.WAV)|*.AU;*MID;*RMI;*.WAV");
            EXPECT_EQ(request.directory, folder.path());
            EXPECT_FALSE(request.several);
        }
        Press(tool, Qt::Key_Escape);
    });
}

TEST_F(SoundForm, IsOpenedWithASoundByTheWebsitePanel) {
    InModal<frmSound>([&] { ShowTool<frmSound>(bench, BackgroundSoundFields{.source = "a b.WAV"}); },
                      [](frmSound& tool) {
                          EXPECT_EQ(Field(tool, "txtEmbedSource"), "");
                          Press(tool, Qt::Key_Return);
                      });
    EXPECT_EQ(Text(), "<bgsound src=\"a b.WAV\" loop=\"INFINITE\">");
}

}  // namespace
}  // namespace vellum::test
