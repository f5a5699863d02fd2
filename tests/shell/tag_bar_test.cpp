// The tag bar's tabs and popups, and what their items write.
#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"
#include "widgets/tab_strip.h"

#include <QCursor>
#include <QMenu>

namespace vellum::test {
namespace {

struct Popup {
    const char* tab;
    const char* name;
    QStringList items;
};

const Popup popups[] = {
    {"Non-Coding Tools",
     "popNonCodingTools",
     {"Quickstart", "Anchor", "Frame Builder", "Image", "List Builder", "Marquee", "Paragraph Builder",
      "Special Effects", "Table Builder"}},
    {"Fonts",
     "popFont",
     {"Paragraph Builder", "Font", "<b>", "<i>", "<u>", "<big>", "<small>", "<h1>", "<h2>", "<h3>"}},
    {"Forms", "popForms", {"Form Wizard", "Form Input", "Search Engines", "<form>", "<input />"}},
    {"Frames", "popFrames", {"Frame Builder", "Floating Frame", "<frameset>", "<frame />", "<noframe>", "<iframe>"}},
    {"Graphics and Sound",
     "popGraphicsSound",
     {"Image", "Marquee", "Sound", "Special Effects", "Image Map Builder", "VRML Orbitor", "<map>"}},
    {"Lists", "popLists", {"List Builder", "<dir>", "<dl>", "<menu>", "<ol>", "<ul>", "<li>", "<dt> && <dd>"}},
    {"Tables", "popTables", {"Table Builder", "<table>", "<tr>", "<td>", "<th>", "<thead>", "<tfoot>", "<tbody>"}},
    {"Scripts",
     "popScripting",
     {"Script Tags", "In-tag Scripts", "Scripting Tools", "Object Tags", "Java Applet", "Parameter Tags", "ASP"}},
    {"Style Sheets", "popStyle", {"Style Sheet", "In-line Style Sheet", "In-tag Style"}},
};

// What a tag item makes of a selected "b"; empty for an item that opens a tool.
QString MarkupOf(const QString& caption) {
    if (!caption.startsWith('<')) return {};
    if (caption == "<dt> && <dd>") return "<dt>b</dt><dd></dd>";
    if (caption.endsWith("/>")) return caption;
    return caption + "b</" + caption.mid(1);
}

class TagBarTest : public MainWindowFixture {
protected:
    [[nodiscard]] QMenu& Menu(const char* name) const { return *window->findChild<QMenu*>(name); }

    // Clicks on a tab, from 0, with the pointer there.
    void ClickTab(int tab) const {
        const QPoint place = window->TabStrip1->tabRect(tab).center();
        QCursor::setPos(window->TabStrip1->mapToGlobal(place));
        QTest::mouseClick(window->TabStrip1, Qt::LeftButton, {}, place);
    }

    // The platform of the tests may leave the window inactive after a popup, unlike a desktop.
    [[nodiscard]] bool GetsKeyboardBack(const EditSurface& surface) const {
        window->activateWindow();
        return QTest::qWaitFor([&] { return surface.hasFocus(); });
    }
};

TEST_F(TagBarTest, HasNineTabsWithTheirPopups) {
    Open();
    ASSERT_EQ(window->TabStrip1->count(), 9);
    int tab = 0;
    for (const auto& [caption, name, items] : popups) {
        EXPECT_EQ(window->TabStrip1->Caption(++tab), caption);
        const auto* menu = window->findChild<QMenu*>(name);
        ASSERT_NE(menu, nullptr) << name;
        QStringList captions;
        for (const QAction* item : menu->actions()) {
            EXPECT_EQ(item->objectName(), QStringLiteral("%1Item(%2)").arg(name).arg(captions.size()));
            captions << item->text();
        }
        EXPECT_EQ(captions, items) << name;
    }
}

TEST_F(TagBarTest, TagItemsWriteAroundTheSelection) {
    Open();
    EditSurface& surface = *Active().Text1;
    int written = 0;
    for (const Popup& popup : popups) {
        for (const QAction* item : Menu(popup.name).actions()) {
            const QString markup = MarkupOf(item->text());
            if (markup.isEmpty()) continue;
            surface.SetText("abc");
            surface.SetSelStart(1);
            surface.SetSelLength(1);
            Trigger(item->objectName().toUtf8().constData());
            EXPECT_EQ(surface.Text(), "a" + markup + "c") << item->text().toStdString();
            ++written;
        }
    }
    EXPECT_EQ(written, 29);
}

TEST_F(TagBarTest, AClickOnATabOpensItsPopupAtThePointer) {
    Open();
    for (int tab = 0; tab < 9; ++tab) {
        InPopup([&] { ClickTab(tab); },
                [&](const QMenu& menu) {
                    EXPECT_EQ(menu.objectName(), popups[tab].name);
                    EXPECT_EQ(menu.y(), QCursor::pos().y());
                    EXPECT_TRUE(menu.geometry().contains(QCursor::pos()));
                });
    }
}

TEST_F(TagBarTest, AClickOnAnItemWritesAndLeavesTheKeyboardInTheText) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EditSurface& surface = *Active().Text1;
    surface.SetText("row");
    surface.SetSelLength(3);
    surface.setFocus();
    for (int round = 0; round < 2; ++round) {
        InPopup([&] { ClickTab(6); },
                [](QMenu& menu) {
                    const QAction* row = menu.actions().at(2);
                    QTest::mouseClick(&menu, Qt::LeftButton, {},
                                      menu.actionGeometry(const_cast<QAction*>(row)).center());
                });
    }
    EXPECT_EQ(surface.Text(), "<tr>row</tr><tr></tr>");
    EXPECT_TRUE(GetsKeyboardBack(surface));
    QTest::keyClicks(&surface, "x");
    EXPECT_EQ(surface.Text(), "<tr>row</tr><tr></tr>x");
}

TEST_F(TagBarTest, TheKeyboardOpensAPopupBelowItsTab) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EditSurface& surface = *Active().Text1;
    QCursor::setPos(window->mapToGlobal(QPoint(1, 1)));
    window->TabStrip1->setFocus();
    QTest::keyClick(window->TabStrip1, Qt::Key_Right);
    InPopup([this] { QTest::keyClick(window->TabStrip1, Qt::Key_Return); },
            [this](QMenu& menu) {
                EXPECT_EQ(menu.objectName(), "popFont");
                const QRect tab = window->TabStrip1->tabRect(1);
                EXPECT_EQ(menu.pos(), window->TabStrip1->mapToGlobal(QPoint(tab.left(), tab.bottom() + 1)));
                EXPECT_EQ(menu.activeAction(), menu.actions().constFirst());
                for (int step = 0; step < 2; ++step) QTest::keyClick(&menu, Qt::Key_Down);
                QTest::keyClick(&menu, Qt::Key_Return);
            });
    EXPECT_EQ(surface.Text(), "<b></b>");
    EXPECT_TRUE(GetsKeyboardBack(surface));
}

TEST_F(TagBarTest, AScriptTakesTagsToo) {
    Open(false, MakeFile("notes.txt", "word"));
    Active().Text1->SetSelLength(4);
    Trigger("popFontItem(3)");
    EXPECT_EQ(Active().Text1->Text(), "<i>word</i>");
}

}  // namespace
}  // namespace vellum::test
