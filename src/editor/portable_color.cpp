#include "editor/portable_color.h"

#include "editor/document.h"
#include "editor/insertion_color.h"
#include "editor/line_indent.h"
#include "editor/place.h"
#include "editor/tag_popup.h"
#include "editor/workbench.h"
#include "surface/document_text.h"

#include <optional>

namespace vellum {
namespace {

// A surface has CR LF at every line end, while the clipboard and files bring others: with its own, the length of the
// text is what goes in, and each line gets its indentation.
QString WithSurfaceLineEnds(QString text) {
    return WithCrLf(WithLf(std::move(text)));
}

// How many line ends stand in the markup before the selection, which it puts tags around; empty when it doesn't hold
// the selection.
std::optional<int> LineEndsBefore(const QString& selection, const QString& markup) {
    const qsizetype lineEnds = selection.count(u'\n');
    if (lineEnds == 0 || lineEnds * 2 == selection.size()) return std::nullopt;
    const qsizetype offset = markup.indexOf(selection);
    if (offset < 0) return std::nullopt;
    return static_cast<int>(QStringView(markup).first(offset).count(u'\n'));
}

// What stays of the selection keeps the spelling of its line ends.
void ReplaceSelection(EditSurface& surface, const QString& markup, std::optional<int> firstLineEnd) {
    if (firstLineEnd) {
        surface.RewriteSelText(markup, *firstLineEnd);
    } else {
        surface.SetSelText(markup);
    }
}

void WritePlain(Workbench& bench, EditSurface& surface, const QString& markup, std::optional<int> firstLineEnd) {
    bench.ColorSpanLength = static_cast<std::int32_t>(markup.size());
    bench.ColorSpanStart = surface.SelStart();
    surface.SetSelColor(bench.Options()->foreColor);
    surface.SetSelBold(false);
    ReplaceSelection(surface, markup, firstLineEnd);
    bench.Smartcolor();
}

void WriteIn(EditSurface& surface, const QString& markup, std::optional<int> firstLineEnd) {
    ReplaceSelection(surface, markup, firstLineEnd);
    surface.setFocus();
}

}  // namespace

void InsertMarkup(Workbench& bench, Document& document, QString& markup) {
    EditSurface& surface = *document.Text1;
    const EditorOptions& options = bench.Options().Now();
    document.ProcessUndo();
    document.ResetRedo();
    document.SetSaver(false);

    markup = WithSurfaceLineEnds(markup);
    const std::optional<int> firstLineEnd = LineEndsBefore(surface.SelText(), markup);
    if (options.autoTab) markup.replace(QLatin1String("\r\n"), "\r\n" + QString(TabsBeforeCaret(surface), u'\t'));

    const PosInfo place = PosInfoAtCaret(surface);
    document.usingKeys = false;
    document.picAttr->ForgetAttributes();
    switch (place.kind) {
        case PlaceKind::Plain:
            return WritePlain(bench, surface, markup, firstLineEnd);
        case PlaceKind::Tag:
            TakeTagColor(options, surface, place);
            return WriteIn(surface, markup, firstLineEnd);
        case PlaceKind::Comment:
        case PlaceKind::Region:
            if (!options.colorCodingOff) surface.SetSelColor(options.CommentsColor);
            return WriteIn(surface, markup, firstLineEnd);
        case PlaceKind::Server:
            if (!options.colorCodingOff) surface.SetSelColor(options.AspColor);
            return WriteIn(surface, markup, firstLineEnd);
    }
}

}  // namespace vellum
