// The pages that go elsewhere than to their own document's preview: to the external browsers, and the generated ones.
#include "editor/document.h"
#include "editor/workbench.h"
#include "preview/caching_writer.h"
#include "preview/preview_pipeline.h"
#include "settings/settings_keys.h"
#include "system/programs.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <array>

namespace vellum {
namespace {

const QString noBrowser = QStringLiteral("Unable to start browser.");

bool IsNone(const QString& command) {
    return command.isEmpty() || command == QLatin1String("None");
}

// The generated page on disk; empty when it can be put nowhere. A website directory that takes no files doesn't keep a
// person from reading the manual.
QString WritePage(Workbench& workbench, const QString& html) {
    CachingJob job = WebsiteJob(workbench, html, {});
    if (QString path = WriteCachingFile(job); !path.isEmpty()) return path;
    static const QTemporaryDir substitute;
    job.path = substitute.filePath(QStringLiteral("caching.htm"));
    return WriteCachingFile(job);
}

bool OpenInDefault(const QString& path) {
    return OpenWithDefault(QFileInfo(path).absoluteFilePath(), QStringLiteral("/"));
}

void ShowOutside(Workbench& workbench, const QString& path) {
    const QString command = ReadSetting(workbench.Settings(), keys::browser1);
    if (IsNone(command)) {
        OpenInDefault(path);
        return;
    }
    if (!RunCommand(command, QFileInfo(path).absoluteFilePath()))
        workbench.Ask().Message(workbench.Window(), QStringLiteral("Unable to load browser specified in Settings."));
}

}  // namespace

void LoadPage(Workbench& workbench, const QString& html) {
    if (!workbench.UsePreview()) {
        const QString path = WritePage(workbench, html);
        if (!path.isEmpty()) ShowOutside(workbench, path);
        return;
    }
    if (workbench.OpenDocCount() == QLatin1String("0")) workbench.NewForm();
    if (auto* const host = dynamic_cast<PreviewHost*>(workbench.ActiveDocument()))
        ShowPageIn(workbench, host->Pipeline(), html);
}

void ShowPageIn(Workbench& workbench, PreviewPipeline& pipeline, const QString& html) {
    const QString path = WritePage(workbench, html);
    if (!path.isEmpty()) pipeline.ShowFile(path);
}

void OpenInExternalBrowser(Workbench& workbench, int index) {
    const Document* const document = workbench.ActiveDocument();
    if (document == nullptr || document->Text1->Length() == 0)
        return workbench.Ask().Message(workbench.Window(), QStringLiteral("There is nothing to show!"));
    const std::array keysByIndex{&keys::browser1, &keys::browser2, &keys::browser3};
    const QString command = ReadSetting(workbench.Settings(), *keysByIndex.at(static_cast<std::size_t>(index)));
    const QString path = WriteCachingFile(DocumentJob(workbench, *document));
    if (path.isEmpty()) return workbench.Ask().Message(workbench.Window(), noBrowser);
    if (IsNone(command)) {
        workbench.Ask().Message(
            workbench.Window(),
            QStringLiteral("No specific browser specified in settings dialog box. Using default browser."));
        if (!OpenInDefault(path)) workbench.Ask().Message(workbench.Window(), noBrowser);
    } else if (!RunCommand(command, QFileInfo(path).absoluteFilePath())) {
        workbench.Ask().Message(workbench.Window(), noBrowser);
    }
}

}  // namespace vellum
