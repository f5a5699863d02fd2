#include "tools/frames/frame_layout.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

constexpr auto columns = FrameDirection::ColumnsFirst;
constexpr auto rows = FrameDirection::RowsFirst;

FrameLayout Laid(FrameDirection direction, const QString& lines) {
    FrameLayout layout(direction);
    EXPECT_TRUE(layout.SetLineCount(lines)) << lines.toStdString();
    return layout;
}

// What a frame comes to that nobody touched.
QString Untouched(const QString& name) {
    return "<frame src=\"\" name=\"" + name + "\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n";
}

TEST(FrameLayouts, StartWithTheirNamesAndNothingElse) {
    const FrameLayout byColumns(columns);
    const FrameLayout byRows(rows);
    for (int line = 0; line < 4; ++line) {
        for (int frame = 0; frame < 4; ++frame) {
            const FrameCell cell{frame, line};
            EXPECT_EQ(byColumns.FrameNames[cell], QString("Col%1Row%2").arg(line + 1).arg(frame + 1));
            EXPECT_EQ(byRows.FrameNames[cell], QString("Row%1Col%2").arg(line + 1).arg(frame + 1));
            for (const FrameLayout* layout : {&byColumns, &byRows}) {
                EXPECT_EQ(layout->FrameSources[cell], "");
                EXPECT_EQ(layout->FrameWidths[cell], "");
                EXPECT_EQ(layout->FrameHeights[cell], "");
                EXPECT_EQ(layout->FrameScroll[cell], 0);
                EXPECT_EQ(layout->FrameBorder[cell], 0);
                EXPECT_EQ(layout->FrameResize[cell], 0);
            }
        }
        EXPECT_EQ(byColumns.FrameCount(line), 1);
    }
    EXPECT_EQ(byColumns.LineCount(), 0);
}

TEST(FrameLayouts, TakeOneToFourLines) {
    for (const char* text : {"", "0", "0.99", "4.01", "5", "-1", "abc", "x2", "1e9", "99999999999999999999"}) {
        FrameLayout layout(columns);
        EXPECT_FALSE(layout.SetLineCount(text)) << text;
        EXPECT_EQ(layout.LineCount(), 0) << text;
        EXPECT_EQ(layout.FrameWidths[{}], "") << text;
    }
    const std::vector<std::pair<const char*, int>> taken{{"1", 0},   {"2", 1},         {"3", 2},  {"4", 3},
                                                         {" 2 ", 1}, {"3 columns", 2}, {"+4", 3}, {"0.2e1", 1}};
    for (const auto& [text, count] : taken) EXPECT_EQ(Laid(columns, text).LineCount(), count) << text;
}

// One less is rounded, and a half goes to the even number.
TEST(FrameLayouts, TakeAFractionOfALine) {
    const std::vector<std::pair<const char*, int>> taken{{"1.2", 0}, {"1.5", 0}, {"1.6", 1}, {"2.4", 1},
                                                         {"2.5", 2}, {"2.6", 2}, {"3.5", 2}, {"3.51", 3}};
    for (const auto& [text, count] : taken) EXPECT_EQ(Laid(columns, text).LineCount(), count) << text;
    EXPECT_EQ(Laid(columns, "2.5").FrameWidths[{}], "33%");
}

TEST(FrameLayouts, ShareTheRoomAmongTheLinesThereAre) {
    const QStringList shares{"100%", "50%", "33%", "25%"};
    for (int lines = 1; lines <= 4; ++lines) {
        const FrameLayout byColumns = Laid(columns, QString::number(lines));
        const FrameLayout byRows = Laid(rows, QString::number(lines));
        for (int line = 0; line < 4; ++line) {
            for (int frame = 0; frame < 4; ++frame) {
                const QString outer = line < lines ? shares[lines - 1] : "";
                const QString inner = line < lines ? "100%" : "";
                const FrameCell cell{frame, line};
                EXPECT_EQ(byColumns.FrameWidths[cell], outer);
                EXPECT_EQ(byColumns.FrameHeights[cell], inner);
                EXPECT_EQ(byRows.FrameHeights[cell], outer);
                EXPECT_EQ(byRows.FrameWidths[cell], inner);
            }
        }
    }
}

