// The tips: one at a time, at start and from the Help menu.
#pragma once

#include "editor/workbench.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QLayout;
class QListWidget;
class QPushButton;

namespace vellum {

// The texts of all tips.
[[nodiscard]] const QStringList& Tips();

// The index of a tip, from 0: the whole part of `random` times `count`. `random` is at least 0 and below 1.
[[nodiscard]] int TipIndex(double random, int count);

// A generator of numbers that are at least 0 and below 1, seeded by the clock.
[[nodiscard]] std::function<double()> RandomFromClock();

// What the author chose to do when closing the tips.
enum class TipsChoice { None, NewDocument, OpenPage };

class Didyouknow : public QDialog {
    Q_OBJECT
public:
    explicit Didyouknow(Workbench& bench, std::function<double()> random = RandomFromClock());

    // For the caller to act on after the dialog has closed.
    [[nodiscard]] TipsChoice Choice() const { return choice_; }

private:
    [[nodiscard]] QLayout* BuildTip();
    [[nodiscard]] QLayout* BuildButtons();
    void ShowTip();
    void Choose(TipsChoice choice);

    Workbench& bench_;
    std::function<double()> random_;
    TipsChoice choice_ = TipsChoice::None;

    QListWidget* const List1;  // all tips; hidden
    QLabel* const Label2;      // the tip on show
    QPushButton* const Command1;
    QPushButton* const Command2;
    QPushButton* const Command3;
    QPushButton* const Command5;
    QCheckBox* const Check1;
};

}  // namespace vellum
