// ASP: server variables and conditionals of Active Server Pages.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

[[nodiscard]] QString ServerVariableMarkup(const QString& variable);
[[nodiscard]] QString ConditionalMarkup(const QString& conditional);

// Two halves, each with an OK of its own, which does nothing while its box is empty.
class ASP : public ToolDialog {
    Q_OBJECT
public:
    explicit ASP(Workbench& bench);

    // Enter in a box presses the OK of its half.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Generator = QString (*)(const QString& text);

    QPushButton* AddHalf(const QString& okName, const QString& caption, QComboBox* box, Generator generate);

    QComboBox* cboServer;
    QPushButton* cmdServerOK;
    QComboBox* cboConditional;
    QPushButton* cmdConditionalOK;
};

}  // namespace vellum
