#include "editor/tag_popup.h"

#include "editor/popup_rules.h"
#include "tests/editor/editor_fixture.h"

#include <QScrollBar>

namespace vellum {
namespace {

class TagPopupTest : public test::EditorFixture {
protected:
    [[nodiscard]] bool Tags() const { return PopupShows(popup.cmbTags); }
    [[nodiscard]] bool Attributes() const { return PopupShows(popup.cmbattr); }
    [[nodiscard]] QString Chosen() const {
        const QListWidgetItem* const item = (Tags() ? popup.cmbTags : popup.cmbattr)->currentItem();
        return item ? item->text() : QString();
    }

    TagPopup& popup = *document.picAttr;
};

TEST_F(TagPopupTest, AnOpeningBringsTheTags) {
    Put("|");
    Type("<");
    EXPECT_TRUE(Tags());
    EXPECT_FALSE(Attributes());
    EXPECT_EQ(popup.cmbTags->currentRow(), -1);
    EXPECT_EQ(popup.cmbTags->item(0)->text(), "!--");
    EXPECT_TRUE(Surface().hasFocus());
    Type("ta");
    EXPECT_TRUE(Tags());
    EXPECT_EQ(Chosen(), "table");
    Type("x");
    EXPECT_EQ(popup.cmbTags->currentRow(), -1);
}

TEST_F(TagPopupTest, ABlankBringsTheAttributes) {
    Put("|");
    Type("<a ");
    EXPECT_TRUE(Attributes());
    EXPECT_FALSE(Tags());
    EXPECT_EQ(Entries(popup.cmbattr), (QStringList{"class=", "href=", "hreflang=", "title="}));
    Type("hr");
    EXPECT_EQ(Chosen(), "href=");
    Type("efl");
    EXPECT_EQ(Chosen(), "hreflang=");
    Type("ang=\"");
    EXPECT_FALSE(popup.isVisible());
    Type("x");
    EXPECT_FALSE(popup.isVisible());
    Type("\" ");
    EXPECT_TRUE(Attributes());
    Type(">");
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(TagPopupTest, AnElementWithoutAttributesBringsNothing) {
    Put("|");
    Type("<table ");
    EXPECT_FALSE(popup.isVisible());
    Put("|");
    Type("<unknown ");
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(TagPopupTest, NothingComesWithoutADocumentType) {
    workbench.references.SetBold(1, false);
    Put("|");
    Type("<a ");
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(TagPopupTest, NothingComesWhenTheAuthorWantsNoPopups) {
    Set(keys::popupTag, "0");
    Put("|");
    Type("<a ");
    EXPECT_FALSE(popup.isVisible());
    Put("|");
    Type("&");
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(TagPopupTest, AClickOnATagWritesIt) {
    Put("|");
    Type("<");
    ClickEntry(popup.cmbTags, "table");
    EXPECT_EQ(Shown(), "<table |");
    EXPECT_FALSE(popup.isVisible());
    EXPECT_TRUE(Surface().hasFocus());
    EXPECT_EQ(ColorAt(3), workbench.Options()->OtherColor);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Surface().Text(), "<");
}

TEST_F(TagPopupTest, AClickReplacesTheTypedWord) {
    Put("x |");
    Type("<ta");
    ClickEntry(popup.cmbTags, "tbody");
    EXPECT_EQ(Shown(), "x <tbody |");
}

TEST_F(TagPopupTest, AClosingFormIsWrittenAtOnce) {
    Put("x |");
    Type("<");
    ClickEntry(popup.cmbTags, "/table");
    EXPECT_EQ(Shown(), "x </table>|");
    EXPECT_EQ(ColorAt(4), workbench.Options()->TablesColor);
    EXPECT_EQ(ColorAt(0), 0U);
}

TEST_F(TagPopupTest, AClosingFormTakesThePlaceOfWhatWasTypedOfIt) {
    Put("x |");
    Type("</ta");
    EXPECT_EQ(Chosen(), "/table");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "x </table>|");
}

TEST_F(TagPopupTest, ATypeWithoutElementsOffersTheCommentAlone) {
    workbench.references.Clear();
    workbench.references.SetBold(workbench.references.AddRoot(NodeKind::DocumentType, "Bare"), true);
    Put("|");
    Type("<");
    EXPECT_EQ(Entries(popup.cmbTags), QStringList{"!--"});
    Type("a ");
    EXPECT_FALSE(Attributes());
}

TEST_F(TagPopupTest, ANameIsKnownHoweverFarItsTagGoesOn) {
    Put("<a title=\"" + QString(5000, u'x') + "\"|>");
    Type(" ");
    EXPECT_TRUE(Attributes());
    EXPECT_EQ(Entries(popup.cmbattr), (QStringList{"class=", "href=", "hreflang=", "title="}));
}

TEST_F(TagPopupTest, ACommentIsWrittenWithTheCaretInIt) {
    Put("|");
    Type("<");
    ClickEntry(popup.cmbTags, "!--");
    EXPECT_EQ(Shown(), "<!--  |  -->");
    EXPECT_EQ(ColorAt(0), workbench.Options()->CommentsColor);
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(TagPopupTest, AnEmptyElementIsClosedByItsBracket) {
    Put("|");
    Type("<");
    ClickEntry(popup.cmbTags, "br");
    EXPECT_EQ(Shown(), "<br |");
    Type(">");
    EXPECT_EQ(Shown(), "<br />|");
}

TEST_F(TagPopupTest, AClickOnAnAttributeWritesItWithQuotes) {
    Put("|");
    Type("<a ");
    ClickEntry(popup.cmbattr, "href=");
    EXPECT_EQ(Shown(), "<a href=\"|\"");
    EXPECT_FALSE(document.usingKeys);
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(TagPopupTest, AnAttributeGetsABlankWhereNoneStands) {
    Put("<a|>");
    popup.InsertAttr("href=\"\"");
    EXPECT_EQ(Shown(), "<a href=\"|\">");
    Put("<a |b>");
    popup.InsertAttr("href=\"\"");
    EXPECT_EQ(Shown(), "<a href=\"|\" b>");
    Put("|");
    popup.InsertAttr("href=\"\"");
    EXPECT_EQ(Shown(), "href=\"|\"");
}

TEST_F(TagPopupTest, TheDoctypeIsWrittenWhole) {
    Put("|");
    Type("<");
    EXPECT_EQ(popup.cmbTags->item(1)->text(), "!DOCTYPE html");
    ClickEntry(popup.cmbTags, "!DOCTYPE html");
    EXPECT_EQ(Shown(), "<!DOCTYPE html\n PUBLIC \"-//X//EN\" |");
}

TEST_F(TagPopupTest, TheArrowsMoveTheChoiceAndEnterTakesIt) {
    Put("|");
    Type("<t");
    ASSERT_EQ(Chosen(), "table");
    Press(Qt::Key_Down);
    EXPECT_EQ(Shown(), "<t|");
    EXPECT_EQ(Chosen(), "tbody");
    EXPECT_TRUE(document.usingKeys);
    Press(Qt::Key_Up);
    EXPECT_EQ(Chosen(), "table");
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "<tbody |");
}

TEST_F(TagPopupTest, EnterTakesAnAttributeOnlyForATypedWord) {
    Put("|");
    Type("<a hr");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "<a href=\"|\"");
    Put("|");
    Type("<a ");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "<a \n|");
}

TEST_F(TagPopupTest, EnterTakesTheWordOfAKeyThatIsStillHeld) {
    const auto hold = [this](char key) { QTest::keyPress(&Surface(), key); };
    Put("|");
    Type("<t");
    hold('b');
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "<tbody |");
    Put("|");
    Type("<a h");
    hold('r');
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "<a href=\"|\"");
    Put("|");
    Type("&n");
    hold('b');
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "&nbsp;|");
}

