// What a style sheet can set, and the three ways to write it: as a sheet, around a selection, inside a tag.
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace vellum {

// The pages of the editor that the properties stand on.
enum class StylePage { Text, Color, Layout, Classification, Positioning, Printing };

[[nodiscard]] const QStringList& StylePageNames();

struct StyleProperty {
    const char* name;
    StylePage page;
    const char* values;       // that are offered, with commas between them
    const char* common = "";  // those that it shares with other properties, which come after its own
    bool hasColorButton = false;
};

constexpr std::size_t stylePropertyCount = 62;

// In the order in which they are written. A property is told by its index here, from 0.
[[nodiscard]] const std::array<StyleProperty, stylePropertyCount>& StyleProperties();
[[nodiscard]] QStringList OfferedValues(const StyleProperty& property);

// One a property; an empty one isn't set.
using StyleValues = std::array<QString, stylePropertyCount>;

struct StyleRule {
    QString element;
    StyleValues values;
};

// The rules, also those without values; with style tags around them, or as they stand in a file of their own.
[[nodiscard]] QString StyleSheetText(const std::vector<StyleRule>& rules, bool withTags);
// The element's tags with `selection` between them; one tag for an element that is empty by its name, in that case.
[[nodiscard]] QString InlineStyle(const QString& element, const StyleValues& values, const QString& selection);
// ` style="..."`, for the inside of a tag.
[[nodiscard]] QString InTagStyle(const StyleValues& values);

}  // namespace vellum
