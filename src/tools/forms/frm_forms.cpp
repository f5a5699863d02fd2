#include "tools/forms/frm_forms.h"

#include "tools/framework/attributes.h"

#include <QComboBox>
#include <QLineEdit>

namespace vellum {

QString FormMarkup(const FormFields& fields) {
    QString markup = "<!-- Begin Form -->\r\n<form";
    markup += AttributeIfAny("name", fields.name);
    markup += AttributeIfAny("id", fields.id);
    markup += AttributeIfAny("class", fields.className);
    markup += AttributeIfAny("title", fields.title);
    markup += AttributeIfAny("action", fields.url);
    markup += AttributeIfAny("method", fields.method);
    markup += AttributeIfAny("target", fields.target);
    markup += AttributeIfAny("enctype", fields.encoding);
    return markup + ">\r\n\r\n\r\n</form>\r\n<!-- Form End -->";
}

FormFields WithMail(FormFields fields, const QString& address) {
    fields.url = "mailto:" + address + "?subject=Posted Data";
    fields.method = "POST";
    fields.encoding = "multipart/form-data";
    fields.name = "MailForm";
    return fields;
}

frmForms::frmForms(Workbench& bench) : ToolDialog(bench, "frmForms", "Form Builder") {
    AddFrame({}, [this] { AddNames(); });
    constexpr int urlWidth = 52;  // in characters
    SetFieldWidth(AddText(fields_.url, "Text1", "URL which processes the actions of the form"), urlWidth);
    AddButton("cmdEmail", "Use E-mail For Form Handling", [this] { AskAddress(); });
    AddFrame({}, [this] { AddHandling(); });
    Finish([this] { return FormMarkup(fields_); });
}

void frmForms::AddNames() {
    AddText(fields_.name, "txtName", "Name");
    AddText(fields_.id, "txtID", "ID");
    NextColumn();
    AddText(fields_.className, "txtClass", "Class");
    AddText(fields_.title, "txtTitle", "Title");
}

void frmForms::AddHandling() {
    constexpr int methodWidth = 10;  // in characters
    constexpr int targetWidth = 12;
    constexpr int encodingWidth = 38;
    SetFieldWidth(AddCombo(fields_.method, "Combo3", "Method", {"GET", "POST"}), methodWidth);
    Beside();
    SetFieldWidth(AddCombo(fields_.target, "Combo1", "Target", {"_blank", "_parent", "_self", "_top"}), targetWidth);
    Beside();
    SetFieldWidth(
        AddCombo(fields_.encoding, "Combo2", "EncType", {"application/x-www-form-urlencoded", "multipart/form-data"}),
        encodingWidth);
}

void frmForms::AskAddress() {
    const auto address = bench_.Ask().Input(this, "E-mail address that the data is sent to", "Enter E-mail address");
    if (!address || address->isEmpty()) return;
    fields_ = WithMail(fields_, *address);
    ShowFields();
}

}  // namespace vellum
