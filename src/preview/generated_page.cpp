#include "preview/generated_page.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "preview/caching_writer.h"
#include "preview/external_browser.h"
#include "preview/preview_pipeline.h"

#include <QTemporaryDir>

namespace vellum {
namespace {

// The path of the page on disk; empty when it can't be written anywhere. A person can read the manual even when the
// website directory takes no files.
QString WritePage(Workbench& workbench, const QString& html) {
    CachingJob job = WebsiteJob(workbench, html, {});
    if (QString path = WriteCachingFile(job); !path.isEmpty()) return path;
    static const QTemporaryDir substitute;
    job.path = substitute.filePath(QStringLiteral("caching.htm"));
    return WriteCachingFile(job);
}

}  // namespace

void LoadPage(Workbench& workbench, const QString& html) {
    if (!workbench.UsePreview()) {
        const QString path = WritePage(workbench, html);
        if (!path.isEmpty()) ShowInFirstBrowser(workbench, path);
        return;
    }
    if (workbench.OpenDocCount() == 0) workbench.NewForm();
    if (auto* const host = dynamic_cast<PreviewHost*>(workbench.ActiveDocument()))
        ShowPageIn(workbench, host->Pipeline(), html);
}

void ShowPageIn(Workbench& workbench, PreviewPipeline& pipeline, const QString& html) {
    const QString path = WritePage(workbench, html);
    if (!path.isEmpty()) pipeline.ShowFile(path);
}

}  // namespace vellum
