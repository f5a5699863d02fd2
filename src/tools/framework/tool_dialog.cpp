#include "tools/framework/tool_dialog.h"

#include "editor/document.h"
#include "tools/framework/access_keys.h"
#include "tools/framework/color_hex.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <limits>

namespace vellum {
namespace {

constexpr int wideField = 34;  // in characters
constexpr int narrowField = 18;
constexpr int columnGap = 2;

void SetLeastWidth(QWidget* field, int characters) {
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * characters);
}

// The letter of an access key is drawn apart, and where that breaks a kerning pair the text runs longer than it
// measures: without the room, its last letter is cut.
class FieldLabel : public QLabel {
public:
    using QLabel::QLabel;
    [[nodiscard]] QSize sizeHint() const override { return WithRoom(QLabel::sizeHint()); }
    [[nodiscard]] QSize minimumSizeHint() const override { return WithRoom(QLabel::minimumSizeHint()); }

private:
    [[nodiscard]] QSize WithRoom(QSize size) const { return size + QSize(fontMetrics().averageCharWidth() / 2, 0); }
};

}  // namespace

ToolDialog::ToolDialog(Workbench& bench, const QString& name, const QString& caption)
    : QDialog(bench.Window()), bench_(bench), outer_(new QVBoxLayout(this)) {
    setObjectName(name);
    setWindowTitle(caption);
    auto* fields = new QWidget(this);
    outer_->addWidget(fields, 1);
    places_.push_back(PlaceIn(fields));
    places_.back().columns->setContentsMargins(0, 0, 0, 0);
}

void ToolDialog::done(int result) {
    if (QWidget* window = bench_.Window()) window->setEnabled(true);
    QDialog::done(result);
}

ToolDialog::Place ToolDialog::PlaceIn(QWidget* parent) {
    Place place;
    place.parent = parent;
    place.columns = new QHBoxLayout(parent);
    place.column = new QVBoxLayout;
    place.columns->addLayout(place.column, 1);
    return place;
}

int ToolDialog::AddPane(const QString& caption, const QString& toolTip) {
    if (!tabs_) {
        tabs_ = new QTabWidget(this);
        tabs_->setObjectName(QStringLiteral("TabStrip1"));
        tabs_->setAccessibleName(windowTitle());
        outer_->addWidget(tabs_, 1);
        places_.front().parent->hide();
        // The arrow keys walk along the tabs; whoever comes another way wants to type.
        connect(tabs_, &QTabWidget::currentChanged, this, [this] {
            if (!tabs_->tabBar()->hasFocus()) FocusFirstField();
        });
    } else {
        places_.back().column->addStretch();
    }
    auto* pane = new QWidget(tabs_);
    const int index = tabs_->addTab(pane, caption);
    pane->setObjectName(QStringLiteral("picOption(%1)").arg(index));
    tabs_->setTabToolTip(index, toolTip);
    places_ = {PlaceIn(pane)};
    return index;
}

void ToolDialog::FocusFirstField() {
    const QWidget* const pane = tabs_ ? tabs_->currentWidget() : places_.front().parent;
    if (!pane) return;
    for (QWidget* field = pane->nextInFocusChain(); pane->isAncestorOf(field); field = field->nextInFocusChain()) {
        if ((field->focusPolicy() & Qt::TabFocus) == 0 || !field->isEnabled()) continue;
        field->setFocus(Qt::TabFocusReason);
        return;
    }
}

void ToolDialog::keyPressEvent(QKeyEvent* event) {
    const int step = event->key() == Qt::Key_Backtab ? -1 : 1;
    const bool turns = (event->key() == Qt::Key_Tab || step < 0) && (event->modifiers() & Qt::ControlModifier) != 0;
    if (!tabs_ || !turns) return QDialog::keyPressEvent(event);
    tabs_->setCurrentIndex((tabs_->currentIndex() + step + tabs_->count()) % tabs_->count());
}

int ToolDialog::VisiblePane() const {
    return tabs_ ? tabs_->currentIndex() : -1;
}

void ToolDialog::BeginFrame(const QString& caption) {
    auto* frame = new QGroupBox(caption, Parent());
    places_.back().column->addWidget(frame);
    places_.back().form = nullptr;
    places_.push_back(PlaceIn(frame));
}

void ToolDialog::BeginPanel(QWidget* panel) {
    places_.push_back(PlaceIn(panel));
}

void ToolDialog::EndFrame() {
    places_.pop_back();
}

void ToolDialog::NextColumn() {
    Place& place = places_.back();
    place.column->addStretch();
    place.columns->addSpacing(fontMetrics().averageCharWidth() * columnGap);
    place.column = new QVBoxLayout;
    place.columns->addLayout(place.column, 1);
    place.form = nullptr;
}

QWidget* ToolDialog::Parent() const {
    return places_.back().parent;
}

void ToolDialog::AddRow(const QString& caption, QWidget* buddy, QWidget* beside) {
    Place& place = places_.back();
    if (!place.form) {
        place.form = new QFormLayout;
        place.form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
        place.column->addLayout(place.form);
    }
    QLabel* label = nullptr;
    if (!caption.isEmpty()) {
        label = new FieldLabel(caption, place.parent);
        label->setBuddy(buddy);
    }
    if (!beside) {
        if (label) return place.form->addRow(label, buddy);
        return place.form->addRow(buddy);
    }
    auto* row = new QHBoxLayout;
    row->addWidget(buddy, 1);
    row->addWidget(beside);
    if (label) return place.form->addRow(label, row);
    place.form->addRow(row);
}

void ToolDialog::AddField(const QString& caption, QWidget* field) {
    AddRow(caption, field, nullptr);
}

