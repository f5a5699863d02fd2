#include "editor/popup_list.h"

#include <QListWidget>

namespace vellum {
namespace {

QString WholeText(const QListWidgetItem& item) {
    const QVariant whole = item.data(Qt::UserRole);
    return whole.isValid() ? whole.toString() : item.text();
}

}  // namespace

void FillList(QListWidget& list, const QStringList& entries) {
    list.clear();
    for (const QString& entry : entries) {
        auto* const item = new QListWidgetItem(entry, &list);
        if (!entry.contains(u'\r')) continue;
        item->setText(entry.section(u'\r', 0, 0));
        item->setToolTip(entry);
        item->setData(Qt::UserRole, entry);
    }
}

QString ChosenEntry(const QListWidget& list) {
    const QListWidgetItem* item = list.currentItem();
    return item ? WholeText(*item) : QString();
}

void SelectEntry(QListWidget& list, const QString& start, Qt::CaseSensitivity cs) {
    int row = 0;
    while (row < list.count() && !WholeText(*list.item(row)).startsWith(start, cs)) ++row;
    list.setCurrentRow(row < list.count() ? row : -1);
    if (row < list.count()) list.scrollToItem(list.item(row), QAbstractItemView::PositionAtTop);
}

}  // namespace vellum
