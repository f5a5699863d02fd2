// Object elements, as the options of the author have them.
#pragma once

#include "settings/settings_store.h"
#include "tools/scripts/control_registry.h"

#include <QString>

#include <cstdint>

namespace vellum {

enum class TagCase : std::uint8_t { Upper, Lower, FirstUpper };

struct ObjectOptions {
    bool byClassId = true;  // else by the program identifier, where the control has one
    bool object = true;     // else the tag is "insert"
    TagCase tagCase = TagCase::Upper;
    bool severalLines = true;
    std::int16_t width = 80;
    std::int16_t height = 30;
    bool withCodeBase = false;
    QString codeBase = "http://";
};

[[nodiscard]] ObjectOptions ReadObjectOptions(const SettingsStore& store);
void WriteObjectOptions(SettingsStore& store, const ObjectOptions& options);

// The element of one control, without a line end after it.
[[nodiscard]] QString BuildObjTag(const Control& control, const ObjectOptions& options);
// The elements of several controls, between comments.
[[nodiscard]] QString ObjectMarkup(const std::vector<Control>& controls, const ObjectOptions& options);

// Without a leading "{" and a trailing "}".
[[nodiscard]] QString RemoveBraces(const QString& text);

}  // namespace vellum
