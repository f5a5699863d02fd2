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
    const AppletFields defaults;
    const QStringList pixels = Numbers(50, 500, 50);
    txtFilename = AddText("txtFilename", "Filename of Applet");
    txtURLDirectory = AddText("txtURLDirectory", "URL Directory of Applet");
    txtName = AddText("txtName", "Name Used In HTML Code");
    cboAlignment = AddCombo("cboAlignment", "Alignment", {"LEFT", "CENTER", "RIGHT"});
    cboWidth = AddCombo("cboWidth", "Width", pixels, defaults.width);
    cboHeight = AddCombo("cboHeight", "Height", pixels, defaults.height);
    cboHSpace = AddCombo("cboHSpace", "HSpace", pixels, defaults.hSpace);
    cboVSpace = AddCombo("cboVSpace", "VSpace", pixels, defaults.vSpace);
    txtAlternate = AddText("txtAlternate", "Alternate Text");
    Finish([this] { return AppletMarkup(Fields()); });
}

AppletFields frmApplet::Fields() const {
    return {txtFilename->text(),         txtURLDirectory->text(),  txtName->text(),
            cboAlignment->currentText(), cboWidth->currentText(),  cboHeight->currentText(),
            cboHSpace->currentText(),    cboVSpace->currentText(), txtAlternate->text()};
}

}  // namespace vellum
