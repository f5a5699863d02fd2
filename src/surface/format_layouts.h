// Hands the formats of an edit surface to the layouts of its blocks, which paint them. A block gets those of its line
// when it is about to be painted, so that a change of all formats costs no walk over the lines.
#pragma once

#include "surface/format_store.h"
#include "values/units.h"

#include <QList>
#include <QTextBlock>
#include <QTextLayout>

class QPlainTextEdit;

namespace vellum {

// Lines of this many characters and more cost too much to be laid out and painted as others are.
inline constexpr int overlongLine = 10000;

class FormatLayouts {
public:
    // Both outlive this.
    FormatLayouts(QPlainTextEdit& edit, const FormatStore& formats) : edit_(edit), formats_(formats) {}

    // What characters without a colour of their own are painted with.
    void SetForeColor(ColorNumber color);
    [[nodiscard]] ColorNumber ForeColor() const { return foreColor_; }

    // The formats of some lines, or of all, have changed. Only the second asks for a painting.
    void MarkOutdated(int firstLine, int lastLine);
    void MarkAllOutdated();

    // Gives a block the formats of its line, if it has outdated ones.
    void Update(const QTextBlock& block);
    // The same for a block and those after it that lie in the `height` pixels from its top, right before they are
    // painted.
    void UpdateVisible(QTextBlock block, qreal height);
    // The same for the overlong lines among some, at once: so they aren't laid out twice, here and when painted.
    void UpdateOverlong(int firstLine, int lastLine);

private:
    void HandFormats(QTextBlock block);
    [[nodiscard]] QList<QTextLayout::FormatRange> RangesOf(const QTextBlock& block) const;

    QPlainTextEdit& edit_;
    const FormatStore& formats_;
    ColorNumber foreColor_ = 0;
    int version_ = 1;  // blocks whose user state differs have layouts with outdated formats
};

}  // namespace vellum
