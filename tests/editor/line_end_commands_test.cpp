// What rewrites lines leaves their ends as they were.
#include "editor/text_commands.h"
#include "files/line_ends.h"
#include "tests/editor/editor_fixture.h"

namespace vellum::test {
namespace {

class LineEndCommands : public EditorFixture {
protected:
    // Selects what stands between two bars.
    void Load(const QString& marked) {
        QString text = marked;
        const std::vector<OtherLineEnd> others = UnifyLineEnds(text, LineEnd::CrLf);
        const auto first = text.indexOf(u'|');
        const auto second = text.remove(first, 1).indexOf(u'|');
        Surface().LoadText(text.remove(u'|'), LineEnd::CrLf, others);
        QTextCursor cursor = Surface().textCursor();
        cursor.setPosition(static_cast<int>(first));
        if (second >= 0) cursor.setPosition(static_cast<int>(second), QTextCursor::KeepAnchor);
        Surface().setTextCursor(cursor);
    }
    [[nodiscard]] QString Spelled() {
        const auto others = Surface().OtherLineEnds(LineEnd::CrLf);
        return SpellLineEnds(Surface().RawText(), LineEnd::CrLf, others);
    }
};

TEST_F(LineEndCommands, IndentingKeepsThem) {
    Load("|one\ntwo\rthree|\r\nfour");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Spelled(), "\tone\n\ttwo\r\tthree\r\nfour");
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(Spelled(), "one\ntwo\rthree\r\nfour");
}

TEST_F(LineEndCommands, CompletingATagKeepsThem) {
    Load("a\n<A HREF=\"x\"\nTITLE=\"y\"\rCLASS=\"z\"|\r\nb");
    Type(">");
    EXPECT_EQ(Spelled(), "a\n<a href=\"x\"\ntitle=\"y\"\rclass=\"z\">\r\nb");
}

TEST_F(LineEndCommands, TagsAroundASelectionKeepThem) {
    Load("a\n|one\ntwo\r\tthree\n|b");
    workbench.Addstuff("<ul>\r\n", "\r\n</ul>");
    EXPECT_EQ(Spelled(), "a\n<ul>\r\none\ntwo\r\tthree\n\r\n</ul>b");
    UndoText(workbench);
    EXPECT_EQ(Spelled(), "a\none\ntwo\r\tthree\nb");
}

TEST_F(LineEndCommands, APasteOverASelectionBringsItsOwn) {
    Load("a|\n|b\rc");
    QString pasted = "x\ny\nz";
    workbench.PortableColor(pasted);
    EXPECT_EQ(Spelled(), "ax\r\ny\r\nzb\rc");
}

TEST_F(LineEndCommands, AnotherLetterCaseKeepsThem) {
    Load("|<P>\n<B>\r</B>\r\n</P>\n");
    LowerCaseMarkup(workbench);
    EXPECT_EQ(Spelled(), "<p>\n<b>\r</b>\r\n</p>\n");
    UpperCaseMarkup(workbench);
    EXPECT_EQ(Spelled(), "<P>\n<B>\r</B>\r\n</P>\n");
    UndoText(workbench);
    UndoText(workbench);
    EXPECT_EQ(Spelled(), "<P>\n<B>\r</B>\r\n</P>\n");
}

}  // namespace
}  // namespace vellum::test
