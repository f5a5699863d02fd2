#include "widgets/icons.h"

#include <QFile>
#include <QHash>

// A static library's resources are dropped by the linker unless they are asked for, and the macro that asks can't stand
// inside a namespace.
static void LoadDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace vellum {
namespace {

// Only meanings that the icon naming standard has; the rest would get some theme's guess.
const QHash<QString, QString>& StandardNames() {
    static const QHash<QString, QString> names{
        {"new", "document-new"},         {"open", "document-open"},   {"save", "document-save"},
        {"save-as", "document-save-as"}, {"print", "document-print"}, {"folder", "folder"},
        {"find", "edit-find"},           {"undo", "edit-undo"},       {"redo", "edit-redo"},
        {"drive", "drive-harddisk"},
    };
    return names;
}

}  // namespace

QIcon OwnIcon(const QString& name) {
    LoadDrawings();
    const QString path = ":/icons/" + name + ".svg";
    return QFile::exists(path) ? QIcon(path) : QIcon();
}

QIcon ThemeIcon(const QString& name) {
    const QString standard = StandardNames().value(name);
    if (!standard.isEmpty() && QIcon::hasThemeIcon(standard)) return QIcon::fromTheme(standard);
    return OwnIcon(name);
}

}  // namespace vellum
