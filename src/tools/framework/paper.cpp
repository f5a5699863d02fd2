#include "tools/framework/paper.h"

#include <QColor>

namespace vellum {

ColorNumber PaperFor(ColorNumber text) {
    constexpr int light = 120;
    constexpr ColorNumber white = 0xFFFFFF;
    constexpr ColorNumber dark = 0x202020;
    return qGray(ColorFromNumber(text).rgb()) > light ? dark : white;
}

}  // namespace vellum
