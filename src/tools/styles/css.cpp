#include "tools/styles/css.h"

#include "editor/document.h"
#include "tools/styles/style_sample.h"
#include "tools/styles/style_table.h"
#include "values/color_hex.h"
#include "widgets/color_swatch.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QStackedWidget>

#include <algorithm>

namespace vellum {
namespace {

// It outlives the editor, which empties it.
StyleTable& Table() {
    static StyleTable table;
    return table;
}

std::vector<std::size_t> PropertiesOn(StylePage page) {
    std::vector<std::size_t> indexes;
    for (std::size_t i = 0; i < stylePropertyCount; ++i) {
        if (StyleProperties().at(i).page == page) indexes.push_back(i);
    }
    return indexes;
}

}  // namespace

CSS::CSS(Workbench& bench, StyleMode mode)
    : ToolDialog(bench, "CSS", "Style Sheet Editor"), mode_(mode), withTags_(mode == StyleMode::Sheet) {
    AddSubject();
    AddSample();
    NextColumn(2);
    AddPages();
    Finish([this] { return Build(); });
    if (List1) List1->setCurrentRow(0);
    findChild<QComboBox*>(Indexed("cboStyle", 0))->setFocus();
}

CSS::~CSS() {
    Table().Clear();
}

void CSS::AddSubject() {
    if (mode_ == StyleMode::Inline) {
        AddFrame("Inline Style Sheet", [this] {
            AddText(element_, "txtInline", "Element");
        })->setObjectName("picInline");
        SetFieldWidth(findChild<QLineEdit*>("txtInline"), 16);
    } else if (mode_ == StyleMode::InTag) {
        auto* const caption = new QLabel("In-Tag Style");
        caption->setObjectName("picInTag");
        AddField({}, caption);
    } else {
        AddFrame({}, [this] { AddElements(); })->setObjectName("picFull");
    }
}

void CSS::AddElements() {
    AddLists({.columns = {{elements_, {"List1", "Elements"}, {"txtAdd", {}}, {}, {}}},
              .add = {"cmdAdd", "&Add Tag"},
              .remove = {"cmdRemoveStyle", "Remove Element"},
              .entry = [this](const QStringList& typed) { return NewElement(typed.constFirst()); }});
    findChild<QLineEdit*>("txtAdd")->setAccessibleName(tr("New element"));
    List1 = findChild<QListWidget*>("List1");
    connect(List1, &QListWidget::itemSelectionChanged, this, &CSS::LoadRow);
    connect(List1->model(), &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex&, int row) { RemoveRow(row); });
    AddOption(withTags_, true, "optWithStyle", "Include STYLE tags")->setToolTip("Use for header style sheets");
    AddOption(withTags_, false, "optWithoutStyle", "Do not include STYLE tags")
        ->setToolTip("Use for externally linked style sheets");
}

void CSS::AddSample() {
    constexpr int leastWidth = 44;  // in characters
    constexpr int leastHeight = 8;  // in lines
    auto* const view = new QScrollArea;
    sample_ = new StyleSample;
    sample_->setObjectName("picSample");
    view->setWidget(sample_);
    view->setWidgetResizable(true);
    view->setFocusPolicy(Qt::NoFocus);
    SetFieldWidth(view, leastWidth);
    view->setMinimumHeight(fontMetrics().lineSpacing() * leastHeight);
    AddGrowing(view);
    auto* const unseen = new QLabel;
    unseen->setObjectName("lblUnseen");
    unseen->setWordWrap(true);
    AddField({}, unseen);
    Follow([this, unseen] {
        sample_->Show(Shown(), values_);
        const QStringList names = UnseenProperties(values_);
        unseen->setText(names.isEmpty() ? QString() : tr("Seen in the page only: %1").arg(names.join(", ")));
    });
}

void CSS::AddPages() {
    auto* const category = new QComboBox;
    category->setObjectName("cboCategory");
    category->addItems(StylePageNames());
    AddField("Category", category);
    QStackedWidget* const pages =
        AddStack("picStyle", {[this] { AddPage(StylePage::Text); }, [this] { AddPage(StylePage::Color); },
                              [this] { AddPage(StylePage::Layout); }, [this] { AddPage(StylePage::Classification); },
                              [this] { AddPage(StylePage::Positioning); }, [this] { AddPage(StylePage::Printing); }});
    connect(category, &QComboBox::currentIndexChanged, pages, &QStackedWidget::setCurrentIndex);
}

