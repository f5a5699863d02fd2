// What all code may see of a document window.
#pragma once

#include "editor/place.h"
#include "editor/undo_history.h"
#include "surface/edit_surface.h"

#include <QString>
#include <QWidget>

#include <cstdint>
#include <memory>

class QFrame;
class QListWidget;

namespace vellum {

class TypingAssist;
class Workbench;

class Document : public QWidget {
    Q_OBJECT
public:
    explicit Document(Workbench& workbench, QWidget* parent = nullptr);
    ~Document() override;

    EditSurface* const Text1;
    QFrame* const picAttr;  // the popup and its two lists
    QListWidget* const cmbTags;
    QListWidget* const cmbattr;
    bool usingKeys = false;  // the typing run has its undo snapshot
    QString strAtt;          // the partial word before the caret
    bool WordWrapOn = false;
    std::int16_t LastKey = 32;    // the last character typed, 32 after any other key
    std::int16_t ShiftState = 0;  // of the last key that went down
    vellum::PosInfo PosInfo;      // the place of the caret when it was last asked for
    std::int32_t TagStart = -1;   // where that place starts, from 1

    // The path of the file; a caption that starts with "New" means never saved.
    [[nodiscard]] QString Caption() const { return caption_; }
    void SetCaption(const QString& caption);
    [[nodiscard]] bool NeverSaved() const { return caption_.startsWith(QLatin1String("New")); }

    // True while the text equals the file.
    [[nodiscard]] bool Saver() const { return saver_; }
    void SetSaver(bool saver);

    // Makes this the active one of the windows in its area.
    void Activate();

    // Lays the window out anew.
    virtual void ResizeMe() = 0;

    // Undo and redo.
    void ProcessUndo();
    void ProcessRedo();
    void HandleUndo();
    void HandleRedo();
    void ResetRedo();

    void PositionAttr();                // puts the popup beside the caret
    void ShowPopup(QListWidget& list);  // shows it there with one of its two lists
    void SelectWord();                  // selects the partial word before the caret

signals:
    void CaptionChanged(const QString& caption);
    void SaverChanged(bool saver);
    void MenuWanted(QPoint place);  // the menu of the right button, at a point of the screen

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

    Workbench& workbench_;

private:
    void WirePopup();
    void FollowCaret();  // with the popup, when it shows

    std::unique_ptr<TypingAssist> typing_;
    QString caption_ = QStringLiteral("New");
    bool saver_ = true;
    UndoHistory history_;
};

}  // namespace vellum
