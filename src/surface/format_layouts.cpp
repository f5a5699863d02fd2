#include "surface/format_layouts.h"

#include <QAbstractTextDocumentLayout>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextDocument>

namespace vellum {
namespace {

constexpr int outdated = 0;  // a user state that no version of the formats has

}  // namespace

void FormatLayouts::SetForeColor(ColorNumber color) {
    foreColor_ = color;
    MarkAllOutdated();
}

void FormatLayouts::MarkOutdated(int firstLine, int lastLine) {
    QTextBlock block = edit_.document()->findBlockByNumber(firstLine);
    for (int line = firstLine; line <= lastLine && block.isValid(); ++line, block = block.next()) {
        block.setUserState(outdated);
    }
}

void FormatLayouts::MarkAllOutdated() {
    ++version_;
    edit_.viewport()->update();
}

void FormatLayouts::Update(const QTextBlock& block) {
    if (block.userState() != version_) HandFormats(block);
}

void FormatLayouts::UpdateVisible(QTextBlock block, qreal height) {
    QAbstractTextDocumentLayout& layout = *edit_.document()->documentLayout();
    bool linesChanged = false;
    {
        // The blocks are about to be painted: if each asked for that once more, all would be painted twice.
        const QSignalBlocker blocker(layout);
        for (qreal top = 0; block.isValid() && top <= height; block = block.next()) {
            const int lines = block.lineCount();
            Update(block);
            linesChanged |= block.lineCount() != lines;
            top += layout.blockBoundingRect(block).height();
        }
    }
    if (!linesChanged) return;
    QMetaObject::invokeMethod(
        &edit_,
        [&edit = edit_, &layout] {
            emit layout.documentSizeChanged(layout.documentSize());
            edit.viewport()->update();
        },
        Qt::QueuedConnection);
}

void FormatLayouts::UpdateOverlong(int firstLine, int lastLine) {
    QTextBlock block = edit_.document()->findBlockByNumber(firstLine);
    for (int line = firstLine; line <= lastLine && block.isValid(); ++line, block = block.next()) {
        if (block.length() > overlongLine) HandFormats(block);
    }
}

void FormatLayouts::HandFormats(QTextBlock block) {
    QTextLayout* const layout = block.layout();
    QList<QTextLayout::FormatRange> ranges = RangesOf(block);
    const int preeditLength = static_cast<int>(layout->preeditAreaText().size());
    if (preeditLength > 0) {
        // What an input method is composing stands in the layout only: our ranges make room for it, its own stay.
        const int preeditStart = layout->preeditAreaPosition();
        const int preeditEnd = preeditStart + preeditLength;
        for (QTextLayout::FormatRange& range : ranges) {
            if (range.start >= preeditStart) {
                range.start += preeditLength;
            } else if (range.start + range.length > preeditStart) {
                range.length += preeditLength;
            }
        }
        for (const QTextLayout::FormatRange& range : layout->formats()) {
            if (range.start >= preeditStart && range.start + range.length <= preeditEnd) ranges.push_back(range);
        }
    }
    block.setUserState(version_);
    // The toolkit forgets a layout's glyphs to save memory, and shapes the whole line anew for each blink of the caret.
    layout->setCacheEnabled(block.length() > overlongLine);
    if (ranges == layout->formats()) return;
    layout->setFormats(ranges);
    edit_.document()->markContentsDirty(block.position(), block.length());
}

QList<QTextLayout::FormatRange> FormatLayouts::RangesOf(const QTextBlock& block) const {
    QList<QTextLayout::FormatRange> ranges;
    const bool overlong = block.length() > overlongLine;
    VisitRow(formats_.Runs(block.blockNumber()), 0, block.length() - 1, formats_.Base(), [&](const FormatRun& run) {
        const ColorNumber color = run.format.color.value_or(foreColor_);
        if (color == foreColor_ && !run.format.bold && !overlong) return true;
        QTextCharFormat look;
        // Without ligatures and the like the toolkit takes half the time.
        if (overlong) look.setFontStyleStrategy(QFont::PreferNoShaping);
        if (color != foreColor_) look.setForeground(ColorFromNumber(color));
        if (run.format.bold) look.setFontWeight(QFont::Bold);
        ranges.push_back({run.range.offset, run.range.length, look});
        return true;
    });
    return ranges;
}

}  // namespace vellum
