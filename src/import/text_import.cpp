#include "import/text_import.h"

namespace vellum {

QString ConvertPlainText(QString text) {
    return text.replace(u'<', "&lt;")
        .replace(u'>', "&gt;")
        .replace("  ", "&nbsp;")
        .replace(u'"', "&quot;")
        .replace("\r\n", "<br />\r\n");
}

}  // namespace vellum
