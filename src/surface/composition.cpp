#include "surface/composition.h"

#include "surface/format_layouts.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <utility>

namespace vellum {

void Composition::EndChange(const QTextCursor& place) {
    place_ = place;
    changes_ = false;
}

// The toolkit takes what is being composed for text when it looks for a place beside it, and finds none that there is.
void Composition::End(bool commits) {
    if (changes_ || place_.isNull()) return;
    QInputMethod& method = *QGuiApplication::inputMethod();
    commits ? method.commit() : method.reset();
    if (place_.isNull()) return;
    const QTextCursor place = std::exchange(place_, QTextCursor());
    const QTextBlock block = place.block();
    block.layout()->setPreeditArea(-1, QString());
    layouts_.MarkOutdated(block.blockNumber(), block.blockNumber());
    place.document()->markContentsDirty(block.position(), block.length());
}

}  // namespace vellum
