#include "tools/scripts/asp.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>

namespace vellum {

QString ServerVariableMarkup(const QString& variable) {
    return "<%= Request.ServerVariables(\"" + variable + "\") %>";
}

QString ConditionalMarkup(const QString& conditional) {
    return "<%= " + conditional + " %>";
}

ASP::ASP(Workbench& bench) : ToolDialog(bench, "ASP", "ASP") {
    AddHalf(variable_, "Server", "Server Variables",
            {"ALL_HTTP",          "AUTH_PASS",    "AUTH_TYPE",       "CONTENT_LENGTH",  "CONTENT_TYPE",
             "GATEWAY_INTERFACE", "PATH_INFO",    "PATH_TRANSLATED", "QUERY_STRING",    "REMOTE_ADDR",
             "REMOTE_HOST",       "REMOTE_IDENT", "REMOTE_USER",     "REQUEST_BODY",    "REQUEST_METHOD",
             "SCRIPT_NAME",       "SERVER_NAME",  "SERVER_PORT",     "SERVER_PROTOCOL", "SERVER_SOFTWARE"},
            ServerVariableMarkup);
    AddHalf(conditional_, "Conditional", "Conditionals", {"Else", "End If", "If"}, ConditionalMarkup);
    Finish();
}

void ASP::AddHalf(QString& field, const QString& name, const QString& caption, const QStringList& values,
                  Generator generate) {
    const QComboBox* const box = AddCombo(field, "cbo" + name, caption, values);
    Beside();
    QPushButton* const ok = AddButton("cmd" + name + "OK", "OK", [this, &field, generate] {
        if (!field.isEmpty()) HandOver(generate(field));
    });
    connect(qApp, &QApplication::focusChanged, ok, [box, ok](const QWidget* /*before*/, const QWidget* now) {
        if (now == box) ok->setDefault(true);
    });
}

}  // namespace vellum
