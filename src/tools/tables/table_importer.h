// Imports a delimited text file into the grid of the Table Builder.
#pragma once

#include "import/delimited_text.h"
#include "tools/framework/field_form.h"

#include <optional>

namespace vellum {

class TableImporter : public FieldForm {
    Q_OBJECT
public:
    TableImporter(Workbench& bench, const QString& path);

    // What OK read; nothing while the form is open and after Cancel.
    [[nodiscard]] const std::optional<DelimitedText>& Table() const { return table_; }

private:
    // A file that can't be read is told, and the form stays.
    void Read(const QString& delimiter);

    const QString path_;
    std::optional<DelimitedText> table_;
};

// From the question for the file to the table in the active document.
void ImportTable(Workbench& bench);

}  // namespace vellum
