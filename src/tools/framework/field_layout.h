// Where the fields of a form stand: in rows, the rows in columns, the columns on panes and in frames.
#pragma once

#include <QString>

#include <functional>
#include <initializer_list>
#include <vector>

class QBoxLayout;
class QFormLayout;
class QStackedWidget;
class QWidget;

namespace vellum {

// A part of a form by its object name and what it reads.
struct Captioned {
    QString name;
    QString caption;
};

// What is added stands below what was added before. A form derives from it, and begins with itself.
class FieldLayout {
protected:
    // Adds the fields of a frame or pane.
    using Fill = std::function<void()>;

    // What is added up to End stands on `parent`, which gets its layout by it.
    void Begin(QWidget* parent);
    void End();

    // A field in a row of its own, or beside the one before; with a caption it has a label, which leads to it.
    void AddField(const QString& caption, QWidget* field);
    // The next field stands in the row of the one before. A button or a text without a caption there tells a screen
    // reader which row it belongs to.
    void Beside() { beside_ = true; }
    // A line below the row that was added last, which a screen reader tells with the row's first field.
    void AddNote(const QString& text);
    // A widget that takes the whole width, and the height that a larger form has to spare, below its caption if any.
    void AddGrowing(QWidget* field, const QString& caption = {});
    // What is added next stands in a column to the right of what the pane or frame holds so far. Columns share the
    // width by their stretch; 0 is as wide as its fields need.
    void NextColumn(int stretch = 1);
    // A frame with a caption; without one it has no border either, and only keeps its fields together.
    QWidget* AddFrame(const QString& caption, const Fill& fill);
    // Panes that take turns in one place, which is as large as the largest of them; the first shows. Their names are
    // Indexed.
    QStackedWidget* AddStack(const QString& name, std::initializer_list<Fill> panes);

private:
    // What is begun and not ended yet.
    struct Place {
        QWidget* parent = nullptr;
        QBoxLayout* columns = nullptr;
        QBoxLayout* column = nullptr;
        QFormLayout* form = nullptr;  // made with the first row of a column, and anew after what is no row
        QBoxLayout* row = nullptr;
        QWidget* field = nullptr;  // the first of the row
        QString rowName;           // as a screen reader tells it
        bool grows = false;
    };

    void StartRow(const QString& caption, QWidget* field);
    void ContinueRow(const QString& caption, QWidget* field);
    // Puts `part` into the column, and fills `inside`, which is the part or a pane of it.
    void FillIn(QWidget* part, QWidget* inside, const Fill& fill);

    std::vector<Place> places_;  // the last is the innermost
    bool beside_ = false;
};

// The object name of a part that is one of several: "name(0)", "name(1)", ...
[[nodiscard]] QString Indexed(const QString& name, int index);

// The width of a field in characters, in the place of its usual one.
void SetFieldWidth(QWidget* field, int characters);
void SetFieldWidth(QWidget* field, int least, int most);

}  // namespace vellum
