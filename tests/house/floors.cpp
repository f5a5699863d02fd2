#include "tests/house/floors.h"

#include <QMap>
#include <QRegularExpression>

namespace vellum::house {
namespace {

const QMap<QString, int>& Floors() {
    static const QMap<QString, int> floors{
        {"shell", 6},  {"website", 5},   {"organizer", 5}, {"help", 5},   {"search", 5},   {"tools", 4},
        {"import", 3}, {"reference", 3}, {"preview", 3},   {"editor", 2}, {"platform", 1},
    };
    return floors;
}

// The folder that a path starts with; empty for a bare name.
QString FolderOf(const QString& path) {
    return path.contains('/') ? path.section('/', 0, 0) : QString();
}

// main.cpp stands in no folder, on the top floor.
QString HomeOf(const QString& path) {
    return path == "main.cpp" ? QStringLiteral("shell") : FolderOf(path);
}

QString Objection(const QString& home, const QString& include) {
    static const QStringList never{"tests", "bench", "fuzz", ".", ".."};
    const QString target = FolderOf(include);
    if (never.contains(target)) return "leaves the floors";
    if (!Floors().contains(target) || target == home) return {};
    const int from = Floors().value(home);
    const int to = Floors().value(target);
    if (to > from) return "runs up";
    return to == from ? "runs to a sibling" : QString();
}

}  // namespace

QStringList IncludesOf(const QString& text) {
    static const QRegularExpression line(R"(^[ \t]*#[ \t]*include[ \t]*["<]([^">\n]+)[">])",
                                         QRegularExpression::MultilineOption);
    QStringList includes;
    for (auto match = line.globalMatch(text); match.hasNext();) includes << match.next().captured(1);
    return includes;
}

QStringList WrongArrows(const std::vector<SourceFile>& files) {
    QStringList wrong;
    for (const SourceFile& file : files) {
        const QString home = HomeOf(file.path);
        if (!Floors().contains(home)) {
            wrong << file.path + " stands on no floor";
            continue;
        }
        for (const QString& include : file.includes) {
            const QString objection = Objection(home, include);
            if (!objection.isEmpty()) wrong << file.path + " includes " + include + ", which " + objection;
        }
    }
    return wrong;
}

}  // namespace vellum::house
