#include "tools/frames/frame_layout.h"

#include "tools/framework/attributes.h"
#include "values/number_rules.h"

#include <QStringList>

namespace vellum {
namespace {

constexpr QLatin1String lineEnd("\r\n");
constexpr QLatin1String framesetEnd("</frameset>");

QString EvenShare(int parts) {
    return QString::number(100 / parts) + u'%';
}

QString FramesetStart(bool columns, const QStringList& sizes) {
    return "<frameset" + Attribute(columns ? "cols" : "rows", sizes.join(u',')) + ">" + lineEnd;
}

}  // namespace

FrameLayout::FrameLayout(FrameDirection direction) : columnsFirst_(direction == FrameDirection::ColumnsFirst) {
    const QString name = columnsFirst_ ? "Col%1Row%2" : "Row%1Col%2";
    for (int line = 0; line < mostFrames; ++line) {
        for (int frame = 0; frame < mostFrames; ++frame) FrameNames[{frame, line}] = name.arg(line + 1).arg(frame + 1);
    }
}

bool FrameLayout::SetLineCount(const QString& text) {
    const double lines = LeadingNumber(text);
    if (lines < 1 || lines > mostFrames) return false;
    lineCount_ = ToInt16(lines - 1).value_or(0);
    for (int line = 0; line <= lineCount_; ++line) {
        for (int frame = 0; frame < mostFrames; ++frame) {
            OuterSizes()[{frame, line}] = EvenShare(lineCount_ + 1);
            InnerSizes()[{frame, line}] = EvenShare(1);
        }
    }
    return true;
}

bool FrameLayout::AddFrame(int line) {
    return ChangeFrameCount(line, FrameCount(line) + 1);
}

bool FrameLayout::DropFrame(int line) {
    return ChangeFrameCount(line, FrameCount(line) - 1);
}

bool FrameLayout::ChangeFrameCount(int line, int count) {
    if (count < 1 || count > mostFrames) return false;
    counts_.at(static_cast<std::size_t>(line)) = count;
    for (int frame = 0; frame < count; ++frame) InnerSizes()[{frame, line}] = EvenShare(count);
    return true;
}

void FrameLayout::SetFrameWidth(FrameCell cell, const QString& text) {
    SetSize(FrameWidths, cell, text);
}

void FrameLayout::SetFrameHeight(FrameCell cell, const QString& text) {
    SetSize(FrameHeights, cell, text);
}

void FrameLayout::SetSize(Sizes& sizes, FrameCell cell, const QString& text) {
    if (&sizes == &InnerSizes()) {
        sizes[cell] = text;
        return;
    }
    for (int frame = 0; frame < FrameCount(cell.line); ++frame) sizes[{frame, cell.line}] = text;
}

QString FrameLayout::Markup() const {
    QString markup;
    if (lineCount_ != 0) {
        QStringList sizes;
        for (int line = 0; line <= lineCount_; ++line) sizes << OuterSizes()[{0, line}];
        markup += FramesetStart(columnsFirst_, sizes);
    }
    for (int line = 0; line <= lineCount_; ++line) markup += LineMarkup(line);
    if (lineCount_ != 0) markup += framesetEnd;
    return markup;
}

QString FrameLayout::LineMarkup(int line) const {
    const int count = FrameCount(line);
    QStringList sizes;
    QString frames;
    for (int frame = 0; frame < count; ++frame) {
        sizes << InnerSizes()[{frame, line}];
        frames += FrameTag({frame, line}) + lineEnd;
    }
    if (count == 1) return frames;
    return FramesetStart(!columnsFirst_, sizes) + frames + framesetEnd + lineEnd;
}

QString FrameLayout::FrameTag(FrameCell cell) const {
    QString tag = "<frame" + Attribute("src", FrameSources[cell]);
    tag += AttributeIfAny("name", FrameNames[cell]);
    tag += Attribute("frameborder", QString::number(FrameBorder[cell]));
    tag += Attribute("scrolling", FrameScroll[cell] == 0 ? "no" : "yes");
    if (FrameResize[cell] == 0) tag += " noresize=\"noresize\"";
    return tag + ">";
}

}  // namespace vellum
