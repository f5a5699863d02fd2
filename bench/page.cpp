#include "bench/page.h"

#include <array>
#include <random>

namespace vellum::bench {

QString MakePage(qsizetype size) {
    static const std::array<QString, 8> lines{
        QStringLiteral("  <p class=\"intro\">%1 walked along the river bank.</p>"),
        QStringLiteral("  <td align=\"left\"><b>%1</b></td><td>%1 times %1</td>"),
        QStringLiteral("  <a href=\"pages/%1.htm\" title=\"Page %1\">Read on</a><br />"),
        QStringLiteral("\t<li>Item %1 of the list, with some words</li>"),
        QStringLiteral("  <img src=\"images/photo%1.jpg\" width=\"%1\" alt=\"A view\" />"),
        QStringLiteral("and so the story went on for %1 more days without a rest,"),
        QStringLiteral("<!-- Section %1: written by hand -->"),
        QStringLiteral("<h2 id=\"s%1\">Chapter %1</h2>"),
    };
    std::mt19937 random(1);
    QString page = QStringLiteral("<html>\n<head><title>A page</title></head>\n<body>\n");
    page.reserve(size + 128);
    while (page.size() < size) {
        page += lines.at(random() % lines.size()).arg(random() % 1000);
        page += u'\n';
    }
    page += QLatin1String("</body>\n</html>\n");
    return page;
}

std::vector<FormatRun> TagRuns(const QString& page) {
    constexpr CharFormat tag{.color = 32768, .bold = false};
    std::vector<FormatRun> runs;
    int open = -1;
    for (int index = 0; index < page.size(); ++index) {
        const QChar character = page.at(index);
        if (character == u'<') open = index;
        if (character == u'>' && open >= 0) {
            runs.push_back({{open, index + 1 - open}, tag});
            open = -1;
        }
    }
    return runs;
}

}  // namespace vellum::bench
