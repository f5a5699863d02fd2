// A whole page typed key by key, with all assists on.
#include "tests/editor/editor_fixture.h"

#include <random>

namespace vellum {
namespace {

class TypedPage : public test::EditorFixture {
protected:
    void SetUp() override {
        EditorFixture::SetUp();
        Set(keys::autoQuote, "1");
        Put("|");
    }

    // Everything that a snapshot holds.
    QString Whole() { return Shown() + u'\n' + Colours(); }
};

TEST_F(TypedPage, ReadsAndLooksAsTold) {
    // The first "=" of an attribute brings both quotes, so that the value is typed and its closing quote stepped over.
    const auto value = [this](const QString& text) {
        Type(text);
        Press(Qt::Key_Right);
    };
    Type("<HTML>\n<!-- A Page -->\n<BODY>\n\t<P>Go <A HREF=");
    value("Big.html");
    Type(">on</A>.<BR></P>\n<table>\n\t<TR><td>1 < 2 ></td></tr>\n");
    Press(Qt::Key_Backspace);
    Type("</Table>\n<SCRIPT>\nif (a > b) c();\n</script>\n<p><%= Now %>&n\nx</p>\n");

    EXPECT_EQ(Surface().Text().replace("\r\n", "\n"),
              "<html>\n"
              "<!-- A Page -->\n"
              "<body>\n"
              "\t<p>Go <a href=\"Big.html\">on</a>.<br /></p>\n"
              "\t<table>\n"
              "\t\t<tr><td>1 < 2 ></td></tr>\n"
              "\t</table>\n"
              "\t<script>\n"
              "\tif (a > b) c();\n"
              "\t</script>\n"
              "\t<p><%= Now %>&nbsp;x</p>\n"
              "\t");
    EXPECT_EQ(Colours(),
              "oooooo\n"
              "ccccccccccccccc\n"
              "oooooo\n"
              ".ooo...aaaaaaaaaaaaaaaaaaa..aaaa.oooooooooo\n"
              ".ttttttt\n"
              "..tttttttt..oooootttttttttt\n"
              ".tttttttt\n"
              ".oooooooo\n"
              "cccccccccccccccc\n"
              "cooooooooo\n"
              ".oooSSSSSSSSSS.......oooo\n"
              ".");
}

TEST_F(TypedPage, UndoneToTheStartAndRedoneItIsTheSame) {
    const QStringList runs{"<html>\n",
                           "<body>\n\t<p>x <!-- y -->\n",
                           "<a href=",
                           "z",
                           "<% b %> text &nbsp;\n",
                           "<script>\n1 < 2\n</script>\n",
                           "<img src=",
                           "<br>",
                           "</p>"};
    QStringList states{Whole()};
    for (const QString& run : runs) {
        document.usingKeys = false;
        Type(run);
        states << Whole();
    }
    for (auto state = states.size() - 2; state >= 0; --state) {
        Press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Whole(), states.at(state));
    }
    EXPECT_EQ(Surface().Text(), "");
    for (qsizetype state = 1; state < states.size(); ++state) {
        Press(Qt::Key_R, Qt::ControlModifier);
        EXPECT_EQ(Whole(), states.at(state));
    }
}

TEST_F(TypedPage, AnyKeysCanBeUndoneAndRedone) {
    std::mt19937 random(7);
    static const QString alphabet = QStringLiteral("<><>/!-% =\"&;abBR\n\tp ");
    for (int round = 0; round < 20; ++round) {
        Put("|");
        document.usingKeys = false;
        document.ResetRedo();
        std::vector<QString> states{Whole()};
        for (int run = 0; run < 6; ++run) {
            document.usingKeys = false;
            for (int key = 0; key < 12; ++key) {
                const auto choice = random() % 14;
                if (choice == 0)
                    Press(Qt::Key_Backspace);
                else if (choice == 1)
                    Press(Qt::Key_Left);
                else if (choice == 2)
                    Press(Qt::Key_Delete);
                else
                    Type(alphabet.at(static_cast<qsizetype>(random() % static_cast<unsigned>(alphabet.size()))));
            }
            states.push_back(Whole());
        }
        for (std::size_t step = 6; step-- > 0;) {
            Press(Qt::Key_Z, Qt::ControlModifier);
            ASSERT_EQ(Whole(), states[step]) << round;
        }
        for (std::size_t step = 1; step <= 6; ++step) {
            Press(Qt::Key_R, Qt::ControlModifier);
            ASSERT_EQ(Whole(), states[step]) << round;
        }
    }
}

}  // namespace
}  // namespace vellum
