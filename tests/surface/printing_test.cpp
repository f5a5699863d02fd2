#include "surface/printing.h"

#include "surface/edit_surface.h"

#include <QFile>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextDocument>

#include <cmath>
#include <gtest/gtest.h>

namespace vellum {
namespace {

constexpr int dotsPerInch = 100;
constexpr ColorNumber red = 0x0000FF;

// Pages of paper as images, 8 by 10 inches of 100 dots.
class Paper {
public:
    static QImage Blank() {
        QImage page(8 * dotsPerInch, 10 * dotsPerInch, QImage::Format_RGB32);
        page.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerInch / 0.0254)));
        page.setDotsPerMeterY(static_cast<int>(std::lround(dotsPerInch / 0.0254)));
        page.fill(Qt::white);
        return page;
    }

    bool Print(const EditSurface& surface) {
        QImage page = Blank();
        QPainter painter(&page);
        const bool done = PaintPages(surface, painter, page.size(), [&] {
            pages.push_back(page.copy());
            painter.fillRect(page.rect(), Qt::white);
            return static_cast<int>(pages.size()) < limit;
        });
        painter.end();
        pages.push_back(page);
        return done;
    }

    std::vector<QImage> pages;
    int limit = 1000;
};

// The rectangle of everything that isn't white.
QRect InkOf(const QImage& page) {
    QRect ink;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (page.pixelColor(x, y) != Qt::white) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

int CountOf(const QImage& page, const QColor& color) {
    int count = 0;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) count += page.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

int LinesThatFit(const EditSurface& surface, double inches, QPaintDevice* device) {
    const QFont font(surface.document()->defaultFont(), device);
    const QFontMetricsF metrics(font, device);
    return static_cast<int>(inches * device->logicalDpiY() / (metrics.height() + metrics.leading()));
}

class PrintingTest : public testing::Test {
protected:
    PrintingTest() { surface.SetEditorFont("Liberation Mono", "10"); }
    EditSurface surface;
    Paper paper;
};

TEST_F(PrintingTest, TextStartsOneInchFromTheEdges) {
    surface.SetText("HHHH");
    ASSERT_TRUE(paper.Print(surface));
    ASSERT_EQ(paper.pages.size(), 1U);
    const QRect ink = InkOf(paper.pages[0]);
    EXPECT_GE(ink.left(), 100);
    EXPECT_LE(ink.left(), 103);
    EXPECT_GE(ink.top(), 100);
    EXPECT_LE(ink.top(), 106);  // the letters begin a little below the line's top
    QImage page = Paper::Blank();
    const QFontMetricsF metrics(QFont(surface.document()->defaultFont(), &page), &page);
    EXPECT_NEAR(ink.width(), 4 * metrics.horizontalAdvance('H'), metrics.horizontalAdvance('H') / 2);
    EXPECT_NEAR(metrics.ascent() + metrics.descent(), 10.0 / 72 * dotsPerInch * 1.13, 2.0);  // ten points on paper
}

TEST_F(PrintingTest, LongLinesWrapAtTheMargin) {
    surface.SetText(QString("H").repeated(500));
    ASSERT_TRUE(paper.Print(surface));
    const QRect ink = InkOf(paper.pages[0]);
    EXPECT_LE(ink.right(), 700);
    EXPECT_GT(ink.right(), 680);
    EXPECT_GT(ink.height(), 40);
    int inked = 0;
    for (const QImage& page : paper.pages) inked += CountOf(page, Qt::white) < page.width() * page.height() ? 1 : 0;
    EXPECT_EQ(inked, 1);
}

TEST_F(PrintingTest, PagesFollowUntilAllLinesAreOut) {
    QImage page = Paper::Blank();
    const int fit = LinesThatFit(surface, 8, &page);
    ASSERT_GT(fit, 20);
    surface.SetText(QString("H\r\n").repeated(3 * fit - 1) + "H");
    ASSERT_TRUE(paper.Print(surface));
    ASSERT_EQ(paper.pages.size(), 3U);
    for (const QImage& printed : paper.pages) {
        EXPECT_GE(InkOf(printed).top(), 100);
        EXPECT_LE(InkOf(printed).bottom(), 900);
        EXPECT_GT(InkOf(printed).bottom(), 870);
    }
    paper.pages.clear();
    surface.SetText(QString("H\r\n").repeated(3 * fit) + "H");
    ASSERT_TRUE(paper.Print(surface));
    EXPECT_EQ(paper.pages.size(), 4U);
}

TEST_F(PrintingTest, ColorsAndWeightsGoToPaper) {
    surface.SetText("HHHH HHHH");
    surface.SetFormat({5, 4}, {red, false});
    ASSERT_TRUE(paper.Print(surface));
    EXPECT_GT(CountOf(paper.pages[0], Qt::red), 10);
    EXPECT_GT(CountOf(paper.pages[0], Qt::black), 10);
    const int thin = CountOf(paper.pages[0], Qt::white);
    paper.pages.clear();
    surface.SetFormat({5, 4}, {red, true});
    ASSERT_TRUE(paper.Print(surface));
    EXPECT_LT(CountOf(paper.pages[0], Qt::white), thin);
    EXPECT_NEAR(InkOf(paper.pages[0]).top(), 102, 4);
}

TEST_F(PrintingTest, LightTextIsPrintedBlack) {
    surface.SetForeColor(0xFFFFFF);
    surface.SetBackColor(0x000000);
    surface.SetText("HHHH");
    ASSERT_TRUE(paper.Print(surface));
    EXPECT_GT(CountOf(paper.pages[0], Qt::black), 10);
}

TEST_F(PrintingTest, AnEmptyTextIsOneEmptyPage) {
    ASSERT_TRUE(paper.Print(surface));
    ASSERT_EQ(paper.pages.size(), 1U);
    EXPECT_TRUE(InkOf(paper.pages[0]).isEmpty());
}

TEST_F(PrintingTest, APrinterThatStopsIsTold) {
    paper.limit = 1;
    surface.SetText(QString("H\r\n").repeated(500));
    EXPECT_FALSE(paper.Print(surface));
}

TEST_F(PrintingTest, APrinterGetsWholePagesOfItsPaper) {
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath("a.pdf"));
    printer.setPageSize(QPageSize(QPageSize::A4));
    const double inches = 297 / 25.4 - 2;
    const int fit = LinesThatFit(surface, inches, &printer);
    surface.SetText(QString("a line\r\n").repeated(2 * fit) + "the last");
    ASSERT_TRUE(PrintSurface(surface, printer));
    QFile file(folder.filePath("a.pdf"));
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QString content = QString::fromLatin1(file.readAll());
    EXPECT_EQ(content.count(QRegularExpression("/Type\\s*/Page\\b")), 3);
    const QRegularExpressionMatch box = QRegularExpression("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]").match(content);
    ASSERT_TRUE(box.hasMatch());
    EXPECT_NEAR(box.captured(1).toDouble(), 595.3, 1);
    EXPECT_NEAR(box.captured(2).toDouble(), 841.9, 1);
}

TEST_F(PrintingTest, AFileThatCannotBeWrittenIsTold) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName("/nonexistent/folder/a.pdf");
    EXPECT_FALSE(PrintSurface(surface, printer));
}

TEST_F(PrintingTest, NoPrinterIsASentence) {
    if (!QPrinterInfo::defaultPrinter().isNull()) return;  // a machine with a printer must not print
    QString error;
    EXPECT_FALSE(PrintToDefaultPrinter(surface, "a.htm", &error));
    EXPECT_TRUE(error.contains("printer"));
    EXPECT_TRUE(error.endsWith('.'));
}

}  // namespace
}  // namespace vellum
