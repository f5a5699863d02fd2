#include "tools/forms/frm_input.h"

#include "tests/tools/tool_fixture.h"

#include <QPlainTextEdit>
#include <QSet>
#include <QStackedWidget>
#include <QTableWidget>

namespace vellum::test {
namespace {

struct KindOnForm {
    const char* option;
    const char* caption;
    QStringList fields;  // that only this kind and those like it show
};

const KindOnForm kinds[] = {
    {"Option1", "&Checkbox", {"Text2", "Check1"}},
    {"Option2", "&Hidden", {"Text4"}},
    {"Option3", "&Image", {"Combo1", "Text6"}},
    {"Option4", "&Password", {"Text19", "Text20", "Text21"}},
    {"Option5", "&Radio", {"Text12", "Text13"}},
    {"Option6", "R&eset", {"Text15"}},
    {"Option7", "&Submit", {"Text15"}},
    {"Option8", "&Text", {"Text19", "Text20", "Text21"}},
    {"Option9", "Textbo&x", {"Text23", "Text24", "Text26"}},
    {"Option10", "&Listbox", {"Grid1", "cmdListPlus", "cmdListMinus", "cboListSize", "chkMultiple"}},
    {"Option11", "Button", {"Text15"}},
    {"Option12", "File Search", {"Text19"}},
};

class InputForm : public ToolFixture {
protected:
    static void Keys(const QWidget& form, const QString& text) { QTest::keyClicks(form.focusWidget(), text); }

