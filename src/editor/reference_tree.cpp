#include "editor/reference_tree.h"

#include <algorithm>

namespace vellum {

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

int ReferenceTree::AddRoot(const QString& text, const QString& tag) {
    nodes_.push_back({.text = text, .tag = tag, .row = static_cast<int>(roots_.size()), .children = {}});
    roots_.push_back(Count());
    return Count();
}

int ReferenceTree::AddChild(int parent, const QString& text) {
    const int row = static_cast<int>(At(parent).children.size());
    nodes_.push_back({.text = text, .tag = {}, .parent = parent, .row = row, .children = {}});
    At(parent).children.push_back(Count());
    return Count();
}

void ReferenceTree::SetText(int index, const QString& text) {
    At(index).text = text;
}

void ReferenceTree::SetBold(int index, bool bold) {
    At(index).bold = bold;
}

}  // namespace vellum