TEST(FrameLayouts, FramesOfALineShareItEvenly) {
    FrameLayout layout = Laid(columns, "2");
    const QStringList shares{"50%", "33%", "25%"};
    for (int count = 2; count <= 4; ++count) {
        EXPECT_TRUE(layout.AddFrame(1));
        EXPECT_EQ(layout.FrameCount(1), count);
        for (int frame = 0; frame < count; ++frame) EXPECT_EQ((layout.FrameHeights[{frame, 1}]), shares[count - 2]);
        if (count < 4) {
            EXPECT_EQ((layout.FrameHeights[{count, 1}]), "100%") << "beyond the frames there are";
        }
    }
    EXPECT_EQ(layout.FrameCount(0), 1);
    EXPECT_EQ((layout.FrameHeights[{0, 0}]), "100%");
    EXPECT_EQ((layout.FrameWidths[{0, 1}]), "50%");

    FrameLayout byRows = Laid(rows, "2");
    EXPECT_TRUE(byRows.AddFrame(0));
    EXPECT_EQ((byRows.FrameWidths[{0, 0}]), "50%");
    EXPECT_EQ((byRows.FrameWidths[{1, 0}]), "50%");
    EXPECT_EQ((byRows.FrameHeights[{0, 0}]), "50%");
}

TEST(FrameLayouts, NoFifthFrameAndNeverNone) {
    FrameLayout layout = Laid(columns, "1");
    layout.SetFrameHeight({}, "7");
    EXPECT_FALSE(layout.DropFrame(0));
    EXPECT_EQ(layout.FrameCount(0), 1);
    EXPECT_EQ(layout.FrameHeights[{}], "7");
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(layout.AddFrame(0));
    layout.SetFrameHeight({}, "7");
    EXPECT_FALSE(layout.AddFrame(0));
    EXPECT_EQ(layout.FrameCount(0), 4);
    EXPECT_EQ(layout.FrameHeights[{}], "7");
}

TEST(FrameLayouts, ATypedInnerSizeIsLostWithTheNextFrame) {
    FrameLayout layout = Laid(columns, "1");
    layout.AddFrame(0);
    layout.SetFrameHeight({0, 0}, "120");
    EXPECT_EQ((layout.FrameHeights[{0, 0}]), "120");
    EXPECT_EQ((layout.FrameHeights[{1, 0}]), "50%");
    layout.AddFrame(0);
    EXPECT_EQ((layout.FrameHeights[{0, 0}]), "33%");
    layout.SetFrameHeight({0, 0}, "120");
    layout.DropFrame(0);
    EXPECT_EQ((layout.FrameHeights[{0, 0}]), "50%");
    EXPECT_EQ((layout.FrameHeights[{2, 0}]), "33%") << "of the dropped frame";
}

TEST(FrameLayouts, AnOuterSizeGoesToTheFramesThatTheLineHas) {
    FrameLayout byColumns = Laid(columns, "2");
    byColumns.AddFrame(0);
    byColumns.SetFrameWidth({1, 0}, "*");
    EXPECT_EQ((byColumns.FrameWidths[{0, 0}]), "*");
    EXPECT_EQ((byColumns.FrameWidths[{1, 0}]), "*");
    EXPECT_EQ((byColumns.FrameWidths[{2, 0}]), "50%");
    EXPECT_EQ((byColumns.FrameWidths[{0, 1}]), "50%");

    FrameLayout byRows = Laid(rows, "2");
    byRows.AddFrame(1);
    byRows.SetFrameHeight({0, 1}, "90");
    EXPECT_EQ((byRows.FrameHeights[{0, 1}]), "90");
    EXPECT_EQ((byRows.FrameHeights[{1, 1}]), "90");
    EXPECT_EQ((byRows.FrameHeights[{2, 1}]), "50%");
    EXPECT_EQ((byRows.FrameHeights[{0, 0}]), "50%");
    byRows.SetFrameWidth({0, 1}, "9");
    EXPECT_EQ((byRows.FrameWidths[{0, 1}]), "9");
    EXPECT_EQ((byRows.FrameWidths[{1, 1}]), "50%");
}

TEST(FrameLayouts, ADroppedFrameComesBackAsItWas) {
    FrameLayout layout = Laid(columns, "1");
    layout.AddFrame(0);
    layout.FrameNames[{1, 0}] = "menu";
    layout.FrameSources[{1, 0}] = "menu.htm";
    layout.FrameBorder[{1, 0}] = 1;
    layout.DropFrame(0);
    EXPECT_EQ(layout.Markup(), Untouched("Col1Row1"));
    layout.AddFrame(0);
    EXPECT_EQ(layout.Markup(),
              "<frameset rows=\"50%,50%\">\r\n" + Untouched("Col1Row1") +
                  "<frame src=\"menu.htm\" name=\"menu\" frameborder=\"1\" scrolling=\"no\" noresize=\"noresize\">\r\n"
                  "</frameset>\r\n");
}

