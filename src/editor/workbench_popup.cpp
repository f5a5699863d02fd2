// The popup of the active document, as the main window works it.
#include "editor/document.h"
#include "editor/list_tag.h"
#include "editor/popup_list.h"
#include "editor/reference_tree.h"
#include "editor/tag_popup.h"
#include "editor/workbench.h"

#include <QFrame>
#include <QListWidget>

#include <algorithm>

namespace vellum {
namespace {

// The text from a tag's "<" on, as far as the popup has to know it.
QString TagAround(const EditSurface& surface, int tagPos) {
    constexpr int ahead = 256;
    const int begin = tagPos - 1;
    const int needed = surface.SelStart() - begin + 1;
    QString text = surface.Mid(begin, needed + ahead);
    // A name that goes on is read in ever longer pieces.
    while (!text.contains(u'>') && !text.contains(u'\r') && begin + text.size() < surface.Length()) {
        text = surface.Mid(begin, static_cast<int>(text.size()) * 2);
    }
    return text;
}

void ShowTags(Document& document, const ReferenceTree& references) {
    const int root = references.ActiveRoot();
    if (root == 0) return;
    const QString& rootName = references.Node(root).name;
    QListWidget& list = *document.cmbTags;
    if (ListTag(&list) != rootName) {
        FillList(list, TagEntries(references, root));
    }
    list.setCurrentRow(0);  // scrolls to the top
    list.setCurrentRow(-1);
    SetListTag(&list, rootName);
    document.ShowPopup(list);
}

void ShowAttributes(Workbench& bench, Document& document, const QString& name) {
    const ReferenceTree& references = bench.References();
    const int root = references.ActiveRoot();
    if (root == 0 || references.Node(root).children.empty()) return;
    const int element = FindElement(references, root, name);
    if (element == 0) return bench.HideAttr();
    const ReferenceNode& node = references.Node(element);
    QListWidget& list = *document.cmbattr;
    if (ListTag(&list) != node.name) {
        QStringList attributes;
        for (const int child : node.children) {
            const ReferenceNode& attribute = references.Node(child);
            if (attribute.kind == NodeKind::Attribute) attributes << Caption(attribute);
        }
        FillList(list, attributes);
    }
    if (list.count() == 0) return bench.HideAttr();
    SetListTag(&list, node.name);
    document.ShowPopup(list);
}

}  // namespace

void Workbench::ShowAttr(int tagPos) {
    Document* document = ActiveDocument();
    if (!document || tagPos < 1) return;
    const EditSurface& surface = *document->Text1;
    const PopupDecision decision = DecidePopup(TagAround(surface, tagPos), surface.SelStart() - (tagPos - 1));
    switch (decision.step) {
        case PopupStep::Leave:
            return;
        case PopupStep::Hide:
            return HideAttr();
        case PopupStep::Tags:
            return ShowTags(*document, References());
        case PopupStep::Attributes:
            return ShowAttributes(*this, *document, decision.name);
    }
}

void Workbench::HideAttr() {
    Document* document = ActiveDocument();
    if (!document) return;
    document->cmbattr->clear();
    document->picAttr->hide();
    document->cmbattr->hide();
    document->cmbTags->hide();
    SetListTag(document->cmbattr, {});
}

QString Workbench::GetStrAtt(int tagPos) const {
    const Document* document = ActiveDocument();
    if (!document || tagPos < 1) return {};
    const EditSurface& surface = *document->Text1;
    return PartialWord(surface.Mid(tagPos - 1, surface.SelStart() - (tagPos - 1)));
}

void Workbench::TakeTag() {
    Document* document = ActiveDocument();
    if (!document) return;
    const QString entry = ChosenEntry(*document->cmbTags);
    if (entry.isEmpty()) return;
    InsertAttr(entry);
    document->Text1->setFocus();
    document->picAttr->hide();
}

void Workbench::TakeAttribute() {
    Document* document = ActiveDocument();
    if (!document) return;
    const QString entry = ChosenEntry(*document->cmbattr);
    if (entry.isEmpty()) return;
    EditSurface& surface = *document->Text1;
    document->usingKeys = false;
    if (entry.contains(u'=')) InsertAttr(entry + QStringLiteral("\"\""));
    if (entry.contains(u'&')) {
        document->ProcessUndo();
        document->ResetRedo();
        if (surface.SelStart() >= 1) document->SelectWord();
        surface.SetSelText(entry.left(entry.indexOf(u';') + 1));
    }
    surface.setFocus();
    document->picAttr->hide();
}

void Workbench::InsertAttr(const QString& item) {
    Document* document = ActiveDocument();
    if (!document) return;
    EditSurface& surface = *document->Text1;
    const bool isTag = document->cmbTags->isVisible();
    if (document->picAttr->isVisible() && !document->strAtt.isEmpty()) document->SelectWord();

    const int begin = surface.SelStart();
    const QString before = begin == 0 ? QStringLiteral(" ") : surface.Mid(begin - 1, 1);
    const int end = begin + surface.SelLength();
    const QString after = end >= surface.Length() ? QStringLiteral(" ") : surface.Mid(end, 1);
    QString insert = isTag || QStringView(u" \t\n").contains(before) ? item : u' ' + item;
    const auto selectOpening = [&] {
        surface.SetSelStart(begin - 1);
        surface.SetSelLength(end - begin + 1);
    };
    if (!isTag) {
        const bool followed = !QStringView(u" \t\r>").contains(after);
        if (followed) insert += u' ';
        surface.SetSelText(insert);
        surface.SetSelStart(surface.SelStart() - (followed ? 2 : 1));
    } else if (item.startsWith(QLatin1String("!--"))) {
        selectOpening();
        insert = QStringLiteral("<!--    -->");
        PortableColor(insert);
        surface.SetSelStart(surface.SelStart() - 5);
        return;
    } else if (item.startsWith(u'/')) {
        selectOpening();
        insert = u'<' + insert + u'>';
        PortableColor(insert);
    } else {
        insert += u' ';
        PortableColor(insert);
    }
    document->picAttr->hide();
}

}  // namespace vellum
