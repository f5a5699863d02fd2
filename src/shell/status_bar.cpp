#include "shell/status_bar.h"

#include "editor/workbench.h"

namespace vellum {
namespace {

struct PanelDesign {
    const char* accessibleName;
    const char* sample;  // the widest text that it usually shows; empty: takes the room that is left
};

constexpr std::array<PanelDesign, StatusBar::panelCount> designs{{
    {QT_TR_NOOP("Saved or changed"), "Changed"},
    {QT_TR_NOOP("Length of the text"), "10000000 bytes"},
    {QT_TR_NOOP("Hint"), ""},
    {QT_TR_NOOP("Work under way"), "Edit Your Document"},
    {QT_TR_NOOP("Open documents"), "100 open"},
    {QT_TR_NOOP("Line of the caret"), "1000000"},
}};

}  // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent) {
    setObjectName("StatusBar1");
    setSizeGripEnabled(true);
    for (std::size_t i = 0; i < designs.size(); ++i) {
        auto* panel = new QLabel(this);
        panel->setObjectName(QStringLiteral("StatusBar1.Panels(%1)").arg(i + 1));
        panel->setAccessibleName(tr(designs.at(i).accessibleName));
        const bool stretches = *designs.at(i).sample == '\0';
        if (stretches) {
            panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        } else {
            panel->setMinimumWidth(panel->fontMetrics().horizontalAdvance(designs.at(i).sample) + 8);
        }
        // What they tell counts above all while the window takes no input.
        QPalette colors = panel->palette();
        colors.setColor(QPalette::Disabled, QPalette::WindowText, colors.color(QPalette::Active, QPalette::WindowText));
        panel->setPalette(colors);
        panels_.at(i) = panel;
        addWidget(panel, stretches ? 1 : 0);
    }
}

void StatusBar::SetPanel(StatusPanel panel, const QString& text) {
    panels_.at(static_cast<std::size_t>(panel) - 1)->setText(text);
}

}  // namespace vellum
