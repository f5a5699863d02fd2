#include "tools/framework/attributes.h"

namespace vellum {

QString Attribute(const char* name, const QString& value) {
    return u' ' + QLatin1String(name) + QLatin1String("=\"") + value + u'"';
}

QString AttributeIfAny(const char* name, const QString& value) {
    return value.isEmpty() ? QString() : Attribute(name, value);
}

}  // namespace vellum
