// Lists that are added to and removed from.
#pragma once

#include "tools/framework/field_layout.h"

#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

class QLineEdit;
class QListWidget;

namespace vellum {

// A list, and the line below it that takes its part of a new entry.
struct EntryColumn {
    QStringList& entries;
    Captioned list;
    Captioned line;
    // A button beside the line, which puts into it what `find` gives, unless that is empty.
    Captioned button;
    std::function<QString()> find;
};

struct EntryParts {
    std::vector<EntryColumn> columns;
    Captioned add;
    Captioned remove;
    // Makes a new entry of what the lines hold, a text a list; none, and the lines stay as they are, when it is empty.
    // Without it an entry needs a text in the first line.
    std::function<QStringList(const QStringList& typed)> entry;
};

// One list, or several side by side whose entries belong together: they are chosen, added and removed in step. Enter in
// a line adds while there is something in the lines, and is the form's own otherwise. Delete in a list removes.
class EntryLists : public QWidget, private FieldLayout {
    Q_OBJECT
public:
    explicit EntryLists(const EntryParts& parts, QWidget* parent = nullptr);

    [[nodiscard]] QStringList Entries(int column) const;
    void SetEntries(int column, const QStringList& entries);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void Changed();

private:
    void AddList(const EntryColumn& column);
    void AddLine(const EntryColumn& column);
    void AddButton(const Captioned& button, const std::function<void()>& pressed);
    void AddEntry();
    void RemoveEntry();
    [[nodiscard]] QStringList Typed() const;

    std::function<QStringList(const QStringList& typed)> entry_;
    std::vector<QListWidget*> lists_;
    std::vector<QLineEdit*> lines_;
};

}  // namespace vellum
