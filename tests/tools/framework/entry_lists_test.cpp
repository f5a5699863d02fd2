#include "tools/framework/entry_lists.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

class EntryListForms : public testing::Test {
protected:
    // On a form with a default button.
    void Show(const EntryParts& parts) {
        lists = new EntryLists(parts);
        auto* const ok = new QPushButton("OK");
        auto* const column = new QVBoxLayout(&form);
        column->addWidget(lists);
        column->addWidget(ok);
        ok->setDefault(true);
        QObject::connect(ok, &QPushButton::clicked, [this] { ++confirmed; });
        QObject::connect(lists, &EntryLists::Changed, [this] { ++changes; });
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    // One list of two entries.
    void ShowOne() {
        Show({.columns = {{.entries = unbound, .list = {"List1", "&Types"}, .line = {"Text1", "&New Type"}}},
              .add = {"cmdAdd", "&Add"},
              .remove = {"cmdRemove", "&Remove"}});
        lists->SetEntries(0, {"a", "b"});
    }

    // Two, for titles and their addresses; the address can be found.
    void ShowPair(const std::function<QStringList(const QStringList& typed)>& entry = {}) {
        Show({.columns = {{.entries = unbound, .list = {"List1", "Titles"}, .line = {"txtTitle", "Title"}},
                          {.entries = unbound,
                           .list = {"List2", "Addresses"},
                           .line = {"txtURL", "URL"},
                           .button = {"cmdURL", "Find"},
                           .find = [this] { return found; }}},
              .add = {"cmdAdd", "Add Page"},
              .remove = {"cmdRemove", "Remove Page"},
              .entry = entry});
    }

    template <typename Widget>
    Widget& Get(const QString& name) {
        return *lists->findChild<Widget*>(name);
    }

    void Click(const QString& button) { QTest::mouseClick(&Get<QPushButton>(button), Qt::LeftButton); }

    void Type(const QString& line, const QString& text) {
        Get<QLineEdit>(line).setFocus();
        QTest::keyClicks(&Get<QLineEdit>(line), text);
    }

    void ClickEntry(const QString& name, int row) {
        auto& list = Get<QListWidget>(name);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
    }

    QDialog form;
    EntryLists* lists = nullptr;
    QStringList unbound;
    QString found;
    int confirmed = 0;
    int changes = 0;
};

TEST_F(EntryListForms, ShowTheirCaptionsAndEntries) {
    ShowOne();
    EXPECT_EQ(lists->Entries(0), (QStringList{"a", "b"}));
    QStringList labels;
    for (const QLabel* label : lists->findChildren<QLabel*>()) labels << label->text() + label->buddy()->objectName();
    EXPECT_EQ(labels, (QStringList{"&TypesList1", "&New TypeText1"}));
    EXPECT_EQ(Get<QPushButton>("cmdAdd").text(), "&Add");
    EXPECT_EQ(Get<QPushButton>("cmdRemove").text(), "&Remove");
    EXPECT_EQ(changes, 0);
}

TEST_F(EntryListForms, AddWhatTheLineHolds) {
    ShowOne();
    Type("Text1", "c");
    Click("cmdAdd");
    EXPECT_EQ(lists->Entries(0), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(Get<QLineEdit>("Text1").text(), "");
    EXPECT_EQ(changes, 1);
    Click("cmdAdd");
    EXPECT_EQ(lists->Entries(0), (QStringList{"a", "b", "c"})) << "an empty text is no entry";
    EXPECT_EQ(changes, 1);
    Type("Text1", "c");
    QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(lists->Entries(0), (QStringList{"a", "b", "c", "c"})) << "an entry may stand twice";
    EXPECT_EQ(confirmed, 0);
    QTest::keyClick(form.focusWidget(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(confirmed, 1) << "there was nothing to add";
}

TEST_F(EntryListForms, RemoveWhatIsChosen) {
    ShowOne();
    Click("cmdRemove");
    EXPECT_EQ(lists->Entries(0), (QStringList{"a", "b"})) << "nothing was chosen";
    EXPECT_EQ(changes, 0);
    ClickEntry("List1", 0);
    Click("cmdRemove");
    EXPECT_EQ(lists->Entries(0), QStringList("b"));
    EXPECT_EQ(changes, 1);
    ClickEntry("List1", 0);
    QTest::keyClick(&Get<QListWidget>("List1"), Qt::Key_Delete);
    EXPECT_EQ(lists->Entries(0), QStringList());
    EXPECT_EQ(changes, 2);
}

TEST_F(EntryListForms, KeepAPairInStep) {
    ShowPair();
    for (const char* name : {"1", "2", "3"}) {
        Type("txtTitle", QString("t") + name);
        Type("txtURL", QString("u") + name);
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(lists->Entries(0), (QStringList{"t1", "t2", "t3"}));
    EXPECT_EQ(lists->Entries(1), (QStringList{"u1", "u2", "u3"}));
    EXPECT_EQ(Get<QLineEdit>("txtTitle").text() + Get<QLineEdit>("txtURL").text(), "");
    ClickEntry("List2", 1);
    EXPECT_EQ(Get<QListWidget>("List1").currentRow(), 1);
    ClickEntry("List1", 0);
    EXPECT_EQ(Get<QListWidget>("List2").currentRow(), 0);
    ClickEntry("List2", 1);
    Click("cmdRemove");
    EXPECT_EQ(lists->Entries(0), (QStringList{"t1", "t3"}));
    EXPECT_EQ(lists->Entries(1), (QStringList{"u1", "u3"}));
    EXPECT_EQ(Get<QListWidget>("List1").currentRow(), Get<QListWidget>("List2").currentRow());
    for (int i = 0; i < 2; ++i) QTest::keyClick(&Get<QListWidget>("List2"), Qt::Key_Delete);
    EXPECT_EQ(lists->Entries(0) + lists->Entries(1), QStringList());
}

TEST_F(EntryListForms, NeedTheirFirstTextAlone) {
    ShowPair();
    Type("txtURL", "u");
    Click("cmdAdd");
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(Get<QLineEdit>("txtURL").text(), "u");
    Get<QLineEdit>("txtURL").clear();
    Type("txtTitle", "t");
    Click("cmdAdd");
    EXPECT_EQ(lists->Entries(0), QStringList("t"));
    EXPECT_EQ(lists->Entries(1), QStringList(""));
}

TEST_F(EntryListForms, FindATextForALine) {
    ShowPair();
    EXPECT_EQ(Get<QPushButton>("cmdURL").accessibleName(), "Find, URL");
    found = "a.htm";
    Click("cmdURL");
    EXPECT_EQ(Get<QLineEdit>("txtURL").text(), "a.htm");
    found.clear();
    Click("cmdURL");
    EXPECT_EQ(Get<QLineEdit>("txtURL").text(), "a.htm") << "nothing was found";
}

TEST_F(EntryListForms, MayMakeEntriesByARuleOfTheirOwn) {
    QStringList asked;
    ShowPair([&](const QStringList& typed) {
        asked << typed.join(u'+');
        return typed.contains(QString()) ? QStringList() : QStringList{typed[0].toUpper(), typed[1]};
    });
    Type("txtTitle", "t");
    Click("cmdAdd");
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(Get<QLineEdit>("txtTitle").text(), "t") << "no entry, so the lines stay";
    Type("txtURL", "u");
    Click("cmdAdd");
    EXPECT_EQ(asked, (QStringList{"t+", "t+u"}));
    EXPECT_EQ(lists->Entries(0), QStringList("T"));
    EXPECT_EQ(lists->Entries(1), QStringList("u"));
}

TEST_F(EntryListForms, MayDoWithoutALine) {
    QStringList next{"#FF0000"};
    Show({.columns = {{.entries = unbound, .list = {"List1", "Colors"}}},
          .add = {"cmdAdd", "Add Color"},
          .remove = {"cmdRemove", "Remove Color"},
          .entry = [&](const QStringList& /*typed*/) { return next; }});
    EXPECT_TRUE(lists->findChildren<QLineEdit*>().isEmpty());
    Click("cmdAdd");
    next.clear();  // cancelled
    Click("cmdAdd");
    EXPECT_EQ(lists->Entries(0), QStringList("#FF0000"));
}

}  // namespace
}  // namespace vellum::test
