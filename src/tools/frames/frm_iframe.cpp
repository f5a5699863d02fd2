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
    AddCombo(fields_.alignment, "cboAlignment", "Alignment", {"TOP", "MIDDLE", "BOTTOM", "LEFT", "RIGHT"});
    AddText(fields_.name, "txtName", "Name");
    AddText(fields_.id, "txtID", "ID");
    AddFile(fields_.source, "txtHTMLFile", "HTML File", "&Find",
            "Web Pages (*.htm;*.html;*.asp)|*.htm;*.html;*.asp|All Files (*.*)|*.*");
    AddText(fields_.width, "txtWidth", "Width (In Pixels)");
    AddText(fields_.height, "txtHeight", "Height (in Pixels)");
    AddText(fields_.marginHeight, "txtMarginHeight", "Margin Height (In Pixels)");
    AddText(fields_.marginWidth, "txtMarginWidth", "Margin Width (In Pixels)");
    AddCheck(fields_.frameBorder, "chkFrameBorder", "Frame Border");
    AddCheck(fields_.scrollBars, "chkScrollBars", "Scroll Bars");
    Finish([this] { return IFrameMarkup(fields_); });
}

}  // namespace vellum
