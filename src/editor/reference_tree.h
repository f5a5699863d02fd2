// The reference tree as data: what the document types, character sets and script languages offer. Readers fill it, a
// view shows it, and the popup and the typing assists look things up in it.
#pragma once

#include <QString>

#include <vector>

namespace vellum {

struct ReferenceNode {
    QString text;
    QString tag;     // "DTD" on the root of a document type
    int parent = 0;  // index of the parent, 0 for a root
    int row = 0;     // the place among its siblings, from 0
    bool bold = false;
    std::vector<int> children;  // indexes, in order of addition
};

// What an element that is declared empty ends in: six blanks and the word.
inline constexpr QLatin1String emptyElementMark("      EMPTY");

// Nodes are numbered from 1 in order of addition, whatever their parent. An index outside 1 .. Count() throws
// std::out_of_range.
class ReferenceTree {
public:
    [[nodiscard]] int Count() const { return static_cast<int>(nodes_.size()); }
    [[nodiscard]] const ReferenceNode& Node(int index) const;
    [[nodiscard]] const std::vector<int>& Roots() const { return roots_; }
    // The first bold root, which is the active document type; 0 when there is none.
    [[nodiscard]] int ActiveRoot() const;

    void Clear();
    // Both answer the index of the new node.
    int AddRoot(const QString& text, const QString& tag = {});
    int AddChild(int parent, const QString& text);
    void SetText(int index, const QString& text);
    void SetBold(int index, bool bold);

private:
    ReferenceNode& At(int index);

    std::vector<ReferenceNode> nodes_;
    std::vector<int> roots_;
};

}  // namespace vellum