TEST_F(TagPopupTest, AKeyWithoutACodeBringsItToo) {
    Put("|");
    QTest::sendKeyEvent(QTest::Click, &Surface(), static_cast<Qt::Key>(0), "&", Qt::NoModifier);
    EXPECT_TRUE(Attributes());
}

TEST_F(TagPopupTest, EscapeClosesIt) {
    Put("|");
    Type("<a ");
    ASSERT_TRUE(Attributes());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(Shown(), "<a |");
}

TEST_F(TagPopupTest, AnAmpersandBringsTheEntities) {
    Put("a|");
    Type("&");
    EXPECT_TRUE(Attributes());
    EXPECT_EQ(Entries(popup.cmbattr), (QStringList{"&aacute;    x", "&nbsp;      y", "&Nu;        z"}));
    Type("n");
    EXPECT_EQ(Chosen(), "&nbsp;      y");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "a&nbsp;|");
    EXPECT_FALSE(popup.isVisible());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Surface().Text(), "a&n");
}

TEST_F(TagPopupTest, EntitiesAreToldApartByCase) {
    Put("|");
    Type("&N");
    EXPECT_EQ(Chosen(), "&Nu;        z");
    Type("x");
    EXPECT_EQ(popup.cmbattr->currentRow(), -1);
    Type(";");
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(TagPopupTest, AClickOnAnEntityWritesIt) {
    Put("|");
    Type("&");
    ClickEntry(popup.cmbattr, "&aacute;    x");
    EXPECT_EQ(Shown(), "&aacute;|");
}

TEST_F(TagPopupTest, AClickInATagOpensIt) {
    Put("text <a >|");
    const int place = 8;
    QTextCursor cursor = Surface().textCursor();
    cursor.setPosition(place);
    const QPoint point = Surface().cursorRect(cursor).center();
    QTest::mouseClick(Surface().viewport(), Qt::LeftButton, {}, point);
    EXPECT_EQ(Surface().SelStart(), place);
    EXPECT_TRUE(Attributes());
    cursor.setPosition(1);
    QTest::mouseClick(Surface().viewport(), Qt::LeftButton, {}, Surface().cursorRect(cursor).center());
    EXPECT_FALSE(popup.isVisible());
}

TEST_F(TagPopupTest, ItStaysInTheSurfaceAndFlipsNearTheBottom) {
    Put(QString("\n").repeated(200) + "|");
    Surface().moveCursor(QTextCursor::End);
    Type("<");
    ASSERT_TRUE(Tags());
    EXPECT_TRUE(Surface().geometry().contains(popup.geometry()));
    EXPECT_LT(popup.geometry().bottom(), Surface().CaretRect().top());
    Put(QString(300, u'x') + "|");
    Type("<");
    ASSERT_TRUE(Tags());
    EXPECT_TRUE(Surface().geometry().contains(popup.geometry()));
    EXPECT_GT(popup.geometry().top(), Surface().CaretRect().bottom());
}

TEST_F(TagPopupTest, ItFollowsTheCaret) {
    Put("|");
    Type("<");
    const int left = popup.x();
    Type("tab");
    EXPECT_GT(popup.x(), left);
}

TEST_F(TagPopupTest, ItStaysInTheSurfaceWhenTheCaretIsScrolledOut) {
    Put("|" + QString("\n").repeated(200));
    Type("<");
    ASSERT_TRUE(Tags());
    Surface().verticalScrollBar()->setValue(100);
    EXPECT_TRUE(Surface().geometry().contains(popup.geometry()));
}

TEST_F(TagPopupTest, ItFollowsTheCaretWhenTheSurfaceGetsAnotherSize) {
    Surface().SetRightMargin(20000);
    Put(QString("word ").repeated(12) + "|");
    Type("<");
    ASSERT_TRUE(Tags());
    Surface().resize(250, 300);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return Surface().geometry().contains(popup.geometry()) && popup.y() > Surface().CaretRect().bottom(); }));
}

