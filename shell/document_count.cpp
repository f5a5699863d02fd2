#include "shell/document_count.h"

#include "editor/workbench.h"
#include "platform/number_rules.h"

namespace vellum {

void CountOpenedDocument(Workbench& workbench) {
    workbench.SetOpenDocCount(NumberText(LeadingNumber(workbench.OpenDocCount()) + 1));
}

void CountClosedDocument(Workbench& workbench) {
    workbench.SetOpenDocCount(NumberText(LeadingNumber(workbench.OpenDocCount()) - 1));
}

}  // namespace vellum
