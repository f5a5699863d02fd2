// The splash: an animation, the preparation of fonts and of the desktop's verb, and the first-run question.
#pragma once

#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <optional>

namespace vellum {

class Prompts;
class SettingsStore;

// The two crossing lines that one tick of the animation draws, in twips from the form's top left corner.
struct SplashStroke {
    int centreX = 0;
    int centreY = 0;
    int halfLength = 0;
    int lineWidth = 0;  // in pixels

    bool operator==(const SplashStroke&) const = default;
};

// What tick `tick` draws on a form of that size; nothing outside ticks 5 to 20.
[[nodiscard]] std::optional<SplashStroke> SplashStrokeAt(int tick, int formWidth, int formHeight);

// The font names for this session: the stored ones while the system's number of fonts is the stored one, else the
// system's.
[[nodiscard]] QStringList PreparedFontNames(const SettingsStore& store, const QStringList& systemFonts);

class Start : public QWidget {
    Q_OBJECT
public:
    Start(SettingsStore& store, Prompts& prompts, QWidget* parent = nullptr);

    QTimer* const timAnimation;
    QTimer* const Timer1;
    QTimer* const Timer2;
    QListWidget* const List6;  // the fonts that the session knows
    QLabel* const lblmessage;
    QLabel* const Label1;
    QLabel* const Label2;
    QLabel* const lblX;
    QLabel* const lblX2;

    // Shows the form and starts the preparation; Ready follows when the animation has ended.
    void Load();
    [[nodiscard]] QStringList FontNames() const;

signals:
    // The main window may load. Comes once, with the session's document kind.
    void Ready(bool usePreview);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Animate();
    void Prepare();
    void WatchAnimation();
    void AddEditVerbOnce();

    SettingsStore& store_;
    Prompts& prompts_;
    std::int16_t ticks_ = 0;
    std::optional<SplashStroke> stroke_;
};

}  // namespace vellum
