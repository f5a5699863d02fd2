// What the surface tells about each change, piece by piece, has to lead from any text to the next.
#include "tests/surface/surface_fixture.h"

#include <QTextCursor>

#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <tuple>
#include <vector>

namespace vellum {
namespace {

// Keeps a text of its own up to date by nothing but what it is told.
class SurfaceReplacedTest : public test::SurfaceFixture {
protected:
    SurfaceReplacedTest() {
        QObject::connect(&surface, &EditSurface::Replaced, &surface, [this](int position, int removed, auto& text) {
            EXPECT_LE(position + removed, mirror.size());
            mirror.replace(position, removed, text);
            EXPECT_EQ(mirror.size(), surface.RawLength());
            pieces.emplace_back(position, removed, text);
        });
        QObject::connect(&surface, &EditSurface::Changed, &surface,
                         [this] { EXPECT_TRUE(mirror == surface.RawText()) << "told as a whole after its pieces"; });
    }

    QString mirror;
    std::vector<std::tuple<int, int, QString>> pieces;
};

using Piece = std::tuple<int, int, QString>;

TEST_F(SurfaceReplacedTest, TellsEveryPiece) {
    surface.SetText("one\r\ntwo");
    surface.SetSelStart(3);
    QTest::keyClicks(&surface, "x\r");
    QTest::keyClick(&surface, Qt::Key_Backspace);
    surface.SetSelLength(6);
    surface.SetSelText("\r\n");
    EXPECT_EQ(pieces, (std::vector<Piece>{{0, 0, "one\ntwo"}, {3, 0, "x"}, {4, 0, "\n"}, {4, 1, ""}, {4, 4, "\n"}}));
}

TEST_F(SurfaceReplacedTest, TellsWhatTheToolkitDoesByItself) {
    surface.SetText("one two\r\nthree");
    surface.SetSelStart(3);
    surface.SetSelLength(6);
    surface.textCursor().removeSelectedText();
    QTextCursor cursor(surface.document());
    cursor.beginEditBlock();
    cursor.insertText("a\nb");
    cursor.movePosition(QTextCursor::End);
    cursor.insertText("z");
    cursor.endEditBlock();
    EXPECT_EQ(mirror, "a\nbonethreez");
    EXPECT_TRUE(mirror == surface.RawText());
}

TEST_F(SurfaceReplacedTest, TellsNothingOfWhatIsBeingComposed) {
    surface.SetText("ab");
    surface.SetSelStart(1);
    pieces.clear();
    Commit({}, u"\u3042"_qs);
    EXPECT_TRUE(pieces.empty());
    Commit(u"\u4E9C"_qs);
    EXPECT_EQ(pieces, (std::vector<Piece>{{1, 0, u"\u4E9C"_qs}}));
}

TEST_F(SurfaceReplacedTest, TellsCharactersThatTheToolkitTakesForBlockEnds) {
    surface.SetText(u"a\u2029b\rc"_qs);
    EXPECT_EQ(mirror, u"a\u2029b\nc"_qs);
    EXPECT_TRUE(mirror == surface.RawText());
    surface.SetSelStart(1);
    surface.SetSelText(u"\uFDD0\r\n"_qs);
    EXPECT_EQ(mirror, u"a\uFDD0\n\u2029b\nc"_qs);
}

// Any mixture of what an author and the commands do, with steps back and forth among it.
TEST_F(SurfaceReplacedTest, LeadsThroughRandomChanges) {
    std::mt19937 random(20);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const QStringList texts{"", "x", "<p>\r\n</p>", "\r\n\r\n", u"\u2029\uFDD1"_qs, QString(300, u'w'), "a\rb\nc"};
    const auto text = [&] { return texts.at(below(static_cast<int>(texts.size()))); };
    std::vector<EditSurface::Snapshot> snapshots;
    const std::vector<std::function<void()>> changes{
        [&] { QTest::keyClicks(&surface, "word "); },
        [&] { QTest::keyClick(&surface, Qt::Key_Return); },
        [&] { QTest::keyClick(&surface, Qt::Key_Backspace, below(2) == 0 ? Qt::NoModifier : Qt::ControlModifier); },
        [&] { QTest::keyClick(&surface, Qt::Key_Delete); },
        [&] { surface.SetSelText(text()); },
        [&] { surface.textCursor().insertText("by the toolkit\n"); },
        [&] { Commit(u"\u4E9C"_qs, below(2) == 0 ? QString() : u"\u3042"_qs); },
        [&] { snapshots.push_back(surface.TakeSnapshot()); },
        [&] {
            if (!snapshots.empty()) surface.Restore(snapshots[static_cast<size_t>(below(int(snapshots.size())))]);
        },
        [&] {
            if (below(10) == 0) surface.SetText(text() + "\r\n" + text());
        },
    };
    for (int round = 0; round < 3000; ++round) {
        surface.SetSelStart(below(surface.Length() + 1));
        if (below(3) == 0) surface.SetSelLength(below(12));
        changes[static_cast<size_t>(below(static_cast<int>(changes.size())))]();
        ASSERT_TRUE(mirror == surface.RawText()) << round;
    }
}

}  // namespace
}  // namespace vellum
