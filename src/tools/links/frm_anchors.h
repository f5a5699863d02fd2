// Links: to a page, a place on a page, an e-mail address or a newsgroup.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

struct LinkFields {
    QString url;
    QString caption;
    QString toolTip;
    QString target;
    bool selected = false;  // what the television browser's cursor stands on at first
};

struct NamedReferenceFields {
    QString reference;
    QString displayed;
};

struct EmailFields {
    QString address;
    QString caption;
};

struct NewsgroupFields {
    QString address;
    QString caption;
};

[[nodiscard]] QString LinkMarkup(const LinkFields& fields);
[[nodiscard]] QString NamedReferenceMarkup(const NamedReferenceFields& fields);
[[nodiscard]] QString EmailMarkup(const EmailFields& fields);
[[nodiscard]] QString NewsgroupMarkup(const NewsgroupFields& fields);

// Every caption starts as what is selected in the document, byte for byte, so that the link takes its place.
class frmAnchors : public ToolDialog {
    Q_OBJECT
public:
    // Opens with a link, whose caption is not looked at.
    explicit frmAnchors(Workbench& bench, LinkFields link = {});

private:
    LinkFields link_;
    NamedReferenceFields reference_;
    EmailFields email_;
    NewsgroupFields newsgroup_;
};

}  // namespace vellum