TEST(FrameMarkup, OneFrameIsBare) {
    EXPECT_EQ(Laid(columns, "1").Markup(),
              "<frame src=\"\" name=\"Col1Row1\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n");
    EXPECT_EQ(Laid(rows, "1").Markup(),
              "<frame src=\"\" name=\"Row1Col1\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n");
}

TEST(FrameMarkup, EveryFieldOfAFrame) {
    FrameLayout layout = Laid(columns, "1");
    layout.FrameNames[{}] = "a \"b\" & <c>";
    layout.FrameSources[{}] = "p 1.htm?x&y";
    layout.FrameScroll[{}] = 1;
    layout.FrameBorder[{}] = 1;
    layout.FrameResize[{}] = 1;
    EXPECT_EQ(layout.Markup(),
              "<frame src=\"p 1.htm?x&y\" name=\"a \"b\" & <c>\" frameborder=\"1\" scrolling=\"yes\">\r\n");
    layout.FrameNames[{}].clear();
    layout.FrameSources[{}].clear();
    EXPECT_EQ(layout.Markup(), "<frame src=\"\" frameborder=\"1\" scrolling=\"yes\">\r\n");
}

TEST(FrameMarkup, TwoColumnsTheFirstWithTwoFrames) {
    FrameLayout layout = Laid(columns, "2");
    layout.AddFrame(0);
    EXPECT_EQ(layout.Markup(),
              "<frameset cols=\"50%,50%\">\r\n"
              "<frameset rows=\"50%,50%\">\r\n" +
                  Untouched("Col1Row1") + Untouched("Col1Row2") + "</frameset>\r\n" + Untouched("Col2Row1") +
                  "</frameset>");
}

TEST(FrameMarkup, TwoRowsTheFirstWithTwoFrames) {
    FrameLayout layout = Laid(rows, "2");
    layout.AddFrame(0);
    EXPECT_EQ(layout.Markup(),
              "<frameset rows=\"50%,50%\">\r\n"
              "<frameset cols=\"50%,50%\">\r\n" +
                  Untouched("Row1Col1") + Untouched("Row1Col2") + "</frameset>\r\n" + Untouched("Row2Col1") +
                  "</frameset>");
}

TEST(FrameMarkup, ThreeLinesAreAThirdEach) {
    EXPECT_EQ(Laid(columns, "3").Markup(), "<frameset cols=\"33%,33%,33%\">\r\n" + Untouched("Col1Row1") +
                                               Untouched("Col2Row1") + Untouched("Col3Row1") + "</frameset>");
}

TEST(FrameMarkup, OneLineOfFramesHasNoOuterSet) {
    FrameLayout layout = Laid(rows, "1");
    layout.AddFrame(0);
    layout.AddFrame(0);
    EXPECT_EQ(layout.Markup(), "<frameset cols=\"33%,33%,33%\">\r\n" + Untouched("Row1Col1") + Untouched("Row1Col2") +
                                   Untouched("Row1Col3") + "</frameset>\r\n");
}

TEST(FrameMarkup, FourByFour) {
    FrameLayout layout = Laid(rows, "4");
    QString expected = "<frameset rows=\"25%,25%,25%,25%\">\r\n";
    for (int line = 0; line < 4; ++line) {
        for (int i = 0; i < 3; ++i) layout.AddFrame(line);
        expected += "<frameset cols=\"25%,25%,25%,25%\">\r\n";
        for (int frame = 1; frame <= 4; ++frame) expected += Untouched(QString("Row%1Col%2").arg(line + 1).arg(frame));
        expected += "</frameset>\r\n";
    }
    EXPECT_EQ(layout.Markup(), expected + "</frameset>");
}

// The sizes go in as typed, an empty one too, and the line's is that of its first frame.
TEST(FrameMarkup, TypedSizes) {
    FrameLayout layout = Laid(columns, "2");
    layout.SetFrameWidth({0, 0}, "");
    layout.SetFrameWidth({0, 1}, "2*");
    layout.AddFrame(1);
    layout.SetFrameHeight({0, 1}, "120");
    layout.SetFrameHeight({1, 1}, "*");
    EXPECT_EQ(layout.Markup(), "<frameset cols=\",2*\">\r\n" + Untouched("Col1Row1") + "<frameset rows=\"120,*\">\r\n" +
                                   Untouched("Col2Row1") + Untouched("Col2Row2") + "</frameset>\r\n</frameset>");
}

}  // namespace
}  // namespace vellum::test
