#include "tests/support/scripted_prompts.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

template <typename T>
std::optional<T> Take(std::deque<T>& queue) {
    if (queue.empty()) return std::nullopt;
    T front = std::move(queue.front());
    queue.pop_front();
    return front;
}

}  // namespace

void ScriptedPrompts::Message(QWidget* /*parent*/, const QString& text, const QString& /*title*/) {
    messages << text;
}

Answer ScriptedPrompts::AskYesNo(QWidget* /*parent*/, const QString& text, const QString& title, Answer standard) {
    questions << title + "|" + text;
    standards << standard;
    return Take(answers).value_or(Answer::Cancel);
}

Answer ScriptedPrompts::AskYesNoCancel(QWidget* /*parent*/, const QString& text, const QString& title) {
    questions << title + "|" + text;
    return Take(answers).value_or(Answer::Cancel);
}

int ScriptedPrompts::Choose(QWidget* /*parent*/, const QString& text, const QString& title, const QStringList& offered,
                            int /*standard*/, int escape) {
    questions << title + "|" + text;
    captions = offered;
    const auto choice = Take(choices);
    if (!choice) return escape;
    const auto index = offered.indexOf(*choice);
    EXPECT_GE(index, 0) << choice->toStdString() << " is none of " << offered.join(", ").toStdString();
    return index < 0 ? escape : static_cast<int>(index);
}

std::optional<QString> ScriptedPrompts::Input(QWidget* /*parent*/, const QString& prompt, const QString& title,
                                              const QString& initial) {
    questions << title + "|" + prompt;
    initials << initial;
    return Take(inputs);
}

QString ScriptedPrompts::OpenFile(QWidget* /*parent*/, const FileRequest& request) {
    requests.push_back(request);
    return Take(openNames).value_or(QString());
}

QString ScriptedPrompts::SaveFile(QWidget* /*parent*/, const FileRequest& request) {
    requests.push_back(request);
    return Take(saveNames).value_or(QString());
}

QString ScriptedPrompts::PickFolder(QWidget* /*parent*/, const QString& /*directory*/) {
    return Take(folders).value_or(QString());
}

std::optional<ColorNumber> ScriptedPrompts::PickColor(QWidget* /*parent*/, ColorNumber initial) {
    firstColors.push_back(initial);
    return Take(colors);
}

}  // namespace vellum::test
