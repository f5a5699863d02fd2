#include "preview/visual_copy.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "preview/caching_writer.h"

namespace vellum {

QString WriteVisualCopy(Workbench& workbench, const Document& document) {
    const QString text = document.Text1->RawText();
    if (text.contains(QLatin1String("<FRAMESET"), Qt::CaseInsensitive)) {
        workbench.Ask().Message(workbench.Window(), QStringLiteral("Cannot load Frameset documents"));
        return {};
    }
    QString path = WriteCachingFile(WebsiteJob(workbench, text, document.File().Format()));
    if (path.isEmpty())
        workbench.Ask().Message(workbench.Window(),
                                QStringLiteral("Cannot save file.  It may be locked or read-only."));
    return path;
}

}  // namespace vellum
