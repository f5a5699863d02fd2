#include "shell/outside_changes.h"

#include "shell/open_documents.h"

#include <QApplication>
#include <QEvent>
#include <QFutureWatcher>
#include <QPointer>
#include <QtConcurrentRun>

namespace vellum {

OutsideChanges::OutsideChanges(OpenDocuments& documents, QWidget& mainWindow)
    : documents_(documents), mainWindow_(mainWindow) {
    connect(&watch_, &FileWatch::Stirred, this, &OutsideChanges::LookAtAll);
    mainWindow.installEventFilter(this);
}

void OutsideChanges::Watch(DocumentWindow& window) {
    connect(&window, &DocumentWindow::windowTitleChanged, this, &OutsideChanges::WatchFiles);
    // Another window may have the same file.
    connect(&window, &DocumentWindow::Saved, this, &OutsideChanges::LookAtAll);
    connect(&window, &QObject::destroyed, this, [this, &window] { looking_.remove(&window); });
}

void OutsideChanges::Arrive() {
    arrived_ = true;
    LookAtAll();
}

bool OutsideChanges::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowActivate) Arrive();
    return QObject::eventFilter(watched, event);
}

void OutsideChanges::WatchFiles() {
    QStringList files;
    for (const Document* const document : documents_.All()) {
        if (!document->NeverSaved()) files << document->Caption();
    }
    watch_.SetFiles(files);
}

void OutsideChanges::LookAtAll() {
    for (Document* const document : documents_.All()) Look(*qobject_cast<DocumentWindow*>(document));
    AskWhereTheAuthorIs();
}

void OutsideChanges::Look(DocumentWindow& window) {
    if (window.NeverSaved()) return;
    if (const auto under = looking_.find(&window); under != looking_.end()) {
        *under = true;
        return;
    }
    looking_.insert(&window, false);
    const KnownFile known = window.File().Known();
    auto* const look = new QFutureWatcher<std::optional<FileLook>>(&window);
    connect(look, &QFutureWatcherBase::finished, this, [this, &window, look, known] {
        look->deleteLater();
        const bool again = looking_.take(&window);
        const KnownFile now = window.File().Known();
        // What was saved in the meantime is known better.
        if (look->result() && now.path == known.path && now.stamp == known.stamp) window.HearOf(*look->result());
        if (again) Look(window);
        AskWhereTheAuthorIs();
    });
    look->setFuture(QtConcurrent::run([known] { return LookAt(known); }));
}

void OutsideChanges::AskWhereTheAuthorIs() {
    DocumentWindow* const active = documents_.Active();
    if (!arrived_ || !active || looking_.contains(active)) return;
    arrived_ = false;
    if (!QApplication::activeModalWidget() && mainWindow_.isActiveWindow()) active->AskAboutFile();
}

}  // namespace vellum
