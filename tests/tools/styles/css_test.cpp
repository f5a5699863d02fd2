#include "tools/styles/css.h"

#include "tests/tools/tool_fixture.h"
#include "tools/styles/style_sample.h"
#include "widgets/color_swatch.h"

#include <QListWidget>
#include <QRadioButton>

namespace vellum::test {
namespace {

constexpr auto opening = "<style type=\"text/css\">\r\n<!--\r\n/* <![CDATA[ */\r\n\r\n";
constexpr auto closing = "/* ]]> */\r\n-->\r\n</style>";

class StyleEditor : public ToolFixture {
protected:
    static QListWidget& List(const QWidget& form) { return Get<QListWidget>(form, "List1"); }

    static void Select(const QWidget& form, int row, Qt::KeyboardModifiers modifiers = {}) {
        QListWidget& list = List(form);
        list.scrollToItem(list.item(row));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, list.visualItemRect(list.item(row)).center());
    }

    static void Add(const QWidget& form, const QString& element) {
        Type(form, "txtAdd", element);
        Click(form, "cmdAdd");
    }

    // Chooses a page of properties by the keyboard.
    static void Turn(const QWidget& form, int page) {
        auto& category = Get<QComboBox>(form, "cboCategory");
        QTest::keyClick(&category, Qt::Key_Home);
        for (int i = 0; i < page; ++i) QTest::keyClick(&category, Qt::Key_Down);
    }

    static QStringList Elements(const QWidget& form) {
        QStringList elements;
        for (int row = 0; row < List(form).count(); ++row) elements << List(form).item(row)->text();
        return elements;
    }

