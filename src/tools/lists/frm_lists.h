// List Builder: a list of any kind, one row an entry, in the colours of its cells.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

enum class ListKind { Definition, Ordered, Unordered, Itemized, Directory };

struct ListFields {
    ListKind kind = ListKind::Ordered;
    GridRows rows{{""}};               // one text each, of a definition list a term and its definition
    GridColors colors;                 // as many as texts
    bool colorsSet = false;            // else no colour comes out
    QString type = "Regular Numbers";  // of the numbers of an ordered list, and where they start
    QString start = "1";
};

// Also an empty row becomes an entry.
[[nodiscard]] QString ListMarkup(const ListFields& fields);

class frmLists : public ToolDialog {
    Q_OBJECT
public:
    explicit frmLists(Workbench& bench);

private:
    void AddColor();
    void AddKinds();
    void AddNumbering();
    void ShowColumns(bool definitions);
    void PickColor();

    ListFields fields_;
    TextGrid* grid_ = nullptr;
};

}  // namespace vellum
