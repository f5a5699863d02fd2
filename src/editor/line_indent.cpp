#include "editor/line_indent.h"

#include "surface/edit_surface.h"

#include <QTextBlock>
#include <QTextDocument>

namespace vellum {

int TabsBeforeCaret(const EditSurface& surface) {
    const QTextDocument& document = *surface.document();
    const int caret = surface.textCursor().selectionStart();
    const int lineStart = document.findBlock(caret).position();
    int position = lineStart;
    while (position < caret && document.characterAt(position) == u'\t') ++position;
    return position - lineStart;
}

}  // namespace vellum
