// How lines end stays what it was, whatever is done around them.
#include "files/line_ends.h"
#include "tests/surface/surface_fixture.h"

#include <QTextCursor>
#include <QTextDocument>

#include <array>
#include <random>

namespace vellum::test {
namespace {

// A text as a file spells it, one entry a character or line end: slow, and plainly right.
class NaiveText {
public:
    QString usual = "\r\n";
    QStringList units;

    static QStringList UnitsOf(const QString& text, const QString& lineEnd) {
        QString unified = text;
        unified.replace("\r\n", "\n").replace('\r', '\n');
        QStringList units;
        for (const QChar character : unified) units << (character == u'\n' ? lineEnd : QString(character));
        return units;
    }
    void Replace(qsizetype from, qsizetype length, const QString& text) {
        QStringList changed = units.first(from) + UnitsOf(text, usual) + units.sliced(from + length);
        units = changed;
    }
    [[nodiscard]] QStringList LineEnds() const {
        QStringList ends;
        for (const QString& unit : units) {
            if (IsLineEnd(unit)) ends << unit;
        }
        return ends;
    }
    // Everything becomes `text`.
    void Rewrite(const QString& text) {
        const QStringList fresh = UnitsOf(text, usual);
        const QStringList old = units;
        const QStringList ends = LineEnds();
        const auto same = [&](qsizetype left, qsizetype right) {
            return old[left] == fresh[right] || (IsLineEnd(old[left]) && IsLineEnd(fresh[right]));
        };
        qsizetype first = 0;
        while (first < old.size() && first < fresh.size() && same(first, first)) ++first;
        qsizetype last = 0;
        while (last < old.size() - first && last < fresh.size() - first &&
               same(old.size() - 1 - last, fresh.size() - 1 - last)) {
            ++last;
        }
        units = fresh;
        if (LineEnds().size() == ends.size()) {
            qsizetype next = 0;
            for (QString& unit : units) {
                if (IsLineEnd(unit)) unit = ends[next++];
            }
        } else {
            units = old.first(first) + fresh.sliced(first, fresh.size() - first - last) + old.last(last);
        }
    }
    [[nodiscard]] QString Spelled() const { return units.join(QString()); }

private:
    static bool IsLineEnd(const QString& unit) { return unit.startsWith(u'\r') || unit.startsWith(u'\n'); }
};

QString Visible(QString text) {
    return text.replace('\r', "\\r").replace('\n', "\\n");
}

class SurfaceLineEnds : public SurfaceFixture {
protected:
    void Load(const QString& spelled, LineEnd usual) {
        QString text = spelled;
        const std::vector<OtherLineEnd> others = UnifyLineEnds(text, usual);
        surface.LoadText(text, usual, others);
        usual_ = usual;
    }
    [[nodiscard]] QString Spelled() const {
        return SpellLineEnds(surface.RawText(), usual_, surface.OtherLineEnds(usual_));
    }
    void Select(int from, int end) {
        QTextCursor cursor(surface.document());
        cursor.setPosition(from);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        surface.setTextCursor(cursor);
    }

