// Everything that asks the person at the screen: message boxes, input boxes, file, folder and colour pickers.
// Forms get a Prompts and never open a box of their own, so that a test can script the answers.
#pragma once

#include "values/units.h"

#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

namespace vellum {

enum class Answer { Yes, No, Cancel };

struct FileRequest {
    QString filter;     // "Caption (*.a;*.b)|*.a;*.b|Caption|*.c"
    QString directory;  // where the dialog opens
    bool several = false;
};

class Prompts {
public:
    Prompts() = default;
    virtual ~Prompts() = default;
    Prompts(const Prompts&) = delete;
    Prompts& operator=(const Prompts&) = delete;

    virtual void Message(QWidget* parent, const QString& text,
                         const QString& title = QStringLiteral("Vellumcraft")) = 0;
    // `standard` is what Enter answers; Esc answers No.
    virtual Answer AskYesNo(QWidget* parent, const QString& text, const QString& title,
                            Answer standard = Answer::Yes) = 0;
    virtual Answer AskYesNoCancel(QWidget* parent, const QString& text, const QString& title) = 0;
    // A question whose buttons have captions of their own, without access keys. Returns the index of the one that was
    // pressed; Enter presses `standard`, Esc `escape`.
    virtual int Choose(QWidget* parent, const QString& text, const QString& title, const QStringList& captions,
                       int standard, int escape) = 0;
    // Empty when cancelled.
    virtual std::optional<QString> Input(QWidget* parent, const QString& prompt, const QString& title,
                                         const QString& initial = {}) = 0;
    // One name: its full path. Several: the directory, then the bare names, split by NUL. Empty when cancelled.
    virtual QString OpenFile(QWidget* parent, const FileRequest& request) = 0;
    // The full path, with the chosen filter's first suffix when the author typed none. Empty when cancelled.
    virtual QString SaveFile(QWidget* parent, const FileRequest& request) = 0;
    virtual QString PickFolder(QWidget* parent, const QString& directory) = 0;
    // Empty when cancelled.
    virtual std::optional<ColorNumber> PickColor(QWidget* parent, ColorNumber initial) = 0;
};

// The prompts that a person sees.
class DialogPrompts : public Prompts {
public:
    void Message(QWidget* parent, const QString& text, const QString& title) override;
    Answer AskYesNo(QWidget* parent, const QString& text, const QString& title, Answer standard) override;
    Answer AskYesNoCancel(QWidget* parent, const QString& text, const QString& title) override;
    int Choose(QWidget* parent, const QString& text, const QString& title, const QStringList& captions, int standard,
               int escape) override;
    std::optional<QString> Input(QWidget* parent, const QString& prompt, const QString& title,
                                 const QString& initial) override;
    QString OpenFile(QWidget* parent, const FileRequest& request) override;
    QString SaveFile(QWidget* parent, const FileRequest& request) override;
    QString PickFolder(QWidget* parent, const QString& directory) override;
    std::optional<ColorNumber> PickColor(QWidget* parent, ColorNumber initial) override;
};

// "A (*.x;*.y)|*.x;*.y|B|*.z" as the toolkit's list of name filters: "A (*.x *.y)", "B (*.z)".
// "*.*" becomes "*", so that files without a suffix are shown too.
[[nodiscard]] QStringList NameFilters(const QString& filter);

// Chosen files in the form that OpenFile returns: one is its own path; several are the directory that holds them all
// and then, split by NUL, each name from there on. That is the bare name when they lie side by side.
[[nodiscard]] QString JoinChosenFiles(const QStringList& paths);
// The full paths out of that form; none from an empty text.
[[nodiscard]] QStringList SplitChosenFiles(const QString& chosen);

}  // namespace vellum
