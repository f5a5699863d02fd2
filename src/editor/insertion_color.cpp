#include "editor/insertion_color.h"

#include "editor/editor_options.h"
#include "surface/edit_surface.h"

#include <algorithm>
#include <array>

namespace vellum {
namespace {

bool IsTagColor(const EditorOptions& options, std::optional<ColorNumber> color) {
    const std::array tagColors{options.TablesColor, options.FramesColor, options.LinksColor, options.OtherColor};
    return color && std::ranges::find(tagColors, *color) != tagColors.end();
}

// A format that was set for the next character outlasts a change of colour before the caret, so it is set anew. The
// caret stands after the changed characters from then on, with nothing selected.
void TakeFormatBefore(EditSurface& surface, int offset) {
    if (surface.SelLength() > 0) surface.SetSelStart(offset);
    const CharFormat format = surface.FormatAt(offset - 1);
    surface.SetSelColor(format.color.value_or(surface.ForeColor()));
    surface.SetSelBold(format.bold);
}

}  // namespace

void TakeTagColor(const EditorOptions& options, EditSurface& surface, const PosInfo& place) {
    if (IsTagColor(options, surface.SelColor())) return;
    surface.SetSelColor(surface.FormatAt(place.start - 1).color.value_or(surface.ForeColor()));
}

void ApplyPlaceColor(const EditorOptions& options, EditSurface& surface, const PosInfo& place) {
    const auto differs = [&](ColorNumber color, bool bold) {
        return surface.SelColor() != color || surface.SelBold() != bold;
    };
    switch (place.kind) {
        case PlaceKind::Plain:
            if (const ColorNumber plain = options.foreColor; differs(plain, false)) {
                surface.SetSelColor(plain);
                surface.SetSelBold(false);
            }
            return;
        case PlaceKind::Tag:
            TakeTagColor(options, surface, place);
            if (surface.SelBold() == true) surface.SetSelBold(false);
            return;
        case PlaceKind::Comment:
        case PlaceKind::Region:
            if (const ColorNumber comments = options.CommentsColor; differs(comments, false)) {
                if (!options.colorCodingOff) surface.SetSelColor(comments);
                surface.SetSelBold(false);
            }
            return;
        case PlaceKind::Server:
            if (const ColorNumber server = options.AspColor; differs(server, true)) {
                if (!options.colorCodingOff) surface.SetSelColor(server);
                if (options.aspBold) surface.SetSelBold(true);
            }
            return;
    }
}

void ColorBeforeDash(const EditorOptions& options, EditSurface& surface, const PosInfo& place) {
    constexpr QLatin1String opener("<!-");
    const int length = static_cast<int>(opener.size());
    const int offset = surface.SelStart();
    if (offset < length || place.kind == PlaceKind::Region || place.kind == PlaceKind::Server) return;
    if (surface.Mid(offset - length, length) != opener) return;
    surface.SetFormat({offset - length, length}, {.color = options.CommentsColor, .bold = {}});
    TakeFormatBefore(surface, offset);
}

void ColorBeforePercent(const EditorOptions& options, EditSurface& surface) {
    const int offset = surface.SelStart();
    if (offset < 1 || surface.Mid(offset - 1, 1) != QLatin1String("<")) return;
    if (!options.colorCodingOff) surface.SetFormat({offset - 1, 1}, {.color = options.AspColor, .bold = {}});
    if (options.aspBold) surface.SetFormat({offset - 1, 1}, {.color = {}, .bold = true});
    TakeFormatBefore(surface, offset);
}

void ColorForOpening(const EditorOptions& options, EditSurface& surface, const PosInfo& place) {
    if (place.kind != PlaceKind::Plain) return;
    if (!options.colorCodingOff) surface.SetSelColor(options.OtherColor);
    surface.SetSelBold(false);
}

}  // namespace vellum
