// What the author has set for the editor, as typed values: read from the settings once and told when it changes, so
// that no key press parses a setting.
#pragma once

#include "values/units.h"

#include <QObject>
#include <QString>

#include <cstdint>

namespace vellum {

class SettingsStore;

// The defaults stand with the keys of the settings and nowhere else.
struct EditorOptions {
    ColorNumber TablesColor = 0;
    ColorNumber FramesColor = 0;
    ColorNumber LinksColor = 0;
    ColorNumber CommentsColor = 0;  // also of the bodies of script and style regions
    ColorNumber OtherColor = 0;
    ColorNumber AspColor = 0;
    ColorNumber foreColor = 0;  // of text outside all markup
    ColorNumber backColor = 0;
    bool colorCodingOff = false;
    bool aspBold = false;

    QString EditorFontName;
    QString EditorFontSize;  // points, as the settings keep them
    bool wordWrap = false;   // of windows that are opened later

    bool autoTab = false;
    bool popupTag = false;
    bool AutoQuote = false;
    bool AutoEmptySlash = false;
    bool AutoCase = false;

    std::int16_t RefreshRate = 0;  // seconds
};

// The settings as they are stored now. A colour out of range falls back to the default of its key.
[[nodiscard]] EditorOptions ReadEditorOptions(const SettingsStore& settings);

// The options in force, for everyone who looks or listens.
class SharedOptions : public QObject {
    Q_OBJECT
public:
    [[nodiscard]] const EditorOptions& Now() const { return now_; }
    const EditorOptions* operator->() const { return &now_; }
    // Tells those who listen, also when nothing differs: what an earlier change left alone follows then.
    void Set(const EditorOptions& options);

signals:
    void Changed();

private:
    EditorOptions now_;
};

}  // namespace vellum
