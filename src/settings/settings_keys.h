// Every key of the settings store with its default, in one table. Code names a key by its constant.
#pragma once

#include "settings/settings_store.h"
#include "values/units.h"

#include <QStringList>

#include <optional>
#include <span>

namespace vellum {

inline constexpr QStringView preferencesApplication = u"Vellumcraft";
inline constexpr QStringView stateApplication = u"VellumState";
inline constexpr QStringView organizerApplication = u"Orrinade Organizer";

struct SettingKey {
    QStringView application;
    QStringView section;
    QStringView key;
    QStringView fallback;
};

namespace keys {
// Numbered families (fonts, recent files, custom entries) have one constant whose key is empty; NumberedKey fills it.
#define VELLUM_KEY(name) extern const SettingKey name
VELLUM_KEY(fontSize);  // Settings
VELLUM_KEY(fontName);
VELLUM_KEY(refreshRate);
VELLUM_KEY(wordWrap);
VELLUM_KEY(verticalMain);
VELLUM_KEY(editPercent);
VELLUM_KEY(autoTab);
VELLUM_KEY(popupTag);
VELLUM_KEY(browser1);
VELLUM_KEY(browser2);
VELLUM_KEY(browser3);
VELLUM_KEY(lowerCase);
VELLUM_KEY(tablesColor);  // Colors
VELLUM_KEY(framesColor);
VELLUM_KEY(linksColor);
VELLUM_KEY(commentsColor);
VELLUM_KEY(otherColor);
VELLUM_KEY(aspColor);
VELLUM_KEY(aspBold);
VELLUM_KEY(colorOnOff);
VELLUM_KEY(foreColor);
VELLUM_KEY(backColor);
VELLUM_KEY(autoQuote);  // XML
VELLUM_KEY(autoEmptySlash);
VELLUM_KEY(autoCase);
VELLUM_KEY(graphicsCount);  // Graphics
VELLUM_KEY(graphicsEntry);
VELLUM_KEY(docTypesCount);  // DocTypes
VELLUM_KEY(docTypesEntry);
VELLUM_KEY(customTagsCount);  // CustomTags
VELLUM_KEY(customTagsEntry);
VELLUM_KEY(customText);  // Custom "10" to "15"; the captions "00" to "05" have CustomCaptionFallback
VELLUM_KEY(dtdXhtml);    // DTD
VELLUM_KEY(dtdSmil);
VELLUM_KEY(dtdSvg);
VELLUM_KEY(dtdOpen);
VELLUM_KEY(dtdWml);
VELLUM_KEY(dtdX3d);
VELLUM_KEY(dtdMath);
VELLUM_KEY(drive);  // Direct; the first three default to the program's own directory
VELLUM_KEY(director);
VELLUM_KEY(filePath);
VELLUM_KEY(ftpUrl);
VELLUM_KEY(ftpUserName);
VELLUM_KEY(ftpPassword);
VELLUM_KEY(showStart);    // Startup
VELLUM_KEY(optionsCode);  // Options
VELLUM_KEY(optionsHeight);
VELLUM_KEY(optionsWidth);
VELLUM_KEY(optionsInclCode);
VELLUM_KEY(optionsTagCase);
VELLUM_KEY(optionsLines);
VELLUM_KEY(optionsObj);
VELLUM_KEY(optionsTagClassID);
VELLUM_KEY(windowState);  // Previous
VELLUM_KEY(windowTop);
VELLUM_KEY(windowLeft);
VELLUM_KEY(windowWidth);
VELLUM_KEY(windowHeight);
VELLUM_KEY(picture1);
VELLUM_KEY(picture11);
VELLUM_KEY(picture14);
VELLUM_KEY(picture15);
VELLUM_KEY(pic11Height);
VELLUM_KEY(fontsNumber);  // Fonts
VELLUM_KEY(fontsEntry);
VELLUM_KEY(recentFile);  // RecentFiles
VELLUM_KEY(useIE);       // Extras
VELLUM_KEY(regAdded);
VELLUM_KEY(organizerNumber);  // Orrinade Organizer
VELLUM_KEY(organizerEntry);
VELLUM_KEY(phoneNumber);
VELLUM_KEY(phoneEntry);
VELLUM_KEY(urlCount);
VELLUM_KEY(urlEntry);
#undef VELLUM_KEY
}  // namespace keys

// Every key above, for tests and for the documentation of the store.
[[nodiscard]] std::span<const SettingKey* const> AllSettingKeys();

[[nodiscard]] QString ReadSetting(const SettingsStore& store, const SettingKey& key);
bool WriteSetting(SettingsStore& store, const SettingKey& key, const QString& value);

// The same for entry `index` (from 0) of a numbered family.
[[nodiscard]] QString ReadSetting(const SettingsStore& store, const SettingKey& family, int index);
bool WriteSetting(SettingsStore& store, const SettingKey& family, int index, const QString& value);

// The entries of a numbered family by its count; nothing when there is no list: a count of -1, or one that is past all
// sense (32767).
[[nodiscard]] std::optional<QStringList> ReadListSetting(const SettingsStore& store, const SettingKey& count,
                                                         const SettingKey& family);

// The value as a number, by the leading-number rule.
[[nodiscard]] double ReadNumberSetting(const SettingsStore& store, const SettingKey& key);

// Captions of the custom buttons: key "0" + row, default "Custom" + (row + 1). Texts: key "1" + row. Row is 0 to 5.
[[nodiscard]] QString ReadCustomCaption(const SettingsStore& store, int row);
bool WriteCustomCaption(SettingsStore& store, int row, const QString& caption);
[[nodiscard]] QString ReadCustomText(const SettingsStore& store, int row);
bool WriteCustomText(SettingsStore& store, int row, const QString& text);

}  // namespace vellum
