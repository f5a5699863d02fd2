// What both kinds of document windows share: the load, the close request, the wrap flag, the file.
#pragma once

#include "editor/document.h"
#include "shell/encoding_question.h"

#include <optional>

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
    // been told, and nothing of the window has changed. Ask MaySave first.
    bool SaveFile(const QString& path);
    // Looks whether anything would be lost by a save there: what something else has written into the document's file,
    // or what another window has yet to save in it. Settles what becomes of a text that its encoding can't hold. False
    // when the author, asked, wants no save now.
    [[nodiscard]] bool MaySave(const QString& path);

    // What a look at the document's file found. A text without edits follows its file; anything else is kept for a
    // question.
    void HearOf(const FileLook& look);
    // Asks whose text stays when something else has changed the file and the author hasn't been asked about it yet.
    void AskAboutFile();
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
    // The file's text in place of the window's, which undo brings back. Caret and scroll offset stay where they were.
    void TakeFilesText(const FileLook& look);
    // False when it can't be kept beside the file: the author has been told, and nothing has changed.
    bool KeepOwnText();
    // Asks about what is different outside. True when the text of the window stays.
    bool SettleFile();
    bool SettleOtherWindows(const QString& path);

    FileLook outside_;    // what something else did to the file, until the author has decided
    bool asked_ = false;  // about that
    EncodingQuestion encodingQuestion_;
    std::optional<EncodedText> settled_;  // what MaySave has settled to write
};

}  // namespace vellum
