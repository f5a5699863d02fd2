// Form Builder: the tag pair of a form.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

struct FormFields {
    QString name;
    QString id;
    QString className;
    QString title;
    QString url;  // of what takes the data
    QString method;
    QString target;
    QString encoding;  // of the data
};

[[nodiscard]] QString FormMarkup(const FormFields& fields);

// With what it takes to send the data to an e-mail address; the other fields stay.
[[nodiscard]] FormFields WithMail(FormFields fields, const QString& address);

class frmForms : public ToolDialog {
    Q_OBJECT
public:
    explicit frmForms(Workbench& bench);

private:
    void AddNames();
    void AddHandling();
    void AskAddress();

    FormFields fields_;
};

}  // namespace vellum
