#include "tools/links/frm_anchors.h"

#include "tests/tools/tool_fixture.h"

#include <QGroupBox>

namespace vellum::test {
namespace {

TEST(LinkMarkupOf, EmptyFields) {
    EXPECT_EQ(LinkMarkup({}), "<a href=\"\"></a>");
}

TEST(LinkMarkupOf, EveryField) {
    EXPECT_EQ(LinkMarkup({.url = "a.htm", .caption = "here", .toolTip = "A page", .target = "_top", .selected = true}),
              "<a href=\"a.htm\" target=\"_top\" title=\"A page\" selected=\"selected\">here</a>");
}

TEST(LinkMarkupOf, EachFieldAlone) {
    EXPECT_EQ(LinkMarkup({.url = "a.htm"}), "<a href=\"a.htm\"></a>");
    EXPECT_EQ(LinkMarkup({.caption = "here"}), "<a href=\"\">here</a>");
    EXPECT_EQ(LinkMarkup({.toolTip = "A page"}), "<a href=\"\" title=\"A page\"></a>");
    EXPECT_EQ(LinkMarkup({.target = "_self"}), "<a href=\"\" target=\"_self\"></a>");
    EXPECT_EQ(LinkMarkup({.selected = true}), "<a href=\"\" selected=\"selected\"></a>");
}

TEST(LinkMarkupOf, FieldsStandAsTyped) {
    EXPECT_EQ(LinkMarkup({.url = "a \"b\".htm?x&y", .caption = "<b>&</b>", .toolTip = "\"", .target = "<"}),
              "<a href=\"a \"b\".htm?x&y\" target=\"<\" title=\"\"\"><b>&</b></a>");
    EXPECT_EQ(LinkMarkup({.url = " ", .caption = " ", .toolTip = " ", .target = " "}),
              "<a href=\" \" target=\" \" title=\" \"> </a>");
}

TEST(NamedReferenceMarkupOf, EmptyAndFullFields) {
    EXPECT_EQ(NamedReferenceMarkup({}), "<a name=\"\"></a>");
    EXPECT_EQ(NamedReferenceMarkup({.reference = "top"}), "<a name=\"top\"></a>");
    EXPECT_EQ(NamedReferenceMarkup({.displayed = "Top"}), "<a name=\"\">Top</a>");
    EXPECT_EQ(NamedReferenceMarkup({.reference = "top", .displayed = "Top"}), "<a name=\"top\">Top</a>");
}

TEST(EmailMarkupOf, EmptyAndFullFields) {
    EXPECT_EQ(EmailMarkup({}), "<a href=\"mailto:\"></a>");
    EXPECT_EQ(EmailMarkup({.address = "me@example.org"}), "<a href=\"mailto:me@example.org\"></a>");
    EXPECT_EQ(EmailMarkup({.caption = "Write"}), "<a href=\"mailto:\">Write</a>");
    EXPECT_EQ(EmailMarkup({.address = "me@example.org", .caption = "Write"}),
              "<a href=\"mailto:me@example.org\">Write</a>");
}

TEST(NewsgroupMarkupOf, EmptyAndFullFields) {
    EXPECT_EQ(NewsgroupMarkup({}), "<a href=\"news:\"></a>");
    EXPECT_EQ(NewsgroupMarkup({.address = "comp.text"}), "<a href=\"news:comp.text\"></a>");
    EXPECT_EQ(NewsgroupMarkup({.caption = "Read"}), "<a href=\"news:\">Read</a>");
    EXPECT_EQ(NewsgroupMarkup({.address = "comp.text", .caption = "Read"}), "<a href=\"news:comp.text\">Read</a>");
}

class AnchorsForm : public ToolFixture {
protected:
    void Select(const QString& text) {
        document.Text1->SetText(text);
        document.Text1->SetSelStart(0);
        document.Text1->SetSelLength(static_cast<int>(text.size()));
    }
};

TEST_F(AnchorsForm, ShowsItsCaptionsAndToolTips) {
    Open<frmAnchors>([](frmAnchors& tool) {
        EXPECT_EQ(tool.windowTitle(), "Links");
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        const std::vector<std::pair<QString, QString>> expected{
            {"&Link", "Creates Links to Other Pages"},
            {"&Named Reference", "Creates a Named Reference Which Can Be Linked To."},
            {"&E-mail", "Creates a Link to an E-mail Address."},
            {"Ne&wsgroups", "Creates a Link to a Newsgroup."}};
        ASSERT_EQ(tabs.count(), 4);
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(tabs.tabText(i), expected[i].first);
            EXPECT_EQ(tabs.tabToolTip(i), expected[i].second);
        }
        const std::vector<std::pair<const char*, const char*>> captions{{"txtURL", "URL"},
                                                                        {"txtLinkCaption", "Link Caption"},
                                                                        {"txtToolTip", "Tool-Tip Text"},
                                                                        {"cboTarget", "Target"},
                                                                        {"txtReference", "Reference Text"},
                                                                        {"txtDisplayed", "Text Displayed"},
                                                                        {"txtEmail", "E-mail address"},
                                                                        {"txtEmailCaption", "Link Caption"},
                                                                        {"txtNewsgroup", "Newsgroup address"},
                                                                        {"txtNewsgroupCaption", "Link Caption"}};
        for (const auto& [field, caption] : captions) EXPECT_EQ(Caption(tool, field), caption) << field;
        const auto& check = Get<QCheckBox>(tool, "chkTVSelected");
        EXPECT_EQ(Shown(check.text()), "Selected In Browser Window");
        const auto* frame = qobject_cast<QGroupBox*>(check.parentWidget());
        ASSERT_NE(frame, nullptr);
        EXPECT_EQ(frame->title(), "WebTV");
        EXPECT_EQ(Values(tool, "cboTarget"), (QStringList{"_blank", "_parent", "_self", "_top"}));
    });
}

TEST_F(AnchorsForm, StartsEmptyEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<frmAnchors>([](frmAnchors& tool) {
            for (const QLineEdit* field : tool.findChildren<QLineEdit*>()) {
                EXPECT_EQ(field->text(), "") << field->objectName().toStdString();
            }
            EXPECT_FALSE(Get<QCheckBox>(tool, "chkTVSelected").isChecked());
            EXPECT_EQ(Get<QTabWidget>(tool, "TabStrip1").currentIndex(), 0);
            Type(tool, "txtURL", "a.htm");
            Type(tool, "cboTarget", "x");
            Click(tool, "chkTVSelected");
            Tab(tool, 2);
            Press(tool, Qt::Key_Escape);
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(AnchorsForm, ConfirmedAtOnceMakesAnEmptyLink) {
    Open<frmAnchors>([](frmAnchors& tool) { Press(tool, Qt::Key_Return); });
    EXPECT_EQ(Text(), "<a href=\"\"></a>");
}

TEST_F(AnchorsForm, PutsTheLinkInPlaceOfTheSelectionThatItCaptions) {
    document.Text1->SetText("axb");
    document.Text1->SetSelStart(1);
    document.Text1->SetSelLength(1);
    Open<frmAnchors>([](frmAnchors& tool) {
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtURL");
        QTest::keyClicks(tool.focusWidget(), "a.htm");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "a<a href=\"a.htm\">x</a>b");
}

TEST_F(AnchorsForm, WritesEveryFieldOfTheLink) {
    Open<frmAnchors>([](frmAnchors& tool) {
        Type(tool, "txtURL", "a.htm");
        Type(tool, "txtLinkCaption", "here");
        Type(tool, "txtToolTip", "A page");
        Type(tool, "cboTarget", "_t");
        Click(tool, "chkTVSelected");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<a href=\"a.htm\" target=\"_t\" title=\"A page\" selected=\"selected\">here</a>");
}

TEST_F(AnchorsForm, WritesThePaneThatShowsAndNoOther) {
    Select("x");
    Open<frmAnchors>([](frmAnchors& tool) {
        Type(tool, "txtURL", "a.htm");
        Tab(tool, 1);
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtReference");
        QTest::keyClicks(tool.focusWidget(), "top");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<a name=\"top\">x</a>");
}

TEST_F(AnchorsForm, WritesAnEmailLink) {
    Select("x");
    Open<frmAnchors>([](frmAnchors& tool) {
        Press(tool, Qt::Key_Tab, Qt::ControlModifier);
        Press(tool, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtEmail");
        QTest::keyClicks(tool.focusWidget(), "me@example.org");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<a href=\"mailto:me@example.org\">x</a>");
}

TEST_F(AnchorsForm, WritesANewsgroupLink) {
    Select("x");
    Open<frmAnchors>([](frmAnchors& tool) {
        Press(tool, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtNewsgroup");
        QTest::keyClicks(tool.focusWidget(), "comp.text");
        Type(tool, "txtNewsgroupCaption", "Read");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<a href=\"news:comp.text\">Read</a>");
}

TEST_F(AnchorsForm, TurnsItsPanesByTheirAccessKeys) {
    Open<frmAnchors>([](frmAnchors& tool) {
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        const std::vector<std::pair<Qt::Key, int>> keys{{Qt::Key_N, 1}, {Qt::Key_E, 2}, {Qt::Key_W, 3}, {Qt::Key_L, 0}};
        for (const auto& [key, pane] : keys) {
            Press(tool, key, Qt::AltModifier);
            EXPECT_EQ(tabs.currentIndex(), pane);
        }
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtURL");
    });
}

TEST_F(AnchorsForm, EveryCaptionIsTheSelectionByteForByte) {
    const QString lines = "<p>one\r\n\ttwo &amp; \u20AC\u00A0\r\n\r\n";
    Select(lines);
    Open<frmAnchors>([&](frmAnchors& tool) {
        for (const char* caption : {"txtLinkCaption", "txtDisplayed", "txtEmailCaption", "txtNewsgroupCaption"}) {
            EXPECT_EQ(Field(tool, caption), lines) << caption;
        }
        EXPECT_EQ(Field(tool, "txtEmail"), "");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<a href=\"\">" + lines + "</a>");
}

TEST_F(AnchorsForm, ACaptionOfSeveralLinesCanBeEdited) {
    Select("one\r\ntwo");
    Open<frmAnchors>([](frmAnchors& tool) {
        auto& caption = Get<QLineEdit>(tool, "txtLinkCaption");
        caption.setFocus();
        QTest::keyClick(&caption, Qt::Key_End);
        QTest::keyClicks(&caption, "!");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<a href=\"\">one\r\ntwo!</a>");
}

TEST_F(AnchorsForm, ACaptionMayBeLongerThanAFieldUsuallyHolds) {
    const QString words = QString("word ").repeated(20000);
    Select(words);
    Open<frmAnchors>([](frmAnchors& tool) { Press(tool, Qt::Key_Return); });
    EXPECT_EQ(Text(), "<a href=\"\">" + words + "</a>");
}

TEST_F(AnchorsForm, IsOpenedWithAPageByTheWebsitePanel) {
    Select("x");
    const QString name = QString::fromUtf8("my \"file\" \u4F60.htm");
    InModal<frmAnchors>([&] { ShowTool<frmAnchors>(bench, LinkFields{.url = name}); },
                        [&](frmAnchors& tool) {
                            EXPECT_EQ(Field(tool, "txtURL"), name);
                            Press(tool, Qt::Key_Return);
                        });
    EXPECT_EQ(Text(), "<a href=\"" + name + "\">x</a>");
}

TEST_F(AnchorsForm, CancelLeavesTheTextAndGivesItTheKeyboard) {
    Select("x");
    QLineEdit elsewhere(&window);
    elsewhere.show();
    for (const bool byKey : {false, true}) {
        elsewhere.setFocus();
        ASSERT_EQ(window.focusWidget(), &elsewhere);
        Open<frmAnchors>([byKey](frmAnchors& tool) {
            Type(tool, "txtURL", "a.htm");
            byKey ? Press(tool, Qt::Key_Escape) : Click(tool, "cmdCancel");
        });
        EXPECT_EQ(window.focusWidget(), document.Text1);
    }
    EXPECT_EQ(Text(), "x");
    EXPECT_EQ(document.Text1->SelText(), "x");
}

TEST_F(AnchorsForm, ClosingSwitchesTheMainWindowOn) {
    for (const char* button : {"cmdOK", "cmdCancel"}) {
        Open<frmAnchors>([&](frmAnchors& tool) {
            window.setEnabled(false);
            tool.setEnabled(true);
            Click(tool, button);
        });
        EXPECT_TRUE(window.isEnabled()) << button;
    }
}

}  // namespace
}  // namespace vellum::test
