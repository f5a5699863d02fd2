#include "shell/file_commands.h"

#include "editor/workbench.h"
#include "shell/open_documents.h"
#include "surface/printing.h"
#include "widgets/prompts.h"
#include "widgets/wait_pointer.h"

namespace vellum {
namespace {

const QString unavailable = QStringLiteral("File Unavailable.");

}  // namespace

const QString documentFilter = QStringLiteral(
    "HTML Documents (*.htm;*.html)|*.htm;*.html|HTML Applications (*.hta)|*.hta|Active Server Files (*.asp)|*.asp|"
    "Synchronized Multimedia Integration Language Files (*.smil)|*.smil|Style Sheet Files (*.css)|*.css|"
    "Extensible Markup Language Files (*.xml)|*.xml|Text Files (*.txt)|*.txt|All Files (*.*)|*.*");

FileCommands::FileCommands(Workbench& workbench, OpenDocuments& documents)
    : workbench_(workbench), documents_(documents) {}

void FileCommands::Open() {
    const QString chosen =
        workbench_.Ask().OpenFile(workbench_.Window(), {documentFilter, workbench_.WebsiteDirectory(), true});
    if (chosen.isEmpty()) return;
    for (const QString& path : SplitChosenFiles(chosen)) {
        documents_.Open({.path = path, .failure = unavailable, .closesOnFailure = true});
    }
}

void FileCommands::OpenRecent(int index) {
    documents_.Open({.path = recent_.Slot(index), .failure = unavailable});
}

void FileCommands::Save() {
    DocumentWindow* document = documents_.Active();
    if (!document) return;
    if (document->NeverSaved()) {
        SaveAs();
    } else if (document->MaySave(document->Caption())) {
        document->SaveFile(document->Caption());
    }
}

void FileCommands::SaveAs() {
    DocumentWindow* document = documents_.Active();
    if (!document) return;
    const QString path =
        workbench_.Ask().SaveFile(workbench_.Window(), {documentFilter, workbench_.WebsiteDirectory(), false});
    if (path.isEmpty() || !document->MaySave(path)) return;
    if (document->SaveFile(path)) workbench_.RefreshWebsite();
}

void FileCommands::AddRecentFile(const QString& path) {
    if (recent_.Add(path)) emit RecentFilesChanged();
}

void FileCommands::Print() {
    const DocumentWindow* document = documents_.Active();
    if (!document) return;
    QString error;
    bool printed = false;
    {
        const WaitPointer wait;
        printed = PrintToDefaultPrinter(*document->Text1, document->Caption(), &error);
    }
    if (!printed) workbench_.Ask().Message(workbench_.Window(), error);
}

}  // namespace vellum
