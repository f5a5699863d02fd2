#include "tools/links/frm_anchors.h"

#include "tools/framework/attributes.h"

namespace vellum {
namespace {

// In the order of the tabs.
enum Pane { LinkPane, NamedReferencePane, EmailPane, NewsgroupPane };

}  // namespace

QString LinkMarkup(const LinkFields& fields) {
    QString markup = "<a" + Attribute("href", fields.url);
    markup += AttributeIfAny("target", fields.target);
    markup += AttributeIfAny("title", fields.toolTip);
    if (fields.selected) markup += " selected=\"selected\"";
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

frmAnchors::frmAnchors(Workbench& bench) : ToolDialog(bench, "frmAnchors", "Links") {
    const QString selection = SelectedText(bench);
    AddPane("&Link", "Creates Links to Other Pages");
    txtURL = AddText("txtURL", "URL");
    txtLinkCaption = AddText("txtLinkCaption", "Link Caption", selection);
    txtToolTip = AddText("txtToolTip", "Tool-Tip Text");
    cboTarget = AddCombo("cboTarget", "Target", {"_blank", "_parent", "_self", "_top"});
    BeginFrame("WebTV");
    chkTVSelected = AddCheck("chkTVSelected", "Selected In Browser Window");
    EndFrame();
    AddPane("&Named Reference", "Creates a Named Reference Which Can Be Linked To.");
    txtReference = AddText("txtReference", "Reference Text");
    txtDisplayed = AddText("txtDisplayed", "Text Displayed", selection);
    AddPane("&E-mail", "Creates a Link to an E-mail Address.");
    txtEmail = AddText("txtEmail", "E-mail address");
    txtEmailCaption = AddText("txtEmailCaption", "Link Caption", selection);
    AddPane("Ne&wsgroups", "Creates a Link to a Newsgroup.");
    txtNewsgroup = AddText("txtNewsgroup", "Newsgroup address");
    txtNewsgroupCaption = AddText("txtNewsgroupCaption", "Link Caption", selection);
    Finish([this] { return PaneMarkup(); }, OnCancel::FocusText);
}

void frmAnchors::SetUrl(const QString& url) {
    txtURL->setText(url);
}

LinkFields frmAnchors::Link() const {
    return {txtURL->text(), txtLinkCaption->text(), txtToolTip->text(), cboTarget->currentText(),
            chkTVSelected->isChecked()};
}

NamedReferenceFields frmAnchors::NamedReference() const {
    return {txtReference->text(), txtDisplayed->text()};
}

EmailFields frmAnchors::Email() const {
    return {txtEmail->text(), txtEmailCaption->text()};
}

NewsgroupFields frmAnchors::Newsgroup() const {
    return {txtNewsgroup->text(), txtNewsgroupCaption->text()};
}

QString frmAnchors::PaneMarkup() const {
    switch (VisiblePane()) {
        case NamedReferencePane:
            return NamedReferenceMarkup(NamedReference());
        case EmailPane:
            return EmailMarkup(Email());
        case NewsgroupPane:
            return NewsgroupMarkup(Newsgroup());
        default:
            return LinkMarkup(Link());
    }
}

}  // namespace vellum
