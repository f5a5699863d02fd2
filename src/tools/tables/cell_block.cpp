#include "tools/tables/cell_block.h"

#include <optional>

namespace vellum {
namespace {

constexpr QChar quote = u'"';

QString CellText(const QString& text) {
    const bool plain = !text.contains(u'\t') && !text.contains(u'\n') && !text.contains(quote);
    return plain ? text : quote + QString(text).replace("\"", "\"\"") + quote;
}

bool EndsCell(QStringView text, qsizetype at) {
    return at == text.size() || text[at] == u'\t' || text[at] == u'\n';
}

// The offset after a cell that starts at `from` and stands in quotes; nothing when it doesn't.
std::optional<qsizetype> EndOfQuoted(QStringView text, qsizetype from) {
    if (from == text.size() || text[from] != quote) return std::nullopt;
    for (qsizetype at = text.indexOf(quote, from + 1); at >= 0; at = text.indexOf(quote, at + 2)) {
        if (at + 1 < text.size() && text[at + 1] == quote) continue;
        return EndsCell(text, at + 1) ? std::optional(at + 1) : std::nullopt;
    }
    return std::nullopt;
}

qsizetype EndOfPlain(QStringView text, qsizetype from) {
    while (!EndsCell(text, from)) ++from;
    return from;
}

}  // namespace

QString BlockText(const CellBlock& block) {
    QStringList lines;
    for (const QStringList& row : block) {
        QStringList cells;
        for (const QString& text : row) cells << CellText(text);
        lines << cells.join(u'\t');
    }
    return lines.join(u'\n');
}

CellBlock ReadBlock(QString text) {
    text.replace("\r\n", "\n").replace(u'\r', u'\n');
    if (text.endsWith(u'\n')) text.chop(1);
    CellBlock block(1);
    for (qsizetype at = 0; at <= text.size(); ++at) {
        const std::optional<qsizetype> quoted = EndOfQuoted(text, at);
        const qsizetype end = quoted.value_or(EndOfPlain(text, at));
        block.back() << (quoted ? text.mid(at + 1, end - at - 2).replace("\"\"", "\"") : text.mid(at, end - at));
        if (end < text.size() && text[end] == u'\n') block.emplace_back();
        at = end;
    }
    return block;
}

}  // namespace vellum
