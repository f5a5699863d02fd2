#include "editor/markup_case.h"

namespace vellum {

QString ConvertMarkupCase(const QString& /*mode*/, const QString& text) {
    return text;
}

QString ChangeCase(const QString& /*mode*/, const QString& text) {
    return text;
}

}  // namespace vellum
