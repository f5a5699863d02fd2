#include "tools/scripts/frm_param.h"

#include "tools/framework/attributes.h"

namespace vellum {

QString ParamMarkup(const GridRows& parameters) {
    QString markup;
    for (const QStringList& parameter : parameters) {
        markup += "<param" + Attribute("name", parameter.at(0)) + Attribute("value", parameter.at(1)) + " />\r\n";
    }
    return markup;
}

frmParam::frmParam(Workbench& bench) : ToolDialog(bench, "frmParam", "Insert Parameters") {
    AddGrid(parameters_, {.titles = {"Parameter Name", "Parameter Value"}});
    Finish([this] { return ParamMarkup(parameters_); });
}

}  // namespace vellum
