#include "surface/surface_search.h"

#include "surface/document_text.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>

namespace vellum {
namespace {

class LineSearch {
public:
    LineSearch(QTextDocument& document, const QString& text, Qt::CaseSensitivity cs)
        : document_(document), pieces_(ToLines(text)), cs_(cs) {}

    // The position of the first match at or after a column of a block; -1 when there is none.
    [[nodiscard]] int First(QTextBlock block, int column) const {
        for (; block.isValid(); block = block.next(), column = 0) {
            const QString line = LineOf(block);
            qsizetype found = -1;
            if (pieces_.size() == 1) {
                found = line.indexOf(pieces_.front(), column, cs_);
            } else if (line.endsWith(pieces_.front(), cs_)) {
                const qsizetype start = line.size() - pieces_.front().size();
                if (start >= column && FollowingMatch(block)) found = start;
            }
            if (found >= 0) return block.position() + static_cast<int>(found);
        }
        return -1;
    }

    [[nodiscard]] int Length() const {
        qsizetype length = pieces_.size() - 1;
        for (const QString& piece : pieces_) length += piece.size();
        return static_cast<int>(length);
    }

private:
    static QStringList ToLines(QString text) { return WithLf(std::move(text)).split(u'\n'); }

    [[nodiscard]] QString LineOf(const QTextBlock& block) const {
        return FromDocumentText(block.text(), document_, block.position());
    }

    // Whether the lines after `block` go on as the text does after its first line end.
    [[nodiscard]] bool FollowingMatch(QTextBlock block) const {
        for (qsizetype index = 1; index < pieces_.size(); ++index) {
            block = block.next();
            if (!block.isValid()) return false;
            const QString line = LineOf(block);
            const bool last = index + 1 == pieces_.size();
            const bool fits =
                last ? line.startsWith(pieces_.at(index), cs_) : line.compare(pieces_.at(index), cs_) == 0;
            if (!fits) return false;
        }
        return true;
    }

    QTextDocument& document_;
    QStringList pieces_;
    Qt::CaseSensitivity cs_;
};

}  // namespace

std::optional<TextRange> FindInDocument(QTextDocument& document, const QString& text, int position,
                                        Qt::CaseSensitivity cs) {
    if (text.isEmpty()) return std::nullopt;
    const LineSearch search(document, text, cs);
    const QTextBlock block = document.findBlock(position);
    const int found = search.First(block, position - block.position());
    if (found < 0) return std::nullopt;
    return TextRange{found, search.Length()};
}

}  // namespace vellum
