// What the Settings dialog holds, as plain values: read from the settings and the main window, checked, and applied.
#pragma once

#include "values/units.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace vellum {

class Workbench;

// What only the Settings dialog needs of the main window.
class SettingsTarget {
public:
    SettingsTarget() = default;
    virtual ~SettingsTarget() = default;
    SettingsTarget(const SettingsTarget&) = delete;
    SettingsTarget& operator=(const SettingsTarget&) = delete;

    virtual void SetImageTypes(const QStringList& types) = 0;     // List4
    virtual void SetDocumentTypes(const QStringList& types) = 0;  // lstDocTypes
    // Row 0 to 5 is tab row + 2 of the custom bar.
    virtual void SetCustomCaption(int row, const QString& caption) = 0;
    // The font of RichTextBox1 and of the active document; `pointSize` as the settings keep it.
    virtual void ApplyEditorFont(const QString& family, const QString& pointSize) = 0;
    // Gives the whole text of the active document one colour and puts the caret at its start.
    virtual void PaintActiveDocument(ColorNumber color) = 0;
    virtual void AddTags() = 0;  // builds the reference tree anew
};

inline constexpr int customButtonCount = 6;
inline constexpr int externalBrowserCount = 3;

// The tag colours in the order of the dialog's swatches.
enum TagColor { tablesTag, framesTag, linksTag, commentsTag, aspTag, otherTag, tagColorCount };

// The defaults stand with the keys of the settings and nowhere else.
struct SettingsFields {
    QString fontSize;
    QString fontName;
    ColorNumber foreColor = 0;
    ColorNumber backColor = 0;
    bool wordWrap = false;
    bool autoTab = false;
    bool popupTag = false;
    bool lowerCase = false;  // read, shown nowhere, never written

    bool colorCodingOff = false;
    std::array<ColorNumber, tagColorCount> tagColors{};
    bool aspBold = false;

    QStringList documentTypes;
    QStringList imageTypes;

    std::array<QString, customButtonCount> customCaptions;
    std::array<QString, customButtonCount> customTexts;
    QStringList customTags;

    QString ftpUrl;
    QString ftpUserName;
    QString ftpPassword;

    bool autoCase = false;
    bool autoQuote = false;
    bool autoEmptySlash = false;

    int xhtmlVariant = 0;  // 0 Transitional, 1 Strict, 2 Frameset
    bool dtdMath = false;  // written, but never read back
    bool dtdSmil = false;
    bool dtdSvg = false;
    bool dtdOpen = false;
    bool dtdWml = false;
    bool dtdX3d = false;

    std::array<QString, externalBrowserCount> browsers;
    QString refreshRate;  // as typed
    bool splitVertical = false;
    QString editPercent;  // as typed
};

[[nodiscard]] SettingsFields LoadSettingsFields(Workbench& workbench);

[[nodiscard]] bool IsValidRefreshRate(const QString& text);  // a number from 1 to 30
[[nodiscard]] bool IsValidEditPercent(const QString& text);  // a number from 0 to 100

// The message for the first field that can't be taken; empty when all can.
[[nodiscard]] std::optional<QString> ValidateSettings(const SettingsFields& fields);

// Writes all settings, as one write of the file, and brings the main window up to date. The fields have been validated.
void ApplySettings(const SettingsFields& fields, Workbench& workbench, SettingsTarget& target);

// Deletes the preferences and resets the editor font's size. The session state and the organizer's data stay.
void PurgeSettings(Workbench& workbench, SettingsTarget& target);

}  // namespace vellum
