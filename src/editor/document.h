// What all code may see of a document window.
#pragma once

#include "editor/document_file.h"
#include "editor/undo_history.h"
#include "surface/edit_surface.h"

#include <QString>
#include <QWidget>

#include <memory>

namespace vellum {

class TagPopup;
class TypingAssist;
class Workbench;

class Document : public QWidget {
    Q_OBJECT
public:
    explicit Document(Workbench& workbench, QWidget* parent = nullptr);
    ~Document() override;

    EditSurface* const Text1;
    TagPopup* const picAttr;  // beside the caret
    bool usingKeys = false;   // the stretch of typing has its undo snapshot
    bool WordWrapOn = false;

    [[nodiscard]] const DocumentFile& File() const { return file_; }
    // The path of the file; a caption that starts with "New" means never saved.
    [[nodiscard]] QString Caption() const { return file_.Path(); }
    void SetCaption(const QString& caption);
    [[nodiscard]] bool NeverSaved() const { return Caption().startsWith(QLatin1String("New")); }

    // True while the text equals the file.
    [[nodiscard]] bool Saver() const { return saver_; }
    void SetSaver(bool saver);

    // Makes this the active one of the windows in its area.
    void Activate();

    // Lays the window out anew.
    virtual void ResizeMe() = 0;

    void ProcessUndo();  // makes the text as it stands a step of undo
    void ResetRedo();    // there is nothing to redo any more
    void HandleUndo();
    void HandleRedo();

signals:
    void SaverChanged(bool saver);
    void MenuWanted(QPoint place);  // the menu of the right button, at a point of the screen

protected:
    void ShowCaption();

    Workbench& workbench_;
    DocumentFile file_;

private:
    void ProcessRedo();
    // Shows the newest entry and drops it.
    void TakeStep(UndoHistory::Texts& texts, UndoHistory::Carets& carets);

    std::unique_ptr<TypingAssist> typing_;
    bool saver_ = true;
    UndoHistory history_;
};

}  // namespace vellum
