#include "files/declared_encoding.h"

#include <QRegularExpression>

namespace vellum {
namespace {

constexpr qsizetype kLookedAt = 1024;

// One attribute: its name, then its value in double quotes, in single quotes or bare.
const QRegularExpression& AttributePattern() {
    static const QRegularExpression pattern(
        R"re(([^\s=/>"']++)\s*+(?:=\s*+(?:"([^"]*+)"|'([^']*+)'|([^\s>"']++)))?)re");
    return pattern;
}

QString ValueOf(const QRegularExpressionMatch& attribute) {
    return attribute.captured(2) + attribute.captured(3) + attribute.captured(4);
}

QString CharsetOfContentType(const QString& value) {
    static const QRegularExpression pattern(R"re(charset\s*=\s*["']?\s*([^\s"';]+))re",
                                            QRegularExpression::CaseInsensitiveOption);
    return pattern.match(value).captured(1);
}

// `tag`: what stands between "<meta" and ">".
QString CharsetOfMeta(const QString& tag) {
    QString charset;
    QString content;
    bool isContentType = false;
    for (auto matches = AttributePattern().globalMatch(tag); matches.hasNext();) {
        const QRegularExpressionMatch attribute = matches.next();
        const QString name = attribute.captured(1).toLower();
        if (name == u"charset") charset = ValueOf(attribute).trimmed();
        if (name == u"content") content = ValueOf(attribute);
        if (name == u"http-equiv") isContentType = ValueOf(attribute).trimmed().toLower() == u"content-type";
    }
    if (!charset.isEmpty()) return charset;
    return isContentType ? CharsetOfContentType(content) : QString();
}

QString CharsetOfFirstMeta(QString head) {
    static const QRegularExpression comment(R"re(<!--.*?(?:-->|\z))re", QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression meta(R"re(<meta(?=[\s/])((?:"[^"]*+"|'[^']*+'|[^>"'])*+))re",
                                         QRegularExpression::CaseInsensitiveOption);
    head.remove(comment);
    for (auto matches = meta.globalMatch(head); matches.hasNext();) {
        QString charset = CharsetOfMeta(matches.next().captured(1));
        if (!charset.isEmpty()) return charset;
    }
    return {};
}

}  // namespace

QByteArray DeclaredEncoding(QByteArrayView bytes) {
    static const QRegularExpression xml(R"re(\A\s*<\?xml\s[^>]*?\bencoding\s*=\s*["']\s*([^\s"'>]+))re");
    static const QRegularExpression styleSheet(R"re(\A\s*@charset\s+["']\s*([^\s"']+))re",
                                               QRegularExpression::CaseInsensitiveOption);
    const QString head = QString::fromLatin1(bytes.first(qMin(bytes.size(), kLookedAt)));
    for (const QRegularExpression* pattern : {&xml, &styleSheet}) {
        const QRegularExpressionMatch match = pattern->match(head);
        if (match.hasMatch()) return match.captured(1).toLatin1();
    }
    return CharsetOfFirstMeta(head).toLatin1();
}

}  // namespace vellum
