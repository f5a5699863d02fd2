// A shown document and the tools that write into it, driven by real events.
#pragma once

#include "surface/edit_surface.h"
#include "tests/support/modal.h"
#include "tests/support/test_workbench.h"
#include "tools/framework/tool_dialog.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {

// A main window that can be switched off, with a folder of its own as the website.
class ToolWorkbench : public TestWorkbench {
public:
    [[nodiscard]] QWidget* Window() override { return window; }

    QWidget* window = nullptr;
};

class ToolFixture : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        window.resize(800, 600);
        document.setParent(&window);
        document.setGeometry(0, 0, 800, 600);
        document.Text1->setGeometry(0, 0, 800, 600);
        bench.window = &window;
        bench.active = &document;
        bench.website = folder.path();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    // Opens a tool and runs the steps on it.
    template <typename Tool>
    void Open(const std::function<void(Tool&)>& steps) {
        InModal<Tool>([this] { ShowTool<Tool>(bench); }, steps);
    }

    template <typename Widget>
    static Widget& Get(const QWidget& form, const QString& name) {
        auto* const widget = form.findChild<Widget*>(name);
        if (!widget) throw std::runtime_error("no field " + name.toStdString());
        return *widget;
    }

    // Puts a text into a field by the keyboard, in place of what it held.
    static void Type(const QWidget& form, const QString& name, const QString& text) {
        auto* const box = form.findChild<QComboBox*>(name);
        QLineEdit& line = box ? *box->lineEdit() : Get<QLineEdit>(form, name);
        line.setFocus();
        line.selectAll();
        QTest::keyClick(&line, Qt::Key_Delete);
        QTest::keyClicks(&line, text);
    }

    // A key in the field that has the keyboard.
    static void Press(const QWidget& form, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(form.focusWidget(), key, modifiers);
    }

    // What a text or a box holds.
    static QString Field(const QWidget& form, const QString& name) {
        const auto* const box = form.findChild<QComboBox*>(name);
        return box ? box->currentText() : Get<QLineEdit>(form, name).text();
    }

    static void Click(const QWidget& form, const QString& name) {
        auto& button = Get<QAbstractButton>(form, name);
        // A check box answers to its indicator and caption, not to the room behind them.
        QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
    }

    static void Tab(const QWidget& form, int index) {
        auto* const bar = Get<QTabWidget>(form, "TabStrip1").tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }

    // What a box offers.
    static QStringList Values(const QWidget& form, const QString& name) {
        const auto& box = Get<QComboBox>(form, name);
        QStringList values;
        for (int i = 0; i < box.count(); ++i) values << box.itemText(i);
        return values;
    }

    // What stands before a field, as it shows.
    static QString Caption(const QWidget& form, const QString& name) {
        for (const QLabel* label : form.findChildren<QLabel*>()) {
            if (label->buddy() && label->buddy()->objectName() == name) return Shown(label->text());
        }
        return {};
    }

    // A caption without the marks of access keys.
    static QString Shown(QString caption) { return caption.remove(u'&'); }

    [[nodiscard]] QString Text() const { return document.Text1->Text(); }

    QTemporaryDir folder;
    QWidget window;
    ToolWorkbench bench;
    PlainDocument document{bench};
};

}  // namespace vellum::test
