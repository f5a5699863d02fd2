#include "editor/character_references.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace vellum {
namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("CharacterReferences", text);
}

bool IsNameEnd(QChar character) {
    return character.isSpace() || character == u'/' || character == u'>' || character == u'=';
}

// Goes through a page from mark to mark.
class BarScan {
public:
    explicit BarScan(QStringView text) : text_(text) {}

    [[nodiscard]] std::vector<BarredRange> Find() {
        while (true) {
            const qsizetype begin = next_ < text_.size() ? text_.indexOf(u'<', next_) : -1;
            if (begin < 0) return std::move(found_);
            next_ = begin;
            if (!PassSection()) PassTag();
        }
    }

private:
    [[nodiscard]] bool StartsHere(QStringView mark) const { return text_.sliced(next_).startsWith(mark); }

    void Bar(qsizetype begin, qsizetype end, ReferenceBar bar) {
        if (end <= begin) return;
        found_.push_back({{static_cast<int>(begin), static_cast<int>(end - begin)}, bar});
    }

    // Up to and with a closing mark, or to the end of the text.
    void PassTo(QStringView closing, qsizetype from, ReferenceBar bar) {
        const qsizetype found = from < text_.size() ? text_.indexOf(closing, from) : -1;
        const qsizetype end = found < 0 ? text_.size() : found + closing.size();
        Bar(next_, end, bar);
        next_ = end;
    }

    // What is no tag but begins as one; false when it isn't that either.
    bool PassSection() {
        if (StartsHere(u"<%")) {
            PassTo(u"%>", next_ + 2, ReferenceBar::ServerBlock);
        } else if (StartsHere(u"<?")) {
            PassTo(u"?>", next_ + 2, ReferenceBar::Section);
        } else if (StartsHere(u"<!--")) {
            PassTo(u"-->", next_ + 4, ReferenceBar::Comment);
        } else if (StartsHere(u"<![CDATA[")) {
            PassTo(u"]]>", next_ + 9, ReferenceBar::Section);
        } else if (StartsHere(u"<!")) {
            const qsizetype close = text_.indexOf(u'>', next_);
            const qsizetype subset = text_.indexOf(u'[', next_);
            const bool hasSubset = subset >= 0 && subset < close;
            const qsizetype end = hasSubset ? text_.indexOf(u']', subset) : next_;
            PassTo(u">", end < 0 ? text_.size() : end, ReferenceBar::Section);
        } else {
            return false;
        }
        return true;
    }

    void PassTag() {
        const qsizetype begin = next_;
        qsizetype index = begin + 1;
        if (index < text_.size() && text_[index] == u'/') ++index;
        if (index >= text_.size() || !text_[index].isLetter()) {
            ++next_;  // a "<" by itself
            return;
        }
        const std::size_t found = found_.size();
        while (index < text_.size() && !IsNameEnd(text_[index])) ++index;
        const QString name = text_.sliced(begin + 1, index - begin - 1).toString().toLower();
        Bar(begin, index, ReferenceBar::Name);
        next_ = index;
        if (!PassAttributes()) {
            found_.resize(found);
            Bar(begin, text_.size(), ReferenceBar::UnfinishedTag);
            next_ = text_.size();
        } else if (name == u"script" || name == u"style" || name == u"xmp" || name == u"plaintext") {
            PassBody(name);
        }
    }

    // Up to after the tag's ">"; false when there is none.
    bool PassAttributes() {
        while (next_ < text_.size()) {
            const QChar character = text_[next_];
            if (character == u'>') {
                ++next_;
                return true;
            }
            if (character == u'<' && PassSection()) continue;
            if (character == u'=') {
                ++next_;
                if (!PassValue()) return false;
            } else if (character.isSpace() || character == u'/') {
                ++next_;
            } else {
                const qsizetype begin = next_++;
                while (next_ < text_.size() && !IsNameEnd(text_[next_]) && text_[next_] != u'<') ++next_;
                Bar(begin, next_, ReferenceBar::Name);
            }
        }
        return false;
    }

    // What stands after a "=". False when its closing quote is missing.
    bool PassValue() {
        while (next_ < text_.size() && text_[next_].isSpace()) ++next_;
        if (next_ >= text_.size()) return false;
        const QChar quote = text_[next_];
        const bool quoted = quote == u'"' || quote == u'\'';
        if (quoted) ++next_;
        while (next_ < text_.size()) {
            const QChar character = text_[next_];
            if (quoted ? character == quote : character.isSpace() || character == u'>') {
                if (quoted) ++next_;
                return true;
            }
            const bool block = StartsHere(u"<%") || StartsHere(u"<?");
            if (!block || !PassSection()) ++next_;
        }
        return false;
    }

