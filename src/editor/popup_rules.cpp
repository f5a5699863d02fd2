#include "editor/popup_rules.h"

#include <QStringList>

#include <algorithm>

namespace vellum {
namespace {

constexpr QStringView nameEnds = u" >\t\r";
constexpr QStringView blanks = u" \t\n\r";
constexpr QStringView wordEnds = u"/>< \t\r\n";
constexpr QStringView wordMarks = u" ><\"\t\n\r";

// Characters between the edge of the surface and the popup's right side, in pixels.
constexpr int edgeGap = 20;
constexpr int caretGap = 2;

bool ContainsAny(QStringView text, QStringView characters) {
    return std::ranges::any_of(text, [&](QChar c) { return characters.contains(c); });
}

}  // namespace

PopupDecision DecidePopup(QStringView tag, int caret) {
    const bool atEnd = caret >= tag.size();
    const auto* const found = std::ranges::find_if(tag, [](QChar c) { return nameEnds.contains(c); });
    if (caret < 1 || (found == tag.end() && !atEnd)) return {PopupStep::Leave, {}};
    const QStringView name = tag.first(found - tag.begin()).mid(1);
    const QStringView soFar = tag.first(std::min<qsizetype>(caret, tag.size()));
    const QChar before = soFar.back();
    if (!atEnd && !wordEnds.contains(tag.at(caret)) && !wordEnds.contains(before) && before != u'"')
        return {PopupStep::Hide, {}};
    if (soFar.count(u'"') % 2 != 0 || (name.isEmpty() && before != u'<')) return {PopupStep::Hide, {}};
    if (before == u'<' && name.isEmpty() && soFar.size() == 1) return {PopupStep::Tags, {}};
    if (!ContainsAny(soFar, blanks)) return {PopupStep::Hide, {}};
    return {PopupStep::Attributes, name.toString()};
}

QString PartialWord(QStringView beforeCaret) {
    qsizetype start = beforeCaret.size();
    while (start > 0 && !wordMarks.contains(beforeCaret.at(start - 1))) --start;
    return start == 0 ? QString() : beforeCaret.mid(start).toString();
}

std::vector<PopupEntry> TagEntries(const ReferenceTree& references, int root) {
    std::vector<PopupEntry> entries;
    const auto add = [&entries](const QString& text) { entries.push_back({NodeKind::Element, text, text}); };
    add(QStringLiteral("!--"));
    QStringList closers;
    for (const int child : references.Node(root).children) {
        const ReferenceNode& node = references.Node(child);
        if (node.kind != NodeKind::Element) continue;
        add(node.name);
        if (!node.empty) closers << u'/' + node.name;
    }
    std::ranges::for_each(closers, add);
    return entries;
}

std::vector<PopupEntry> AttributeEntries(const ReferenceTree& references, int element) {
    std::vector<PopupEntry> entries;
    for (const int child : references.Node(element).children) {
        const ReferenceNode& node = references.Node(child);
        if (node.kind != NodeKind::Attribute) continue;
        entries.push_back({node.kind, Caption(node), node.name + QLatin1String("=\"\"")});
    }
    return entries;
}

std::vector<PopupEntry> CharacterEntries(const ReferenceTree& references) {
    std::vector<PopupEntry> entries;
    for (int index = 1; index <= references.Count(); ++index) {
        const ReferenceNode& node = references.Node(index);
        if (node.kind != NodeKind::Character) continue;
        entries.push_back({node.kind, Caption(node), u'&' + node.name + u';'});
    }
    return entries;
}

int FindElement(const ReferenceTree& references, int root, const QString& name) {
    const auto& children = references.Node(root).children;
    const auto found = std::ranges::find_if(children, [&](int child) {
        const ReferenceNode& node = references.Node(child);
        return node.kind == NodeKind::Element && node.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == children.end() ? 0 : *found;
}

QRect PopupPlace(const QRect& caret, const QRect& area, QSize size) {
    const int roomBelow = area.bottom() - caret.bottom() - caretGap;
    const int roomAbove = caret.top() - caretGap - area.top();
    const bool above = size.height() > roomBelow && roomAbove > roomBelow;
    const int height = std::clamp(above ? roomAbove : roomBelow, 0, std::min(size.height(), area.height()));
    const int width = std::min(size.width(), area.width());
    const int top = above ? caret.top() - caretGap - height : caret.bottom() + caretGap + 1;
    const int rightmost = std::max(area.right() + 1 - edgeGap - width, area.left());
    // A caret that is scrolled out of the area has its popup at the edge.
    const int lowest = area.bottom() + 1 - height;
    return {std::clamp(caret.left(), area.left(), rightmost), std::clamp(top, area.top(), lowest), width, height};
}

}  // namespace vellum
