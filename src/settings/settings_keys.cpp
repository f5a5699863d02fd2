#include "settings/settings_keys.h"

#include "values/number_rules.h"

namespace vellum {

// name, application, section, key, default. A family of numbered entries has an empty key.
#define VELLUM_SETTING_TABLE(ROW)                                                      \
    ROW(fontSize, preferencesApplication, u"Settings", u"Fontsize", u"8.5")            \
    ROW(fontName, preferencesApplication, u"Settings", u"Fontname", u"Courier New")    \
    ROW(refreshRate, preferencesApplication, u"Settings", u"RefreshRate", u"7")        \
    ROW(wordWrap, preferencesApplication, u"Settings", u"WordWrap", u"0")              \
    ROW(verticalMain, preferencesApplication, u"Settings", u"VerticalMain", u"True")   \
    ROW(editPercent, preferencesApplication, u"Settings", u"EditPercent", u"50")       \
    ROW(autoTab, preferencesApplication, u"Settings", u"AutoTab", u"1")                \
    ROW(popupTag, preferencesApplication, u"Settings", u"PopupTag", u"1")              \
    ROW(browser1, preferencesApplication, u"Settings", u"Browser1", u"None")           \
    ROW(browser2, preferencesApplication, u"Settings", u"Browser2", u"None")           \
    ROW(browser3, preferencesApplication, u"Settings", u"Browser3", u"None")           \
    ROW(lowerCase, preferencesApplication, u"Settings", u"LowerCase", u"False")        \
    ROW(tablesColor, preferencesApplication, u"Colors", u"Tables", u"8388736")         \
    ROW(framesColor, preferencesApplication, u"Colors", u"Frames", u"192")             \
    ROW(linksColor, preferencesApplication, u"Colors", u"Links", u"8388608")           \
    ROW(commentsColor, preferencesApplication, u"Colors", u"Comments", u"8421504")     \
    ROW(otherColor, preferencesApplication, u"Colors", u"Other", u"32768")             \
    ROW(aspColor, preferencesApplication, u"Colors", u"ASP", u"6776628")               \
    ROW(aspBold, preferencesApplication, u"Colors", u"ASP-Bold", u"1")                 \
    ROW(colorOnOff, preferencesApplication, u"Colors", u"OnOff", u"False")             \
    ROW(foreColor, preferencesApplication, u"Colors", u"ForeColor", u"0")              \
    ROW(backColor, preferencesApplication, u"Colors", u"BackColor", u"16777215")       \
    ROW(autoQuote, preferencesApplication, u"XML", u"AutoQuote", u"0")                 \
    ROW(autoEmptySlash, preferencesApplication, u"XML", u"AutoEmptySlash", u"1")       \
    ROW(autoCase, preferencesApplication, u"XML", u"AutoCase", u"1")                   \
    ROW(graphicsCount, preferencesApplication, u"Graphics", u"Count", u"-1")           \
    ROW(graphicsEntry, preferencesApplication, u"Graphics", u"", u"-1")                \
    ROW(docTypesCount, preferencesApplication, u"DocTypes", u"Count", u"-1")           \
    ROW(docTypesEntry, preferencesApplication, u"DocTypes", u"", u"-1")                \
    ROW(customTagsCount, preferencesApplication, u"CustomTags", u"Count", u"-1")       \
    ROW(customTagsEntry, preferencesApplication, u"CustomTags", u"", u"-1")            \
    ROW(customText, preferencesApplication, u"Custom", u"", u"")                       \
    ROW(dtdXhtml, preferencesApplication, u"DTD", u"XHTML", u"0")                      \
    ROW(dtdSmil, preferencesApplication, u"DTD", u"Smil", u"1")                        \
    ROW(dtdSvg, preferencesApplication, u"DTD", u"Svg", u"0")                          \
    ROW(dtdOpen, preferencesApplication, u"DTD", u"Open", u"1")                        \
    ROW(dtdWml, preferencesApplication, u"DTD", u"WML", u"0")                          \
    ROW(dtdX3d, preferencesApplication, u"DTD", u"X3D", u"0")                          \
    ROW(dtdMath, preferencesApplication, u"DTD", u"Math", u"")                         \
    ROW(drive, preferencesApplication, u"Direct", u"Drive", u"")                       \
    ROW(director, preferencesApplication, u"Direct", u"Director", u"")                 \
    ROW(filePath, preferencesApplication, u"Direct", u"FilePath", u"")                 \
    ROW(ftpUrl, preferencesApplication, u"Direct", u"FTPURL", u"")                     \
    ROW(ftpUserName, preferencesApplication, u"Direct", u"FTPUserName", u"")           \
    ROW(ftpPassword, preferencesApplication, u"Direct", u"FTPPassword", u"")           \
    ROW(showStart, preferencesApplication, u"Startup", u"ShowStart", u"yes")           \
    ROW(optionsCode, preferencesApplication, u"Options", u"Code", u"http://")          \
    ROW(optionsHeight, preferencesApplication, u"Options", u"Height", u"30")           \
    ROW(optionsWidth, preferencesApplication, u"Options", u"Width", u"80")             \
    ROW(optionsInclCode, preferencesApplication, u"Options", u"InclCode", u"0")        \
    ROW(optionsTagCase, preferencesApplication, u"Options", u"TagCase", u"0")          \
    ROW(optionsLines, preferencesApplication, u"Options", u"Lines", u"True")           \
    ROW(optionsObj, preferencesApplication, u"Options", u"Obj", u"True")               \
    ROW(optionsTagClassID, preferencesApplication, u"Options", u"TagClassID", u"True") \
    ROW(windowState, stateApplication, u"Previous", u"WindowState", u"2")              \
    ROW(windowTop, stateApplication, u"Previous", u"Top", u"50")                       \
    ROW(windowLeft, stateApplication, u"Previous", u"Left", u"50")                     \
    ROW(windowWidth, stateApplication, u"Previous", u"Width", u"600")                  \
    ROW(windowHeight, stateApplication, u"Previous", u"Height", u"400")                \
    ROW(picture1, stateApplication, u"Previous", u"Picture1", u"True")                 \
    ROW(picture11, stateApplication, u"Previous", u"Picture11", u"True")               \
    ROW(picture14, stateApplication, u"Previous", u"Picture14", u"True")               \
    ROW(picture15, stateApplication, u"Previous", u"Picture15", u"True")               \
    ROW(pic11Height, stateApplication, u"Previous", u"Pic11Height", u"2600")           \
    ROW(fontsNumber, stateApplication, u"Fonts", u"Number", u"-1")                     \
    ROW(fontsEntry, stateApplication, u"Fonts", u"", u"")                              \
    ROW(recentFile, stateApplication, u"RecentFiles", u"", u"")                        \
    ROW(useIE, stateApplication, u"Extras", u"UseIE", u"")                             \
    ROW(regAdded, stateApplication, u"Extras", u"RegAdded", u"False")                  \
    ROW(organizerNumber, organizerApplication, u"Data", u"Number", u"1")               \
    ROW(organizerEntry, organizerApplication, u"Data", u"", u"")                       \
    ROW(phoneNumber, organizerApplication, u"Phone", u"Number", u"0")                  \
    ROW(phoneEntry, organizerApplication, u"Phone", u"", u"")                          \
    ROW(urlCount, organizerApplication, u"URL", u"URLS", u"0")                         \
    ROW(urlEntry, organizerApplication, u"URL", u"", u"")

namespace keys {
// Constant initialisation: other units may read a key while they are being initialised themselves.
#define VELLUM_ROW(name, application, section, key, fallback) \
    constinit const SettingKey name{application, section, key, fallback};
VELLUM_SETTING_TABLE(VELLUM_ROW)
#undef VELLUM_ROW
}  // namespace keys

namespace {

#define VELLUM_ROW(name, application, section, key, fallback) &keys::name,
constexpr const SettingKey* allKeys[] = {VELLUM_SETTING_TABLE(VELLUM_ROW)};
#undef VELLUM_ROW

// Defaults are literals, so a string may look at them without a copy.
QString Shared(QStringView literal) {
    return QString::fromRawData(literal.data(), literal.size());
}

// A key of the section "Custom": captions begin with "0", texts with "1", and the row follows.
QString CustomKey(char16_t kind, int row) {
    return QChar(kind) + QString::number(row);
}

}  // namespace

std::span<const SettingKey* const> AllSettingKeys() {
    return allKeys;
}

QString ReadSetting(const SettingsStore& store, const SettingKey& key) {
    return store.Read(key.application, key.section, key.key, Shared(key.fallback));
}

bool WriteSetting(SettingsStore& store, const SettingKey& key, const QString& value) {
    return store.Write(key.application, key.section, key.key, value);
}

QString ReadSetting(const SettingsStore& store, const SettingKey& family, int index) {
    return store.Read(family.application, family.section, QString::number(index), Shared(family.fallback));
}

bool WriteSetting(SettingsStore& store, const SettingKey& family, int index, const QString& value) {
    return store.Write(family.application, family.section, QString::number(index), value);
}

std::optional<QStringList> ReadListSetting(const SettingsStore& store, const SettingKey& count,
                                           const SettingKey& family) {
    constexpr int mostEntries = 32767;
    const double entries = ReadNumberSetting(store, count);
    if (entries == -1 || entries > mostEntries) return std::nullopt;
    QStringList list;
    for (int i = 0; i < entries; ++i) list << ReadSetting(store, family, i);
    return list;
}

double ReadNumberSetting(const SettingsStore& store, const SettingKey& key) {
    return LeadingNumber(ReadSetting(store, key));
}

QString ReadCustomCaption(const SettingsStore& store, int row) {
    const SettingKey& family = keys::customText;
    return store.Read(family.application, family.section, CustomKey(u'0', row),
                      QStringLiteral("Custom%1").arg(row + 1));
}

bool WriteCustomCaption(SettingsStore& store, int row, const QString& caption) {
    return store.Write(keys::customText.application, keys::customText.section, CustomKey(u'0', row), caption);
}

QString ReadCustomText(const SettingsStore& store, int row) {
    const SettingKey& family = keys::customText;
    return store.Read(family.application, family.section, CustomKey(u'1', row), Shared(family.fallback));
}

bool WriteCustomText(SettingsStore& store, int row, const QString& text) {
    return store.Write(keys::customText.application, keys::customText.section, CustomKey(u'1', row), text);
}

}  // namespace vellum
