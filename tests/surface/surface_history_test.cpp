#include "surface/surface_history.h"

#include "tests/support/heap.h"

#include <gtest/gtest.h>
#include <random>
#include <ranges>

namespace vellum {
namespace {

constexpr ColorNumber red = 0x0000FF;
constexpr CharFormat plain{};
constexpr CharFormat redBold{red, true};

// Everything that a version is made of, sharing nothing with it.
struct FullCopy {
    QString text;
    CharFormat base;
    std::vector<int> lengths;
    std::vector<std::vector<FormatRun>> runs;
    std::vector<OtherLineEnd> otherLineEnds;

    bool operator==(const FullCopy&) const = default;
};

std::vector<int> LengthsOf(const QString& text) {
    std::vector<int> lengths;
    for (const QString& line : text.split('\n')) lengths.push_back(static_cast<int>(line.size()));
    return lengths;
}

// A text with formats and a history, without a surface.
class FormattedText {
public:
    explicit FormattedText(const QString& text = {}) : text_(text) { Reset(text); }

    void Replace(int position, int length, const QString& with, const CharFormat& format) {
        if (history.Records()) history.Record(position, text_.mid(position, length), static_cast<int>(with.size()));
        // Line ends of all kinds, one after the other.
        const auto end = static_cast<LineEnd>(static_cast<int>(LineEnd::CrLf) + replaced_++ % 3);
        formats.Replace(PlaceOf(position), PlaceOf(position + length), LengthsOf(with), format, end);
        text_.replace(position, length, with);
    }
    void Fill(const QString& text) {
        if (history.Records()) history.RecordAll(text_, text);
        text_ = text;
        Reset(text);
    }
    SurfaceHistory::Snapshot Take() { return history.Take(formats); }
    bool Restore(const SurfaceHistory::Snapshot& snapshot) {
        return history.Restore(snapshot, formats, [this](int position, int length, const QString& text) {
            EXPECT_LE(position + length, text_.size());
            QString before = text_.mid(position, length);
            text_.replace(position, length, text);
            ++replacements;
            return before;
        });
    }
    [[nodiscard]] TextPlace PlaceOf(int position) const {
        const QString before = text_.left(position);
        const auto lineStart = before.lastIndexOf('\n') + 1;
        return {static_cast<int>(before.count('\n')), static_cast<int>(before.size() - lineStart)};
    }
    [[nodiscard]] FullCopy Copy() const {
        FullCopy copy{text_, formats.Base(), {}, {}, formats.OtherLineEnds(LineEnd::CrLf)};
        for (int line = 0; line < formats.LineCount(); ++line) {
            const auto list = formats.Runs(line);
            copy.lengths.push_back(formats.LineLength(line));
            copy.runs.emplace_back(list.begin(), list.end());
        }
        return copy;
    }
    [[nodiscard]] const QString& Text() const { return text_; }

    FormatStore formats;
    SurfaceHistory history;
    int replacements = 0;

private:
    void Reset(const QString& text) { formats.Reset(LengthsOf(text), LineEnd::CrLf, {}); }

