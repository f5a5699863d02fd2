#include "editor/tag_completion.h"

#include "editor/markup_case.h"
#include "editor/reference_tree.h"

#include <algorithm>

namespace vellum {
namespace {

bool FirstTypeIsActive(const ReferenceTree& references) {
    return references.Count() > 0 && references.Node(1).bold;
}

QString LowerName(const QString& tagText) {
    static constexpr QStringView nameEnds = u" \t\r";
    const auto* const end = std::ranges::find_if(tagText, [](QChar c) { return nameEnds.contains(c); });
    const auto length = end == tagText.cend() ? tagText.indexOf(u'>') : end - tagText.cbegin();
    return tagText.mid(1, length - 1).toLower();
}

bool IsEmptyElement(const QString& name, const ReferenceTree& references) {
    const int root = references.ActiveRoot();
    if (root == 0 || name.isEmpty()) return false;
    return std::ranges::any_of(references.Node(root).children, [&](int child) {
        const ReferenceNode& node = references.Node(child);
        return node.empty && node.name == name;
    });
}

}  // namespace

QString CompletedTag(QString tagText, const CompletionRules& rules, const ReferenceTree& references) {
    if (rules.lowerCase && FirstTypeIsActive(references) && !tagText.startsWith(QLatin1String("<!DOCTYPE"))) {
        tagText = ConvertMarkupCase(QStringLiteral("LCase"), tagText);
    }
    constexpr int shortest = 3;
    if (!rules.closeEmpty || tagText.size() < shortest) return tagText;
    if (tagText.endsWith(QLatin1String("/>"))) return tagText;
    if (IsEmptyElement(LowerName(tagText), references)) {
        tagText.chop(1);
        if (!tagText.endsWith(u' ')) tagText += u' ';  // a chosen name brings its blank along
        tagText += QLatin1String("/>");
    }
    return tagText;
}

}  // namespace vellum
