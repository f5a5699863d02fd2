#include "surface/document_text.h"

#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace vellum {
namespace {

constexpr char16_t standIn = u'\uFFFD';
constexpr int heldCharacter = QTextFormat::UserProperty + 1;

// Paragraph separator, and begin and end of a frame in the toolkit's own coding.
constexpr bool EndsBlock(char16_t character) {
    return character == u'\u2029' || character == u'\uFDD0' || character == u'\uFDD1';
}

bool NeedsChange(QChar character) {
    return character == u'\r' || EndsBlock(character.unicode());
}

}  // namespace

DocumentText ToDocumentText(const QString& text) {
    if (std::ranges::none_of(text, NeedsChange)) return {text, {}};
    DocumentText result;
    result.text.resize(text.size());
    QChar* target = result.text.data();
    const QChar* const begin = target;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar character = text.at(index);
        if (character == u'\r') {
            if (index + 1 < text.size() && text.at(index + 1) == u'\n') ++index;
            *target++ = u'\n';
        } else if (EndsBlock(character.unicode())) {
            result.held.emplace_back(static_cast<int>(target - begin), character.unicode());
            *target++ = standIn;
        } else {
            *target++ = character;
        }
    }
    result.text.truncate(target - begin);
    return result;
}

QString RawTextOf(const DocumentText& text) {
    QString raw = text.text;
    for (const auto& [index, character] : text.held) raw[index] = QChar(character);
    return raw;
}

void MarkStandIns(QTextDocument& document, int position, const DocumentText& inserted) {
    if (inserted.held.empty()) return;
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const auto& [index, character] : inserted.held) {
        QTextCharFormat format;
        format.setProperty(heldCharacter, static_cast<int>(character));
        cursor.setPosition(position + index);
        cursor.setPosition(position + index + 1, QTextCursor::KeepAnchor);
        cursor.setCharFormat(format);
    }
    cursor.endEditBlock();
}

QString FromDocumentText(QString raw, QTextDocument& document, int position) {
    // Without a branch the compiler takes many characters at once.
    QChar* const characters = raw.data();
    std::transform(characters, characters + raw.size(), characters,
                   [](QChar character) { return character == QChar::ParagraphSeparator ? QChar(u'\n') : character; });
    QTextCursor cursor;
    for (qsizetype index = raw.indexOf(standIn); index >= 0; index = raw.indexOf(standIn, index + 1)) {
        if (cursor.isNull()) cursor = QTextCursor(&document);
        cursor.setPosition(position + static_cast<int>(index) + 1);  // a format is read after its character
        const int held = cursor.charFormat().intProperty(heldCharacter);
        if (held != 0) raw[index] = QChar(static_cast<char16_t>(held));
    }
    return raw;
}

QString ReadDocument(QTextDocument& document, const TextRange& range) {
    QTextCursor cursor(&document);
    cursor.setPosition(range.offset);
    cursor.setPosition(range.End(), QTextCursor::KeepAnchor);
    return FromDocumentText(cursor.selectedText(), document, range.offset);
}

TextRange SelectedRange(const QTextCursor& cursor) {
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

QString WithLf(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(u'\r', u'\n');
}

QString WithCrLf(const QString& text) {
    const auto lineEnds = text.count(u'\n');
    if (lineEnds == 0) return text;
    QString result(text.size() + lineEnds, Qt::Uninitialized);
    QChar* target = result.data();
    for (const QChar character : text) {
        if (character == u'\n') *target++ = u'\r';
        *target++ = character;
    }
    return result;
}

}  // namespace vellum
