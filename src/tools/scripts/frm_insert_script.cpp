#include "tools/scripts/frm_insert_script.h"

#include "tools/framework/attributes.h"
#include "tools/scripts/script_template.h"

namespace vellum {
namespace {

constexpr auto vbScriptFence = R"(' <![CDATA[


' ]]>
-->
)";

constexpr auto javascriptFence = R"(// <![CDATA[


// ]]>
// -->
)";

QString Fence(const QString& language) {
    if (language.startsWith(QLatin1String("vb"), Qt::CaseInsensitive)) return vbScriptFence;
    if (language.isEmpty() || language.startsWith(u'j', Qt::CaseInsensitive)) return javascriptFence;
    return {};
}

}  // namespace

QString ScriptElement(const InsertScriptFields& fields) {
    const QString attributes = AttributeIfAny("language", fields.language) + AttributeIfAny("src", fields.source);
    return "<script" + attributes + ">\r\n<!--\r\n" + FillScript(Fence(fields.language)) + "</script>";
}

frmInsertScript::frmInsertScript(Workbench& bench) : ToolDialog(bench, "frmInsertScript", "Insert Script") {
    AddCombo(fields_.language, "cboScript", "Language", {"Javascript", "JScript", "VBScript", "VBS"});
    AddText(fields_.source, "txtSource", "Source");
    Finish([this] { return ScriptElement(fields_); }, OnCancel::FocusText);
}

}  // namespace vellum
