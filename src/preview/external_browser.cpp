#include "preview/external_browser.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "preview/caching_writer.h"
#include "settings/settings_keys.h"
#include "system/programs.h"

#include <QFileInfo>

#include <array>

namespace vellum {
namespace {

const QString noBrowser = QStringLiteral("Unable to start browser.");

bool IsNone(const QString& command) {
    return command.isEmpty() || command == QLatin1String("None");
}

bool OpenInDefault(const QString& path) {
    return OpenWithDefault(QFileInfo(path).absoluteFilePath(), QStringLiteral("/"));
}

}  // namespace

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

void ShowInFirstBrowser(Workbench& workbench, const QString& path) {
    const QString command = ReadSetting(workbench.Settings(), keys::browser1);
    if (IsNone(command)) {
        OpenInDefault(path);
    } else if (!RunCommand(command, QFileInfo(path).absoluteFilePath())) {
        workbench.Ask().Message(workbench.Window(), QStringLiteral("Unable to load browser specified in Settings."));
    }
}

}  // namespace vellum
