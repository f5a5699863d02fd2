// A shown panel over a folder of its own, with tools that only remember what they were opened with.
#pragma once

#include "tests/support/modal.h"
#include "tests/support/test_workbench.h"
#include "website/website_commands.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {

// A main window that asks by a box of its own or by the script.
class PanelWorkbench : public TestWorkbench {
public:
    [[nodiscard]] Prompts& Ask() override { return asksForReal ? static_cast<Prompts&>(dialogs) : prompts; }

    bool asksForReal = false;
    DialogPrompts dialogs;
};

class WebsiteFixture : public testing::Test {
protected:
    static constexpr int patience = 30000;  // milliseconds until a condition counts as never met

    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        ASSERT_TRUE(QDir(folder.path()).mkpath("site/images"));
        panel.resize(900, 300);
        panel.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
        panel.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    }

    [[nodiscard]] QString Place(const QString& name) const { return folder.filePath("site/" + name); }
    static void Write(const QString& path, const QByteArray& bytes = "x") {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(bytes);
    }
    static QByteArray Read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Shows the site with files of these names and waits until the list has them.
    void Fill(const QStringList& names) {
        for (const QString& name : names) Write(Place(name));
        ASSERT_TRUE(panel.SetDirectory(folder.filePath("site")));
        ASSERT_TRUE(QTest::qWaitFor([&] { return panel.File2->Names().size() == names.size(); }, patience));
    }
    [[nodiscard]] QPoint At(const QString& name) const {
        const auto row = static_cast<int>(panel.File2->Names().indexOf(name));
        return panel.File2->visualRect(panel.File2->model()->index(row, 0)).center();
    }
    void Select(const QString& name) {
        panel.File2->setFocus();
        QTest::mouseClick(panel.File2->viewport(), Qt::LeftButton, {}, At(name));
        ASSERT_EQ(panel.File2->FileName(), name);
    }
    void DoubleClick(const QString& name) {
        QTest::mouseClick(panel.File2->viewport(), Qt::LeftButton, {}, At(name));
        QTest::mouseDClick(panel.File2->viewport(), Qt::LeftButton, {}, At(name));
    }
    // The right button over a list, as the system tells it: a press, then the request for a menu.
    static void RightClick(const QAbstractScrollArea& list, const QPoint& place) {
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(list.viewport(), &event);
    }
    QTemporaryDir folder;
    PanelWorkbench bench;
    WebsitePanel panel;
    QStringList opened;  // "image /path", "sound /path", "link name"
    WebsiteCommands* commands = new WebsiteCommands(bench, panel,
                                                    {[this](const QString& path) { opened << "image " + path; },
                                                     [this](const QString& path) { opened << "sound " + path; },
                                                     [this](const QString& name) { opened << "link " + name; }});
};

}  // namespace vellum::test
