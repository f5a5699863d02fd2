// Pictures laid out in rows on one sheet, each with its name below.
#pragma once

#include <QImage>
#include <QString>

#include <vector>

namespace vellum::contact_sheet {

struct Shot {
    QString name;
    QImage picture;
};

// As many pictures to a row as fit into `width` pixels, in their order. A wider picture has a row for itself and makes
// the sheet as wide. The colours and the font are the application's.
[[nodiscard]] QImage MakeSheet(const std::vector<Shot>& shots, int width);

}  // namespace vellum::contact_sheet
