// The menus of the right button: what stands in them, and what their items and keys do.
#include "shell/popup_menus.h"

#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"
#include "website/propform.h"
#include "website/website_panel.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QMenu>
#include <QSignalSpy>

namespace vellum::test {
namespace {

class TextMenuTest : public MainWindowFixture {
protected:
    // Selects the "b" of "abc".
    EditSurface& ShowText() {
        EditSurface& surface = *Active().Text1;
        surface.SetText("abc");
        surface.SetSelStart(1);
        surface.SetSelLength(1);
        return surface;
    }

    static QClipboard& Clipboard() { return *QGuiApplication::clipboard(); }
};

TEST_F(TextMenuTest, HasItsSixteenItems) {
    struct Item {
        const char* caption;
        const char* result;  // of the "b" of "abc", with "old" on the clipboard
    };
    const Item items[] = {
        {"Undo", nullptr},
        {"Redo", nullptr},
        {"", nullptr},
        {"&Cut", "ac"},
        {"Cop&y", "abc"},
        {"&Paste", "aoldc"},
        {"&Delete", "ac"},
        {"", nullptr},
        {"Center Text <center></center>", "a<center>b</center>c"},
        {"&Line Break <br />", "a<br />c"},
        {"Paragraph Tag <p></p>", "a<p>b</p>c"},
        {"", nullptr},
        {"&Bold Text <b></b>", "a<b>b</b>c"},
        {"&Italic Text <i></i>", "a<i>b</i>c"},
        {"&Strikethru Text <strike></strike>", "a<strike>b</strike>c"},
        {"&Underline Text <u></u>", "a<u>b</u>c"},
    };
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    int index = 0;
    for (const auto& [caption, result] : items) {
        Clipboard().setText("old");
        const EditSurface& surface = ShowText();
        QMenu* const menu = ShowTextMenu(*window, surface.mapToGlobal(QPoint(10, 10)));
        ASSERT_NE(menu, nullptr);
        const QPointer<QMenu> open = menu;
        EXPECT_EQ(menu->objectName(), "mnuPop");
        EXPECT_TRUE(menu->isVisible());
        EXPECT_EQ(menu->actions().size(), 16);
        auto* const item = menu->findChild<QAction*>(QString("mnuPopItem(%1)").arg(index));
        ASSERT_NE(item, nullptr) << index;
        EXPECT_EQ(menu->actions().value(index), item);
        EXPECT_EQ(item->text(), caption);
        EXPECT_EQ(item->isSeparator(), QLatin1String(caption).isEmpty()) << index;
        EXPECT_TRUE(item->isEnabled());
        if (item->isSeparator() || !result) {
            menu->close();
        } else {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
            EXPECT_EQ(surface.Text(), result) << caption;
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return open.isNull(); })) << "it goes when it closes";
        ++index;
    }
    EXPECT_EQ(Clipboard().text(), "old");
}

TEST_F(TextMenuTest, UndoAndRedoStepBackAndOn) {
    Open();
    EditSurface& surface = ShowText();
    Trigger("mnuBitem");
    const auto pick = [this](int index) {
        InPopup([this] { ShowTextMenu(*window, {}); }, [index](QMenu& menu) { menu.actions().at(index)->trigger(); });
    };
    pick(0);
    EXPECT_EQ(surface.Text(), "abc");
    pick(1);
    EXPECT_EQ(surface.Text(), "a<b>b</b>c");
}

TEST_F(TextMenuTest, OpensByTheRightButtonAndByTheMenuKey) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EditSurface& surface = ShowText();
    const auto isOurs = [](QMenu& menu) { EXPECT_EQ(menu.objectName(), "mnuPop"); };
    InPopup([&] { QTest::mouseClick(surface.viewport(), Qt::RightButton, {}, {5, 5}); }, isOurs);
    const auto ask = [&] {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, surface.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&surface, &event);
    };
    InPopup(ask, isOurs);
}

TEST_F(TextMenuTest, WithoutADocumentThereIsNone) {
    Open();
    Trigger("mnuClose");
    EXPECT_EQ(ShowTextMenu(*window, {}), nullptr);
}

class WebsiteMenuTest : public MainWindowFixture {
protected:
    [[nodiscard]] FileList& Files() const { return *window->Picture11->File2; }
    [[nodiscard]] DirectoryList& Directories() const { return *window->Picture11->Dir1; }

