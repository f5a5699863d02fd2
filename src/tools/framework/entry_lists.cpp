#include "tools/framework/entry_lists.h"

#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace vellum {

EntryLists::EntryLists(const EntryParts& parts, QWidget* parent) : QWidget(parent), entry_(parts.entry) {
    Begin(this);
    layout()->setContentsMargins(0, 0, 0, 0);
    AddFrame({}, [&] {
        for (const EntryColumn& column : parts.columns) {
            if (!lists_.empty()) NextColumn();
            AddList(column);
        }
    });
    for (const EntryColumn& column : parts.columns) AddLine(column);
    AddButton(parts.add, [this] { AddEntry(); });
    Beside();
    AddButton(parts.remove, [this] { RemoveEntry(); });
    End();
}

void EntryLists::AddList(const EntryColumn& column) {
    auto* const list = new QListWidget;
    list->setObjectName(column.list.name);
    list->installEventFilter(this);
    connect(list, &QListWidget::currentRowChanged, this, [this](int row) {
        for (QListWidget* other : lists_) other->setCurrentRow(row);
    });
    AddGrowing(list, column.list.caption);
    lists_.push_back(list);
}

void EntryLists::AddLine(const EntryColumn& column) {
    if (column.line.name.isEmpty()) return;
    auto* const line = new QLineEdit;
    line->setObjectName(column.line.name);
    line->installEventFilter(this);
    AddField(column.line.caption, line);
    lines_.push_back(line);
    if (!column.find) return;
    Beside();
    AddButton(column.button, [line, find = column.find] {
        if (const QString found = find(); !found.isEmpty()) line->setText(found);
    });
}

void EntryLists::AddButton(const Captioned& button, const std::function<void()>& pressed) {
    auto* const made = new QPushButton(button.caption);
    made->setObjectName(button.name);
    connect(made, &QPushButton::clicked, this, pressed);
    AddField({}, made);
}

QStringList EntryLists::Entries(int column) const {
    const QListWidget& list = *lists_.at(static_cast<std::size_t>(column));
    QStringList entries;
    for (int row = 0; row < list.count(); ++row) entries << list.item(row)->text();
    return entries;
}

void EntryLists::SetEntries(int column, const QStringList& entries) {
    QListWidget& list = *lists_.at(static_cast<std::size_t>(column));
    list.clear();
    list.addItems(entries);
}

QStringList EntryLists::Typed() const {
    QStringList typed;
    for (const QLineEdit* line : lines_) typed << line->text();
    return typed;
}

void EntryLists::AddEntry() {
    QStringList texts = Typed();
    if (entry_) {
        texts = entry_(texts);
    } else if (texts.value(0).isEmpty()) {
        return;
    }
    if (texts.isEmpty()) return;
    for (std::size_t i = 0; i < lists_.size(); ++i) lists_[i]->addItem(texts.value(static_cast<qsizetype>(i)));
    for (QLineEdit* line : lines_) line->clear();
    emit Changed();
}

void EntryLists::RemoveEntry() {
    const int row = lists_.front()->currentRow();
    if (row < 0 || !lists_.front()->item(row)->isSelected()) return;
    for (QListWidget* list : lists_) delete list->takeItem(row);
    emit Changed();
}

bool EntryLists::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool inList = qobject_cast<QListWidget*>(watched) != nullptr;
    if (inList && key == Qt::Key_Delete) {
        RemoveEntry();
        return true;
    }
    const bool adds = !inList && (key == Qt::Key_Return || key == Qt::Key_Enter) && !Typed().join(QString()).isEmpty();
    if (adds) AddEntry();
    return adds || QWidget::eventFilter(watched, event);
}

}  // namespace vellum
