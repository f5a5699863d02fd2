#include "editor/workbench.h"

namespace vellum {

void Workbench::PortableColor(QString& /*markup*/) {}

void Workbench::Addstuff(const QString& /*open*/, const QString& /*close*/) {}

}  // namespace vellum