    // What a press of OK writes, in a document of its own.
    QString Written(const std::function<void(frmInput&)>& steps) {
        document.Text1->SetText("");
        Open<frmInput>([&](frmInput& tool) {
            steps(tool);
            if (tool.isVisible()) Click(tool, "cmdOK");
        });
        return Text();
    }
};

TEST_F(InputForm, StartsWithAButton) {
    Open<frmInput>([](frmInput& tool) {
        EXPECT_EQ(tool.windowTitle(), "Form Input");
        for (const KindOnForm& kind : kinds) {
            const auto& option = Get<QAbstractButton>(tool, kind.option);
            EXPECT_EQ(Shown(option.text()), Shown(kind.caption));
            if (QString(kind.caption).contains('&')) {
                EXPECT_EQ(option.text(), kind.caption);
            }
            EXPECT_EQ(option.isChecked(), QString(kind.option) == "Option11") << kind.option;
        }
        EXPECT_EQ(tool.focusWidget()->objectName(), "Option11");
        const std::pair<const char*, const char*> captions[] = {{"txtName", "Name"},
                                                                {"txtID", "ID"},
                                                                {"txtClass", "Class"},
                                                                {"txtTitle", "Title"},
                                                                {"txtAccess", "Access Key"}};
        for (const auto& [name, caption] : captions) {
            EXPECT_EQ(Caption(tool, name), caption);
            EXPECT_EQ(Field(tool, name), "") << name;
        }
        EXPECT_EQ(Shown(Get<QAbstractButton>(tool, "chkDisabled").text()), "Input Disabled");
        EXPECT_FALSE(Get<QAbstractButton>(tool, "chkDisabled").isChecked());
    });
}

TEST_F(InputForm, CaptionsTheFieldsOfEachKind) {
    Open<frmInput>([](frmInput& tool) {
        const std::pair<const char*, const char*> captions[] = {{"Text2", "Value"},
                                                                {"Text4", "Value"},
                                                                {"Combo1", "Alignment"},
                                                                {"Text6", "Image Source"},
                                                                {"Text19", "Width (In Spaces)"},
                                                                {"Text20", "Maximum Length"},
                                                                {"Text21", "Value"},
                                                                {"Text12", "Value"},
                                                                {"Text13", "Text Displayed"},
                                                                {"Text15", "Button Label"},
                                                                {"Text23", "Width (In Characters)"},
                                                                {"Text24", "Height (In Characters)"},
                                                                {"Text26", "Contents"},
                                                                {"cboListSize", "List Size"}};
        for (const auto& [name, caption] : captions) EXPECT_EQ(Caption(tool, name), caption) << name;
        EXPECT_EQ(Shown(Get<QAbstractButton>(tool, "Check1").text()), "Checked");
        EXPECT_EQ(Shown(Get<QAbstractButton>(tool, "chkMultiple").text()), "Allow Multiple Selections");
        EXPECT_EQ(Values(tool, "Combo1"), (QStringList{"TOP", "MIDDLE", "BOTTOM"}));
        EXPECT_EQ(Values(tool, "cboListSize"), (QStringList{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
        EXPECT_EQ(Field(tool, "Combo1"), "");
        EXPECT_EQ(Field(tool, "cboListSize"), "");
        const auto& grid = Get<QTableWidget>(tool, "Grid1");
        EXPECT_EQ(grid.columnCount(), 2);
        EXPECT_EQ(grid.rowCount(), 1);
    });
}

TEST_F(InputForm, ShowsTheFieldsOfTheChosenKindAlone) {
    Open<frmInput>([](frmInput& tool) {
        QSet<QString> all;
        for (const KindOnForm& kind : kinds) all += QSet<QString>(kind.fields.begin(), kind.fields.end());
        const QSize size = tool.size();
        for (const KindOnForm& kind : kinds) {
            Click(tool, kind.option);
            for (const QString& name : all) {
                const auto& field = Get<QWidget>(tool, name);
                EXPECT_EQ(field.isVisible(), kind.fields.contains(name)) << kind.option << name.toStdString();
                for (const QLabel* label : tool.findChildren<QLabel*>()) {
                    if (label->buddy() != &field) continue;
                    EXPECT_EQ(label->isVisible(), field.isVisible()) << kind.option;
                }
            }
            EXPECT_EQ(tool.findChild<QStackedWidget*>()->parentWidget()->property("title").toString(),
                      Shown(kind.caption));
            EXPECT_EQ(tool.size(), size) << "nothing moves when another kind is chosen";
        }
    });
}

TEST_F(InputForm, WritesEveryKind) {
    const std::pair<std::function<void(frmInput&)>, const char*> written[] = {
        {[](frmInput& tool) {
             Type(tool, "Text2", "v");
             Click(tool, "Check1");
         },
         "<input type=\"checkbox\" value=\"v\" checked=\"checked\" />"},
        {[](frmInput& tool) { Type(tool, "Text4", "v"); }, "<input type=\"hidden\" value=\"v\" />"},
        {[](frmInput& tool) {
             Type(tool, "Combo1", "LEFT");
             Type(tool, "Text6", "v");
         },
         "<input type=\"image\" align=\"LEFT\" src=\"v\" />"},
        {[](frmInput& tool) {
             for (const char* name : {"Text19", "Text20", "Text21"}) Type(tool, name, name);
         },
         "<INPUT TYPE=\"password\" size=\"Text19\" maxlength=\"Text20\" value=\"Text21\" />"},
        {[](frmInput& tool) {
             Type(tool, "Text12", "v");
             Type(tool, "Text13", "t");
         },
         "<input type=\"radio\" value=\"v\" />t"},
        {[](frmInput& tool) { Type(tool, "Text15", "v"); }, "<input type=\"reset\" value=\"v\" />"},
        {[](frmInput& tool) { Type(tool, "Text15", "v"); }, "<input type=\"submit\" value=\"v\" />"},
        {[](frmInput& tool) {
             for (const char* name : {"Text19", "Text20", "Text21"}) Type(tool, name, name);
         },
         "<input type=\"text\" size=\"Text19\" maxlength=\"Text20\" value=\"Text21\" />"},
        {[](frmInput& tool) {
             Type(tool, "Text23", "9");
             Type(tool, "Text24", "2");
             auto& contents = Get<QPlainTextEdit>(tool, "Text26");
             QTest::mouseClick(contents.viewport(), Qt::LeftButton);
             Keys(tool, "a");
             Press(tool, Qt::Key_Return);
             Keys(tool, "b");
             Press(tool, Qt::Key_Return, Qt::ControlModifier);
             EXPECT_FALSE(tool.isVisible());
             EXPECT_EQ(tool.Markup(), "<textarea cols=\"9\" rows=\"2\">a\r\nb</textarea>") << "CR LF already here";
         },
         "<textarea cols=\"9\" rows=\"2\">a\r\nb</textarea>"},
        {[](frmInput& tool) {
             Get<QTableWidget>(tool, "Grid1").setFocus();
             Keys(tool, "a");
             Press(tool, Qt::Key_Tab);
             Keys(tool, "A");
             Click(tool, "cmdListPlus");
             Click(tool, "cmdListPlus");
             Click(tool, "cmdListMinus");
             Type(tool, "cboListSize", "2");
             Click(tool, "chkMultiple");
         },
         "<select size=\"2\" multiple=\"multiple\">\r\n<option value=\"a\">A</option>\r\n"
         "<option value=\"\"></option>\r\n</select>"},
        {[](frmInput& tool) { Type(tool, "Text15", "v"); }, "<button>v</button>"},
        {[](frmInput& tool) { Type(tool, "Text19", "7"); }, "<input type=\"file\" size=\"7\" />"},
    };
    for (int i = 0; const auto& [steps, markup] : written) {
        const KindOnForm& kind = kinds[i++];
        const QString text = Written([&](frmInput& tool) {
            Click(tool, kind.option);
            steps(tool);
        });
        EXPECT_EQ(text, markup) << kind.option;
    }
}

TEST_F(InputForm, PutsTheCommonFieldsIntoAnyKind) {
    const QString text = Written([](frmInput& tool) {
        for (const char* name : {"txtName", "txtID", "txtClass", "txtTitle"}) Type(tool, name, name);
        Type(tool, "txtAccess", "k");
        Click(tool, "chkDisabled");
        Click(tool, "Option2");
    });
    EXPECT_EQ(text,
              "<input type=\"hidden\" name=\"txtName\" id=\"txtID\" class=\"txtClass\" title=\"txtTitle\""
              " accesskey=\"k\" disabled=\"disabled\" />");
}

TEST_F(InputForm, KeepsWhatKindsShare) {
    const auto changed = [](const char* from, const char* field, const char* to) {
        return [=](frmInput& tool) {
            Click(tool, from);
            Type(tool, field, "v");
            Click(tool, to);
        };
    };
    EXPECT_EQ(Written(changed("Option6", "Text15", "Option7")), "<input type=\"submit\" value=\"v\" />");
    EXPECT_EQ(Written(changed("Option7", "Text15", "Option11")), "<button>v</button>");
    EXPECT_EQ(Written(changed("Option4", "Text21", "Option8")), "<input type=\"text\" value=\"v\" />");
    EXPECT_EQ(Written(changed("Option8", "Text19", "Option12")), "<input type=\"file\" size=\"v\" />");
    EXPECT_EQ(Written(changed("Option4", "Text20", "Option12")), "<input type=\"file\" />");
    EXPECT_EQ(Written(changed("Option1", "Text2", "Option2")), "<input type=\"hidden\" />") << "their own values";
    EXPECT_EQ(Written(changed("Option2", "Text4", "Option5")), "<input type=\"radio\" />");
}

TEST_F(InputForm, HoldsOneCharacterAsAccessKey) {
    Open<frmInput>([](frmInput& tool) {
        auto& line = Get<QLineEdit>(tool, "txtAccess");
        Type(tool, "txtAccess", "ab");
        EXPECT_EQ(line.text(), "a");
        EXPECT_EQ(line.cursorPosition(), 1);
        Press(tool, Qt::Key_Home);
        Keys(tool, "c");
        EXPECT_EQ(line.text(), "c") << "the first of the two";
        EXPECT_EQ(line.cursorPosition(), 1);
        Press(tool, Qt::Key_Backspace);
        EXPECT_EQ(line.text(), "");
        line.insert(QString::fromUtf8("\U0001F98Cxy"));
        EXPECT_EQ(line.text(), QString::fromUtf8("\U0001F98C")) << "a character of two units stays whole";
        line.selectAll();
        Keys(tool, "zy");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<button accesskey=\"z\"></button>");
}

TEST_F(InputForm, ChoosesKindsByTheirLetters) {
    const std::pair<Qt::Key, const char*> letters[] = {
        {Qt::Key_C, "Option1"}, {Qt::Key_H, "Option2"}, {Qt::Key_I, "Option3"}, {Qt::Key_P, "Option4"},
        {Qt::Key_R, "Option5"}, {Qt::Key_E, "Option6"}, {Qt::Key_S, "Option7"}, {Qt::Key_T, "Option8"},
        {Qt::Key_X, "Option9"}, {Qt::Key_L, "Option10"}};
    Open<frmInput>([&](frmInput& tool) {
        for (const auto& [letter, name] : letters) {
            const auto& option = Get<QAbstractButton>(tool, name);
            Press(tool, letter, Qt::AltModifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return option.isChecked(); })) << name;
            EXPECT_EQ(tool.focusWidget(), &option);
        }
        EXPECT_TRUE(tool.isVisible());
    });
}

TEST_F(InputForm, TakesAKindByKeysAlone) {
    const QString text = Written([](frmInput& tool) {
        Press(tool, Qt::Key_Down);
        Press(tool, Qt::Key_Tab);
        Keys(tool, "upload");
        for (int i = 0; i < 6; ++i) Press(tool, Qt::Key_Tab);
        Keys(tool, "30");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(text, "<input type=\"file\" name=\"upload\" size=\"30\" />");
}

TEST_F(InputForm, LeavesTheTextBoxByTab) {
    Open<frmInput>([](frmInput& tool) {
        Click(tool, "Option9");
        Get<QPlainTextEdit>(tool, "Text26").setFocus();
        Press(tool, Qt::Key_Tab);
        EXPECT_EQ(tool.focusWidget()->objectName(), "cmdOK");
    });
}

}  // namespace
}  // namespace vellum::test
