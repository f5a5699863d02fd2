// Arranges the document windows of the multi-document area.
#pragma once

#include <QList>
#include <QRect>

class QMdiArea;

namespace vellum {

enum class Arrangement { Cascade, TileHorizontally, TileVertically, ArrangeIcons };

// Where `count` windows stand in `area`: one below the other, each over the full width; or side by side, each over the
// full height. They cover the area without gaps.
[[nodiscard]] QList<QRect> TileRects(const QRect& area, int count, Arrangement arrangement);

void Arrange(QMdiArea& area, Arrangement arrangement);

}  // namespace vellum
