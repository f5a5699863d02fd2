#include "reference/dtd_reader.h"

#include "files/text_file.h"
#include "reference/attribute_names.h"
#include "reference/dtd_text.h"
#include "reference/text_search.h"

#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace vellum {
namespace {

// Parameter entities that hold themselves would expand forever. No honest declaration comes near these.
constexpr int maxExpansions = 10'000;            // in one declaration
constexpr qsizetype maxExpandedSize = 1 << 22;   // characters of one declaration
constexpr qsizetype maxExpandedTotal = 1 << 26;  // characters written while expanding, in one reading

// Replaces parameter entities, always the first one, wherever the same one stands.
class Expansion {
public:
    explicit Expansion(qsizetype& written) : written_(written) {}

    // `valueOf` gives the text for a name; what it gives may hold entities again.
    template <typename ValueOf>
    void Run(QString& text, ValueOf valueOf) {
        qsizetype pos = FirstFrom(1, text, u'%');
        for (int count = 1; pos != 0; ++count) {
            const QString reference = UpTo(text, pos, FirstFrom(pos, text, u';') + 1).toString();
            text.replace(reference, valueOf(pos, reference.mid(1, reference.size() - 2)));
            written_ += text.size();
            if (count > maxExpansions || text.size() > maxExpandedSize || written_ > maxExpandedTotal) {
                throw ReadingFailed("parameter entities expand without end");
            }
            pos = FirstFrom(pos, text, u'%');  // there was none before this one
        }
    }

private:
    qsizetype& written_;
};

// The names that were come upon, in one text: each between "$$" and "$$". A name with such signs in it may be found
// where it doesn't stand by itself.
class SeenNames {
public:
    [[nodiscard]] bool Has(const QString& name) const {
        const bool plain = !anySign_ && !name.isEmpty() && !name.contains('$');
        return plain ? names_.contains(name) : text_.contains("$$" + name + "$$");
    }

    void Add(const QString& name) {
        names_.insert(name);
        text_ += "$$" + name + "$$";
        anySign_ = anySign_ || name.contains('$');
    }

private:
    QSet<QString> names_;
    QString text_;
    bool anySign_ = false;
};

class DtdReading {
public:
    DtdReading(ReferenceTree& tree, int nodeIndex, const QString& text, int parentIndex, const CaptionHook& caption)
        : tree_(tree), nodeIndex_(nodeIndex), parentIndex_(parentIndex), caption_(caption), text_(text) {}

    // The node index after the branch.
    [[nodiscard]] int Run() {
        AddDocumentType();
        CollectTags();
        for (const Tag& tag : tags_) AddElement(tag);
        return nodeIndex_;
    }

private:
    struct Tag {
        QString entry;  // name, tab, key: what the tags are sorted by
        QString name;
        QString key;  // by which the declarations are found
    };

    void AddDocumentType();
    void CollectTags();
    [[nodiscard]] Tag ReadTag(qsizetype pos, qsizetype end);
    void AddElement(const Tag& tag);
    [[nodiscard]] bool IsEmptyElement(const Tag& tag);
    [[nodiscard]] QString ExpandedAttlist(QString attText);
    void CountNodes(qsizetype nodes);