TEST_F(TagPopupTest, ItFollowsTheCaretWhenLinesAreWrapped) {
    Put(QString("word ").repeated(60) + "|");
    Type("<");
    ASSERT_TRUE(Tags());
    const int before = Surface().CaretRect().top();
    Surface().SetRightMargin(12000);
    ASSERT_GT(Surface().CaretRect().top(), before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return popup.y() == Surface().CaretRect().bottom() + 3; }));
}

TEST_F(TagPopupTest, TheTagsAreFilledOnceForADocumentType) {
    Put("|");
    Type("<");
    const QListWidgetItem* const first = popup.cmbTags->item(0);
    Type("b>");
    Type("<");
    EXPECT_EQ(popup.cmbTags->item(0), first);
    workbench.references.SetBold(1, false);
    workbench.references.SetBold(workbench.references.Roots().at(1), true);
    Type("b> <");
    EXPECT_EQ(Entries(popup.cmbTags), (QStringList{"!--", "par", "/par"}));
}

TEST_F(TagPopupTest, HidingForgetsTheAttributes) {
    Put("|");
    Type("<a ");
    popup.HideAttr();
    EXPECT_EQ(popup.cmbattr->count(), 0);
    EXPECT_FALSE(popup.isVisible());
    EXPECT_FALSE(popup.cmbattr->isVisible());
    EXPECT_FALSE(popup.cmbTags->isVisible());
    Type(" ");
    EXPECT_EQ(Entries(popup.cmbattr), (QStringList{"class=", "href=", "hreflang=", "title="}));
}

TEST_F(TagPopupTest, AnInsertionForgetsTheAttributesAndNotTheTags) {
    Put("|");
    Type("<a ");
    workbench.references.AddNoder(FindElement(workbench.references, 1, "a"), NodeKind::Attribute, "zoom");
    workbench.references.AddElement(1, "zone", false);
    Type(" ");
    EXPECT_EQ(popup.cmbattr->count(), 4);
    QString blank(" ");
    workbench.PortableColor(blank);
    Type(" ");
    EXPECT_EQ(Entries(popup.cmbattr).last(), "zoom=");
    const int tags = popup.cmbTags->count();
    Type("><");
    EXPECT_TRUE(Tags());
    EXPECT_EQ(popup.cmbTags->count(), tags);
}

TEST_F(TagPopupTest, ACharacterIsWrittenByItsNameWhateverItIsShownAs) {
    workbench.references.AddCharacter(FindElement(workbench.references, 1, "a"), "equals", "=");
    Put("|");
    Type("&e");
    ClickEntry(popup.cmbattr, "&equals;    =");
    EXPECT_EQ(Shown(), "&equals;|");
}

TEST_F(TagPopupTest, ItWorksOnItsOwnDocumentWhicheverIsTheActiveOne) {
    Put("<a |");
    workbench.active = nullptr;
    popup.ShowAttr(1);
    EXPECT_TRUE(Attributes());
    ClickEntry(popup.cmbattr, "href=");
    EXPECT_EQ(Shown(), "<a href=\"|\"");
    popup.ShowCharacters();
    popup.HideAttr();
    EXPECT_FALSE(popup.isVisible());
}

}  // namespace
}  // namespace vellum
