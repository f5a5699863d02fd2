#include "editor/workbench.h"

namespace vellum {

void Workbench::ShowAttr(int /*tagPos*/) {}

void Workbench::HideAttr() {}

QString Workbench::GetStrAtt(int /*tagPos*/) const {
    return {};
}

void Workbench::InsertAttr(const QString& /*item*/) {}

}  // namespace vellum
