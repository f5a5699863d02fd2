// The DTD reader on made-up input: it ends, keeps its nodes within bounds, and adds what plain searches would add.
#include "reference/dtd_reader.h"
#include "tests/reference/literal_dtd_reader.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace vellum {
namespace {

struct Outcome {
    ReferenceTree tree;
    int nodeIndex = 2;
    bool failed = false;
};

template <typename Reader>
Outcome Read(Reader reader, const QString& text) {
    Outcome outcome;
    try {
        reader(outcome.tree, outcome.nodeIndex, text, 1, "Title", {});
    } catch (const ReadingFailed&) {
        outcome.failed = true;
    } catch (const std::out_of_range&) {
        outcome.failed = true;
    }
    return outcome;
}

bool SameNodes(const ReferenceTree& left, const ReferenceTree& right) {
    if (left.Count() != right.Count()) return false;
    for (int index = 1; index <= left.Count(); ++index) {
        const ReferenceNode& one = left.Node(index);
        const ReferenceNode& other = right.Node(index);
        if (Caption(one) != Caption(other) || one.parent != other.parent) return false;
    }
    return true;
}

}  // namespace
}  // namespace vellum

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vellum;
    const QString text = QString::fromLatin1(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const Outcome indexed = Read(AddDtDText, text);
    const Outcome literal = Read(test::LiteralAddDtD, text);
    const bool same = indexed.failed == literal.failed && indexed.nodeIndex == literal.nodeIndex &&
                      SameNodes(indexed.tree, literal.tree);
    if (!same || indexed.tree.Count() > 2 * greatestNodeIndex + 2) std::abort();
    return 0;
}
