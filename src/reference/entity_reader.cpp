#include "reference/entity_reader.h"

#include "files/encodings.h"
#include "files/text_file.h"
#include "reference/text_search.h"
#include "values/number_rules.h"

#include <algorithm>

namespace vellum {
namespace {

constexpr QStringView keyword = u"<!ENTITY";

// By its number in Windows-1252, where every number up to 255 has a character.
QChar CharacterOf(double code) {
    const double whole = RoundHalfEven(code);
    if (!(whole >= 0 && whole <= 255)) throw ReadingFailed("no character has such a code");
    const char byte = static_cast<char>(static_cast<unsigned char>(whole));
    return DecodeBytes(QByteArrayView(&byte, 1), windows1252Name).value().front();
}

struct Entity {
    QString name;
    QString value;
};

bool IsBlank(QChar c) {
    return c == ' ' || c == '\t';
}

// The first declaration at or after `pos`: the keyword with a blank or a tab after it.
qsizetype NextEntity(QStringView text, qsizetype pos) {
    pos = FirstFrom(pos, text, keyword);
    while (pos != 0) {
        const QStringView next = text.mid(pos - 1 + keyword.size(), 1);
        if (!next.isEmpty() && IsBlank(next.front())) return pos;
        pos = FirstFrom(pos + keyword.size(), text, keyword);
    }
    return 0;
}

// The declaration that stands from `pos` through the ">" at `end`.
Entity ReadEntity(QStringView text, qsizetype pos, qsizetype end) {
    const QStringView rest = text.mid(pos + keyword.size());
    const auto* const nameEnd = std::ranges::find_if(rest, IsBlank);
    if (nameEnd == rest.end()) throw ReadingFailed("the name of an entity doesn't end");
    const qsizetype firstQuote = FirstFrom(pos, text, u'"');
    if (firstQuote == 0) throw ReadingFailed("an entity has no quotes");
    const qsizetype lastQuote = LastUpTo(end, text, u'"');
    return {rest.first(nameEnd - rest.begin()).toString(), UpTo(text, firstQuote + 1, lastQuote).toString()};
}

// The value, or the character when that is a number below 256.
QString ShownAs(const Entity& entity) {
    QString shown = entity.value;
    if (shown.startsWith('&')) {
        const double code = LeadingNumber(Range(shown, 3, shown.size() - 3));
        if (code < 256) shown = CharacterOf(code);
    }
    // Declared by a double escape, whose outer number is that of the ampersand.
    return entity.name == QLatin1String("lt") ? QStringLiteral("<") : shown;
}

void ReadCharacters(ReferenceTree& tree, int& nodeIndex, const QString& text) {
    const int title = nodeIndex + 1;
    int count = 0;
    qsizetype pos = NextEntity(text, 1);
    while (pos != 0) {
        const qsizetype end = FirstFrom(pos, text, u'>');
        const Entity entity = ReadEntity(text, pos, end);
        tree.AddCharacter(title, entity.name, ShownAs(entity));
        pos = NextEntity(text, end);
        if (++count > greatestNodeIndex - title) throw ReadingFailed("too many nodes");
    }
    nodeIndex = title + count;
}

}  // namespace

int AddEntText(ReferenceTree& tree, int& nodeIndex, const QString& entText, int parentIndex, const QString& title) {
    tree.AddNoder(parentIndex, NodeKind::CharacterSet, title);
    ReadCharacters(tree, nodeIndex, entText);
    return nodeIndex - 1;
}

int AddEnt(ReferenceTree& tree, int& nodeIndex, const QString& entPath, int parentIndex, const QString& title) {
    if (const std::optional<LoadedText> loaded = ReadTextFile(entPath)) {
        return AddEntText(tree, nodeIndex, loaded->text, parentIndex, title);
    }
    tree.AddNoder(parentIndex, NodeKind::CharacterSet, title);
    throw ReadingFailed("the file can't be read");
}

}  // namespace vellum