    QString text_;
    int replaced_ = 0;
};

QString ManyLines(int count) {
    QString text;
    for (int line = 0; line < count; ++line) text += QString("line %1 of the text\n").arg(line);
    return text;
}

TEST(SurfaceHistory, BringsBackTextAndFormats) {
    FormattedText text("one\ntwo");
    text.formats.SetFormat({0, 0}, {0, 3}, {.color = red, .bold = {}});
    const FullCopy before = text.Copy();
    const auto snapshot = text.Take();
    text.Replace(2, 3, "X\nY\n", redBold);
    text.formats.SetAll(redBold, {});
    const FullCopy after = text.Copy();
    const auto later = text.Take();
    ASSERT_TRUE(text.Restore(snapshot));
    EXPECT_EQ(text.Copy(), before);
    ASSERT_TRUE(text.Restore(later));
    EXPECT_EQ(text.Copy(), after);
}

TEST(SurfaceHistory, TakesTheSameVersionWhileNothingChanges) {
    FormattedText text("one");
    const auto first = text.Take();
    EXPECT_EQ(text.Take(), first);
    text.formats.SetFormat({0, 0}, {0, 1}, {.color = red, .bold = {}});
    const auto colored = text.Take();
    EXPECT_NE(colored, first);
    text.Replace(0, 0, "x", plain);
    const auto typed = text.Take();
    EXPECT_NE(typed, colored);
    ASSERT_TRUE(text.Restore(colored));
    EXPECT_EQ(text.Take(), colored);
    ASSERT_TRUE(text.Restore(first));
    EXPECT_EQ(text.formats.FormatAt({0, 0}), plain);
}

TEST(SurfaceHistory, RefusesWhatIsNotItsOwn) {
    FormattedText text("one");
    FormattedText other("two");
    EXPECT_FALSE(text.Restore({}));
    EXPECT_FALSE(text.Restore(other.Take()));
    EXPECT_EQ(text.Text(), "one");
}

TEST(SurfaceHistory, ForgetsWhatCannotComeBack) {
    FormattedText text("one");
    const auto snapshot = text.Take();
    text.history.Forget();
    EXPECT_FALSE(text.Restore(snapshot));
    const auto fresh = text.Take();
    text.Replace(0, 1, "O", plain);
    EXPECT_FALSE(text.Restore(snapshot));
    EXPECT_EQ(text.Text(), "One");
    EXPECT_TRUE(text.Restore(fresh));
    EXPECT_EQ(text.Text(), "one");
}

TEST(SurfaceHistory, KeepsATypingRunAsOneChange) {
    FormattedText text(ManyLines(10));
    const auto snapshot = text.Take();
    for (int index = 0; index < 100; ++index) text.Replace(50 + index, 0, "x", plain);
    for (int index = 0; index < 110; ++index) text.Replace(149 - index, 1, {}, plain);  // Backspace, past the start
    for (int index = 0; index < 5; ++index) text.Replace(40, 1, {}, plain);             // Delete
    ASSERT_TRUE(text.Restore(snapshot));
    EXPECT_EQ(text.Text(), ManyLines(10));
    EXPECT_EQ(text.replacements, 1);
}

TEST(SurfaceHistory, KeepsOfAWholeTextWhatDiffers) {
    const QString long_ = ManyLines(20000);
    FormattedText text(long_);
    const auto snapshot = text.Take();
    QString changed = long_;
    changed.replace(5000, 1, "!");
    const std::size_t bytes = test::HeapBytes();
    text.Fill(changed);
    const auto later = text.Take();
    EXPECT_LT(test::HeapBytes(), bytes + 40000);  // the lengths of all lines alone would take 80000
    ASSERT_TRUE(text.Restore(snapshot));
    EXPECT_EQ(text.Text(), long_);
    ASSERT_TRUE(text.Restore(later));
    EXPECT_EQ(text.Text(), changed);
}

TEST(SurfaceHistory, CostsNothingWithoutSnapshots) {
    FormattedText text(ManyLines(100000));
    const std::size_t bytes = test::HeapBytes();
    EXPECT_FALSE(text.history.Records());
    {
        const auto snapshot = text.Take();
        EXPECT_TRUE(text.history.Records());
        text.Replace(0, 1000000, {}, plain);
        const auto later = text.Take();
        EXPECT_GT(test::HeapBytes(), bytes + 1000000);
    }
    EXPECT_FALSE(text.history.Records());
    text.Replace(0, 1, "x", plain);
    static_cast<void>(text.Take());
    EXPECT_LT(test::HeapBytes(), bytes + 100000);
}

TEST(SurfaceHistory, OlderVersionsEndWithTheirSnapshots) {
    FormattedText text(ManyLines(1000));
    std::vector<SurfaceHistory::Snapshot> snapshots;
    std::size_t bytesWithTen = 0;
    for (int step = 0; step < 500; ++step) {
        snapshots.push_back(text.Take());
        if (snapshots.size() > 10) snapshots.erase(snapshots.begin());
        text.Replace(100 + step % 7 * 20, 5000, QString(5001, '#'), redBold);
        if (step == 50) bytesWithTen = test::HeapBytes();
    }
    EXPECT_LT(test::HeapBytes(), bytesWithTen + 50 * 5000 * sizeof(QChar));
    ASSERT_TRUE(text.Restore(snapshots.front()));
    EXPECT_EQ(text.Text().size(), ManyLines(1000).size() + 490);
}

TEST(SurfaceHistory, AChainOfAnyLengthEnds) {
    FormattedText text("x");
    auto oldest = text.Take();
    for (int step = 0; step < 200000; ++step) {
        text.Replace(0, 1, step % 2 == 0 ? "y" : "x", plain);
        static_cast<void>(text.Take());
    }
    ASSERT_TRUE(text.history.Records());
    oldest = {};
    EXPECT_FALSE(text.history.Records());
}

TEST(SurfaceHistory, StepsOfOneLineCostALine) {
    QString page = ManyLines(100000);
    FormattedText text(page);
    for (int line = 0; line < text.formats.LineCount() - 1; ++line) {
        text.formats.SetFormat({line, 0}, {line, 4}, {.color = red, .bold = {}});
    }
    std::vector<SurfaceHistory::Snapshot> undo;
    std::vector<SurfaceHistory::Snapshot> redo;
    for (int step = 0; step < 31; ++step) {
        undo.push_back(text.Take());
        for (int index = 0; index < 20; ++index) text.Replace(20 * 1500 * (step + 1) + index, 0, "x", redBold);
    }
    for (const auto& snapshot : std::views::reverse(undo)) {
        redo.push_back(text.Take());
        ASSERT_TRUE(text.Restore(snapshot));
    }
    EXPECT_EQ(text.Text(), page);
    const std::size_t bytes = test::HeapBytes();
    undo.clear();
    redo.clear();
    EXPECT_LT((bytes - test::HeapBytes()) * 20, static_cast<std::size_t>(page.size()));
}

TEST(SurfaceHistory, LinesThatComeAndGoKeepTheirNeighboursFormats) {
    FormattedText text(ManyLines(2000));
    text.formats.SetFormat({700, 3}, {701, 2}, {.color = red, .bold = true});
    text.formats.SetFormat({0, 0}, {0, 2}, {.color = red, .bold = {}});
    const int end = static_cast<int>(text.Text().size());
    for (const int position : {0, end / 3, end / 2, end}) {
        const FullCopy before = text.Copy();
        const auto snapshot = text.Take();
        text.Replace(position, 0, "\n\nnew\n", redBold);
        const FullCopy after = text.Copy();
        const auto later = text.Take();
        ASSERT_TRUE(text.Restore(snapshot));
        ASSERT_EQ(text.Copy(), before) << "position " << position;
        ASSERT_TRUE(text.Restore(later));
        ASSERT_EQ(text.Copy(), after) << "position " << position;
    }
}

class RandomHistory : public testing::TestWithParam<int> {};

// Edits, snapshots and restores in any order, each compared with a full copy.
TEST_P(RandomHistory, EveryVersionComesBack) {
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    const auto below = [&](qsizetype limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    FormattedText text(GetParam() % 2 == 0 ? ManyLines(900) : QString());
    std::vector<std::pair<SurfaceHistory::Snapshot, FullCopy>> kept;
    const std::array<CharFormat, 3> looks{plain, redBold, CharFormat{0x00FF00, false}};
    for (int step = 0; step < 250; ++step) {
        const int size = static_cast<int>(text.Text().size());
        const int position = below(size + 1);
        const CharFormat look = looks.at(random() % 3);
        const int kind = below(20);
        if (kind < 6) {
            for (int index = 0, count = below(9); index <= count; ++index) {
                text.Replace(position + index / 2, 0, QString(QChar('a' + below(26))), look);
            }
        } else if (kind < 9) {
            text.Replace(position, below(std::min(size - position, kind == 8 ? size : 30) + 1), {}, look);
        } else if (kind < 11) {
            text.Replace(position, below(std::min(size - position, 20) + 1), ManyLines(below(kind == 9 ? 4 : 600)),
                         look);
        } else if (kind < 13) {
            const int until = std::min(size, position + below(200));
            text.formats.SetFormat(text.PlaceOf(position), text.PlaceOf(until), {.color = look.color, .bold = {}});
        } else if (kind == 13) {
            const std::array run{FormatRun{{position, below(500)}, looks.at(random() % 3)}};
            text.formats.SetAll(look, run);
        } else if (kind == 14 && below(4) == 0) {
            text.Fill(below(2) == 0 ? ManyLines(below(1500)) : text.Text().toUpper());
        } else if (kind < 18) {
            kept.emplace_back(text.Take(), text.Copy());
            if (kept.size() > 40) kept.erase(kept.begin() + below(40));
        } else if (!kept.empty()) {
            const auto& [snapshot, copy] = kept.at(random() % kept.size());
            ASSERT_TRUE(text.Restore(snapshot));
            ASSERT_TRUE(text.Copy() == copy) << "step " << step;
        }
    }
    while (!kept.empty()) {
        const auto chosen = kept.begin() + below(static_cast<qsizetype>(kept.size()));
        ASSERT_TRUE(text.Restore(chosen->first));
        ASSERT_TRUE(text.Copy() == chosen->second);
        kept.erase(chosen);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHistory, testing::Range(0, 20));

}  // namespace
}  // namespace vellum
