#include "editor/list_tag.h"
#include "tests/editor/editor_fixture.h"

#include <QScrollBar>

namespace vellum {
namespace {

class PopupTest : public test::EditorFixture {
protected:
    [[nodiscard]] bool Tags() const { return PopupShows(document.cmbTags); }
    [[nodiscard]] bool Attributes() const { return PopupShows(document.cmbattr); }
    [[nodiscard]] QString Chosen() const { return ChosenEntry(Tags() ? *document.cmbTags : *document.cmbattr); }
};

TEST_F(PopupTest, AnOpeningBringsTheTags) {
    Put("|");
    Type("<");
    EXPECT_TRUE(Tags());
    EXPECT_FALSE(Attributes());
    EXPECT_EQ(document.cmbTags->currentRow(), -1);
    EXPECT_EQ(ListTag(document.cmbTags), "XHTML1 Transitional");
    EXPECT_EQ(document.cmbTags->item(0)->text(), "!--");
    EXPECT_TRUE(Surface().hasFocus());
    Type("ta");
    EXPECT_TRUE(Tags());
    EXPECT_EQ(Chosen(), "table");
    Type("x");
    EXPECT_EQ(document.cmbTags->currentRow(), -1);
}

TEST_F(PopupTest, ABlankBringsTheAttributes) {
    Put("|");
    Type("<a ");
    EXPECT_TRUE(Attributes());
    EXPECT_FALSE(Tags());
    EXPECT_EQ(Entries(document.cmbattr), (QStringList{"class=", "href=", "hreflang=", "title="}));
    EXPECT_EQ(ListTag(document.cmbattr), "a");
    Type("hr");
    EXPECT_EQ(Chosen(), "href=");
    Type("efl");
    EXPECT_EQ(Chosen(), "hreflang=");
    Type("ang=\"");
    EXPECT_FALSE(document.picAttr->isVisible());
    Type("x");
    EXPECT_FALSE(document.picAttr->isVisible());
    Type("\" ");
    EXPECT_TRUE(Attributes());
    Type(">");
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(PopupTest, AnElementWithoutAttributesBringsNothing) {
    Put("|");
    Type("<table ");
    EXPECT_FALSE(document.picAttr->isVisible());
    Put("|");
    Type("<unknown ");
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(PopupTest, NothingComesWithoutADocumentType) {
    workbench.references.SetBold(1, false);
    Put("|");
    Type("<a ");
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(PopupTest, NothingComesWhenTheAuthorWantsNoPopups) {
    Set(keys::popupTag, "0");
    Put("|");
    Type("<a ");
    EXPECT_FALSE(document.picAttr->isVisible());
    Put("|");
    Type("&");
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(PopupTest, AClickOnATagWritesIt) {
    Put("|");
    Type("<");
    ClickEntry(document.cmbTags, "table");
    EXPECT_EQ(Shown(), "<table |");
    EXPECT_FALSE(document.picAttr->isVisible());
    EXPECT_TRUE(Surface().hasFocus());
    EXPECT_EQ(ColorAt(3), workbench.Options()->OtherColor);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Surface().Text(), "<");
}

TEST_F(PopupTest, AClickReplacesTheTypedWord) {
    Put("x |");
    Type("<ta");
    ClickEntry(document.cmbTags, "tbody");
    EXPECT_EQ(Shown(), "x <tbody |");
}

TEST_F(PopupTest, AClosingFormIsWrittenAtOnce) {
    Put("x |");
    Type("<");
    ClickEntry(document.cmbTags, "/table");
    EXPECT_EQ(Shown(), "x </table>|");
    EXPECT_EQ(ColorAt(4), workbench.Options()->TablesColor);
    EXPECT_EQ(ColorAt(0), 0U);
}

TEST_F(PopupTest, AClosingFormTakesThePlaceOfWhatWasTypedOfIt) {
    Put("x |");
    Type("</ta");
    EXPECT_EQ(Chosen(), "/table");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "x </table>|");
}

TEST_F(PopupTest, ATypeWithoutElementsOffersTheCommentAlone) {
    workbench.references.Clear();
    workbench.references.SetBold(workbench.references.AddRoot(NodeKind::DocumentType, "Bare"), true);
    Put("|");
    Type("<");
    EXPECT_EQ(Entries(document.cmbTags), QStringList{"!--"});
    Type("a ");
    EXPECT_FALSE(Attributes());
}

TEST_F(PopupTest, ANameIsKnownHoweverFarItsTagGoesOn) {
    Put("<a title=\"" + QString(5000, u'x') + "\"|>");
    Type(" ");
    EXPECT_TRUE(Attributes());
    EXPECT_EQ(ListTag(document.cmbattr), "a");
}

TEST_F(PopupTest, ACommentIsWrittenWithTheCaretInIt) {
    Put("|");
    Type("<");
    ClickEntry(document.cmbTags, "!--");
    EXPECT_EQ(Shown(), "<!--  |  -->");
    EXPECT_EQ(ColorAt(0), workbench.Options()->CommentsColor);
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(PopupTest, AnEmptyElementIsClosedByItsBracket) {
    Put("|");
    Type("<");
    ClickEntry(document.cmbTags, "br");
    EXPECT_EQ(Shown(), "<br |");
    Type(">");
    EXPECT_EQ(Shown(), "<br />|");
}

TEST_F(PopupTest, AClickOnAnAttributeWritesItWithQuotes) {
    Put("|");
    Type("<a ");
    ClickEntry(document.cmbattr, "href=");
    EXPECT_EQ(Shown(), "<a href=\"|\"");
    EXPECT_FALSE(document.usingKeys);
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(PopupTest, AnAttributeGetsABlankWhereNoneStands) {
    Put("<a|>");
    workbench.InsertAttr("href=\"\"");
    EXPECT_EQ(Shown(), "<a href=\"|\">");
    Put("<a |b>");
    workbench.InsertAttr("href=\"\"");
    EXPECT_EQ(Shown(), "<a href=\"|\" b>");
    Put("|");
    workbench.InsertAttr("href=\"\"");
    EXPECT_EQ(Shown(), "href=\"|\"");
}

TEST_F(PopupTest, TheDoctypeIsWrittenWhole) {
    Put("|");
    Type("<");
    EXPECT_EQ(document.cmbTags->item(1)->text(), "!DOCTYPE html");
    document.cmbTags->setCurrentRow(1);
    workbench.TakeTag();
    EXPECT_EQ(Shown(), "<!DOCTYPE html\n PUBLIC \"-//X//EN\" |");
}

TEST_F(PopupTest, TheArrowsMoveTheChoiceAndEnterTakesIt) {
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

TEST_F(PopupTest, EnterTakesAnAttributeOnlyForATypedWord) {
    Put("|");
    Type("<a hr");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "<a href=\"|\"");
    Put("|");
    Type("<a ");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "<a \n|");
}

TEST_F(PopupTest, EnterTakesTheWordOfAKeyThatIsStillHeld) {
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

TEST_F(PopupTest, AKeyWithoutACodeBringsItToo) {
    Put("|");
    QTest::sendKeyEvent(QTest::Click, &Surface(), static_cast<Qt::Key>(0), "&", Qt::NoModifier);
    EXPECT_TRUE(Attributes());
}

TEST_F(PopupTest, EscapeClosesIt) {
    Put("|");
    Type("<a ");
    ASSERT_TRUE(Attributes());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(document.picAttr->isVisible());
    EXPECT_EQ(Shown(), "<a |");
}

TEST_F(PopupTest, AnAmpersandBringsTheEntities) {
    Put("a|");
    Type("&");
    EXPECT_TRUE(Attributes());
    EXPECT_EQ(ListTag(document.cmbattr), "Character Sets");
    EXPECT_EQ(Entries(document.cmbattr), (QStringList{"&aacute;    x", "&nbsp;      y", "&Nu;        z"}));
    Type("n");
    EXPECT_EQ(Chosen(), "&nbsp;      y");
    EXPECT_EQ(document.strAtt, "&n");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "a&nbsp;|");
    EXPECT_FALSE(document.picAttr->isVisible());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Surface().Text(), "a&n");
}

TEST_F(PopupTest, EntitiesAreToldApartByCase) {
    Put("|");
    Type("&N");
    EXPECT_EQ(Chosen(), "&Nu;        z");
    Type("x");
    EXPECT_EQ(document.cmbattr->currentRow(), -1);
    Type(";");
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(PopupTest, AClickOnAnEntityWritesIt) {
    Put("|");
    Type("&");
    ClickEntry(document.cmbattr, "&aacute;    x");
    EXPECT_EQ(Shown(), "&aacute;|");
}

TEST_F(PopupTest, AClickInATagOpensIt) {
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
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(PopupTest, ItStaysInTheSurfaceAndFlipsNearTheBottom) {
    Put(QString("\n").repeated(200) + "|");
    Surface().moveCursor(QTextCursor::End);
    Type("<");
    ASSERT_TRUE(Tags());
    EXPECT_TRUE(Surface().geometry().contains(document.picAttr->geometry()));
    EXPECT_LT(document.picAttr->geometry().bottom(), Surface().CaretRect().top());
    Put(QString(300, u'x') + "|");
    Type("<");
    ASSERT_TRUE(Tags());
    EXPECT_TRUE(Surface().geometry().contains(document.picAttr->geometry()));
    EXPECT_GT(document.picAttr->geometry().top(), Surface().CaretRect().bottom());
}

TEST_F(PopupTest, ItFollowsTheCaret) {
    Put("|");
    Type("<");
    const int left = document.picAttr->x();
    Type("tab");
    EXPECT_GT(document.picAttr->x(), left);
}

TEST_F(PopupTest, ItStaysInTheSurfaceWhenTheCaretIsScrolledOut) {
    Put("|" + QString("\n").repeated(200));
    Type("<");
    ASSERT_TRUE(Tags());
    Surface().verticalScrollBar()->setValue(100);
    EXPECT_TRUE(Surface().geometry().contains(document.picAttr->geometry()));
}

TEST_F(PopupTest, ItFollowsTheCaretWhenTheSurfaceGetsAnotherSize) {
    Surface().SetRightMargin(20000);
    Put(QString("word ").repeated(12) + "|");
    Type("<");
    ASSERT_TRUE(Tags());
    Surface().resize(250, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Surface().geometry().contains(document.picAttr->geometry()) &&
               document.picAttr->y() > Surface().CaretRect().bottom();
    }));
}

TEST_F(PopupTest, ItFollowsTheCaretWhenLinesAreWrapped) {
    Put(QString("word ").repeated(60) + "|");
    Type("<");
    ASSERT_TRUE(Tags());
    const int before = Surface().CaretRect().top();
    Surface().SetRightMargin(12000);
    ASSERT_GT(Surface().CaretRect().top(), before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return document.picAttr->y() == Surface().CaretRect().bottom() + 3; }));
}

TEST_F(PopupTest, TheTagsAreFilledOnceForADocumentType) {
    Put("|");
    Type("<");
    const QListWidgetItem* const first = document.cmbTags->item(0);
    Type("b>");
    Type("<");
    EXPECT_EQ(document.cmbTags->item(0), first);
    workbench.references.SetBold(1, false);
    workbench.references.SetBold(workbench.references.Roots().at(1), true);
    Type("b> <");
    EXPECT_EQ(Entries(document.cmbTags), (QStringList{"!--", "par", "/par"}));
}

TEST_F(PopupTest, HidingForgetsTheAttributes) {
    Put("|");
    Type("<a ");
    workbench.HideAttr();
    EXPECT_EQ(document.cmbattr->count(), 0);
    EXPECT_EQ(ListTag(document.cmbattr), "");
    EXPECT_FALSE(document.picAttr->isVisible());
    EXPECT_FALSE(document.cmbattr->isVisible());
    EXPECT_FALSE(document.cmbTags->isVisible());
}

}  // namespace
}  // namespace vellum
