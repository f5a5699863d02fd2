#include "widgets/plain_tool_tip.h"

#include <QLabel>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace vellum {
namespace {

// The letters that a tooltip shows.
QString Shown(const QString& toolTip) {
    if (!Qt::mightBeRichText(toolTip)) return toolTip;
    QTextDocument document;
    document.setHtml(toolTip);
    return document.toPlainText();
}

TEST(PlainToolTipOf, ShowsEveryLetter) {
    for (const QString text : {"page.htm", "a & b.htm", "it's \"so\".htm", "<b>bold</b>.htm", "a  &lt;  b.htm",
                               "<img src=x>.htm", "&amp;.htm", ""}) {
        EXPECT_EQ(Shown(PlainToolTip(text)), text);
    }
}

}  // namespace
}  // namespace vellum