void ToolDialog::AddField(const QString& caption, QWidget* field, QWidget* beside) {
    AddRow(caption, field, beside);
}

void ToolDialog::AddNote(QWidget* field, const QString& text) {
    auto* note = new QLabel(text, Parent());
    places_.back().form->addRow(QString(), note);
    const QString before = field->accessibleDescription();
    field->setAccessibleDescription(before.isEmpty() ? text : before + QStringLiteral(", ") + text);
}

void ToolDialog::AddGrowing(QWidget* field) {
    Place& place = places_.back();
    place.column->addWidget(field, 1);
    place.form = nullptr;
}

QLineEdit* ToolDialog::MakeText(const QString& name, const QString& initial) {
    auto* field = new QLineEdit(Parent());
    field->setObjectName(name);
    field->setMaxLength(std::numeric_limits<int>::max());  // a selection that is captioned may be long
    field->setText(initial);
    SetLeastWidth(field, wideField);
    return field;
}

QLineEdit* ToolDialog::AddText(const QString& name, const QString& caption, const QString& initial) {
    QLineEdit* const field = MakeText(name, initial);
    AddRow(caption, field, nullptr);
    return field;
}

QComboBox* ToolDialog::MakeCombo(const QString& name, const QStringList& values, const QString& initial) {
    auto* field = new QComboBox(Parent());
    field->setObjectName(name);
    field->setEditable(true);
    field->setInsertPolicy(QComboBox::NoInsert);
    field->setCompleter(nullptr);  // it would make "50" out of a typed "5"
    field->addItems(values);
    field->setCurrentIndex(static_cast<int>(values.indexOf(initial)));
    field->setEditText(initial);
    SetLeastWidth(field, narrowField);
    return field;
}

QComboBox* ToolDialog::AddCombo(const QString& name, const QString& caption, const QStringList& values,
                                const QString& initial) {
    QComboBox* const field = MakeCombo(name, values, initial);
    AddRow(caption, field, nullptr);
    return field;
}

QPushButton* ToolDialog::MakeFieldButton(const QString& fieldName, const QString& caption,
                                         const QString& fieldCaption) {
    auto* button = new QPushButton(caption, Parent());
    button->setObjectName(QStringLiteral("cmd") + fieldName.mid(3));
    QString plain = caption;
    button->setAccessibleName(plain.remove(u'&') + QStringLiteral(", ") + fieldCaption);
    return button;
}

QComboBox* ToolDialog::AddColor(const QString& name, const QString& caption, const QString& button, ColorStart start) {
    QComboBox* const field = MakeCombo(name, ColorNames());
    QPushButton* const choose = MakeFieldButton(name, button, caption);
    choose->setToolTip(tr("Opens the color dialog"));
    connect(choose, &QPushButton::clicked, this, [this, field, start] {
        const ColorNumber first = start == ColorStart::Field ? ColorFromText(field->currentText()).value_or(0) : 0;
        if (const auto color = bench_.Ask().PickColor(this, first)) field->setEditText(ColorToHex(*color));
    });
    AddRow(caption, field, choose);
    return field;
}

QLineEdit* ToolDialog::AddFile(const QString& name, const QString& caption, const QString& button,
                               const QString& filter, const std::function<void(const QString& path)>& chosen) {
    QLineEdit* const field = MakeText(name);
    QPushButton* const find = MakeFieldButton(name, button, caption);
    find->setToolTip(tr("Picks a file of the website directory"));
    connect(find, &QPushButton::clicked, this, [this, field, filter, chosen] {
        const QString path = bench_.Ask().OpenFile(this, {filter, bench_.WebsiteDirectory()});
        if (path.isEmpty()) return;
        field->setText(QFileInfo(path).fileName());
        if (chosen) chosen(path);
    });
    AddRow(caption, field, find);
    return field;
}

QCheckBox* ToolDialog::AddCheck(const QString& name, const QString& caption, bool on) {
    auto* field = new QCheckBox(caption, Parent());
    field->setObjectName(name);
    field->setChecked(on);
    AddRow({}, field, nullptr);
    return field;
}

void ToolDialog::HandOver(const QString& markup) {
    markup_ = markup;
    accept();
}

void ToolDialog::AddButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : buttons) row->addWidget(button);
    outer_->addLayout(row);
    for (Place& place : places_) place.column->addStretch();
    SetAccessKeys(*this);
    if (!focusWidget()) FocusFirstField();
}

void ToolDialog::Finish(const std::function<QString()>& build, OnCancel onCancel) {
    const QPushButton* const ok = FinishWithButton(QStringLiteral("cmdOK"), QStringLiteral("&OK"), onCancel);
    connect(ok, &QPushButton::clicked, this, [this, build] { HandOver(build()); });
}

QPushButton* ToolDialog::FinishWithButton(const QString& name, const QString& caption, OnCancel onCancel) {
    onCancel_ = onCancel;
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    AddButtonRow({button, cancel});
    return button;
}

void ToolDialog::FinishWithCancel(OnCancel onCancel) {
    onCancel_ = onCancel;
    auto* cancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    AddButtonRow({cancel});
}

QString SelectedText(const Workbench& bench) {
    const Document* const document = bench.ActiveDocument();
    return document ? document->Text1->SelText() : QString();
}

void CloseTool(Workbench& bench, std::optional<QString> markup, OnCancel onCancel) {
    const Document* const document = bench.ActiveDocument();
    if (!document) return;
    if (markup) {
        bench.PortableColor(*markup);
    } else if (onCancel == OnCancel::FocusText) {
        document->Text1->setFocus();
    }
}

}  // namespace vellum
