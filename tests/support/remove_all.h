// Removes a folder that the toolkit can't: one that holds names that are no text.
#pragma once

#include <QString>

#include <filesystem>
#include <system_error>

namespace vellum::test {

inline void RemoveAll(const QString& folder) {
    std::error_code error;
    std::filesystem::remove_all(folder.toStdString(), error);
}

}  // namespace vellum::test
