#include "editor/text_commands.h"

#include "editor/document.h"
#include "editor/markup_case.h"
#include "editor/tag_popup.h"
#include "editor/workbench.h"
#include "values/number_rules.h"
#include "widgets/wait_pointer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace vellum {
namespace {

// The clipboard has "\n" at line ends, as other programs take it; its platform's own spelling is the toolkit's matter.
void PutOnClipboard(QString text) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.clear();
    if (!text.isEmpty()) clipboard.setText(text.replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

// The text goes in anew as a whole, which would take the view to its start.
void ReplaceText(EditSurface& surface, const QString& text, int caret) {
    const int across = surface.horizontalScrollBar()->value();
    const int down = surface.verticalScrollBar()->value();
    surface.SetText(text);
    surface.SetSelStart(caret);
    surface.horizontalScrollBar()->setValue(across);
    surface.verticalScrollBar()->setValue(down);
}

void ChangeMarkupCase(Workbench& bench, Document& document, const QString& mode,
                      QString (*convert)(const QString& mode, const QString& text)) {
    const int caret = document.Text1->SelStart();
    const QString text = document.Text1->Text();
    document.usingKeys = false;
    document.ProcessUndo();
    QString converted;
    {
        const WaitPointer pointer;
        converted = convert(mode, text);
    }
    ReplaceText(*document.Text1, converted, caret);
    bench.Smartcolor();
}

// The caret stays at the line's start, so that a long line isn't shown from its end.
void SelectLine(EditSurface& surface, int line) {
    const QTextBlock block = surface.document()->findBlockByNumber(line);
    QTextCursor cursor = surface.textCursor();
    cursor.setPosition(block.position() + block.length() - 1);
    cursor.setPosition(block.position(), QTextCursor::KeepAnchor);
    surface.setTextCursor(cursor);  // which scrolls to it
}

}  // namespace

void UndoText(Workbench& bench) {
    Document* const document = bench.ActiveDocument();
    if (!document) return;
    document->HandleUndo();
    document->picAttr->HideAttr();
    document->Text1->setFocus();
}

void RedoText(Workbench& bench) {
    Document* const document = bench.ActiveDocument();
    if (!document) return;
    document->HandleRedo();
    document->picAttr->HideAttr();
    document->Text1->setFocus();
}

void CutText(Workbench& bench) {
    Document* const document = bench.ActiveDocument();
    if (!document) return;
    document->usingKeys = false;
    document->ProcessUndo();
    document->ResetRedo();
    document->SetSaver(false);
    PutOnClipboard(document->Text1->SelText());
    document->Text1->SetSelText({});
    document->Text1->setFocus();
}

void CopyText(Workbench& bench) {
    const Document* const document = bench.ActiveDocument();
    if (!document) return;
    PutOnClipboard(document->Text1->SelText());
    document->Text1->setFocus();
}

void PasteText(Workbench& bench) {
    QString text = QGuiApplication::clipboard()->text();
    bench.PortableColor(text);
}

void DeleteText(Workbench& bench) {
    Document* const document = bench.ActiveDocument();
    if (!document) return;
    document->SetSaver(false);
    document->Text1->SetSelText({});
}

void RemoveSelection(Workbench& bench) {
    if (const Document* const document = bench.ActiveDocument()) document->Text1->SetSelText({});
}

void SelectAllText(Workbench& bench) {
    const Document* const document = bench.ActiveDocument();
    if (!document) return;
    document->Text1->SetSelStart(0);
    document->Text1->SetSelLength(document->Text1->Length());
}

void LowerCaseMarkup(Workbench& bench) {
    Document* const document = bench.ActiveDocument();
    if (!document) return;
    ChangeMarkupCase(bench, *document, QStringLiteral("LCase"), ConvertMarkupCase);
    document->SetSaver(false);
}

void UpperCaseMarkup(Workbench& bench) {
    Document* const document = bench.ActiveDocument();
    if (!document) return;
    const bool saver = document->Saver();
    ChangeMarkupCase(bench, *document, QStringLiteral("UCase"), ChangeCase);
    document->SetSaver(saver);
}

void GoToLine(Workbench& bench) {
    const Document* const document = bench.ActiveDocument();
    if (!document) return;
    EditSurface& surface = *document->Text1;
    const int caret = surface.SelStart();
    const QString answer = bench.Ask()
                               .Input(bench.Window(), QStringLiteral("Goto Line..."), QStringLiteral("Vellumcraft"))
                               .value_or(QString());
    if (!IsNumeric(answer)) return;
    const double wanted = LeadingNumber(answer);
    if (wanted <= 0) return;
    if (surface.document()->blockCount() < wanted) {
        bench.Ask().Message(bench.Window(), QStringLiteral("Line Does Not Exist"));
        surface.SetSelStart(caret);
    } else {
        SelectLine(surface, std::max(1, static_cast<int>(RoundHalfEven(wanted))) - 1);
    }
    surface.setFocus();
}

}  // namespace vellum
