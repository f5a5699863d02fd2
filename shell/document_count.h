// The count of open documents is decimal text; these keep it.
#pragma once

namespace vellum {

class Workbench;

void CountOpenedDocument(Workbench& workbench);
void CountClosedDocument(Workbench& workbench);

}  // namespace vellum