// In two columns where they are many.
void CSS::AddPage(StylePage page) {
    constexpr std::size_t oneColumn = 15;
    const std::vector<std::size_t> indexes = PropertiesOn(page);
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        if (i == oneColumn) NextColumn();
        AddProperty(indexes.at(i));
    }
}

void CSS::AddProperty(std::size_t index) {
    constexpr int boxWidth = 14;  // in characters
    const StyleProperty& property = StyleProperties().at(index);
    const QStringList values = index == 0 ? bench_.FontNames() : OfferedValues(property);
    QComboBox* const box =
        AddCombo(values_.at(index), Indexed("cboStyle", static_cast<int>(index)), property.name, values);
    SetFieldWidth(box, boxWidth);
    box->setMinimumContentsLength(boxWidth);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(box, &QComboBox::editTextChanged, this, [this, index, box] { Keep(index, box); });
    if (property.hasColorButton) AddSwatchOf(index, box);
}

void CSS::AddSwatchOf(std::size_t index, QComboBox* box) {
    auto* const swatch = new ColorSwatch(bench_.Ask());
    swatch->setObjectName(Indexed("cmdColor", static_cast<int>(index)));
    Beside();
    AddField({}, swatch);
    swatch->setAccessibleName(tr("Color, %1").arg(StyleProperties().at(index).name));
    connect(swatch, &ColorSwatch::ColorChanged, box, [box](ColorNumber color) { box->setEditText(ColorToHex(color)); });
    Follow([this, index, swatch] {
        const QSignalBlocker blocker(swatch);
        if (const auto color = StyleColor(values_.at(index)); color && color->alpha() > 0) {
            swatch->SetColor(NumberFromColor(*color));
        } else {
            swatch->SetNone();
        }
    });
}

QStringList CSS::NewElement(const QString& typed) {
    if (typed.isEmpty()) return {};
    if (elements_.size() < StyleTable::rowCount) return {typed};
    bench_.Ask().Message(this, tr("A style sheet can have %1 elements at most.").arg(StyleTable::rowCount));
    return {};
}

int CSS::SelectedRow() const {
    const QModelIndexList selected = List1->selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.constFirst().row();
}

void CSS::LoadRow() {
    const int row = SelectedRow();
    values_ = row < 0 ? StyleValues() : Table().Row(row);
    ShowFields();
}

void CSS::RemoveRow(int row) {
    elements_.removeAt(row);
    Table().Remove(row);
    if (SelectedRow() >= 0) List1->setCurrentRow(0);
    LoadRow();
}

void CSS::Keep(std::size_t index, QComboBox* box) {
    if (!List1) return;
    if (const int row = SelectedRow(); row >= 0) {
        Table().Set(row, index, values_.at(index));
    } else if (!values_.at(index).isEmpty()) {
        box->setEditText({});
    }
}

QString CSS::Shown() const {
    if (mode_ == StyleMode::Inline) return element_;
    if (!List1) return {};
    return elements_.value(SelectedRow());
}

QString CSS::Build() const {
    if (mode_ == StyleMode::InTag) return InTagStyle(values_);
    if (mode_ == StyleMode::Inline) return InlineStyle(element_, values_, SelectedText(bench_));
    std::vector<StyleRule> rules;
    for (int row = 0; const QString& element : elements_) rules.push_back({element, Table().Row(row++)});
    return StyleSheetText(rules, withTags_);
}

void ShowInTagStyle(Workbench& bench) {
    std::optional<QString> markup;
    {
        CSS tool(bench, StyleMode::InTag);
        tool.exec();
        markup = tool.Markup();
    }
    Document* const document = bench.ActiveDocument();
    if (!markup || !document) return;
    document->usingKeys = false;
    document->ProcessUndo();
    document->ResetRedo();
    document->Text1->SetSelText(*markup);
    document->Text1->setFocus();
}

}  // namespace vellum
