// The menu bar: the whole tree, its letters and keys, and what the items of the XHTML menu write.
#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"

#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QSignalSpy>

#include <map>

namespace vellum::test {
namespace {

// The tree, one item a line: indented by its depth, its name, and its caption when it has one.
constexpr auto tree = R"(mnuFile: &File
  mnuNewItem: &New...
  mnuOpenItem: &Open...
  mnuInternetItem: Open From Internet...
  mnuRecentFile: Open &Recent File
    mnuRecents(0)
    mnuRecents(1)
    mnuRecents(2)
    mnuRecents(3)
  mnuClose: &Close
  mnuCloseAll: Close All
  -
  mnuImportItem: &Import
    mnuImport1: Import Text to New File...
    mnuImport2: Import Text To Current Document...
    mnuImport3: Import Table Into Current Document...
  -
  mnuSaveItem: Save &As...
  mnuSaveregItem: &Save
  -
  mnuPrintItem: &Print
  -
  mnuFindFileItem: Find File...
  mnuFTPItem: FTP File Transfer...
  mnuPIMItem: Orrinade PIM...
  -
  mnuExitItem: E&xit
mnuEdit: &Edit
  mnuUndoItem: &Undo
  mnuRedoItem: Redo
  -
  mnuCutItem: &Cut
  mnuCopyItem: Cop&y
  mnuItemPaste: &Paste
  mnuDeleteItem: &Delete
  mnuSelectItem: Select All
  -
  mnuFindItem: &Find...
  mnuReplaceItem: &Replace...
  mnuFileReplaceItem: &Multi-File Replace...
  -
  mnuCaseUpperItem: UpperCase All Tags
  mnuCaseLowerItem: LowerCase All Tags
  mnuWrapItem: Word Wrap
  mnuLineItem: Goto Line...
mnuHTMLbasic: &XHTML
  mnuPItem: &Paragraph <p></p>
  mnuBRItem: &Line Break <br />
  mnuHRItem: Horizontal &Rule <hr />
  -
  mnuCenterItem: &Center <center></center>
  mnuBitem: &Bold Text <b></b>
  mnuIItem: &Italized <i></i>
  mnuUItem: &Underline <u></u>
  -
  mnuHeadingsItem: &Headings
    mnuHItem(0): Heading &1 <h1></h1>
    mnuHItem(1): Heading &2 <h2></h2>
    mnuHItem(2): Heading &3 <h3></h3>
    mnuHItem(3): Heading &4 <h4></h4>
    mnuHItem(4): Heading &5 <h5></h5>
    mnuHItem(5): Heading &6 <h6></h6>
  mnuListItem: Lists
    mnuListDirItem: &Directory List <dir></dir>
    mnuListItemizedItem: &Itemized List <menu></menu>
    mnuOrderedItem: &Ordered List <ol></ol>
    mnuUnorderedItem: &Unordered List <ul></ul>
    mnuListItemItem: &List Item <li></li>
    -
    mnuListDefItem: Definition List <dl></dl>
    mnuListDefTermItem: Defintion List Term <dt></dt>
    mnuListDefDeftem: Definition List Definition <dd></dd>
mnuTools: &Tools
  mnuAM: A - J
    mnuAnchorItem: &Anchor...
    mnuASPItem: A&SP...
    mnuBackgroundSoundItem: &Background Sound...
    mnuFloatingFrameItem: Floating Frame...
    mnuFrameBuilderItem: &Frame Builder...
    mnuFontWizardItem: Font &Wizard...
    mnuFormWizardItem: Form Wizard...
    mnuFormInputItem: Form Input...
    mnuHorizontalRuleItem: &Horizontal Rule...
    mnuImageItem: &Image, Animation...
    mnuImageMapItem: Image Map Builder...
    mnuInlineItem: Inline Style Sheet...
    mnuInTagScriptItem: In-tag Script...
    inStyleItem: In-tag Style...
    mnuAppletItem: &Java Applet...
  mnuAZ: L - Z
    mnuListBuilderItem: &List Builder...
    mnuMarqueeItem: &Marquee...
    mnuObjectItem: &Object Tags...
    mnuParagraphItem: &Paragraph Builder...
    mnuParameterItem: Parameters...
    mnuQuickstartItem: &Quickstart...
    mnuScriptTagsItem: &Script Tags...
    mnuScriptingToolsItem: Scripting Tools...
    mnuSearchEnginesItem: Search Engines...
    mnuSpecialEffectsItem: Special Effects...
    mnuStyleItem: Style Sheet...
    mnuTableItem: Table Builder...
    mnuOrbiterItem: &VRML Orbiter...
    mnuVisualItem: &Visual VC...
mnuView: &View
  mnuViewItem(0): &Main Toolbar
  mnuViewItem(1): &Color Bar
  mnuViewItem(2): Custom &Bar
  mnuViewItem(3): &Website Manager
  -
  mnuSettingsItem: Settin&gs...
mnuWindow: &Window
  mnuWindowItem(0): &Cascade Child Forms
  mnuWindowItem(1): &Tile Child Forms Horizontally
  mnuWindowItem(2): Tile Child Forms &Vertically
  mnuWindowItem(3): &Arrange Icons
mnuMSApps: &MS Apps
  mnuMSAppsItem(0): &Calculator...
  mnuMSAppsItem(1): Character &Map...
  mnuMSAppsItem(2): Clipboard &Viewer...
mnuHelp: Hel&p
  mnuManualItem: &Online Manual
  mnuTutorialItem: XHTML Tutorial
    mnuLessonItem(0): Lesson 1 (The Structure)
    mnuLessonItem(1): Lesson 2 (The Basic Tags)
    mnuLessonItem(2): Lesson 3 (Formatting Tags)
    mnuLessonItem(3): Lesson 4 (Anchors)
    mnuLessonItem(4): Lesson 5 (Images and Sound)
    mnuLessonItem(5): Lesson 6 (Tables)
  mnuW3CItem: W3C &XHTML Reference
  -
  mnuBugReportItem: Send Us a Comment Or Bug Report
  -
  mnuDidYouKnow: &Did you know?
  mnuAboutItem: &About...
)";

struct WrittenTag {
    QString item;
    QString open;
    QString close;  // empty for a tag that stands alone
};

// What an item of the XHTML menu writes stands in its caption.
QList<WrittenTag> WrittenTags() {
    QList<WrittenTag> tags;
    for (const QString& line : QString(tree).split('\n')) {
        const auto from = line.indexOf('<');
        if (from < 0) continue;
        const auto close = line.indexOf("</");
        tags.push_back({line.section(':', 0, 0).trimmed(), line.mid(from, close < 0 ? -1 : close - from),
                        close < 0 ? QString() : line.mid(close)});
    }
    return tags;
}

class MenusTest : public MainWindowFixture {
protected:
    static void Describe(const QWidget& menu, qsizetype depth, QString& text) {
        for (const QAction* item : menu.actions()) {
            text += QString(2 * depth, ' ');
            text += item->isSeparator() ? QStringLiteral("-") : item->objectName();
            if (!item->text().isEmpty()) text += ": " + item->text();
            text += '\n';
            if (item->menu()) Describe(*item->menu(), depth + 1, text);
        }
    }

