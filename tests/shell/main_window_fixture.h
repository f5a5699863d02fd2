// A main window over a settings store, prompts and folders of its own.
#pragma once

#include "files/recovery_store.h"
#include "settings/settings_keys.h"
#include "shell/document_window.h"
#include "shell/mdiform1.h"
#include "surface/edit_surface.h"
#include "tests/support/scripted_prompts.h"

#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {

// The main window, with a count of what others are asked to do.
class CountingWindow : public MDIform1 {
public:
    using MDIform1::MDIform1;

    void Smartcolor() override { ++colored; }
    void RefreshWebsite() override {
        ++refreshed;
        MDIform1::RefreshWebsite();
    }
    void startup() override { ++tips; }

    int colored = 0;
    int refreshed = 0;
    int tips = 0;
};

template <typename Window>
class WindowFixture : public testing::Test {
protected:
    // Starts the main window as the session does, with or without preview.
    Window& Open(bool usePreview = false, const QString& commandLine = {}) {
        {
            const SettingsStore::Batch batch(settings);
            WriteSetting(settings, keys::drive, "/");
            WriteSetting(settings, keys::director, site.path());
            WriteSetting(settings, keys::filePath, site.path());
        }
        window = std::make_unique<Window>(settings, prompts, recovery, QStringList{"Alpha", "Beta"}, usePreview);
        window->Load(commandLine, [] {});
        return *window;
    }

    [[nodiscard]] DocumentWindow& Active() const { return *qobject_cast<DocumentWindow*>(window->ActiveDocument()); }

    void Trigger(const char* item) const {
        const QObject& owner = *window;
        auto* action = owner.findChild<QAction*>(item);
        ASSERT_NE(action, nullptr) << item;
        ASSERT_TRUE(action->isEnabled()) << item;
        action->trigger();
    }

    // What a panel of the status bar shows, from 1.
    [[nodiscard]] QString Panel(int number) const {
        const QObject& owner = *window;
        return owner.findChild<QLabel*>(QString("StatusBar1.Panels(%1)").arg(number))->text();
    }

    [[nodiscard]] QString SitePath(const QString& name) const { return site.filePath(name); }

    [[nodiscard]] QString MakeFile(const QString& name, const QByteArray& bytes) const {
        QFile file(SitePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    [[nodiscard]] static QByteArray Bytes(const QString& path) {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    QTemporaryDir home;
    QTemporaryDir site;
    SettingsStore settings{home.filePath("settings.json")};
    ScriptedPrompts prompts;
    RecoveryStore recovery{home.filePath("recovery")};
    std::unique_ptr<Window> window;
};

using MainWindowFixture = WindowFixture<CountingWindow>;

}  // namespace vellum::test
