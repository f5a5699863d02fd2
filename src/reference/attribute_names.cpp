#include "reference/attribute_names.h"

#include "reference/text_search.h"

#include <algorithm>

namespace vellum {
namespace {

// Where the word of a line begins whose CR stands at `lineEnd`, looking at a hundred characters at most.
qsizetype WordPos(QStringView text, qsizetype lineEnd) {
    constexpr int maxSkip = 100;
    qsizetype pos = lineEnd + 3;
    for (int skip = 1; skip < maxSkip && pos <= text.size(); ++skip, ++pos) {
        const QChar c = text.at(pos - 1);
        if (c != ' ' && c != '\n' && c != '\r') break;
    }
    return pos;
}

// Tells for ascending positions whether they lie within parentheses.
class ListOfValues {
public:
    explicit ListOfValues(QStringView text) : text_(text) {}

    // True when the first ")" after the last "(" before `pos` comes after `pos`.
    [[nodiscard]] bool Holds(qsizetype pos) {
        const qsizetype newest = text_.mid(seen_, pos - seen_).lastIndexOf(QChar('('));
        if (newest >= 0) {
            opening_ = seen_ + newest + 1;
            closing_ = FirstFrom(opening_, text_, u')');
        }
        seen_ = pos;
        return opening_ != 0 && opening_ < pos && closing_ > pos;
    }

private:
    QStringView text_;
    qsizetype seen_ = 0;  // up to here the text was looked at
    qsizetype opening_ = 0;
    qsizetype closing_ = 0;
};

}  // namespace

std::vector<QString> AttributeNames(QStringView attText) {
    std::vector<QString> names;
    ListOfValues values(attText);
    qsizetype lineEnd = FirstFrom(1, attText, u'\r');
    while (lineEnd != 0) {
        const qsizetype pos = WordPos(attText, lineEnd);
        const qsizetype end = FirstFrom(pos, attText, u' ');
        if (end == 0) break;
        const QStringView word = UpTo(attText, pos, end);
        if (word != u">" && !values.Holds(pos)) names.push_back(word.toString());
        lineEnd = FirstFrom(end, attText, u'\r');
    }
    std::ranges::stable_sort(names, ComesBefore);
    return names;
}

}  // namespace vellum
