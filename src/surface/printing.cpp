#include "surface/printing.h"

#include "files/file_errors.h"
#include "surface/edit_surface.h"
#include "surface/surface_look.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

namespace vellum {
namespace {

constexpr int twipsPerInch = 1440;
constexpr int brightestOnPaper = 200;  // of 255: lighter text would hardly be seen on white

// Text that the author reads on a dark background in a light colour is printed in black.
QColor OnPaper(const QColor& color) {
    return qGray(color.rgb()) > brightestOnPaper ? QColor(Qt::black) : color;
}

class PagePainter {
public:
    PagePainter(const EditSurface& surface, QPainter& painter, const QSizeF& paper,
                const std::function<bool()>& newPage)
        : surface_(surface),
          painter_(painter),
          newPage_(newPage),
          left_(Dots(painter.device()->logicalDpiX())),
          top_(Dots(painter.device()->logicalDpiY())),
          width_(std::max(1.0, paper.width() - 2 * left_)),
          bottom_(paper.height() - top_),
          font_(surface.document()->defaultFont(), painter.device()),
          y_(top_) {
        option_.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option_.setTabStopDistance(tabColumns * QFontMetricsF(font_, painter.device()).horizontalAdvance(u' '));
        painter_.setPen(OnPaper(ColorFromNumber(surface.ForeColor())));
    }

    bool PaintLine(const QTextBlock& block) {
        QTextLayout layout(block.text(), font_, painter_.device());
        layout.setTextOption(option_);
        layout.setFormats(FormatsOf(block));
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLeadingIncluded(true);
            line.setLineWidth(width_);
        }
        layout.endLayout();
        for (int index = 0; index < layout.lineCount(); ++index) {
            const QTextLine line = layout.lineAt(index);
            if (y_ > top_ && y_ + line.height() > bottom_) {
                if (!newPage_()) return false;
                y_ = top_;
            }
            line.draw(&painter_, QPointF(left_, y_ - line.y()));
            y_ += line.height();
        }
        return true;
    }

private:
    static qreal Dots(int dotsPerInch) { return static_cast<qreal>(printMarginTwips) / twipsPerInch * dotsPerInch; }

    [[nodiscard]] QList<QTextLayout::FormatRange> FormatsOf(const QTextBlock& block) const {
        QList<QTextLayout::FormatRange> ranges;
        const FormatStore& formats = surface_.Formats();
        VisitRow(formats.Runs(block.blockNumber()), 0, block.length() - 1, formats.Base(), [&](const FormatRun& run) {
            QTextCharFormat look;
            if (run.format.color) look.setForeground(OnPaper(ColorFromNumber(*run.format.color)));
            if (run.format.bold) look.setFontWeight(QFont::Bold);
            ranges.push_back({run.range.offset, run.range.length, look});
            return true;
        });
        return ranges;
    }

    const EditSurface& surface_;
    QPainter& painter_;
    const std::function<bool()>& newPage_;
    qreal left_;
    qreal top_;
    qreal width_;
    qreal bottom_;
    QFont font_;
    QTextOption option_;
    qreal y_;
};

}  // namespace

bool PaintPages(const EditSurface& surface, QPainter& painter, const QSizeF& paper,
                const std::function<bool()>& newPage) {
    PagePainter pages(surface, painter, paper, newPage);
    for (QTextBlock block = surface.document()->firstBlock(); block.isValid(); block = block.next()) {
        if (!pages.PaintLine(block)) return false;
    }
    return true;
}

bool PrintSurface(const EditSurface& surface, QPrinter& printer) {
    printer.setFullPage(true);  // our margins are measured on the paper, not on what the printer can reach
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const QSizeF paper = printer.pageLayout().fullRectPixels(printer.resolution()).size();
    const bool done = PaintPages(surface, painter, paper, [&] { return printer.newPage(); });
    return painter.end() && done && printer.printerState() != QPrinter::Error;
}

bool PrintToDefaultPrinter(const EditSurface& surface, const QString& title, QString* error) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        Say(error, QCoreApplication::translate("Printing", "Nothing was printed: there is no default printer."));
        return false;
    }
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(title);
    if (PrintSurface(surface, printer)) return true;
    Say(error, QCoreApplication::translate("Printing", "The printer \"%1\" doesn't take the text.")
                   .arg(info.description().isEmpty() ? info.printerName() : info.description()));
    return false;
}

}  // namespace vellum
