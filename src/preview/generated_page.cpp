#include "preview/generated_page.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "preview/caching_writer.h"
#include "preview/external_browser.h"
#include "preview/preview_pipeline.h"

#include <QTemporaryDir>

namespace vellum {
namespace {

// A person can read the manual even when the website directory takes no files.
CachingJob PageJob(Workbench& workbench, const QString& html) {
    static const QTemporaryDir folder;
    CachingJob job = WebsiteJob(workbench, html, {});
    job.substitute = folder.filePath(QStringLiteral("caching.htm"));
    return job;
}

}  // namespace

void LoadPage(Workbench& workbench, const QString& html) {
    if (!workbench.UsePreview()) {
        const QString path = WriteCachingFile(PageJob(workbench, html));
        if (!path.isEmpty()) ShowInFirstBrowser(workbench, path);
        return;
    }
    if (workbench.OpenDocCount() == 0) workbench.NewForm();
    if (auto* const host = dynamic_cast<PreviewHost*>(workbench.ActiveDocument()))
        ShowPageIn(workbench, host->Pipeline(), html);
}

void ShowPageIn(Workbench& workbench, PreviewPipeline& pipeline, const QString& html) {
    pipeline.ShowLater(WriteCachingFileLater(PageJob(workbench, html)));
}

}  // namespace vellum
