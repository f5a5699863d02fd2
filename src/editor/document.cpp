#include "editor/document.h"

#include "editor/tag_popup.h"
#include "editor/typing.h"
#include "files/file_names.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace vellum {
namespace {

constexpr int linesOfContext = 4;  // above the caret's line after a step

// A text form that holds nothing stands for an empty text.
void Show(EditSurface& surface, const SnapshotText& text, int caret) {
    if (const auto* const snapshot = std::get_if<EditSurface::Snapshot>(&text)) {
        surface.Restore(*snapshot);
    } else {
        surface.SetText(std::get<QString>(text));
    }
    surface.SetSelStart(caret);
}

}  // namespace

Document::Document(Workbench& workbench, QWidget* parent)
    : QWidget(parent),
      Text1(new EditSurface(this)),
      picAttr(new TagPopup(workbench, *this)),
      workbench_(workbench),
      file_(*Text1),
      typing_(std::make_unique<TypingAssist>(workbench, *this)) {
    Text1->setObjectName(QStringLiteral("Text1"));
    setFocusProxy(Text1);
    connect(Text1, &EditSurface::Changed, this, [this] { SetSaver(false); });
    Text1->SetHandlers(typing_.get());
    ShowCaption();
    ResetRedo();
}

Document::~Document() = default;

void Document::SetCaption(const QString& caption) {
    file_.SetPath(caption);
    ShowCaption();
}

void Document::ShowCaption() {
    // The toolkit reads "[*]" as a mark of changes; twice in a row it means the three characters.
    setWindowTitle(ReadableName(Caption()).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void Document::SetSaver(bool saver) {
    if (saver_ == saver) return;
    saver_ = saver;
    emit SaverChanged(saver_);
}

void Document::Activate() {
    auto* const child = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (child && child->mdiArea()) child->mdiArea()->setActiveSubWindow(child);
}

void Document::ProcessUndo() {
    UndoHistory::Push(history_.UndoText, history_.UndoPos, Text1->TakeSnapshot(), Text1->SelStart());
}

void Document::ProcessRedo() {
    UndoHistory::Push(history_.RedoText, history_.RedoPos, Text1->TakeSnapshot(), Text1->SelStart());
}

void Document::HandleUndo() {
    if (!history_.CanUndo()) return;
    ProcessRedo();
    TakeStep(history_.UndoText, history_.UndoPos);
}

void Document::HandleRedo() {
    if (!history_.CanRedo()) return;
    ProcessUndo();
    TakeStep(history_.RedoText, history_.RedoPos);
}

void Document::TakeStep(UndoHistory::Texts& texts, UndoHistory::Carets& carets) {
    SetSaver(false);
    Show(*Text1, texts[0], carets[0]);
    UndoHistory::Drop(texts, carets);
    Text1->setFocus();
    Text1->PlaceCaretLine(linesOfContext);
}

void Document::ResetRedo() {
    history_.ResetRedo();
}

}  // namespace vellum
