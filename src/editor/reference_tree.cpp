#include "editor/reference_tree.h"

#include <algorithm>

namespace vellum {

QString Caption(const ReferenceNode& node) {
    switch (node.kind) {
        case NodeKind::Element:
            return node.empty ? node.name + QLatin1String("      EMPTY") : node.name;
        case NodeKind::Attribute:
            return node.name + u'=';
        case NodeKind::Character: {
            const qsizetype pad = std::max<qsizetype>(characterColumn - node.name.size(), 0);
            return u'&' + node.name + u';' + QString(pad, u' ') + node.shown;
        }
        default:
            return node.name;
    }
}

const ReferenceNode& ReferenceTree::Node(int index) const {
    return nodes_.at(static_cast<std::size_t>(index) - 1);
}

ReferenceNode& ReferenceTree::At(int index) {
    return nodes_.at(static_cast<std::size_t>(index) - 1);
}

int ReferenceTree::ActiveRoot() const {
    const auto found = std::ranges::find_if(roots_, [this](int root) { return Node(root).bold; });
    return found == roots_.end() ? 0 : *found;
}

void ReferenceTree::Clear() {
    nodes_.clear();
    roots_.clear();
}

int ReferenceTree::AddRoot(NodeKind kind, const QString& name) {
    ReferenceNode& node = nodes_.emplace_back();
    node.kind = kind;
    node.name = name;
    node.row = static_cast<int>(roots_.size());
    roots_.push_back(Count());
    return Count();
}

int ReferenceTree::AddNoder(int relative, NodeKind kind, const QString& name) {
    const int row = static_cast<int>(At(relative).children.size());
    ReferenceNode& node = nodes_.emplace_back();
    node.kind = kind;
    node.name = name;
    node.parent = relative;
    node.row = row;
    At(relative).children.push_back(Count());
    return Count();
}

int ReferenceTree::AddElement(int relative, const QString& name, bool empty) {
    const int index = AddNoder(relative, NodeKind::Element, name);
    At(index).empty = empty;
    return index;
}

int ReferenceTree::AddCharacter(int relative, const QString& name, const QString& shown) {
    const int index = AddNoder(relative, NodeKind::Character, name);
    At(index).shown = shown;
    return index;
}

void ReferenceTree::SetName(int index, const QString& name) {
    At(index).name = name;
}

void ReferenceTree::SetBold(int index, bool bold) {
    At(index).bold = bold;
}

}  // namespace vellum
