// The attributes that a declaration lists, told by its lines alone.
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace vellum {

// The order of the lists: ascending without regard to case.
[[nodiscard]] inline bool ComesBefore(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) < 0;
}

// The first word of each line of `attText` but the first line, sorted; words of equal rank keep their order. A line's
// first character is taken for indentation whatever it is. A ">" by itself is no name, nor is a word within the
// parentheses of a list of values. Lines end in CR LF.
[[nodiscard]] std::vector<QString> AttributeNames(QStringView attText);

}  // namespace vellum
