#include "tools/scripts/asp.h"

#include <QEvent>
#include <QPushButton>

namespace vellum {

QString ServerVariableMarkup(const QString& variable) {
    return "<%= Request.ServerVariables(\"" + variable + "\") %>";
}

QString ConditionalMarkup(const QString& conditional) {
    return "<%= " + conditional + " %>";
}

ASP::ASP(Workbench& bench) : ToolDialog(bench, "ASP", "ASP") {
    cboServer = MakeCombo(
        "cboServer", {"ALL_HTTP",          "AUTH_PASS",    "AUTH_TYPE",       "CONTENT_LENGTH",  "CONTENT_TYPE",
                      "GATEWAY_INTERFACE", "PATH_INFO",    "PATH_TRANSLATED", "QUERY_STRING",    "REMOTE_ADDR",
                      "REMOTE_HOST",       "REMOTE_IDENT", "REMOTE_USER",     "REQUEST_BODY",    "REQUEST_METHOD",
                      "SCRIPT_NAME",       "SERVER_NAME",  "SERVER_PORT",     "SERVER_PROTOCOL", "SERVER_SOFTWARE"});
    cmdServerOK = AddHalf("cmdServerOK", "Server Variables", cboServer, ServerVariableMarkup);
    cboConditional = MakeCombo("cboConditional", {"Else", "End If", "If"});
    cmdConditionalOK = AddHalf("cmdConditionalOK", "Conditionals", cboConditional, ConditionalMarkup);
    FinishWithCancel();
}

QPushButton* ASP::AddHalf(const QString& okName, const QString& caption, QComboBox* box, Generator generate) {
    QPushButton* const ok = MakeFieldButton(okName, "OK", caption);
    connect(ok, &QPushButton::clicked, this, [this, box, generate] {
        if (!box->currentText().isEmpty()) HandOver(generate(box->currentText()));
    });
    box->installEventFilter(this);
    AddField(caption, box, ok);
    return ok;
}

bool ASP::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        if (watched == cboServer) cmdServerOK->setDefault(true);
        if (watched == cboConditional) cmdConditionalOK->setDefault(true);
    }
    return ToolDialog::eventFilter(watched, event);
}

}  // namespace vellum
