#include "tools/scripts/script_template.h"

#include "surface/document_text.h"

namespace vellum {
namespace {

constexpr auto head = R"(<script language="Javascript">
<!--
// <![CDATA[)";

constexpr auto tail = R"(
// ]]>
// -->
</script>)";

QString Value(const QString& name, const ScriptValues& values) {
    if (name == QLatin1String("HEAD")) return WithCrLf(head);
    if (name == QLatin1String("TAIL")) return WithCrLf(tail);
    return values.value(name);
}

}  // namespace

QString FillScript(const QString& scriptTemplate, const ScriptValues& values) {
    QString script;
    bool isName = false;
    for (const QString& part : WithCrLf(scriptTemplate).split(u'%')) {
        script += isName ? Value(part, values) : part;
        isName = !isName;
    }
    return script;
}

}  // namespace vellum
