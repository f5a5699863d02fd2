// The entity reader on made-up input: it ends, and its nodes have the shape that the tree promises.
#include "reference/entity_reader.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellum;
    // In UTF-8 on odd lengths, so that characters of both kinds come up.
    const auto* const bytes = reinterpret_cast<const char*>(data);
    const auto length = static_cast<qsizetype>(size);
    const QString text = length % 2 == 0 ? QString::fromLatin1(bytes, length) : QString::fromUtf8(bytes, length);
    ReferenceTree tree;
    tree.AddRoot(NodeKind::Text, "Character Sets");
    int nodeIndex = 1;
    try {
        for (int file = 0; file < 3; ++file) nodeIndex = AddEntText(tree, nodeIndex, text, 1, "Title");
        if (nodeIndex > tree.Count()) std::abort();
    } catch (const ReadingFailed&) {
    } catch (const std::out_of_range&) {
    }
    if (tree.Count() > 3 * greatestNodeIndex + 4) std::abort();
    for (int index = 2; index <= tree.Count(); ++index) {
        const ReferenceNode& node = tree.Node(index);
        const bool title = node.kind == NodeKind::CharacterSet && node.name == "Title";
        if (!title && node.kind != NodeKind::Character) std::abort();
    }
    return 0;
}
