// The shipped document types whose published ones come in no package, against their lists as these are known, and
// against what an XML parser reads from the same files.
#include "published_lists.h"

#include "editor/popup_rules.h"
#include "reference/dtd_reader.h"
#include "tree_text.h"
#include "vocabulary.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

using test::ChildTexts;
using test::Sorted;

QString Shipped(const PublishedList& list) {
    return QStringLiteral(VELLUM_SOURCE_DIR "/data/Dtd/") + list.shipped;
}

class ListedDtd : public testing::TestWithParam<const PublishedList*> {
protected:
    void SetUp() override {
        int nodeIndex = 2;
        AddDtD(tree_, nodeIndex, Shipped(*GetParam()), 1, "The root");
        EXPECT_EQ(nodeIndex, tree_.Count() + 1);
    }

    QMap<QString, ListedElement> listed_ = ElementsOf(*GetParam());
    ReferenceTree tree_;
};

INSTANTIATE_TEST_SUITE_P(Reference, ListedDtd,
                         testing::Values(&openEbookDocument, &openEbookPackage, &wirelessMarkup, &extensible3d),
                         [](const auto& row) {
                             const QString file = row.param->shipped;
                             return file.section('.', 0, 0).remove('-').toStdString();
                         });

TEST_P(ListedDtd, HasItsElementsInTheTreeWithTheirMarks) {
    QStringList expected{GetParam()->declaration + QString("      EMPTY")};
    for (const QString& name : Sorted(listed_.keys()))
        expected.append(listed_[name].empty ? name + "      EMPTY" : name);
    EXPECT_EQ(ChildTexts(tree_, 1), expected);
}

TEST_P(ListedDtd, HasEveryAttributeOnceBelowItsElement) {
    for (const int element : tree_.Node(1).children) {
        const QString& name = tree_.Node(element).name;
        QStringList expected;
        for (const QString& attribute : Sorted(listed_[name].attributes)) expected.append(attribute + '=');
        EXPECT_EQ(ChildTexts(tree_, element), expected) << name.toStdString();
    }
}

TEST_P(ListedDtd, LetsEveryElementBeFoundByItsName) {
    for (const QString& name : listed_.keys()) {
        const int found = FindElement(tree_, 1, name.toUpper());
        ASSERT_NE(found, 0) << name.toStdString();
        EXPECT_EQ(tree_.Node(found).name, name);
    }
}

TEST_P(ListedDtd, SaysTheSameToAnXmlParser) {
    const Vocabulary parsed = ReadVocabulary(Shipped(*GetParam()));
    EXPECT_EQ(parsed.complaints, QStringList());
    EXPECT_EQ(parsed.elements.keys(), listed_.keys());
    for (auto element = parsed.elements.cbegin(); element != parsed.elements.cend(); ++element) {
        const ListedElement& listed = listed_[element.key()];
        EXPECT_EQ(element->empty, listed.empty) << element.key().toStdString();
        EXPECT_EQ(Sorted(element->attributes.keys()), Sorted(listed.attributes)) << element.key().toStdString();
    }
}

// Without the guide the reading of a package would end there, and leave its trace in the caption.
TEST(ListedPackage, IsReadWithoutATrace) {
    ReferenceTree tree;
    int nodeIndex = 2;
    QString caption;
    AddDtD(tree, nodeIndex, Shipped(openEbookPackage), 1, "The root", [&](const QString& text) { caption = text; });
    EXPECT_EQ(caption, QString());
    EXPECT_EQ(ChildTexts(tree, 1).count("guide"), 1);
}

}  // namespace
}  // namespace vellum
