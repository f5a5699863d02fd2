#include "tools/scripts/frm_controls.h"

#include "tests/support/wait_for.h"
#include "tests/tools/scripts/registry_sample.h"
#include "tests/tools/tool_fixture.h"
#include "tools/scripts/frm_options.h"
#include "tools/scripts/object_tag.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QGroupBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

namespace vellum::test {
namespace {

constexpr auto picked = "Pick Your ActiveX Control";

class ControlForms : public ToolFixture {
protected:
    void SetUp() override {
        ToolFixture::SetUp();
        qputenv("WINEPREFIX", folder.path().toUtf8());
    }
    void TearDown() override { qunsetenv("WINEPREFIX"); }

    void WriteRegistry() {
        QFile file(folder.filePath("system.reg"));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(registrySample);
        file.close();
        controls = ReadControls(file.fileName());
        ASSERT_EQ(controls.size(), 2U);
    }

    // Opens the list, waits for it, and runs the steps.
    void OpenList(const std::function<void(frmControls&)>& steps) {
        Open<frmControls>([&](frmControls& tool) {
            ASSERT_TRUE(WaitFor([&] { return tool.windowTitle() == picked; }));
            steps(tool);
        });
    }
    // The options, from the button of the list.
    void OpenOptions(const std::function<void(frmOptions&)>& steps) {
        OpenList([&](frmControls& tool) { InModal<frmOptions>([&] { Click(tool, "cmdOptions"); }, steps); });
    }

    static QPoint PlaceOf(const QListWidget& list, int row) { return list.visualItemRect(list.item(row)).center(); }
    static void ClickRow(const QWidget& form, int row, Qt::KeyboardModifiers modifiers = {}) {
        const auto& list = Get<QListWidget>(form, "lstControls");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, PlaceOf(list, row));
    }
    static void RightClick(const QListWidget& list, QPoint place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
        QApplication::sendEvent(list.viewport(), &event);
    }
    static QString Preview(const QWidget& form) { return Get<QPlainTextEdit>(form, "txtPreview").toPlainText(); }
    [[nodiscard]] QString Element(const ObjectOptions& options) const {
        return BuildObjTag(controls.at(0), options).replace("\r\n", "\n");
    }

    std::vector<Control> controls;
};

TEST_F(ControlForms, TellWhenThereAreNone) {
    OpenList([](frmControls& tool) {
        EXPECT_EQ(Get<QListWidget>(tool, "lstControls").count(), 0);
        EXPECT_TRUE(Get<QLabel>(tool, "lblNone").isVisible());
        EXPECT_EQ(Get<QLabel>(tool, "lblNone").text(), "No controls registered.");
        EXPECT_FALSE(Get<QPushButton>(tool, "cmdOK").isEnabled());
    });
    OpenOptions([](frmOptions& options) {
        EXPECT_EQ(Preview(options), "No controls registered.");
        Click(options, "optLine(1)");
        EXPECT_EQ(Preview(options), "No controls registered.");
    });
}

TEST_F(ControlForms, ListTheControls) {
    WriteRegistry();
    OpenList([&](frmControls& tool) {
        const auto& list = Get<QListWidget>(tool, "lstControls");
        ASSERT_EQ(list.count(), 2);
        EXPECT_EQ(list.item(0)->text(), controls[0].name);
        EXPECT_EQ(list.item(1)->text(), "Zebra \"Striped\" Control");
        EXPECT_FALSE(Get<QLabel>(tool, "lblNone").isVisible());
        EXPECT_FALSE(Get<QPushButton>(tool, "cmdOK").isEnabled());
    });
}

// The list comes a little after the form.
TEST_F(ControlForms, SayThatTheyRead) {
    WriteRegistry();
    frmControls tool(bench);
    EXPECT_EQ(tool.windowTitle(), "Select Control and Right Click");
    tool.show();
    EXPECT_EQ(tool.windowTitle(), "Reading Registry, please wait...");
    EXPECT_TRUE(WaitFor([&] { return tool.windowTitle() == picked; }));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ControlForms, ADoubleClickWritesTheControl) {
    WriteRegistry();
    OpenList([](frmControls& tool) {
        const auto& list = Get<QListWidget>(tool, "lstControls");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, PlaceOf(list, 1));
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, PlaceOf(list, 1));
        EXPECT_FALSE(tool.isVisible());
    });
    EXPECT_EQ(Text(), ObjectMarkup({controls[1]}, {}));
}

TEST_F(ControlForms, CopyAndOKWriteAllThatAreSelected) {
    WriteRegistry();
    OpenList([](frmControls& tool) {
        ClickRow(tool, 1);
        ClickRow(tool, 0, Qt::ControlModifier);
        Click(tool, "cmdOK");
        EXPECT_FALSE(tool.isVisible());
    });
    EXPECT_EQ(Text(), ObjectMarkup(controls, {}));
    document.Text1->SetText("");
    OpenList([](frmControls& tool) {
        const auto& list = Get<QListWidget>(tool, "lstControls");
        ClickRow(tool, 0);
        InPopup([&] { RightClick(list, PlaceOf(list, 0)); },
                [](QMenu& menu) {
                    ASSERT_EQ(menu.actions().size(), 2);
                    EXPECT_EQ(menu.actions().at(0)->text(), "Copy");
                    EXPECT_EQ(menu.actions().at(1)->text(), "&Options...");
                    QTest::keyClick(&menu, Qt::Key_Down);
                    QTest::keyClick(&menu, Qt::Key_Return);
                });
        EXPECT_FALSE(tool.isVisible());
    });
    EXPECT_EQ(Text(), ObjectMarkup({controls[0]}, {}));
}

