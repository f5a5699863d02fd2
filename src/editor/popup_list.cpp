#include "editor/popup_list.h"

#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace vellum {
namespace {

constexpr int shownEntries = 8;

// Pixels.
constexpr int padding = 12;
constexpr int entrySpacing = 1;

}  // namespace

PopupList::PopupList(const QString& name, const QString& accessibleName, QWidget* parent) : QListWidget(parent) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setFrameShape(QFrame::NoFrame);
    // The keyboard stays with the text, whose keys work the list.
    setFocusPolicy(Qt::NoFocus);
    setUniformItemSizes(true);
    setSpacing(entrySpacing);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    hide();
}

void PopupList::Fill(std::vector<PopupEntry> entries) {
    clear();
    entries_ = std::move(entries);
    for (const PopupEntry& entry : entries_) {
        auto* const item = new QListWidgetItem(entry.shown.section(u'\r', 0, 0), this);
        if (entry.shown.contains(u'\r')) item->setToolTip(entry.shown);
    }
}

const PopupEntry* PopupList::Chosen() const {
    return currentRow() < 0 ? nullptr : &entries_.at(static_cast<std::size_t>(currentRow()));
}

void PopupList::SelectByStart(const QString& start, Qt::CaseSensitivity cs) {
    const auto begins = [&](const PopupEntry& entry) { return entry.written.startsWith(start, cs); };
    const auto found = std::ranges::find_if(entries_, begins);
    setCurrentRow(found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin()));
    if (currentItem()) scrollToItem(currentItem(), PositionAtTop);
}

QSize PopupList::WantedSize() const {
    const int rows = std::clamp(count(), 1, shownEntries);
    const int scrollBar = count() > shownEntries ? verticalScrollBar()->sizeHint().width() : 0;
    return {sizeHintForColumn(0) + scrollBar + padding, rows * (std::max(sizeHintForRow(0), 1) + 2 * entrySpacing)};
}

}  // namespace vellum
