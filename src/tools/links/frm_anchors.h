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
    explicit frmAnchors(Workbench& bench);

    // Of the page that the first pane links to.
    void SetUrl(const QString& url);

    [[nodiscard]] LinkFields Link() const;
    [[nodiscard]] NamedReferenceFields NamedReference() const;
    [[nodiscard]] EmailFields Email() const;
    [[nodiscard]] NewsgroupFields Newsgroup() const;

private:
    [[nodiscard]] QString PaneMarkup() const;

    QLineEdit* txtURL;
    QLineEdit* txtLinkCaption;
    QLineEdit* txtToolTip;
    QComboBox* cboTarget;
    QCheckBox* chkTVSelected;
    QLineEdit* txtReference;
    QLineEdit* txtDisplayed;
    QLineEdit* txtEmail;
    QLineEdit* txtEmailCaption;
    QLineEdit* txtNewsgroup;
    QLineEdit* txtNewsgroupCaption;
};

}  // namespace vellum