TEST_F(ControlForms, TheMenuOpensTheOptions) {
    OpenList([](frmControls& tool) {
        const auto& list = Get<QListWidget>(tool, "lstControls");
        bool opened = false;
        InModal<frmOptions>(
            [&] {
                InPopup(
                    [&] {
                        RightClick(list, {5, 5});
                    },
                    [](QMenu& menu) {
                        EXPECT_FALSE(menu.actions().at(0)->isEnabled()) << "nothing is selected";
                        QTest::keyClick(&menu, Qt::Key_O);
                    });
            },
            [&](frmOptions& /*options*/) { opened = true; });
        EXPECT_TRUE(opened);
    });
}

TEST_F(ControlForms, OptionsShowTheirCaptionsAndDefaults) {
    WriteRegistry();
    OpenOptions([&](frmOptions& options) {
        EXPECT_EQ(options.windowTitle(), "Options");
        const std::tuple<const char*, const char*, bool> choices[] = {
            {"optID(0)", "ClassID", true},  {"optID(1)", "ProgID", false}, {"optTag(0)", "OBJECT", true},
            {"optTag(1)", "INSERT", false}, {"optCase(0)", "CAPS", true},  {"optCase(1)", "lower", false},
            {"optCase(2)", "Mixed", false}, {"optLine(0)", "Multi", true}, {"optLine(1)", "Single", false}};
        for (const auto& [name, caption, on] : choices) {
            EXPECT_EQ(Shown(Get<QRadioButton>(options, name).text()), caption);
            EXPECT_EQ(Get<QRadioButton>(options, name).isChecked(), on) << name;
        }
        QStringList titles;
        for (const QGroupBox* frame : options.findChildren<QGroupBox*>()) titles << frame->title();
        titles.sort();
        EXPECT_EQ(titles, (QStringList{"&Case", "&Default", "&Lines", "&Tag"}));
        EXPECT_EQ(Caption(options, "txtWidth"), "Width");
        EXPECT_EQ(Caption(options, "txtHeight"), "Height");
        EXPECT_EQ(Field(options, "txtWidth"), "80");
        EXPECT_EQ(Field(options, "txtHeight"), "30");
        EXPECT_EQ(Get<QCheckBox>(options, "chkCode").text(), "&Include CodeBase=");
        EXPECT_EQ(Field(options, "txtCode"), "http://");
        EXPECT_EQ(Preview(options), Element({}));
    });
}

TEST_F(ControlForms, OptionsPreviewEachChangeAndAreKept) {
    WriteRegistry();
    ObjectOptions expected;
    OpenOptions([&](frmOptions& options) {
        const auto shows = [&] { EXPECT_EQ(Preview(options), Element(expected)); };
        Click(options, "optID(1)");
        expected.byClassId = false;
        shows();
        Click(options, "optTag(1)");
        expected.object = false;
        shows();
        Click(options, "optCase(2)");
        expected.tagCase = TagCase::FirstUpper;
        shows();
        Click(options, "optLine(1)");
        expected.severalLines = false;
        shows();
        Type(options, "txtWidth", "5");
        Type(options, "txtHeight", "6");
        expected.width = 5;
        expected.height = 6;
        shows();
        EXPECT_FALSE(Get<QLineEdit>(options, "txtCode").isEnabled());
        Click(options, "chkCode");
        Type(options, "txtCode", "c");
        expected.withCodeBase = true;
        expected.codeBase = "c";
        shows();
        Click(options, "cmdOK");
        EXPECT_FALSE(options.isVisible());
    });
    EXPECT_EQ(BuildObjTag(controls[0], ReadObjectOptions(bench.Settings())), BuildObjTag(controls[0], expected));
    OpenList([](frmControls& tool) {
        ClickRow(tool, 1);
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), ObjectMarkup({controls[1]}, expected));
    OpenOptions([&](frmOptions& options) {
        EXPECT_EQ(Preview(options), Element(expected));
        EXPECT_EQ(Field(options, "txtWidth"), "5");
    });
}

TEST_F(ControlForms, OptionsKeepSizesInTheirRange) {
    OpenOptions([](frmOptions& options) {
        Type(options, "txtWidth", "x-32768");
        EXPECT_EQ(Field(options, "txtWidth"), "32768");
        Type(options, "txtHeight", "");
        Click(options, "cmdOK");
    });
    EXPECT_EQ(ReadObjectOptions(bench.Settings()).width, 32767);
    EXPECT_EQ(ReadObjectOptions(bench.Settings()).height, 0);
}

TEST_F(ControlForms, OptionsGoBackToTheDefaults) {
    WriteRegistry();
    WriteObjectOptions(bench.Settings(), {.byClassId = false,
                                          .object = false,
                                          .tagCase = TagCase::Lower,
                                          .severalLines = false,
                                          .width = 1,
                                          .height = 2,
                                          .withCodeBase = true,
                                          .codeBase = "c"});
    OpenOptions([&](frmOptions& options) {
        Click(options, "cmdDefaults");
        EXPECT_EQ(Preview(options), Element({}));
        EXPECT_EQ(Field(options, "txtWidth"), "80");
        EXPECT_EQ(Field(options, "txtCode"), "http://");
        Click(options, "cmdCancel");
    });
    EXPECT_EQ(ReadObjectOptions(bench.Settings()).width, 1) << "Cancel keeps what was";
    OpenOptions([](frmOptions& options) {
        Click(options, "cmdDefaults");
        Click(options, "cmdOK");
    });
    EXPECT_EQ(BuildObjTag(controls[0], ReadObjectOptions(bench.Settings())), BuildObjTag(controls[0], {}));
}

}  // namespace
}  // namespace vellum::test
