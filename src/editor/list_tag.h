// The word that a list of the popup carries along: what it was filled from.
#pragma once

#include <QListWidget>
#include <QString>
#include <QVariant>

namespace vellum {

inline void SetListTag(QListWidget* list, const QString& tag) {
    list->setProperty("Tag", tag);
}

// Empty until it is set.
[[nodiscard]] inline QString ListTag(const QListWidget* list) {
    return list->property("Tag").toString();
}

}  // namespace vellum
