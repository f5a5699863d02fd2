// A reference tree as text, so that a test compares whole branches at a glance.
#pragma once

#include "editor/reference_tree.h"

#include <QStringList>

#include <string>

namespace vellum::test {

// One line a node, in the order of the branches: a dash for each level, the index, the caption.
inline void AppendBranch(QStringList& lines, const ReferenceTree& tree, int index, int depth) {
    const ReferenceNode& node = tree.Node(index);
    lines << QString(depth, '-') + QString::number(index) + ' ' + Caption(node);
    for (const int child : node.children) AppendBranch(lines, tree, child, depth + 1);
}

[[nodiscard]] inline std::string TreeText(const ReferenceTree& tree) {
    QStringList lines;
    for (const int root : tree.Roots()) AppendBranch(lines, tree, root, 0);
    return lines.join('\n').toStdString();
}

// The captions of a node's children.
[[nodiscard]] inline QStringList ChildTexts(const ReferenceTree& tree, int index) {
    QStringList texts;
    for (const int child : tree.Node(index).children) texts << Caption(tree.Node(child));
    return texts;
}

// In the order of the tree, which sorts names without regard to case.
[[nodiscard]] inline QStringList Sorted(QStringList names) {
    names.sort(Qt::CaseInsensitive);
    return names;
}

// The first node with a caption; 0 when there is none.
[[nodiscard]] inline int FindNode(const ReferenceTree& tree, const QString& text) {
    for (int index = 1; index <= tree.Count(); ++index) {
        if (Caption(tree.Node(index)) == text) return index;
    }
    return 0;
}

}  // namespace vellum::test
