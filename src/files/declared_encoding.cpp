#include "files/declared_encoding.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>

namespace vellum {
namespace {

constexpr qsizetype kLookedAt = 1024;

// One attribute: its name, then its value in double quotes, in single quotes or bare.
const QRegularExpression& AttributePattern() {
    static const QRegularExpression pattern(
        R"re(([^\s=/>"']++)\s*+(?:=\s*+(?:"([^"]*+)"|'([^']*+)'|([^\s>"']++)))?)re");
    return pattern;
}

// A part of a text for a pattern, which would match nothing in a text with half a surrogate pair.
QString ForPattern(QStringView part) {
    QString copy = part.toString();
    std::ranges::replace_if(
        copy, [](QChar character) { return character.isSurrogate(); }, QChar(u'?'));
    return copy;
}

EncodingDeclaration Declared(const QString& label, qsizetype offset, bool byXml = false) {
    return {label, {static_cast<int>(offset), static_cast<int>(label.size())}, byXml};
}

// In an attribute whose value begins at `offset`.
std::optional<EncodingDeclaration> CharsetOfContentType(const QString& value, qsizetype offset) {
    static const QRegularExpression pattern(R"re(charset\s*=\s*["']?\s*([^\s"';]+))re",
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(value);
    if (!match.hasMatch()) return std::nullopt;
    return Declared(match.captured(1), offset + match.capturedStart(1));
}

// `tag`: what stands between "<meta" and ">", from `offset` on.
std::optional<EncodingDeclaration> CharsetOfMeta(const QString& tag, qsizetype offset) {
    std::optional<EncodingDeclaration> charset;
    std::optional<EncodingDeclaration> content;
    bool isContentType = false;
    for (auto matches = AttributePattern().globalMatch(tag); matches.hasNext();) {
        const QRegularExpressionMatch attribute = matches.next();
        const QString name = attribute.captured(1).toLower();
        const int group = attribute.lastCapturedIndex();
        const QString value = group > 1 ? attribute.captured(group) : QString();
        const qsizetype start = offset + attribute.capturedStart(group);
        if (name == u"charset" && !value.trimmed().isEmpty()) {
            charset = Declared(value.trimmed(), start + value.indexOf(value.trimmed()));
        }
        if (name == u"content") content = CharsetOfContentType(value, start);
        if (name == u"http-equiv") isContentType = value.trimmed().toLower() == u"content-type";
    }
    if (charset) return charset;
    return isContentType ? content : std::nullopt;
}

// Goes through the tags of a page.
class Metas {
public:
    explicit Metas(QStringView text) : text_(text) {}

    [[nodiscard]] std::vector<EncodingDeclaration> Find() {
        for (qsizetype begin = text_.indexOf(u'<'); begin >= 0; begin = text_.indexOf(u'<', next_)) {
            next_ = begin + 1;
            if (text_.sliced(begin).startsWith(u"<!--")) {
                PassTo(u"-->", begin + 4);
            } else if (IsTag(begin, u"meta")) {
                TakeMeta(begin + 5);
            } else if (IsTag(begin, u"script")) {
                PassTo(u"</script", EndOfTag(begin));
            } else if (IsTag(begin, u"style")) {
                PassTo(u"</style", EndOfTag(begin));
            }
        }
        return std::move(found_);
    }

private:
    [[nodiscard]] bool IsTag(qsizetype begin, QStringView name) const {
        if (!text_.sliced(begin + 1).startsWith(name, Qt::CaseInsensitive)) return false;
        const qsizetype end = begin + 1 + name.size();
        return end < text_.size() && (text_[end].isSpace() || text_[end] == u'/' || text_[end] == u'>');
    }

    // The ">" that ends the tag, or where no one can tell any more.
    [[nodiscard]] qsizetype EndOfTag(qsizetype index) const {
        while (index < text_.size() && text_[index] != u'>') {
            const QChar character = text_[index];
            const bool quoted = character == u'"' || character == u'\'';
            const qsizetype close = quoted ? text_.indexOf(character, index + 1) : index;
            if (close < 0) return index;
            index = close + 1;
        }
        return index;
    }

    void PassTo(QStringView closing, qsizetype from) {
        const qsizetype found = from < text_.size() ? text_.indexOf(closing, from, Qt::CaseInsensitive) : -1;
        next_ = found < 0 ? text_.size() : found + closing.size();
    }

    void TakeMeta(qsizetype begin) {
        next_ = EndOfTag(begin);
        const QString tag = ForPattern(text_.sliced(begin, next_ - begin));
        if (const auto declared = CharsetOfMeta(tag, begin)) found_.push_back(*declared);
    }

    QStringView text_;
    qsizetype next_ = 0;
    std::vector<EncodingDeclaration> found_;
};

}  // namespace

std::vector<EncodingDeclaration> FindDeclarations(const QString& text) {
    static const std::array patterns{
        QRegularExpression(R"re(\A\s*<\?xml\s[^>]*?\bencoding\s*=\s*["']\s*([^\s"'>]+))re"),
        QRegularExpression(R"re(\A\s*@charset\s+["']\s*([^\s"']+))re", QRegularExpression::CaseInsensitiveOption)};
    const QString head = ForPattern(QStringView(text).first(std::min(text.size(), kLookedAt)));
    std::vector<EncodingDeclaration> found;
    for (const QRegularExpression& pattern : patterns) {
        const QRegularExpressionMatch match = pattern.match(head);
        if (match.hasMatch()) {
            found.push_back(Declared(match.captured(1), match.capturedStart(1), &pattern == &patterns.front()));
        }
    }
    for (EncodingDeclaration& meta : Metas(text).Find()) found.push_back(std::move(meta));
    return found;
}

std::vector<EncodingDeclaration> DeclarationsInHead(QByteArrayView bytes) {
    return FindDeclarations(QString::fromLatin1(bytes.first(std::min(bytes.size(), kLookedAt))));
}

}  // namespace vellum
