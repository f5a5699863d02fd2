// The main toolbar: two arrays of buttons, each with its tooltip and its hint.
#pragma once

#include <QToolButton>
#include <QWidget>

namespace vellum {

class MDIform1;

enum class ButtonArray { Command44, Command93 };

class MainToolbar : public QWidget {
    Q_OBJECT
public:
    explicit MainToolbar(QWidget* parent = nullptr);

    void Connect(MDIform1& window);  // lets the buttons run their commands

    [[nodiscard]] QToolButton* Button(ButtonArray array, int index) const;  // null when there is none

signals:
    void Hint(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace vellum
