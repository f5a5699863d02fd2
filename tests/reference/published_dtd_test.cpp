// The shipped document types and character sets against the published ones, as an XML parser reads both, and the
// reference tree that is built from the shipped ones against the same. The published ones come with Debian's
// w3c-sgml-lib.
#include "editor/popup_rules.h"
#include "reference/dtd_reader.h"
#include "reference/entity_reader.h"
#include "tree_text.h"
#include "vocabulary.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace vellum {
namespace {

using test::ChildTexts;
using test::Sorted;

QString Shipped(const QString& name) {
    return QStringLiteral(VELLUM_SOURCE_DIR "/data/Dtd/") + name;
}

QString Published(const QString& name) {
    return "/usr/share/xml/w3c-sgml-lib/schema/dtd/" + name;
}

// Where the published character sets lie; the published document types of XHTML name them without their folder.
QString PublishedEntityFolder() {
    return Published("REC-xhtml-modularization-20100729");
}

// One document type: the shipped file, the published one, the text that opens a document of it.
struct DocumentTypeRow {
    const char* shipped;
    const char* published;
    const char* declaration;
};

void PrintTo(const DocumentTypeRow& row, std::ostream* out) {
    *out << row.shipped;
}

const DocumentTypeRow documentTypes[] = {
    {"xhtml1-transitional.dtd", "REC-xhtml1-20020801/xhtml1-transitional.dtd",
     "!DOCTYPE html\r\n    PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\"\r\n"
     "    \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\""},
    {"xhtml1-strict.dtd", "REC-xhtml1-20020801/xhtml1-strict.dtd",
     "!DOCTYPE html\r\n    PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\r\n"
     "    \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\""},
    {"xhtml1-frameset.dtd", "REC-xhtml1-20020801/xhtml1-frameset.dtd",
     "!DOCTYPE html\r\n    PUBLIC \"-//W3C//DTD XHTML 1.0 Frameset//EN\"\r\n"
     "    \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-frameset.dtd\""},
    {"smil.dtd", "REC-smil-19980615/smil10.dtd",
     "!DOCTYPE smil\r\n    PUBLIC \"-//W3C//DTD SMIL\r\n            1.0//EN\"\r\n"
     "    \"http://www.w3.org/TR/REC-smil/SMIL10.dtd\""},
    {"svg.dtd", "REC-SVG-20010904/svg10.dtd",
     "!DOCTYPE svg\r\n    PUBLIC \"-//W3C//DTD SVG\r\n            1.0//EN\"\r\n"
     "    \"http://www.w3.org/TR/2001/REC-SVG-20010904/DTD/svg10.dtd\""},
};

class PublishedDtd : public testing::TestWithParam<DocumentTypeRow> {
protected:
    void SetUp() override {
        published_ = ReadVocabulary(Published(GetParam().published), PublishedEntityFolder());
        ASSERT_EQ(published_.complaints, QStringList()) << "Is the package w3c-sgml-lib installed?";
        ASSERT_FALSE(published_.elements.isEmpty());
    }