    void OpenAs(StyleMode mode, const std::function<void(CSS&)>& steps) {
        InModal<CSS>([this, mode] { ShowTool<CSS>(bench, mode); }, steps);
    }
};

TEST_F(StyleEditor, OpensWithTheBody) {
    bench.fontNames = {"Verdana", "Arial"};
    Open<CSS>([](CSS& form) {
        EXPECT_EQ(form.windowTitle(), "Style Sheet Editor");
        EXPECT_EQ(Elements(form), QStringList{"body"});
        EXPECT_TRUE(List(form).item(0)->isSelected());
        EXPECT_EQ(Get<QComboBox>(form, "cboCategory").currentText(), "Font and Text Properties");
        EXPECT_TRUE(Get<QRadioButton>(form, "optWithStyle").isChecked());
        EXPECT_EQ(Get<QRadioButton>(form, "optWithStyle").toolTip(), "Use for header style sheets");
        EXPECT_EQ(Get<QRadioButton>(form, "optWithoutStyle").toolTip(), "Use for externally linked style sheets");
        for (int i = 0; i < 62; ++i) {
            const QString box = QString("cboStyle(%1)").arg(i);
            const StyleProperty& property = StyleProperties().at(static_cast<std::size_t>(i));
            EXPECT_EQ(Caption(form, box), property.name);
            EXPECT_EQ(Field(form, box), "") << property.name;
            const QStringList offered = i == 0 ? QStringList{"Verdana", "Arial"} : OfferedValues(property);
            EXPECT_EQ(Values(form, box), offered) << property.name;
        }
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), QString(opening) + "body {\r\n}\r\n\r\n" + closing);
}

TEST_F(StyleEditor, ShowsOnePageAtATime) {
    Open<CSS>([](CSS& form) {
        for (int page = 0; page < 6; ++page) {
            Turn(form, page);
            EXPECT_EQ(Get<QComboBox>(form, "cboCategory").currentText(), StylePageNames().at(page));
            for (std::size_t i = 0; i < stylePropertyCount; ++i) {
                const auto& box = Get<QComboBox>(form, QString("cboStyle(%1)").arg(i));
                EXPECT_EQ(box.isVisible(), static_cast<int>(StyleProperties().at(i).page) == page) << i;
            }
        }
    });
}

TEST_F(StyleEditor, KeepsTheValuesOfEveryElement) {
    Open<CSS>([](CSS& form) {
        Type(form, "cboStyle(1)", "9pt");
        Add(form, "h1");
        EXPECT_EQ(Elements(form), (QStringList{"body", "h1"}));
        EXPECT_EQ(Field(form, "txtAdd"), "");
        EXPECT_TRUE(List(form).item(0)->isSelected()) << "a new element isn't selected";
        Add(form, "");
        EXPECT_EQ(List(form).count(), 2);
        Select(form, 1);
        EXPECT_EQ(Field(form, "cboStyle(1)"), "");
        Turn(form, 1);
        QTest::keyClick(&Get<QComboBox>(form, "cboStyle(17)"), Qt::Key_Down);  // picks the first color
        Select(form, 0);
        EXPECT_EQ(Field(form, "cboStyle(1)"), "9pt");
        EXPECT_EQ(Field(form, "cboStyle(17)"), "");
        Click(form, "optWithoutStyle");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), "body {\r\n font-size: 9pt;\r\n}\r\n\r\nh1 {\r\n color: AQUA;\r\n}\r\n\r\n");
}

TEST_F(StyleEditor, RemovesAnElementWithItsValues) {
    Open<CSS>([](CSS& form) {
        Add(form, "h1");
        Add(form, "h2");
        for (int row = 0; row < 3; ++row) {
            Select(form, row);
            Type(form, "cboStyle(1)", QString("%1pt").arg(row));
        }
        Select(form, 1);
        Click(form, "cmdRemoveStyle");
        EXPECT_EQ(Elements(form), (QStringList{"body", "h2"}));
        EXPECT_TRUE(List(form).item(0)->isSelected());
        EXPECT_EQ(Field(form, "cboStyle(1)"), "0pt");
        Select(form, 1);
        EXPECT_EQ(Field(form, "cboStyle(1)"), "2pt");
        Select(form, 0);
        QTest::keyClick(&List(form), Qt::Key_Delete);
        EXPECT_EQ(Elements(form), QStringList{"h2"});
        EXPECT_EQ(Field(form, "cboStyle(1)"), "2pt");
        Add(form, "h3");
        Select(form, 1);
        EXPECT_EQ(Field(form, "cboStyle(1)"), "") << "a new element starts without values";
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), QString(opening) + "h2 {\r\n font-size: 2pt;\r\n}\r\n\r\nh3 {\r\n}\r\n\r\n" + closing);
}

TEST_F(StyleEditor, WithoutElementsNothingCanBeTyped) {
    Open<CSS>([](CSS& form) {
        Type(form, "cboStyle(1)", "9pt");
        Click(form, "cmdRemoveStyle");
        EXPECT_EQ(List(form).count(), 0);
        EXPECT_EQ(Field(form, "cboStyle(1)"), "");
        Type(form, "cboStyle(1)", "9pt");
        EXPECT_EQ(Field(form, "cboStyle(1)"), "");
        Click(form, "cmdRemoveStyle");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), QString(opening) + closing);
}

TEST_F(StyleEditor, WithoutASelectionNothingCanBeTyped) {
    Open<CSS>([](CSS& form) {
        Type(form, "cboStyle(1)", "9pt");
        Select(form, 0, Qt::ControlModifier);
        EXPECT_EQ(Field(form, "cboStyle(1)"), "");
        Type(form, "cboStyle(2)", "bold");
        EXPECT_EQ(Field(form, "cboStyle(2)"), "");
        Click(form, "cmdRemoveStyle");
        EXPECT_EQ(List(form).count(), 1) << "there is nothing to remove";
        Select(form, 0);
        EXPECT_EQ(Field(form, "cboStyle(1)"), "9pt");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), QString(opening) + "body {\r\n font-size: 9pt;\r\n}\r\n\r\n" + closing);
}

TEST_F(StyleEditor, RefusesMoreElementsThanItHasRoomFor) {
    Open<CSS>([this](CSS& form) {
        for (int i = 1; i <= 100; ++i) Add(form, QString("e%1").arg(i));
        EXPECT_EQ(List(form).count(), 101);
        EXPECT_TRUE(bench.prompts.messages.isEmpty());
        Add(form, "one.more");
        EXPECT_EQ(bench.prompts.messages, QStringList{"A style sheet can have 101 elements at most."});
        EXPECT_EQ(List(form).count(), 101);
        EXPECT_EQ(Field(form, "txtAdd"), "one.more") << "what was typed stays";
        Select(form, 99);
        Type(form, "cboStyle(1)", "last but one");
        Select(form, 100);
        EXPECT_EQ(Field(form, "cboStyle(1)"), "");
        Click(form, "cmdOK");
    });
    EXPECT_TRUE(
        Text().contains("e99 {\r\n font-size: last but one;\r\n}\r\n\r\ne100 {\r\n}\r\n\r\n" + QString(closing)));
}

TEST_F(StyleEditor, ForgetsTheValuesWhenItCloses) {
    for (const char* button : {"cmdOK", "cmdCancel"}) {
        Open<CSS>([button](CSS& form) {
            EXPECT_EQ(Field(form, "cboStyle(1)"), "");
            Type(form, "cboStyle(1)", "9pt");
            Click(form, button);
        });
    }
    Open<CSS>([](CSS& form) { EXPECT_EQ(Field(form, "cboStyle(1)"), ""); });
}

TEST_F(StyleEditor, PicksColorsThatItsSwatchesShow) {
    bench.prompts.colors = {0x0080FF};
    Open<CSS>([this](CSS& form) {
        Turn(form, 1);
        auto& swatch = Get<ColorSwatch>(form, "cmdColor(17)");
        EXPECT_EQ(swatch.accessibleDescription(), "No color");
        QTest::mouseClick(&swatch, Qt::LeftButton);
        EXPECT_EQ(Field(form, "cboStyle(17)"), "#FF8000");
        EXPECT_EQ(swatch.accessibleDescription(), "#FF8000");
        QTest::mouseClick(&swatch, Qt::LeftButton);
        EXPECT_EQ(Field(form, "cboStyle(17)"), "#FF8000") << "the dialog was cancelled";
        EXPECT_EQ(bench.prompts.firstColors, (std::vector<ColorNumber>{0, 0x0080FF}));
        Type(form, "cboStyle(17)", "LIME");
        EXPECT_EQ(swatch.accessibleDescription(), "#00FF00");
        Type(form, "cboStyle(17)", "transparent");
        EXPECT_EQ(swatch.accessibleDescription(), "No color");
        for (const int index : {13, 18, 22, 23, 26, 30}) {
            bench.prompts.colors = {0x0080FF};
            Get<ColorSwatch>(form, QString("cmdColor(%1)").arg(index)).click();
            EXPECT_EQ(Field(form, QString("cboStyle(%1)").arg(index)), "#FF8000");
        }
        EXPECT_EQ(form.findChildren<ColorSwatch*>().size(), 7);
    });
}

TEST_F(StyleEditor, ItsSampleFollowsElementAndValues) {
    Open<CSS>([](CSS& form) {
        auto& sample = Get<StyleSample>(form, "picSample");
        const auto& unseen = Get<QLabel>(form, "lblUnseen");
        const QImage plain = sample.grab().toImage();
        Type(form, "cboStyle(1)", "24pt");
        const QImage large = sample.grab().toImage();
        EXPECT_NE(large, plain);
        EXPECT_EQ(unseen.text(), "");
        Turn(form, 4);
        Type(form, "cboStyle(58)", "2");
        EXPECT_EQ(unseen.text(), "Seen in the page only: z-index");
        Add(form, "h1");
        Select(form, 1);
        EXPECT_EQ(unseen.text(), "");
        EXPECT_NE(sample.grab().toImage(), large);
        EXPECT_NE(sample.grab().toImage(), plain) << "it is a heading now";
    });
}

TEST_F(StyleEditor, StylesOneElementAroundTheSelection) {
    document.Text1->SetText("a word.");
    document.Text1->SetSelStart(2);
    document.Text1->SetSelLength(4);
    OpenAs(StyleMode::Inline, [](CSS& form) {
        EXPECT_EQ(Field(form, "txtInline"), "div");
        EXPECT_EQ(Caption(form, "txtInline"), "Element");
        EXPECT_EQ(form.findChild<QListWidget*>(), nullptr);
        Type(form, "txtInline", "h2");
        Type(form, "cboStyle(2)", "italic");
        Turn(form, 2);
        Type(form, "cboStyle(61)", "help");
        Turn(form, 0);
        EXPECT_EQ(Field(form, "cboStyle(2)"), "italic");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), "a <h2 style=\" font-style: italic; cursor: help;\">\r\nword\r\n</h2>.");
}

TEST_F(StyleEditor, StylesAnEmptyElement) {
    OpenAs(StyleMode::Inline, [](CSS& form) {
        Type(form, "txtInline", "br");
        Turn(form, 1);
        Type(form, "cboStyle(17)", "RED");
        Press(form, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<br style=\" color: RED;\" />");
}

TEST_F(StyleEditor, WritesAnAttributeAtTheCaret) {
    for (const bool set : {false, true}) {
        document.Text1->SetText("\t<p>x</p>");
        document.Text1->SetSelStart(3);
        InModal<CSS>([this] { ShowInTagStyle(bench); },
                     [set](CSS& form) {
                         EXPECT_TRUE(Get<QLabel>(form, "picInTag").isVisible());
                         if (set) Type(form, "cboStyle(0)", "Arial");
                         Click(form, "cmdOK");
                     });
        EXPECT_EQ(Text(), set ? "\t<p style=\" font-family: Arial;\">x</p>" : "\t<p style=\"\">x</p>");
        EXPECT_EQ(window.focusWidget(), document.Text1);
        document.HandleUndo();
        EXPECT_EQ(Text(), "\t<p>x</p>");
    }
}

TEST_F(StyleEditor, APageOfItsOwnHasNoTags) {
    OpenAs(StyleMode::NewSheet, [](CSS& form) {
        EXPECT_TRUE(Get<QRadioButton>(form, "optWithoutStyle").isChecked());
        Type(form, "cboStyle(1)", "9pt");
        Click(form, "cmdOK");
    });
    EXPECT_EQ(Text(), "body {\r\n font-size: 9pt;\r\n}\r\n\r\n");
}

}  // namespace
}  // namespace vellum::test
