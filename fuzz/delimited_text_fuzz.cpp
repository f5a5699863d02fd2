// The reader of delimited text on made-up input: it finds the cells that a plain walk finds, and keeps to its columns.
#include "import/delimited_text.h"
#include "tests/import/literal_delimited_text.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellum;
    if (size == 0) return 0;
    const char* const entries[] = {"Tab", "Semicolon", "Comma", "Space"};
    const std::optional<QChar> delimiter = DelimiterOf(QString(entries[data[0] % 4]));
    const auto* const bytes = reinterpret_cast<const char*>(data) + 1;
    const QString text = QString::fromUtf8(bytes, static_cast<qsizetype>(size) - 1);
    const DelimitedText read = ReadDelimitedText(text, delimiter);
    const DelimitedText literal = test::LiteralDelimitedText(text, delimiter);
    if (read.rows != literal.rows || read.columns != literal.columns || read.cells != literal.cells) std::abort();
    if (read.cells.size() != static_cast<std::size_t>(read.rows)) std::abort();
    for (const QStringList& row : read.cells) {
        if (row.size() > read.columns) std::abort();
    }
    return 0;
}
