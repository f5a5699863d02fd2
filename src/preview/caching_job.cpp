#include "preview/caching_job.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "files/paths.h"
#include "preview/caching_file.h"

namespace vellum {
namespace {

QStringList OpenCaptions(Workbench& workbench) {
    QStringList documents;
    for (const Document* const document : workbench.Documents()) documents << document->Caption();
    return documents;
}

}  // namespace

CachingJob DocumentJob(Workbench& workbench, const Document& document) {
    return {.path = CachingPath(document.Caption(), workbench.WebsiteDirectory()),
            .text = document.Text1->RawText(),
            .format = document.File().Format(),
            .documents = OpenCaptions(workbench),
            .page = document.File().Path()};
}

CachingJob WebsiteJob(Workbench& workbench, const QString& text, const TextFormat& format) {
    return {.path = JoinPath(workbench.WebsiteDirectory(), QStringLiteral("caching.htm")),
            .text = text,
            .format = format,
            .documents = OpenCaptions(workbench)};
}

}  // namespace vellum
