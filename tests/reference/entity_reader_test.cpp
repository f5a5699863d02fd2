#include "reference/entity_reader.h"

#include "tests/reference/tree_text.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

// "Character Sets" at index 1 and one file below it.
struct Reading {
    explicit Reading(const QString& text, int index = 1, int parent = 1) : next(index) {
        tree.AddRoot(NodeKind::Text, "Character Sets");
        try {
            result = AddEntText(tree, next, text, parent, "Latin Characters");
        } catch (const ReadingFailed&) {
            failed = true;
        } catch (const std::out_of_range&) {
            outOfRange = true;
        }
    }

    ReferenceTree tree;
    int next;
    int result = 0;
    bool failed = false;
    bool outOfRange = false;
};

// The caption of the one entity that `declaration` declares.
std::string OneNode(const QString& declaration) {
    const Reading reading(declaration);
    EXPECT_EQ(reading.tree.Count(), 3);
    return Caption(reading.tree.Node(reading.tree.Count())).toStdString();
}

TEST(EntityReader, NodeShowsReferenceAndCharacter) {
    EXPECT_EQ(OneNode("<!ENTITY nbsp \"&#160;\">"), "&nbsp;      \u00A0");
    EXPECT_EQ(OneNode("<!ENTITY eacute \"&#233;\">"), "&eacute;    é");
}

TEST(EntityReader, EscapedSignsComeOut) {
    EXPECT_EQ(OneNode("<!ENTITY lt \"&#38;#60;\">"), "&lt;        <");
    EXPECT_EQ(OneNode("<!ENTITY amp \"&#38;#38;\">"), "&amp;       &");
    EXPECT_EQ(OneNode("<!ENTITY gt \"&#62;\">"), "&gt;        >");
    EXPECT_EQ(OneNode("<!ENTITY quot \"&#34;\">"), "&quot;      \"");
}

TEST(EntityReader, GreaterCodesStayAsText) {
    EXPECT_EQ(OneNode("<!ENTITY euro \"&#8364;\">"), "&euro;      &#8364;");
    EXPECT_EQ(OneNode("<!ENTITY x \"&#256;\">"), "&x;         &#256;");
    EXPECT_EQ(OneNode("<!ENTITY x \"&#255;\">"), "&x;         ÿ");
}

TEST(EntityReader, TabsAreAsGoodAsBlanks) {
    EXPECT_EQ(OneNode("<!ENTITY\tsigmaf\t\"&#962;\">"), "&sigmaf;    &#962;");
    EXPECT_EQ(OneNode("<!ENTITY sigmaf\t\"&#962;\"> x"), "&sigmaf;    &#962;");
    EXPECT_EQ(OneNode("<!ENTITYx <!ENTITY\r\n <!ENTITY sigmaf \t\"&#962;\"> <!ENTITY"), "&sigmaf;    &#962;");
}

TEST(EntityReader, CodesAreThoseOfWindows1252) {
    EXPECT_EQ(OneNode("<!ENTITY x \"&#128;\">"), "&x;         €");
    EXPECT_EQ(OneNode("<!ENTITY x \"&#150;\">"), "&x;         –");
    EXPECT_EQ(OneNode("<!ENTITY x \"&#159;\">"), "&x;         Ÿ");
    EXPECT_EQ(OneNode("<!ENTITY x \"&#129;\">"), "&x;         \u0081");
}

TEST(EntityReader, NumbersAreReadLeniently) {
    EXPECT_EQ(OneNode("<!ENTITY x \"&#65 and more;\">"), "&x;         A");
    EXPECT_EQ(OneNode("<!ENTITY x \"&#65;66;\">"), "&x;         A");
    // What begins with no number has the code 0.
    EXPECT_EQ(OneNode("<!ENTITY x \"&#xE9;\">"), "&x;         " + std::string(1, '\0'));
    EXPECT_EQ(OneNode("<!ENTITY x \"&amp;\">"), "&x;         " + std::string(1, '\0'));
    for (const char* value : {"&", "&#-5;", "&#255.9;"}) {
        EXPECT_TRUE(Reading(QString("<!ENTITY x \"%1\">").arg(value)).failed) << value;
    }
}

TEST(EntityReader, OtherValuesStayAsTheyAre) {
    EXPECT_EQ(OneNode("<!ENTITY x \"\">"), "&x;         ");
    EXPECT_EQ(OneNode("<!ENTITY x \"text\" \"of two\">"), "&x;         text\" \"of two");
}

TEST(EntityReader, PadIsNeverNegative) {
    EXPECT_EQ(OneNode("<!ENTITY thetasymb \"q\">"), "&thetasymb; q");
    EXPECT_EQ(OneNode("<!ENTITY tenletters \"q\">"), "&tenletters;q");
    EXPECT_EQ(OneNode("<!ENTITY elevenletters \"q\">"), "&elevenletters;q");
}

