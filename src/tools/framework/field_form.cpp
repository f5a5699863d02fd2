#include "tools/framework/field_form.h"

#include "tools/framework/side_tabs.h"
#include "values/color_hex.h"
#include "widgets/color_swatch.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>
#include <limits>

namespace vellum {
namespace {

constexpr int wideField = 34;  // in characters
constexpr int narrowField = 18;

template <typename Widget, typename... Arguments>
Widget* Named(const QString& name, Arguments&&... arguments) {
    auto* const widget = new Widget(std::forward<Arguments>(arguments)...);
    widget->setObjectName(name);
    return widget;
}

// The button beside a field has the field's name, with the letters of its own kind in place of the field's.
QString ButtonName(const QString& fieldName) {
    const bool lettered = fieldName.startsWith(QLatin1String("cbo")) || fieldName.startsWith(QLatin1String("txt"));
    return QStringLiteral("cmd") + (lettered ? fieldName.mid(3) : fieldName);
}

}  // namespace

FieldForm::FieldForm(Workbench& bench, const QString& name, const QString& caption)
    : QDialog(bench.Window()), bench_(bench) {
    setObjectName(name);
    setWindowTitle(caption);
    auto* const outer = new QVBoxLayout(this);
    auto* const fields = new QWidget;
    outer->addWidget(fields, 1);
    Begin(fields);
    fields->layout()->setContentsMargins(0, 0, 0, 0);
}

void FieldForm::AddTabs() {
    tabs_ =
        tabsAside_ ? Named<SideTabWidget>(QStringLiteral("TabStrip1")) : Named<QTabWidget>(QStringLiteral("TabStrip1"));
    tabs_->setAccessibleName(windowTitle());
    AddGrowing(tabs_);
    for (QToolButton* scroller : tabs_->findChildren<QToolButton*>()) scroller->setFocusPolicy(Qt::NoFocus);
    const std::pair<const char*, int> turns[] = {
        {"Ctrl+Tab", 1}, {"Ctrl+PgDown", 1}, {"Ctrl+Shift+Tab", -1}, {"Ctrl+Shift+Backtab", -1}, {"Ctrl+PgUp", -1}};
    for (const auto& [keys, step] : turns) {
        connect(new QShortcut(QKeySequence(QString::fromLatin1(keys)), this), &QShortcut::activated, this,
                [this, step = step] {
                    tabs_->setCurrentIndex((tabs_->currentIndex() + step + tabs_->count()) % tabs_->count());
                });
    }
}

void FieldForm::AddPane(const QString& caption, const QString& toolTip) {
    if (!tabs_) {
        AddTabs();
    } else {
        End();
    }
    auto* const pane = new QWidget;
    const int index = tabs_->addTab(pane, caption);
    tabs_->setTabToolTip(index, toolTip);
    pane->setObjectName(Indexed(QStringLiteral("picOption"), index));
    pane->setAccessibleName(caption.trimmed().remove(u'&'));
    Begin(pane);
}

QLineEdit* FieldForm::AddText(QString& field, const QString& name, const QString& caption) {
    auto* const line = Named<QLineEdit>(name);
    line->setMaxLength(std::numeric_limits<int>::max());  // a selection that is captioned may be long
    SetFieldWidth(line, wideField);
    Keep([line, &field] {
        if (line->text() != field) line->setText(field);
    });
    connect(line, &QLineEdit::textChanged, this, [this, &field](const QString& text) { Take(field, text); });
    AddField(caption, line);
    return line;
}

QComboBox* FieldForm::AddCombo(QString& field, const QString& name, const QString& caption, const QStringList& values) {
    auto* const box = Named<QComboBox>(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);  // it would make "50" out of a typed "5"
    box->addItems(values);
    SetFieldWidth(box, narrowField);
    Keep([box, &field, values] {
        if (box->currentText() == field && !field.isEmpty()) return;
        box->setCurrentIndex(static_cast<int>(values.indexOf(field)));
        box->setEditText(field);
    });
    connect(box, &QComboBox::editTextChanged, this, [this, &field](const QString& text) { Take(field, text); });
    AddField(caption, box);
    return box;
}

QComboBox* FieldForm::AddColor(QString& field, const QString& name, const QString& caption, const QString& button,
                               ColorStart start, const std::function<void(ColorNumber color)>& chosen) {
    QComboBox* const box = AddCombo(field, name, caption, ColorNames());
    Beside();
    const auto choose = [this, &field, box, start, chosen] {
        const ColorNumber first = start == ColorStart::Field ? ColorFromText(field).value_or(0) : 0;
        const auto color = bench_.Ask().PickColor(this, first);
        if (!color) return;
        box->setEditText(ColorToHex(*color));
        if (chosen) chosen(*color);
    };
    AddButton(ButtonName(name), button, choose)->setToolTip(tr("Opens the color dialog"));
    return box;
}

QLineEdit* FieldForm::AddFile(QString& field, const QString& name, const QString& caption, const QString& button,
                              const QString& filter, const std::function<void(const QString& path)>& chosen) {
    QLineEdit* const line = AddText(field, name, caption);
    Beside();
    const auto find = [this, line, filter, chosen] {
        const QString path = PickFile(filter);
        if (path.isEmpty()) return;
        line->setText(QFileInfo(path).fileName());
        if (chosen) chosen(path);
    };
    AddButton(ButtonName(name), button, find)->setToolTip(tr("Picks a file of the website directory"));
    return line;
}

QCheckBox* FieldForm::AddCheck(bool& field, const QString& name, const QString& caption) {
    auto* const check = Named<QCheckBox>(name, caption);
    Bind(field, check);
    AddField({}, check);
    return check;
}

void FieldForm::Bind(bool& field, QCheckBox* check) {
    Keep([check, &field] { check->setChecked(field); });
    connect(check, &QCheckBox::toggled, this, [this, &field](bool on) { Take(field, on); });
}

QRadioButton* FieldForm::AddOption(const QString& name, const QString& caption, const std::function<bool()>& isChosen,
                                   const std::function<void()>& choose) {
    auto* const option = Named<QRadioButton>(name, caption);
    AddField({}, option);
    Keep([option, isChosen] {
        if (isChosen()) option->setChecked(true);
    });
    connect(option, &QRadioButton::toggled, this, [this, choose](bool on) {
        if (!on || showing_) return;
        choose();
        emit Changed();
    });
    return option;
}

ColorSwatch* FieldForm::AddSwatch(ColorNumber& field, const QString& name, const QString& caption) {
    auto* const swatch = Named<ColorSwatch>(name, bench_.Ask());
    Keep([swatch, &field] { swatch->SetColor(field); });
    connect(swatch, &ColorSwatch::ColorChanged, this, [this, &field](ColorNumber color) { Take(field, color); });
    AddField(caption, swatch);
    return swatch;
}

TextGrid* FieldForm::AddGrid(GridRows& field, const GridParts& parts) {
    auto* const grid = new TextGrid(parts);
    Keep([grid, &field] {
        if (grid->Rows() != field) grid->SetRows(field);
    });
    connect(grid, &TextGrid::Changed, this, [this, &field](const GridRows& rows) { Take(field, rows); });
    AddGrowing(grid);
    return grid;
}

EntryLists* FieldForm::AddLists(const EntryParts& parts) {
    auto* const lists = new EntryLists(parts);
    std::vector<QStringList*> fields;
    for (int i = 0; const EntryColumn& column : parts.columns) {
        QStringList& field = column.entries;
        Keep([lists, i, &field] {
            if (lists->Entries(i) != field) lists->SetEntries(i, field);
        });
        fields.push_back(&field);
        ++i;
    }
    connect(lists, &EntryLists::Changed, this, [this, lists, fields] {
        for (int column = 0; QStringList* const field : fields) *field = lists->Entries(column++);
        emit Changed();
    });
    AddGrowing(lists);
    return lists;
}

QPushButton* FieldForm::AddButton(const QString& name, const QString& caption, const std::function<void()>& pressed) {
    auto* const button = Named<QPushButton>(name, caption);
    connect(button, &QPushButton::clicked, this, pressed);
    AddField({}, button);
    return button;
}

QPushButton* FieldForm::AddClosingRow(const Captioned& button, const std::function<void()>& pressed, QWidget* before) {
    auto* const outer = static_cast<QVBoxLayout*>(layout());
    if (tabs_) {
        End();
        // Tabs that can scroll ask for no room of their own.
        if (!tabsAside_)
            outer->addStrut(std::min(tabs_->tabBar()->sizeHint().width(), screen()->availableSize().width() * 9 / 10));
    }
    End();
    auto* const row = new QHBoxLayout;
    outer->addLayout(row);
    if (before) row->addWidget(before);
    row->addStretch();
    QPushButton* closing = nullptr;
    if (!button.name.isEmpty()) {
        closing = Named<QPushButton>(button.name, button.caption);
        row->addWidget(closing);
        closing->setDefault(true);
        connect(closing, &QPushButton::clicked, this, pressed);
    }
    auto* const cancel = Named<QPushButton>(QStringLiteral("cmdCancel"), QStringLiteral("&Cancel"));
    row->addWidget(cancel);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    return closing;
}

void FieldForm::Keep(const std::function<void()>& show) {
    show();
    shows_.push_back(show);
}

void FieldForm::ShowFields() {
    {
        const QScopedValueRollback<bool> showing(showing_, true);
        for (const auto& show : shows_) show();
    }
    emit Changed();
}

void FieldForm::Follow(const std::function<void()>& react) {
    react();
    connect(this, &FieldForm::Changed, this, react);
}

void FieldForm::ShowWhile(QWidget* part, const std::function<bool()>& condition) {
    Follow([this, part, condition] { ShowPart(part, condition()); });
}

void FieldForm::ShowPart(QWidget* part, bool on) {
    if (part->isHidden() != on) return;
    const QSize spare = size() - sizeHint();
    part->setHidden(!on);
    if (!isVisible()) return;
    for (QWidget* around = part; around != this;) {
        around = around->parentWidget();
        QApplication::sendPostedEvents(around, QEvent::LayoutRequest);
    }
    resize(sizeHint() + spare);
}

QString FieldForm::PickFile(const QString& filter) {
    return bench_.Ask().OpenFile(this, {filter, bench_.WebsiteDirectory()});
}

}  // namespace vellum
