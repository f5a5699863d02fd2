#include "tools/tables/table_importer.h"

#include "files/file_names.h"
#include "files/text_file.h"
#include "tools/framework/access_keys.h"
#include "tools/tables/frm_tables.h"
#include "widgets/wait_pointer.h"

#include <QComboBox>
#include <QLabel>

namespace vellum {
namespace {

std::optional<DelimitedText> AskForTable(Workbench& bench, const QString& path) {
    TableImporter importer(bench, path);
    importer.exec();
    return importer.Table();
}

}  // namespace

TableImporter::TableImporter(Workbench& bench, const QString& path)
    : FieldForm(bench, "TableImporter", "Delimited Text Table Importer"), path_(path) {
    constexpr int widest = 60;  // in characters
    auto* const name = new QLabel(ReadableName(path));
    name->setObjectName("lblFilename");
    name->setTextFormat(Qt::PlainText);
    name->setWordWrap(true);
    SetFieldWidth(name, widest);
    AddField("Filename", name);
    auto* const delimiter = new QComboBox;
    delimiter->setObjectName("cboDelimiter");
    delimiter->addItems({"Tab", "Semicolon", "Comma", "Space"});
    AddField("Cell Separator", delimiter);
    AddClosingRow({"cmdOK", "&OK"}, [this, delimiter] { Read(delimiter->currentText()); });
    SetAccessKeys(*this);
    delimiter->setFocus();
}

void TableImporter::Read(const QString& delimiter) {
    QString error;
    std::optional<LoadedText> file;
    {
        const WaitPointer wait;
        file = ReadTextFile(path_, &error);
        if (file) table_ = ReadDelimitedText(file->ReadableText(), DelimiterOf(delimiter));
    }
    if (!file) return bench_.Ask().Message(this, error);
    accept();
}

void ImportTable(Workbench& bench) {
    const QString path =
        bench.Ask().OpenFile(bench.Window(), {"Delimited Text Files (*.txt)|*.txt", bench.WebsiteDirectory()});
    if (path.isEmpty()) return;
    const std::optional<DelimitedText> table = AskForTable(bench, path);
    if (table) ShowTableBuilder(bench, *table);
}

}  // namespace vellum
