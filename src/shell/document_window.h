// What both kinds of document windows share: the load, the close request, the wrap flag, the file.
#pragma once

#include "editor/document.h"

class QLabel;

namespace vellum {

class Workbench;
struct RecoveredText;

class DocumentWindow : public Document {
    Q_OBJECT
public:
    explicit DocumentWindow(Workbench& workbench, QWidget* parent = nullptr);

    // Shows the file. False when it can't be read; nothing of the window changes then.
    bool LoadFile(const QString& path);
    // Writes Text1 to the file, which is the document's from then on. False when it can't be written: the author has
    // been told, and nothing of the window has changed.
    bool SaveFile(const QString& path);
    // Shows a text that a crash left behind.
    void Recover(const RecoveredText& lost);

    // Lays the window out and puts the selection back.
    void ResizeMe() final;

signals:
    // The window is closing for good. `saved` is false when the author wanted the text saved and it was not, `counts`
    // is false when the save dialog was left without a name: the window then goes on being counted as open.
    void Closing(bool saved, bool counts);
    void CloseCancelled();
    void Saved(const QString& path);
    void Focused();  // the keyboard came to Text1

protected:
    // The steps of the load that both kinds run, in two halves around those of the kinds.
    void LoadWrap();
    void LoadFont();

    virtual void LayOut() = 0;

    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    QLabel* const lblFormat_;  // how the file spells its text; stands in the strip below the editor
    // What lblFormat_ needs at the font's size, in pixels.
    [[nodiscard]] int FormatHeight() const;

private:
    void ShowFile();  // its path and format
};

}  // namespace vellum
