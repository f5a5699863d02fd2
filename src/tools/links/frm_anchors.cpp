#include "tools/links/frm_anchors.h"

#include "tools/framework/attributes.h"

#include <utility>

namespace vellum {

QString LinkMarkup(const LinkFields& fields) {
    QString markup = "<a" + Attribute("href", fields.url);
    markup += AttributeIfAny("target", fields.target);
    markup += AttributeIfAny("title", fields.toolTip);
    if (fields.selected) markup += Attribute("selected", "selected");
    return markup + '>' + fields.caption + "</a>";
}

QString NamedReferenceMarkup(const NamedReferenceFields& fields) {
    return "<a" + Attribute("name", fields.reference) + '>' + fields.displayed + "</a>";
}

QString EmailMarkup(const EmailFields& fields) {
    return "<a" + Attribute("href", "mailto:" + fields.address) + '>' + fields.caption + "</a>";
}

QString NewsgroupMarkup(const NewsgroupFields& fields) {
    return "<a" + Attribute("href", "news:" + fields.address) + '>' + fields.caption + "</a>";
}

frmAnchors::frmAnchors(Workbench& bench, LinkFields link)
    : ToolDialog(bench, "frmAnchors", "Links"), link_(std::move(link)) {
    for (QString* caption : {&link_.caption, &reference_.displayed, &email_.caption, &newsgroup_.caption}) {
        *caption = SelectedText(bench);
    }
    AddPane("&Link", "Creates Links to Other Pages", [this] { return LinkMarkup(link_); });
    AddText(link_.url, "txtURL", "URL");
    AddText(link_.caption, "txtLinkCaption", "Link Caption");
    AddText(link_.toolTip, "txtToolTip", "Tool-Tip Text");
    AddCombo(link_.target, "cboTarget", "Target", {"_blank", "_parent", "_self", "_top"});
    AddFrame("WebTV", [this] { AddCheck(link_.selected, "chkTVSelected", "Selected In Browser Window"); });
    AddPane("&Named Reference", "Creates a Named Reference Which Can Be Linked To.",
            [this] { return NamedReferenceMarkup(reference_); });
    AddText(reference_.reference, "txtReference", "Reference Text");
    AddText(reference_.displayed, "txtDisplayed", "Text Displayed");
    AddPane("&E-mail", "Creates a Link to an E-mail Address.", [this] { return EmailMarkup(email_); });
    AddText(email_.address, "txtEmail", "E-mail address");
    AddText(email_.caption, "txtEmailCaption", "Link Caption");
    AddPane("Ne&wsgroups", "Creates a Link to a Newsgroup.", [this] { return NewsgroupMarkup(newsgroup_); });
    AddText(newsgroup_.address, "txtNewsgroup", "Newsgroup address");
    AddText(newsgroup_.caption, "txtNewsgroupCaption", "Link Caption");
    Finish({}, OnCancel::FocusText);
}

}  // namespace vellum
