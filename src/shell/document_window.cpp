#include "shell/document_window.h"

#include "editor/smartcolor.h"
#include "editor/workbench.h"
#include "files/file_names.h"
#include "files/recovery_store.h"
#include "values/text_difference.h"
#include "widgets/prompts.h"
#include "widgets/wait_pointer.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMdiSubWindow>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace vellum {

DocumentWindow::DocumentWindow(Workbench& workbench, QWidget* parent)
    : Document(workbench, parent), lblFormat_(new QLabel(this)), encodingQuestion_(workbench, *this) {
    setAttribute(Qt::WA_DeleteOnClose);
    setMouseTracking(true);
    Text1->setMouseTracking(true);
    Text1->viewport()->setMouseTracking(true);
    Text1->installEventFilter(this);
    Text1->viewport()->installEventFilter(this);
    lblFormat_->setObjectName("lblFormat");
    lblFormat_->setAccessibleName(tr("Encoding and line ends of the file"));
    lblFormat_->setMouseTracking(true);
    lblFormat_->setContentsMargins(6, 0, 6, 0);
    lblFormat_->setToolTip(tr("Encoding and line ends of the file"));
    ShowFile();
}

bool DocumentWindow::LoadFile(const QString& path) {
    if (!file_.Load(path)) return false;
    ShowFile();
    SetSaver(true);
    return true;
}

bool DocumentWindow::MaySave(const QString& path) {
    if (const auto look = path == Caption() ? LookAt(file_.Known()) : std::nullopt) HearOf(*look);
    if (path == Caption() && outside_.change != FileChange::None && !SettleFile()) return false;
    if (!SettleOtherWindows(path)) return false;
    settled_ = encodingQuestion_.Settle(path);
    return settled_.has_value();
}

void DocumentWindow::HearOf(const FileLook& look) {
    if (look.change == FileChange::Changed && file_.IsUntouched()) {
        TakeFilesText(look);
        return;
    }
    if (look.change == FileChange::Gone) SetSaver(false);
    if (look.change == FileChange::None && file_.IsUntouched()) SetSaver(true);  // it may have been gone
    file_.SetStamp(look.stamp);
    outside_ = look;
    asked_ = false;
    ShowFile();
}

void DocumentWindow::AskAboutFile() {
    if (outside_.change == FileChange::Changed && !asked_) SettleFile();
}

bool DocumentWindow::SettleFile() {
    enum { keep, take, later };
    asked_ = true;
    if (outside_.change == FileChange::Gone) {
        const QString text =
            tr("\"%1\" was deleted or moved since it was opened here.\n\nSave it again?").arg(ReadableName(Caption()));
        if (workbench_.Ask().Choose(workbench_.Window(), text, tr("File Deleted"), {tr("Save"), tr("Cancel")}, 0, 1) !=
            0) {
            return false;
        }
        outside_ = {};
        return true;
    }
    const QString text = tr("\"%1\" was changed by something else, and its text in this window has changes of its "
                            "own.\n\nNothing is lost either way: the file's text is kept beside the file, and yours "
                            "comes back by Undo.")
                             .arg(ReadableName(Caption()));
    switch (workbench_.Ask().Choose(workbench_.Window(), text, tr("File Changed"),
                                    {tr("Keep Mine"), tr("Take the File's"), tr("Later")}, keep, later)) {
        case keep:
            return KeepOwnText();
        case take:
            TakeFilesText(std::exchange(outside_, {}));
            return false;
        default:
            return false;
    }
}

bool DocumentWindow::SettleOtherWindows(const QString& path) {
    const std::optional<FileStamp> stamp = StampOf(path);
    for (const Document* const document : workbench_.Documents()) {
        const auto* const other = qobject_cast<const DocumentWindow*>(document);
        if (!other || other == this || other->Saver() || other->NeverSaved()) continue;
        if (other->outside_.change != FileChange::None) continue;  // it asks before it overwrites anything
        if (!stamp || !stamp->IsSameFile(StampOf(other->Caption()).value_or(FileStamp()))) continue;
        const QString text =
            tr("\"%1\" is also open in another window, whose changes aren't saved.\n\nSave the text of "
               "this window? The other one then asks before it overwrites the file.")
                .arg(ReadableName(path));
        return workbench_.Ask().Choose(workbench_.Window(), text, tr("File Open Twice"), {tr("Save"), tr("Cancel")}, 0,
                                       1) == 0;
    }
    return true;
}

bool DocumentWindow::KeepOwnText() {
    const QString beside = KeepBeside(Caption(), outside_.found.bytes);
    if (beside.isEmpty()) {
        workbench_.Ask().Message(workbench_.Window(),
                                 tr("The file's text can't be kept beside it, so nothing was changed."));
        return false;
    }
    file_.Note(std::exchange(outside_, {}));
    ShowFile();
    workbench_.RefreshWebsite();
    workbench_.SetHint(tr("The file's text is kept in %1").arg(ReadableName(QFileInfo(beside).fileName())));
    return true;
}

