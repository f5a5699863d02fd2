#include "tools/framework/tool_dialog.h"

#include "editor/document.h"
#include "tools/framework/access_keys.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace vellum {

ToolDialog::ToolDialog(Workbench& bench, const QString& name, const QString& caption)
    : FieldForm(bench, name, caption) {}

int ToolDialog::exec() {
    markup_.reset();
    return QDialog::exec();
}

void ToolDialog::done(int result) {
    if (QWidget* window = bench_.Window()) window->setEnabled(true);
    QDialog::done(result);
}

void ToolDialog::AddPane(const QString& caption, const QString& toolTip, const Build& build) {
    FieldForm::AddPane(caption, toolTip);
    paneBuilds_.push_back(build);
}

QPushButton* ToolDialog::Finish(const Build& build, OnCancel onCancel, const Captioned& button) {
    onCancel_ = onCancel;
    const auto builds = [](const Build& one) { return static_cast<bool>(one); };
    const bool hasButton = build || std::any_of(paneBuilds_.begin(), paneBuilds_.end(), builds);
    const auto press = [this, build] {
        const Build pane = tabs_ ? paneBuilds_.at(static_cast<std::size_t>(tabs_->currentIndex())) : Build();
        const Build& chosen = pane ? pane : build;
        if (!chosen) return;
        if (const std::optional<QString> markup = chosen()) HandOver(*markup);
    };
    QPushButton* const pressed = AddClosingRow(hasButton ? button : Captioned(), press);
    SetAccessKeys(*this);
    if (tabs_) {
        // The arrow keys walk along the tabs; whoever comes another way wants to type.
        connect(tabs_, &QTabWidget::currentChanged, this, [this] {
            if (!tabs_->tabBar()->hasFocus()) FocusFirstField();
        });
    }
    FocusFirstField();
    return pressed;
}

void ToolDialog::FocusFirstField() {
    const QWidget* const pane = tabs_ ? tabs_->currentWidget() : this;
    for (QWidget* field = pane->nextInFocusChain(); pane->isAncestorOf(field); field = field->nextInFocusChain()) {
        if ((field->focusPolicy() & Qt::TabFocus) == 0 || !field->isEnabled() || !field->isVisibleTo(pane)) continue;
        const auto* const option = qobject_cast<const QRadioButton*>(field);
        if (option && !option->isChecked()) continue;  // the one that is on stands for its group
        field->setFocus(Qt::TabFocusReason);
        return;
    }
}

void ToolDialog::HandOver(const QString& markup) {
    markup_ = markup;
    accept();
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
