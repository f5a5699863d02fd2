// The keyboard and mouse logic of a document's source editor: indentation, quotes, closing of tags, colours ahead of
// the typed character, and when the popup opens.
#pragma once

#include "surface/surface_handlers.h"

#include <QString>

class QListWidget;

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
    void LookAround();
    [[nodiscard]] bool RunCommandKey(int key);
    [[nodiscard]] bool Navigate(int key);
    [[nodiscard]] bool TakeChosenEntry();
    void FollowHeldKey();
    [[nodiscard]] bool AssistLines(int shiftState);
    [[nodiscard]] bool AssistMarkup();
    [[nodiscard]] bool QuoteAttribute();
    [[nodiscard]] bool CompleteTag();
    [[nodiscard]] bool EndsConstruct() const;
    void KeyUpOutsideTag();
    void KeyUpInTag();
    void LoadEntities();
    [[nodiscard]] bool ShowsEntities() const;
    [[nodiscard]] QString EntityWord() const;
    void SelectEntity();
    void SelectByWord();
    [[nodiscard]] bool LastKeyIsOneOf(QStringView keys) const;

    Workbench& bench_;
    Document& document_;
    int popupKey_ = 0;  // a key that the popup took, so that its release means nothing to the text
};

}  // namespace vellum