void DocumentWindow::TakeFilesText(const FileLook& look) {
    const QString before = Text1->Text();
    const int caret = Text1->SelStart();
    const int caretLine = Text1->GetLineFromChar(caret);
    QScrollBar& down = *Text1->verticalScrollBar();
    const int scrolled = down.value();
    const int across = Text1->horizontalScrollBar()->value();
    ProcessUndo();
    ResetRedo();
    file_.Take(look);
    Text1->SetSelStart(DifferenceBetween(before, Text1->Text()).Moved(caret));
    PaintAll(workbench_, *this);
    down.setValue(scrolled + Text1->GetLineFromChar(Text1->SelStart()) - caretLine);
    Text1->horizontalScrollBar()->setValue(across);
    outside_ = {};
    ShowFile();
    SetSaver(true);
}

bool DocumentWindow::SaveFile(const QString& path) {
    const bool saved = [&] {
        const WaitPointer wait;
        return file_.Save(path, settled_ ? *std::exchange(settled_, std::nullopt) : file_.Encoded());
    }();
    if (!saved) {
        workbench_.Ask().Message(workbench_.Window(), "Cannot save file.  It may be locked or read-only.");
        return false;
    }
    outside_ = {};
    ShowFile();
    SetSaver(true);
    emit Saved(path);
    return true;
}

// A file that was changed since isn't known, so that a save over it asks first.
void DocumentWindow::Recover(const RecoveredText& lost) {
    file_.Recover(lost.text, lost.format, lost.otherLineEnds);
    const auto look = NeverSaved() ? std::nullopt : LookAt(file_.Known());
    if (look && !HasFileChanged(lost)) file_.Note(*look);
    ShowFile();
}

void DocumentWindow::ShowFile() {
    ShowCaption();
    QString facts = file_.Format().Description();
    if (outside_.change == FileChange::Changed) facts += tr(", changed by something else");
    if (outside_.change == FileChange::Gone) facts += tr(", deleted");
    lblFormat_->setText(facts);
}

void DocumentWindow::LoadWrap() {
    WordWrapOn = workbench_.Options()->wordWrap;
}

void DocumentWindow::LoadFont() {
    const EditorOptions& options = workbench_.Options().Now();
    Text1->SetEditorFont(options.EditorFontName, options.EditorFontSize);
    Text1->SetForeColor(options.foreColor);
    Text1->SetBackColor(options.backColor);
    SetSaver(true);
}

void DocumentWindow::ResizeMe() {
    const auto* child = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (child && child->isMinimized()) return;
    const int selStart = Text1->SelStart();
    const int selLength = Text1->SelLength();
    LayOut();
    if (Text1->SelStart() == selStart && Text1->SelLength() == selLength) return;
    Text1->SetSelStart(selStart);
    Text1->SetSelLength(selLength);
}

void DocumentWindow::resizeEvent(QResizeEvent* event) {
    Document::resizeEvent(event);
    ResizeMe();
}

void DocumentWindow::mouseMoveEvent(QMouseEvent* event) {
    Document::mouseMoveEvent(event);
    workbench_.SetHint({});
}

bool DocumentWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) workbench_.SetHint({});
    if (event->type() == QEvent::FocusIn && watched == Text1) emit Focused();
    return Document::eventFilter(watched, event);
}

void DocumentWindow::closeEvent(QCloseEvent* event) {
    Answer answer = Answer::No;
    if (!Saver() && !(NeverSaved() && Text1->Length() == 0)) {
        answer = workbench_.Ask().AskYesNoCancel(workbench_.Window(), "Do you want to save your document",
                                                 "You have not saved your file");
    }
    if (answer == Answer::Cancel) {
        emit CloseCancelled();
        event->ignore();
        return;
    }
    bool saved = true;
    bool counts = true;
    if (answer == Answer::Yes) {
        QString path = Caption();
        if (NeverSaved()) {
            path = workbench_.Ask().SaveFile(workbench_.Window(),
                                             {"HTML Files (*.htm)|*.htm", workbench_.WebsiteDirectory(), false});
        }
        counts = !path.isEmpty();
        if (counts && !MaySave(path)) {
            emit CloseCancelled();
            event->ignore();
            return;
        }
        saved = counts && SaveFile(path);
    }
    emit Closing(saved, counts);
    event->accept();
}

int DocumentWindow::FormatHeight() const {
    constexpr int least = 27;
    return std::max(lblFormat_->fontMetrics().height() + 4, least);
}

}  // namespace vellum
