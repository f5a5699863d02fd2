#include "tests/support/scripted_prompts.h"

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

Answer ScriptedPrompts::AskYesNo(QWidget* /*parent*/, const QString& text, const QString& title) {
    questions << title + "|" + text;
    return Take(answers).value_or(Answer::Cancel);
}

Answer ScriptedPrompts::AskYesNoCancel(QWidget* parent, const QString& text, const QString& title) {
    return AskYesNo(parent, text, title);
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
