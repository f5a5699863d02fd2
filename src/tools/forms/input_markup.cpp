#include "tools/forms/input_markup.h"

#include "tools/framework/attributes.h"

namespace vellum {
namespace {

// ` name="name"`
QString Switch(const char* name, bool on) {
    return on ? Attribute(name, name) : QString();
}

QString Common(const InputFields& fields) {
    QString attributes;
    attributes += AttributeIfAny("name", fields.name);
    attributes += AttributeIfAny("id", fields.id);
    attributes += AttributeIfAny("class", fields.className);
    attributes += AttributeIfAny("title", fields.title);
    attributes += AttributeIfAny("accesskey", fields.accessKey);
    return attributes + Switch("disabled", fields.disabled);
}

QString Input(const char* type, const QString& attributes) {
    return "<input" + Attribute("type", type) + attributes + " />";
}

// What a line has beside the common attributes.
QString Line(const InputFields& fields) {
    return AttributeIfAny("size", fields.width) + AttributeIfAny("maxlength", fields.maxLength) +
           AttributeIfAny("value", fields.lineValue);
}

QString Textbox(const InputFields& fields) {
    return "<textarea" + Common(fields) + AttributeIfAny("cols", fields.columns) + AttributeIfAny("rows", fields.rows) +
           '>' + fields.contents + "</textarea>";
}

QString Listbox(const InputFields& fields) {
    QString markup = "<select" + Common(fields) + AttributeIfAny("size", fields.listSize);
    markup += Switch("multiple", fields.multiple) + ">\r\n";
    for (const QStringList& entry : fields.entries) {
        markup += "<option" + Attribute("value", entry.at(0)) + '>' + entry.at(1) + "</option>\r\n";
    }
    return markup + "</select>";
}

}  // namespace

QString InputMarkup(const InputFields& fields) {
    const QString common = Common(fields);
    switch (fields.kind) {
        case InputKind::Checkbox:
            return Input("checkbox",
                         common + AttributeIfAny("value", fields.checkboxValue) + Switch("checked", fields.checked));
        case InputKind::Hidden:
            return Input("hidden", common + AttributeIfAny("value", fields.hiddenValue));
        case InputKind::Image:
            return Input("image",
                         common + AttributeIfAny("align", fields.alignment) + AttributeIfAny("src", fields.source));
        case InputKind::Password:
            return "<INPUT TYPE=\"password\"" + common + Line(fields) + " />";
        case InputKind::Radio:
            return Input("radio", common + AttributeIfAny("value", fields.radioValue)) + fields.radioText;
        case InputKind::Reset:
            return Input("reset", common + AttributeIfAny("value", fields.label));
        case InputKind::Submit:
            return Input("submit", common + AttributeIfAny("value", fields.label));
        case InputKind::Text:
            return Input("text", common + Line(fields));
        case InputKind::Textbox:
            return Textbox(fields);
        case InputKind::Listbox:
            return Listbox(fields);
        case InputKind::Button:
            return "<button" + common + '>' + fields.label + "</button>";
        case InputKind::FileSearch:
            return Input("file", common + AttributeIfAny("size", fields.width));
    }
    return {};
}

}  // namespace vellum
