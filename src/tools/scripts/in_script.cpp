#include "tools/scripts/in_script.h"

#include "editor/document.h"

namespace vellum {
namespace {

const QStringList& EventNames() {
    static const QStringList names{"onabort",
                                   "onafterupdate",
                                   "onbeforeunload",
                                   "onbeforeupdate",
                                   "onblur",
                                   "onbounce",
                                   "onchange",
                                   "onclick",
                                   "ondataavailable",
                                   "ondatasetchanged",
                                   "ondatasetcomplete",
                                   "ondblclick",
                                   "ondragstart",
                                   "onerror",
                                   "onerrorupdate",
                                   "onfilterchange",
                                   "onfinish",
                                   "onfocus",
                                   "onhelp",
                                   "onkeydown",
                                   "onkeypress",
                                   "onkeyup",
                                   "onload",
                                   "onmousedown",
                                   "onmousemove",
                                   "onmouseout",
                                   "onmouseover",
                                   "onmouseup",
                                   "onreadystatechange",
                                   "onreset",
                                   "onresize",
                                   "onrowenter",
                                   "onrowexit",
                                   "onscroll",
                                   "onselect",
                                   "onselectstart",
                                   "onstart",
                                   "onsubmit",
                                   "onunload"};
    return names;
}

}  // namespace

std::optional<QString> EventAttribute(const InScriptFields& fields) {
    if (fields.event.isEmpty() || fields.code.isEmpty()) return std::nullopt;
    QString attributes = " ";
    if (!fields.language.isEmpty()) attributes += "language=\"" + fields.language + '"';
    return attributes + ' ' + fields.event + "=\"" + fields.code + '"';
}

InScript::InScript(Workbench& bench) : ToolDialog(bench, "InScript", "In-tag Scripts") {
    AddCombo(fields_.language, "cboLanguage", "Language", {"Javascript", "JScript", "VBS", "VBScript"});
    AddCombo(fields_.event, "cboEvent", "Event", EventNames());
    AddText(fields_.code, "txtString", "Code");
    Finish([this] { return Build(); });
}

std::optional<QString> InScript::Build() {
    const std::optional<QString> attribute = EventAttribute(fields_);
    if (!attribute) bench_.Ask().Message(this, "Please fill out both the Event box and the Code box.");
    return attribute;
}

void ShowInScript(Workbench& bench) {
    std::optional<QString> attribute;
    {
        InScript tool(bench);
        tool.exec();
        attribute = tool.Markup();
    }
    Document* const document = bench.ActiveDocument();
    if (!attribute || !document) return;
    document->usingKeys = false;
    document->ProcessUndo();
    document->ResetRedo();
    document->Text1->SetSelText(*attribute);
    document->Text1->setFocus();
    document->Text1->ensureCursorVisible();
}

}  // namespace vellum
