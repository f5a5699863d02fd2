// The settings as they are meant to be: what each key's constant stands for, by value.
#pragma once

#include "settings/settings_keys.h"

namespace vellum::test {

struct SettingRow {
    SettingKey constant;
    QStringView application;
    QStringView section;
    QStringView key;
    QStringView fallback;
};

inline constexpr SettingRow singleSettings[] = {
    {keys::fontSize, u"Vellumcraft", u"Settings", u"Fontsize", u"8.5"},
    {keys::fontName, u"Vellumcraft", u"Settings", u"Fontname", u"Courier New"},
    {keys::refreshRate, u"Vellumcraft", u"Settings", u"RefreshRate", u"7"},
    {keys::wordWrap, u"Vellumcraft", u"Settings", u"WordWrap", u"0"},
    {keys::verticalMain, u"Vellumcraft", u"Settings", u"VerticalMain", u"True"},
    {keys::editPercent, u"Vellumcraft", u"Settings", u"EditPercent", u"50"},
    {keys::autoTab, u"Vellumcraft", u"Settings", u"AutoTab", u"1"},
    {keys::popupTag, u"Vellumcraft", u"Settings", u"PopupTag", u"1"},
    {keys::browser1, u"Vellumcraft", u"Settings", u"Browser1", u"None"},
    {keys::browser2, u"Vellumcraft", u"Settings", u"Browser2", u"None"},
    {keys::browser3, u"Vellumcraft", u"Settings", u"Browser3", u"None"},
    {keys::lowerCase, u"Vellumcraft", u"Settings", u"LowerCase", u"False"},
    {keys::tablesColor, u"Vellumcraft", u"Colors", u"Tables", u"8388736"},
    {keys::framesColor, u"Vellumcraft", u"Colors", u"Frames", u"192"},
    {keys::linksColor, u"Vellumcraft", u"Colors", u"Links", u"8388608"},
    {keys::commentsColor, u"Vellumcraft", u"Colors", u"Comments", u"8421504"},
    {keys::otherColor, u"Vellumcraft", u"Colors", u"Other", u"32768"},
    {keys::aspColor, u"Vellumcraft", u"Colors", u"ASP", u"6776628"},
    {keys::aspBold, u"Vellumcraft", u"Colors", u"ASP-Bold", u"1"},
    {keys::colorOnOff, u"Vellumcraft", u"Colors", u"OnOff", u"False"},
    {keys::foreColor, u"Vellumcraft", u"Colors", u"ForeColor", u"0"},
    {keys::backColor, u"Vellumcraft", u"Colors", u"BackColor", u"16777215"},
    {keys::autoQuote, u"Vellumcraft", u"XML", u"AutoQuote", u"0"},
    {keys::autoEmptySlash, u"Vellumcraft", u"XML", u"AutoEmptySlash", u"1"},
    {keys::autoCase, u"Vellumcraft", u"XML", u"AutoCase", u"1"},
    {keys::graphicsCount, u"Vellumcraft", u"Graphics", u"Count", u"-1"},
    {keys::docTypesCount, u"Vellumcraft", u"DocTypes", u"Count", u"-1"},
    {keys::customTagsCount, u"Vellumcraft", u"CustomTags", u"Count", u"-1"},
    {keys::dtdXhtml, u"Vellumcraft", u"DTD", u"XHTML", u"0"},
    {keys::dtdSmil, u"Vellumcraft", u"DTD", u"Smil", u"1"},
    {keys::dtdSvg, u"Vellumcraft", u"DTD", u"Svg", u"0"},
    {keys::dtdOpen, u"Vellumcraft", u"DTD", u"Open", u"1"},
    {keys::dtdWml, u"Vellumcraft", u"DTD", u"WML", u"0"},
    {keys::dtdX3d, u"Vellumcraft", u"DTD", u"X3D", u"0"},
    {keys::dtdMath, u"Vellumcraft", u"DTD", u"Math", u""},
    {keys::drive, u"Vellumcraft", u"Direct", u"Drive", u""},
    {keys::director, u"Vellumcraft", u"Direct", u"Director", u""},
    {keys::filePath, u"Vellumcraft", u"Direct", u"FilePath", u""},
    {keys::ftpUrl, u"Vellumcraft", u"Direct", u"FTPURL", u""},
    {keys::ftpUserName, u"Vellumcraft", u"Direct", u"FTPUserName", u""},
    {keys::ftpPassword, u"Vellumcraft", u"Direct", u"FTPPassword", u""},
    {keys::showStart, u"Vellumcraft", u"Startup", u"ShowStart", u"yes"},
    {keys::optionsCode, u"Vellumcraft", u"Options", u"Code", u"http://"},
    {keys::optionsHeight, u"Vellumcraft", u"Options", u"Height", u"30"},
    {keys::optionsWidth, u"Vellumcraft", u"Options", u"Width", u"80"},
    {keys::optionsInclCode, u"Vellumcraft", u"Options", u"InclCode", u"0"},
    {keys::optionsTagCase, u"Vellumcraft", u"Options", u"TagCase", u"0"},
    {keys::optionsLines, u"Vellumcraft", u"Options", u"Lines", u"True"},
    {keys::optionsObj, u"Vellumcraft", u"Options", u"Obj", u"True"},
    {keys::optionsTagClassID, u"Vellumcraft", u"Options", u"TagClassID", u"True"},
    {keys::windowState, u"VellumState", u"Previous", u"WindowState", u"2"},
    {keys::windowTop, u"VellumState", u"Previous", u"Top", u"50"},
    {keys::windowLeft, u"VellumState", u"Previous", u"Left", u"50"},
    {keys::windowWidth, u"VellumState", u"Previous", u"Width", u"600"},
    {keys::windowHeight, u"VellumState", u"Previous", u"Height", u"400"},
    {keys::picture1, u"VellumState", u"Previous", u"Picture1", u"True"},
    {keys::picture11, u"VellumState", u"Previous", u"Picture11", u"True"},
    {keys::picture14, u"VellumState", u"Previous", u"Picture14", u"True"},
    {keys::picture15, u"VellumState", u"Previous", u"Picture15", u"True"},
    {keys::pic11Height, u"VellumState", u"Previous", u"Pic11Height", u"2600"},
    {keys::fontsNumber, u"VellumState", u"Fonts", u"Number", u"-1"},
    {keys::useIE, u"VellumState", u"Extras", u"UseIE", u""},
    {keys::regAdded, u"VellumState", u"Extras", u"RegAdded", u"False"},
    {keys::organizerNumber, u"Orrinade Organizer", u"Data", u"Number", u"1"},
    {keys::phoneNumber, u"Orrinade Organizer", u"Phone", u"Number", u"0"},
    {keys::urlCount, u"Orrinade Organizer", u"URL", u"URLS", u"0"},
};

// Families of numbered entries; the key is what the keys of the entries begin with.
inline constexpr SettingRow familySettings[] = {
    {keys::graphicsEntry, u"Vellumcraft", u"Graphics", u"", u"-1"},
    {keys::docTypesEntry, u"Vellumcraft", u"DocTypes", u"", u"-1"},
    {keys::customCaption, u"Vellumcraft", u"Custom", u"0", u"Custom%1"},
    {keys::customText, u"Vellumcraft", u"Custom", u"1", u""},
    {keys::customTagsEntry, u"Vellumcraft", u"CustomTags", u"", u"-1"},
    {keys::fontsEntry, u"VellumState", u"Fonts", u"", u""},
    {keys::recentFile, u"VellumState", u"RecentFiles", u"", u""},
    {keys::organizerEntry, u"Orrinade Organizer", u"Data", u"", u""},
    {keys::phoneEntry, u"Orrinade Organizer", u"Phone", u"", u""},
    {keys::urlEntry, u"Orrinade Organizer", u"URL", u"", u""},
};

}  // namespace vellum::test
