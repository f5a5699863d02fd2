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

// While something is composed, the toolkit counts it as text and looks for positions that the document doesn't have.
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
