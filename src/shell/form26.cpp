#include "shell/form26.h"

#include "shell/layout.h"
#include "shell/twip_geometry.h"

#include <QLabel>

#include <algorithm>

namespace vellum {
namespace {

// What the layout leaves free below the editor, in twips.
constexpr int stripHeight = 450;

}  // namespace

Form26::Form26(Workbench& workbench, QWidget* parent) : DocumentWindow(workbench, parent) {
    setObjectName("Form26");
    LoadWrap();
    LoadFont();
}

void Form26::LayOut() {
    // What a large font needs beyond the strip of the layout is taken off the window.
    const int more = std::max(TwipsFromPixels(FormatHeight()) - stripHeight, 0);
    const TwipRect text = PlainTextRect(TwipsFromPixels(width()), TwipsFromPixels(height()) - more);
    SetTwipGeometry(Text1, text);
    Text1->SetRightMargin(RightMarginFor(WordWrapOn, text.width));
    SetTwipGeometry(lblFormat_, {0, text.height, text.width, stripHeight + more});
}

}  // namespace vellum
