#include "files/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

namespace vellum {

QString JoinPath(const QString& directory, const QString& name) {
    if (directory.isEmpty() || directory.endsWith('/')) return directory + name;
    return directory + '/' + name;
}

QString OwnDirectory() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString own = JoinPath(documents.isEmpty() ? QDir::homePath() : documents, "Vellumcraft");
    return QDir().mkpath(own) ? own : QDir::homePath();
}

QString DataPath(const QString& relative) {
    return DataPathFrom(QCoreApplication::applicationDirPath(), relative);
}

QString DataPathFrom(const QString& programDirectory, const QString& relative) {
    if (relative.isEmpty()) return {};
    QStringList roots{programDirectory, JoinPath(programDirectory, "../share/vellumcraft")};
    // A build directory lies a few folders inside the source tree, which is told by its build file.
    QDir above(programDirectory);
    for (int level = 0; level < 4 && above.cdUp(); ++level) {
        if (above.exists("CMakePresets.json")) roots << above.filePath("data");
    }
    for (const QString& root : roots) {
        QString path = QDir::cleanPath(JoinPath(root, relative));
        if (QFileInfo::exists(path)) return path;
    }
    return {};
}

}  // namespace vellum
