#include "tools/framework/attributes.h"

namespace vellum {

QString Attribute(QLatin1String name, const QString& value) {
    return u' ' + name + QLatin1String("=\"") + value + u'"';
}

QString AttributeIfAny(QLatin1String name, const QString& value) {
    return value.isEmpty() ? QString() : Attribute(name, value);
}

}  // namespace vellum
