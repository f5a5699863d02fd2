#include "import/import_commands.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "import/rich_file.h"
#include "import/text_import.h"
#include "values/number_rules.h"
#include "widgets/wait_pointer.h"

#include <QWidget>

#include <new>

namespace vellum {
namespace {

const QString importFilter = QStringLiteral("Rich Text Files (*.rtf)|*.rtf|Text Files (*.txt)|*.txt");

QString AskForFile(Workbench& bench) {
    return bench.Ask().OpenFile(bench.Window(), {importFilter, bench.WebsiteDirectory()});
}

// For as long as it stands, the status bar and the pointer tell that a file is imported.
class ImportingFile {
public:
    explicit ImportingFile(Workbench& bench) : bench_(bench) {
        bench_.ShowStatus(StatusPanel::Work, QStringLiteral("Importing File"));
        // The window has no time for that while it works.
        if (bench_.Window()) bench_.Window()->repaint();
    }
    ~ImportingFile() { bench_.ShowStatus(StatusPanel::Work, {}); }
    ImportingFile(const ImportingFile&) = delete;
    ImportingFile& operator=(const ImportingFile&) = delete;

    [[nodiscard]] std::optional<QString> Markup(const QString& path) const {
        const EditorOptions& options = bench_.Options().Now();
        return ImportedMarkup(path, options.EditorFontName, LeadingNumber(options.EditorFontSize));
    }

private:
    Workbench& bench_;
    const WaitPointer pointer_;
};

Document* BlankDocument(Workbench& bench) {
    Document* const document = bench.ActiveDocument();
    return document && document->Text1->Length() == 0 ? document : bench.NewForm();
}

}  // namespace

void ImportToNewFile(Workbench& bench) {
    const QString path = AskForFile(bench);
    if (path.isEmpty()) return;
    const Document* const document = BlankDocument(bench);
    if (!document) return;
    const ImportingFile importing(bench);
    const std::optional<QString> markup = importing.Markup(path);
    if (!markup) return;
    document->Text1->SetText(ImportedPage(*markup));
    bench.Smartcolor();
}

void ImportToDocument(Workbench& bench) {
    const QString path = AskForFile(bench);
    if (path.isEmpty()) return;
    const ImportingFile importing(bench);
    std::optional<QString> markup = importing.Markup(path);
    if (markup) bench.PortableColor(*markup);
}

std::optional<QString> ImportedMarkup(const QString& path, const QString& font, double points) {
    const QString ending = path.right(3).toUpper();
    if (ending != u"TXT" && ending != u"RTF") return QString();
    try {
        const std::optional<RichText> rich = LoadRichFile(path, font, points);
        if (!rich) return std::nullopt;
        return ending == u"TXT" ? ConvertPlainText(rich->text) : ConvertRichText(*rich);
    } catch (const std::bad_alloc&) {
        return std::nullopt;  // a style for each character is many times as long as the file
    }
}

QString ImportedPage(const QString& markup) {
    return "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" \"DTD/xhtml1-transitional.dtd\">\r\n"
           "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
           "<head>\r\n"
           "<title>Imported Page</title>\r\n"
           "</head>\r\n"
           "<body>\r\n" +
           markup +
           "\r\n</body>\r\n"
           "</html>";
}

}  // namespace vellum
