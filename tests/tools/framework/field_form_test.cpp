#include "tools/framework/field_form.h"

#include "tests/tools/tool_fixture.h"
#include "widgets/color_swatch.h"

#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableWidget>

namespace vellum::test {
namespace {

enum class Size { Small, Large };

struct SampleFields {
    QString name = "first";
    QString width = "100";
    QString color = "RED";
    QString file;
    bool more = true;
    Size size = Size::Large;
    ColorNumber swatch = 0x0000FF;
    GridRows rows{{"a", "1"}, {"b", "2"}};
    QStringList entries{"one", "two"};
};

// One field of each kind.
class SampleForm : public FieldForm {
public:
    explicit SampleForm(Workbench& bench) : FieldForm(bench, "SampleForm", "Sample") {
        AddText(fields.name, "txtName", "Name");
        AddCombo(fields.width, "cboWidth", "Width", {"50", "100"});
        AddColor(fields.color, "cboColor", "Text Color", "Set Color", ColorStart::Field);
        AddFile(fields.file, "txtFile", "File", "Find", "All Files|*.*",
                [this](const QString& path) { chosen = path; });
        AddCheck(fields.more, "chkMore", "More of it");
        part = AddFrame("Size", [this] {
            AddOption(fields.size, Size::Small, "optSmall", "Small");
            AddOption(fields.size, Size::Large, "optLarge", "Large");
        });
        AddSwatch(fields.swatch, "lblSwatch", "Ink");
        AddGrid(fields.rows, {.titles = {"Name", "Value"}});
        AddLists({.columns = {{.entries = fields.entries, .list = {"List1", "Entries"}, .line = {"txtEntry", "New"}}},
                  .add = {"cmdAdd", "Add"},
                  .remove = {"cmdRemove", "Remove"}});
        AddButton("cmdPress", "Press", [this] { ++pressed; });
        AddClosingRow({"cmdOK", "&OK"}, [this] { accept(); });
    }

    using FieldForm::Follow;
    using FieldForm::ShowFields;
    using FieldForm::ShowWhile;

    SampleFields fields;
    QString chosen;
    QWidget* part;
    int pressed = 0;
};

// Three panes, and a check below them.
class PanedForm : public FieldForm {
public:
    explicit PanedForm(Workbench& bench) : FieldForm(bench, "PanedForm", "Panes") {
        AddPane("&First", "The first of them");
        AddText(texts[0], "txtOne", "One");
        AddPane("Second");
        AddText(texts[1], "txtTwo", "Two");
        AddPane("Third");
        AddText(texts[2], "txtThree", "Three");
        auto* const check = new QCheckBox("Below");
        check->setObjectName("chkBelow");
        Bind(below, check);
        AddClosingRow({}, {}, check);
    }

    QString texts[3];
    bool below = true;
};

class FieldForms : public ToolFixture {
protected:
    static void Show(QDialog& form) {
        form.open();
        ASSERT_TRUE(QTest::qWaitFor([&form] { return form.isActiveWindow(); }));
    }

