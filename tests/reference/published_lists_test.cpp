// The shipped document types whose published ones come in no package, against their lists as these are known, and
// against what an XML parser reads from the same files.
#include "published_lists.h"

#include "reference/dtd_reader.h"
#include "vocabulary.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vellum {
namespace {

QString Shipped(const PublishedList& list) {
    return QStringLiteral(VELLUM_SOURCE_DIR "/data/Dtd/") + list.shipped;
}

std::vector<QString> ChildTexts(const ReferenceTree& tree, int index) {
    std::vector<QString> texts;
    for (const int child : tree.Node(index).children) texts.push_back(tree.Node(child).text);
    return texts;
}

// In the order of the tree, which sorts names without regard to case.
QStringList Sorted(QStringList names) {
    names.sort(Qt::CaseInsensitive);
    return names;
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
    std::vector<QString> expected{GetParam()->declaration + QString(emptyElementMark)};
    for (const QString& name : Sorted(listed_.keys()))
        expected.push_back(listed_[name].empty ? name + emptyElementMark : name);
    EXPECT_EQ(ChildTexts(tree_, 1), expected);
}

TEST_P(ListedDtd, HasEveryAttributeOnceBelowItsElement) {
    for (const int element : tree_.Node(1).children) {
        const QString name = tree_.Node(element).text.section(' ', 0, 0);
        std::vector<QString> expected;
        for (const QString& attribute : Sorted(listed_[name].attributes)) expected.push_back(attribute + '=');
        EXPECT_EQ(ChildTexts(tree_, element), expected) << name.toStdString();
    }
}

TEST_P(ListedDtd, LetsEveryElementBeFoundByItsName) {
    const std::vector<QString> texts = ChildTexts(tree_, 1);
    for (const QString& name : listed_.keys()) {
        const auto found = std::find_if(texts.begin(), texts.end(), [&](const QString& text) {
            return (' ' + text + ' ').contains(' ' + name + ' ', Qt::CaseInsensitive);
        });
        ASSERT_NE(found, texts.end()) << name.toStdString();
        EXPECT_EQ(found->section(' ', 0, 0), name);
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
    const std::vector<QString> texts = ChildTexts(tree, 1);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "guide"), 1);
}

}  // namespace
}  // namespace vellum
