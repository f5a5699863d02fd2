#include "surface/edit_surface.h"
#include "tests/support/heap.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>
#include <random>

namespace vellum {
namespace {

constexpr ColorNumber red = 0x0000FF;
constexpr CharFormat redBold{red, true};

struct FullCopy {
    QString text;
    CharFormat base;
    std::vector<std::vector<FormatRun>> runs;
    std::vector<OtherLineEnd> otherLineEnds;

    explicit FullCopy(const EditSurface& surface)
        : text(surface.Text()), base(surface.Formats().Base()), otherLineEnds(surface.OtherLineEnds(LineEnd::CrLf)) {
        for (int line = 0; line < surface.Formats().LineCount(); ++line) {
            const auto list = surface.Formats().Runs(line);
            runs.emplace_back(list.begin(), list.end());
        }
    }
    bool operator==(const FullCopy&) const = default;
};

class SurfaceSnapshotTest : public testing::Test {
protected:
    SurfaceSnapshotTest() {
        surface.resize(500, 300);
        surface.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&surface));
        surface.setFocus();
    }

    // The pixels of the view, drawn anew.
    QImage Drawn() { return surface.viewport()->grab().toImage(); }

    EditSurface surface;
};

QString NumberedLines(int count) {
    QString text;
    for (int line = 0; line < count; ++line) text += QString("line %1\r\n").arg(line);
    return text;
}

TEST_F(SurfaceSnapshotTest, BringsBackTextAndFormats) {
    surface.SetText("one\r\ntwo\r\nthree");
    surface.SetFormat({1, 6}, {red, true});
    const FullCopy before(surface);
    const QImage picture = Drawn();
    const auto snapshot = surface.TakeSnapshot();
    surface.SetSelStart(3);
    QTest::keyClicks(&surface, "abc\r");
    QTest::keyClick(&surface, Qt::Key_Delete);
    surface.SetAllFormats({0x00FF00, true}, {});
    ASSERT_FALSE(FullCopy(surface) == before);
    ASSERT_TRUE(surface.Restore(snapshot));
    EXPECT_EQ(surface.Text(), "one\r\ntwo\r\nthree");
    EXPECT_TRUE(FullCopy(surface) == before);
    surface.SetSelStart(0);
    EXPECT_TRUE(Drawn() == picture);
}