    void OpenWith(const QStringList& names) {
        for (const QString& name : names) (void)MakeFile(name, "x");
        Open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        ASSERT_TRUE(QTest::qWaitFor([&] { return Files().Names().size() == names.size(); }));
    }
    void Select(const QString& name) const {
        Files().setFocus();
        ASSERT_TRUE(Files().SelectFile(name));
    }
    // The right button over the selected row of a list, as the system tells it.
    static void RightClick(const QAbstractItemView& list) {
        const QPoint place = list.visualRect(list.currentIndex()).center();
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(list.viewport(), &event);
    }
    // Picks an item of the menu of a list by its letter.
    static void Pick(const QAbstractItemView& list, Qt::Key letter) {
        InPopup([&] { RightClick(list); }, [letter](QMenu& menu) { QTest::keyClick(&menu, letter); });
    }
    static QStringList Items(const QMenu& menu) {
        QStringList items;
        for (const QAction* item : menu.actions()) items << item->objectName() + ": " + item->text();
        return items;
    }
};

TEST_F(WebsiteMenuTest, TheMenusHaveTheirItems) {
    OpenWith({"a.htm"});
    Select("a.htm");
    InPopup([&] { RightClick(Files()); },
            [](QMenu& menu) {
                EXPECT_EQ(Items(menu),
                          QStringList({"mnuWebsiteLinkItem: &Create a Link To File...",
                                       "mnuWebsiteRenameItem: &Rename File...", "mnuWebsiteDeleteItem: &Delete File",
                                       "mnuPropertiesItem: &Properties..."}));
            });
    InPopup([&] { RightClick(Directories()); },
            [](QMenu& menu) {
                EXPECT_EQ(Items(menu), QStringList({"popDirectoryItems: &Create Directory",
                                                    "popDirectoryRefresh: &Refresh Directory"}));
            });
}

TEST_F(WebsiteMenuTest, AFileIsRenamedAndDeletedByItsKeysAndByTheMenu) {
    OpenWith({"a.htm", "b.htm"});
    Select("a.htm");
    prompts.inputs = {"c.htm", "d.htm"};
    QTest::keyClick(&Files(), Qt::Key_F2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Files().FileName() == "c.htm"; }));
    Pick(Files(), Qt::Key_R);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Files().FileName() == "d.htm"; }));
    prompts.answers = {Answer::Yes, Answer::Yes};
    QTest::keyClick(&Files(), Qt::Key_Delete);
    EXPECT_FALSE(QFile::exists(SitePath("d.htm")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Files().Names() == QStringList("b.htm"); }));
    Select("b.htm");
    Pick(Files(), Qt::Key_D);
    EXPECT_FALSE(QFile::exists(SitePath("b.htm")));
}

TEST_F(WebsiteMenuTest, KeysOfTheFilesActOnlyThere) {
    OpenWith({"a.htm"});
    Select("a.htm");
    Directories().setFocus();
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Delete}) QTest::keyClick(&Directories(), key);
    EXPECT_EQ(prompts.questions + prompts.messages, QStringList());
    Files().setFocus();
    QTest::keyClick(&Files(), Qt::Key_F2);
    EXPECT_EQ(prompts.questions.size(), 1);
}

TEST_F(WebsiteMenuTest, PropertiesOpenByTheirKeysAndByTheMenu) {
    OpenWith({"two words.htm"});
    Select("two words.htm");
    const auto look = [](propform& form) { EXPECT_EQ(form.txtName->text(), "two words.htm"); };
    InModal<propform>([&] { QTest::keyClick(&Files(), Qt::Key_Return, Qt::AltModifier); }, look);
    InModal<propform>([&] { Pick(Files(), Qt::Key_P); }, look);
    EXPECT_EQ(window->OpenDocCount(), 1) << "Alt+Enter is not Enter";
}

TEST_F(WebsiteMenuTest, ADirectoryIsMadeAndTheListsAreReadAgain) {
    OpenWith({"a.htm"});
    prompts.inputs = {"new place"};
    Pick(Directories(), Qt::Key_C);
    EXPECT_TRUE(QDir(SitePath("new place")).exists());
    const WebsitePanel& panel = *window->Picture11;
    const auto& reader = *panel.File2->findChild<FolderReader*>();
    for (QWidget* list : std::initializer_list<QWidget*>{panel.Drive1, panel.Dir1, panel.File2}) {
        window->activateWindow();  // which the popup has taken the keyboard from
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        const QSignalSpy read(&reader, &FolderReader::Read);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_F5);
        EXPECT_TRUE(QTest::qWaitFor([&] { return read.count() == 1; })) << qPrintable(list->objectName());
    }
    const QSignalSpy read(&reader, &FolderReader::Read);
    Pick(Directories(), Qt::Key_R);
    EXPECT_TRUE(QTest::qWaitFor([&] { return read.count() == 1; }));
}

}  // namespace
}  // namespace vellum::test
