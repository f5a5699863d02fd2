#include "shell/file_commands.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "shell/document_window.h"
#include "surface/printing.h"
#include "values/number_rules.h"
#include "widgets/prompts.h"
#include "widgets/wait_pointer.h"

namespace vellum {
namespace {

constexpr auto cannotSave = "Cannot save file.  It may be locked or read-only.";

DocumentWindow& WindowOf(Document* document) {
    return *qobject_cast<DocumentWindow*>(document);
}

}  // namespace

const QString documentFilter = QStringLiteral(
    "HTML Documents (*.htm;*.html)|*.htm;*.html|HTML Applications (*.hta)|*.hta|Active Server Files (*.asp)|*.asp|"
    "Synchronized Multimedia Integration Language Files (*.smil)|*.smil|Style Sheet Files (*.css)|*.css|"
    "Extensible Markup Language Files (*.xml)|*.xml|Text Files (*.txt)|*.txt|All Files (*.*)|*.*");

FileCommands::FileCommands(Workbench& workbench, QObject* parent) : QObject(parent), workbench_(workbench) {}

void FileCommands::Open() {
    const QString chosen =
        workbench_.Ask().OpenFile(workbench_.Window(), {documentFilter, workbench_.WebsiteDirectory(), true});
    if (chosen.isEmpty()) return;
    for (const QString& path : SplitChosenFiles(chosen)) OpenFile(path);
}

Document* FileCommands::OpenFile(const QString& path) {
    Document* document = workbench_.CreateDocument();
    document->setFocus();
    bool loaded = false;
    {
        const WaitPointer wait;
        loaded = WindowOf(document).LoadFile(path);
        if (loaded) workbench_.Smartcolor();
    }
    workbench_.CountOpenedDocument();
    if (loaded) return document;
    document->parentWidget()->close();
    workbench_.Ask().Message(workbench_.Window(), "File Unavailable.");
    return nullptr;
}

void FileCommands::OpenRecent(int index) {
    OpenInNewWindow(QString(recent_.Slot(index)), "File Unavailable.");
}

void FileCommands::OpenInNewWindow(const QString& path, const QString& failure) {
    Document* document = workbench_.CreateDocument();
    bool loaded = false;
    {
        const WaitPointer wait;
        workbench_.CountOpenedDocument();
        loaded = WindowOf(document).LoadFile(path);
        if (loaded) workbench_.Smartcolor();
    }
    if (!loaded) workbench_.Ask().Message(workbench_.Window(), failure);
}

void FileCommands::Save() {
    const Document* document = workbench_.ActiveDocument();
    if (!document) return;
    if (document->NeverSaved()) {
        SaveAs();
    } else {
        SaveTo(document->Caption(), false);
    }
}

void FileCommands::SaveAs() {
    if (!workbench_.ActiveDocument()) return;
    const QString path =
        workbench_.Ask().SaveFile(workbench_.Window(), {documentFilter, workbench_.WebsiteDirectory(), false});
    if (!path.isEmpty()) SaveTo(path, true);
}

void FileCommands::SaveTo(const QString& path, bool asNewName) {
    bool saved = false;
    {
        const WaitPointer wait;
        saved = WindowOf(workbench_.ActiveDocument()).SaveFile(path);
    }
    if (!saved) {
        workbench_.Ask().Message(workbench_.Window(), cannotSave);
        return;
    }
    AddRecentFile(path);
    if (asNewName) workbench_.RefreshWebsite();
}

void FileCommands::AddRecentFile(const QString& path) {
    if (recent_.Add(path)) emit RecentFilesChanged();
}

void FileCommands::Print() {
    const Document* document = workbench_.ActiveDocument();
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