TEST_F(SurfaceSnapshotTest, RestoringIsOneChange) {
    surface.SetText("one\r\ntwo");
    const auto snapshot = surface.TakeSnapshot();
    surface.SetSelText("x");
    surface.SetSelStart(6);
    surface.SetSelText("y");
    surface.SetSelStart(3);
    surface.SetSelLength(2);
    surface.SetSelColor(red);
    const quint64 revision = surface.Revision();
    const QSignalSpy changed(&surface, &EditSurface::Changed);
    ASSERT_TRUE(surface.Restore(snapshot));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_GT(surface.Revision(), revision);
    EXPECT_EQ(surface.SelLength(), 0);
    ASSERT_TRUE(surface.Restore(snapshot));  // also when there is nothing to do
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(SurfaceSnapshotTest, DropsTheInsertionFormat) {
    surface.SetText("one");
    const auto snapshot = surface.TakeSnapshot();
    surface.SetSelStart(1);
    surface.SetSelColor(red);
    ASSERT_EQ(surface.SelColor(), red);
    ASSERT_TRUE(surface.Restore(snapshot));
    EXPECT_EQ(surface.SelColor(), surface.ForeColor());
}

TEST_F(SurfaceSnapshotTest, SurvivesANewText) {
    surface.SetText("one\r\ntwo");
    surface.SetFormat({0, 4}, {red, true});
    const FullCopy before(surface);
    const auto snapshot = surface.TakeSnapshot();
    surface.SetText("on" + QString(QChar(0xFFFD)) + "\r\n\r\no");
    const FullCopy after(surface);
    const auto later = surface.TakeSnapshot();
    ASSERT_TRUE(surface.Restore(snapshot));
    EXPECT_TRUE(FullCopy(surface) == before);
    ASSERT_TRUE(surface.Restore(later));
    EXPECT_TRUE(FullCopy(surface) == after);
    surface.SetText({});
    ASSERT_TRUE(surface.Restore(snapshot));
    EXPECT_TRUE(FullCopy(surface) == before);
}

TEST_F(SurfaceSnapshotTest, RefusesSnapshotsOfOthers) {
    EditSurface other;
    other.SetText("two");
    surface.SetText("one");
    const QSignalSpy changed(&surface, &EditSurface::Changed);
    EXPECT_FALSE(surface.Restore(other.TakeSnapshot()));
    EXPECT_FALSE(surface.Restore({}));
    EXPECT_EQ(surface.Text(), "one");
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(SurfaceSnapshotTest, OutlivesItsSurface) {
    auto gone = std::make_unique<EditSurface>();
    gone->SetText("one");
    const auto snapshot = gone->TakeSnapshot();
    gone->SetSelText("x");
    gone.reset();
    EXPECT_FALSE(surface.Restore(snapshot));
}

TEST_F(SurfaceSnapshotTest, FollowsWhatOtherCodeInserts) {
    surface.SetText("one\r\ntwo");
    const auto snapshot = surface.TakeSnapshot();
    QTextCursor cursor(surface.document());
    cursor.setPosition(2);
    cursor.insertText("x\ny");
    ASSERT_EQ(surface.Text(), "onx\r\nye\r\ntwo");
    ASSERT_TRUE(surface.Restore(snapshot));
    EXPECT_EQ(surface.Text(), "one\r\ntwo");
    surface.SetText({});
    const auto empty = surface.TakeSnapshot();
    QTextCursor(surface.document()).insertText("abc");
    ASSERT_TRUE(surface.Restore(empty));
    EXPECT_EQ(surface.Text(), "");
}

TEST_F(SurfaceSnapshotTest, GivesUpWhatOtherCodeMadeUnknown) {
    surface.SetText("one\r\ntwo");
    const auto snapshot = surface.TakeSnapshot();
    QTextCursor cursor(surface.document());
    cursor.setPosition(2);
    cursor.deleteChar();
    EXPECT_FALSE(surface.Restore(snapshot));
    EXPECT_EQ(surface.Text(), "on\r\ntwo");
    const auto fresh = surface.TakeSnapshot();
    surface.SetSelText("x");
    ASSERT_TRUE(surface.Restore(fresh));
    EXPECT_EQ(surface.Text(), "on\r\ntwo");
}

TEST_F(SurfaceSnapshotTest, ComesBackAfterTextWasDraggedAway) {
    surface.SetText("one\r\ntwo\r\nthree");
    surface.SetFormat({1, 6}, {red, true});
    const FullCopy before(surface);
    const auto snapshot = surface.TakeSnapshot();
    surface.SetSelStart(2);
    surface.SetSelLength(5);
    surface.copy();  // a drag hands the text out the same way
    surface.textCursor().removeSelectedText();
    ASSERT_EQ(surface.Text(), "ono\r\nthree");
    EXPECT_TRUE(surface.Restore(snapshot));
    EXPECT_EQ(FullCopy(surface), before);
}

TEST_F(SurfaceSnapshotTest, ComesBackAfterAnyKey) {
    const QString text = "one two\r\nthree four\r\nfive";
    std::vector<int> keys;
    for (int key = Qt::Key_Space; key <= Qt::Key_AsciiTilde; ++key) keys.push_back(key);
    for (int key = Qt::Key_Escape; key <= Qt::Key_F35; ++key) keys.push_back(key);
    for (int key = Qt::Key_Cut; key <= Qt::Key_Paste; ++key) keys.push_back(key);
    for (const Qt::Key key : {Qt::Key_Copy, Qt::Key_Undo, Qt::Key_Redo, Qt::Key_Clear, Qt::Key_Delete, Qt::Key_Find}) {
        keys.push_back(key);
    }
    for (int modifiers = 0; modifiers < 64; ++modifiers) {
        const auto held = Qt::KeyboardModifiers::fromInt(modifiers << 25);  // from Shift to the switch of groups
        for (const int key : keys) {
            surface.SetText(text);
            surface.SetSelStart(12);
            if (key % 2 == 1) surface.SetSelLength(3);
            const auto snapshot = surface.TakeSnapshot();
            QKeyEvent press(QEvent::KeyPress, key, held, key <= Qt::Key_AsciiTilde ? QString(QChar(key)) : QString());
            QApplication::sendEvent(&surface, &press);
            EXPECT_TRUE(surface.Restore(snapshot)) << std::hex << key << ' ' << held.toInt();
            EXPECT_EQ(surface.Text(), text) << std::hex << key << ' ' << held.toInt();
        }
    }
}

TEST_F(SurfaceSnapshotTest, ComposingIsNoChange) {
    surface.SetText("one");
    const auto snapshot = surface.TakeSnapshot();
    QInputMethodEvent compose("ka", {});
    QApplication::sendEvent(&surface, &compose);
    QInputMethodEvent commit;
    commit.setCommitString("k");
    QApplication::sendEvent(&surface, &commit);
    ASSERT_EQ(surface.Text(), "kone");
    ASSERT_TRUE(surface.Restore(snapshot));
    EXPECT_EQ(surface.Text(), "one");
}

TEST_F(SurfaceSnapshotTest, OverlongLinesComeBackInTheirColors) {
    surface.SetText("a" + QString(20000, 'x') + "b");
    surface.SetFormat({0, 1}, {red, true});
    const QImage picture = Drawn();
    const auto snapshot = surface.TakeSnapshot();
    surface.SetSelText("12");
    surface.SetAllFormats({}, {});
    ASSERT_FALSE(Drawn() == picture);
    ASSERT_TRUE(surface.Restore(snapshot));
    surface.SetSelStart(0);
    EXPECT_TRUE(Drawn() == picture);
}

TEST_F(SurfaceSnapshotTest, StepsCostWhatWasEdited) {
    surface.SetText(NumberedLines(100000));
    std::vector<FormatRun> runs;
    for (int offset = 0; offset + 4 < surface.Length(); offset += 20) runs.push_back({{offset, 4}, redBold});
    surface.SetAllFormats({}, runs);
    std::vector<EditSurface::Snapshot> snapshots;
    for (int step = 0; step < 62; ++step) {
        snapshots.push_back(surface.TakeSnapshot());
        surface.SetSelStart(surface.Length() / 63 * step);
        QTest::keyClicks(&surface, "some words");
    }
    ASSERT_TRUE(surface.Restore(snapshots[31]));
    ASSERT_TRUE(surface.Restore(snapshots.front()));
    EXPECT_EQ(surface.Text(), NumberedLines(100000));
    const std::size_t bytes = test::HeapBytes();
    snapshots.clear();
    EXPECT_LT((bytes - test::HeapBytes()) * 20, static_cast<std::size_t>(surface.Length()));
}

TEST_F(SurfaceSnapshotTest, PlacesTheCaretsLine) {
    surface.SetText(NumberedLines(200));
    const auto topLine = [&] { return surface.cursorForPosition({5, 5}).blockNumber(); };
    surface.SetSelStart(surface.Text().indexOf("line 100"));
    surface.PlaceCaretLine(4);
    EXPECT_EQ(topLine(), 96);
    surface.PlaceCaretLine(0);
    EXPECT_EQ(topLine(), 100);
    surface.SetSelStart(surface.Text().indexOf("line 3\r"));
    surface.PlaceCaretLine(4);
    EXPECT_EQ(topLine(), 0);
    surface.SetSelStart(surface.Length());
    surface.PlaceCaretLine(4);
    EXPECT_EQ(surface.verticalScrollBar()->value(), surface.verticalScrollBar()->maximum());
    surface.SetSelStart(surface.Text().indexOf("line 100"));
    surface.PlaceCaretLine(1000);
    EXPECT_LE(surface.cursorRect().bottom(), surface.viewport()->height());
    EXPECT_EQ(surface.SelStart(), surface.Text().indexOf("line 100"));
}

TEST_F(SurfaceSnapshotTest, PlacesTheCaretsLineAmongWrappedOnes) {
    surface.SetRightMargin(3000);  // 200 pixels
    QString text;
    for (int line = 0; line < 300; ++line) text += QString("word%1 ").arg(line).repeated(12) + "\r\n";
    surface.SetText(text);
    surface.SetAllFormats({red, true}, {});
    for (const char* const word : {"word150 ", "word20 ", "word290 "}) {
        // The third of several lines of its paragraph, or so: somewhere in the middle.
        surface.SetSelStart(static_cast<int>(surface.Text().indexOf(word)) + 40);
        surface.PlaceCaretLine(4);
        const int height = surface.fontMetrics().lineSpacing();
        const int above = surface.cursorRect().top() / height;
        EXPECT_EQ(above, 4) << word;
        Drawn();
        EXPECT_EQ(surface.cursorRect().top() / height, 4) << word;
    }
    surface.SetSelStart(40);
    surface.PlaceCaretLine(4);
    EXPECT_EQ(surface.verticalScrollBar()->value(), 0);
}

class RandomSnapshots : public testing::TestWithParam<int> {};

TEST_P(RandomSnapshots, EveryOneComesBack) {
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    const auto below = [&](qsizetype limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const QString special = QString("\r\n\t ab\r\n") + QChar(0) + QChar(0xA0) + QChar(0x2028) + QChar(0x2029) +
                            QChar(0xFDD0) + QChar(0xFDD1) + QChar(0xFFFC) + QChar(0xFFFD) + QChar(0xFFFE) +
                            QChar(0xD83D) + QChar(0xDE00) + QChar(0xFEFF);
    const auto anyText = [&](int limit) {
        QString text;
        for (int length = below(limit); length > 0; --length) {
            text += random() % 2 == 0 ? QChar('a' + below(26)) : special.at(below(special.size()));
        }
        return text;
    };
    const auto anyLook = [&] {
        return std::array{CharFormat{}, redBold, CharFormat{0x00FF00, false}}.at(random() % 3);
    };
    EditSurface surface;
    surface.resize(300, 200);
    surface.show();
    surface.SetText(GetParam() % 2 == 0 ? NumberedLines(400) : anyText(50));
    std::vector<std::pair<EditSurface::Snapshot, FullCopy>> kept;
    const std::array keys{Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Left, Qt::Key_Up, Qt::Key_Tab};
    for (int step = 0; step < 200; ++step) {
        const int offset = below(surface.Length() + 1);
        const int kind = below(24);
        if (kind < 5) {
            surface.SetSelStart(offset);
            QTest::keyClicks(&surface, "typed");
        } else if (kind < 9) {
            for (int count = below(6); count >= 0; --count) QTest::keyClick(&surface, keys.at(random() % keys.size()));
        } else if (kind < 12) {
            surface.SetSelStart(offset);
            surface.SetSelLength(below(kind == 9 ? 1000 : 30));
            surface.SetSelText(anyText(60));
        } else if (kind < 14) {
            const CharFormat look = anyLook();
            surface.SetFormat({offset, below(100)}, {look.color, look.bold});
        } else if (kind == 14) {
            surface.SetSelColor(red);
        } else if (kind == 15) {
            const std::array run{FormatRun{{offset, below(100)}, anyLook()}};
            surface.SetAllFormats(anyLook(), run);
        } else if (kind == 16) {
            surface.SetText(below(2) == 0 ? anyText(2000) : surface.Text().toUpper());
            surface.SetUsualLineEnd(std::array{LineEnd::CrLf, LineEnd::Lf, LineEnd::Cr}.at(random() % 3));
        } else if (kind < 20) {
            kept.emplace_back(surface.TakeSnapshot(), FullCopy(surface));
            if (kept.size() > 35) kept.erase(kept.begin() + below(35));
        } else if (kind < 23 && !kept.empty()) {
            const auto& [snapshot, copy] = kept.at(random() % kept.size());
            ASSERT_TRUE(surface.Restore(snapshot));
            ASSERT_TRUE(FullCopy(surface) == copy) << "step " << step;
        } else {
            surface.viewport()->repaint();
        }
    }
    while (!kept.empty()) {
        const auto chosen = kept.begin() + below(static_cast<qsizetype>(kept.size()));
        ASSERT_TRUE(surface.Restore(chosen->first));
        ASSERT_EQ(surface.Text(), chosen->second.text);
        ASSERT_TRUE(FullCopy(surface) == chosen->second);
        kept.erase(chosen);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSnapshots, testing::Range(0, 20));

}  // namespace
}  // namespace vellum
