#include "tools/scripts/frm_applet.h"

#include "tools/framework/attributes.h"
#include "tools/framework/values.h"

namespace vellum {

QString AppletMarkup(const AppletFields& fields) {
    QString markup = "<applet" + Attribute("name", fields.name);
    markup += AttributeIfAny("align", fields.alignment);
    markup += AttributeIfAny("alt", fields.alternateText);
    markup += Attribute("codebase", fields.urlDirectory);
    markup += Attribute("code", fields.fileName);
    markup += AttributeIfAny("width", fields.width);
    markup += AttributeIfAny("height", fields.height);
    markup += AttributeIfAny("hspace", fields.hSpace);
    markup += AttributeIfAny("vspace", fields.vSpace);
    return markup + "></applet>";
}

frmApplet::frmApplet(Workbench& bench) : ToolDialog(bench, "frmApplet", "Java Applet") {
    const QStringList pixels = Numbers(50, 500, 50);
    AddText(fields_.fileName, "txtFilename", "Filename of Applet");
    AddText(fields_.urlDirectory, "txtURLDirectory", "URL Directory of Applet");
    AddText(fields_.name, "txtName", "Name Used In HTML Code");
    AddCombo(fields_.alignment, "cboAlignment", "Alignment", {"LEFT", "CENTER", "RIGHT"});
    AddCombo(fields_.width, "cboWidth", "Width", pixels);
    AddCombo(fields_.height, "cboHeight", "Height", pixels);
    AddCombo(fields_.hSpace, "cboHSpace", "HSpace", pixels);
    AddCombo(fields_.vSpace, "cboVSpace", "VSpace", pixels);
    AddText(fields_.alternateText, "txtAlternate", "Alternate Text");
    Finish([this] { return AppletMarkup(fields_); });
}

}  // namespace vellum
