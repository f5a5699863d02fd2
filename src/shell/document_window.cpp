#include "shell/document_window.h"

#include "editor/workbench.h"
#include "files/recovery_store.h"
#include "widgets/prompts.h"
#include "widgets/wait_pointer.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMdiSubWindow>

#include <algorithm>

namespace vellum {

DocumentWindow::DocumentWindow(Workbench& workbench, QWidget* parent)
    : Document(workbench, parent), lblFormat_(new QLabel(this)) {
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

bool DocumentWindow::SaveFile(const QString& path) {
    const bool saved = [&] {
        const WaitPointer wait;
        return file_.Save(path);
    }();
    if (!saved) {
        workbench_.Ask().Message(workbench_.Window(), "Cannot save file.  It may be locked or read-only.");
        return false;
    }
    ShowFile();
    SetSaver(true);
    emit Saved(path);
    return true;
}

void DocumentWindow::Recover(const RecoveredText& lost) {
    file_.Recover(lost.text, lost.format);
    ShowFile();
}

void DocumentWindow::ShowFile() {
    ShowCaption();
    lblFormat_->setText(file_.Format().Description());
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
