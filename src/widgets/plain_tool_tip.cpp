#include "widgets/plain_tool_tip.h"

#include <QTextDocument>

namespace vellum {

QString PlainToolTip(const QString& text) {
    if (!Qt::mightBeRichText(text)) return text;
    return QLatin1String("<p style='white-space:pre'>") + text.toHtmlEscaped() + QLatin1String("</p>");
}

}  // namespace vellum
