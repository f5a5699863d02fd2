#include "files/line_ends.h"

namespace vellum {
namespace {

QStringView Spelling(LineEnd end) {
    switch (end) {
        case LineEnd::Lf:
            return u"\n";
        case LineEnd::Cr:
            return u"\r";
        default:
            return u"\r\n";
    }
}

}  // namespace

LineEnd LineEndCounts::MostFrequent() const {
    if (crLf >= lf && crLf >= cr) return LineEnd::CrLf;
    return lf >= cr ? LineEnd::Lf : LineEnd::Cr;
}

LineEndCounts CountLineEnds(QStringView text) {
    LineEndCounts counts;
    const qsizetype feeds = text.count(u'\n');
    const qsizetype returns = text.count(u'\r');
    if (returns > 0) {
        for (qsizetype i = 0; i + 1 < text.size(); ++i) counts.crLf += text[i] == u'\r' && text[i + 1] == u'\n';
    }
    counts.lf = feeds - counts.crLf;
    counts.cr = returns - counts.crLf;
    return counts;
}

LineEndCounts CountLineEnds(QStringView text, LineEnd usual, std::span<const OtherLineEnd> others) {
    LineEndCounts counts;
    for (const OtherLineEnd& other : others) ++counts.Of(other.end);
    counts.Of(usual) += text.count(u'\n') - static_cast<qsizetype>(others.size());
    return counts;
}

std::vector<OtherLineEnd> UnifyLineEnds(QString& text, LineEnd usual) {
    std::vector<OtherLineEnd> others;
    int line = 0;
    QChar* out = text.data();
    const QChar* const end = text.constData() + text.size();
    for (const QChar* in = text.constData(); in != end; ++in) {
        if (*in != u'\r' && *in != u'\n') {
            *out++ = *in;
            continue;
        }
        LineEnd found = *in == u'\n' ? LineEnd::Lf : LineEnd::Cr;
        if (found == LineEnd::Cr && in + 1 != end && in[1] == u'\n') {
            found = LineEnd::CrLf;
            ++in;
        }
        if (found != usual) others.push_back({line, found});
        ++line;
        *out++ = u'\n';
    }
    text.truncate(out - text.constData());
    return others;
}

QString SpellLineEnds(QStringView text, LineEnd usual, std::span<const OtherLineEnd> others) {
    if (usual == LineEnd::Lf && others.empty()) return text.toString();
    QString spelled;
    spelled.reserve(text.size() + text.count(u'\n'));
    auto other = others.begin();
    qsizetype start = 0;
    int line = 0;
    for (qsizetype feed = text.indexOf(u'\n'); feed >= 0; feed = text.indexOf(u'\n', start), ++line) {
        const bool differs = other != others.end() && other->line == line;
        spelled.append(text.sliced(start, feed - start)).append(Spelling(differs ? (other++)->end : usual));
        start = feed + 1;
    }
    return spelled.append(text.sliced(start));
}

}  // namespace vellum
