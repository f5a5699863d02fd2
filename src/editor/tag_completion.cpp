#include "editor/tag_completion.h"

#include "editor/markup_case.h"
#include "editor/reference_tree.h"

#include <algorithm>

namespace vellum {
namespace {

bool FirstTypeIsActive(const ReferenceTree& references) {
    return references.Count() > 0 && references.Node(1).bold;
}

// The name of a tag with a blank on either side, as it is looked for in the texts of the tree.
QString NameKey(const QString& tagText) {
    static constexpr QStringView nameEnds = u" \t\r";
    const auto* const end = std::ranges::find_if(tagText, [](QChar c) { return nameEnds.contains(c); });
    const auto length = end == tagText.cend() ? tagText.indexOf(u'>') : end - tagText.cbegin();
    return u' ' + tagText.mid(1, length - 1).toLower() + u' ';
}

bool IsEmptyElement(const QString& key, const ReferenceTree& references) {
    const int root = references.ActiveRoot();
    if (root == 0) return false;
    return std::ranges::any_of(references.Node(root).children, [&](int child) {
        const QString& text = references.Node(child).text;
        return text.contains(QLatin1String("EMPTY")) && (u' ' + text + u' ').contains(key);
    });
}

}  // namespace

QString CompletedTag(QString tagText, const CompletionRules& rules, const ReferenceTree& references) {
    if (rules.lowerCase && FirstTypeIsActive(references) && !tagText.startsWith(QLatin1String("<!DOCTYPE"))) {
        tagText = ConvertMarkupCase(QStringLiteral("LCase"), tagText);
    }
    constexpr int shortest = 3;
    if (!rules.closeEmpty || tagText.size() < shortest) return tagText;
    const QString key = NameKey(tagText);
    if (key == QLatin1String("  ") || tagText.endsWith(QLatin1String("/>"))) return tagText;
    if (IsEmptyElement(key, references)) {
        tagText.chop(1);
        if (!tagText.endsWith(u' ')) tagText += u' ';  // a chosen name brings its blank along
        tagText += QLatin1String("/>");
    }
    return tagText;
}

}  // namespace vellum
