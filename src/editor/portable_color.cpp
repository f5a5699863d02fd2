#include "editor/portable_color.h"

#include "editor/document.h"
#include "editor/insertion_color.h"
#include "editor/line_indent.h"
#include "editor/place.h"
#include "editor/tag_popup.h"
#include "editor/workbench.h"
#include "surface/document_text.h"

namespace vellum {
namespace {

// A surface has CR LF at every line end, while the clipboard and files bring others: with its own, the length of the
// text is what goes in, and each line gets its indentation.
QString WithSurfaceLineEnds(QString text) {
    return WithCrLf(WithLf(std::move(text)));
}

void WritePlain(Workbench& bench, EditSurface& surface, const QString& markup) {
    bench.ColorSpanLength = static_cast<std::int32_t>(markup.size());
    bench.ColorSpanStart = surface.SelStart();
    surface.SetSelColor(bench.Options()->foreColor);
    surface.SetSelBold(false);
    surface.SetSelText(markup);
    bench.Smartcolor();
}

void WriteIn(EditSurface& surface, const QString& markup) {
    surface.SetSelText(markup);
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
    if (options.autoTab) markup.replace(QLatin1String("\r\n"), "\r\n" + QString(TabsBeforeCaret(surface), u'\t'));

    const PosInfo place = PosInfoAtCaret(surface);
    document.usingKeys = false;
    document.picAttr->ForgetAttributes();
    switch (place.kind) {
        case PlaceKind::Plain:
            return WritePlain(bench, surface, markup);
        case PlaceKind::Tag:
            TakeTagColor(options, surface, place);
            return WriteIn(surface, markup);
        case PlaceKind::Comment:
        case PlaceKind::Region:
            if (!options.colorCodingOff) surface.SetSelColor(options.CommentsColor);
            return WriteIn(surface, markup);
        case PlaceKind::Server:
            if (!options.colorCodingOff) surface.SetSelColor(options.AspColor);
            return WriteIn(surface, markup);
    }
}

}  // namespace vellum
