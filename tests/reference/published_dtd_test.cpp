// The shipped document types and character sets against the published ones, as an XML parser reads both, and the
// reference tree that is built from the shipped ones against the same. The published ones come with Debian's
// w3c-sgml-lib.
#include "reference/dtd_reader.h"
#include "vocabulary.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace vellum {
namespace {

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

std::vector<QString> ChildTexts(const ReferenceTree& tree, int index) {
    std::vector<QString> texts;
    for (const int child : tree.Node(index).children) texts.push_back(tree.Node(child).text);
    return texts;
}

// In the order of the tree, which sorts names without regard to case.
std::vector<QString> Sorted(QStringList names) {
    names.sort(Qt::CaseInsensitive);
    return {names.begin(), names.end()};
}

TEST_P(PublishedDtd, HasItsElementsInTheTreeWithTheirMarks) {
    const ReferenceTree tree = TreeOf(GetParam());
    std::vector<QString> expected{GetParam().declaration + emptyElementMark};
    for (const QString& name : Sorted(published_.elements.keys()))
        expected.push_back(published_.elements[name].empty ? name + emptyElementMark : name);
    EXPECT_EQ(ChildTexts(tree, 1), expected);
}

TEST_P(PublishedDtd, HasEveryAttributeOnceBelowItsElement) {
    const ReferenceTree tree = TreeOf(GetParam());
    EXPECT_EQ(tree.Node(2).children.size(), 0U) << "The document type has no attributes.";
    int attributes = 0;
    for (const int element : tree.Node(1).children) {
        if (element == 2) continue;
        const QString name = tree.Node(element).text.section(' ', 0, 0);
        std::vector<QString> expected = Sorted(published_.elements[name].attributes.keys());
        for (QString& attribute : expected) attribute += '=';
        EXPECT_EQ(ChildTexts(tree, element), expected) << name.toStdString();
        for (const int attribute : tree.Node(element).children) EXPECT_TRUE(tree.Node(attribute).children.empty());
        attributes += static_cast<int>(expected.size());
    }
    const int root = 1;
    const int documentType = 1;
    EXPECT_EQ(tree.Count(), root + documentType + published_.elements.size() + attributes);
}

// The popup and the closing of empty elements take the first child of the root that holds a name as a word between
// blanks, the popup without regard to case; the document type must not be taken for its root element.
TEST_P(PublishedDtd, LetsEveryElementBeFoundByItsName) {
    const ReferenceTree tree = TreeOf(GetParam());
    for (const QString& name : published_.elements.keys()) {
        const QString word = ' ' + name.toLower() + ' ';
        const std::vector<QString> texts = ChildTexts(tree, 1);
        const auto found = std::find_if(texts.begin(), texts.end(), [&](const QString& text) {
            return (' ' + text.toLower() + ' ').contains(word);
        });
        ASSERT_NE(found, texts.end()) << name.toStdString();
        EXPECT_EQ(found->section(' ', 0, 0), name);
    }
}

class PublishedCharacterSet : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Reference, PublishedCharacterSet, testing::Values("lat1", "symbol", "special"));

TEST_P(PublishedCharacterSet, SaysTheSameToAnXmlParserAsTheShippedOne) {
    const QString name = QString("xhtml-%1.ent").arg(GetParam());
    const Vocabulary published = ReadVocabulary(PublishedEntityFolder() + '/' + name);
    ASSERT_EQ(published.complaints, QStringList()) << "Is the package w3c-sgml-lib installed?";
    ASSERT_FALSE(published.entities.isEmpty());
    const Vocabulary shipped = ReadVocabulary(Shipped(name));
    EXPECT_EQ(shipped.complaints, QStringList());
    EXPECT_EQ(shipped.entities, published.entities);
}

}  // namespace
}  // namespace vellum
