#include "editor/popup_list.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

class PopupListTest : public testing::Test {
protected:
    void SetUp() override {
        list.Fill({{NodeKind::Element, "!DOCTYPE html\r\n PUBLIC", "!DOCTYPE html\r\n PUBLIC"},
                   {NodeKind::Attribute, "Href=", "Href=\"\""},
                   {NodeKind::Attribute, "hreflang=", "hreflang=\"\""},
                   {NodeKind::Character, "&nu;        v", "&nu;"},
                   {NodeKind::Character, "&Nu;        N", "&Nu;"}});
    }
    // What the entry writes that begins with `start`.
    QString Selected(const QString& start, Qt::CaseSensitivity cs) {
        list.SelectByStart(start, cs);
        return list.Chosen() ? list.Chosen()->written : QString();
    }

    PopupList list{"cmbTags", "Tags", nullptr};
};

TEST_F(PopupListTest, AnEntryOfSeveralLinesShowsItsFirst) {
    EXPECT_EQ(list.item(0)->text(), "!DOCTYPE html");
    EXPECT_EQ(list.item(0)->toolTip(), "!DOCTYPE html\r\n PUBLIC");
    EXPECT_EQ(list.item(3)->text(), "&nu;        v");
    EXPECT_EQ(list.item(3)->toolTip(), "");
}

TEST_F(PopupListTest, TheFirstEntryThatBeginsAsTypedIsSelected) {
    EXPECT_EQ(list.Chosen(), nullptr);
    EXPECT_EQ(Selected("href", Qt::CaseInsensitive), "Href=\"\"");
    EXPECT_EQ(Selected("href=", Qt::CaseInsensitive), "Href=\"\"");
    EXPECT_EQ(Selected("href", Qt::CaseSensitive), "hreflang=\"\"");
    EXPECT_EQ(Selected("&N", Qt::CaseSensitive), "&Nu;");
    EXPECT_EQ(Selected("!doctype html\r\n p", Qt::CaseInsensitive), "!DOCTYPE html\r\n PUBLIC");
    EXPECT_EQ(Selected("u;", Qt::CaseInsensitive), "");
    EXPECT_EQ(list.currentRow(), -1);
}

TEST_F(PopupListTest, NewEntriesTakeThePlaceOfTheOld) {
    list.SelectByStart("&nu", Qt::CaseSensitive);
    list.Fill({{NodeKind::Element, "a", "a"}});
    EXPECT_EQ(list.Chosen(), nullptr);
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(Selected("a", Qt::CaseSensitive), "a");
    list.Fill({});
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(Selected("a", Qt::CaseSensitive), "");
}

TEST_F(PopupListTest, AsksForRoomForEightEntriesAtMost) {
    const int row = list.WantedSize().height() / 5;
    EXPECT_EQ(list.WantedSize().height(), 5 * row);
    const int narrow = list.WantedSize().width();
    list.Fill(std::vector<PopupEntry>(8, {NodeKind::Element, "a", "a"}));
    EXPECT_EQ(list.WantedSize().height(), 8 * row);
    EXPECT_LT(list.WantedSize().width(), narrow);
    const int withoutBar = list.WantedSize().width();
    list.Fill(std::vector<PopupEntry>(9, {NodeKind::Element, "a", "a"}));
    EXPECT_EQ(list.WantedSize().height(), 8 * row);
    EXPECT_GT(list.WantedSize().width(), withoutBar);
    list.Fill({});
    EXPECT_GT(list.WantedSize().height(), 0);
}

}  // namespace
}  // namespace vellum
