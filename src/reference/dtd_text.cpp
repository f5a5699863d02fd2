#include "reference/dtd_text.h"

#include "reference/text_search.h"

#include <algorithm>

namespace vellum {
namespace {

constexpr QLatin1String elementStart("<!ELEMENT ");
constexpr QLatin1String attlistStart("<!ATTLIST ");
constexpr QLatin1String entityStart("<!ENTITY % ");

QString Normalised(const QString& raw) {
    QString text(raw.size() + raw.count('\n') + raw.count('\r'), Qt::Uninitialized);
    QChar* out = text.data();
    const QChar* const end = raw.constData() + raw.size();
    for (const QChar* at = raw.constData(); at != end; ++at) {
        if (*at == '\r' || *at == '\n') {
            if (*at == '\r' && at + 1 != end && at[1] == '\n') ++at;
            *out++ = '\r';
            *out++ = '\n';
        } else {
            *out++ = *at == '\t' ? QChar(' ') : *at;
        }
    }
    text.truncate(out - text.constData());
    return text;
}

// A search for such a name matches within one word only. So putting an end to the heads that hold it neither makes nor
// breaks another match, and changes no value but one that holds a whole head.
bool IsWord(QStringView name) {
    return std::ranges::none_of(name, [](QChar c) { return QStringView(u" \r\n<\"").contains(c); });
}

}  // namespace

DtdText::DtdText(const QString& raw) : text_(Normalised(raw)) {
    Index();
}

// From `pos` up to the next blank or line end.
QStringView DtdText::WordAt(qsizetype pos) const {
    const QStringView rest = QStringView(text_).mid(pos - 1);
    const auto* const end =
        std::ranges::find_if(rest.begin(), rest.end(), [](QChar c) { return c == ' ' || c == '\r'; });
    return rest.first(end - rest.begin());
}

void DtdText::AddWord(QHash<QStringView, Places>& words, qsizetype declarationPos, QStringView word) const {
    Places& places = words[word];
    const QChar* const next = word.data() + word.size();
    if (next == text_.constData() + text_.size()) return;
    qsizetype& first = *next == ' ' ? places.withBlank : places.withLineEnd;
    if (first == 0) first = declarationPos;
}

void DtdText::Index() {
    elements_.clear();
    entities_.clear();
    heads_.clear();
    elementWords_.clear();
    attlistWords_.clear();
    values_.clear();
    anyEnded_ = false;
    for (auto pos = FirstFrom(1, text_, u"<!"); pos != 0; pos = FirstFrom(pos + 2, text_, u"<!")) {
        const QStringView rest = QStringView(text_).mid(pos - 1);
        if (rest.startsWith(elementStart)) {
            elements_.push_back(pos);
            AddWord(elementWords_, pos, WordAt(pos + elementStart.size()));
        } else if (rest.startsWith(attlistStart)) {
            const QStringView word = WordAt(pos + attlistStart.size());
            AddWord(attlistWords_, pos, word);
            heads_.push_back({pos + attlistStart.size() + word.size(), word});
        } else if (rest.startsWith(entityStart)) {
            entities_.push_back(pos);
        }
    }
}

qsizetype DtdText::NextElement(qsizetype pos) const {
    const auto found = std::ranges::lower_bound(elements_, pos);
    return found == elements_.end() ? 0 : *found;
}

qsizetype DtdText::FindElement(const QString& key) {
    if (IsWord(key)) {
        const Places places = elementWords_.value(key);
        return places.withBlank != 0 ? places.withBlank : places.withLineEnd;
    }
    ApplyEndedHeads();
    const auto pos = FirstFrom(1, text_, elementStart + key + ' ');
    return pos != 0 ? pos : FirstFrom(1, text_, elementStart + key + QLatin1String("\r\n"));
}

void DtdText::EndAttlistHeads(const QString& key) {
    if (IsWord(key)) {
        const auto found = attlistWords_.find(key);
        if (found == attlistWords_.end() || found->withBlank == 0) return;
        found->ended = true;
        anyEnded_ = true;
        return;
    }
    ApplyEndedHeads();
    const QString head = attlistStart + key + ' ';
    if (!text_.contains(head)) return;
    text_.replace(head, attlistStart + key + QLatin1String("\r\n"));
    Index();
}

std::optional<QString> DtdText::Attlist(const QString& key) {
    qsizetype pos = 0;
    if (IsWord(key)) {
        const Places places = attlistWords_.value(key);
        pos = places.withLineEnd;
        if (places.ended && (pos == 0 || places.withBlank < pos)) pos = places.withBlank;
    } else {
        ApplyEndedHeads();
        pos = FirstFrom(1, text_, attlistStart + key + '\r');
    }
    if (pos == 0) return std::nullopt;
    return Taken(pos, FirstFrom(pos, text_, u'>') - pos + 1);
}

// A range of the text as it stands with the ended heads.
QString DtdText::Taken(qsizetype pos, qsizetype length) const {
    const QStringView range = Range(text_, pos, length);
    if (!anyEnded_) return range.toString();
    const qsizetype end = pos + range.size();
    QString taken;
    taken.reserve(range.size() + 16);
    auto head = std::ranges::lower_bound(heads_, pos, {}, &AttlistHead::blankPos);
    for (; head != heads_.end() && head->blankPos < end; ++head) {
        if (!attlistWords_.value(head->word).ended || text_.at(head->blankPos - 1) != ' ') continue;
        taken += UpTo(text_, pos, head->blankPos);
        taken += QLatin1String("\r\n");
        pos = head->blankPos + 1;
    }
    return taken.append(UpTo(text_, pos, end));
}

void DtdText::ApplyEndedHeads() {
    if (!anyEnded_) return;
    text_ = Taken(1, text_.size());
    Index();
}

qsizetype DtdText::FindEntity(QStringView name) {
    if (!IsWord(name)) {
        ApplyEndedHeads();
        return FirstFrom(1, text_, entityStart + name.toString());
    }
    const auto found = std::ranges::find_if(entities_, [this, name](qsizetype pos) {
        return QStringView(text_).mid(pos - 1 + entityStart.size()).startsWith(name);
    });
    return found == entities_.end() ? 0 : *found;
}

std::optional<QString> DtdText::EntityValue(const QString& name) {
    const auto known = values_.constFind(name);
    if (known != values_.cend()) return *known;
    const bool isWord = IsWord(name);
    const qsizetype pos = FindEntity(name);
    if (pos == 0) {
        if (isWord) values_.insert(name, std::nullopt);
        return std::nullopt;
    }
    const qsizetype firstQuote = FirstFrom(pos, text_, u'"');
    const qsizetype lastQuote = LastUpTo(FirstFrom(pos, text_, u'>'), text_, u'"');
    const qsizetype length = lastQuote - firstQuote - 1;
    const QString value = Taken(firstQuote + 1, length);
    // Ending a head later can change any other.
    if (isWord && !value.contains(attlistStart)) values_.insert(name, value);
    return value;
}

}  // namespace vellum