TEST(EntityReader, NodesTellTheirKindNameAndCharacter) {
    const Reading reading("<!ENTITY eacute \"&#233;\">");
    EXPECT_EQ(reading.tree.Node(2).kind, NodeKind::CharacterSet);
    EXPECT_EQ(reading.tree.Node(2).name, "Latin Characters");
    const ReferenceNode& character = reading.tree.Node(3);
    EXPECT_EQ(character.kind, NodeKind::Character);
    EXPECT_EQ(character.name, "eacute");
    EXPECT_EQ(character.shown, "é");
}

TEST(EntityReader, CommentsAreReadLikeAnythingElse) {
    EXPECT_EQ(OneNode("<!-- <!ENTITY copy \"&#169;\"> -->"), "&copy;      ©");
    // A parameter entity counts too, and its name is the sign.
    EXPECT_EQ(OneNode("<!ENTITY % x \"y\">"), "&%;         y");
}

TEST(EntityReader, FilesFollowOneAnotherShortOfTheirTitles) {
    ReferenceTree tree;
    for (int index = 1; index < 100; ++index) tree.AddRoot(NodeKind::Text, "Before");
    const int sets = tree.AddRoot(NodeKind::Text, "Character Sets");
    ASSERT_EQ(sets, 100);
    int next = sets;
    next = AddEntText(tree, next, "<!ENTITY a \"1\"><!ENTITY b \"2\"><!ENTITY c \"3\">", sets, "First");
    EXPECT_EQ(next, 103);
    next = AddEntText(tree, next, "<!ENTITY d \"4\"><!ENTITY e \"5\">", sets, "Second");
    EXPECT_EQ(next, 105);
    next = AddEntText(tree, next, "<!ENTITY f \"6\">", sets, "Third");
    EXPECT_EQ(next, 106);
    EXPECT_EQ(tree.Node(100).children, std::vector<int>({101, 105, 108}));
    EXPECT_EQ(tree.Node(101).children, std::vector<int>({102, 103, 104}));
    EXPECT_EQ(tree.Node(104).children, std::vector<int>({106, 107}));
    EXPECT_EQ(tree.Node(105).children, std::vector<int>());
    EXPECT_EQ(tree.Node(106).children, std::vector<int>({109}));
    EXPECT_EQ(Caption(tree.Node(109)), "&f;         6");
}

TEST(EntityReader, CountIsHandedBackOneHigherThanTheResult) {
    const Reading reading("<!ENTITY a \"1\"><!ENTITY b \"2\">");
    EXPECT_EQ(reading.next, 4);
    EXPECT_EQ(reading.result, 3);
    const Reading none("nothing at all");
    EXPECT_EQ(none.next, 2);
    EXPECT_EQ(none.result, 1);
    EXPECT_EQ(TreeText(none.tree), "1 Character Sets\n-2 Latin Characters");
}

TEST(EntityReader, BrokenEntitiesFail) {
    for (const char* broken : {"<!ENTITY b \"1\"", "<!ENTITY b 1>", "<!ENTITY b \"1>", "<!ENTITY b>",
                               "<!ENTITY b\"1\">", "<!ENTITY b \"&\">"}) {
        const Reading reading(QString("<!ENTITY a \"1\">") + broken);
        EXPECT_TRUE(reading.failed) << broken;
        EXPECT_EQ(TreeText(reading.tree), "1 Character Sets\n-2 Latin Characters\n--3 &a;         1") << broken;
        EXPECT_EQ(reading.next, 1) << broken;
    }
}

TEST(EntityReader, NodesThatAreNoneOfTheTreeEndTheReading) {
    EXPECT_TRUE(Reading("", 1, 7).outOfRange);
    EXPECT_TRUE(Reading("<!ENTITY a \"1\">", 7).outOfRange);
    EXPECT_TRUE(Reading("<!ENTITY a \"1\">", 1, 0).outOfRange);
}

TEST(EntityReader, ReadsFiles) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("x.ent"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<!ENTITY nbsp   \"&#160;\"> <!-- a space -->\n<!ENTITY iexcl  \"&#161;\">\n");
    file.close();
    ReferenceTree tree;
    tree.AddRoot(NodeKind::Text, "Character Sets");
    int next = 1;
    EXPECT_EQ(AddEnt(tree, next, file.fileName(), 1, "Latin Characters"), 3);
    EXPECT_EQ(ChildTexts(tree, 2), QStringList({"&nbsp;      \u00A0", "&iexcl;     ¡"}));
}

TEST(EntityReader, FileThatIsMissingLeavesTheTitle) {
    ReferenceTree tree;
    tree.AddRoot(NodeKind::Text, "Character Sets");
    int next = 1;
    EXPECT_THROW(AddEnt(tree, next, "/nowhere/x.ent", 1, "Latin Characters"), ReadingFailed);
    EXPECT_EQ(TreeText(tree), "1 Character Sets\n-2 Latin Characters");
    EXPECT_EQ(next, 1);
}

}  // namespace
}  // namespace vellum::test
