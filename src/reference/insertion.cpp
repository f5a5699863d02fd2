#include "reference/insertion.h"

#include "editor/document.h"
#include "editor/workbench.h"

namespace vellum {

Insertion PlanInsertion(const ReferenceTree& tree, int index, const QString& selection) {
    const ReferenceNode& node = tree.Node(index);
    if (node.parent == 0) return {};
    const ReferenceNode& parent = tree.Node(node.parent);
    const QString& text = node.text;
    const auto isUnder = [&](const char* name) { return parent.text == QLatin1String(name); };
    if (isUnder("Methods") || isUnder("Functions")) return {InsertionKind::Call, text + QLatin1String("()")};
    if (isUnder("Emoticons") || isUnder("Date/Time") || isUnder("Custom List")) return {InsertionKind::Text, text};
    if (text.contains(u'=')) return {InsertionKind::Attribute, text + QLatin1String("\"\"")};
    if (parent.tag == QLatin1String("DTD")) {
        if (!text.contains(QLatin1String("EMPTY"))) {
            const QString markup = u'<' + text + u'>' + selection + QLatin1String("</") + text + u'>';
            return {InsertionKind::Element, markup};
        }
        // An element may have the word for a name, without the mark.
        if (text.size() < emptyElementMark.size()) return {};
        return {InsertionKind::Element, u'<' + text.chopped(emptyElementMark.size()) + QLatin1String(" />")};
    }
    if (isUnder("Character Sets")) return {};
    if (!text.startsWith(u'&')) return {InsertionKind::Text, text};
    const auto blank = text.indexOf(u' ');
    return blank < 0 ? Insertion() : Insertion{InsertionKind::Text, text.left(blank)};
}

void RunInsertion(Workbench& bench, const Insertion& insertion) {
    Document* document = bench.ActiveDocument();
    if (!document || bench.OpenDocCount() == QLatin1String("0") || insertion.kind == InsertionKind::Nothing) return;
    if (insertion.kind == InsertionKind::Attribute) {
        document->usingKeys = true;
        bench.InsertAttr(insertion.text);
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
