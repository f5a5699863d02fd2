#include "website/website_commands.h"

#include "editor/document.h"
#include "files/file_descriptor.h"
#include "files/file_facts.h"
#include "files/file_names.h"
#include "files/paths.h"
#include "files/rename_file.h"
#include "files/trash.h"
#include "system/file_search.h"
#include "website/file_kind.h"
#include "website/propform.h"
#include "widgets/wait_pointer.h"

#include <QContextMenuEvent>
#include <QFileInfo>

#include <utility>

namespace vellum {
namespace {

// The open documents whose file is there, under whatever name they know it.
QList<Document*> DocumentsOnDisk(const Workbench& bench) {
    QList<Document*> documents = bench.Documents();
    documents.removeIf(
        [](const Document* document) { return document->NeverSaved() || !FactsOf(document->Caption()); });
    return documents;
}

}  // namespace

WebsiteCommands::WebsiteCommands(Workbench& bench, WebsitePanel& panel, FileTools tools)
    : QObject(&panel),
      mnuWebsite(new QMenu(&panel)),
      popDirectory(new QMenu(&panel)),
      bench_(bench),
      panel_(panel),
      tools_(std::move(tools)) {
    mnuWebsite->setObjectName("mnuWebsite");
    popDirectory->setObjectName("popDirectory");
    connect(&panel_, &WebsitePanel::FileActivated, this, &WebsiteCommands::OpenFile);
    // A click asks the viewport of a list for the menu, the menu key asks the list itself.
    for (QAbstractScrollArea* list : std::initializer_list<QAbstractScrollArea*>{panel_.Dir1, panel_.File2}) {
        list->installEventFilter(this);
        list->viewport()->installEventFilter(this);
    }
}

bool WebsiteCommands::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ContextMenu) {
        const bool files = watched == panel_.File2 || watched == panel_.File2->viewport();
        QAbstractItemView& list = files ? static_cast<QAbstractItemView&>(*panel_.File2) : *panel_.Dir1;
        PopUp(files ? *mnuWebsite : *popDirectory, list, *static_cast<QContextMenuEvent*>(event));
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void WebsiteCommands::PopUp(QMenu& menu, QAbstractItemView& list, const QContextMenuEvent& event) {
    QPoint place = event.globalPos();
    if (event.reason() == QContextMenuEvent::Mouse) {
        const QModelIndex row = list.indexAt(list.viewport()->mapFromGlobal(place));
        if (row.isValid()) list.setCurrentIndex(row);
    } else {
        const QRect row = list.currentIndex().isValid() ? list.visualRect(list.currentIndex()) : QRect();
        const QRect seen = row.intersected(list.viewport()->rect());
        place = list.viewport()->mapToGlobal(seen.isEmpty() ? QPoint() : seen.center());
    }
    menu.popup(place);
}

void WebsiteCommands::OpenFile(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    if (bench_.OpenDocCount() != 0) {
        const QStringList images = MatchingTypes(name, bench_.ImageTypes());
        for (qsizetype i = 0; i < images.size() && tools_.insertImage; ++i) tools_.insertImage(path);
        if (IsPageSound(name) && tools_.insertSound) tools_.insertSound(path);
    }
    if (IsCachingName(name)) {
        bench_.Ask().Message(bench_.Window(), "Cannot Load Caching File");
        return;
    }
    if (!MatchingTypes(name, bench_.DocumentTypes()).isEmpty()) {
        bench_.OpenInNewWindow(path, QStringLiteral("Unable to load file"));
    }
}

QString WebsiteCommands::SelectedName() {
    QString name = panel_.File2->FileName();
    if (name.isEmpty()) bench_.Ask().Message(bench_.Window(), "No File Selected");
    return name;
}

void WebsiteCommands::LinkToFile() {
    const QString name = SelectedName();
    if (!name.isEmpty() && tools_.linkTo) tools_.linkTo(name);
}

void WebsiteCommands::RenameFile() {
    const QString name = SelectedName();
    if (name.isEmpty()) return;
    // The panel may show another folder by the time the person answers.
    const QString folder = panel_.File2->Path();
    const QString newName =
        bench_.Ask().Input(bench_.Window(), "Enter the File's New Name", "Renaming The File", name).value_or(QString());
    if (newName.isEmpty()) return;
    const bool renamed = vellum::RenameFile(JoinPath(folder, name), JoinPath(folder, newName));
    panel_.File2->Refresh();
    if (renamed && panel_.File2->Path() == folder) panel_.File2->SelectWhenListed(newName);
}

void WebsiteCommands::DeleteFile() {
    const QString name = SelectedName();
    if (name.isEmpty()) return;
    const QString path = JoinPath(panel_.File2->Path(), name);
    const QString question = ReadableName(name) + "\n\n" + QString(17, u' ') + QLatin1String("Proceed?");
    if (bench_.Ask().AskYesNo(bench_.Window(), question, "Delete File", Answer::No) != Answer::Yes) return;
    const QList<Document*> onDisk = DocumentsOnDisk(bench_);
    const bool done = ThrowAway(path);
    panel_.File2->Refresh();
    const QList<Document*> stillOnDisk = DocumentsOnDisk(bench_);
    for (Document* document : onDisk) {
        if (!stillOnDisk.contains(document)) document->SetSaver(false);
    }
    if (!done) bench_.Ask().Message(bench_.Window(), "Cannot Delete File");
}

// Into the desktop's trash; where that can't be, for good if the person wants it so. False when the file should have
// gone and did not.
bool WebsiteCommands::ThrowAway(const QString& path) {
    if (MoveToTrash(path)) return true;
    if (!FactsOf(path)) return false;
    const QString question = tr("%1 can't be moved to the trash.").arg(ReadableName(QFileInfo(path).fileName())) +
                             "\n\n" + tr("Delete it for good?");
    if (bench_.Ask().AskYesNo(bench_.Window(), question, "Delete File", Answer::No) != Answer::Yes) return true;
    return RemoveFile(EncodeFileName(path));
}

void WebsiteCommands::ShowProperties() {
    const QString name = SelectedName();
    if (name.isEmpty()) return;
    propform form(bench_, JoinPath(panel_.File2->Path(), name));
    form.exec();
}

void WebsiteCommands::MakeDirectory() {
    const QString folder = panel_.Dir1->Path();
    const QString name =
        bench_.Ask().Input(bench_.Window(), "Enter Name of New Directory", "Vellumcraft").value_or(QString());
    if (name.isEmpty()) return;
    MakeFolder(JoinPath(folder, name));
    panel_.Dir1->Refresh();
}

void WebsiteCommands::FindFiles() {
    const bool started = [this] {
        const WaitPointer waiting;
        return StartFileSearch(panel_.Drive());
    }();
    if (started) return;
    bench_.Ask().Message(bench_.Window(), "This Windows Application is not installed on your computer");
}

}  // namespace vellum
