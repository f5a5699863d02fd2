// The dialog "New...": nine pictures, each of which starts a document in its own way.
#pragma once

#include <QDialog>
#include <QStringList>

#include <optional>
#include <vector>

class QGridLayout;
class QLabel;
class QToolButton;

namespace vellum {

class Workbench;

// The labels of the choices, in their order: a choice is told by its index here, from 0.
[[nodiscard]] const QStringList& NewWizardLabels();

class NewWizards : public QDialog {
    Q_OBJECT

public:
    explicit NewWizards(QWidget* parent = nullptr);

    // What was chosen; nothing when the dialog was cancelled.
    [[nodiscard]] std::optional<int> Choice() const { return choice_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddChoice(int index, QGridLayout* grid);
    void Choose(int index);
    bool HandleKey(int index, int key);

    bool HandlePictureEvent(std::size_t index, const QEvent& event);
    void MarkFocus(std::size_t index, bool focused);

    std::vector<QToolButton*> Image1;
    std::vector<QLabel*> Label1;
    std::optional<int> choice_;
};

// Asks for a choice, opens a blank document for it, and runs what follows. Cancel opens nothing.
void ShowNewWizards(Workbench& bench);

}  // namespace vellum
