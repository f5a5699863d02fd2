#include "reference/reference_view.h"

#include "editor/document.h"
#include "editor/tag_popup.h"
#include "editor/workbench.h"
#include "reference/add_tags.h"
#include "reference/insertion.h"

#include <QAbstractItemModel>
#include <QContextMenuEvent>
#include <QFont>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>

namespace vellum {

// The nodes themselves, without an object for each.
class ReferenceModel : public QAbstractItemModel {
public:
    using QAbstractItemModel::QAbstractItemModel;

    [[nodiscard]] int NodeOf(const QModelIndex& index) const {
        return index.isValid() ? static_cast<int>(index.internalId()) : 0;
    }
    [[nodiscard]] QModelIndex IndexOf(int node) const {
        return node == 0 ? QModelIndex() : createIndex(tree->Node(node).row, 0, static_cast<quintptr>(node));
    }

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override {
        if (!hasIndex(row, column, parent)) return {};
        return createIndex(row, column, static_cast<quintptr>(ChildrenOf(parent)[static_cast<std::size_t>(row)]));
    }
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override {
        return index.isValid() ? IndexOf(tree->Node(NodeOf(index)).parent) : QModelIndex();
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return static_cast<int>(ChildrenOf(parent).size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& /*parent*/) const override { return 1; }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid()) return {};
        const ReferenceNode& node = tree->Node(NodeOf(index));
        switch (role) {
            case Qt::DisplayRole: {
                const QString caption = Caption(node);
                return caption.contains(u'\n') ? caption.simplified() : caption;
            }
            case Qt::AccessibleDescriptionRole:
                return node.bold ? ReferenceView::tr("Active document type") : QString();
            case Qt::FontRole:
                return node.bold ? QVariant(BoldFont()) : QVariant();
            default:
                return {};
        }
    }

    void BeginRefill() { beginResetModel(); }
    void EndRefill() { endResetModel(); }
    void ReportChange(const QModelIndex& first, const QModelIndex& last) { emit dataChanged(first, last); }

    ReferenceTree* tree = nullptr;

private:
    [[nodiscard]] const std::vector<int>& ChildrenOf(const QModelIndex& parent) const {
        static const std::vector<int> none;
        if (!tree) return none;
        return parent.isValid() ? tree->Node(NodeOf(parent)).children : tree->Roots();
    }
    static QFont BoldFont() {
        QFont font;
        font.setBold(true);
        return font;
    }
};

ReferenceView::ReferenceView(QWidget* parent) : QTreeView(parent), model_(new ReferenceModel(this)) {
    setModel(model_);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    connect(this, &QTreeView::expanded, this, &ReferenceView::RefreshDates);
}

void ReferenceView::Show(ReferenceTree& tree, Workbench& bench) {
    BeginRefill();
    tree_ = &tree;
    bench_ = &bench;
    model_->tree = &tree;
    EndRefill();
}

void ReferenceView::Forget() {
    BeginRefill();
    tree_ = nullptr;
    bench_ = nullptr;
    model_->tree = nullptr;
    EndRefill();
}

void ReferenceView::BeginRefill() {
    model_->BeginRefill();
}

void ReferenceView::EndRefill() {
    model_->EndRefill();
    setCurrentIndex(model_->index(0, 0, {}));
}

int ReferenceView::NodeOf(const QModelIndex& index) const {
    return model_->NodeOf(index);
}

QModelIndex ReferenceView::IndexOf(int node) const {
    return model_->IndexOf(node);
}

void ReferenceView::mousePressEvent(QMouseEvent* event) {
    QTreeView::mousePressEvent(event);
    if (event->button() == Qt::RightButton) MakeActive(indexAt(event->pos()));
}

void ReferenceView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeView::mouseDoubleClickEvent(event);
    // The sign in front of the text opens and closes the node, however quickly it is clicked.
    const QModelIndex index = indexAt(event->pos());
    if (event->button() == Qt::LeftButton && event->pos().x() >= visualRect(index).left()) Run(index);
}

void ReferenceView::mouseMoveEvent(QMouseEvent* event) {
    QTreeView::mouseMoveEvent(event);
    emit Hint(QStringLiteral("Allows access to XHTML language and other references."));
}

void ReferenceView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) Run(currentIndex());
    } else if (event->key() == Qt::Key_Menu ||
               (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)) {
        MakeActive(currentIndex());
    } else {
        QTreeView::keyPressEvent(event);
    }
}

void ReferenceView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) MakeActive(currentIndex());
    event->accept();
}

bool ReferenceView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    ShowCutText(*static_cast<QHelpEvent*>(event));
    return true;
}

bool ReferenceView::IsCut(const QModelIndex& index) const {
    const QRect place = visualRect(index);
    const int seen = std::min(place.right(), viewport()->rect().right()) + 1 - place.left();
    return Caption(tree_->Node(NodeOf(index))).contains(u'\n') || sizeHintForIndex(index).width() > seen;
}

void ReferenceView::ShowCutText(const QHelpEvent& event) {
    const QModelIndex index = indexAt(event.pos());
    if (!index.isValid() || !IsCut(index)) {
        QToolTip::hideText();
        return;
    }
    // Own tags look like formatted text and must not be taken for it.
    const QString text = Caption(tree_->Node(NodeOf(index))).toHtmlEscaped();
    QToolTip::showText(event.globalPos(), QLatin1String("<p style='white-space:pre'>") + text + QLatin1String("</p>"),
                       viewport(), visualRect(index));
}

void ReferenceView::Run(const QModelIndex& index) {
    if (!index.isValid()) return;
    const int node = NodeOf(index);
    if (tree_->Node(node).parent == 0) {  // a root opens and closes, as in any tree
        setExpanded(index, !isExpanded(index));
        return;
    }
    if (bench_->OpenDocCount() == 0) return;
    const Document* document = bench_->ActiveDocument();
    const QString selection = document ? document->Text1->SelText() : QString();
    const Insertion insertion = PlanInsertion(*tree_, node, selection);
    if (insertion.kind == InsertionKind::Element) expand(index);
    RunInsertion(*bench_, insertion);
}

void ReferenceView::RefreshDates(const QModelIndex& index) {
    const ReferenceNode& node = tree_->Node(NodeOf(index));
    if (node.kind != NodeKind::Dates || node.children.empty()) return;
    const QStringList texts = DateTimeTexts(QDateTime::currentDateTime(), QLocale::system());
    for (std::size_t row = 0; row < node.children.size(); ++row) {
        tree_->SetName(node.children[row], texts.value(static_cast<qsizetype>(row)));
    }
    model_->ReportChange(IndexOf(node.children.front()), IndexOf(node.children.back()));
}

void ReferenceView::MakeActive(const QModelIndex& index) {
    const int chosen = NodeOf(index);
    if (chosen == 0 || tree_->Node(chosen).kind != NodeKind::DocumentType) return;
    const std::vector<int>& roots = tree_->Roots();
    for (const int root : roots) tree_->SetBold(root, root == chosen);
    model_->ReportChange(IndexOf(roots.front()), IndexOf(roots.back()));
    // An open popup offers what the other type had.
    if (const Document* document = bench_->ActiveDocument()) document->picAttr->HideAttr();
}

}  // namespace vellum
