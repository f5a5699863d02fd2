#include "tools/pages/frm_quick_start.h"

#include "tests/tools/tool_fixture.h"
#include "values/color_hex.h"

namespace vellum::test {
namespace {

constexpr auto transitional =
    R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Transitional//EN" "DTD/xhtml1-transitional.dtd">)";

// A page with these lines in its head, after the title, and this body tag.
QString Page(const QString& head, const QString& body = "<body>", const QString& type = transitional,
             const QString& title = {}) {
    return type + "\r\n<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n<head>\r\n<title>" + title + "</title>\r\n" +
           head + "</head>\r\n" + body + "\r\n\r\n\r\n</body>\r\n</html>";
}

TEST(QuickStartMarkupOf, TheDefaults) {
    EXPECT_EQ(QuickStartMarkup({}),
              "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" \"DTD/xhtml1-transitional.dtd\">\r\n"
              "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
              "<head>\r\n"
              "<title></title>\r\n"
              "</head>\r\n"
              "<body>\r\n"
              "\r\n"
              "\r\n"
              "</body>\r\n"
              "</html>");
}

TEST(QuickStartMarkupOf, EveryField) {
    EXPECT_EQ(QuickStartMarkup({.documentType = "<!DOCTYPE x>",
                                .title = "T<&",
                                .leftMargin = "1",
                                .topMargin = "2",
                                .linksStyleSheet = true,
                                .styleSheet = "s.css",
                                .textColor = "RED",
                                .linkColor = "#0000FF",
                                .visitedColor = "GRAY",
                                .activeColor = "LIME",
                                .backgroundColor = "WHITE",
                                .backgroundImage = "b.gif",
                                .watermark = true,
                                .keywords = "a, b",
                                .hasTransition = true,
                                .transition = 24,
                                .seconds = "5",
                                .goesElsewhere = true,
                                .newUrl = "a.htm",
                                .instructions = "i.htm",
                                .credits = "c.htm",
                                .logo = "l.gif"}),
              "<!DOCTYPE x>\r\n"
              "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
              "<head>\r\n"
              "<title>T<&</title>\r\n"
              "<meta http-equiv=\"Keywords\" content=\"a, b\" />\r\n"
              "<meta http-equiv=\"Page-Enter\" content=\"RevealTrans(Duration=4,Transition=24)\" />\r\n"
              "<meta http-equiv=\"refresh\" content=\"5 ;url=a.htm\">\r\n"
              "<link rel=\"stylesheet\" href=\"s.css\" />\r\n"
              "</head>\r\n"
              "<body leftmargin=\"1\" topmargin=\"2\" text=\"RED\" link=\"#0000FF\" vlink=\"GRAY\" alink=\"LIME\" "
              "bgcolor=\"WHITE\" background=\"b.gif\" instructions=\"i.htm\" credits=\"c.htm\" logo=\"l.gif\" "
              "bgproperties=\"fixed\">\r\n"
              "\r\n"
              "\r\n"
              "</body>\r\n"
              "</html>");
}

TEST(QuickStartMarkupOf, EveryAttributeOfTheBodyAlone) {
    const std::pair<QString QuickStartFields::*, const char*> attributes[] = {
        {&QuickStartFields::leftMargin, "leftmargin"},
        {&QuickStartFields::topMargin, "topmargin"},
        {&QuickStartFields::textColor, "text"},
        {&QuickStartFields::linkColor, "link"},
        {&QuickStartFields::visitedColor, "vlink"},
        {&QuickStartFields::activeColor, "alink"},
        {&QuickStartFields::backgroundColor, "bgcolor"},
        {&QuickStartFields::backgroundImage, "background"},
        {&QuickStartFields::instructions, "instructions"},
        {&QuickStartFields::credits, "credits"},
        {&QuickStartFields::logo, "logo"}};
    for (const auto& [field, name] : attributes) {
        QuickStartFields fields;
        fields.*field = "v";
        EXPECT_EQ(QuickStartMarkup(fields), Page({}, QString("<body %1=\"v\">").arg(name)));
    }
}

TEST(QuickStartMarkupOf, ARefreshHereOrElsewhere) {
    EXPECT_EQ(QuickStartMarkup({.seconds = "5", .goesElsewhere = true, .newUrl = "a.htm"}),
              Page("<meta http-equiv=\"refresh\" content=\"5 ;url=a.htm\">\r\n"));
    EXPECT_EQ(QuickStartMarkup({.seconds = "5", .newUrl = "a.htm"}),
              Page("<meta http-equiv=\"refresh\" content=\"5\">\r\n"));
    EXPECT_EQ(QuickStartMarkup({.seconds = "5", .goesElsewhere = true}),
              Page("<meta http-equiv=\"refresh\" content=\"5\">\r\n"));
    EXPECT_EQ(QuickStartMarkup({.seconds = "", .goesElsewhere = true, .newUrl = "a.htm"}), Page({}));
    EXPECT_EQ(QuickStartMarkup({.seconds = "0", .goesElsewhere = true, .newUrl = "a.htm"}), Page({}));
    EXPECT_EQ(QuickStartMarkup({.seconds = "00"}), Page("<meta http-equiv=\"refresh\" content=\"00\">\r\n"));
}

TEST(QuickStartMarkupOf, WhatItsCheckLetsOut) {
    EXPECT_EQ(QuickStartMarkup({.styleSheet = "s.css", .watermark = true, .transition = 3}), Page({}));
    EXPECT_EQ(QuickStartMarkup({.linksStyleSheet = true}), Page("<link rel=\"stylesheet\" href=\"\" />\r\n"));
    EXPECT_EQ(QuickStartMarkup({.hasTransition = true}),
              Page("<meta http-equiv=\"Page-Enter\" content=\"RevealTrans(Duration=4,Transition=-1)\" />\r\n"));
    EXPECT_EQ(QuickStartMarkup({.backgroundImage = "b", .watermark = true}),
              Page({}, "<body background=\"b\" bgproperties=\"fixed\">"));
}

class QuickStartForm : public ToolFixture {
protected:
    // Goes down a list in which nothing is picked.
    static void Pick(const QWidget& form, const QString& name, int index) {
        auto& box = Get<QComboBox>(form, name);
        box.setFocus();
        for (int i = -1; i < index; ++i) QTest::keyClick(&box, Qt::Key_Down);
    }

