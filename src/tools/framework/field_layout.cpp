#include "tools/framework/field_layout.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace vellum {
namespace {

constexpr int columnGap = 2;  // in characters

// The letter of an access key is drawn apart, and where that breaks a kerning pair the text runs longer than it
// measures: without the room, its last letter is cut.
class FieldLabel : public QLabel {
public:
    FieldLabel(const QString& caption, QWidget* field) : QLabel(caption) { setBuddy(field); }
    [[nodiscard]] QSize sizeHint() const override { return WithRoom(QLabel::sizeHint()); }
    [[nodiscard]] QSize minimumSizeHint() const override { return WithRoom(QLabel::minimumSizeHint()); }

private:
    [[nodiscard]] QSize WithRoom(QSize size) const { return size + QSize(fontMetrics().averageCharWidth() / 2, 0); }
};

QString Plain(QString caption) {
    return caption.remove(u'&');
}

// Texts and boxes share the width of a row, buttons and checks are as wide as their captions.
int StretchOf(const QWidget* field) {
    return qobject_cast<const QAbstractButton*>(field) ? 0 : 1;
}

}  // namespace

void FieldLayout::Begin(QWidget* parent) {
    Place place;
    place.parent = parent;
    place.columns = new QHBoxLayout(parent);
    place.column = new QVBoxLayout;
    place.columns->addLayout(place.column, 1);
    places_.push_back(place);
}

void FieldLayout::End() {
    places_.back().column->addStretch();
    places_.pop_back();
}

void FieldLayout::AddField(const QString& caption, QWidget* field) {
    if (std::exchange(beside_, false)) {
        ContinueRow(caption, field);
    } else {
        StartRow(caption, field);
    }
}

void FieldLayout::StartRow(const QString& caption, QWidget* field) {
    Place& place = places_.back();
    if (!place.form) {
        place.form = new QFormLayout;
        place.form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
        place.column->addLayout(place.form);
    }
    const auto* const check = qobject_cast<QCheckBox*>(field);
    place.rowName = Plain(check ? check->text() : caption);
    place.field = field;
    place.row = new QHBoxLayout;
    if (caption.isEmpty()) {
        place.form->addRow(place.row);
    } else {
        place.form->addRow(new FieldLabel(caption, field), place.row);
    }
    place.row->addWidget(field, StretchOf(field));
    place.row->addStretch();
}

void FieldLayout::ContinueRow(const QString& caption, QWidget* field) {
    const Place& place = places_.back();
    const int end = place.row->count() - 1;  // before the stretch
    place.row->insertWidget(end, field, StretchOf(field));
    if (!caption.isEmpty()) {
        place.row->insertWidget(end, new FieldLabel(caption, field));
    } else if (place.rowName.isEmpty()) {
        return;
    } else if (const auto* const button = qobject_cast<QAbstractButton*>(field)) {
        field->setAccessibleName(Plain(button->text()) + QStringLiteral(", ") + place.rowName);
    } else {
        field->setAccessibleName(place.rowName);
    }
}

void FieldLayout::AddNote(const QString& text) {
    const Place& place = places_.back();
    place.form->addRow(QString(), new QLabel(text));
    const QString before = place.field->accessibleDescription();
    place.field->setAccessibleDescription(before.isEmpty() ? text : before + QStringLiteral(", ") + text);
}

void FieldLayout::AddGrowing(QWidget* field, const QString& caption) {
    Place& place = places_.back();
    if (!caption.isEmpty()) place.column->addWidget(new FieldLabel(caption, field));
    place.column->addWidget(field, 1);
    place.form = nullptr;
    place.grows = true;
}

void FieldLayout::NextColumn(int stretch) {
    Place& place = places_.back();
    place.column->addStretch();
    place.columns->addSpacing(place.parent->fontMetrics().averageCharWidth() * columnGap);
    place.column = new QVBoxLayout;
    place.columns->addLayout(place.column, stretch);
    place.form = nullptr;
}

QWidget* FieldLayout::AddFrame(const QString& caption, const Fill& fill) {
    QWidget* const frame = caption.isEmpty() ? new QWidget : new QGroupBox(caption);
    FillIn(frame, frame, fill);
    if (caption.isEmpty()) frame->layout()->setContentsMargins(0, 0, 0, 0);
    return frame;
}

QStackedWidget* FieldLayout::AddStack(const QString& name, std::initializer_list<Fill> panes) {
    auto* const stack = new QStackedWidget;
    for (const Fill& fill : panes) {
        auto* const pane = new QWidget(stack);
        pane->setObjectName(Indexed(name, stack->addWidget(pane)));
        FillIn(stack, pane, fill);
        pane->layout()->setContentsMargins(0, 0, 0, 0);
    }
    return stack;
}

void FieldLayout::FillIn(QWidget* part, QWidget* inside, const Fill& fill) {
    QBoxLayout* const column = places_.back().column;
    if (column->indexOf(part) < 0) column->addWidget(part);
    places_.back().form = nullptr;
    Begin(inside);
    fill();
    const bool grows = places_.back().grows;
    End();
    // Else the room to spare would go into the frame, below its fields.
    if (!grows) return part->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    column->setStretchFactor(part, 1);
    places_.back().grows = true;
}

QString Indexed(const QString& name, int index) {
    return QStringLiteral("%1(%2)").arg(name).arg(index);
}

void SetFieldWidth(QWidget* field, int characters) {
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * characters);
}

void SetFieldWidth(QWidget* field, int least, int most) {
    SetFieldWidth(field, least);
    field->setMaximumWidth(field->fontMetrics().averageCharWidth() * most);
}

}  // namespace vellum
