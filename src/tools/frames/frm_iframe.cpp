#include "tools/frames/frm_iframe.h"

#include "tools/framework/attributes.h"

namespace vellum {

QString IFrameMarkup(const IFrameFields& fields) {
    QString markup = "<IFRAME";
    markup += AttributeIfAny(QLatin1String("align"), fields.alignment);
    markup += AttributeIfAny(QLatin1String("name"), fields.name);
    markup += AttributeIfAny(QLatin1String("src"), fields.source);
    markup += AttributeIfAny(QLatin1String("id"), fields.id);
    markup += AttributeIfAny(QLatin1String("height"), fields.height);
    markup += AttributeIfAny(QLatin1String("width"), fields.width);
    markup += AttributeIfAny(QLatin1String("marginheight"), fields.marginHeight);
    markup += AttributeIfAny(QLatin1String("marginwidth"), fields.marginWidth);
    markup += Attribute(QLatin1String("frameborder"), fields.frameBorder ? "1" : "0");
    markup += Attribute(QLatin1String("scrolling"), fields.scrollBars ? "yes" : "no");
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
