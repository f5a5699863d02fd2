// What ready-made scripts are written in: texts with placeholders, each line of them a line of the script.
#pragma once

#include <QHash>
#include <QString>

namespace vellum {

// What stands for each placeholder, by its name.
using ScriptValues = QHash<QString, QString>;

// The template with "\n" as CR LF, and the values in the place of "%NAME%", as they stand. HEAD and TAIL are what a
// Javascript begins and ends with; a template has no other percent signs.
[[nodiscard]] QString FillScript(const QString& scriptTemplate, const ScriptValues& values = {});

}  // namespace vellum
