#include "surface/near_text.h"

#include "surface/edit_surface.h"

#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextCursor>

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace vellum {
namespace {

// A document of numbered lines, none of which is like another.
QString Lines(int count, int first = 0) {
    QString text;
    for (int line = first; line < first + count; ++line) text += QString("line %1 of many\n").arg(line);
    return text;
}

class NearTextTest : public testing::Test {
protected:
    void Edit(int position, int length, const QString& text) {
        QTextCursor cursor(edit.document());
        cursor.setPosition(position);
        cursor.setPosition(position + length, QTextCursor::KeepAnchor);
        cursor.insertText(text);
    }

    // What the document holds there, whoever is asked.
    [[nodiscard]] QString Whole(int position, int length) const { return edit.toPlainText().mid(position, length); }

    QPlainTextEdit edit;
    NearText around{*edit.document()};
};

TEST_F(NearTextTest, ReadsAnyRange) {
    edit.setPlainText(Lines(5000));
    for (const int length : {0, 1, 1999, 2000, 14000, 20000, 20001, 50000}) {
        for (const int position : {0, 100, 30000}) {
            EXPECT_EQ(around.Characters(position, length), Whole(position, length)) << position << " " << length;
        }
    }
    const int end = edit.document()->characterCount() - 1;
    EXPECT_EQ(around.Characters(end - 3000, 3000), Whole(end - 3000, 3000));
    EXPECT_EQ(around.Characters(end, 0), "");
}

TEST_F(NearTextTest, FollowsEditsBeforeInAndAfter) {
    edit.setPlainText(Lines(5000));
    const auto check = [&](int position) {
        EXPECT_EQ(around.Characters(position, 14000), Whole(position, 14000)) << position;
    };
    check(30000);
    Edit(10, 0, "before\n");
    check(30000);
    Edit(35000, 5, "in it\n\n");
    check(30000);
    Edit(60000, 100, "after");
    check(30000);
    Edit(25000, 6000, "over its start");
    check(30000);
    Edit(40000, 20000, "over its end");
    check(30000);
    Edit(0, 0, Lines(4000, 10000));
    check(30000);
    edit.setPlainText(Lines(3000, 50000));
    check(3000);
    edit.setPlainText("short");
    EXPECT_EQ(around.Characters(0, 5), "short");
}

TEST_F(NearTextTest, ReadsTheDocumentItselfWithinAnEditBlock) {
    edit.setPlainText(Lines(5000));
    ASSERT_EQ(around.Characters(30000, 14000), Whole(30000, 14000));
    QTextCursor cursor(edit.document());
    cursor.beginEditBlock();
    cursor.setPosition(31000);
    for (int round = 0; round < 3; ++round) {
        cursor.insertText("in it\n");
        EXPECT_EQ(around.Characters(30000, 14000), Whole(30000, 14000)) << "round " << round;
    }
    cursor.endEditBlock();
    EXPECT_EQ(around.Characters(30000, 14000), Whole(30000, 14000));
    cursor.beginEditBlock();  // that changes nothing
    cursor.endEditBlock();
    EXPECT_EQ(around.Characters(30000, 14000), Whole(30000, 14000));
}

TEST_F(NearTextTest, ReadsTheRestAfterAnyRowOfEdits) {
    std::mt19937 random(5);
    const auto number = [&](int from, int to) { return std::uniform_int_distribution(from, to)(random); };
    edit.setPlainText(Lines(3000));
    int place = 20000;
    for (int round = 0; round < 3000; ++round) {
        const int last = edit.document()->characterCount() - 1;
        if (last < 30000) Edit(number(0, last), 0, Lines(1000, round));
        // Mostly near the last place, as a person types.
        const int centre = number(0, 9) == 0 ? number(0, last) : place + number(-9000, 9000);
        const int position = std::clamp(centre, 0, last);
        const int length = std::min(number(0, 20) == 0 ? number(0, 9000) : number(0, 3), last - position);
        Edit(position, length, QStringList{"", "x", "\n", "a\nb", "word "}.at(number(0, 4)));
        place = std::clamp(place + number(-500, 500), 0, edit.document()->characterCount() - 1);
        const int most = edit.document()->characterCount() - 1 - place;
        const int asked = std::min(number(0, 3) == 0 ? number(0, 25000) : 14000, most);
        ASSERT_EQ(around.Characters(place, asked), Whole(place, asked)) << "round " << round;
    }
}

TEST(NearTextOfASurface, KnowsItAfterEveryWayToChangeTheText) {
    EditSurface surface;
    const auto check = [&] { EXPECT_EQ(surface.Mid(3000, 5000), surface.Text().mid(3000, 5000)); };
    surface.SetText(Lines(1000).replace("\n", "\r\n"));
    check();
    surface.SetSelStart(4000);
    surface.SetSelText(QString("a") + QChar(0x2029) + "b");  // a character that the document only has a stand-in for
    check();
    surface.SetSelStart(3500);
    surface.SetSelLength(1000);
    surface.SetSelText("\r\n");
    check();
    surface.SetText(Lines(2000, 7).replace("\n", "\r\n"));
    check();
    surface.SetText("");
    check();
}

// A surface changed in every way that there is, its own routines and a person's hands alike.
class NearTextOfABusySurface : public testing::TestWithParam<unsigned> {
protected:
    int Below(qsizetype limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    QString AnyText() {
        const QStringList pieces{
            "", "x", "\r\n", "a\nb", "word ", QString(QChar(0x2029)), QString(QChar(0xFFFD)), QString::fromUtf8("😀")};
        QString text;
        for (int count = Below(6); count >= 0; --count) text += pieces.at(Below(pieces.size()));
        return text;
    }
    void Compose(const QString& preedit, const QString& committed, int from, int length) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(committed, from, length);
        QApplication::sendEvent(&surface, &event);
    }
    void Drop() {
        QMimeData data;
        data.setText(AnyText());
        const QPoint place(Below(surface.viewport()->width()), Below(surface.viewport()->height()));
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(surface.viewport(), &event);
    }
    void ChangeIt() {
        static constexpr std::array keys{Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Tab};
        switch (Below(14)) {
            case 0:
                return surface.SetText(Below(3) == 0 ? AnyText() : Lines(1000 + Below(500), Below(9000)));
            case 1:
            case 2:
                snapshots.push_back(surface.TakeSnapshot());
                return;
            case 3:
            case 4:
                if (!snapshots.empty()) surface.Restore(snapshots.at(Below(snapshots.size())));
                return;
            case 5:
                return Compose("preedit", {}, 0, 0);
            case 6:
                return Compose({}, AnyText().remove('\r'), -Below(3), Below(4));
            case 7:
                return Drop();
            case 8:
                return surface.SetSelText(AnyText());
            case 9:
                surface.SetSelLength(Below(9000));
                return surface.SetSelText(AnyText());
            case 10:
                return surface.SetFormat({Below(surface.Length() + 1), 100}, {0x0000FF, true});
            case 11:
                return QTest::keyClicks(&surface, "typed");
            default:
                return QTest::keyClick(&surface, keys.at(Below(keys.size())),
                                       Below(4) == 0 ? Qt::ControlModifier : Qt::NoModifier);
        }
    }

    std::mt19937 random{GetParam()};
    EditSurface surface;
    std::vector<EditSurface::Snapshot> snapshots;
};

TEST_P(NearTextOfABusySurface, KnowsItAfterEachChange) {
    surface.resize(300, 200);
    surface.show();
    surface.SetText(Lines(1500));
    int place = 10000;
    for (int round = 0; round < 600; ++round) {
        if (Below(3) == 0) surface.SetSelStart(place + Below(8000));
        ChangeIt();
        if (Below(8) == 0) place = Below(surface.Length() + 1);
        const int length = 2000 + Below(12000);
        ASSERT_EQ(surface.Mid(place, length), surface.Text().mid(place, length)) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, NearTextOfABusySurface, testing::Range(1U, 5U));

}  // namespace
}  // namespace vellum