    // The body of an element that is no markup, up to its closing tag.
    void PassBody(const QString& name) {
        const qsizetype close = text_.indexOf(QString("</" + name), next_, Qt::CaseInsensitive);
        const qsizetype end = close < 0 ? text_.size() : close;
        Bar(next_, end, name == u"style" ? ReferenceBar::StyleSheet : ReferenceBar::Script);
        next_ = end;
    }

    QStringView text_;
    qsizetype next_ = 0;
    std::vector<BarredRange> found_;
};

QString Reason(ReferenceBar bar) {
    switch (bar) {
        case ReferenceBar::Name:
            return Tr("one stands in the name of a tag or an attribute");
        case ReferenceBar::Script:
            return Tr("one stands in a script");
        case ReferenceBar::StyleSheet:
            return Tr("one stands in a style sheet");
        case ReferenceBar::Comment:
            return Tr("one stands in a comment");
        case ReferenceBar::ServerBlock:
            return Tr("one stands in a server-side block");
        case ReferenceBar::Section:
            return Tr("one stands in a declaration, an instruction or a CDATA section");
        case ReferenceBar::UnfinishedTag:
            return Tr("one stands in a tag that has no end");
    }
    return {};
}

// The character at an index; half a surrogate pair by itself.
char32_t CharacterAt(QStringView text, qsizetype index) {
    const bool pair = text[index].isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
    return pair ? QChar::surrogateToUcs4(text[index], text[index + 1]) : static_cast<char32_t>(text[index].unicode());
}

qsizetype LengthOf(char32_t character) {
    return QChar::requiresSurrogates(character) ? 2 : 1;
}

// A reference to one of these is an error, or read as something else.
bool HasNoReference(char32_t character) {
    return character < U' ' || (character >= 0x7F && character < 0xA0) || QChar::isSurrogate(character) ||
           QChar::isNonCharacter(character);
}

bool AllHaveReferences(QStringView characters) {
    for (qsizetype index = 0; index < characters.size(); index += LengthOf(CharacterAt(characters, index))) {
        if (HasNoReference(CharacterAt(characters, index))) return false;
    }
    return true;
}

}  // namespace

std::vector<BarredRange> FindReferenceBars(QStringView page) {
    return BarScan(page).Find();
}

bool IsMarkupFile(const QString& path, QStringView text) {
    static constexpr auto markup = std::to_array<const char*>(
        {"asp",    "aspx", "atom", "cfm",  "hta",   "htc",   "htm", "html", "htt",  "jsp",   "kml",
         "mathml", "mml",  "opf",  "opml", "php",   "phtml", "rdf", "rss",  "shtm", "shtml", "smi",
         "smil",   "stm",  "svg",  "wml",  "xhtml", "xht",   "xml", "xsl",  "xslt", "xul"});
    static constexpr auto others = std::to_array<const char*>(
        {"css", "csv", "dtd", "ent", "ini", "js", "json", "md", "mjs", "mod", "rtf", "txt", "vb", "vbs"});
    const QString suffix = QFileInfo(path).suffix().toLower();
    const auto is = [&](const char* each) { return suffix == QLatin1String(each); };
    if (std::ranges::any_of(markup, is)) return true;
    return std::ranges::none_of(others, is) && text.trimmed().startsWith(u'<');
}

std::optional<QString> WhyNoReferences(const QString& path, QStringView text, std::span<const TextRange> ranges) {
    if (!IsMarkupFile(path, text)) return Tr("the file is no page");
    const std::vector<BarredRange> bars = FindReferenceBars(text);
    auto bar = bars.begin();
    for (const TextRange& range : ranges) {
        while (bar != bars.end() && bar->range.End() <= range.offset) ++bar;
        if (bar != bars.end() && bar->range.offset < range.End()) return Reason(bar->bar);
        if (!AllHaveReferences(text.sliced(range.offset, range.length)))
            return Tr("no reference can stand for one of them");
    }
    return std::nullopt;
}

QString AsReferences(QStringView characters) {
    QString references;
    for (qsizetype index = 0; index < characters.size();) {
        const char32_t character = CharacterAt(characters, index);
        references += QStringLiteral("&#%1;").arg(static_cast<uint>(character));
        index += LengthOf(character);
    }
    return references;
}

}  // namespace vellum
