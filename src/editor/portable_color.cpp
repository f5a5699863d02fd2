// The one way of finished text into a document.
#include "editor/document.h"
#include "editor/insertion_color.h"
#include "editor/line_indent.h"
#include "editor/list_tag.h"
#include "editor/place.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"

namespace vellum {
namespace {

// A surface has CR LF at every line end, while the clipboard and files bring others: with its own, the length of the
// text is what goes in, and each line gets its indentation.
QString WithSurfaceLineEnds(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', u'\n');
    return text.replace(u'\n', QLatin1String("\r\n"));
}

void WritePlain(Workbench& bench, EditSurface& surface, const QString& markup) {
    bench.ColorSpanLength = static_cast<std::int32_t>(markup.size());
    bench.ColorSpanStart = surface.SelStart();
    surface.SetSelColor(PlainColor(bench));
    surface.SetSelBold(false);
    surface.SetSelText(markup);
    bench.Smartcolor();
}

void WriteIn(EditSurface& surface, const QString& markup) {
    surface.SetSelText(markup);
    surface.setFocus();
}

}  // namespace

void Workbench::PortableColor(QString& markup) {
    Document* const document = ActiveDocument();
    if (!document) return;
    EditSurface& surface = *document->Text1;
    document->ProcessUndo();
    document->ResetRedo();
    document->SetSaver(false);

    markup = WithSurfaceLineEnds(markup);
    if (ReadNumberSetting(Settings(), keys::autoTab) == 1) {
        markup.replace(QLatin1String("\r\n"), "\r\n" + QString(TabsBeforeCaret(surface), u'\t'));
    }

    const PosInfo place = PosInfoAtCaret(surface);
    document->usingKeys = false;
    SetListTag(document->cmbattr, {});
    switch (place.kind) {
        case PlaceKind::Plain:
            return WritePlain(*this, surface, markup);
        case PlaceKind::Tag:
            TakeTagColor(*this, surface, place);
            return WriteIn(surface, markup);
        case PlaceKind::Comment:
        case PlaceKind::Region:
            if (!ColorCodingOff(*this)) surface.SetSelColor(ColorOfValue(CommentsColor));
            return WriteIn(surface, markup);
        case PlaceKind::Server:
            if (!ColorCodingOff(*this)) surface.SetSelColor(ColorOfValue(AspColor));
            return WriteIn(surface, markup);
    }
}

void Workbench::Addstuff(const QString& open, const QString& close) {
    const Document* const document = ActiveDocument();
    if (!document) return;
    QString markup = close.isEmpty() ? open : open + document->Text1->SelText() + close;
    PortableColor(markup);
}

}  // namespace vellum
