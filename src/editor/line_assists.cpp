#include "editor/line_assists.h"

#include "editor/line_indent.h"
#include "surface/edit_surface.h"

#include <algorithm>

namespace vellum {
namespace {

const QString lineEnd = QStringLiteral("\r\n");

void Select(EditSurface& surface, int begin, int end) {
    surface.SetSelStart(begin);
    surface.SetSelLength(std::max(end - begin, 0));
}

// Replaces `text` by `with` from the caret on, up to `end`, which moves along. At least the first is replaced.
void ReplaceUpTo(EditSurface& surface, int& end, const QString& text, const QString& with) {
    int hit = surface.Find(text, surface.SelStart());
    if (hit < 0) return;
    do {
        surface.RewriteSelText(with);
        end += static_cast<int>(with.size() - text.size());
        hit = surface.Find(text, hit + 1);
    } while (hit >= 0 && hit < end);
}

int StartOfLineAt(const EditSurface& surface, int offset) {
    return surface.LineStart(surface.GetLineFromChar(offset));
}

}  // namespace

void IndentBlock(EditSurface& surface) {
    int end = surface.SelStart() + surface.SelLength();
    const int begin = StartOfLineAt(surface, surface.SelStart());
    surface.SetSelStart(begin);
    surface.SetSelText(QStringLiteral("\t"));
    ++end;
    ReplaceUpTo(surface, end, lineEnd, lineEnd + u'\t');
    Select(surface, begin, end);
}

void UnindentBlock(EditSurface& surface) {
    int end = surface.SelStart() + surface.SelLength();
    const bool hasMore = surface.SelText().contains(lineEnd + u'\t');
    const int begin = StartOfLineAt(surface, surface.SelStart());
    surface.SetSelStart(begin);
    surface.SetSelLength(1);
    if (surface.SelText() == QLatin1String("\t")) {
        surface.SetSelText({});
        --end;
    }
    surface.SetSelStart(begin);
    if (hasMore) ReplaceUpTo(surface, end, lineEnd + u'\t', lineEnd);
    Select(surface, begin, end);
}

void BreakLine(EditSurface& surface) {
    surface.SetSelText(lineEnd + QString(TabsBeforeCaret(surface), u'\t'));
}

}  // namespace vellum
