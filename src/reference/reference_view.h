// The reference tree on the screen: a double click, or Enter, puts a node into the document; the right button, or the
// menu key, makes a document type the active one.
#pragma once

#include "editor/reference_tree.h"

#include <QTreeView>

class QHelpEvent;

namespace vellum {

class ReferenceModel;
class Workbench;

class ReferenceView : public QTreeView {
    Q_OBJECT
public:
    explicit ReferenceView(QWidget* parent = nullptr);

    // Shows `tree`, which outlives the view's use, and works on the active document of `bench`.
    void Show(ReferenceTree& tree, Workbench& bench);
    // Shows nothing any more, for the time when the tree goes.
    void Forget();
    // To be called around a change of the nodes. The first node is the current one afterwards.
    void BeginRefill();
    void EndRefill();

    [[nodiscard]] int NodeOf(const QModelIndex& index) const;  // 0 for no node
    [[nodiscard]] QModelIndex IndexOf(int node) const;

signals:
    void Hint(const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    [[nodiscard]] bool IsCut(const QModelIndex& index) const;
    void ShowCutText(const QHelpEvent& event);
    void Run(const QModelIndex& index);
    void RefreshDates(const QModelIndex& index);
    void MakeActive(const QModelIndex& index);

    ReferenceModel* const model_;
    ReferenceTree* tree_ = nullptr;
    Workbench* bench_ = nullptr;
};

}  // namespace vellum
