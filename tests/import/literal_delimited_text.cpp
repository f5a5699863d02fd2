#include "tests/import/literal_delimited_text.h"

namespace vellum::test {
namespace {

void CountLiterally(DelimitedText& read, QStringView text, std::optional<QChar> delimiter) {
    int count = 1;
    for (const QChar c : text) {
        if (c == delimiter) ++count;
        if (c == u'\n') {
            ++read.rows;
            if (count > read.columns) read.columns = count;
            count = 1;
        }
    }
}

}  // namespace

DelimitedText LiteralDelimitedText(QStringView text, std::optional<QChar> delimiter) {
    DelimitedText read;
    CountLiterally(read, text, delimiter);
    read.cells.assign(static_cast<std::size_t>(read.rows), {QString("")});
    std::size_t row = 0;
    int column = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == delimiter) {
            if (++column < read.columns) read.cells[row] << "";
        } else if (c == u'\n') {
            if (i == text.size() - 1) break;
            ++row;
            column = 0;
        } else if (c != u'\r' && column < read.columns) {
            read.cells[row].last() += c;
        }
    }
    return read;
}

}  // namespace vellum::test
