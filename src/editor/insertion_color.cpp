#include "editor/insertion_color.h"

#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "surface/edit_surface.h"
#include "values/number_rules.h"

#include <algorithm>
#include <array>

namespace vellum {
namespace {

bool BoldServerBlocks(Workbench& bench) {
    return ReadNumberSetting(bench.Settings(), keys::aspBold) == 1;
}

bool IsTagColor(const Workbench& bench, std::optional<ColorNumber> color) {
    const std::array values{bench.TablesColor, bench.FramesColor, bench.LinksColor, bench.OtherColor};
    return color && std::ranges::any_of(values, [&](double value) { return *color == ColorOfValue(value); });
}

// A format that was set for the next character outlasts a change of colour before the caret, so it is set anew. The
// caret stands behind the changed characters from then on, with nothing selected.
void TakeFormatBefore(EditSurface& surface, int offset) {
    if (surface.SelLength() > 0) surface.SetSelStart(offset);
    const CharFormat format = surface.FormatAt(offset - 1);
    surface.SetSelColor(format.color.value_or(surface.ForeColor()));
    surface.SetSelBold(format.bold);
}

}  // namespace

ColorNumber ColorOfValue(double value) {
    constexpr double white = 0xFFFFFF;
    return value > 0 ? static_cast<ColorNumber>(std::min(value, white)) : 0;
}

ColorNumber PlainColor(Workbench& bench) {
    return ColorOfValue(ReadNumberSetting(bench.Settings(), keys::foreColor));
}

bool ColorCodingOff(Workbench& bench) {
    return TruthValue(ReadSetting(bench.Settings(), keys::colorOnOff));
}

void TakeTagColor(const Workbench& bench, EditSurface& surface, const PosInfo& place) {
    if (IsTagColor(bench, surface.SelColor())) return;
    surface.SetSelColor(surface.FormatAt(place.start - 1).color.value_or(surface.ForeColor()));
}

void ApplyPlaceColor(Workbench& bench, EditSurface& surface, const PosInfo& place) {
    const auto differs = [&](ColorNumber color, bool bold) {
        return surface.SelColor() != color || surface.SelBold() != bold;
    };
    switch (place.kind) {
        case PlaceKind::Plain:
            if (const ColorNumber plain = PlainColor(bench); differs(plain, false)) {
                surface.SetSelColor(plain);
                surface.SetSelBold(false);
            }
            return;
        case PlaceKind::Tag:
            TakeTagColor(bench, surface, place);
            if (surface.SelBold() == true) surface.SetSelBold(false);
            return;
        case PlaceKind::Comment:
        case PlaceKind::Region:
            if (const ColorNumber comments = ColorOfValue(bench.CommentsColor); differs(comments, false)) {
                if (!ColorCodingOff(bench)) surface.SetSelColor(comments);
                surface.SetSelBold(false);
            }
            return;
        case PlaceKind::Server:
            if (const ColorNumber server = ColorOfValue(bench.AspColor); differs(server, true)) {
                if (!ColorCodingOff(bench)) surface.SetSelColor(server);
                if (BoldServerBlocks(bench)) surface.SetSelBold(true);
            }
            return;
    }
}

void ColorBeforeDash(const Workbench& bench, EditSurface& surface, const PosInfo& place) {
    constexpr QLatin1String opener("<!-");
    const int length = static_cast<int>(opener.size());
    const int offset = surface.SelStart();
    if (offset < length || place.kind == PlaceKind::Region || place.kind == PlaceKind::Server) return;
    if (surface.Mid(offset - length, length) != opener) return;
    surface.SetColor(offset - length, length, ColorOfValue(bench.CommentsColor));
    TakeFormatBefore(surface, offset);
}

void ColorBeforePercent(Workbench& bench, EditSurface& surface) {
    const int offset = surface.SelStart();
    if (offset < 1 || surface.Mid(offset - 1, 1) != QLatin1String("<")) return;
    if (!ColorCodingOff(bench)) surface.SetColor(offset - 1, 1, ColorOfValue(bench.AspColor));
    if (BoldServerBlocks(bench)) surface.SetBold(offset - 1, 1, true);
    TakeFormatBefore(surface, offset);
}

void ColorForOpening(Workbench& bench, EditSurface& surface, const PosInfo& place) {
    if (place.kind != PlaceKind::Plain) return;
    if (!ColorCodingOff(bench)) surface.SetSelColor(ColorOfValue(bench.OtherColor));
    surface.SetSelBold(false);
}

}  // namespace vellum
