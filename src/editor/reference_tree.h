// The reference tree as data: what the document types, character sets and script languages offer. Readers fill it, a
// view shows it, and the popup and the typing assists look things up in it.
#pragma once

#include <QString>

#include <vector>

namespace vellum {

enum class NodeKind {
    DocumentType,  // a root with elements under it
    Element,       // also the declaration that opens a document of its type
    Attribute,
    CharacterSet,  // the title of a file of characters
    Character,
    Call,   // a function or a method of a script language
    Dates,  // the root whose children tell the time
    Text,   // any other root, and what goes into a document as it stands
};

struct ReferenceNode {
    NodeKind kind = NodeKind::Text;
    QString name;        // or the whole text of what has no name
    bool empty = false;  // an element that is declared so
    QString shown;       // what a character is shown as
    int parent = 0;      // index of the parent, 0 for a root
    int row = 0;         // the place among its siblings, from 0
    bool bold = false;
    std::vector<int> children;  // indexes, in order of addition
};

// The blanks after a character's name in its caption are as many as the name is shorter than this.
inline constexpr qsizetype characterColumn = 10;

// What a view shows of a node: "name" and "name      EMPTY" of elements, "name=" of an attribute, "&name;      x" of a
// character.
[[nodiscard]] QString Caption(const ReferenceNode& node);

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
    // All of these answer the index of the new node; `relative` is its parent.
    int AddRoot(NodeKind kind, const QString& name);
    int AddNoder(int relative, NodeKind kind, const QString& name);
    int AddElement(int relative, const QString& name, bool empty);
    int AddCharacter(int relative, const QString& name, const QString& shown);
    void SetName(int index, const QString& name);
    void SetBold(int index, bool bold);

private:
    ReferenceNode& At(int index);

    std::vector<ReferenceNode> nodes_;
    std::vector<int> roots_;
};

}  // namespace vellum