    LineEnd usual_ = LineEnd::CrLf;
};

TEST_F(SurfaceLineEnds, AKeyLeavesThemAsTheyAre) {
    Load("one\rtwo\r\nthree\nfour", LineEnd::CrLf);
    Select(0, 0);
    QTest::keyClick(&surface, Qt::Key_X);
    EXPECT_EQ(Spelled(), "xone\rtwo\r\nthree\nfour");
    Select(4, 4);
    QTest::keyClick(&surface, Qt::Key_Return);
    EXPECT_EQ(Spelled(), "xone\r\n\rtwo\r\nthree\nfour") << "the new one comes before that of the line";
    Select(14, 14);
    QTest::keyClick(&surface, Qt::Key_Backspace);
    QTest::keyClick(&surface, Qt::Key_Delete);
    EXPECT_EQ(Spelled(), "xone\r\n\rtwo\r\nthr\nfour");
    Select(5, 6);
    QTest::keyClick(&surface, Qt::Key_Delete);
    EXPECT_EQ(Spelled(), "xone\r\ntwo\r\nthr\nfour");
}

TEST_F(SurfaceLineEnds, ComeBackWithASnapshot) {
    Load("one\rtwo\nthree\r\n", LineEnd::CrLf);
    const auto before = surface.TakeSnapshot();
    Select(2, 9);
    QTest::keyClick(&surface, Qt::Key_Return);
    const auto after = surface.TakeSnapshot();
    EXPECT_EQ(Spelled(), "on\r\nhree\r\n");
    ASSERT_TRUE(surface.Restore(before));
    EXPECT_EQ(Spelled(), "one\rtwo\nthree\r\n");
    ASSERT_TRUE(surface.Restore(after));
    EXPECT_EQ(Spelled(), "on\r\nhree\r\n");
}

// As when a file is read again that something else has given other line ends.
TEST_F(SurfaceLineEnds, AloneAreAChangeToComeBackFrom) {
    Load("one\rtwo\n", LineEnd::Cr);
    const auto before = surface.TakeSnapshot();
    Load("one\r\ntwo\r\n", LineEnd::CrLf);
    ASSERT_TRUE(surface.Restore(before));
    EXPECT_EQ(Spelled(), "one\rtwo\n");
}

TEST_F(SurfaceLineEnds, ARewrittenSelectionKeepsThem) {
    Load("a\rb\nc\r\nd", LineEnd::CrLf);
    Select(0, 5);
    surface.RewriteSelText("<p>\r\nA\r\nB\r\nC\r\n</p>", 1);
    EXPECT_EQ(Spelled(), "<p>\r\nA\rB\nC\r\n</p>\r\nd");
    Load("a\rb\nc\r\nd", LineEnd::CrLf);
    Select(0, 5);
    surface.RewriteSelText("A B");
    EXPECT_EQ(Spelled(), "A B\r\nd");
}

TEST_F(SurfaceLineEnds, AReplacedRangeLeavesCaretSelectionAndViewWhereTheyAre) {
    QString text;
    for (int line = 0; line < 200; ++line) text += QString("line %1\n").arg(line);
    Load(text, LineEnd::Lf);
    const auto at = [&](const char* word) { return static_cast<int>(surface.RawText().indexOf(word)); };
    Select(at("line 150"), at("line 151"));
    surface.SetFormat({0, 4}, {.color = red, .bold = {}});
    const int firstLine = surface.cursorForPosition({5, 5}).blockNumber();
    surface.ReplaceRange({0, 4}, "LINES");
    surface.ReplaceRange({at("line 199"), 4}, "x");
    surface.ReplaceRange({at("line 150"), 4}, "row");
    surface.ReplaceRange({at(" 150") + 1, 3}, "12345");
    EXPECT_EQ(surface.SelText(), "row 12345\r\n");
    EXPECT_EQ(surface.cursorForPosition({5, 5}).blockNumber(), firstLine);
    EXPECT_TRUE(surface.RawText().startsWith("LINES 0\nline 1\n"));
    EXPECT_TRUE(surface.RawText().endsWith("x 199\n"));
    EXPECT_EQ(surface.FormatAt(4).color, red);
    EXPECT_EQ(surface.FormatAt(5).color, std::nullopt);
}

class RandomLineEnds : public SurfaceLineEnds, public testing::WithParamInterface<unsigned> {};

TEST_P(RandomLineEnds, AreThoseOfACharacterByCharacterModel) {
    std::mt19937 random(GetParam());
    const auto below = [&](qsizetype limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const QStringList pieces{"\r\n", "\n", "\r", "a", "bc ", "<p>", QString(QChar(0x2029)), QString(QChar(0xFFFD))};
    const auto anyText = [&](int most) {
        QString text;
        for (int left = below(most + 1); left > 0; --left) text += pieces.at(below(pieces.size()));
        return text;
    };
    const std::array kinds{std::pair(LineEnd::CrLf, "\r\n"), std::pair(LineEnd::Lf, "\n"),
                           std::pair(LineEnd::Cr, "\r")};

    NaiveText naive;
    const auto loadAnew = [&] {
        const auto& [kind, spelling] = kinds.at(random() % kinds.size());
        naive.usual = spelling;
        naive.units.clear();
        QString spelled;
        for (int left = below(600); left > 0; --left) {
            const QString piece = pieces.at(below(pieces.size()));
            if (piece == "\n" && spelled.endsWith('\r')) continue;  // they would be one
            naive.units += piece.startsWith('\r') || piece == "\n" ? QStringList{piece} : NaiveText::UnitsOf(piece, "");
            spelled += piece;
        }
        Load(spelled, kind);
    };
    loadAnew();
    std::vector<std::pair<EditSurface::Snapshot, QStringList>> kept;
    for (int step = 0; step < 300; ++step) {
        const int size = static_cast<int>(naive.units.size());
        const int from = below(size + 1);
        const int end = std::min(size, from + below(step % 10 == 0 ? size + 1 : 8));
        Select(from, end);
        const int kind = below(12);
        switch (kind) {
            case 0:
                QTest::keyClick(&surface, Qt::Key_X);
                naive.Replace(from, end - from, "x");
                break;
            case 1:
                QTest::keyClick(&surface, Qt::Key_Return);
                naive.Replace(from, end - from, "\n");
                break;
            case 2:
                QTest::keyClick(&surface, Qt::Key_Backspace);
                naive.Replace(from < end ? from : std::max(from - 1, 0), from < end ? end - from : std::min(from, 1),
                              {});
                break;
            case 3:
                QTest::keyClick(&surface, Qt::Key_Delete);
                naive.Replace(from, from < end ? end - from : std::min(size - from, 1), {});
                break;
            case 4:
            case 5: {
                const QString text = anyText(step % 10 == 1 ? 900 : 6);
                surface.SetSelText(text);
                naive.Replace(from, end - from, text);
                break;
            }
            case 6: {
                const QString text = anyText(6);
                surface.ReplaceRange({from, end - from}, QString(text).replace("\r\n", "\n").replace('\r', '\n'));
                naive.Replace(from, end - from, text);
                break;
            }
            case 7: {
                const QString text =
                    below(2) == 0 ? surface.Text().toUpper() : surface.Text().replace("<p>\r\n", "<p>");
                surface.SetText(text);
                naive.Rewrite(text);
                break;
            }
            case 8: {
                QTextCursor other(surface.document());
                other.setPosition(from);
                other.insertText("q\nr");
                naive.Replace(from, 0, "q\nr");
                kept.clear();  // the toolkit's own changes may be too many to tell
                break;
            }
            case 9:
                if (step % 6 == 0) loadAnew();
                break;
            case 10:
                kept.emplace_back(surface.TakeSnapshot(), naive.units);
                break;
            default:
                if (!kept.empty()) {
                    const auto& [snapshot, units] = kept.at(random() % kept.size());
                    ASSERT_TRUE(surface.Restore(snapshot));
                    naive.units = units;
                }
        }
        ASSERT_EQ(Visible(Spelled()), Visible(naive.Spelled())) << "step " << step << " kind " << kind;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomLineEnds, testing::Range(0U, 16U));

}  // namespace
}  // namespace vellum::test
