#include "shell/form26.h"

#include "shell/layout.h"
#include "shell/twip_geometry.h"

#include <QLabel>

namespace vellum {

Form26::Form26(Workbench& workbench, QWidget* parent) : DocumentWindow(workbench, parent) {
    setObjectName("Form26");
    LoadWrap();
    LoadFont();
}

void Form26::LayOut() {
    const TwipRect text = PlainTextRect(TwipsFromPixels(width()), TwipsFromPixels(height()));
    SetTwipGeometry(Text1, text);
    Text1->SetRightMargin(RightMarginFor(WordWrapOn, text.width));
    SetTwipGeometry(lblFormat_, {0, text.height, text.width, 450});
}

}  // namespace vellum
