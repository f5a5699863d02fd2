#include "shell/open_documents.h"

#include "editor/workbench.h"
#include "shell/form16.h"
#include "shell/form26.h"
#include "widgets/wait_pointer.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

namespace vellum {

OpenDocuments::OpenDocuments(Workbench& workbench, QMdiArea& area) : workbench_(workbench), area_(area) {}

DocumentWindow* OpenDocuments::Active() const {
    const QMdiSubWindow* child = area_.currentSubWindow();
    return child ? qobject_cast<DocumentWindow*>(child->widget()) : nullptr;
}

QList<Document*> OpenDocuments::All() const {
    QList<Document*> documents;
    for (const QMdiSubWindow* child : area_.subWindowList(QMdiArea::CreationOrder)) {
        documents << qobject_cast<Document*>(child->widget());
    }
    return documents;
}

DocumentWindow* OpenDocuments::Open(const OpenRequest& request) {
    DocumentWindow* window = MakeWindow();
    if (!request.isFirst) Count(1);
    if (request.isFirst || request.path.isEmpty()) {
        window->SetCaption("New " + QString::number(++NewDocCount));
    } else if (request.recovered) {
        window->SetCaption(request.path);
    }
    if (Fill(*window, request)) return window;
    if (request.closesOnFailure) {
        window->parentWidget()->close();
        window = nullptr;
    }
    if (!request.failure.isEmpty()) workbench_.Ask().Message(workbench_.Window(), request.failure);
    return window;
}

DocumentWindow* OpenDocuments::MakeWindow() {
    auto* window =
        workbench_.UsePreview() ? static_cast<DocumentWindow*>(new Form16(workbench_)) : new Form26(workbench_);
    QMdiSubWindow* child = area_.addSubWindow(window);
    child->setAttribute(Qt::WA_DeleteOnClose);
    child->setWindowIcon(area_.window()->windowIcon());
    // The File menu has the same shortcut, and two of them cancel each other out.
    for (QAction* item : child->systemMenu()->actions()) item->setShortcut({});
    child->resize(area_.viewport()->size() * 3 / 4);
    connect(window, &DocumentWindow::Closing, this, [this](bool /*saved*/, bool counts) {
        if (counts) Count(-1);
    });
    connect(window, &DocumentWindow::CloseCancelled, this, [this] { StopClosing = true; });
    emit Made(window);
    if (area_.subWindowList().size() == 1) {
        window->showMaximized();
    } else {
        window->show();
    }
    area_.setActiveSubWindow(child);
    window->ResizeMe();  // its first layout may have measured the window that was active before
    window->setFocus();
    return window;
}

bool OpenDocuments::Fill(DocumentWindow& window, const OpenRequest& request) {
    const WaitPointer wait;
    bool filled = true;
    if (request.recovered) {
        window.Recover(*request.recovered);
    } else if (!request.path.isEmpty()) {
        filled = window.LoadFile(request.path);
    }
    workbench_.Smartcolor();
    return filled;
}

void OpenDocuments::Count(int change) {
    openDocCount_ += change;
    emit CountChanged();
}

bool OpenDocuments::CloseActive() {
    QMdiSubWindow* child = area_.currentSubWindow();
    if (!child && !area_.subWindowList().isEmpty()) child = area_.subWindowList().last();
    return child && child->close();
}

void OpenDocuments::CloseAll() {
    StopClosing = false;
    while (openDocCount_ != 0 && !StopClosing) {
        if (!CloseActive()) return;
    }
}

}  // namespace vellum
