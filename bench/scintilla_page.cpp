#include "bench/scintilla_page.h"

#include <QApplication>
#include <Qsci/qscilexerhtml.h>

namespace vellum::bench {

ScintillaPage::ScintillaPage(const QString& text, const QSize& size, const QFont& font) {
    auto* const html = new QsciLexerHTML(this);
    html->setFont(font);
    setLexer(html);
    resize(size);
    setText(text);
    show();
    QApplication::processEvents();
}

void ScintillaPage::ColorAll() {
    SendScintilla(SCI_COLOURISE, 0L, -1L);
}

}  // namespace vellum::bench
