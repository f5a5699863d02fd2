#include "tools/frames/frm_iframe.h"

#include "tools/framework/attributes.h"

namespace vellum {

QString IFrameMarkup(const IFrameFields& fields) {
    QString markup = "<IFRAME";
    markup += AttributeIfAny("align", fields.alignment);
    markup += AttributeIfAny("name", fields.name);
    markup += AttributeIfAny("src", fields.source);
    markup += AttributeIfAny("id", fields.id);
    markup += AttributeIfAny("height", fields.height);
    markup += AttributeIfAny("width", fields.width);
    markup += AttributeIfAny("marginheight", fields.marginHeight);
    markup += AttributeIfAny("marginwidth", fields.marginWidth);
    markup += Attribute("frameborder", fields.frameBorder ? "1" : "0");
    markup += Attribute("scrolling", fields.scrollBars ? "yes" : "no");
    return markup + "></iframe>";
}

frmIFrame::frmIFrame(Workbench& bench) : ToolDialog(bench, "frmIFrame", "Floating Frame") {
    const IFrameFields defaults;
    cboAlignment =
        AddCombo("cboAlignment", "Alignment", {"TOP", "MIDDLE", "BOTTOM", "LEFT", "RIGHT"}, defaults.alignment);
    txtName = AddText("txtName", "Name");
    txtID = AddText("txtID", "ID");
    txtHTMLFile = AddFile("txtHTMLFile", "HTML File", "&Find",
                          "Web Pages (*.htm;*.html;*.asp)|*.htm;*.html;*.asp|All Files (*.*)|*.*");
    txtWidth = AddText("txtWidth", "Width (In Pixels)");
    txtHeight = AddText("txtHeight", "Height (in Pixels)");
    txtMarginHeight = AddText("txtMarginHeight", "Margin Height (In Pixels)");
    txtMarginWidth = AddText("txtMarginWidth", "Margin Width (In Pixels)");
    chkFrameBorder = AddCheck("chkFrameBorder", "Frame Border");
    chkScrollBars = AddCheck("chkScrollBars", "Scroll Bars");
    Finish([this] { return IFrameMarkup(Fields()); });
}

IFrameFields frmIFrame::Fields() const {
    return {cboAlignment->currentText(), txtName->text(),        txtID->text(),
            txtHTMLFile->text(),         txtWidth->text(),       txtHeight->text(),
            txtMarginHeight->text(),     txtMarginWidth->text(), chkFrameBorder->isChecked(),
            chkScrollBars->isChecked()};
}

}  // namespace vellum
