// A list of the popup: an entry of several lines shows its first one.
#pragma once

#include <QString>
#include <QStringList>

class QListWidget;

namespace vellum {

// Replaces the entries.
void FillList(QListWidget& list, const QStringList& entries);

// The whole text of the selected entry; empty when none is selected.
[[nodiscard]] QString ChosenEntry(const QListWidget& list);

// Selects the first entry that begins with `start`, or none.
void SelectEntry(QListWidget& list, const QString& start, Qt::CaseSensitivity cs);

}  // namespace vellum
