#include "tools/framework/tool_dialog.h"

#include "tests/tools/tool_fixture.h"

#include <QPushButton>
#include <QSet>

namespace vellum::test {
namespace {

// Stays open while its name is empty.
class SampleTool : public ToolDialog {
public:
    explicit SampleTool(Workbench& bench, const QString& name = "first")
        : ToolDialog(bench, "SampleTool", "Sample"), name_(name) {
        AddText(name_, "txtName", "Name");
        AddCombo(size_, "cboSize", "Size", {"50", "100"});
        Finish([this] { return name_.isEmpty() ? std::nullopt : std::optional("<" + name_ + size_ + ">"); },
               OnCancel::FocusText);
    }

private:
    QString name_;
    QString size_ = "100";
};

// Three panes, the first with a field at its top that can't take the keyboard, the last without a text of its own.
class PanedTool : public ToolDialog {
public:
    explicit PanedTool(Workbench& bench) : ToolDialog(bench, "PanedTool", "Panes") {
        AddPane("First", {}, [] { return "one"; });
        AddText(texts_[0], "txtOff", "Off")->setEnabled(false);
        AddText(texts_[1], "txtOne", "One");
        AddPane("Second", {}, [] { return "two"; });
        AddCombo(texts_[2], "cboTwo", "Two", {"a", "b"});
        AddPane("Third");
        AddText(texts_[3], "txtThree", "Three");
        Finish([] { return "else"; });
    }

private:
    QString texts_[4] = {"", "1", "a", ""};
};

// Has a button of its own in the place of OK, or none.
class ButtonTool : public ToolDialog {
public:
    explicit ButtonTool(Workbench& bench, bool builds = true) : ToolDialog(bench, "ButtonTool", "Button") {
        AddText(text_, "txtText", "Text");
        AddButton("cmdHere", "Here", [this] { HandOver("here"); });
        if (builds) {
            Finish([] { return "next"; }, OnCancel::Leave, {"cmdNext", "&Next"});
        } else {
            Finish();
        }
    }

private:
    QString text_;
};

// Begins with options, of which not the first is on.
class OptionTool : public ToolDialog {
public:
    explicit OptionTool(Workbench& bench) : ToolDialog(bench, "OptionTool", "Options") {
        AddOption(which_, 1, "optOne", "One");
        AddOption(which_, 2, "optTwo", "Two");
        Finish([this] { return QString::number(which_); });
    }

private:
    int which_ = 2;
};

class ToolDialogs : public ToolFixture {};

TEST_F(ToolDialogs, StartInTheirFirstFieldWithItsTextSelected) {
    Open<SampleTool>([](SampleTool& tool) {
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtName");
        EXPECT_EQ(Get<QLineEdit>(tool, "txtName").selectedText(), "first");
    });
    Open<PanedTool>([](PanedTool& tool) {
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtOne");
        EXPECT_EQ(Get<QLineEdit>(tool, "txtOne").selectedText(), "1");
    });
}

TEST_F(ToolDialogs, StartInTheOptionThatIsOn) {
    Open<OptionTool>([](OptionTool& tool) {
        EXPECT_EQ(tool.focusWidget()->objectName(), "optTwo");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "2");
}

TEST_F(ToolDialogs, GoToTheFirstFieldOfAPaneThatIsTurnedTo) {
    Open<PanedTool>([](PanedTool& tool) {
        Tab(tool, 1);
        EXPECT_EQ(tool.focusWidget()->objectName(), "cboTwo");
        Get<QAbstractButton>(tool, "cmdOK").setFocus();
        Tab(tool, 0);
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtOne");
        Press(tool, Qt::Key_Tab, Qt::ControlModifier);
        Press(tool, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtThree");
    });
}

TEST_F(ToolDialogs, WriteWhatThePaneThatShowsBuilds) {
    const char* const written[] = {"one", "two", "else"};
    for (int pane = 0; pane < 3; ++pane) {
        document.Text1->SetText("");
        Open<PanedTool>([pane](PanedTool& tool) {
            Tab(tool, pane);
            Click(tool, "cmdOK");
        });
        EXPECT_EQ(Text(), written[pane]);
    }
}

TEST_F(ToolDialogs, LeaveTheKeyboardToWhoWalksAlongTheTabs) {
    Open<PanedTool>([](PanedTool& tool) {
        auto* const bar = Get<QTabWidget>(tool, "TabStrip1").tabBar();
        bar->setFocus();
        QTest::keyClick(bar, Qt::Key_Right);
        EXPECT_EQ(bar->currentIndex(), 1);
        EXPECT_EQ(tool.focusWidget(), bar);
        QTest::keyClick(bar, Qt::Key_Right);
        EXPECT_EQ(bar->currentIndex(), 2);
    });
}

TEST_F(ToolDialogs, HandOutAccessKeys) {
    const SampleTool tool(bench);
    QSet<QString> letters;
    for (const QLabel* label : tool.findChildren<QLabel*>())
        letters << QKeySequence::mnemonic(label->text()).toString();
    for (const QPushButton* button : tool.findChildren<QPushButton*>()) {
        letters << QKeySequence::mnemonic(button->text()).toString();
    }
    EXPECT_EQ(letters, (QSet<QString>{"Alt+N", "Alt+S", "Alt+O", "Alt+C"}));
}

TEST_F(ToolDialogs, HandTheirTextToTheDocumentWhenTheyAreGone) {
    document.Text1->SetText("ab");
    document.Text1->SetSelStart(1);
    Open<SampleTool>([this](SampleTool& tool) {
        Click(tool, "cmdOK");
        EXPECT_EQ(Text(), "ab") << "the form is still there";
    });
    EXPECT_EQ(Text(), "a<first100>b");
    EXPECT_FALSE(document.Saver());
}

TEST_F(ToolDialogs, StayOpenWhileTheirFieldsDoNotDo) {
    Open<SampleTool>([](SampleTool& tool) {
        Type(tool, "txtName", "");
        Press(tool, Qt::Key_Return);
        EXPECT_TRUE(tool.isVisible());
        EXPECT_FALSE(tool.Markup());
        Type(tool, "txtName", "now");
        Press(tool, Qt::Key_Return);
        EXPECT_FALSE(tool.isVisible());
    });
    EXPECT_EQ(Text(), "<now100>");
}

TEST_F(ToolDialogs, StartWithTheirDefaultsEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<SampleTool>([](SampleTool& tool) {
            EXPECT_EQ(Field(tool, "txtName"), "first");
            EXPECT_EQ(Field(tool, "cboSize"), "100");
            Type(tool, "txtName", "other");
            QTest::keyClick(&tool, Qt::Key_Escape);
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(ToolDialogs, AreOpenedWithFieldsThatAreGiven) {
    InModal<SampleTool>([this] { ShowTool<SampleTool>(bench, QString("given")); },
                        [](SampleTool& tool) { Press(tool, Qt::Key_Return); });
    EXPECT_EQ(Text(), "<given100>");
}

TEST_F(ToolDialogs, MayHaveAnotherButtonInThePlaceOfOk) {
    Open<ButtonTool>([](ButtonTool& tool) {
        EXPECT_EQ(Get<QPushButton>(tool, "cmdNext").text(), "&Next");
        EXPECT_FALSE(tool.findChild<QPushButton*>("cmdOK"));
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "next");
}

TEST_F(ToolDialogs, MayHaveCancelAlone) {
    InModal<ButtonTool>([this] { ShowTool<ButtonTool>(bench, false); },
                        [](ButtonTool& tool) {
                            EXPECT_FALSE(tool.findChild<QPushButton*>("cmdOK"));
                            EXPECT_TRUE(tool.findChild<QPushButton*>("cmdCancel"));
                            Click(tool, "cmdHere");
                        });
    EXPECT_EQ(Text(), "here");
}

TEST_F(ToolDialogs, ClosingGivesTheMainWindowBack) {
    Open<SampleTool>([this](SampleTool& tool) {
        window.setEnabled(false);
        tool.setEnabled(true);
        tool.close();
    });
    EXPECT_TRUE(window.isEnabled());
}

TEST_F(ToolDialogs, CancelMayGiveTheKeyboardToTheText) {
    QLineEdit elsewhere(&window);
    elsewhere.show();
    elsewhere.setFocus();
    Open<SampleTool>([](SampleTool& tool) { Click(tool, "cmdCancel"); });
    EXPECT_EQ(window.focusWidget(), document.Text1);
}

TEST_F(ToolDialogs, NothingHappensWithoutADocument) {
    EXPECT_EQ(SelectedText(bench), "");
    document.Text1->SetText("word");
    document.Text1->SetSelLength(4);
    EXPECT_EQ(SelectedText(bench), "word");
    bench.active = nullptr;
    EXPECT_EQ(SelectedText(bench), "");
    Open<SampleTool>([](SampleTool& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(Text(), "word");
}

}  // namespace
}  // namespace vellum::test
