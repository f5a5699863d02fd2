// Every key of the settings store with its default, in one table. Code names a key by its constant.
#pragma once

#include "settings/settings_store.h"

#include <QStringList>

#include <optional>

namespace vellum {

inline constexpr QStringView preferencesApplication = u"Vellumcraft";
inline constexpr QStringView stateApplication = u"VellumState";
inline constexpr QStringView organizerApplication = u"Orrinade Organizer";

// A family of numbered entries is one of these, too: an entry's key is `key` with the entry's number (from 0) after it,
// and a "%1" in the default stands for the number counted from 1.
struct SettingKey {
    QStringView application;
    QStringView section;
    QStringView key;
    QStringView fallback;
};

namespace keys {

inline constexpr SettingKey fontSize{preferencesApplication, u"Settings", u"Fontsize", u"8.5"};
inline constexpr SettingKey fontName{preferencesApplication, u"Settings", u"Fontname", u"Courier New"};
inline constexpr SettingKey refreshRate{preferencesApplication, u"Settings", u"RefreshRate", u"7"};
inline constexpr SettingKey wordWrap{preferencesApplication, u"Settings", u"WordWrap", u"0"};
inline constexpr SettingKey verticalMain{preferencesApplication, u"Settings", u"VerticalMain", u"True"};
inline constexpr SettingKey editPercent{preferencesApplication, u"Settings", u"EditPercent", u"50"};
inline constexpr SettingKey autoTab{preferencesApplication, u"Settings", u"AutoTab", u"1"};
inline constexpr SettingKey popupTag{preferencesApplication, u"Settings", u"PopupTag", u"1"};
inline constexpr SettingKey browser1{preferencesApplication, u"Settings", u"Browser1", u"None"};
inline constexpr SettingKey browser2{preferencesApplication, u"Settings", u"Browser2", u"None"};
inline constexpr SettingKey browser3{preferencesApplication, u"Settings", u"Browser3", u"None"};
inline constexpr SettingKey lowerCase{preferencesApplication, u"Settings", u"LowerCase", u"False"};

inline constexpr SettingKey tablesColor{preferencesApplication, u"Colors", u"Tables", u"8388736"};
inline constexpr SettingKey framesColor{preferencesApplication, u"Colors", u"Frames", u"192"};
inline constexpr SettingKey linksColor{preferencesApplication, u"Colors", u"Links", u"8388608"};
inline constexpr SettingKey commentsColor{preferencesApplication, u"Colors", u"Comments", u"8421504"};
inline constexpr SettingKey otherColor{preferencesApplication, u"Colors", u"Other", u"32768"};
inline constexpr SettingKey aspColor{preferencesApplication, u"Colors", u"ASP", u"6776628"};
inline constexpr SettingKey aspBold{preferencesApplication, u"Colors", u"ASP-Bold", u"1"};
inline constexpr SettingKey colorOnOff{preferencesApplication, u"Colors", u"OnOff", u"False"};
inline constexpr SettingKey foreColor{preferencesApplication, u"Colors", u"ForeColor", u"0"};
inline constexpr SettingKey backColor{preferencesApplication, u"Colors", u"BackColor", u"16777215"};

inline constexpr SettingKey autoQuote{preferencesApplication, u"XML", u"AutoQuote", u"0"};
inline constexpr SettingKey autoEmptySlash{preferencesApplication, u"XML", u"AutoEmptySlash", u"1"};
inline constexpr SettingKey autoCase{preferencesApplication, u"XML", u"AutoCase", u"1"};

inline constexpr SettingKey graphicsCount{preferencesApplication, u"Graphics", u"Count", u"-1"};
inline constexpr SettingKey graphicsEntry{preferencesApplication, u"Graphics", u"", u"-1"};

inline constexpr SettingKey docTypesCount{preferencesApplication, u"DocTypes", u"Count", u"-1"};
inline constexpr SettingKey docTypesEntry{preferencesApplication, u"DocTypes", u"", u"-1"};

inline constexpr SettingKey customTagsCount{preferencesApplication, u"CustomTags", u"Count", u"-1"};
inline constexpr SettingKey customTagsEntry{preferencesApplication, u"CustomTags", u"", u"-1"};

inline constexpr SettingKey customCaption{preferencesApplication, u"Custom", u"0", u"Custom%1"};
inline constexpr SettingKey customText{preferencesApplication, u"Custom", u"1", u""};

inline constexpr SettingKey dtdXhtml{preferencesApplication, u"DTD", u"XHTML", u"0"};
inline constexpr SettingKey dtdSmil{preferencesApplication, u"DTD", u"Smil", u"1"};
inline constexpr SettingKey dtdSvg{preferencesApplication, u"DTD", u"Svg", u"0"};
inline constexpr SettingKey dtdOpen{preferencesApplication, u"DTD", u"Open", u"1"};
inline constexpr SettingKey dtdWml{preferencesApplication, u"DTD", u"WML", u"0"};
inline constexpr SettingKey dtdX3d{preferencesApplication, u"DTD", u"X3D", u"0"};
inline constexpr SettingKey dtdMath{preferencesApplication, u"DTD", u"Math", u""};

// Until they are written, the program's own directory stands for the first three.
inline constexpr SettingKey drive{preferencesApplication, u"Direct", u"Drive", u""};
inline constexpr SettingKey director{preferencesApplication, u"Direct", u"Director", u""};
inline constexpr SettingKey filePath{preferencesApplication, u"Direct", u"FilePath", u""};
inline constexpr SettingKey ftpUrl{preferencesApplication, u"Direct", u"FTPURL", u""};
inline constexpr SettingKey ftpUserName{preferencesApplication, u"Direct", u"FTPUserName", u""};
inline constexpr SettingKey ftpPassword{preferencesApplication, u"Direct", u"FTPPassword", u""};

inline constexpr SettingKey showStart{preferencesApplication, u"Startup", u"ShowStart", u"yes"};

inline constexpr SettingKey optionsCode{preferencesApplication, u"Options", u"Code", u"http://"};
inline constexpr SettingKey optionsHeight{preferencesApplication, u"Options", u"Height", u"30"};
inline constexpr SettingKey optionsWidth{preferencesApplication, u"Options", u"Width", u"80"};
inline constexpr SettingKey optionsInclCode{preferencesApplication, u"Options", u"InclCode", u"0"};
inline constexpr SettingKey optionsTagCase{preferencesApplication, u"Options", u"TagCase", u"0"};
inline constexpr SettingKey optionsLines{preferencesApplication, u"Options", u"Lines", u"True"};
inline constexpr SettingKey optionsObj{preferencesApplication, u"Options", u"Obj", u"True"};
inline constexpr SettingKey optionsTagClassID{preferencesApplication, u"Options", u"TagClassID", u"True"};

inline constexpr SettingKey windowState{stateApplication, u"Previous", u"WindowState", u"2"};
inline constexpr SettingKey windowTop{stateApplication, u"Previous", u"Top", u"50"};
inline constexpr SettingKey windowLeft{stateApplication, u"Previous", u"Left", u"50"};
inline constexpr SettingKey windowWidth{stateApplication, u"Previous", u"Width", u"600"};
inline constexpr SettingKey windowHeight{stateApplication, u"Previous", u"Height", u"400"};
inline constexpr SettingKey picture1{stateApplication, u"Previous", u"Picture1", u"True"};
inline constexpr SettingKey picture11{stateApplication, u"Previous", u"Picture11", u"True"};
inline constexpr SettingKey picture14{stateApplication, u"Previous", u"Picture14", u"True"};
inline constexpr SettingKey picture15{stateApplication, u"Previous", u"Picture15", u"True"};
inline constexpr SettingKey pic11Height{stateApplication, u"Previous", u"Pic11Height", u"2600"};

inline constexpr SettingKey fontsNumber{stateApplication, u"Fonts", u"Number", u"-1"};
inline constexpr SettingKey fontsEntry{stateApplication, u"Fonts", u"", u""};

inline constexpr SettingKey recentFile{stateApplication, u"RecentFiles", u"", u""};

inline constexpr SettingKey useIE{stateApplication, u"Extras", u"UseIE", u""};
inline constexpr SettingKey regAdded{stateApplication, u"Extras", u"RegAdded", u"False"};

inline constexpr SettingKey organizerNumber{organizerApplication, u"Data", u"Number", u"1"};
inline constexpr SettingKey organizerEntry{organizerApplication, u"Data", u"", u""};

inline constexpr SettingKey phoneNumber{organizerApplication, u"Phone", u"Number", u"0"};
inline constexpr SettingKey phoneEntry{organizerApplication, u"Phone", u"", u""};

inline constexpr SettingKey urlCount{organizerApplication, u"URL", u"URLS", u"0"};
inline constexpr SettingKey urlEntry{organizerApplication, u"URL", u"", u""};

}  // namespace keys

[[nodiscard]] QString ReadSetting(const SettingsStore& store, const SettingKey& key);
bool WriteSetting(SettingsStore& store, const SettingKey& key, const QString& value);

// The same for entry `index` (from 0) of a family.
[[nodiscard]] QString ReadSetting(const SettingsStore& store, const SettingKey& family, int index);
bool WriteSetting(SettingsStore& store, const SettingKey& family, int index, const QString& value);

// The entries of a family by its count; nothing when there is no list: a count of -1, or one past all sense (more than
// 32767).
[[nodiscard]] std::optional<QStringList> ReadListSetting(const SettingsStore& store, const SettingKey& count,
                                                         const SettingKey& family);

// The value as a number, by the leading-number rule.
[[nodiscard]] double ReadNumberSetting(const SettingsStore& store, const SettingKey& key);

}  // namespace vellum