    // The letters of a menu and of the menus in it, each with the names of the items that have it.
    static void FindTwins(const QWidget& menu, QStringList& twins) {
        std::map<QChar, QStringList> letters;
        for (const QAction* item : menu.actions()) {
            const QString caption = QString(item->text()).remove("&&");
            const auto mark = caption.indexOf('&');
            if (mark >= 0) letters[caption.at(mark + 1).toLower()] << item->objectName();
            if (item->menu()) FindTwins(*item->menu(), twins);
        }
        for (const auto& [letter, names] : letters) {
            if (names.size() > 1) twins << names.join(' ');
        }
    }

    // What the text becomes when a command acts on the "b" of "abc".
    [[nodiscard]] QString Written(const QString& item) const {
        EditSurface& surface = *Active().Text1;
        surface.SetText("abc");
        surface.SetSelStart(1);
        surface.SetSelLength(1);
        Trigger(qPrintable(item));
        return surface.Text();
    }
};

TEST_F(MenusTest, HasTheWholeTree) {
    Open();
    QString text;
    Describe(*window->menuBar(), 0, text);
    EXPECT_EQ(text.split('\n'), QString(tree).split('\n'));
}

TEST_F(MenusTest, ALetterLeadsToOneItemOfAMenu) {
    Open();
    QStringList twins;
    FindTwins(*window->menuBar(), twins);
    EXPECT_EQ(twins, QStringList{"mnuOrbiterItem mnuVisualItem"}) << "their captions are fixed";
}

TEST_F(MenusTest, NoTwoCommandsShareAKey) {
    for (const bool usePreview : {false, true}) {
        Open(usePreview);
        window->NewForm();
        QStringList keys;
        for (const QAction* item : window->findChildren<QAction*>()) {
            for (const QKeySequence& key : item->shortcuts()) keys << key.toString();
        }
        for (const QShortcut* shortcut : window->findChildren<QShortcut*>()) keys << shortcut->key().toString();
        EXPECT_GE(keys.size(), 20);
        keys.sort();
        QStringList distinct = keys;
        distinct.removeDuplicates();
        EXPECT_EQ(keys, distinct);
    }
}

TEST_F(MenusTest, TheKeysWorkWhileTheTextHasTheKeyboard) {
    const std::pair<const char*, QKeyCombination> keys[] = {
        {"mnuNewItem", Qt::CTRL | Qt::Key_N},
        {"mnuOpenItem", Qt::CTRL | Qt::Key_O},
        {"mnuClose", Qt::CTRL | Qt::Key_W},
        {"mnuCloseAll", Qt::CTRL | Qt::SHIFT | Qt::Key_W},
        {"mnuSaveregItem", Qt::CTRL | Qt::Key_S},
        {"mnuSaveItem", Qt::CTRL | Qt::SHIFT | Qt::Key_S},
        {"mnuPrintItem", Qt::CTRL | Qt::Key_P},
        {"mnuExitItem", Qt::CTRL | Qt::Key_Q},
        {"mnuFindItem", Qt::CTRL | Qt::Key_F},
        {"mnuReplaceItem", Qt::CTRL | Qt::Key_H},
        {"mnuLineItem", Qt::CTRL | Qt::Key_G},
        {"mnuBitem", Qt::CTRL | Qt::Key_B},
        {"mnuIItem", Qt::CTRL | Qt::Key_I},
        {"mnuUItem", Qt::CTRL | Qt::Key_U},
        {"mnuManualItem", Qt::Key_F1},
    };
    Open();
    window->NewForm();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EditSurface& surface = *Active().Text1;
    surface.setFocus();
    for (const auto& [name, key] : keys) {
        auto* const item = window->findChild<QAction*>(name);
        ASSERT_NE(item, nullptr) << name;
        item->disconnect(window.get());
        const QSignalSpy triggered(item, &QAction::triggered);
        QTest::keyClick(&surface, key.key(), key.keyboardModifiers());
        EXPECT_EQ(triggered.count(), 1) << name;
    }
    EXPECT_EQ(surface.Text(), "");
}

TEST_F(MenusTest, TheXhtmlMenuPutsItsTagsAroundTheSelection) {
    Open();
    const QList<WrittenTag> tags = WrittenTags();
    EXPECT_EQ(tags.size(), 21);
    for (const auto& [item, open, close] : tags) {
        const QString inside = close.isEmpty() ? QString() : "b" + close;
        EXPECT_EQ(Written(item), "a" + open + inside + "c") << item.toStdString();
        EXPECT_FALSE(Active().Saver()) << item.toStdString();
    }
}

TEST_F(MenusTest, WithNothingSelectedTheyGoIntoTheTextAtTheCaret) {
    Open();
    EditSurface& surface = *Active().Text1;
    for (const auto& [item, open, close] : WrittenTags()) {
        surface.SetText("ac");
        surface.SetSelStart(1);
        Trigger(qPrintable(item));
        EXPECT_EQ(surface.Text(), "a" + open + close + "c") << item.toStdString();
    }
}

TEST_F(MenusTest, AMenuWorksByItsLetters) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EditSurface& surface = *Active().Text1;
    surface.SetText("word");
    surface.SetSelLength(4);
    surface.setFocus();
    InPopup([&] { QTest::keyClick(&surface, Qt::Key_X, Qt::AltModifier); },
            [](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_B); });
    EXPECT_EQ(surface.Text(), "<b>word</b>");
    window->activateWindow();  // which the popup has taken the keyboard from
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return surface.hasFocus(); }));
    QTest::keyClick(&surface, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(surface.Text(), "word");
}

TEST_F(MenusTest, TheManualShowsWithoutAQuestion) {
    Open(true);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    Active().Text1->setFocus();
    QTest::keyClick(Active().Text1, Qt::Key_F1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(SitePath("caching.htm")); }));
    EXPECT_TRUE(Bytes(SitePath("caching.htm")).contains("<title>Vellumcraft Manual</title>"));
    EXPECT_TRUE(prompts.messages.isEmpty());
}

}  // namespace
}  // namespace vellum::test
