#include "editor/workbench.h"

namespace vellum {

void Workbench::Smartcolor() {}

}  // namespace vellum