    // The colors of a preview, in the order of the boxes on the form.
    static QString TextColor(const QWidget& form, int preview) {
        return Get<QLabel>(form, QString("lblPreview(%1)").arg(preview)).palette().color(QPalette::WindowText).name();
    }
    static QString Paper(const QWidget& form, int preview) {
        return Get<QLabel>(form, QString("lblPreview(%1)").arg(preview)).palette().color(QPalette::Window).name();
    }
    static bool Enabled(const QWidget& form, const QString& name) { return Get<QWidget>(form, name).isEnabled(); }
};

TEST_F(QuickStartForm, ShowsItsCaptionsAndDefaults) {
    Open<frmQuickStart>([](frmQuickStart& tool) {
        EXPECT_EQ(tool.windowTitle(), " QuickStart");
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        QStringList captions;
        for (int i = 0; i < tabs.count(); ++i) captions << Shown(tabs.tabText(i));
        EXPECT_EQ(captions, (QStringList{"Title and Margins", "Colors and Graphics", "META Information", "WebTV"}));
        const std::pair<const char*, const char*> fields[] = {{"Combo7", "Document Type"},
                                                              {"Text1", "Title"},
                                                              {"Text2", "Left Margin (In Pixels)"},
                                                              {"Text3", "Top Margin (In Pixels)"},
                                                              {"Combo1", "Text Color"},
                                                              {"Combo2", "Link Color"},
                                                              {"Combo3", "Visited Link Color"},
                                                              {"Combo5", "Active Link Color"},
                                                              {"Combo4", "Background Color"},
                                                              {"Text4", "Background Image"},
                                                              {"txtKeyWords", "Document Keywords"},
                                                              {"txtSeconds", "Refresh Document After"},
                                                              {"txtTVInstruct", "Instructions"},
                                                              {"txtTVCredits", "Credits"},
                                                              {"txtTVLogo", "Graphical Logo"}};
        for (const auto& [name, caption] : fields) EXPECT_EQ(Caption(tool, name), caption);
        const std::pair<const char*, const char*> checks[] = {{"chkStyleSheet", "Linked Stylesheet"},
                                                              {"Check1", "Watermark"},
                                                              {"Check3", "Transition (IE)"},
                                                              {"Check2", "On Refresh Goto:"}};
        for (const auto& [name, caption] : checks) {
            EXPECT_EQ(Shown(Get<QCheckBox>(tool, name).text()), caption);
            EXPECT_FALSE(Get<QCheckBox>(tool, name).isChecked()) << caption;
        }
        EXPECT_EQ(Field(tool, "Combo7"), transitional);
        EXPECT_EQ(Field(tool, "txtSeconds"), "0");
        EXPECT_EQ(Get<QComboBox>(tool, "Combo12").currentIndex(), -1);
        EXPECT_EQ(Get<QLabel>(tool, "lblPreview(4)").text(), "Aa Bb Cc");
        EXPECT_EQ(tool.focusWidget()->objectName(), "Text1");
    });
}

TEST_F(QuickStartForm, OffersDocumentTypesAndTransitions) {
    Open<frmQuickStart>([](frmQuickStart& tool) {
        EXPECT_EQ(Values(tool, "Combo7"),
                  (QStringList{"<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0//EN\">",
                               "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 3.2//EN\">",
                               "<!DOCTYPE HTML PUBLIC  \"-//IETF//DTD HTML 2.0//EN\">",
                               "<!DOCTYPE HTML PUBLIC  \"-//IETF//DTD HTML Level 1//EN\">",
                               "<!DOCTYPE HTML PUBLIC  \"-//Microsoft/DTD Microsoft Internet Explorer 3.01 HTML//EN\">",
                               transitional,
                               "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Frameset//EN\" "
                               "\"DTD/xhtml1-frameset.dtd\">"}));
        const QStringList transitions = Values(tool, "Combo12");
        ASSERT_EQ(transitions.size(), 25);
        EXPECT_EQ(transitions.at(0), "Blend in");
        EXPECT_EQ(transitions.at(13), "Random dissolve");
        EXPECT_EQ(transitions.at(24), "Random");
    });
}

TEST_F(QuickStartForm, WritesTheDefaultsByKeysAlone) {
    Open<frmQuickStart>([](frmQuickStart& tool) {
        QTest::keyClicks(tool.focusWidget(), "My page");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), Page({}, "<body>", transitional, "My page"));
}

TEST_F(QuickStartForm, TakesEveryTab) {
    bench.prompts.openNames = {folder.filePath("s.css"), folder.filePath("b.gif"), folder.filePath("i.htm"),
                               folder.filePath("c.htm"), folder.filePath("l.png")};
    Open<frmQuickStart>([](frmQuickStart& tool) {
        Type(tool, "Combo7", "<!DOCTYPE html>");
        Type(tool, "Text2", "1");
        Type(tool, "Text3", "2");
        Click(tool, "chkStyleSheet");
        Click(tool, "cmdStyleSheet");
        Tab(tool, 1);
        int number = 0;
        for (const char* box : {"Combo1", "Combo2", "Combo3", "Combo5", "Combo4"}) {
            Type(tool, box, QString::number(++number));
        }
        Click(tool, "cmdText4");
        Click(tool, "Check1");
        Tab(tool, 2);
        Type(tool, "txtKeyWords", "k");
        Click(tool, "Check3");
        Pick(tool, "Combo12", 4);
        Type(tool, "txtSeconds", "9");
        Click(tool, "Check2");
        Type(tool, "txtNewURL", "n.htm");
        Tab(tool, 3);
        Click(tool, "cmdTVInstruct");
        Click(tool, "cmdTVCredits");
        Click(tool, "cmdTVLogo");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), Page("<meta http-equiv=\"Keywords\" content=\"k\" />\r\n"
                           "<meta http-equiv=\"Page-Enter\" content=\"RevealTrans(Duration=4,Transition=4)\" />\r\n"
                           "<meta http-equiv=\"refresh\" content=\"9 ;url=n.htm\">\r\n"
                           "<link rel=\"stylesheet\" href=\"s.css\" />\r\n",
                           "<body leftmargin=\"1\" topmargin=\"2\" text=\"1\" link=\"2\" vlink=\"3\" alink=\"4\" "
                           "bgcolor=\"5\" background=\"b.gif\" instructions=\"i.htm\" credits=\"c.htm\" "
                           "logo=\"l.png\" bgproperties=\"fixed\">",
                           "<!DOCTYPE html>"));
    for (const FileRequest& request : bench.prompts.requests) EXPECT_EQ(request.directory, folder.path());
}

TEST_F(QuickStartForm, ATransitionThatNobodyPickedIsMinusOne) {
    Open<frmQuickStart>([](frmQuickStart& tool) {
        Tab(tool, 2);
        Click(tool, "Check3");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), Page("<meta http-equiv=\"Page-Enter\" content=\"RevealTrans(Duration=4,Transition=-1)\" />\r\n"));
}

TEST_F(QuickStartForm, ChecksSwitchTheirNeighbours) {
    Open<frmQuickStart>([](frmQuickStart& tool) {
        const std::tuple<int, const char*, QStringList> gates[] = {
            {0, "chkStyleSheet", {"txtStyleSheet", "cmdStyleSheet"}},
            {2, "Check3", {"Combo12"}},
            {2, "Check2", {"txtNewURL"}}};
        for (const auto& [tab, check, fields] : gates) {
            Tab(tool, tab);
            for (const bool on : {false, true, false, true}) {
                for (const QString& field : fields) EXPECT_EQ(Enabled(tool, field), on) << field.toStdString();
                Click(tool, check);
            }
        }
        Tab(tool, 1);
        EXPECT_FALSE(Enabled(tool, "Check1"));
        Type(tool, "Text4", "b");
        EXPECT_TRUE(Enabled(tool, "Check1"));
        Click(tool, "Check1");
        Type(tool, "Text4", "");
        EXPECT_FALSE(Enabled(tool, "Check1"));
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), Page({})) << "the image went, and the watermark with it";
}

TEST_F(QuickStartForm, PreviewsANamedColorAndNothingElse) {
    Open<frmQuickStart>([](frmQuickStart& tool) {
        Tab(tool, 1);
        const char* const boxes[] = {"Combo1", "Combo2", "Combo3", "Combo5", "Combo4"};
        for (int i = 0; const char* box : boxes) {
            EXPECT_EQ(TextColor(tool, i), "#000000");
            Type(tool, box, "RED");
            EXPECT_EQ(TextColor(tool, i), "#ff0000") << box;
            Type(tool, box, "REDDISH");
            EXPECT_EQ(TextColor(tool, i), "#ff0000") << box;
            Type(tool, box, "#00FF00");
            EXPECT_EQ(TextColor(tool, i++), "#ff0000") << box;
        }
        for (const QString& name : ColorNames()) {
            Type(tool, "Combo1", name);
            EXPECT_EQ(TextColor(tool, 0), QColor(name).name()) << name.toStdString();
        }
    });
}

TEST_F(QuickStartForm, PreviewsTheColorOfTheDialog) {
    bench.prompts.colors = {0x0080FF};
    Open<frmQuickStart>([](frmQuickStart& tool) {
        Tab(tool, 1);
        Click(tool, "cmdCombo3");
        EXPECT_EQ(Field(tool, "Combo3"), "#FF8000");
        EXPECT_EQ(TextColor(tool, 2), "#ff8000");
        Click(tool, "cmdCombo3");
        EXPECT_EQ(Field(tool, "Combo3"), "#FF8000") << "a cancelled dialog changes nothing";
        EXPECT_EQ(TextColor(tool, 2), "#ff8000");
        EXPECT_EQ(TextColor(tool, 1), "#000000");
    });
}

TEST_F(QuickStartForm, PreviewsTheTextsOnTheBackgroundOfThePage) {
    Open<frmQuickStart>([](frmQuickStart& tool) {
        Tab(tool, 1);
        EXPECT_EQ(Paper(tool, 0), "#ffffff");
        Type(tool, "Combo4", "NAVY");
        EXPECT_EQ(Paper(tool, 0), "#000080");
        EXPECT_EQ(Paper(tool, 3), "#000080");
        EXPECT_EQ(Paper(tool, 4), "#ffffff") << "on which that color is seen";
        Type(tool, "Combo4", "YELLOW");
        EXPECT_LT(QColor(Paper(tool, 4)).lightness(), 80);
        Type(tool, "Combo4", "");
        EXPECT_EQ(Paper(tool, 0), "#ffffff");
    });
}

}  // namespace
}  // namespace vellum::test
