// The ActiveX controls that are registered on this machine. Here they are those of Wine, which keeps its registry in a
// text file.
#pragma once

#include <QString>

#include <vector>

namespace vellum {

struct Control {
    QString name;
    QString classId;    // in braces
    QString programId;  // empty when it has none
};

// Where that file is, whether it is there or not.
[[nodiscard]] QString RegistryFile();

// The classes of a registry that are controls, by their names. None when the file is missing or no registry.
[[nodiscard]] std::vector<Control> ReadControls(const QString& path);

}  // namespace vellum
