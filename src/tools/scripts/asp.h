// ASP: server variables and conditionals of Active Server Pages.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

[[nodiscard]] QString ServerVariableMarkup(const QString& variable);
[[nodiscard]] QString ConditionalMarkup(const QString& conditional);

// Two halves, each with an OK of its own, which Enter in its box presses, and which does nothing while that is empty.
class ASP : public ToolDialog {
    Q_OBJECT
public:
    explicit ASP(Workbench& bench);

private:
    using Generator = QString (*)(const QString& text);

    void AddHalf(QString& field, const QString& name, const QString& caption, const QStringList& values,
                 Generator generate);

    QString variable_;
    QString conditional_;
};

}  // namespace vellum