    ReferenceTree& tree_;
    int nodeIndex_;
    const int parentIndex_;
    const CaptionHook& caption_;
    DtdText text_;
    qsizetype written_ = 0;
    std::vector<Tag> tags_;
};

void DtdReading::CountNodes(qsizetype nodes) {
    if (nodes > greatestNodeIndex - nodeIndex_) throw ReadingFailed("too many nodes");
    nodeIndex_ += static_cast<int>(nodes);
}

void DtdReading::AddDocumentType() {
    const QStringView text = text_.View();
    const QString none = QStringLiteral("!DOCTYPE");
    QString docType = none;
    if (const auto pos = FirstFrom(1, text, u"PUBLIC \"")) {
        docType.append(' ').append(UpTo(text, pos, FirstFrom(pos, text, u'\r')));
    }
    if (const auto pos = FirstFrom(1, text, u"SYSTEM \"")) {
        docType.append(' ').append(UpTo(text, pos + 6, FirstFrom(pos, text, u'\r')));
    }
    if (docType.endsWith('>')) docType.chop(1);
    if (const auto pos = FirstFrom(1, text, u"<!DOCTYPE")) {
        if (const auto end = FirstFrom(pos, text, u'>')) docType = UpTo(text, pos + 1, end).toString();
    }
    if (docType == none) return;
    tree_.AddElement(parentIndex_, docType, true);
    CountNodes(1);
}

void DtdReading::CollectTags() {
    SeenNames seen;
    qsizetype end = 1;
    while (const auto pos = text_.NextElement(end)) {
        end = FirstFrom(pos, text_.View(), u'>');
        Tag tag = ReadTag(pos, end);
        const QString key = tag.key;
        if (!seen.Has(key)) tags_.push_back(std::move(tag));
        seen.Add(key);
    }
    std::ranges::stable_sort(tags_, ComesBefore, &Tag::entry);
}

// The name and key of the element whose declaration stands from `pos` through `end`.
DtdReading::Tag DtdReading::ReadTag(qsizetype pos, qsizetype end) {
    constexpr qsizetype namePos = 11;
    QString declaration = UpTo(text_.View(), pos, end + 1).toString();
    QString key;
    bool first = true;
    Expansion(written_).Run(declaration, [&](qsizetype at, const QString& entity) {
        if (first && at == namePos) key = '%' + entity + ';';
        first = false;
        const std::optional<QString> value = text_.EntityValue(entity);
        if (!value) throw ReadingFailed("a parameter entity isn't declared");
        return *value;
    });
    qsizetype nameEnd = FirstFrom(namePos, declaration, u' ');
    const qsizetype lineFeed = FirstFrom(namePos, declaration, u'\n');
    if (lineFeed != 0 && lineFeed < nameEnd) nameEnd = lineFeed - 1;
    const QString name = UpTo(declaration, namePos, nameEnd).toString();
    if (key.isEmpty()) key = name;
    return {name + '\t' + key, name, key};
}

void DtdReading::AddElement(const Tag& tag) {
    tree_.AddElement(parentIndex_, tag.name, IsEmptyElement(tag));
    text_.EndAttlistHeads(tag.key);
    qsizetype count = 0;
    if (std::optional<QString> attText = text_.Attlist(tag.key)) {
        for (const QString& attribute : AttributeNames(ExpandedAttlist(std::move(*attText)))) {
            tree_.AddNoder(nodeIndex_, NodeKind::Attribute, attribute);
            if (++count > greatestNodeIndex) throw ReadingFailed("too many attributes");
        }
    }
    CountNodes(count + 1);
}

// Any "EMPTY" counts, in any case, also one in a name or in what stands right after the declaration.
bool DtdReading::IsEmptyElement(const Tag& tag) {
    const qsizetype pos = text_.FindElement(tag.key);
    if (pos == 0 && tag.key == QLatin1String("guide") && caption_) caption_(QStringLiteral("ga"));
    const QStringView text = text_.View();
    const qsizetype end = FirstFrom(pos, text, u'>');
    return Range(text, pos, end - pos + 2).contains(QLatin1String("EMPTY"), Qt::CaseInsensitive);
}

QString DtdReading::ExpandedAttlist(QString attText) {
    Expansion(written_).Run(attText, [this](qsizetype /*pos*/, const QString& entity) {
        QString value = text_.EntityValue(entity).value_or(QStringLiteral("ErrorNotFound"));
        if (value.contains('\n') && !value.startsWith('(')) value.prepend(QLatin1String("\r\n"));
        return value;
    });
    return attText;
}

}  // namespace

int AddDtDText(ReferenceTree& tree, int& nodeIndex, const QString& dtdText, int parentIndex, const QString& title,
               const CaptionHook& caption) {
    tree.AddRoot(NodeKind::DocumentType, title);
    nodeIndex = DtdReading(tree, nodeIndex, dtdText, parentIndex, caption).Run();
    return nodeIndex;
}

int AddDtD(ReferenceTree& tree, int& nodeIndex, const QString& dtdPath, int parentIndex, const QString& title,
           const CaptionHook& caption) {
    if (const std::optional<LoadedText> loaded = ReadTextFile(dtdPath)) {
        return AddDtDText(tree, nodeIndex, loaded->text, parentIndex, title, caption);
    }
    tree.AddRoot(NodeKind::DocumentType, title);
    throw ReadingFailed("the file can't be read");
}

}  // namespace vellum
