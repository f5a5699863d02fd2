// Printing of a text to the default printer.
#pragma once

#include <QSizeF>
#include <QString>

#include <functional>

class QPainter;
class QPrinter;

namespace vellum {

class EditSurface;

inline constexpr int printMarginTwips = 1440;  // one inch on all four sides

// Formats the surface's text page by page onto `printer`, in its font and colours, with the margins above. False when
// the printer can't be written to.
bool PrintSurface(const EditSurface& surface, QPrinter& printer);

// The same with a painter of any device, whose origin is the paper's upper left corner. `paper` is measured in the
// device's dots. `newPage` goes on to the next page; printing ends with false when it can't.
bool PaintPages(const EditSurface& surface, QPainter& painter, const QSizeF& paper,
                const std::function<bool()>& newPage);

// The same on the default printer and without a dialog. False, with a sentence in *error, when there is no printer or
// it refuses.
bool PrintToDefaultPrinter(const EditSurface& surface, const QString& title, QString* error);

}  // namespace vellum
