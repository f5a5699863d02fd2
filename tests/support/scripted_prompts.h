// Prompts whose answers a test lays out beforehand, and which remember what was asked.
#pragma once

#include "widgets/prompts.h"

#include <QStringList>

#include <deque>

namespace vellum::test {

class ScriptedPrompts : public Prompts {
public:
    // Answers are taken from the front; when none is left, the box is cancelled (a question: Cancel).
    std::deque<Answer> answers;
    std::deque<QString> choices;  // captions of buttons
    std::deque<QString> inputs;
    std::deque<QString> openNames;
    std::deque<QString> saveNames;
    std::deque<QString> folders;
    std::deque<ColorNumber> colors;

    QStringList messages;     // texts of message boxes
    QStringList questions;    // "title|text" of questions
    QStringList captions;     // of the buttons that the last Choose offered
    QList<Answer> standards;  // what Enter would have answered to questions with Yes and No
    QStringList initials;     // what stood in the input boxes at first
    std::vector<FileRequest> requests;
    std::vector<ColorNumber> firstColors;  // where each color dialog started

    void Message(QWidget* parent, const QString& text, const QString& title) override;
    Answer AskYesNo(QWidget* parent, const QString& text, const QString& title, Answer standard) override;
    Answer AskYesNoCancel(QWidget* parent, const QString& text, const QString& title) override;
    int Choose(QWidget* parent, const QString& text, const QString& title, const QStringList& offered, int standard,
               int escape) override;
    std::optional<QString> Input(QWidget* parent, const QString& prompt, const QString& title,
                                 const QString& initial) override;
    QString OpenFile(QWidget* parent, const FileRequest& request) override;
    QString SaveFile(QWidget* parent, const FileRequest& request) override;
    QString PickFolder(QWidget* parent, const QString& directory) override;
    std::optional<ColorNumber> PickColor(QWidget* parent, ColorNumber initial) override;
};

}  // namespace vellum::test
