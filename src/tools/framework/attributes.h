// Attributes of generated markup. A value goes in as it stands: what the author types into a field is markup already.
#pragma once

#include <QString>

namespace vellum {

// ` name="value"`, also when the value is empty.
[[nodiscard]] QString Attribute(const char* name, const QString& value);

// The same, or nothing when the value is empty.
[[nodiscard]] QString AttributeIfAny(const char* name, const QString& value);

}  // namespace vellum
