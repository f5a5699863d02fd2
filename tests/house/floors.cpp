#include "tests/house/floors.h"

#include <QMap>
#include <QRegularExpression>

namespace vellum::house {
namespace {

// The folders by their floors, from the bottom. The tools have three floors of their own: what all of them share, the
// groups by what an author makes, and the pages, which begin with other tools.
const QMap<QString, int>& Floors() {
    static const QMap<QString, int> floors = [] {
        const QList<QStringList> rising{
            {"values"},
            {"files", "system"},
            {"settings"},
            {"surface", "browser", "widgets"},
            {"editor"},
            {"import", "reference", "preview"},
            {"tools/framework"},
            {"tools/links", "tools/media", "tools/text", "tools/lists", "tools/tables", "tools/frames", "tools/forms",
             "tools/scripts", "tools/styles"},
            {"tools/pages"},
            {"website", "organizer", "help", "search"},
            {"shell"},
        };
        QMap<QString, int> map;
        for (int floor = 0; floor < rising.size(); ++floor) {
            for (const QString& folder : rising.at(floor)) map.insert(folder, floor);
        }
        return map;
    }();
    return floors;
}

// The folder of src/ that a path starts with, one of tools/ with its group; empty for a bare name.
QString FolderOf(const QString& path) {
    const qsizetype depth = path.startsWith("tools/") ? 2 : 1;
    return path.count('/') >= depth ? path.section('/', 0, depth - 1) : QString();
}

// main.cpp stands in no folder, on the top floor.
QString HomeOf(const QString& path) {
    return path == "main.cpp" ? QStringLiteral("shell") : FolderOf(path);
}

QString Objection(const QString& home, const QString& include) {
    static const QStringList never{"src", "tests", "bench", "fuzz", ".", ".."};
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
