#include "reference/add_tags.h"

#include "reference/script_vocabulary.h"
#include "settings/settings_keys.h"
#include "tests/reference/tree_text.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <set>

namespace vellum {
namespace {

class AddTagsTest : public testing::Test {
protected:
    void Write(const QString& name, const QByteArray& text) const {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
    }
    void Set(const SettingKey& key, const QString& value) { WriteSetting(settings, key, value); }
    void Build() { AddTags(tree, settings, folder.path()); }

    [[nodiscard]] QStringList RootTexts() const {
        QStringList texts;
        for (const int root : tree.Roots()) texts << tree.Node(root).name;
        return texts;
    }
    [[nodiscard]] QStringList ChildTexts(int node) const { return test::ChildTexts(tree, node); }
    [[nodiscard]] int Root(const QString& text) const {
        return tree.Roots().at(static_cast<std::size_t>(RootTexts().indexOf(text)));
    }

    QTemporaryDir home;
    QTemporaryDir folder;
    SettingsStore settings{home.filePath("settings.json")};
    ReferenceTree tree;
};

const QStringList fixedRoots{"Character Sets", "JScript 5.0 Language", "VBScript 5.0 Language", "Date/Time",
                             "Emoticons",      "Custom List"};

TEST_F(AddTagsTest, TheDefaultsGiveXhtmlSmilAndOpenEbook) {
    Build();
    EXPECT_EQ(RootTexts(), (QStringList{"XHTML1 Transitional", "SMIL 1.0", "OpenEBook Documents 1.0 "} + fixedRoots));
}

TEST_F(AddTagsTest, OnlyTheFirstRootIsBold) {
    for (const char* name : {"xhtml1-transitional.dtd", "smil.dtd", "oebdoc1.dtd", "oebpkg1.dtd"}) {
        Write(name, "<!ELEMENT a ANY>\n");
    }
    Build();
    EXPECT_EQ(RootTexts(),
              (QStringList{"XHTML1 Transitional", "SMIL 1.0", "OpenEBook Documents 1.0 ", "OpenEBook Packages 1.0 "} +
               fixedRoots));
    for (const int root : tree.Roots()) EXPECT_EQ(tree.Node(root).bold, root == 1) << root;
    EXPECT_EQ(tree.ActiveRoot(), 1);
}

TEST_F(AddTagsTest, TheSettingsChooseTheDocumentTypes) {
    for (const char* name :
         {"xhtml1-frameset.dtd", "xhtml1-strict.dtd", "svg.dtd", "wml13.dtd", "x3d-compromise.dtd"}) {
        Write(name, "<!ELEMENT a ANY>\n");
    }
    Set(keys::dtdSmil, "0");
    Set(keys::dtdOpen, "0");
    Set(keys::dtdSvg, "1");
    Set(keys::dtdWml, "1");
    Set(keys::dtdX3d, "1");
    Set(keys::dtdXhtml, "2");
    Build();
    EXPECT_EQ(RootTexts(), (QStringList{"XHTML1 Frameset", "Scalable Vector Graphics 1.0",
                                        "Wireless Markup Language 1.3", "Extensible 3D (X3D)"} +
                            fixedRoots));
    EXPECT_EQ(ChildTexts(Root("Extensible 3D (X3D)")), QStringList{"a"});
    Set(keys::dtdXhtml, "1");
    Build();
    EXPECT_EQ(RootTexts().front(), "XHTML1 Strict");
}

TEST_F(AddTagsTest, AnUnknownXhtmlGivesNone) {
    Set(keys::dtdXhtml, "3");
    Set(keys::dtdSmil, "0");
    Set(keys::dtdOpen, "0");
    Build();
    EXPECT_EQ(RootTexts(), fixedRoots);
    EXPECT_TRUE(tree.Node(1).bold);
}

// The count of a branch goes on from the one before, so without that one it names nodes that aren't there yet.
TEST_F(AddTagsTest, WithoutAnXhtmlTheNextTypesMissTheirRoots) {
    Set(keys::dtdXhtml, "3");
    Set(keys::dtdOpen, "0");
    Write("smil.dtd", "<!ELEMENT par ANY>\n");
    Build();
    EXPECT_EQ(RootTexts(), QStringList{"SMIL 1.0"} + fixedRoots);
    EXPECT_TRUE(tree.Node(1).children.empty());
}

TEST_F(AddTagsTest, ACountThatLagsHangsTheNextTypeElsewhere) {
    Set(keys::dtdOpen, "0");
    // The second element isn't found again by its name, after the first was added.
    Write("xhtml1-transitional.dtd", "<!ENTITY % z \"q\"><!ELEMENT a (x)><!ELEMENT b%z; (x)>\n");
    Write("smil.dtd", "<!ELEMENT par ANY>\n");
    Build();
    EXPECT_EQ(ChildTexts(1), QStringList{"a"});
    EXPECT_EQ(tree.Node(3).name, "SMIL 1.0");
    EXPECT_TRUE(tree.Node(3).children.empty());
    EXPECT_EQ(ChildTexts(2), QStringList{"par"});
    EXPECT_EQ(ChildTexts(Root("Character Sets")), QStringList{"Latin Characters"}) << "the count is taken anew there";
}

TEST_F(AddTagsTest, AnOpenEbookThatFailsKeepsTheOtherOneOut) {
    Set(keys::dtdSmil, "0");
    Write("xhtml1-transitional.dtd", "<!ELEMENT a ANY>\n");
    Write("oebpkg1.dtd", "<!ELEMENT b ANY>\n");
    Build();
    EXPECT_EQ(RootTexts(), (QStringList{"XHTML1 Transitional", "OpenEBook Documents 1.0 "} + fixedRoots));
}

TEST_F(AddTagsTest, ACharacterSetThatFailsLeavesTheOthersUnread) {
    Write("xhtml-lat1.ent", "<!ENTITY a1 \"&#161;\">\n");
    Write("xhtml-special.ent", "<!ENTITY lt \"&#38;#60;\">\n");
    Build();
    const int sets = Root("Character Sets");
    EXPECT_EQ(ChildTexts(sets), (QStringList{"Latin Characters", "Symbol Characters"}));
}

TEST_F(AddTagsTest, TheGuideThatCantBeFoundReachesTheCaption) {
    Write("xhtml1-transitional.dtd", "<!ENTITY % z \"de\"><!ELEMENT gui%z; (x)>\n");
    QString caption;
    AddTags(tree, settings, folder.path(), [&caption](const QString& text) { caption = text; });
    EXPECT_EQ(caption, "ga");
}

TEST_F(AddTagsTest, WithoutAFolderOnlyTheRootsStand) {
    const QString before = QDir::currentPath();
    Write("xhtml1-transitional.dtd", "<!ELEMENT a ANY>\n");
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    AddTags(tree, settings, {});
    QDir::setCurrent(before);
    EXPECT_EQ(tree.Node(1).name, "XHTML1 Transitional");
    EXPECT_TRUE(tree.Node(1).children.empty());
}

TEST_F(AddTagsTest, ABlockThatFailsLeavesTheOthersAlone) {
    Write("xhtml1-transitional.dtd", "<!ELEMENT a ANY>\n<!ELEMENT b %missing;>\n");
    Write("smil.dtd", "<!ELEMENT par ANY>\n");
    Build();
    EXPECT_EQ(RootTexts().mid(0, 2), (QStringList{"XHTML1 Transitional", "SMIL 1.0"}));
    EXPECT_TRUE(tree.Node(1).children.empty());
}

TEST_F(AddTagsTest, CharacterSetsHoldTheThreeFiles) {
    Set(keys::dtdSmil, "0");
    Set(keys::dtdOpen, "0");
    Write("xhtml1-transitional.dtd", "<!ELEMENT a ANY>\n");
    Write("xhtml-lat1.ent", "<!ENTITY a1 \"&#161;\">\n<!ENTITY a2 \"&#162;\">\n<!ENTITY a3 \"&#163;\">\n");
    Write("xhtml-symbol.ent", "<!ENTITY b1 \"&#402;\">\n<!ENTITY b2 \"&#913;\">\n");
    Write("xhtml-special.ent", "<!ENTITY lt \"&#38;#60;\">\n");
    Build();
    const int sets = Root("Character Sets");
    EXPECT_EQ(ChildTexts(sets), (QStringList{"Latin Characters", "Symbol Characters", "Special Characters"}));
    EXPECT_EQ(ChildTexts(sets + 1), (QStringList{QString::fromUtf8("&a1;        ¡"), QString::fromUtf8("&a2;        ¢"),
                                                 QString::fromUtf8("&a3;        £")}));
    // The later files hang under entities of the ones before.
    EXPECT_EQ(ChildTexts(sets + 4), (QStringList{"&b1;        &#402;", "&b2;        &#913;"}));
    EXPECT_EQ(ChildTexts(sets + 6), QStringList{"&lt;        <"});
}

TEST_F(AddTagsTest, ScriptsHaveGroupsOfWords) {
    Build();
    const int script = Root("JScript 5.0 Language");
    EXPECT_EQ(ChildTexts(script), (QStringList{"Functions", "Methods", "Objects", "Properties", "Statements"}));
    const QStringList methods = ChildTexts(tree.Node(script).children.at(1));
    EXPECT_EQ(methods.size(), 109);
    EXPECT_EQ(methods.front(), "abs");
    EXPECT_EQ(methods.back(), "ValueOf");
    EXPECT_EQ(ChildTexts(tree.Node(script).children.at(4)).mid(2, 3), (QStringList{"@cc_on", "//", "/* .. */"}));
    const int basic = Root("VBScript 5.0 Language");
    EXPECT_EQ(ChildTexts(basic),
              (QStringList{"Events", "Functions", "Methods", "Objects", "Properties", "Statements"}));
    EXPECT_EQ(ChildTexts(tree.Node(basic).children.at(0)), (QStringList{"Initialize", "Terminate"}));
    EXPECT_EQ(ChildTexts(tree.Node(basic).children.at(1)).size(), 92);
    EXPECT_EQ(ChildTexts(tree.Node(basic).children.at(5)).back(), "With");
}

// A digest of the lists as they were agreed: of a line for each group, its name, ": " and its words with ", " between.
TEST_F(AddTagsTest, NoWordOfTheScriptsIsMissingOrMisspelt) {
    Build();
    const auto digest = [](const QStringList& lines) {
        return QCryptographicHash::hash(lines.join('\n').toLatin1(), QCryptographicHash::Sha1).toHex();
    };
    const auto groups = [this](const QString& root) {
        QStringList lines;
        for (const int group : tree.Node(Root(root)).children) {
            lines << tree.Node(group).name + ": " + ChildTexts(group).join(", ");
        }
        return lines;
    };
    EXPECT_EQ(digest(groups("JScript 5.0 Language")), "49263ee96b68dddcdd1dd13d54c6874d45aac9cb");
    EXPECT_EQ(digest(groups("VBScript 5.0 Language")), "32109f7399df0c80dae25da14eb9753bcbba0191");
    EXPECT_EQ(digest(ChildTexts(Root("Emoticons"))), "258437dfceeb3340a3fc5384573ad40175ff4d67");
}

TEST_F(AddTagsTest, NodesTellTheirKind) {
    Write("xhtml1-transitional.dtd", "<!ELEMENT a ANY>\n");
    Write("xhtml-lat1.ent", "<!ENTITY a1 \"&#161;\">\n");
    Set(keys::customTagsCount, "1");
    Build();
    const auto kindsUnder = [this](int node) {
        std::set<NodeKind> kinds;
        for (const int child : tree.Node(node).children) kinds.insert(tree.Node(child).kind);
        return kinds;
    };
    EXPECT_EQ(tree.Node(1).kind, NodeKind::DocumentType);
    EXPECT_EQ(kindsUnder(1), std::set{NodeKind::Element});
    const int sets = Root("Character Sets");
    EXPECT_EQ(tree.Node(sets).kind, NodeKind::Text);
    EXPECT_EQ(kindsUnder(sets), std::set{NodeKind::CharacterSet});
    EXPECT_EQ(kindsUnder(sets + 1), std::set{NodeKind::Character});
    for (const char* language : {"JScript 5.0 Language", "VBScript 5.0 Language"}) {
        EXPECT_EQ(kindsUnder(Root(language)), std::set{NodeKind::Text}) << language;
        for (const int group : tree.Node(Root(language)).children) {
            const QString& name = tree.Node(group).name;
            const bool called = name == "Methods" || name == "Functions";
            EXPECT_EQ(kindsUnder(group), std::set{called ? NodeKind::Call : NodeKind::Text}) << name.toStdString();
        }
    }
    EXPECT_EQ(tree.Node(Root("Date/Time")).kind, NodeKind::Dates);
    for (const char* list : {"Date/Time", "Emoticons", "Custom List"}) {
        EXPECT_EQ(kindsUnder(Root(list)), std::set{NodeKind::Text}) << list;
    }
}

TEST_F(AddTagsTest, DatesEmoticonsAndOwnTagsComeLast) {
    Build();
    EXPECT_EQ(ChildTexts(Root("Date/Time")), (QStringList{"1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_EQ(ChildTexts(Root("Emoticons")).size(), 20);
    EXPECT_EQ(ChildTexts(Root("Emoticons")).front(), ": - )");
    EXPECT_EQ(ChildTexts(Root("Emoticons")).back(), "; o |");
    EXPECT_TRUE(ChildTexts(Root("Custom List")).isEmpty());
    Set(keys::customTagsCount, "3");
    WriteSetting(settings, keys::customTagsEntry, 0, "<big></big>");
    WriteSetting(settings, keys::customTagsEntry, 2, "Regards");
    Build();
    EXPECT_EQ(ChildTexts(Root("Custom List")), (QStringList{"<big></big>", "-1", "Regards"}));
}

TEST_F(AddTagsTest, BuildingAnewEmptiesTheTreeFirst) {
    Build();
    const int count = tree.Count();
    Build();
    EXPECT_EQ(tree.Count(), count);
}

TEST(DateTimeTexts, AreTheSevenNamedFormats) {
    const QDateTime moment(QDate(2001, 3, 9), QTime(16, 5, 7));
    const QStringList texts = DateTimeTexts(moment, QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(texts, (QStringList{"3/9/01 4:05:07 PM", "Friday, March 9, 2001", "09-Mar-01", "3/9/01", "4:05:07 PM",
                                  "04:05 PM", "16:05"}));
}

TEST(DateTimeTexts, NameNoTimeZone) {
    const QDateTime moment(QDate(2001, 3, 9), QTime(16, 5, 7));
    EXPECT_EQ(DateTimeTexts(moment, QLocale(QLocale::Spanish, QLocale::Spain)).at(4), "16:05:07");
    EXPECT_EQ(DateTimeTexts(moment, QLocale(QLocale::German, QLocale::Germany)).at(4), "16:05:07");
    EXPECT_EQ(DateTimeTexts(moment, QLocale::c()).at(4), "16:05:07");
}

}  // namespace
}  // namespace vellum
