// What all code may see of a document window.
#pragma once

#include "editor/undo_history.h"
#include "platform/edit_surface.h"

#include <QString>
#include <QWidget>

class QFrame;
class QListWidget;

namespace vellum {

class Workbench;

class Document : public QWidget {
    Q_OBJECT
public:
    explicit Document(Workbench& workbench, QWidget* parent = nullptr);

    EditSurface* const Text1;
    QFrame* const picAttr;  // the popup and its two lists
    QListWidget* const cmbTags;
    QListWidget* const cmbattr;
    bool usingKeys = false;  // the typing run has its undo snapshot
    QString strAtt;          // the partial word before the caret
    bool WordWrapOn = false;

    // The path of the file; a caption that starts with "New" means never saved.
    [[nodiscard]] QString Caption() const { return caption_; }
    void SetCaption(const QString& caption);
    [[nodiscard]] bool NeverSaved() const { return caption_.startsWith(QLatin1String("New")); }

    // True while the text equals the file.
    [[nodiscard]] bool Saver() const { return saver_; }
    void SetSaver(bool saver);

    // Lays the window out anew.
    virtual void ResizeMe() = 0;

    // Undo and redo.
    void ProcessUndo();
    void ProcessRedo();
    void HandleUndo();
    void HandleRedo();
    void ResetRedo();

    void PositionAttr();  // puts the popup beside the caret

signals:
    void CaptionChanged(const QString& caption);
    void SaverChanged(bool saver);

protected:
    Workbench& workbench_;

private:
    QString caption_ = QStringLiteral("New");
    bool saver_ = true;
    UndoHistory history_;
};

}  // namespace vellum
