// A list of the popup: an entry of several lines shows its first one.
#pragma once

#include "editor/popup_rules.h"

#include <QListWidget>

namespace vellum {

class PopupList final : public QListWidget {
public:
    PopupList(const QString& name, const QString& accessibleName, QWidget* parent);

    // Replaces the entries.
    void Fill(std::vector<PopupEntry> entries);
    // The selected entry; null when none is.
    [[nodiscard]] const PopupEntry* Chosen() const;
    // Selects the first entry that begins with `start`, or none.
    void SelectByStart(const QString& start, Qt::CaseSensitivity cs);
    // Room for a few entries and for the widest of all, in pixels.
    [[nodiscard]] QSize WantedSize() const;

private:
    std::vector<PopupEntry> entries_;
};

}  // namespace vellum
