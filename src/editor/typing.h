// The keyboard and mouse logic of a document's source editor: indentation, quotes, closing of tags, colours ahead of
// the typed character, and when the popup opens.
#pragma once

#include "editor/place.h"
#include "surface/surface_handlers.h"

#include <QString>

namespace vellum {

class Document;
class Workbench;

class TypingAssist final : public SurfaceHandlers {
public:
    TypingAssist(Workbench& bench, Document& document);

    bool KeyDown(int key, int shiftState, bool edits) override;
    bool KeyPress(const QString& character, int shiftState) override;
    void KeyUp(int key, int shiftState) override;
    void MouseDown(Qt::MouseButton button) override;
    void MouseMove() override;
    void MouseUp(Qt::MouseButton button) override;
    void ContextMenu(QPoint place) override;
    void Paste(const QString& text) override;
    void Cut() override;
    void Copy() override;

private:
    [[nodiscard]] bool AssistLines(int shiftState);
    [[nodiscard]] bool AssistMarkup();
    [[nodiscard]] bool QuoteAttribute();
    [[nodiscard]] bool CompleteTag();
    [[nodiscard]] bool EndsConstruct() const;
    void OfferInTag();
    void OfferOutsideTag();

    Workbench& bench_;
    Document& document_;
    QChar lastKey_ = u' ';  // the last character typed, a blank after any other key
    PosInfo place_;         // of the caret when it was last asked for
    int popupKey_ = 0;      // a key that the popup took, so that its release means nothing to the text
};

}  // namespace vellum
