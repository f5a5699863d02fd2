#include "tools/framework/tool_dialog.h"

#include "tests/tools/tool_fixture.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace vellum::test {
namespace {

// One field of each kind.
class SampleTool : public ToolDialog {
public:
    explicit SampleTool(Workbench& bench) : ToolDialog(bench, "SampleTool", "Sample") {
        txtName = AddText("txtName", "Name", "first");
        cboSize = AddCombo("cboSize", "Size", {"50", "100"}, "100");
        cboColor = AddColor("cboColor", "Text Color", "Set Color", ColorStart::Field);
        txtFile = AddFile("txtFile", "File", "Find", "All Files|*.*", [this](const QString& path) { chosen = path; });
        BeginFrame("More");
        AddCheck("chkMore", "More of it", true);
        EndFrame();
        AddText("txtLast", "Last");
        Finish([this] { return "<" + txtName->text() + cboSize->currentText() + ">"; }, OnCancel::FocusText);
    }

    QLineEdit* txtName;
    QComboBox* cboSize;
    QComboBox* cboColor;
    QLineEdit* txtFile;
    QString chosen;
};

// Three panes, the first with a field at its top that can't take the keyboard.
class PanedTool : public ToolDialog {
public:
    explicit PanedTool(Workbench& bench) : ToolDialog(bench, "PanedTool", "Panes") {
        AddPane("First");
        AddText("txtOff", "Off")->setEnabled(false);
        AddText("txtOne", "One", "1");
        AddPane("Second");
        AddCombo("cboTwo", "Two", {"a", "b"}, "a");
        AddPane("Third");
        AddText("txtThree", "Three");
        Finish([this] { return QString::number(VisiblePane()); });
    }
};

// A field with two notes, a second column, and a field that grows.
class SpreadTool : public ToolDialog {
public:
    explicit SpreadTool(Workbench& bench) : ToolDialog(bench, "SpreadTool", "Spread") {
        auto* const name = AddText("txtName", "Name");
        AddNote(name, "For the first");
        AddNote(name, "And the second");
        auto* const large = new QWidget(Parent());
        large->setObjectName("large");
        AddGrowing(large);
        AddText("txtBelow", "Below");
        NextColumn();
        AddText("txtBeside", "Beside");
        Finish([] { return QString(); });
    }
};

class ToolDialogs : public ToolFixture {};

TEST_F(ToolDialogs, SetNotesBelowAFieldAndTellThemWithIt) {
    Open<SpreadTool>([](SpreadTool& tool) {
        const auto& field = Get<QLineEdit>(tool, "txtName");
        EXPECT_EQ(field.accessibleDescription(), "For the first, And the second");
        int below = field.geometry().bottom();
        for (const char* text : {"For the first", "And the second"}) {
            const QList<QLabel*> labels = tool.findChildren<QLabel*>();
            const auto note =
                std::find_if(labels.begin(), labels.end(), [&](auto* one) { return one->text() == text; });
            ASSERT_NE(note, labels.end());
            EXPECT_GT((*note)->y(), below);
            EXPECT_EQ((*note)->x(), field.x());
            below = (*note)->geometry().bottom();
        }
    });
}

TEST_F(ToolDialogs, GiveTheHeightToSpareToAFieldThatGrows) {
    Open<SpreadTool>([](SpreadTool& tool) {
        const auto& large = Get<QWidget>(tool, "large");
        const int height = large.height();
        tool.resize(tool.width(), tool.height() + 100);
        ASSERT_TRUE(QTest::qWaitFor([&] { return large.height() == height + 100; }));
        EXPECT_GT(Get<QLineEdit>(tool, "txtBelow").y(), large.geometry().bottom());
    });
}

TEST_F(ToolDialogs, KeepColumnsApart) {
    Open<SpreadTool>([](SpreadTool& tool) {
        const auto& first = Get<QLineEdit>(tool, "txtBelow");
        for (const QLabel* label : tool.findChildren<QLabel*>()) {
            if (label->text().remove('&') != "Beside") continue;
            EXPECT_GT(label->x() - first.geometry().right(), 2 * tool.fontMetrics().averageCharWidth());
            return;
        }
        FAIL() << "no such label";
    });
}

TEST_F(ToolDialogs, StartInTheirFirstFieldWithItsTextSelected) {
    Open<SampleTool>([](SampleTool& tool) {
        EXPECT_EQ(tool.focusWidget(), tool.txtName);
        EXPECT_EQ(tool.txtName->selectedText(), "first");
    });
    Open<PanedTool>([](PanedTool& tool) {
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtOne");
        EXPECT_EQ(Get<QLineEdit>(tool, "txtOne").selectedText(), "1");
    });
}

TEST_F(ToolDialogs, GoToTheFirstFieldOfAPaneThatIsTurnedTo) {
    Open<PanedTool>([](PanedTool& tool) {
        Tab(tool, 1);
        EXPECT_EQ(tool.focusWidget()->objectName(), "cboTwo");
        Get<QAbstractButton>(tool, "cmdOK").setFocus();
        Tab(tool, 0);
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtOne");
        QTest::keyClick(tool.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        QTest::keyClick(tool.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(tool.focusWidget()->objectName(), "txtThree");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "2");
}

TEST_F(ToolDialogs, TurnTheirPanesFromTheButtonsToo) {
    Open<PanedTool>([](PanedTool& tool) {
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        const std::vector<std::pair<Qt::Key, int>> turns{{Qt::Key_Tab, 1},     {Qt::Key_Tab, 2},
                                                         {Qt::Key_Tab, 0},     {Qt::Key_Backtab, 2},
                                                         {Qt::Key_Backtab, 1}, {Qt::Key_Backtab, 0}};
        for (const auto& [key, pane] : turns) {
            auto& button = Get<QAbstractButton>(tool, "cmdCancel");
            button.setFocus();
            QTest::keyClick(&button, key, Qt::ControlModifier);
            EXPECT_EQ(tabs.currentIndex(), pane);
        }
    });
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

TEST_F(ToolDialogs, LabelsHaveRoomForLettersThatTheAccessKeySetsApart) {
    Open<SampleTool>([](SampleTool& tool) {
        for (const QLabel* label : tool.findChildren<QLabel*>()) {
            const int measured = label->fontMetrics().size(Qt::TextShowMnemonic, label->text()).width();
            EXPECT_TRUE(!label->buddy() || label->width() > measured) << label->text().toStdString();
        }
    });
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

TEST_F(ToolDialogs, StartWithTheirDefaultsEachTime) {
    for (int i = 0; i < 2; ++i) {
        Open<SampleTool>([](SampleTool& tool) {
            EXPECT_EQ(tool.txtName->text(), "first");
            EXPECT_EQ(tool.cboSize->currentText(), "100");
            Type(tool, "txtName", "other");
            QTest::keyClick(&tool, Qt::Key_Escape);
        });
    }
    EXPECT_EQ(Text(), "");
}

TEST_F(ToolDialogs, ABoxTakesAnyTextAsItIsTyped) {
    Open<SampleTool>([](SampleTool& tool) {
        Type(tool, "cboSize", "5");
        EXPECT_EQ(tool.cboSize->currentText(), "5");
        QTest::keyClick(tool.cboSize->lineEdit(), Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<first5>");
}

TEST_F(ToolDialogs, FieldsFollowInTheOrderOfTheirLines) {
    const SampleTool tool(bench);
    const QStringList order{"txtName", "cboSize", "cboColor", "cmdColor", "txtFile",
                            "cmdFile", "chkMore", "txtLast",  "cmdOK",    "cmdCancel"};
    QStringList chain;
    const QWidget* widget = &tool;
    do {
        if (order.contains(widget->objectName())) chain << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != &tool);
    EXPECT_EQ(chain, order);
}

TEST_F(ToolDialogs, EveryFieldIsNamedForAScreenReader) {
    const SampleTool tool(bench);
    QStringList named;
    for (const QLabel* label : tool.findChildren<QLabel*>()) {
        if (label->buddy()) named << label->buddy()->objectName();
    }
    EXPECT_EQ(named, (QStringList{"txtName", "cboSize", "cboColor", "txtFile", "txtLast"}));
    EXPECT_EQ(Get<QPushButton>(tool, "cmdColor").accessibleName(), "Set Color, Text Color");
    EXPECT_EQ(Get<QPushButton>(tool, "cmdFile").accessibleName(), "Find, File");
    EXPECT_TRUE(Get<QPushButton>(tool, "cmdOK").isDefault());
}

TEST_F(ToolDialogs, APickedColorGoesIntoItsBoxAndACancelChangesNothing) {
    bench.prompts.colors = {0x00FF00};
    Open<SampleTool>([](SampleTool& tool) {
        Click(tool, "cmdColor");
        EXPECT_EQ(tool.cboColor->currentText(), "#00FF00");
        Click(tool, "cmdColor");
        EXPECT_EQ(tool.cboColor->currentText(), "#00FF00");
    });
}

TEST_F(ToolDialogs, APickedFileGivesItsBareNameAndACancelChangesNothing) {
    bench.prompts.openNames = {"/site/img/a \"b\" #1.gif"};
    Open<SampleTool>([this](SampleTool& tool) {
        Click(tool, "cmdFile");
        EXPECT_EQ(tool.txtFile->text(), "a \"b\" #1.gif");
        EXPECT_EQ(tool.chosen, "/site/img/a \"b\" #1.gif");
        Click(tool, "cmdFile");
        EXPECT_EQ(tool.txtFile->text(), "a \"b\" #1.gif");
        ASSERT_EQ(bench.prompts.requests.size(), 2U);
        EXPECT_EQ(bench.prompts.requests[0].filter, "All Files|*.*");
        EXPECT_EQ(bench.prompts.requests[0].directory, folder.path());
    });
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
