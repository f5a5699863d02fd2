#include "tools/forms/frm_search_engines.h"

#include "tools/forms/search_forms.h"

#include <QListWidget>
#include <QPushButton>

namespace vellum {

frmSearchEngines::frmSearchEngines(Workbench& bench)
    : ToolDialog(bench, "frmSearchEngines", "Insert Internet Searches"), List1(new QListWidget) {
    constexpr int width = 40;  // in characters, so that the window's caption is seen whole
    List1->setObjectName("List1");
    List1->addItems(SearchEngineNames());
    List1->setCurrentRow(0);
    SetFieldWidth(List1, width);
    List1->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    AddGrowing(List1, "Search Engine");
    const QPushButton* const ok = Finish([this] { return SearchMarkup(List1->currentItem()->text()); });
    connect(List1, &QListWidget::itemDoubleClicked, ok, &QPushButton::click);
}

}  // namespace vellum