    Vocabulary published_;
};

INSTANTIATE_TEST_SUITE_P(Reference, PublishedDtd, testing::ValuesIn(documentTypes), [](const auto& row) {
    return QString(row.param.shipped).section('.', 0, 0).remove(QRegularExpression("[^a-z0-9]")).toStdString();
});

TEST_P(PublishedDtd, SaysTheSameToAnXmlParserAsTheShippedOne) {
    const Vocabulary shipped = ReadVocabulary(Shipped(GetParam().shipped));
    EXPECT_EQ(shipped.complaints, QStringList());
    EXPECT_EQ(shipped.elements.keys(), published_.elements.keys());
    EXPECT_EQ(shipped.entities, published_.entities);
    for (auto element = published_.elements.cbegin(); element != published_.elements.cend(); ++element) {
        const VocabularyElement ours = shipped.elements.value(element.key());
        EXPECT_EQ(ours.content, element->content) << element.key().toStdString();
        EXPECT_EQ(ours.attributes, element->attributes) << element.key().toStdString();
    }
}

// The tree of the shipped document type, whose root is its first node.
ReferenceTree TreeOf(const DocumentTypeRow& row) {
    ReferenceTree tree;
    int nodeIndex = 2;
    AddDtD(tree, nodeIndex, Shipped(row.shipped), 1, "The root");
    EXPECT_EQ(nodeIndex, tree.Count() + 1);
    return tree;
}

TEST_P(PublishedDtd, HasItsElementsInTheTreeWithTheirMarks) {
    const ReferenceTree tree = TreeOf(GetParam());
    QStringList expected{GetParam().declaration + QString("      EMPTY")};
    for (const QString& name : Sorted(published_.elements.keys()))
        expected.append(published_.elements[name].empty ? name + "      EMPTY" : name);
    EXPECT_EQ(ChildTexts(tree, 1), expected);
}

TEST_P(PublishedDtd, HasEveryAttributeOnceBelowItsElement) {
    const ReferenceTree tree = TreeOf(GetParam());
    EXPECT_EQ(tree.Node(2).children.size(), 0U) << "The document type has no attributes.";
    int attributes = 0;
    for (const int element : tree.Node(1).children) {
        if (element == 2) continue;
        const QString& name = tree.Node(element).name;
        QStringList expected = Sorted(published_.elements[name].attributes.keys());
        for (QString& attribute : expected) attribute += '=';
        EXPECT_EQ(ChildTexts(tree, element), expected) << name.toStdString();
        for (const int attribute : tree.Node(element).children) EXPECT_TRUE(tree.Node(attribute).children.empty());
        attributes += static_cast<int>(expected.size());
    }
    const int root = 1;
    const int documentType = 1;
    EXPECT_EQ(tree.Count(), root + documentType + published_.elements.size() + attributes);
}

// The declaration of the document type must not be taken for its root element.
TEST_P(PublishedDtd, LetsEveryElementBeFoundByItsName) {
    const ReferenceTree tree = TreeOf(GetParam());
    for (const QString& name : published_.elements.keys()) {
        const int found = FindElement(tree, 1, name.toUpper());
        ASSERT_NE(found, 0) << name.toStdString();
        EXPECT_EQ(tree.Node(found).name, name);
    }
}

class PublishedCharacterSet : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        published_ = ReadVocabulary(PublishedEntityFolder() + '/' + name_);
        ASSERT_EQ(published_.complaints, QStringList()) << "Is the package w3c-sgml-lib installed?";
        ASSERT_FALSE(published_.entities.isEmpty());
    }

    const QString name_ = QString("xhtml-%1.ent").arg(GetParam());
    Vocabulary published_;
};

INSTANTIATE_TEST_SUITE_P(Reference, PublishedCharacterSet, testing::Values("lat1", "symbol", "special"),
                         [](const auto& row) { return std::string(row.param); });

TEST_P(PublishedCharacterSet, SaysTheSameToAnXmlParserAsTheShippedOne) {
    const Vocabulary shipped = ReadVocabulary(Shipped(name_));
    EXPECT_EQ(shipped.complaints, QStringList());
    EXPECT_EQ(shipped.entities, published_.entities);
}

TEST_P(PublishedCharacterSet, HasEveryCharacterOnceInTheTree) {
    QStringList expected;
    for (auto entity = published_.entities.cbegin(); entity != published_.entities.cend(); ++entity) {
        ASSERT_EQ(entity->size(), 1) << entity.key().toStdString();
        const int code = entity->front().unicode();
        const QString shown = code < 256 ? *entity : QString("&#%1;").arg(code);
        expected << '&' + entity.key() + ';' + QString(10 - entity.key().size(), ' ') + shown;
    }
    ReferenceTree tree;
    int nodeIndex = tree.AddRoot(NodeKind::Text, "Character Sets");
    AddEnt(tree, nodeIndex, Shipped(name_), 1, "The title");
    QStringList shipped = ChildTexts(tree, 2);
    EXPECT_EQ(tree.Count(), 2 + shipped.size());
    expected.sort();
    shipped.sort();
    EXPECT_EQ(shipped, expected);
}

}  // namespace
}  // namespace vellum
