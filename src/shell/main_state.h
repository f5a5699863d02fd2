// What the main window keeps from one session to the next: its place, what it shows, the website, the recent files.
#pragma once

#include <QStringList>

namespace vellum {

class MainRegions;
class RecentFileList;
class SettingsStore;

void RestoreState(MainRegions& window, RecentFileList& recent, const SettingsStore& settings);
// As one write of the settings file.
void WriteState(const MainRegions& window, const RecentFileList& recent, SettingsStore& settings);

// Shows the names in the hidden list of fonts and keeps them for the next start.
void StoreFonts(MainRegions& window, const QStringList& fontNames, SettingsStore& settings);

}  // namespace vellum
