// From layouts in twips to widgets in pixels.
#pragma once

#include "shell/layout.h"
#include "values/units.h"

#include <QWidget>

#include <algorithm>

namespace vellum {

[[nodiscard]] inline QRect PixelRect(const TwipRect& place) {
    return {PixelsFromTwips(place.left), PixelsFromTwips(place.top), std::max(PixelsFromTwips(place.width), 0),
            std::max(PixelsFromTwips(place.height), 0)};
}

inline void SetTwipGeometry(QWidget* widget, const TwipRect& place) {
    widget->setGeometry(PixelRect(place));
}

}  // namespace vellum
