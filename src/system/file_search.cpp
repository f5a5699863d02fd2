#include "system/file_search.h"

#include "system/programs.h"

#include <QFileInfo>
#include <QProcess>

namespace vellum {

QStringList FileSearchCommand(const QString& folder) {
    const QString program = FindProgram(QStringLiteral("findfile.exe"));
    if (program.isEmpty()) return {};
    const QString name = QFileInfo(program).fileName();
    if (name == QLatin1String("kfind")) return {program, folder};
    if (name.startsWith(QLatin1String("pcmanfm"))) return {program, QStringLiteral("--find-files"), folder};
    return {program, QStringLiteral("--path=") + folder};
}

bool StartFileSearch(const QString& folder) {
    QStringList command = FileSearchCommand(folder);
    if (!command.isEmpty()) {
        const QString program = command.takeFirst();
        if (QProcess::startDetached(program, command)) return true;
    }
    return OpenWithDefault(folder);
}

}  // namespace vellum
