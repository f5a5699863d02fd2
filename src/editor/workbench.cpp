#include "editor/workbench.h"

#include "editor/document.h"
#include "editor/portable_color.h"
#include "editor/smartcolor.h"

#include <algorithm>
#include <array>

namespace vellum {

void Workbench::Smartcolor() {
    if (Document* const document = ActiveDocument()) PaintMarkup(*this, *document);
}

void Workbench::PortableColor(QString& markup) {
    if (Document* const document = ActiveDocument()) InsertMarkup(*this, *document, markup);
}

void Workbench::Addstuff(const QString& open, const QString& close) {
    const Document* const document = ActiveDocument();
    if (!document) return;
    QString markup = close.isEmpty() ? open : open + document->Text1->SelText() + close;
    PortableColor(markup);
}

bool IsScriptCaption(const QString& caption) {
    constexpr int shortest = 4;
    static constexpr std::array<QLatin1String, 4> endings{QLatin1String(".js"), QLatin1String(".txt"),
                                                          QLatin1String(".css"), QLatin1String(".vbs")};
    return caption.size() >= shortest && std::ranges::any_of(endings, [&](QLatin1String ending) {
               return caption.endsWith(ending, Qt::CaseInsensitive);
           });
}

}  // namespace vellum
