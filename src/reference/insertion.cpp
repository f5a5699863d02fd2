#include "reference/insertion.h"

#include "editor/document.h"
#include "editor/tag_popup.h"
#include "editor/workbench.h"

namespace vellum {

Insertion PlanInsertion(const ReferenceTree& tree, int index, const QString& selection) {
    const ReferenceNode& node = tree.Node(index);
    if (node.parent == 0) return {};
    const QString& name = node.name;
    switch (node.kind) {
        case NodeKind::Call:
            return {InsertionKind::Call, name + QLatin1String("()")};
        case NodeKind::Attribute:
            return {InsertionKind::Attribute, name + QLatin1String("=\"\"")};
        case NodeKind::Element:
            // One that hangs elsewhere, as after a reading that failed, is but a word.
            if (tree.Node(node.parent).kind != NodeKind::DocumentType) return {InsertionKind::Text, Caption(node)};
            if (node.empty) return {InsertionKind::Element, u'<' + name + QLatin1String(" />")};
            return {InsertionKind::Element, u'<' + name + u'>' + selection + QLatin1String("</") + name + u'>'};
        case NodeKind::Character:
            // The longest names, with no blank after them, have never gone in.
            if (name.size() >= characterColumn) return {};
            return {InsertionKind::Text, u'&' + name + u';'};
        case NodeKind::CharacterSet:
            return {};
        default:
            return {InsertionKind::Text, name};
    }
}

void RunInsertion(Workbench& bench, const Insertion& insertion) {
    Document* document = bench.ActiveDocument();
    if (!document || bench.OpenDocCount() == 0 || insertion.kind == InsertionKind::Nothing) return;
    if (insertion.kind == InsertionKind::Attribute) {
        document->usingKeys = true;
        document->picAttr->InsertAttr(insertion.text);
        document->Text1->setFocus();
        return;
    }
    QString markup = insertion.text;
    bench.PortableColor(markup);
    if (insertion.kind != InsertionKind::Call) return;
    EditSurface& surface = *document->Text1;
    surface.SetSelStart(surface.SelStart() + surface.SelLength() - 1);
    surface.setFocus();
}

}  // namespace vellum
