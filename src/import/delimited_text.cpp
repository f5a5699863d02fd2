#include "import/delimited_text.h"

#include <algorithm>
#include <iterator>

namespace vellum {
namespace {

constexpr QChar lineFeed = u'\n';

void Count(DelimitedText& read, QStringView text, std::optional<QChar> delimiter) {
    int columns = 1;
    for (const QChar c : text) {
        if (c == delimiter) ++columns;
        if (c != lineFeed) continue;
        ++read.rows;
        read.columns = std::max(read.columns, columns);
        columns = 1;
    }
}

// The texts of a line, which has no line feed any more.
QStringList CellsOf(QStringView line, std::optional<QChar> delimiter, int columns) {
    QStringList cells;
    while (cells.size() < columns) {
        const qsizetype end = delimiter ? line.indexOf(*delimiter) : -1;
        cells << (end < 0 ? line : line.first(end)).toString().remove(u'\r');
        if (end < 0) break;
        line = line.sliced(end + 1);
    }
    return cells;
}

}  // namespace

std::optional<QChar> DelimiterOf(QStringView entry) {
    struct Delimiter {
        QStringView entry;
        QChar character;
    };
    constexpr Delimiter delimiters[] = {{u"Tab", u'\t'}, {u"Comma", u','}, {u"SemiColon", u':'}, {u"Space", u' '}};
    const auto* const found = std::find_if(std::begin(delimiters), std::end(delimiters),
                                           [entry](const Delimiter& one) { return one.entry == entry; });
    return found == std::end(delimiters) ? std::nullopt : std::optional(found->character);
}

DelimitedText ReadDelimitedText(QStringView text, std::optional<QChar> delimiter) {
    DelimitedText read;
    Count(read, text, delimiter);
    read.cells.reserve(static_cast<std::size_t>(read.rows));
    for (int row = 0; row < read.rows; ++row) {
        const qsizetype end = text.indexOf(lineFeed);
        read.cells.push_back(CellsOf(end < 0 ? text : text.first(end), delimiter, read.columns));
        text = end < 0 ? QStringView() : text.sliced(end + 1);
    }
    return read;
}

}  // namespace vellum
