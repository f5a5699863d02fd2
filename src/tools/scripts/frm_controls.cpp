#include "tools/scripts/frm_controls.h"

#include "tools/scripts/frm_options.h"
#include "tools/scripts/object_tag.h"
#include "widgets/wait_pointer.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QShowEvent>
#include <QTimer>

namespace vellum {

frmControls::frmControls(Workbench& bench) : ToolDialog(bench, "frmControls", "Select Control and Right Click") {
    constexpr int width = 50;  // in characters
    list_ = new QListWidget;
    list_->setObjectName("lstControls");
    list_->setAccessibleName(tr("Controls"));
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    list_->setMinimumWidth(width * list_->fontMetrics().averageCharWidth());
    AddGrowing(list_);
    none_ = new QLabel(noControls);
    none_->setObjectName("lblNone");
    none_->hide();
    AddField({}, none_);
    AddButton("cmdOptions", "Options...", [this] { ShowOptions(); });
    QPushButton* const ok = Finish([this] { return ObjectMarkup(Chosen(), ReadObjectOptions(bench_.Settings())); });
    ok->setEnabled(false);
    connect(list_, &QListWidget::itemSelectionChanged, ok, [this, ok] { ok->setEnabled(!Chosen().empty()); });
    connect(list_, &QListWidget::itemDoubleClicked, this, &frmControls::CopyIt);
    connect(list_, &QWidget::customContextMenuRequested, this, &frmControls::ShowMenu);
}

void frmControls::showEvent(QShowEvent* event) {
    ToolDialog::showEvent(event);
    if (event->spontaneous()) return;
    setWindowTitle("Reading Registry, please wait...");
    QTimer::singleShot(0, this, &frmControls::LoadControls);
}

void frmControls::LoadControls() {
    const WaitPointer wait;
    controls_ = ReadControls(RegistryFile());
    list_->clear();
    for (const Control& control : controls_) list_->addItem(control.name);
    none_->setVisible(controls_.empty());
    setWindowTitle("Pick Your ActiveX Control");
}

std::vector<Control> frmControls::Chosen() const {
    std::vector<Control> chosen;
    for (std::size_t row = 0; row < controls_.size(); ++row) {
        if (list_->item(static_cast<int>(row))->isSelected()) chosen.push_back(controls_[row]);
    }
    return chosen;
}

void frmControls::CopyIt() {
    HandOver(ObjectMarkup(Chosen(), ReadObjectOptions(bench_.Settings())));
}

void frmControls::ShowMenu(QPoint place) {
    QMenu menu(this);
    menu.addAction("Copy", this, &frmControls::CopyIt)->setEnabled(!Chosen().empty());
    menu.addAction("&Options...", this, &frmControls::ShowOptions);
    menu.exec(list_->viewport()->mapToGlobal(place));
}

void frmControls::ShowOptions() {
    frmOptions(bench_, controls_.empty() ? std::nullopt : std::optional(controls_.front())).exec();
}

}  // namespace vellum
