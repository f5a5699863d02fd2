// A list of the popup: entries in one line each, whatever their text holds.
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