    static void Enter(const QWidget& form, const QString& name) { Get<QWidget>(form, name).setFocus(); }
};

TEST_F(FieldForms, StartWithWhatTheirFieldsHold) {
    const SampleForm form(bench);
    EXPECT_EQ(Field(form, "txtName"), "first");
    EXPECT_EQ(Field(form, "cboWidth"), "100");
    EXPECT_EQ(Get<QComboBox>(form, "cboWidth").currentIndex(), 1);
    EXPECT_EQ(Field(form, "cboColor"), "RED");
    EXPECT_EQ(Field(form, "txtFile"), "");
    EXPECT_TRUE(Get<QCheckBox>(form, "chkMore").isChecked());
    EXPECT_FALSE(Get<QRadioButton>(form, "optSmall").isChecked());
    EXPECT_TRUE(Get<QRadioButton>(form, "optLarge").isChecked());
    EXPECT_EQ(Get<ColorSwatch>(form, "lblSwatch").Color(), 0x0000FFU);
    EXPECT_EQ(Get<QTableWidget>(form, "Grid1").item(1, 0)->text(), "b");
    EXPECT_EQ(Get<QListWidget>(form, "List1").item(1)->text(), "two");
}

TEST_F(FieldForms, KeepTheirFieldsUpToDateWithWhatIsTypedAndClicked) {
    bench.prompts.colors = {0x00FF00};
    SampleForm form(bench);
    Show(form);
    Type(form, "txtName", "other");
    EXPECT_EQ(form.fields.name, "other");
    Type(form, "cboWidth", "5");
    EXPECT_EQ(form.fields.width, "5") << "it takes any text, as it is typed";
    Enter(form, "cboWidth");
    Press(form, Qt::Key_Up);
    EXPECT_EQ(form.fields.width, "50");
    Click(form, "chkMore");
    EXPECT_FALSE(form.fields.more);
    Click(form, "optSmall");
    EXPECT_EQ(form.fields.size, Size::Small);
    Click(form, "lblSwatch");
    EXPECT_EQ(form.fields.swatch, 0x00FF00U);
    Enter(form, "Grid1");
    QTest::keyClicks(form.focusWidget(), "new");
    EXPECT_EQ(form.fields.rows, (GridRows{{"new", "1"}, {"b", "2"}}));
    Click(form, "cmdPlus");
    EXPECT_EQ(form.fields.rows.size(), 3U);
    Type(form, "txtEntry", "three");
    Click(form, "cmdAdd");
    EXPECT_EQ(form.fields.entries, (QStringList{"one", "two", "three"}));
    Click(form, "cmdPress");
    EXPECT_EQ(form.pressed, 1);
}

TEST_F(FieldForms, KeepTheirFieldsUpToDateWithWhatCodeSets) {
    SampleForm form(bench);
    Get<QLineEdit>(form, "txtName").setText("other");
    EXPECT_EQ(form.fields.name, "other");
    Get<QComboBox>(form, "cboWidth").setEditText("7");
    EXPECT_EQ(form.fields.width, "7");
    Get<QRadioButton>(form, "optSmall").setChecked(true);
    EXPECT_EQ(form.fields.size, Size::Small);
    Get<ColorSwatch>(form, "lblSwatch").SetColor(7);
    EXPECT_EQ(form.fields.swatch, 7U);
    Get<QTableWidget>(form, "Grid1").item(1, 1)->setText("9");
    EXPECT_EQ(form.fields.rows, (GridRows{{"a", "1"}, {"b", "9"}}));
}

TEST_F(FieldForms, ShowWhatCodeHasPutIntoTheirFields) {
    SampleForm form(bench);
    const SampleFields other{.name = "n",
                             .width = "9",
                             .color = "",
                             .file = "f",
                             .more = false,
                             .size = Size::Small,
                             .swatch = 3,
                             .rows = {{"x", "y"}},
                             .entries = {}};
    form.fields = other;
    form.ShowFields();
    for (const auto& [field, text] : std::vector<std::pair<const char*, const char*>>{
             {"txtName", "n"}, {"cboWidth", "9"}, {"cboColor", ""}, {"txtFile", "f"}}) {
        EXPECT_EQ(Field(form, field), text) << field;
    }
    EXPECT_FALSE(Get<QCheckBox>(form, "chkMore").isChecked());
    EXPECT_TRUE(Get<QRadioButton>(form, "optSmall").isChecked());
    EXPECT_EQ(Get<ColorSwatch>(form, "lblSwatch").Color(), 3U);
    EXPECT_EQ(Get<QTableWidget>(form, "Grid1").rowCount(), 1);
    EXPECT_EQ(Get<QListWidget>(form, "List1").count(), 0);
    EXPECT_EQ(form.fields.size, Size::Small);
    EXPECT_EQ(form.fields.rows, (GridRows{{"x", "y"}}));
}

TEST_F(FieldForms, TellOfEachChangeOnce) {
    SampleForm form(bench);
    const QSignalSpy changes(&form, &FieldForm::Changed);
    Get<QLineEdit>(form, "txtName").setText("other");
    EXPECT_EQ(changes.count(), 1);
    Get<QRadioButton>(form, "optSmall").setChecked(true);
    EXPECT_EQ(changes.count(), 2) << "one goes on, another off";
    form.fields = {};
    form.ShowFields();
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(FieldForms, ListsInStepAreTakenTogether) {
    struct PairForm : FieldForm {
        explicit PairForm(Workbench& bench) : FieldForm(bench, "PairForm", "Pairs") {
            AddLists({.columns = {{.entries = names, .list = {"List1", "Names"}, .line = {"txtName", "Name"}},
                                  {.entries = values, .list = {"List2", "Values"}, .line = {"txtValue", "Value"}}},
                      .add = {"cmdAdd", "Add"},
                      .remove = {"cmdRemove", "Remove"}});
        }
        QStringList names;
        QStringList values;
    };
    PairForm form(bench);
    QStringList seen;
    QObject::connect(&form, &FieldForm::Changed, &form,
                     [&] { seen << form.names.join(',') + '=' + form.values.join(','); });
    Type(form, "txtName", "a");
    Type(form, "txtValue", "1");
    Click(form, "cmdAdd");
    EXPECT_EQ(seen, QStringList{"a=1"});
}

TEST_F(FieldForms, FollowTheirFields) {
    SampleForm form(bench);
    QStringList seen;
    form.Follow([&] { seen << form.fields.name; });
    Get<QLineEdit>(form, "txtName").setText("other");
    form.fields.name = "shown";
    form.ShowFields();
    EXPECT_EQ(seen, (QStringList{"first", "other", "shown"}));
}

TEST_F(FieldForms, GrowAndShrinkByAPartThatShowsAtTimes) {
    SampleForm form(bench);
    form.ShowWhile(form.part, [&] { return form.fields.more; });
    Show(form);
    EXPECT_TRUE(form.part->isVisible());
    form.resize(form.size() + QSize(30, 40));
    const QSize shown = form.size();
    Click(form, "chkMore");
    EXPECT_FALSE(form.part->isVisible());
    EXPECT_LE(form.height(), shown.height() - form.part->height());
    EXPECT_EQ(form.width(), shown.width());
    Click(form, "chkMore");
    EXPECT_TRUE(form.part->isVisible());
    EXPECT_EQ(form.size(), shown) << "what the author has added to the size stays";
}

TEST_F(FieldForms, HideAPartBeforeTheyShow) {
    SampleForm form(bench);
    form.fields.more = false;
    form.ShowWhile(form.part, [&] { return form.fields.more; });
    Show(form);
    EXPECT_FALSE(form.part->isVisible());
    const int height = form.height();
    form.fields.more = true;
    form.ShowFields();
    EXPECT_TRUE(form.part->isVisible());
    EXPECT_GE(form.height(), height + form.part->height());
}

TEST_F(FieldForms, FollowInTheOrderOfTheirLines) {
    const SampleForm form(bench);
    const QStringList order{"txtName",  "cboWidth", "cboColor",  "cmdColor", "txtFile", "cmdFile",  "chkMore",
                            "optSmall", "optLarge", "lblSwatch", "Grid1",    "cmdPlus", "cmdMinus", "List1",
                            "txtEntry", "cmdAdd",   "cmdRemove", "cmdPress", "cmdOK",   "cmdCancel"};
    QStringList chain;
    const QWidget* widget = &form;
    do {
        if (order.contains(widget->objectName())) chain << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != &form);
    EXPECT_EQ(chain, order);
}

TEST_F(FieldForms, EveryFieldIsNamedForAScreenReader) {
    const SampleForm form(bench);
    QStringList named;
    for (const QLabel* label : form.findChildren<QLabel*>()) {
        if (label->buddy()) named << label->buddy()->objectName();
    }
    EXPECT_EQ(named,
              (QStringList{"txtName", "cboWidth", "cboColor", "txtFile", "lblSwatch", "cmdPlus", "List1", "txtEntry"}));
    EXPECT_EQ(Get<QPushButton>(form, "cmdColor").accessibleName(), "Set Color, Text Color");
    EXPECT_EQ(Get<QPushButton>(form, "cmdFile").accessibleName(), "Find, File");
}

TEST_F(FieldForms, APickedColorGoesIntoItsBoxAndACancelChangesNothing) {
    bench.prompts.colors = {0x00FF00};
    SampleForm form(bench);
    Show(form);
    Click(form, "cmdColor");
    EXPECT_EQ(form.fields.color, "#00FF00");
    EXPECT_EQ(Field(form, "cboColor"), "#00FF00");
    Click(form, "cmdColor");
    EXPECT_EQ(form.fields.color, "#00FF00");
    EXPECT_EQ(bench.prompts.firstColors, (std::vector<ColorNumber>{0x0000FF, 0x00FF00}));
}

TEST_F(FieldForms, APickedFileGivesItsBareNameAndACancelChangesNothing) {
    bench.prompts.openNames = {"/site/img/a \"b\" #1.gif"};
    SampleForm form(bench);
    Show(form);
    Click(form, "cmdFile");
    EXPECT_EQ(form.fields.file, "a \"b\" #1.gif");
    EXPECT_EQ(form.chosen, "/site/img/a \"b\" #1.gif");
    Click(form, "cmdFile");
    EXPECT_EQ(form.fields.file, "a \"b\" #1.gif");
    ASSERT_EQ(bench.prompts.requests.size(), 2U);
    EXPECT_EQ(bench.prompts.requests[0].filter, "All Files|*.*");
    EXPECT_EQ(bench.prompts.requests[0].directory, folder.path());
}

TEST_F(FieldForms, EndWithADefaultButtonAndCancel) {
    SampleForm form(bench);
    Show(form);
    EXPECT_TRUE(Get<QPushButton>(form, "cmdOK").isDefault());
    Enter(form, "txtName");
    Press(form, Qt::Key_Return);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    Show(form);
    Click(form, "cmdCancel");
    EXPECT_EQ(form.result(), QDialog::Rejected);
    const PanedForm without(bench);
    EXPECT_EQ(without.findChildren<QPushButton*>().size(), 1);
}

TEST_F(FieldForms, SetACheckBesideTheClosingButtons) {
    PanedForm form(bench);
    Show(form);
    const auto& check = Get<QCheckBox>(form, "chkBelow");
    EXPECT_TRUE(check.isChecked());
    Click(form, "chkBelow");
    EXPECT_FALSE(form.below);
    EXPECT_GT(check.y(), Get<QTabWidget>(form, "TabStrip1").geometry().bottom());
    EXPECT_GT(Get<QWidget>(form, "cmdCancel").x(), check.geometry().right());
}

TEST_F(FieldForms, ShowThePaneOfTheirTab) {
    PanedForm form(bench);
    Show(form);
    const auto& tabs = Get<QTabWidget>(form, "TabStrip1");
    EXPECT_EQ(tabs.accessibleName(), "Panes");
    EXPECT_EQ(tabs.tabToolTip(0), "The first of them");
    EXPECT_EQ(Get<QWidget>(form, "picOption(0)").accessibleName(), "First");
    for (const int pane : {1, 2, 0}) {
        Tab(form, pane);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(Get<QWidget>(form, QString("picOption(%1)").arg(i)).isVisible(), i == pane);
        }
    }
    Type(form, "txtOne", "typed");
    EXPECT_EQ(form.texts[0], "typed");
}

TEST_F(FieldForms, TurnTheirPanesByKeysWhereverTheKeyboardIs) {
    PanedForm form(bench);
    Show(form);
    const auto& tabs = Get<QTabWidget>(form, "TabStrip1");
    struct Turn {
        Qt::Key key;
        bool shift;
        int pane;
    };
    for (const char* from : {"cmdCancel", "txtOne"}) {
        for (const auto& [key, shift, pane] :
             {Turn{Qt::Key_Tab, false, 1}, Turn{Qt::Key_Tab, false, 2}, Turn{Qt::Key_PageDown, false, 0},
              Turn{Qt::Key_Backtab, true, 2}, Turn{Qt::Key_PageUp, false, 1}, Turn{Qt::Key_Backtab, true, 0}}) {
            QWidget& field = Get<QWidget>(form, from);
            if (field.isVisible()) field.setFocus();
            Press(form, key, shift ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);
            EXPECT_EQ(tabs.currentIndex(), pane) << from;
        }
    }
}

TEST_F(FieldForms, AreNeverNarrowerThanTheFieldsOfAPane) {
    PanedForm form(bench);
    Show(form);
    form.resize(1, 1);
    const auto& line = Get<QLineEdit>(form, "txtOne");
    EXPECT_GE(line.width(), line.minimumWidth());
    EXPECT_TRUE(line.parentWidget()->rect().contains(line.geometry()));
}

TEST_F(FieldForms, AreAsWideAsTheirTabs) {
    class Wide : public FieldForm {
    public:
        explicit Wide(Workbench& bench) : FieldForm(bench, "Wide", "Wide") {
            for (int i = 0; i < 6; ++i) AddPane("A long caption");
            AddClosingRow({}, {});
        }
    } form(bench);
    Show(form);
    const auto& tabs = Get<QTabWidget>(form, "TabStrip1");
    EXPECT_GE(tabs.width(), tabs.tabBar()->sizeHint().width());
}

}  // namespace
}  // namespace vellum::test
